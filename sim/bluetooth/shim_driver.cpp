// Removing the Bluetooth driver (delete_module("mbt8xxx")) takes its device
// node with it. The condition bt.driver.busy makes the first removals after
// power-up fail as a driver still in use does.
#include <cerrno>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"

namespace {

constexpr const char* kModule = "mbt8xxx";

int remove_driver(const char*, unsigned) {
    const long busy = std::atol(ftsim::get("bt.driver.busy").c_str());
    const long refused = std::atol(ftsim::get("bt.driver.refused").c_str());
    if (refused < busy) {
        ftsim::set_observed("bt.driver.refused", std::to_string(refused + 1));
        errno = EAGAIN;
        return -1;
    }
    unlink("/dev/mbtchar0");
    ftsim::set_observed("bt.driver", "unloaded");
    return 0;
}

const ftsim::shim::ModuleRegistrar kDriver{kModule, remove_driver};

}  // namespace
