// Powers the phone up as a bubblewrap container: a tmpfs root with the host's
// /usr and only the few files of /etc that the phone's programs need, all
// read-only; the phone's persistent places bound from the state folder; its
// own user, PID, IPC, UTS and network namespaces; no capabilities, no new user
// namespaces and no way to type into the operator's terminal.
//
// While it runs, STATE/power (outside anything the phone can see) names the
// phone's first process, so that `ftsim exec` can join it as `adb shell`
// joins a device.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/close_range.h>
#include <sched.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "sim/core/ftsim/confine.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {

// --- Binds from the state folder.

bool PowerUp::bind(const Folder& base, std::string_view relative, const std::string& dest, Type type,
                   bool read_only, std::string& error) {
    const std::string where = std::string(relative);
    if (type == Type::Dir && !base.make_dirs(relative)) {
        error = explain("cannot make the folder " + where + " in " + phone_.state);
        return false;
    }
    // O_PATH: nothing is read or written here, and a FIFO does not block.
    ft::UniqueFd fd = base.open_at(relative, O_PATH, type);
    if (!fd.valid()) {
        error = where + " in " + phone_.state + " is not a real " + (type == Type::Dir ? "folder" : "file") +
                " of the phone (" + std::strerror(errno) + "); 'ftsim reset' makes a fresh phone";
        return false;
    }
    args_.insert(args_.end(), {read_only ? "--ro-bind-fd" : "--bind-fd", std::to_string(fd.get()), dest});
    fds_.push_back(std::move(fd));
    return true;
}

bool PowerUp::bind_hw(std::string_view relative, const std::string& dest, Type type, std::string& error,
                      bool read_only) {
    return bind(phone_.folder().subfolder("hw"), relative, dest, type, read_only, error);
}

bool PowerUp::bind_state(std::string_view relative, const std::string& dest, Type type, std::string& error,
                         bool read_only) {
    return bind(phone_.folder(), relative, dest, type, read_only, error);
}

namespace {

bool exists(const std::string& p) {
    struct stat st{};
    return stat(p.c_str(), &st) == 0;
}

// What the phone's programs read of the host's /etc: the loader's cache,
// name-service and time-zone files, readline's and openssl's defaults, and
// the links of the alternatives system that /usr/bin points into. The phone's
// own users come from the build tree. No secret of the host is among them.
constexpr const char* kHostEtc[] = {
    "ld.so.cache", "ld.so.conf",  "ld.so.conf.d", "nsswitch.conf", "host.conf",     "hosts",
    "services",    "protocols",   "localtime",    "timezone",      "inputrc",       "alternatives",
    "ssl/openssl.cnf", "bash.bashrc", "os-release", "debian_version", "mime.types",
};

// The environment of every process of the phone.
std::vector<std::string> phone_environment() {
    const char* term = std::getenv("TERM");
    std::vector<std::string> env{"PATH=/system/bin:/usr/sbin:/usr/bin:/sbin:/bin", "HOME=/data",
                                 std::string("TERM=") + (term ? term : "dumb"), "LD_LIBRARY_PATH=/system/lib",
                                 "LD_PRELOAD=/system/lib/libftsim_shim.so"};
    // The caller's sanitizer options reach the phone's processes. In an
    // AddressSanitizer build the shim is preloaded ahead of the sanitizer's
    // runtime, which that runtime refuses unless told it is expected.
    const char* asan_given = std::getenv("ASAN_OPTIONS");
    std::string asan = asan_given ? asan_given : "";
#ifdef __SANITIZE_ADDRESS__
    asan += std::string(asan.empty() ? "" : ":") + "verify_asan_link_order=0";
#endif
    if (!asan.empty()) env.push_back("ASAN_OPTIONS=" + asan);
    for (const char* name : {"UBSAN_OPTIONS", "TSAN_OPTIONS"})
        if (const char* value = std::getenv(name)) env.push_back(std::string(name) + "=" + value);
    return env;
}

std::vector<char*> pointers(std::vector<std::string>& v) {
    std::vector<char*> p;
    for (std::string& s : v) p.push_back(s.data());
    p.push_back(nullptr);
    return p;
}

// Start time of a process in clock ticks since boot (field 22 of its stat
// line), to tell it from a later process that got the same number.
unsigned long long start_time(pid_t pid) {
    std::string stat;
    ft::UniqueFd fd(open(("/proc/" + std::to_string(pid) + "/stat").c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd.valid()) return 0;
    char buf[1024];
    const ssize_t n = read(fd.get(), buf, sizeof buf - 1);
    if (n <= 0) return 0;
    stat.assign(buf, static_cast<std::size_t>(n));
    // The command name may hold blanks and parentheses: fields count from its end.
    const std::size_t close = stat.rfind(')');
    if (close == std::string::npos) return 0;
    unsigned long long value = 0;
    std::size_t pos = close + 2;
    for (int field = 3; field <= 22 && pos < stat.size(); ++field) {
        const std::size_t end = stat.find(' ', pos);
        if (field == 22) value = std::strtoull(stat.substr(pos, end - pos).c_str(), nullptr, 10);
        pos = end == std::string::npos ? stat.size() : end + 1;
    }
    return value;
}

// Reads the "child-pid" that bubblewrap reports: the phone's first process.
pid_t read_child_pid(int fd) {
    std::string info;
    char buf[512];
    for (;;) {
        const ssize_t n = read(fd, buf, sizeof buf);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        info.append(buf, static_cast<std::size_t>(n));
    }
    const std::size_t key = info.find("\"child-pid\"");
    if (key == std::string::npos) return -1;
    const std::size_t colon = info.find(':', key);
    return colon == std::string::npos ? -1 : static_cast<pid_t>(std::atol(info.c_str() + colon + 1));
}

// The phone owns the terminal while it runs: Ctrl-C is the phone's to handle.
class TerminalSignalsToPhone {
public:
    TerminalSignalsToPhone() {
        struct sigaction ignore{};
        ignore.sa_handler = SIG_IGN;
        sigaction(SIGINT, &ignore, &old_int_);
        sigaction(SIGQUIT, &ignore, &old_quit_);
    }
    ~TerminalSignalsToPhone() {
        sigaction(SIGINT, &old_int_, nullptr);
        sigaction(SIGQUIT, &old_quit_, nullptr);
    }

private:
    struct sigaction old_int_{}, old_quit_{};
};

}  // namespace

ft::UniqueFd power_lock(const Phone& phone, bool& held_elsewhere) {
    held_elsewhere = false;
    ft::UniqueFd fd = phone.folder().open_at(kPowerLock, O_RDWR | O_CREAT, Type::File);
    if (!fd.valid()) return fd;
    if (flock(fd.get(), LOCK_EX | LOCK_NB) != 0) {
        held_elsewhere = errno == EWOULDBLOCK;
        return {};
    }
    return fd;
}

bool powered_up(const Phone& phone) {
    bool running = false;
    power_lock(phone, running);
    return running;
}

int run_in_phone(const Phone& phone, const std::vector<std::string>& command, bool interactive) {
    if (!exists("/usr/bin/bwrap"))
        return fail("bubblewrap is not installed; run scripts/setup.sh (or apt-get install bubblewrap)", 1);
    if (!exists(phone.system + "/bin/ft"))
        return fail("no phone image at " + phone.system + "; build the project first (scripts/setup.sh)", 1);
    bool running = false;
    ft::UniqueFd lock = power_lock(phone, running);
    if (running)
        return fail("the phone at " + phone.state +
                        " is powered up already; 'ftsim exec -- CMD' runs a command inside it",
                    1);
    if (!lock.valid()) return fail("cannot lock " + phone.state + "/" + kPowerLock + ": " + std::strerror(errno), 1);

    const Folder hw = phone.folder().subfolder("hw");
    if (!hw.valid()) return fail(phone.hw() + " is not a folder of a phone; 'ftsim reset' makes a fresh one", 1);
    // What a write cut short by a power cut left behind.
    hw.remove_stale_temporaries();

    PowerUp up(phone);
    up.add({"bwrap", "--die-with-parent", "--unshare-pid", "--unshare-net", "--unshare-ipc", "--unshare-uts",
            "--unshare-cgroup-try", "--hostname", "phone", "--cap-drop", "ALL"});
    // A user namespace of its own even when started by root: whatever the
    // phone's root does, its capabilities never reach the host's kernel,
    // mounts or devices; and none can be made inside it.
    up.add({"--unshare-user", "--uid", "0", "--gid", "0", "--disable-userns"});
    if (!interactive) up.add({"--new-session"});
    up.add({"--tmpfs", "/", "--ro-bind", "/usr", "/usr", "--symlink", "usr/bin", "/bin", "--symlink", "usr/sbin",
            "/sbin", "--symlink", "usr/lib", "/lib"});
    if (exists("/usr/lib64")) up.add({"--symlink", "usr/lib64", "/lib64"});
    for (const char* name : kHostEtc) up.add({"--ro-bind-try", std::string("/etc/") + name, std::string("/etc/") + name});
    up.add({"--ro-bind", phone.system + "/etc/passwd", "/etc/passwd", "--ro-bind", phone.system + "/etc/group",
            "/etc/group", "--symlink", "../proc/self/mounts", "/etc/mtab"});
    // The phone's own procfs, so that every process finds itself in it, and
    // read-only: the phone's root is the host's root user inside a user
    // namespace, and kernel settings under /proc/sys check only that user.
    up.add({"--dev", "/dev", "--proc", "/proc", "--remount-ro", "/proc"});
    up.add({"--tmpfs", "/tmp", "--ro-bind", phone.system, "/system"});
    up.add({"--ro-bind-try", phone.system + "/../vendor", "/vendor"});
    std::string error;
    if (!up.bind_state("hw", "/sim", Type::Dir, error)) return fail("cannot power the phone up: " + error, 1);
    for (const char* place : kPersistent) {
        if (!up.bind_state(std::string("persist/") + place, std::string("/") + place, Type::Dir, error))
            return fail("cannot power the phone up: " + error, 1);
    }

    clear_observed_at_power_up();
    for (const Module& m : modules())
        if (m.power_up && !m.power_up(phone, up, error)) return fail("cannot power the phone up: " + error, 1);

    if (!hw.make_dirs("run") || !hw.write_atomic("run/services", up.services()))
        return fail("cannot write the phone's services: " + std::string(std::strerror(errno)), 1);

    up.add({"--clearenv"});
    for (const std::string& kv : phone_environment()) {
        const std::size_t eq = kv.find('=');
        up.add({"--setenv", kv.substr(0, eq), kv.substr(eq + 1)});
    }
    int info[2];
    if (pipe2(info, O_CLOEXEC) != 0) return fail(std::string("pipe: ") + std::strerror(errno), 1);
    ft::UniqueFd info_read(info[0]), info_write(info[1]);
    up.add({"--info-fd", std::to_string(info_write.get()), "--chdir", "/"});
    std::vector<std::string> a = up.args();
    a.push_back("/system/bin/phone-init");
    a.insert(a.end(), command.begin(), command.end());
    std::vector<char*> argv = pointers(a);

    std::fflush(stdout);
    const pid_t child = fork();
    if (child < 0) return fail(std::string("fork: ") + std::strerror(errno), 1);
    if (child == 0) {
        // Only the descriptors named on bubblewrap's command line cross over
        // (it closes the bind sources once they are mounted): nothing the
        // caller had open reaches the phone but its standard streams.
        close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
        for (const ft::UniqueFd& fd : up.descriptors()) fcntl(fd.get(), F_SETFD, 0);
        fcntl(info_write.get(), F_SETFD, 0);
        if (!forbid_terminal_injection()) {
            std::fprintf(stderr, "ftsim: cannot confine the phone: %s\n", std::strerror(errno));
            _exit(127);
        }
        // bubblewrap's own processes share the terminal with the phone: a
        // Ctrl+C that is the phone's to handle must not end them, and the
        // phone with them. phone-init gives the phone's command the default
        // actions back.
        signal(SIGINT, SIG_IGN);
        signal(SIGQUIT, SIG_IGN);
        execv("/usr/bin/bwrap", argv.data());
        std::fprintf(stderr, "ftsim: cannot run bwrap: %s\n", std::strerror(errno));
        _exit(127);
    }
    TerminalSignalsToPhone signals;
    info_write.reset();
    const pid_t first = read_child_pid(info_read.get());
    if (first > 0)
        phone.folder().write_atomic(kPowerRecord,
                                    std::to_string(first) + " " + std::to_string(start_time(first)) + "\n");
    const int status = wait_status(child);
    phone.folder().remove(kPowerRecord);

    // The phone's reboot ends the power-on session like a power cycle.
    if (hw.exists("power-cycled", Type::File)) {
        hw.remove("power-cycled");
        std::fprintf(stderr, "ftsim: the phone rebooted; run 'ftsim shell' to power it up again\n");
        return 0;
    }
    return status;
}

int run_in_running_phone(const Phone& phone, const std::vector<std::string>& command) {
    if (!powered_up(phone)) return -1;
    // STATE/power is ftsim's own record, out of the phone's reach; the start
    // time proves the process is still the one it names.
    std::string text;
    if (!phone.folder().read_text(kPowerRecord, text)) return fail("the phone is powering up or down; try again", 1);
    long pid = 0;
    unsigned long long started = 0;
    if (std::sscanf(text.c_str(), "%ld %llu", &pid, &started) != 2 || pid <= 1)
        return fail("the record of the running phone is unreadable; power it down and up again", 1);
    ft::UniqueFd pidfd(static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(pid), 0)));
    if (!pidfd.valid() || start_time(static_cast<pid_t>(pid)) != started)
        return fail("the phone is powering up or down; try again", 1);

    // The joining is done by a helper of its own: a sanitizer's runtime may
    // run a thread of its own in any child of ftsim, and a process with more
    // than one thread cannot join a user namespace.
    // The phone's environment goes as arguments: the helper itself runs on
    // the host, where the phone's preloaded shim does not exist.
    std::vector<std::string> env;
    std::vector<std::string> args{phone.tools + "/ftsim-join", std::to_string(pidfd.get())};
    for (const std::string& kv : phone_environment()) args.push_back(kv);
    args.push_back("--");
    args.insert(args.end(), command.begin(), command.end());
    std::vector<char*> envp = pointers(env), argv = pointers(args);
    std::fflush(stdout);
    const pid_t child = fork();
    if (child < 0) return fail(std::string("fork: ") + std::strerror(errno), 1);
    if (child == 0) {
        close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
        fcntl(pidfd.get(), F_SETFD, 0);
        execve(argv[0], argv.data(), envp.data());
        std::fprintf(stderr, "ftsim: cannot run %s: %s\n", argv[0], std::strerror(errno));
        _exit(127);
    }
    TerminalSignalsToPhone signals;
    return wait_status(child);
}

}  // namespace ftsim
