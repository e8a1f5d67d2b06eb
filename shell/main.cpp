#include <cstdio>

#include "common/console.h"
#include "shell/console.h"
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

}  // namespace

int main() {
    // Before anything is printed: background reports must know where lines begin.
    ft::console::watch_stdout();
    start_up();

    ft::ShellInput input;
    static ft::CommandLine cl;  // the shell's fixed buffers live for the whole run
    for (;;) {
        ft::LineBuffer typed;
        const ft::Input got = input.next(typed);
        if (got == ft::Input::End) break;
        if (got == ft::Input::Nothing) continue;
        if (got != ft::Input::Line) {
            std::puts(ft::input_refusal(got));
            continue;
        }
        if (typed[0] == '\0') continue;
        const ft::SplitResult split = ft::split_line(typed.data(), cl);
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
