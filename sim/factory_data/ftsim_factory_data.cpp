// The factory data as `ftsim show` sums it up, and the store of a fresh phone.
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/eeprom.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"
#include "sim/factory_data/store.h"

namespace ftsim {
namespace {

// A fresh phone is in factory mode and holds nothing else.
bool factory_data_reset(const Phone&, std::string& error) {
    if (!hw().write_atomic("eeprom", "") || eeprom_write(factory_data::kOperationalMode, "0") < 0) {
        error = std::string("cannot write the factory data: ") + std::strerror(errno);
        return false;
    }
    return true;
}

void factory_data_show(const Phone&, std::string& out) {
    factory_data::Store store;
    const bool read = factory_data::read_store(store) == 0;
    int programmed = 0;
    for (int i = 1; i < factory_data::kFields; ++i)
        if (store[i].c_str()[0] != '\0') ++programmed;
    // The mode as the shell reads it: at most one slot, up to its first NUL.
    const std::string mode = store[factory_data::kOperationalMode].substr(0, factory_data::kMaxValue).c_str();
    out += "factory data: OPERATIONAL_MODE \"" + (read ? mode : "?") + "\" (" +
           (read && std::atoi(mode.c_str()) != 0 ? "production" : "factory") + " mode), " +
           std::to_string(programmed) + " other fields programmed\n";
}

const ModuleRegistrar kFactoryData{Module{"factory data", {}, nullptr, factory_data_show, factory_data_reset}};

}  // namespace
}  // namespace ftsim
