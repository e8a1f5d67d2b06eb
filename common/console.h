#pragma once
// Standard output, shared by the shell's thread and every thread that reports
// in the background (the input monitors, the Bluetooth stack's callbacks, the
// tone player). Stations match lines by how they begin, so a background report
// always starts a line of its own: never on the prompt's line, never in the
// middle of a line the shell is printing, never mixed with another report.
#include <cstddef>
#include <string_view>

namespace ft {

// For every thread but the shell's: prints one or more whole lines (the text
// ends in a line feed). When the line on the screen is open (the prompt, a
// half-typed command, a half-printed line), a line feed ends it first, unless
// the text begins with one of its own. While the shell waits at a terminal,
// the text is shown above a redrawn prompt. Never drops a report; may wait
// while the shell is busy showing earlier ones.
[[gnu::format(printf, 1, 2)]] void async_printf(const char* format, ...) noexcept;
void async_print(std::string_view text) noexcept;

// Longest text one call prints; longer texts are cut there (and still end the line).
inline constexpr std::size_t kAsyncTextMax = 4096;

namespace console {

// Routes standard output through a watch that notes whether the line is open,
// line-buffered. Called once, by main, before anything is printed.
void watch_stdout() noexcept;

// For the shell's line editor: from now on background text waits instead of
// being printed, and the editor ends the lines it draws itself. Returns a
// descriptor that is readable while text waits.
int hold() noexcept;

// Hands the waiting text to @p show, with the console locked: no background
// text reaches the screen until @p show returns. @p show prints it with
// print_line_start. Does nothing when nothing waits.
void show_waiting(void (*show)(std::string_view text)) noexcept;

// Ends holding: what still waits is printed now, and background text is
// printed at once again.
void release() noexcept;

// Prints @p text on standard output so that it starts a line (see async_print).
// For the shell's own use while it holds the console; others use async_print.
void print_line_start(std::string_view text) noexcept;

}  // namespace console
}  // namespace ft
