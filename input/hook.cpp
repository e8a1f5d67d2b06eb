// Hookswitch and EHS monitors: the waiting happens inside the hardware
// library, so these threads cannot be interrupted; they are told to stop by a
// flag and end after their current wait, or with the process.
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <pthread.h>

#include "common/console.h"
#include "common/words.h"
#include "input/monitors.h"
#include "platform/velor.h"

namespace {

struct HookMonitor {
    const char* start_stop;      // "%s hookswitch test\n"
    const char* already;         // "Hookswitch test has already been %s\n"
    const char* null_mode;       // a line
    const char* bad_mode;        // printf format with the word
    const char* thread_failed;   // printf format with the error code
    const char* event_line;      // printf format with the first report's feed and the state's name
    int (*wait)();
    void* (*entry)(void*);
    int (*query)();  // mode "2", where the monitor has one

    std::atomic<bool> stop{false};
    std::atomic<bool> reporting{false};
    // Cleared by the first event line of the process's life; never armed again.
    std::atomic<bool> first_report{true};
};

const char* hook_state_name(int state) { return state == 0 ? "ON HOOK" : "OFF HOOK"; }

int track(HookMonitor& m) {
    if (m.stop.load()) return 0;
    for (;;) {
        // A failed wait (-1) is dropped and the wait repeated.
        const int state = m.wait();
        if (state != -1 && m.reporting.load()) {
            const char* feed = m.first_report.exchange(false) ? "\n" : "";
            ft::async_printf(m.event_line, feed, hook_state_name(state));
        }
        if (m.stop.load()) return 0;
    }
}

int start(HookMonitor& m) {
    m.stop.store(false);
    pthread_t thread{};
    const int error = pthread_create(&thread, nullptr, m.entry, nullptr);
    if (error != 0) {
        std::printf(m.thread_failed, error);
        return -1;
    }
    // Never joined: the thread may sit in the library's wait until the
    // process ends.
    pthread_detach(thread);
    return 0;
}

int switch_reporting(HookMonitor& m, bool wanted) {
    if (m.reporting.load() == wanted) {
        std::printf(m.already, wanted ? "started" : "stopped");
        return 0;
    }
    std::printf(m.start_stop, wanted ? "Start" : "Stop");
    m.reporting.store(wanted);
    return 0;
}

int command(HookMonitor& m, const char* mode) {
    if (mode == nullptr) {
        std::puts(m.null_mode);
        return -1;
    }
    if (ft::word_is_one_of(mode, {"0", "1"})) return switch_reporting(m, mode[0] == '1');
    if (m.query != nullptr && ft::word_is(mode, "2")) return m.query();
    std::printf(m.bad_mode, mode);
    return -1;
}

int destroy(HookMonitor& m) {
    m.reporting.store(false);
    m.stop.store(true);
    return 0;
}

// The state query needs no thread: it works with reporting on or off.
int hookswitch_state() {
    int state = 0;
    const int result = CradleHookswitch_GetState(&state);
    if (result != 0) {
        std::puts("FAIL");
        return result;
    }
    std::printf("HOOKSWITCH state: [%s]\nPASS\n", hook_state_name(state));
    return 0;
}

// The threads' entries, named like the monitors' other parts, whose names
// their messages print (hookswitchTestInit(), jackTrackThread()).
int hookswitchTrackThread();
int ehsTrackThread();

void* hookswitch_thread(void*) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(hookswitchTrackThread())); }
void* ehs_thread(void*) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(ehsTrackThread())); }

HookMonitor g_hookswitch{
    "%s hookswitch test\n",
    "Hookswitch test has already been %s\n",
    "hookswitchTest(): fail - NULL pointer",
    "hookswitchTest(): fail - incorrect parameter [%s]\n",
    "hookswitchTestInit(): fail - thread can't be created, error=%d\n",
    "%sHOOKSWITCH event: [%s]\n",
    CradleHookswitch_WaitForHookswitchEvent,
    hookswitch_thread,
    hookswitch_state,
};

HookMonitor g_ehs{
    "%s ehs test\n",
    "Ehs test has already been %s\n",
    "ehsTest(): fail - NULL pointer",
    "ehsTest(): fail - incorrect parameter [%s]\n",
    "ehsTestInit(): fail - thread can't be created, error=%d\n",
    "%sEHS event: [%s]\n",
    WiredHeadset_WaitForHookSwitchEvent,
    ehs_thread,
    nullptr,
};

int hookswitchTrackThread() { return track(g_hookswitch); }
int ehsTrackThread() { return track(g_ehs); }

}  // namespace

int hookswitchTestInit() { return start(g_hookswitch); }
int hookswitchTest(const char* mode) { return command(g_hookswitch, mode); }
int hookswitchTestDestroy() { return destroy(g_hookswitch); }

int ehsTestInit() { return start(g_ehs); }
int ehsTest(const char* mode) { return command(g_ehs, mode); }
int ehsTestDestroy() { return destroy(g_ehs); }
