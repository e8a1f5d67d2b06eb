// The USB stick as the phone's kernel serves it. mount(2) of its device node
// as vfat on a folder, and umount2(2) of that folder, are answered here (the
// phone has no privilege to mount), and while it is mounted every path below
// the mount point leads to the stick's files. A stick's faults reach the
// programs that read and write files on it through the C library's buffered
// I/O; a stick pulled out while mounted fails every later access.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "common/unique_handle.h"
#include "sim/core/shim/shim.h"
#include "sim/core/state.h"
#include "sim/peripherals/stick.h"

namespace {

namespace usb = ftsim::usb;

// Where paths below the mount point of a stick that was pulled out lead: nowhere.
constexpr std::string_view kGone = "/mnt/usbstick.pulled-out";

// A setting read again only once its file has changed (the file is replaced
// whole at each change): the paths of every program of the phone, and every
// block read or written on a stick, pass these checks: one stat each.
class Watched {
public:
    explicit Watched(const char* name) : name_(name) {}

    std::string value() {
        const int saved = errno;
        std::lock_guard lock(mutex_);
        if (path_.empty()) {
            const ftsim::Setting* s = ftsim::find_setting(name_);
            path_ = ftsim::hw_path(s ? ftsim::setting_file(*s) : std::string(name_));
        }
        // Looked at before reading: a change after the look is seen next time.
        struct stat st {};
        Key key{};
        if (::stat(path_.c_str(), &st) == 0) key = {true, st.st_ino, st.st_mtim, st.st_ctim};
        if (!known_ || !(key == key_)) {
            value_ = ftsim::get(name_);
            key_ = key;
            known_ = true;
        }
        errno = saved;
        return value_;
    }

private:
    struct Key {
        bool exists = false;
        ino_t ino = 0;
        timespec mtime{}, ctime{};
        bool operator==(const Key& o) const {
            return exists == o.exists && ino == o.ino && mtime.tv_sec == o.mtime.tv_sec &&
                   mtime.tv_nsec == o.mtime.tv_nsec && ctime.tv_sec == o.ctime.tv_sec &&
                   ctime.tv_nsec == o.ctime.tv_nsec;
        }
    };
    const char* name_;
    std::mutex mutex_;
    std::string path_;
    Key key_;
    bool known_ = false;
    std::string value_;
};

// Never destroyed: programs may still reach the files of the phone while they exit.
std::string mount_point() {
    static auto* w = new Watched("usb.mounted");
    const std::string v = w->value();
    return v == "no" ? std::string() : v;
}
// Asked at every block read or written on the stick.
bool stick_present() {
    static auto* w = new Watched("usb.stick");
    return w->value() == "present";
}
std::string stick_fault() {
    static auto* w = new Watched("usb.stick.fault");
    return w->value();
}

bool below(std::string_view path, std::string_view dir, std::string_view& rest) {
    if (dir.empty() || !path.starts_with(dir)) return false;
    rest = path.substr(dir.size());
    return rest.empty() || rest.front() == '/';
}

// --- The mount point's paths.

bool stick_paths(std::string_view path, std::string& target) {
    // The phone's own state and the kernel's files are never on a stick, and
    // looking the mount up reads below /sim.
    if (path == "/sim" || path.starts_with("/sim/") || path.starts_with("/proc/")) return false;
    const std::string point = mount_point();
    std::string_view rest;
    if (!below(path, point, rest)) return false;
    target = std::string(stick_present() ? usb::kStickDir : kGone);
    target += rest;
    return true;
}
const ftsim::shim::PathRegistrar kStickPaths{"usb stick mount point", stick_paths};

// --- mount(2) and umount2(2).

// The folder @p target names, without links, as the kernel resolves a mount point.
bool resolve_folder(const char* target, std::string& out) {
    if (target == nullptr) {
        errno = EFAULT;
        return false;
    }
    char resolved[PATH_MAX];
    if (realpath(target, resolved) == nullptr) return false;
    struct stat st {};
    if (::stat(resolved, &st) != 0) return false;
    if (!S_ISDIR(st.st_mode)) {
        errno = ENOTDIR;
        return false;
    }
    out = resolved;
    return true;
}

// The flags as /proc/mounts names them.
std::string mount_options(unsigned long flags, const void* data) {
    struct Name {
        unsigned long flag;
        const char* name;
    };
    static constexpr Name kNames[] = {{MS_NOSUID, "nosuid"},         {MS_NODEV, "nodev"},     {MS_NOEXEC, "noexec"},
                                      {MS_SYNCHRONOUS, "sync"},      {MS_DIRSYNC, "dirsync"}, {MS_NOATIME, "noatime"},
                                      {MS_NODIRATIME, "nodiratime"}, {MS_RELATIME, "relatime"}};
    std::string text = (flags & MS_RDONLY) ? "ro" : "rw";
    unsigned long rest = flags & ~static_cast<unsigned long>(MS_RDONLY);
    for (const Name& n : kNames) {
        if ((rest & n.flag) == 0) continue;
        text += std::string(",") + n.name;
        rest &= ~n.flag;
    }
    if (rest != 0) {
        char hex[32];
        std::snprintf(hex, sizeof hex, ",flags=0x%lx", rest);
        text += hex;
    }
    if (data != nullptr && *static_cast<const char*>(data) != '\0') text += std::string(",") + static_cast<const char*>(data);
    return text;
}

bool stick_mount(const char* source, const char* target, const char* type, unsigned long flags, const void* data,
                 int& result) {
    // Any device node is the kernel's to refuse; other sources are not devices.
    if (source == nullptr || !std::string_view(source).starts_with("/dev/")) return false;
    const int saved = errno;
    const auto refuse = [&result](int error) {
        errno = error;
        result = -1;
        return true;
    };
    // The kernel looks the mount point up before the device.
    std::string point;
    if (!resolve_folder(target, point)) return refuse(errno);
    if (ftsim::get("usb.stick") != "present" || source != usb::node_path(ftsim::get("usb.stick.device")))
        return refuse(ENXIO);
    if (type == nullptr || std::strcmp(type, "vfat") != 0) return refuse(EINVAL);
    if (!mount_point().empty()) return refuse(EBUSY);
    if (!ftsim::set_observed("usb.mount.options", mount_options(flags, data)) ||
        !ftsim::set_observed("usb.mounted", point))
        return refuse(EIO);
    errno = saved;
    result = 0;
    return true;
}

// Whether this process has its working directory or an open file on the
// stick, which keeps a mount from going without MNT_DETACH.
bool holds_stick() {
    std::string_view rest;
    char cwd[PATH_MAX];
    if (getcwd(cwd, sizeof cwd) != nullptr && below(cwd, usb::kStickDir, rest)) return true;
    const ft::UniqueDir fds(opendir("/proc/self/fd"));
    if (!fds.valid()) return false;
    bool held = false;
    while (const dirent* e = readdir(fds.get())) {
        if (e->d_name[0] < '0' || e->d_name[0] > '9') continue;
        if (below(ftsim::shim::fd_path(std::atoi(e->d_name)), usb::kStickDir, rest)) held = true;
    }
    return held;
}

bool stick_umount(const char* target, int flags, int& result) {
    const int saved = errno;
    const std::string point = mount_point();
    char resolved[PATH_MAX];
    if (target == nullptr || point.empty() || realpath(target, resolved) == nullptr || point != resolved) {
        errno = saved;
        return false;
    }
    if ((flags & MNT_DETACH) == 0 && holds_stick()) {
        errno = EBUSY;
        result = -1;
        return true;
    }
    ftsim::clear_observed("usb.mounted");
    ftsim::clear_observed("usb.mount.options");
    errno = saved;
    result = 0;
    return true;
}

const ftsim::shim::MountRegistrar kStickMount{"usb stick", stick_mount, stick_umount};

// --- Reads and writes of files on the stick.

// Streams already looked at, so that a stream's path is asked once, not at
// every block; a stream leaves the list when it is closed.
struct Stream {
    FILE* file;
    int fd;
    bool on_stick;
};
std::mutex g_streams_mutex;
std::vector<Stream>& streams() {
    static auto* list = new std::vector<Stream>;
    return *list;
}

bool on_stick(FILE* file) {
    if (file == nullptr) return false;
    const int saved = errno;
    const int fd = fileno(file);
    std::lock_guard lock(g_streams_mutex);
    for (const Stream& s : streams()) {
        if (s.file == file && s.fd == fd) {
            errno = saved;
            return s.on_stick;
        }
    }
    std::string_view rest;
    const bool stick = fd >= 0 && below(ftsim::shim::fd_path(fd), usb::kStickDir, rest);
    streams().push_back({file, fd, stick});
    errno = saved;
    return stick;
}

void forget(FILE* file) {
    std::lock_guard lock(g_streams_mutex);
    std::erase_if(streams(), [file](const Stream& s) { return s.file == file; });
}

// A stalled stick holds each write until the fault is cleared or the stick
// is pulled out. Signal handlers run meanwhile, as during a slow write.
void wait_while_stalled() {
    const int saved = errno;
    while (stick_present() && stick_fault() == "stall") {
        const timespec step{0, 50 * 1000 * 1000};
        nanosleep(&step, nullptr);
    }
    errno = saved;
}

}  // namespace

using ftsim::shim::next;

extern "C" size_t fwrite(const void* data, size_t size, size_t count, FILE* file) {
    static const auto real = next<size_t (*)(const void*, size_t, size_t, FILE*)>("fwrite");
    if (on_stick(file)) {
        wait_while_stalled();
        if (!stick_present()) {
            errno = EIO;
            return 0;
        }
    }
    return real(data, size, count, file);
}

extern "C" size_t fread(void* data, size_t size, size_t count, FILE* file) {
    static const auto real = next<size_t (*)(void*, size_t, size_t, FILE*)>("fread");
    if (!on_stick(file)) return real(data, size, count, file);
    const std::string fault = stick_fault();
    if (!stick_present() || fault == "ioerror") {
        errno = EIO;
        return 0;
    }
    const size_t got = real(data, size, count, file);
    // One bit of what came back differs from what is on the stick.
    if (got > 0 && size > 0 && fault == "mismatch") static_cast<unsigned char*>(data)[0] ^= 0x01;
    return got;
}

extern "C" int fclose(FILE* file) {
    static const auto real = next<int (*)(FILE*)>("fclose");
    forget(file);
    return real(file);
}
