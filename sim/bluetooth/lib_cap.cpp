// The hardware library's answer about the combo module's Bluetooth half:
// the condition bt.
#include <cerrno>

#include "platform/velor.h"
#include "sim/core/state.h"

extern "C" int Cap_Bluetooth(int* cap_out) {
    FTSIM_FAILURE_POINT();
    if (cap_out == nullptr) {
        errno = EINVAL;
        return -1;
    }
    *cap_out = ftsim::get("bt") == "present" ? 1 : 0;
    return 0;
}
