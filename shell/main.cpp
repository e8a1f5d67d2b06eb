#include <cstdio>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <readline/history.h>
#include <readline/readline.h>
#include <unistd.h>

#include "common/console.h"
#include "shell/dispatch.h"
#include "shell/handlers.h"
#include "shell/line.h"
#include "shell/watchdog.h"

namespace {

template <typename R, typename... A>
void call_if_linked(R (*f)(A...), A... args) {
    if (f != nullptr) f(args...);
}

// Results are ignored: a missing device must never keep the shell from its prompt.
void start_up() {
    disable_watchdog();
    call_if_linked(keyTestInit);
    call_if_linked(jackTestInit);
    call_if_linked(hookswitchTestInit);
    call_if_linked(ehsTestInit);
    call_if_linked(initialize_lcd);
    call_if_linked(initialize_audio);
    call_if_linked(cameraInit);
    std::putchar('\n');
}

void tear_down() {
    call_if_linked(ehsTestDestroy);
    call_if_linked(hookswitchTestDestroy);
    call_if_linked(jackTestDestroy);
    call_if_linked(keyTestDestroy);
    call_if_linked(btTestDestroy);
    call_if_linked(cameraExit);
    call_if_linked(wifi_exit, 0);
}

// At a terminal Ctrl-D just shows the prompt again; a terminal that has gone
// away (hang-up) would otherwise give end of input forever.
bool terminal_gone() {
    pollfd p{STDIN_FILENO, POLLIN, 0};
    return poll(&p, 1, 0) < 0 || (p.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

}  // namespace

int main() {
    // Before anything is printed: background reports must know where lines begin.
    ft::console::watch_stdout();
    start_up();

    // A tab is an ordinary character of a word here, not a request to
    // complete file names of the phone.
    rl_bind_key('\t', rl_insert);

    const bool interactive = isatty(STDIN_FILENO) != 0;
    if (!interactive) {
        // A station's pipe is no screen: echo each line whole, never wrapped
        // or scrolled, whatever terminal type the environment names.
        rl_terminal_name = "dumb";
        rl_initialize();
        rl_set_screen_size(1, static_cast<int>(ft::kLineSize) * 64);
    }
    static ft::CommandLine cl;  // the shell's fixed buffers live for the whole run
    for (;;) {
        cl.clear();
        std::unique_ptr<char, decltype(&std::free)> text(readline("ft>"), &std::free);
        if (!text) {
            if (!interactive || terminal_gone()) break;
            continue;
        }
        if (text.get()[0] == '\0') continue;
        add_history(text.get());
        const ft::SplitResult split = ft::split_line(text.get(), cl);
        text.reset();
        if (split != ft::SplitResult::Ok) {
            std::puts(ft::split_refusal(split));
            continue;
        }
        if (cl.count == 0) continue;
        if (ft::dispatch(cl) == ft::Next::Quit) break;
    }
    tear_down();
    return 0;
}
