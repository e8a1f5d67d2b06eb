#pragma once
// Kernel shim, preloaded into every process of the simulated phone. It
// answers the few kernel calls a host cannot serve for the phone's devices and
// kernel files; everything else goes straight to the kernel. Each area of the
// phone registers what it serves from a file in its own folder; a registrar
// that meets a name or request already taken ends the program at once.
#include <dlfcn.h>
#include <string>
#include <string_view>

namespace ftsim::shim {

// The next definition of @p name after the shim's own: the C library's, for
// a call the shim passes on.
template <typename F>
F next(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, name));
}

// Path an open descriptor refers to, as seen inside the phone ("" if unknown).
std::string fd_path(int fd);

// --- ioctl: a handler serves one request, or one request of any argument
// size (the _IOC size bits ignored, as for EVIOCGNAME(len)). It returns true
// when it served the call, with its result in @p result (errno set on
// failure); false passes the call to the kernel.
using IoctlHandler = bool (*)(int fd, unsigned long request, void* arg, int& result);

struct IoctlRegistrar {
    IoctlRegistrar(unsigned long request, IoctlHandler handler, bool any_size = false);
};

// --- Paths. Every way a program names a path (open and its variants, fopen,
// the stat family, access, opendir, mkdir, unlink, rename, chdir ...) passes
// absolute paths through the registered redirects first.

// A redirect computes the path to use instead of @p path and returns true,
// or returns false to leave the path alone.
using Redirect = bool (*)(std::string_view path, std::string& target);

struct PathRegistrar {
    // A kernel file or folder of the phone that the host lacks: @p prefix
    // (as "/proc/modules", or "/proc/device-tree/" for a folder and all below
    // it) is served from hw/@p hw_relative.
    PathRegistrar(const char* prefix, const char* hw_relative);
    // Anything else, decided by @p redirect; @p name only tells registrations apart.
    PathRegistrar(const char* name, Redirect redirect);
};

// Flags with which a path below @p prefix is opened instead of the caller's.
using FlagsAdjust = int (*)(int flags);
struct OpenFlagsRegistrar {
    OpenFlagsRegistrar(const char* prefix, FlagsAdjust adjust);
};

// --- mount(2) and umount2(2): the phone has no privilege to mount, so the
// areas that simulate a mountable device answer for it, with both handlers.
// A handler returns true when it served the call.
using MountHandler = bool (*)(const char* source, const char* target, const char* type, unsigned long flags,
                              const void* data, int& result);
using UmountHandler = bool (*)(const char* target, int flags, int& result);
struct MountRegistrar {
    MountRegistrar(const char* name, MountHandler mount, UmountHandler umount);
};

// --- Kernel modules. /proc/modules is hw/proc/modules (made at power-up);
// delete_module(2) removes a module's line from it, or fails with ENOENT for
// a module that is not listed. An area that owns a module may register a
// hook that runs first for a listed module: it returns 0 to let the removal
// go on, or -1 with errno to refuse it (EAGAIN for a busy module).
using ModuleHook = int (*)(const char* name, unsigned flags);
struct ModuleRegistrar {
    ModuleRegistrar(const char* module, ModuleHook hook);
};

// True while /proc/modules lists @p name.
bool module_listed(std::string_view name);

}  // namespace ftsim::shim
