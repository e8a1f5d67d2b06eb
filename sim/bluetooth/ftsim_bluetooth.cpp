// Bluetooth in ftsim: a fresh boot has the driver unloaded and the adapter
// off; `ftsim show` tells the driver, the adapter and the devices in range.
#include <cstdio>
#include <string>

#include "sim/bluetooth/devices.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {
namespace {

std::string describe(const bt::Device& d) {
    std::string text = bt::address_text(d.address);
    if (!d.name.empty()) text += " \"" + d.name + "\"";
    char number[32];
    if (d.device_class) {
        std::snprintf(number, sizeof number, " class 0x%06X", static_cast<unsigned>(*d.device_class));
        text += number;
    }
    if (d.type) {
        const unsigned t = *d.type;
        text += t == 1 ? " BR/EDR" : t == 2 ? " LE" : t == 3 ? " dual mode" : " type " + std::to_string(t);
    }
    if (d.rssi) text += " RSSI " + std::to_string(*d.rssi);
    if (d.twice) text += ", found twice";
    return text;
}

void bluetooth_show(const Phone&, std::string& out) {
    out += "bluetooth: module " + get("bt") + ", driver " + get("bt.driver") + ", HAL " + get("bt.hal") + " (stack " +
           get("bt.stack") + "), adapter " + get("bt.adapter") +
           (get("bt.discovering") == "yes" ? ", discovering" : "") + ", address " + get("bt.address") + "\n";
    std::size_t unreadable = 0;
    const std::vector<bt::Device> devices = bt::devices_in_range(get("bt.devices"), &unreadable);
    out += "bluetooth devices in range: " + std::to_string(devices.size());
    if (unreadable) out += " (and " + std::to_string(unreadable) + " items of bt.devices that do not parse)";
    out += "\n";
    for (const bt::Device& d : devices) out += "  " + describe(d) + "\n";
}

const ModuleRegistrar kBluetooth{Module{"bluetooth", {}, nullptr, bluetooth_show, nullptr}};

}  // namespace
}  // namespace ftsim
