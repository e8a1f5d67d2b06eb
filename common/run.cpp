#include "common/run.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace ft {
int run_command(const char* command_line) noexcept {
    std::fflush(stdout);
    std::fflush(stderr);
    return std::system(command_line);
}

bool format_command(std::span<char> buffer, const char* format, ...) noexcept {
    va_list args;
    va_start(args, format);
    const bool ok = vformat_command(buffer, format, args);
    va_end(args);
    return ok;
}

bool vformat_command(std::span<char> buffer, const char* format, va_list args) noexcept {
    if (buffer.empty()) return false;
    const int written = std::vsnprintf(buffer.data(), buffer.size(), format, args);
    if (written < 0 || static_cast<std::size_t>(written) >= buffer.size()) {
        buffer[0] = '\0';
        return false;
    }
    return true;
}
}  // namespace ft
