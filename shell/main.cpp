#include <cstdio>

#include "common/console.h"
#include "shell/console.h"
#include "shell/dispatch.h"
#include "shell/handlers.h"
#include "shell/line.h"
#include "shell/watchdog.h"

namespace {

// Results are ignored: a missing device must never keep the shell from its prompt.
void start_up() {
    disable_watchdog();
    keyTestInit();
    jackTestInit();
    hookswitchTestInit();
    ehsTestInit();
    initialize_lcd();
    initialize_audio();
    cameraInit();
    std::putchar('\n');
}

void tear_down() {
    ehsTestDestroy();
    hookswitchTestDestroy();
    jackTestDestroy();
    keyTestDestroy();
    btTestDestroy();
    cameraExit();
    wifi_exit(0);
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
        if (got != ft::Input::Line) {
            std::puts(ft::input_refusal(got));
            continue;
        }
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
