// Backlight of the simulated phone: power and raw level are observed state
// (backlight.power, backlight.level); the highest level is the condition
// backlight.max.
#include <cerrno>
#include <cstdlib>
#include <string>

#include "platform/velor.h"
#include "sim/core/state.h"

namespace {
int max_level() { return std::atoi(ftsim::get("backlight.max").c_str()); }

int invalid() {
    errno = EINVAL;
    return -1;
}

int record(const char* name, const std::string& value) {
    if (ftsim::set_observed(name, value)) return 0;
    return -1;  // errno from the write
}
}  // namespace

extern "C" int Backlight_Init(void) {
    FTSIM_FAILURE_POINT();
    // The driver comes up with the panel lit at whatever level it last had.
    return record("backlight.power", "on");
}

extern "C" int Backlight_SetRawBrightness(int level) {
    FTSIM_FAILURE_POINT();
    if (level < 0 || level > max_level()) return invalid();
    return record("backlight.level", std::to_string(level));
}

extern "C" int Backlight_GetMaxBrightness(int* max_out) {
    FTSIM_FAILURE_POINT();
    if (max_out == nullptr) return invalid();
    *max_out = max_level();
    return 0;
}

extern "C" int BacklightOnOff(int on) {
    FTSIM_FAILURE_POINT();
    if (on != 0 && on != 1) return invalid();
    return record("backlight.power", on ? "on" : "off");
}
