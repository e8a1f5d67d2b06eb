// The hardware library's question about the combo module's WiFi chip.
#include <cerrno>

#include "platform/velor.h"
#include "sim/core/state.h"

extern "C" int Cap_WiFi(int* present_out) {
    FTSIM_FAILURE_POINT();
    if (present_out == nullptr) {
        errno = EFAULT;
        return -1;
    }
    *present_out = ftsim::get("wifi") == "present" ? 1 : 0;
    return 0;
}
