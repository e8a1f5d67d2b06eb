// Conditions and observed state of the wired network: the switch's cables,
// the LAN interface eth0 as the phone's network tools left it, and the lamps.
#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kNetwork{
    {"switch.gigabit.pc", ftsim::Kind::Condition, "yes", "yes|no", "whether the PC port can run at 1000 Mb/s"},
    {"switch.gigabit.lan", ftsim::Kind::Condition, "yes", "yes|no", "whether the LAN port can run at 1000 Mb/s"},
    {"switch.partner.pc", ftsim::Kind::Condition, "none", "none|10|100|1000",
     "the link partner on the PC port's cable: nothing, or its best speed in Mb/s"},
    {"switch.partner.lan", ftsim::Kind::Condition, "1000", "none|10|100|1000",
     "the link partner on the LAN port's cable: nothing, or its best speed in Mb/s"},
    {"eth0.mac", ftsim::Kind::Condition, "02:1a:2b:3c:4d:00", "<text>",
     "the phone's Ethernet MAC address (eth0 and the switch's CPU port)"},
    {"switch.ledtest", ftsim::Kind::Observed, "none", "none|1|2|3",
     "the last Ethernet LED test step: 1 off, 2 on, 3 normal"},
    {"switch.report", ftsim::Kind::Observed, "none", "<text>",
     "the last report of the switch: KIND ARG marker=MS (the report marker's age, or absent)"},
    {"leds", ftsim::Kind::Observed, "off", "<text>", "all LEDs: on, off or flash ON/OFF"},
    {"eth0.link", ftsim::Kind::Observed, "up", "up|down", "eth0 switched up or down (ifconfig)"},
    {"eth0.address", ftsim::Kind::Observed, "", "<text>", "eth0's IPv4 address (ifconfig); empty: none"},
    {"eth0.speed", ftsim::Kind::Observed, "1000", "10|100|1000", "eth0's speed in Mb/s (ethtool -s)"},
    {"eth0.duplex", ftsim::Kind::Observed, "full", "half|full", "eth0's duplex (ethtool -s)"},
    {"eth0.autoneg", ftsim::Kind::Observed, "on", "on|off", "eth0's autonegotiation (ethtool -s)"},
};
}  // namespace
