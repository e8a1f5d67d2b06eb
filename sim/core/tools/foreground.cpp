// foreground CMD [ARGS]: runs CMD as the terminal's foreground job, in a
// process group of its own, so that the keys that send signals (Ctrl+C,
// Ctrl+\, Ctrl+Z) reach the phone's programs only, and never the container
// around them, which would end the whole phone. Without a terminal it just
// runs CMD. Signal dispositions reach CMD as this program got them.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: foreground CMD [ARGS]\n");
        return 2;
    }
    if (isatty(STDIN_FILENO) && setpgid(0, 0) == 0) {
        // Taking the terminal from the group we just left raises SIGTTOU.
        struct sigaction ignore {}, old {};
        ignore.sa_handler = SIG_IGN;
        sigaction(SIGTTOU, &ignore, &old);
        tcsetpgrp(STDIN_FILENO, getpgrp());
        sigaction(SIGTTOU, &old, nullptr);
    }
    execvp(argv[1], argv + 1);
    std::fprintf(stderr, "foreground: cannot run %s: %s\n", argv[1], std::strerror(errno));
    return 127;
}
