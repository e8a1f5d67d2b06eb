// Powers the phone up as a bubblewrap container: a tmpfs root with the host's
// /usr and /etc read-only and nothing else of the host, the phone's
// persistent places bound from the state folder, its own PID, IPC, UTS and
// network namespaces, and no capabilities.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "sim/common/simstate.h"
#include "sim/ftsim/ftsim.h"

namespace ftsim {
namespace {

bool exists(const std::string& p) {
    struct stat st{};
    return stat(p.c_str(), &st) == 0;
}

void add(std::vector<std::string>& v, std::initializer_list<std::string> items) {
    v.insert(v.end(), items.begin(), items.end());
}

}  // namespace

int run_in_phone(const Phone& phone, const std::vector<std::string>& command, bool interactive) {
    if (!exists("/usr/bin/bwrap"))
        return fail("bubblewrap is not installed; run scripts/setup.sh (or apt-get install bubblewrap)", 1);
    if (!exists(phone.system + "/bin/ft"))
        return fail("no phone image at " + phone.system + "; build the project first (scripts/setup.sh)", 1);

    std::vector<std::string> a{"bwrap", "--die-with-parent", "--unshare-pid", "--unshare-net", "--unshare-ipc",
                               "--unshare-uts", "--unshare-cgroup-try", "--hostname", "phone", "--cap-drop", "ALL"};
    // A user namespace of its own even when started by root: whatever the phone's
    // root does, its capabilities never reach the host's kernel, mounts or devices.
    add(a, {"--unshare-user", "--uid", "0", "--gid", "0"});
    if (!interactive) a.push_back("--new-session");
    add(a, {"--tmpfs", "/", "--ro-bind", "/usr", "/usr", "--ro-bind", "/etc", "/etc", "--symlink", "usr/bin", "/bin",
            "--symlink", "usr/sbin", "/sbin", "--symlink", "usr/lib", "/lib"});
    if (exists("/usr/lib64")) add(a, {"--symlink", "usr/lib64", "/lib64"});
    // The phone's own procfs, so that every process finds itself in it, and
    // read-only: the phone's root is the host's root user inside a user
    // namespace, and kernel settings under /proc/sys check only that user.
    add(a, {"--dev", "/dev", "--proc", "/proc", "--remount-ro", "/proc"});
    add(a, {"--tmpfs", "/tmp", "--ro-bind", phone.system, "/system", "--bind", phone.hw(), "/sim"});
    for (const char* place : {"reserved", "data", "cache", "sdcard"})
        add(a, {"--bind", phone.persist(place), std::string("/") + place});

    for (const Module& m : modules()) {
        std::string error;
        if (m.power_up && !m.power_up(phone, a, error)) return fail("cannot power the phone up: " + error, 1);
    }

    const char* term = std::getenv("TERM");
    add(a, {"--clearenv", "--setenv", "PATH", "/system/bin:/usr/sbin:/usr/bin:/sbin:/bin", "--setenv", "HOME", "/data",
            "--setenv", "TERM", term ? term : "dumb", "--setenv", "LD_LIBRARY_PATH", "/system/lib", "--setenv",
            "LD_PRELOAD", "/system/lib/libftsim_shim.so", "--chdir", "/"});
    // The caller's sanitizer options reach the phone's processes. In an
    // AddressSanitizer build the shim is preloaded ahead of the sanitizer's
    // runtime, which that runtime refuses unless told it is expected.
    const char* asan_given = std::getenv("ASAN_OPTIONS");
    std::string asan = asan_given ? asan_given : "";
#ifdef __SANITIZE_ADDRESS__
    asan += std::string(asan.empty() ? "" : ":") + "verify_asan_link_order=0";
#endif
    if (!asan.empty()) add(a, {"--setenv", "ASAN_OPTIONS", asan});
    for (const char* name : {"UBSAN_OPTIONS", "TSAN_OPTIONS"})
        if (const char* value = std::getenv(name)) add(a, {"--setenv", name, value});
    a.insert(a.end(), command.begin(), command.end());

    std::vector<char*> argv;
    for (std::string& s : a) argv.push_back(s.data());
    argv.push_back(nullptr);

    std::fflush(stdout);
    const pid_t child = fork();
    if (child < 0) return fail(std::string("fork: ") + std::strerror(errno), 1);
    if (child == 0) {
        execv("/usr/bin/bwrap", argv.data());
        std::fprintf(stderr, "ftsim: cannot run bwrap: %s\n", std::strerror(errno));
        _exit(127);
    }
    // The phone owns the terminal while it runs: Ctrl-C is the phone's to handle.
    struct sigaction ignore{}, old_int{}, old_quit{};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGINT, &ignore, &old_int);
    sigaction(SIGQUIT, &ignore, &old_quit);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    sigaction(SIGINT, &old_int, nullptr);
    sigaction(SIGQUIT, &old_quit, nullptr);

    // The phone's reboot ends the power-on session like a power cycle.
    const std::string marker = phone.hw() + "/power-cycled";
    if (exists(marker)) {
        unlink(marker.c_str());
        std::fprintf(stderr, "ftsim: the phone rebooted; run 'ftsim shell' to power it up again\n");
        return 0;
    }
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return 1;
}

}  // namespace ftsim
