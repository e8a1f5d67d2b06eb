// The Bluetooth HAL's wake alarms run on one POSIX timer on the monotonic
// clock. The C library's way of running a function at expiry (SIGEV_THREAD)
// starts threads behind ThreadSanitizer's back, which crashes in them; so the
// timer signals a thread of ours instead, and that thread runs the callback.
#include "peripherals/bt_os_callouts.h"

#include <atomic>
#include <csignal>
#include <ctime>
#include <pthread.h>
#include <unistd.h>

#ifndef sigev_notify_thread_id
#define sigev_notify_thread_id _sigev_un._tid
#endif

namespace {

struct WakeTimer {
    timer_t id{};
    bool created = false;
};

// Written once, before the alarm thread starts, and only read after.
alarm_cb g_callback = nullptr;
void* g_callback_data = nullptr;
std::atomic<pid_t> g_alarm_thread{0};

int alarm_signal() { return SIGRTMIN; }

void* run_alarms(void*) {
    sigset_t alarm;
    sigemptyset(&alarm);
    sigaddset(&alarm, alarm_signal());
    g_alarm_thread.store(gettid());
    g_alarm_thread.notify_all();
    for (;;) {
        siginfo_t info{};
        if (sigwaitinfo(&alarm, &info) == alarm_signal()) g_callback(g_callback_data);
    }
    return nullptr;
}

WakeTimer create_wake_timer(alarm_cb callback, void* data) {
    WakeTimer timer;
    g_callback = callback;
    g_callback_data = data;
    // The thread starts with every signal blocked: the timer's signal waits
    // for its sigwaitinfo, and the operator's Ctrl+C never lands on it.
    sigset_t all, old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    pthread_t thread;
    const int started = pthread_create(&thread, nullptr, run_alarms, nullptr);
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    if (started != 0) return timer;
    pthread_detach(thread);
    g_alarm_thread.wait(0);

    sigevent event{};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = alarm_signal();
    event.sigev_notify_thread_id = g_alarm_thread.load();
    timer.created = timer_create(CLOCK_MONOTONIC, &event, &timer.id) == 0;
    return timer;
}

}  // namespace

bool set_wake_alarm(uint64_t delay_ms, bool /*should_wake*/, alarm_cb callback, void* data) {
    static const WakeTimer timer = create_wake_timer(callback, data);
    if (!timer.created) return false;
    itimerspec when{};
    when.it_value.tv_sec = static_cast<time_t>(delay_ms / 1000);
    when.it_value.tv_nsec = static_cast<long>(delay_ms % 1000) * 1'000'000;
    // A zero time would disarm the timer rather than fire it at once.
    if (delay_ms == 0) when.it_value.tv_nsec = 1;
    return timer_settime(timer.id, 0, &when, nullptr) == 0;
}

int acquire_wake_lock(const char*) { return 0; }
int release_wake_lock(const char*) { return 0; }
