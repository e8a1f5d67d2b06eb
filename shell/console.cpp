#include "shell/console.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <readline/history.h>
#include <readline/readline.h>
#include <string_view>
#include <unistd.h>

#include "common/console.h"

namespace ft {

constexpr const char* kPrompt = "ft>";

const char* input_refusal(Input refused) noexcept {
    switch (refused) {
    case Input::TooLong:
        return split_refusal(SplitResult::LineTooLong);
    case Input::HasNul:
        return "NUL character in the line. Nothing was run.";
    case Input::Line:
    case Input::End:
        break;
    }
    return "";
}

bool PlainLines::fill() noexcept {
    while (!ended_) {
        const ssize_t n = read(fd_, buffer_.data(), buffer_.size());
        if (n > 0) {
            begin_ = 0;
            end_ = static_cast<std::size_t>(n);
            return true;
        }
        // End of input, or an error that reading again would only repeat.
        if (n == 0 || errno != EINTR) ended_ = true;
    }
    return false;
}

Input PlainLines::next(LineBuffer& line) noexcept {
    line[0] = '\0';
    std::fputs(kPrompt, echo_);
    std::fflush(echo_);

    std::size_t size = 0;
    bool too_long = false;
    bool nul = false;
    bool any = false;
    for (;;) {
        if (begin_ == end_ && !fill()) {
            if (!any) return Input::End;
            break;  // a last line without its line feed still counts
        }
        any = true;
        const char* start = buffer_.data() + begin_;
        const std::size_t available = end_ - begin_;
        const auto* feed = static_cast<const char*>(std::memchr(start, '\n', available));
        const std::size_t take = feed != nullptr ? static_cast<std::size_t>(feed - start) : available;
        if (std::memchr(start, '\0', take) != nullptr) nul = true;
        if (!too_long && size + take < line.size()) {
            std::memcpy(line.data() + size, start, take);
            size += take;
        } else {
            // Too long to run: echoed as it passes, never held whole.
            if (!too_long) std::fwrite(line.data(), 1, size, echo_);
            too_long = true;
            std::fwrite(start, 1, take, echo_);
        }
        begin_ += take;
        if (feed != nullptr) {
            ++begin_;
            break;
        }
    }
    // A station that ends its lines with CR LF means the same lines as one
    // that sends LF alone.
    if (!too_long && size > 0 && line[size - 1] == '\r') --size;
    // One piece: a background report must not land between a line and its feed.
    flockfile(echo_);
    if (!too_long) fwrite_unlocked(line.data(), 1, size, echo_);
    putc_unlocked('\n', echo_);
    fflush_unlocked(echo_);
    funlockfile(echo_);
    if (too_long) {
        line[0] = '\0';
        return Input::TooLong;
    }
    line[size] = '\0';
    return nul ? Input::HasNul : Input::Line;
}

namespace {

// readline hands a finished line to a callback; only the main thread ever
// touches readline, so plain statics carry it back.
char* g_typed = nullptr;
bool g_done = false;

void take_line(char* typed) {
    g_typed = typed;
    g_done = true;
    // The command runs with the terminal as the operator knows it and with
    // its own signal handling (Ctrl+C has its default effect again).
    rl_callback_handler_remove();
}

// Background reports go below what the operator sees, and the prompt with
// the half-typed line is drawn again under them, the cursor where it was.
void show_above_prompt(std::string_view text) {
    const int point = rl_point;
    rl_point = rl_end;
    rl_redisplay();
    // The prompt's line is open; a first report brings its own line feed.
    if (text.front() != '\n') std::fputc('\n', rl_outstream);
    std::fflush(rl_outstream);
    console::print_line_start(text);
    rl_point = point;
    rl_on_new_line();
    rl_redisplay();
}

// At a terminal Ctrl-D just shows the prompt again; a terminal that has gone
// away (hang-up) would otherwise give end of input forever.
bool terminal_gone() {
    pollfd p{STDIN_FILENO, POLLIN, 0};
    return poll(&p, 1, 0) < 0 || (p.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

Input read_terminal(LineBuffer& line) {
    line[0] = '\0';
    // What the last command left half-printed goes out before the prompt.
    std::fflush(stdout);
    const int wake = console::hold();
    g_typed = nullptr;
    g_done = false;
    // Left set by a Ctrl-D, it would add a line feed after every later line.
    rl_eof_found = 0;
    rl_callback_handler_install(kPrompt, take_line);
    while (!g_done) {
        pollfd fds[2] = {{STDIN_FILENO, POLLIN, 0}, {wake, POLLIN, 0}};
        if (poll(fds, wake >= 0 ? 2 : 1, -1) < 0) {
            if (errno != EINTR) break;
            // readline's handlers only note a signal; Ctrl+C takes effect here.
            rl_check_signals();
            continue;
        }
        if ((fds[1].revents & POLLIN) != 0) console::show_waiting(show_above_prompt);
        if (fds[0].revents != 0) rl_callback_read_char();
    }
    if (!g_done) rl_callback_handler_remove();
    // What arrived since the line was finished goes below it.
    console::release();

    const std::unique_ptr<char, decltype(&std::free)> typed(g_typed, &std::free);
    g_typed = nullptr;
    // Ctrl-D shows the prompt again, as an empty line does.
    if (!typed) return g_done && !terminal_gone() ? Input::Line : Input::End;
    if (typed.get()[0] == '\0') return Input::Line;
    add_history(typed.get());
    const std::size_t size = std::strlen(typed.get());
    if (size >= line.size()) return Input::TooLong;
    std::memcpy(line.data(), typed.get(), size + 1);
    return Input::Line;
}

}  // namespace

ShellInput::ShellInput() noexcept : terminal_(isatty(STDIN_FILENO) != 0), plain_(STDIN_FILENO, stdout) {
    if (!terminal_) return;
    // A tab is an ordinary character of a word here, not a request to
    // complete file names of the phone.
    rl_bind_key('\t', rl_insert);
    // readline draws on a stream of its own, with a descriptor it can restart
    // a stopped terminal's output on.
    const int screen = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
    std::FILE* stream = screen >= 0 ? fdopen(screen, "w") : nullptr;
    if (stream != nullptr) {
        rl_outstream = stream;
    } else if (screen >= 0) {
        close(screen);
    }
    // readline's handlers stay in place while the shell waits between keys,
    // so Ctrl+C there still restores the terminal before it ends the shell.
    rl_persistent_signal_handlers = 1;
}

Input ShellInput::next(LineBuffer& line) noexcept { return terminal_ ? read_terminal(line) : plain_.next(line); }

}  // namespace ft
