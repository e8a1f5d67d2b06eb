#pragma once
#include <cstdarg>
#include <cstddef>
#include <span>

namespace ft {
// Runs a command line through system() after flushing standard output, so a
// station reading through a pipe sees our lines before the tool's. Returns
// system()'s result unchanged.
int run_command(const char* command_line) noexcept;

// Formats a command line into @p buffer. False (with the buffer emptied) when
// it would not fit: a command line cut short could act on something else than
// intended, so it is never run. Values that come from outside go through
// ft::Quoted (common/quote.h) first.
[[gnu::format(printf, 2, 3)]] bool format_command(std::span<char> buffer, const char* format, ...) noexcept;
[[gnu::format(printf, 2, 0)]] bool vformat_command(std::span<char> buffer, const char* format, va_list args) noexcept;
}  // namespace ft
