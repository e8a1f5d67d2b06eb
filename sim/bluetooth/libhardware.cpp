// The phone's libhardware, as far as the factory tests use it: a HAL module
// is the library /system/lib/hw/ID.default.so and its module record "HMI".
// The condition bt.hal = absent takes the Bluetooth one away.
#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <string>
#include <unistd.h>

#include "platform/bluetooth.h"
#include "platform/hardware.h"
#include "sim/core/state.h"

namespace {

// An id names a file in /system/lib/hw: nothing that could leave that folder.
bool plain_id(const char* id) {
    if (*id == '\0') return false;
    for (const char* p = id; *p; ++p) {
        const bool allowed = (*p >= 'a' && *p <= 'z') || (*p >= '0' && *p <= '9') || *p == '_' || *p == '.';
        if (!allowed || (p[0] == '.' && p[1] == '.')) return false;
    }
    return true;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int hw_get_module(const char* id, const hw_module_t** module) {
    FTSIM_FAILURE_POINT();
    if (id == nullptr || module == nullptr || !plain_id(id)) return -EINVAL;
    if (std::strcmp(id, BT_HARDWARE_MODULE_ID) == 0 && ftsim::get("bt.hal") == "absent") return -ENOENT;
    const std::string path = std::string("/system/lib/hw/") + id + ".default.so";
    if (access(path.c_str(), R_OK) != 0) return -ENOENT;
    void* dso = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (dso == nullptr) return -EINVAL;
    auto* hmi = static_cast<hw_module_t*>(dlsym(dso, HAL_MODULE_INFO_SYM_AS_STR));
    if (hmi == nullptr || hmi->tag != HARDWARE_MODULE_TAG || hmi->id == nullptr || std::strcmp(hmi->id, id) != 0) {
        dlclose(dso);
        return -EINVAL;
    }
    hmi->dso = dso;
    *module = hmi;
    return 0;
}
