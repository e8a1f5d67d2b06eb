// Removal of the WiFi driver's modules. The kernel shim takes a module's line
// out of /proc/modules once its hook agrees; what the driver made goes with it.
#include <cerrno>
#include <cstdlib>
#include <string>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"

namespace {

// Counts down wifi.busy; true while the module is still to be reported busy.
bool still_busy() {
    const long left = std::strtol(ftsim::get("wifi.busy").c_str(), nullptr, 10);
    if (left <= 0) return false;
    ftsim::set_condition("wifi.busy", std::to_string(left - 1));
    return true;
}

int remove_sd8xxx(const char*, unsigned) {
    if (still_busy()) {
        errno = EAGAIN;
        return -1;
    }
    // The interface belongs to the driver, and leaves with it.
    ftsim::hw().remove("sys/class/net/wlan0");
    ftsim::clear_observed("wifi.link");
    ftsim::clear_observed("wifi.antenna");
    ftsim::set_observed("wifi.driver", "unloaded");
    return 0;
}

int remove_mlan(const char*, unsigned) {
    // mlan is used by sd8xxx: the kernel refuses to remove it first.
    if (still_busy() || ftsim::shim::module_listed("sd8xxx")) {
        errno = EAGAIN;
        return -1;
    }
    return 0;
}

const ftsim::shim::ModuleRegistrar kSd8xxx{"sd8xxx", remove_sd8xxx};
const ftsim::shim::ModuleRegistrar kMlan{"mlan", remove_mlan};

}  // namespace
