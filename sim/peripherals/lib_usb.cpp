// The USB port of the hardware library: power and current limit are what the
// phone last set since power-up; device mode and an overcurrent are
// conditions of the operator's.
#include <cerrno>

#include "platform/velor.h"
#include "sim/core/state.h"

namespace {

int switch_power(bool on) {
    // A port in device mode takes power from the other side.
    if (ftsim::get("usb.mode") == "device") {
        errno = EOPNOTSUPP;
        return -2;
    }
    return ftsim::set_observed("usb.power", on ? "on" : "off") ? 0 : -1;
}

}  // namespace

extern "C" {

int Usb_Port1_On(void) {
    FTSIM_FAILURE_POINT();
    return switch_power(true);
}

int Usb_Port1_Off(void) {
    FTSIM_FAILURE_POINT();
    return switch_power(false);
}

int Usb_HadPowerFault(int* fault_out) {
    FTSIM_FAILURE_POINT();
    if (fault_out == nullptr) {
        errno = EINVAL;
        return -1;
    }
    *fault_out = ftsim::get("usb.overcurrent") == "yes" ? 1 : 0;
    return 0;
}

int Usb_SetCurrentLimit(int limit) {
    FTSIM_FAILURE_POINT();
    if (limit != 0 && limit != 1) {
        errno = EINVAL;
        return -1;
    }
    return ftsim::set_observed("usb.limit", limit == 0 ? "100" : "500") ? 0 : -1;
}

int Usb_GetCurrentLimit(void) {
    FTSIM_FAILURE_POINT();
    return ftsim::get("usb.limit") == "100" ? 0 : 1;
}

}  // extern "C"
