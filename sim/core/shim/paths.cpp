// Every way a program of the phone names a path passes here: kernel files
// that a host kernel lacks go to their copies in the hardware folder, and the
// areas' own redirects (a mounted stick, say) apply. Calls inside the C
// library do not pass through each other (fopen does not call open, opendir
// does not call openat), so each entry point is caught on its own.
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"

namespace ftsim::shim {
namespace {

struct PathEntry {
    const char* name;
    const char* hw_relative;  // a fixed kernel file or folder, or null
    Redirect redirect;        // else this decides
};

std::vector<PathEntry>& paths() { return registry<PathEntry>(); }

struct FlagsEntry {
    const char* prefix;
    FlagsAdjust adjust;
};

std::vector<FlagsEntry>& flag_rules() { return registry<FlagsEntry>(); }

// "/x/" serves "/x" itself and all below it; "/x" serves paths that begin so.
bool fixed_match(std::string_view prefix, std::string_view path, std::string_view& rest) {
    if (prefix.ends_with('/') && path == prefix.substr(0, prefix.size() - 1)) {
        rest = {};
        return true;
    }
    if (!path.starts_with(prefix)) return false;
    rest = path.substr(prefix.size());
    return true;
}

// The path to use: a redirect's target, or the caller's own. @p storage
// keeps a rewritten path alive for the call.
const char* redirected(const char* path, std::string& storage) {
    if (path == nullptr || path[0] != '/') return path;
    const std::string_view p(path);
    for (const PathEntry& e : paths()) {
        if (e.hw_relative) {
            std::string_view rest;
            if (!fixed_match(e.name, p, rest)) continue;
            storage = hw_path(e.hw_relative);
            if (std::string_view(e.name).ends_with('/') && !rest.empty()) storage += '/';
            storage += rest;
            return storage.c_str();
        }
        if (e.redirect(p, storage)) return storage.c_str();
    }
    return path;
}

int adjusted_flags(const char* path, int flags) {
    if (path == nullptr) return flags;
    for (const FlagsEntry& e : flag_rules())
        if (std::string_view(path).starts_with(e.prefix)) return e.adjust(flags);
    return flags;
}

// Only O_CREAT and O_TMPFILE carry a mode.
bool takes_mode(int flags) { return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE; }

}  // namespace

PathRegistrar::PathRegistrar(const char* prefix, const char* hw_relative) {
    for (const PathEntry& e : paths())
        if (std::strcmp(e.name, prefix) == 0) conflict("the path", prefix);
    paths().push_back({prefix, hw_relative, nullptr});
}

PathRegistrar::PathRegistrar(const char* name, Redirect redirect) {
    for (const PathEntry& e : paths())
        if (std::strcmp(e.name, name) == 0) conflict("the path redirect", name);
    paths().push_back({name, nullptr, redirect});
}

OpenFlagsRegistrar::OpenFlagsRegistrar(const char* prefix, FlagsAdjust adjust) {
    for (const FlagsEntry& e : flag_rules())
        if (std::strcmp(e.prefix, prefix) == 0) conflict("the open flags of", prefix);
    flag_rules().push_back({prefix, adjust});
}

// Kernel files every phone has and a host lacks.
const PathRegistrar kDeviceTree{"/proc/device-tree/", "proc/device-tree"};
const PathRegistrar kModules{"/proc/modules", "proc/modules"};

}  // namespace ftsim::shim

using ftsim::shim::adjusted_flags;
using ftsim::shim::next;
using ftsim::shim::redirected;
using ftsim::shim::takes_mode;

// Each variadic entry point must take its own mode argument: open passes one
// only when it may create a file.
#define FTSIM_MODE_AFTER(flags)                          \
    mode_t mode = 0;                                     \
    if (takes_mode(flags)) {                             \
        va_list ap;                                      \
        va_start(ap, flags);                             \
        mode = static_cast<mode_t>(va_arg(ap, int));     \
        va_end(ap);                                      \
    }
#define FTSIM_OPEN_LIKE(name)                                                           \
    extern "C" int name(const char* path, int flags, ...) {                             \
        using Real = int (*)(const char*, int, ...);                                    \
        static const auto real = next<Real>(#name);                                     \
        FTSIM_MODE_AFTER(flags);                                                        \
        std::string storage;                                                            \
        return real(redirected(path, storage), adjusted_flags(path, flags), mode);      \
    }
FTSIM_OPEN_LIKE(open)
FTSIM_OPEN_LIKE(open64)

#define FTSIM_OPENAT_LIKE(name)                                                         \
    extern "C" int name(int dir, const char* path, int flags, ...) {                    \
        using Real = int (*)(int, const char*, int, ...);                               \
        static const auto real = next<Real>(#name);                                     \
        FTSIM_MODE_AFTER(flags);                                                        \
        std::string storage;                                                            \
        return real(dir, redirected(path, storage), adjusted_flags(path, flags), mode); \
    }
FTSIM_OPENAT_LIKE(openat)
FTSIM_OPENAT_LIKE(openat64)

// Every other entry point names one path, @p path among its @p params
// (which end in noexcept where the C library's declaration has it); @p args
// pass it on as `target`, the path to use instead.
#define FTSIM_PATH_CALL(ret, name, params, args)                                        \
    extern "C" ret name params {                                                        \
        static const auto real = next<ret(*) params>(#name);                            \
        std::string storage;                                                            \
        const char* const target = redirected(path, storage);                           \
        return real args;                                                               \
    }

// The fortified forms that programs built with _FORTIFY_SOURCE call.
#define FTSIM_OPEN_2(name) \
    FTSIM_PATH_CALL(int, name, (const char* path, int flags), (target, adjusted_flags(path, flags)))
#define FTSIM_OPENAT_2(name) \
    FTSIM_PATH_CALL(int, name, (int dir, const char* path, int flags), (dir, target, adjusted_flags(path, flags)))
FTSIM_OPEN_2(__open_2)
FTSIM_OPEN_2(__open64_2)
FTSIM_OPENAT_2(__openat_2)
FTSIM_OPENAT_2(__openat64_2)

FTSIM_PATH_CALL(FILE*, fopen, (const char* path, const char* mode), (target, mode))
FTSIM_PATH_CALL(FILE*, fopen64, (const char* path, const char* mode), (target, mode))
FTSIM_PATH_CALL(FILE*, freopen, (const char* path, const char* mode, FILE* stream), (target, mode, stream))
FTSIM_PATH_CALL(FILE*, freopen64, (const char* path, const char* mode, FILE* stream), (target, mode, stream))
FTSIM_PATH_CALL(int, creat, (const char* path, mode_t mode), (target, mode))
FTSIM_PATH_CALL(DIR*, opendir, (const char* path), (target))

FTSIM_PATH_CALL(int, stat, (const char* path, struct stat* buf) noexcept, (target, buf))
FTSIM_PATH_CALL(int, stat64, (const char* path, struct stat64* buf) noexcept, (target, buf))
FTSIM_PATH_CALL(int, lstat, (const char* path, struct stat* buf) noexcept, (target, buf))
FTSIM_PATH_CALL(int, lstat64, (const char* path, struct stat64* buf) noexcept, (target, buf))
FTSIM_PATH_CALL(int, fstatat, (int dir, const char* path, struct stat* buf, int flags) noexcept,
                (dir, target, buf, flags))
FTSIM_PATH_CALL(int, fstatat64, (int dir, const char* path, struct stat64* buf, int flags) noexcept,
                (dir, target, buf, flags))
FTSIM_PATH_CALL(int, statx, (int dir, const char* path, int flags, unsigned int mask, struct statx* buf) noexcept,
                (dir, target, flags, mask, buf))
FTSIM_PATH_CALL(int, access, (const char* path, int mode) noexcept, (target, mode))
FTSIM_PATH_CALL(int, faccessat, (int dir, const char* path, int mode, int flags) noexcept, (dir, target, mode, flags))
FTSIM_PATH_CALL(int, mkdir, (const char* path, mode_t mode) noexcept, (target, mode))
FTSIM_PATH_CALL(int, rmdir, (const char* path) noexcept, (target))
FTSIM_PATH_CALL(int, unlink, (const char* path) noexcept, (target))
FTSIM_PATH_CALL(int, unlinkat, (int dir, const char* path, int flags) noexcept, (dir, target, flags))
FTSIM_PATH_CALL(int, remove, (const char* path) noexcept, (target))
extern "C" int rename(const char* from, const char* to) noexcept {
    static const auto real = next<int (*)(const char*, const char*)>("rename");
    std::string from_storage, to_storage;
    return real(redirected(from, from_storage), redirected(to, to_storage));
}
FTSIM_PATH_CALL(int, truncate, (const char* path, off_t length) noexcept, (target, length))
FTSIM_PATH_CALL(int, chdir, (const char* path) noexcept, (target))
