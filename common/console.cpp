#include "common/console.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <sys/eventfd.h>
#include <unistd.h>

#include "common/unique_handle.h"

namespace ft {
namespace {

// What passes through standard output, as far as starting lines goes: the
// last byte written. Children run through system() write past it, and end
// their lines themselves.
struct Watch {
    std::FILE* stream = nullptr;
    std::atomic<char> last{'\n'};
};
Watch g_watch;

ssize_t watched_write(void* cookie, const char* data, std::size_t size) {
    auto* watch = static_cast<Watch*>(cookie);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = write(STDOUT_FILENO, data + done, size - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    if (done > 0) watch->last.store(data[done - 1]);
    return done > 0 ? static_cast<ssize_t>(done) : -1;
}

// Reports wait here while the shell's line editor owns the screen. A report
// that does not fit waits for the shell to show the earlier ones: a slow
// screen slows the reporters down, it never loses their lines.
struct Waiting {
    std::mutex lock;
    std::condition_variable shown;
    bool held = false;
    std::array<char, 4 * kAsyncTextMax> text{};
    std::size_t size = 0;
    ft::UniqueFd wake;
};
// Never destroyed: the hook monitors' threads are not joined, and one may
// report while the process ends.
Waiting& g_waiting = *new Waiting;

void wake_shell() {
    const std::uint64_t one = 1;
    ssize_t n = 0;
    do {
        n = write(g_waiting.wake.get(), &one, sizeof one);
    } while (n < 0 && errno == EINTR);
}

void clear_wake() {
    std::uint64_t count = 0;
    while (read(g_waiting.wake.get(), &count, sizeof count) < 0 && errno == EINTR) {
    }
}

}  // namespace

namespace console {

void watch_stdout() noexcept {
    std::fflush(stdout);
    const cookie_io_functions_t io{nullptr, watched_write, nullptr, nullptr};
    std::FILE* watched = fopencookie(&g_watch, "w", io);
    if (watched != nullptr) {
        g_watch.stream = watched;
        stdout = watched;
    }
    // Stations read us through pipes: every line must leave as it is finished.
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
}

void print_line_start(std::string_view text) noexcept {
    if (text.empty()) return;
    std::FILE* out = stdout;
    flockfile(out);
    // What the shell left half-printed goes first, so its last byte is known.
    fflush_unlocked(out);
    const bool open = out == g_watch.stream && g_watch.last.load() != '\n';
    if (open && text.front() != '\n') putc_unlocked('\n', out);
    fwrite_unlocked(text.data(), 1, text.size(), out);
    fflush_unlocked(out);
    funlockfile(out);
}

int hold() noexcept {
    std::lock_guard lock(g_waiting.lock);
    // The line editor owns the screen from here, past the watch, and ends
    // its own lines: the prompt's when it shows reports above it, the typed
    // one at Enter. A line the last command left open is behind its prompt.
    g_watch.last.store('\n');
    if (!g_waiting.wake.valid()) g_waiting.wake.reset(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    // Without a way to wake the shell, reports go on being printed at once.
    g_waiting.held = g_waiting.wake.valid();
    return g_waiting.wake.get();
}

void show_waiting(void (*show)(std::string_view text)) noexcept {
    std::lock_guard lock(g_waiting.lock);
    if (g_waiting.wake.valid()) clear_wake();
    if (g_waiting.size == 0) return;
    show(std::string_view(g_waiting.text.data(), g_waiting.size));
    g_waiting.size = 0;
    g_waiting.shown.notify_all();
}

void release() noexcept {
    std::lock_guard lock(g_waiting.lock);
    g_waiting.held = false;
    print_line_start(std::string_view(g_waiting.text.data(), g_waiting.size));
    g_waiting.size = 0;
    g_waiting.shown.notify_all();
}

}  // namespace console

void async_print(std::string_view text) noexcept {
    std::array<char, kAsyncTextMax> cut;
    if (text.size() > kAsyncTextMax) {
        std::memcpy(cut.data(), text.data(), kAsyncTextMax - 1);
        cut.back() = '\n';
        text = std::string_view(cut.data(), cut.size());
    }
    if (text.empty()) return;
    std::unique_lock lock(g_waiting.lock);
    for (;;) {
        if (!g_waiting.held) {
            console::print_line_start(text);
            return;
        }
        if (g_waiting.text.size() - g_waiting.size >= text.size()) {
            std::memcpy(g_waiting.text.data() + g_waiting.size, text.data(), text.size());
            g_waiting.size += text.size();
            wake_shell();
            return;
        }
        g_waiting.shown.wait(lock);
    }
}

void async_printf(const char* format, ...) noexcept {
    // A byte more than one call prints: a longer text still reaches
    // async_print too long, and is cut there.
    std::array<char, kAsyncTextMax + 1> text;
    va_list args;
    va_start(args, format);
    const int n = std::vsnprintf(text.data(), text.size(), format, args);
    va_end(args);
    if (n <= 0) return;
    async_print(std::string_view(text.data(), std::min(static_cast<std::size_t>(n), text.size())));
}

}  // namespace ft
