// ftsim-join PIDFD [NAME=VALUE...] -- CMD [ARGS]: runs CMD inside the running
// phone whose first process PIDFD names, in all its namespaces, with the
// given environment, no capabilities and the phone's terminal filter, as
// every process of the phone runs. Started by `ftsim exec`; its status is CMD's.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sched.h>
#include <unistd.h>
#include <vector>

#include "sim/core/ftsim/confine.h"

int main(int argc, char** argv) {
    int dashes = 2;
    while (dashes < argc && std::strcmp(argv[dashes], "--") != 0) ++dashes;
    if (dashes + 1 >= argc) {
        std::fprintf(stderr, "usage: ftsim-join PIDFD [NAME=VALUE...] -- CMD [ARGS] (run by 'ftsim exec')\n");
        return 2;
    }
    const int pidfd = std::atoi(argv[1]);
    std::vector<char*> env(argv + 2, argv + dashes);
    env.push_back(nullptr);
    char** command = argv + dashes + 1;
    if (setns(pidfd, CLONE_NEWUSER | CLONE_NEWNS | CLONE_NEWPID | CLONE_NEWNET | CLONE_NEWIPC | CLONE_NEWUTS) != 0) {
        std::fprintf(stderr, "ftsim: cannot join the running phone: %s\n", std::strerror(errno));
        return 127;
    }
    close(pidfd);
    // The process namespace applies to children only.
    const pid_t inside = fork();
    if (inside < 0) {
        std::fprintf(stderr, "ftsim: fork: %s\n", std::strerror(errno));
        return 127;
    }
    if (inside == 0) {
        if (chdir("/") != 0 || !ftsim::drop_capabilities() || !ftsim::forbid_terminal_injection()) {
            std::fprintf(stderr, "ftsim: cannot confine the command: %s\n", std::strerror(errno));
            _exit(127);
        }
        environ = env.data();  // execvp looks the command up on the phone's PATH
        execvp(command[0], command);
        std::fprintf(stderr, "ftsim: cannot run %s in the phone: %s\n", command[0], std::strerror(errno));
        _exit(127);
    }
    // Ctrl-C at the terminal is the command's to handle, not ours.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGQUIT, SIG_IGN);
    return ftsim::wait_status(inside);
}
