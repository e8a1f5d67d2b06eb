// The factory data as `ftsim show` sums it up, and the store of a fresh phone.
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/eeprom.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {
namespace {

constexpr int kFields = 34;
constexpr int kOperationalMode = 0;

// A fresh phone is in factory mode and holds nothing else.
bool factory_data_reset(const Phone&, std::string& error) {
    if (!hw().write_atomic("eeprom", "") || eeprom_write(kOperationalMode, "0") < 0) {
        error = std::string("cannot write the factory data: ") + std::strerror(errno);
        return false;
    }
    return true;
}

void factory_data_show(const Phone&, std::string& out) {
    std::array<char, 32> mode{};
    int programmed = 0;
    for (int i = 1; i < kFields; ++i) {
        std::array<char, 2> v{};
        if (eeprom_read(i, v.data(), 2) == 0 && v[0]) ++programmed;
    }
    const bool read = eeprom_read(kOperationalMode, mode.data(), 32) == 0;
    out += "factory data: OPERATIONAL_MODE \"" + std::string(read ? mode.data() : "?") + "\" (" +
           (read && std::atoi(mode.data()) != 0 ? "production" : "factory") + " mode), " +
           std::to_string(programmed) + " other fields programmed\n";
}

const ModuleRegistrar kFactoryData{Module{"factory data", {}, nullptr, factory_data_show, factory_data_reset}};

}  // namespace
}  // namespace ftsim
