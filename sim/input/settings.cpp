#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kInput{
    {"model", ftsim::Kind::Condition, "standard", "standard|entry",
     "which model of the product line the phone is (device names, is_corvane_entry)"},
    {"keypad", ftsim::Kind::Condition, "present", "present|absent", "the keypad's input device"},
    {"jack", ftsim::Kind::Condition, "present", "present|absent", "the 3.5 mm headset jack's input device"},
    {"hook", ftsim::Kind::Condition, "on", "on|off",
     "the handset: on its cradle or lifted ('ftsim hook' also sends the event)"},
    {"ehs", ftsim::Kind::Condition, "on", "on|off",
     "the wired headset's hook switch ('ftsim ehs' also sends the event)"},
    {"jack.plug", ftsim::Kind::Observed, "none", "none|nomic|mic|ctia|omtp",
     "the plug in the 3.5 mm jack, as 'ftsim jack' left it", nullptr, true},
};
}  // namespace
