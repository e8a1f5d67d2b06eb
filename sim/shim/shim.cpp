#include "sim/shim/shim.h"

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <limits.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "sim/common/simstate.h"

namespace ftsim::shim {
namespace {

// Filled by static registrars before main; read-only afterwards.
constexpr std::size_t kMaxHandlers = 16;
std::array<IoctlHandler, kMaxHandlers> g_handlers{};
std::size_t g_handler_count = 0;

template <typename F>
F next_symbol(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, name));
}

// Every command line a phone process hands to the system shell, exactly as
// formatted: the record that `ftsim log` shows.
void log_command(const char* command) {
    if (command == nullptr) return;
    std::string line;
    for (const char* p = command; *p; ++p) {
        if (*p == '\n') line += "\\n";
        else line += *p;
    }
    append_line(hw_path("log"), line);
}

}  // namespace

std::string fd_path(int fd) {
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    char target[PATH_MAX];
    const ssize_t n = readlink(link, target, sizeof target - 1);
    if (n <= 0) return {};
    return std::string(target, static_cast<std::size_t>(n));
}

IoctlRegistrar::IoctlRegistrar(IoctlHandler handler) {
    if (g_handler_count < kMaxHandlers) g_handlers[g_handler_count++] = handler;
}

int real_ioctl(int fd, unsigned long request, void* arg) {
    using Ioctl = int (*)(int, unsigned long, ...);
    static const auto kernel_ioctl = next_symbol<Ioctl>("ioctl");
    return kernel_ioctl(fd, request, arg);
}

}  // namespace ftsim::shim

using namespace ftsim::shim;

extern "C" int ioctl(int fd, unsigned long request, ...) {
    va_list ap;
    va_start(ap, request);
    void* arg = va_arg(ap, void*);
    va_end(ap);
    for (std::size_t i = 0; i < g_handler_count; ++i) {
        int result = 0;
        if (g_handlers[i](fd, request, arg, result)) return result;
    }
    return real_ioctl(fd, request, arg);
}

extern "C" int system(const char* command) {
    using System = int (*)(const char*);
    static const auto libc_system = next_symbol<System>("system");
    log_command(command);
    return libc_system(command);
}

extern "C" FILE* popen(const char* command, const char* mode) {
    using Popen = FILE* (*)(const char*, const char*);
    static const auto libc_popen = next_symbol<Popen>("popen");
    log_command(command);
    return libc_popen(command, mode);
}
