// What a process of the phone may not do even with the host's terminal in
// reach: push input into it. Installed before bubblewrap starts (so every
// process of the phone inherits it) and in every process that joins a running
// phone.
// Linked into ftsim and its join helper alike, as is the wait for the
// phone's command that both end with.
#include "sim/core/ftsim/confine.h"

#include <cerrno>
#include <cstddef>
#include <linux/audit.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ftsim {

namespace {
#if defined(__x86_64__)
constexpr unsigned kArch = AUDIT_ARCH_X86_64;
constexpr unsigned kForeignSyscalls = 0x40000000;  // the x32 ABI's numbers
#elif defined(__aarch64__)
constexpr unsigned kArch = AUDIT_ARCH_AARCH64;
constexpr unsigned kForeignSyscalls = 0xffffffff;
#else
#error "the simulated phone's terminal filter knows x86_64 and aarch64 hosts"
#endif
}  // namespace

bool forbid_terminal_injection() {
    // TIOCSTI types a character into the terminal's input queue; TIOCLINUX
    // can paste a console selection into it. The ioctl command is an int to
    // the kernel, so only the low 32 bits of the argument are compared.
    // Calls through another ABI (32-bit) are refused outright: nothing of
    // the phone uses them, and they would pass the filter unseen.
    sock_filter program[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kArch, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, kForeignSyscalls, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_ioctl, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[1])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, TIOCSTI, 2, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, TIOCLINUX, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
    };
    static_assert(offsetof(seccomp_data, args[1]) % 8 == 0);
    sock_fprog prog{static_cast<unsigned short>(sizeof program / sizeof program[0]), program};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
    return syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0, &prog) == 0;
}

bool drop_capabilities() {
    for (int cap = 0; cap <= 63; ++cap)
        if (prctl(PR_CAPBSET_DROP, cap, 0, 0, 0) != 0 && errno != EINVAL) return false;
    prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2] = {};
    return syscall(SYS_capset, &header, data) == 0;
}

int wait_status(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return 1;
    }
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return 1;
}

}  // namespace ftsim
