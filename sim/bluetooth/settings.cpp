#include "sim/core/state.h"

namespace {
// Three neighbours of different kinds, one of them without a name.
constexpr const char* kDevicesInRange =
    "02:4B:10:DA:71:13,name=Meeting Room Speaker,class=240414,type=1,rssi=-52;"
    "06:3C:22:6B:0E:91,name=Badge Tag,type=2,rssi=-77;"
    "0A:5E:31:8A:21:04,class=5A020C,type=3,rssi=-64";

const ftsim::SettingsRegistrar kBluetooth{
    {"bt", ftsim::Kind::Condition, "present", "present|absent",
     "the combo module's Bluetooth half, as Cap_Bluetooth answers"},
    {"bt.hal", ftsim::Kind::Condition, "present", "present|absent",
     "the Bluetooth HAL library (absent: hw_get_module finds no \"bluetooth\" module)"},
    {"bt.address", ftsim::Kind::Condition, "00:11:22:AA:BB:CC", "<text>",
     "the adapter's address the HAL reports; anything but six hex pairs joined by ':' fails the request"},
    {"bt.address.unasked", ftsim::Kind::Condition, "no", "no|yes",
     "yes: the HAL also reports the adapter's address unasked as the adapter comes on"},
    {"bt.devices", ftsim::Kind::Condition, kDevicesInRange, "<text>",
     "devices a discovery finds, in this order: items joined by ';', each an address and optional ,name=NAME "
     ",class=HEX ,type=N (1 BR/EDR, 2 LE, 3 dual) ,rssi=N and ,twice (first found with the address alone, "
     "after the others with all it has); an item that does not parse is never found"},
    {"bt.discovery_ms", ftsim::Kind::Condition, "3000", "<number>",
     "how long a discovery lasts, in ms (at least 100); the devices answer at equal steps across it, a step "
     "at most 1 s"},
    {"bt.addr_loader", ftsim::Kind::Condition, "0", "<text>",
     "exit codes of /system/bin/bd_addr_loader's runs after power-up, joined by ',' (\"4,0\": fails once); "
     "the last one stays"},
    {"bt.driver.busy", ftsim::Kind::Condition, "0", "<number>",
     "how many removals of the driver (mbt8xxx) after power-up are refused as busy (EAGAIN)"},
    {"bt.driver", ftsim::Kind::Observed, "unloaded", "loaded|unloaded",
     "the Bluetooth driver: loaded by load_wireless_driver.sh --type bt, unloaded by removing mbt8xxx"},
    {"bt.driver.refused", ftsim::Kind::Observed, "0", "<number>",
     "removals of the driver refused as busy since power-up"},
    {"bt.addr_loader.runs", ftsim::Kind::Observed, "0", "<number>",
     "runs of /system/bin/bd_addr_loader since power-up"},
    {"bt.stack", ftsim::Kind::Observed, "stopped", "running|stopped",
     "the HAL's stack: running from its init until its cleanup has joined its thread"},
    {"bt.adapter", ftsim::Kind::Observed, "off", "on|off", "the adapter, as the HAL last switched it"},
    {"bt.discovering", ftsim::Kind::Observed, "no", "yes|no", "whether a discovery runs"},
};
}  // namespace
