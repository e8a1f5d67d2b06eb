// The WiFi side of the combo module at power-up and in `ftsim show`.
#include <string>

#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {
namespace {

// The first word of each line of the module list: the module names.
std::string module_names() {
    std::string text, names;
    if (!read_text("proc/modules", text)) return "none";
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(pos, end - pos);
        const std::string name = line.substr(0, line.find(' '));
        if (!name.empty()) names += (names.empty() ? "" : " ") + name;
        pos = end + 1;
    }
    return names.empty() ? "none" : names;
}

void wifi_show(const Phone&, std::string& out) {
    out += "kernel modules: " + module_names() + "\n";
    out += "wifi: chip " + get("wifi") + ", driver " + get("wifi.driver") + ", ";
    std::string mac;
    if (read_text("sys/class/net/wlan0/address", mac)) {
        if (!mac.empty() && mac.back() == '\n') mac.pop_back();
        out += "wlan0 " + mac + " link " + get("wifi.link");
    } else {
        out += "no wlan0";
    }
    out += ", antenna paths tx/rx " + get("wifi.antenna") + "\n";
}

const ModuleRegistrar kWifi{Module{"wifi", {}, nullptr, wifi_show, nullptr}};

}  // namespace
}  // namespace ftsim
