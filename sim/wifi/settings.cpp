// Conditions and observed state of the combo module's WiFi side.
#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kWifi{
    {"wifi", ftsim::Kind::Condition, "present", "present|absent", "the combo module's WiFi chip (Cap_WiFi)"},
    {"wifi.mac", ftsim::Kind::Condition, "02:00:00:00:0a:01", "<text>", "the address wlan0 gets when the driver loads"},
    {"wifi.aps", ftsim::Kind::Condition, "factory-lab/02:00:00:00:AA:01/-42/68;factory-guest/02:00:00:00:AA:02/-71/39",
     "<text>", "access points in range: SSID/BSSID/SIGNAL_DBM/QUALITY items joined by ;"},
    {"wifi.busy", ftsim::Kind::Condition, "0", "<number>",
     "the next N removals of a WiFi module fail as busy (EAGAIN); counts down"},
    {"wifi.driver", ftsim::Kind::Observed, "unloaded", "loaded|unloaded", "the WiFi driver's modules"},
    {"wifi.link", ftsim::Kind::Observed, "down", "up|down", "wlan0 as 'ip link set' left it"},
    {"wifi.antenna", ftsim::Kind::Observed, "3 3", "<text>",
     "antenna paths TX RX (1 A, 2 B, 3 both), as mlanutl set them"},
};
}  // namespace
