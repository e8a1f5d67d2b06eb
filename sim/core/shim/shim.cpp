// The shim's registries and the calls that are not about paths: ioctl,
// mount and unmount, module removal, and the command lines handed to the
// system shell (the record that `ftsim log` shows).
#include "sim/core/shim/shim.h"

#include <asm/ioctl.h>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <limits.h>
#include <string>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

#include "sim/core/state.h"

namespace ftsim::shim {

std::string fd_path(int fd) {
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
    char target[PATH_MAX];
    const ssize_t n = readlink(link, target, sizeof target - 1);
    if (n <= 0) return {};
    return std::string(target, static_cast<std::size_t>(n));
}

namespace {

struct IoctlEntry {
    unsigned long key;
    bool any_size;
    IoctlHandler handler;
};

constexpr unsigned long kSizeBits = static_cast<unsigned long>(_IOC_SIZEMASK) << _IOC_SIZESHIFT;

std::vector<IoctlEntry>& ioctls() { return registry<IoctlEntry>(); }

struct MountEntry {
    const char* name;
    MountHandler mount;
    UmountHandler umount;
};
std::vector<MountEntry>& mounts() { return registry<MountEntry>(); }

struct ModuleEntry {
    const char* module;
    ModuleHook hook;
};
std::vector<ModuleEntry>& module_hooks() { return registry<ModuleEntry>(); }

// Every command line a phone process hands to the system shell, exactly as
// formatted: line feeds inside it are shown as \n so that one call stays one line.
void log_command(const char* command) {
    if (command == nullptr) return;
    std::string line;
    for (const char* p = command; *p; ++p) {
        if (*p == '\n') line += "\\n";
        else line += *p;
    }
    append_line("log", line);
}

constexpr const char* kModules = "proc/modules";

// The phone's module list without @p name's line; false when it has none
// (or there is no list).
bool without_module(std::string_view name, std::string& kept) {
    std::string text;
    if (!read_text(kModules, text)) return false;
    bool found = false;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        end = end == std::string::npos ? text.size() : end + 1;
        const std::string_view line(text.data() + pos, end - pos);
        pos = end;
        if (line.substr(0, line.find(' ')) == name) found = true;
        else kept += line;
    }
    return found;
}

// delete_module(2) on the phone's module list: a module that is not loaded
// is ENOENT, as the kernel says, before its owner's hook is asked; a loaded
// one's line goes once the hook agreed.
long remove_module(const char* name, unsigned flags) {
    if (name == nullptr) {
        errno = EFAULT;
        return -1;
    }
    std::string kept;
    if (!without_module(name, kept)) {
        errno = ENOENT;
        return -1;
    }
    for (const ModuleEntry& e : module_hooks())
        if (std::strcmp(e.module, name) == 0 && e.hook(name, flags) != 0) return -1;
    return write_atomic(kModules, kept) ? 0 : -1;
}

}  // namespace

bool module_listed(std::string_view name) {
    std::string kept;
    return without_module(name, kept);
}

IoctlRegistrar::IoctlRegistrar(unsigned long request, IoctlHandler handler, bool any_size) {
    const unsigned long key = any_size ? request & ~kSizeBits : request;
    for (const IoctlEntry& e : ioctls())
        if (e.key == key || (e.any_size && (key & ~kSizeBits) == e.key) || (any_size && (e.key & ~kSizeBits) == key))
            conflict("the ioctl request", std::to_string(request));
    ioctls().push_back({key, any_size, handler});
}

MountRegistrar::MountRegistrar(const char* name, MountHandler mount, UmountHandler umount) {
    for (const MountEntry& e : mounts())
        if (std::strcmp(e.name, name) == 0) conflict("the mount handler", name);
    mounts().push_back({name, mount, umount});
}

ModuleRegistrar::ModuleRegistrar(const char* module, ModuleHook hook) {
    for (const ModuleEntry& e : module_hooks())
        if (std::strcmp(e.module, module) == 0) conflict("the kernel module", module);
    module_hooks().push_back({module, hook});
}

}  // namespace ftsim::shim

using namespace ftsim::shim;

extern "C" int ioctl(int fd, unsigned long request, ...) noexcept {
    using Ioctl = int (*)(int, unsigned long, ...);
    static const auto kernel_ioctl = next<Ioctl>("ioctl");
    va_list ap;
    va_start(ap, request);
    void* arg = va_arg(ap, void*);
    va_end(ap);
    for (const IoctlEntry& e : ioctls()) {
        const unsigned long key = e.any_size ? request & ~kSizeBits : request;
        int result = 0;
        if (key == e.key && e.handler(fd, request, arg, result)) return result;
    }
    return kernel_ioctl(fd, request, arg);
}

extern "C" int mount(const char* source, const char* target, const char* type, unsigned long flags,
                     const void* data) noexcept {
    using Mount = int (*)(const char*, const char*, const char*, unsigned long, const void*);
    static const auto real = next<Mount>("mount");
    for (const MountEntry& e : mounts()) {
        int result = 0;
        if (e.mount(source, target, type, flags, data, result)) return result;
    }
    return real(source, target, type, flags, data);
}

extern "C" int umount2(const char* target, int flags) noexcept {
    using Umount2 = int (*)(const char*, int);
    static const auto real = next<Umount2>("umount2");
    for (const MountEntry& e : mounts()) {
        int result = 0;
        if (e.umount(target, flags, result)) return result;
    }
    return real(target, flags);
}

extern "C" int umount(const char* target) noexcept { return umount2(target, 0); }

// glibc has no delete_module wrapper; programs reach it through syscall().
extern "C" long syscall(long number, ...) noexcept {
    using Syscall = long (*)(long, ...);
    static const auto real = next<Syscall>("syscall");
    va_list ap;
    va_start(ap, number);
    long a[6];
    for (long& v : a) v = va_arg(ap, long);
    va_end(ap);
    if (number == SYS_delete_module) return remove_module(reinterpret_cast<const char*>(a[0]), static_cast<unsigned>(a[1]));
    return real(number, a[0], a[1], a[2], a[3], a[4], a[5]);
}

// A failure point of its own, so that a test can make the system shell
// impossible to start (a full process table, say) and reach the messages
// that only a failed start prints. A call that fails is not logged: nothing ran.
extern "C" int system(const char* command) {
    using System = int (*)(const char*);
    static const auto libc_system = next<System>("system");
    FTSIM_FAILURE_POINT();
    log_command(command);
    return libc_system(command);
}

extern "C" FILE* popen(const char* command, const char* mode) {
    using Popen = FILE* (*)(const char*, const char*);
    static const auto libc_popen = next<Popen>("popen");
    FTSIM_FAILURE_POINT_RETURNING(nullptr);
    log_command(command);
    return libc_popen(command, mode);
}
