// The Bluetooth handset cradle of the hardware library: its connection is a
// condition of the operator's, its charger what the phone last set.
#include <cerrno>

#include "platform/velor.h"
#include "sim/core/state.h"

extern "C" {

int BTHandsetCradle_IsConnected(int* state_out) {
    FTSIM_FAILURE_POINT();
    if (state_out == nullptr) {
        errno = EINVAL;
        return -1;
    }
    const std::string cradle = ftsim::get("cradle");
    // A cradle whose detection lines disagree reads as state 2.
    *state_out = cradle == "connected" ? 1 : cradle == "disconnected" ? 0 : 2;
    return 0;
}

int BTHandsetCharger_SetState(int on) {
    FTSIM_FAILURE_POINT();
    if (on != 0 && on != 1) {
        errno = EINVAL;
        return -1;
    }
    return ftsim::set_observed("cradle.charger", on ? "on" : "off") ? 0 : -1;
}

}  // extern "C"
