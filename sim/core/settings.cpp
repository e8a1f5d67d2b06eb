#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kCore{
    {"watchdog", ftsim::Kind::Condition, "present", "present|absent", "the hardware watchdog device"},
    {"watchdog.written", ftsim::Kind::Observed, "", "<text>", "what the shell wrote to the watchdog since power-up",
     "dev/watchdog"},
};
}  // namespace
