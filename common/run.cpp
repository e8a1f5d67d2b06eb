#include "common/run.h"

#include <cstdio>
#include <cstdlib>

namespace ft {
int run_command(const char* command_line) noexcept {
    std::fflush(stdout);
    std::fflush(stderr);
    return std::system(command_line);
}
}  // namespace ft
