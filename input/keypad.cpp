// Keypad monitor: prints every key press and release while reporting is on.
#include <atomic>
#include <csignal>
#include <cstdint>

#include "common/console.h"
#include "input/event_monitor.h"
#include "input/monitors.h"
#include "platform/velor.h"

namespace {

using ft::input::Record;

volatile std::sig_atomic_t g_stop = 0;
std::atomic<bool> g_reporting{false};
std::atomic<bool> firstReport{true};

void signalHandler(int) { g_stop = 1; }

bool key_records_only(std::uint16_t type) { return type == ft::input::kTypeKey; }

void report_key(const Record& r) {
    if (!g_reporting.load()) return;
    // The first report's line feed goes out with it, in one piece.
    const char* feed = firstReport.exchange(false) ? "\n" : "";
    ft::async_printf("%sKeyCode[%04x] value[%d]\n", feed, r.code, r.value);
}

constexpr ft::input::MonitorTexts kTexts{
    "openKeypadDevice(): failed to open file %s\n",
    "isKeypadDevice(): failed to obtain name of event device",
    "keyTestInit(): fail - keypad device can't be opened",
    "keyTestInit(): fail - thread can't be created",
    "keyTrackThread(): fail - event device is not open",
    "keyTrackThread(): fail - can't set signal handler",
    "readKeyEvent(): some error or short read - number of bytes = [%d], errno = [%d]\n",
    "keyTest(): fail - NULL pointer",
    "keyTest(): fail - event device is not open",
    "keyTestDestroy(): failed to kill thread",
    "keyTestDestroy(): failed to join thread",
};

ft::input::Monitor g_keypad{kTexts, SIGUSR1, signalHandler, g_stop, key_records_only, report_key};

int keyTrackThread() { return ft::input::monitor_run(g_keypad); }

void* keypad_thread(void*) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(keyTrackThread())); }

}  // namespace

int keyTestInit() {
    const char* name = is_corvane_entry() ? "soc:gpio-matrix-keypad" : "soc:gpio_keys";
    return ft::input::monitor_start(g_keypad, name, keypad_thread);
}

int keyTest(const char* mode) { return ft::input::monitor_switch(g_keypad, mode, g_reporting, firstReport, "keypad"); }

int keyTestDestroy() { return ft::input::monitor_stop(g_keypad); }
