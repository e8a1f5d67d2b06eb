// Headset jack monitor: names each plug as it goes in or out, and reports the
// headset's buttons.
#include <atomic>
#include <csignal>
#include <cstdint>

#include "common/console.h"
#include "input/event_monitor.h"
#include "input/jack_events.h"
#include "input/monitors.h"
#include "platform/velor.h"

namespace {

using ft::input::Record;

volatile std::sig_atomic_t g_stop = 0;
std::atomic<bool> g_detection{false};
std::atomic<bool> g_buttons{false};
std::atomic<bool> jackFirstReport{true};
ft::input::JackState g_state;  // the monitor thread's alone

// A different function from the keypad's: SIGUSR2 stops only this monitor.
void signalHandler(int) { g_stop = 1; }

bool jack_records(std::uint16_t type) {
    return type == ft::input::kTypeSync || type == ft::input::kTypeKey || type == ft::input::kTypeSwitch;
}

void process_jack_record(const Record& r) {
    const bool detection = g_detection.load();
    const bool buttons = g_buttons.load();
    // While both are off the jack's state is not followed either: it stays
    // what was seen the last time reporting was on.
    if (!detection && !buttons) return;
    // The first processed record brings the line feed even when it prints
    // nothing itself; with a line, both go out in one piece.
    const bool first = jackFirstReport.exchange(false);
    ft::input::JackLine line{};
    ft::input::interpret_jack_record(g_state, r, detection, buttons, Jack_GetHeadsetType, line);
    if (first || line[0] != '\0') ft::async_printf("%s%s", first ? "\n" : "", line.data());
}

constexpr ft::input::MonitorTexts kTexts{
    "openInputDevice(): failed to open file %s\n",
    "isJackInputDevice(): failed to obtain name of event device",
    "jackTestInit(): fail - 3.5 headset event device can't be opened",
    "jackTestInit(): fail - thread can't be created",
    "jackTrackThread(): fail - event device is not open",
    "jackTrackThread(): fail - can't set signal handler",
    "readJackEvent(): some error or short read - number of bytes = [%d], errno = [%d]\n",
    "jackTest(): fail - NULL pointer",
    "jackTest(): fail - event device is not open",
    "jackTestDestroy(): failed to kill thread",
    "jackTestDestroy(): failed to join thread",
};

ft::input::Monitor g_jack{kTexts, SIGUSR2, signalHandler, g_stop, jack_records, process_jack_record};

int jackTrackThread() { return ft::input::monitor_run(g_jack); }

void* jack_thread(void*) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(jackTrackThread())); }

}  // namespace

int jackTestInit() {
    const char* name = is_corvane_entry() ? "tlv320aic3x tdm audio card 3.5 Headset Jack" : "trs_headset";
    return ft::input::monitor_start(g_jack, name, jack_thread);
}

int jackTest(const char* mode) { return ft::input::monitor_switch(g_jack, mode, g_detection, jackFirstReport, "jackdet"); }

int jackKeyTest(const char* mode) {
    return ft::input::monitor_switch(g_jack, mode, g_buttons, jackFirstReport, "jackkeydet");
}

int jackTestDestroy() { return ft::input::monitor_stop(g_jack); }
