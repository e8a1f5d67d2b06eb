#pragma once
namespace ft {
// Runs a command line through system() after flushing standard output, so a
// station reading through a pipe sees our lines before the tool's. Returns
// system()'s result unchanged.
int run_command(const char* command_line) noexcept;
}  // namespace ft
