// Every open of the phone passes here: opens of kernel files that a host
// kernel lacks (the device tree) go to the copies in the hardware folder, and
// input event nodes get the flags that make a FIFO behave as a device.
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>

#include "sim/common/simstate.h"
#include "sim/shim/shim.h"

namespace {

// What the phone's kernel has below /proc and the host's does not.
constexpr std::string_view kFakeProcEntries[] = {"/proc/device-tree/"};

// The path to open: the copy in the hardware folder for a faked kernel file,
// else the caller's own. @p storage keeps a rewritten path alive.
const char* redirected(const char* path, std::string& storage) {
    if (path == nullptr) return path;
    const std::string_view p(path);
    for (std::string_view entry : kFakeProcEntries) {
        if (p.starts_with(entry)) {
            storage = ftsim::hw_path(std::string(ftsim::kFakeProcDir) + std::string(p.substr(std::string_view("/proc").size())));
            return storage.c_str();
        }
    }
    return path;
}

// Only O_CREAT and O_TMPFILE carry a mode.
mode_t mode_of(int flags, va_list ap) {
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? static_cast<mode_t>(va_arg(ap, int)) : 0;
}

template <typename F>
F next(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, name));
}

using Open = int (*)(const char*, int, ...);
using OpenAt = int (*)(int, const char*, int, ...);

int open_with(Open real, const char* path, int flags, mode_t mode) {
    std::string storage;
    return real(redirected(path, storage), ftsim::shim::event_node_flags(path, flags), mode);
}

int openat_with(OpenAt real, int dir, const char* path, int flags, mode_t mode) {
    std::string storage;
    return real(dir, redirected(path, storage), ftsim::shim::event_node_flags(path, flags), mode);
}

}  // namespace

// Each variadic entry point must take its own mode argument.
extern "C" int open(const char* path, int flags, ...) {
    static const auto real = next<Open>("open");
    va_list ap;
    va_start(ap, flags);
    const mode_t mode = mode_of(flags, ap);
    va_end(ap);
    return open_with(real, path, flags, mode);
}

extern "C" int open64(const char* path, int flags, ...) {
    static const auto real = next<Open>("open64");
    va_list ap;
    va_start(ap, flags);
    const mode_t mode = mode_of(flags, ap);
    va_end(ap);
    return open_with(real, path, flags, mode);
}

extern "C" int openat(int dir, const char* path, int flags, ...) {
    static const auto real = next<OpenAt>("openat");
    va_list ap;
    va_start(ap, flags);
    const mode_t mode = mode_of(flags, ap);
    va_end(ap);
    return openat_with(real, dir, path, flags, mode);
}

extern "C" int openat64(int dir, const char* path, int flags, ...) {
    static const auto real = next<OpenAt>("openat64");
    va_list ap;
    va_start(ap, flags);
    const mode_t mode = mode_of(flags, ap);
    va_end(ap);
    return openat_with(real, dir, path, flags, mode);
}
