#pragma once
// The event monitor shared by the keypad and the headset jack: find an input
// device by the name the kernel reports for it, read its records on a thread
// of its own, switch reporting on and off from the shell, and tear the thread
// down with a signal and a join.
#include <atomic>
#include <csignal>
#include <cstdint>
#include <linux/input.h>
#include <pthread.h>

#include "common/unique_handle.h"

namespace ft::input {

// The kernel's record of this process's ABI: 16 bytes on the 32-bit phone,
// 24 on a 64-bit host. Reads always ask for sizeof(Record).
using Record = input_event;

constexpr std::uint16_t kTypeSync = EV_SYN;
constexpr std::uint16_t kTypeKey = EV_KEY;
constexpr std::uint16_t kTypeSwitch = EV_SW;

// The messages that name one member of the pattern.
struct MonitorTexts {
    const char* open_failed;      // printf format with the device path
    const char* name_failed;      // a line
    const char* not_found;        // a line
    const char* thread_failed;    // a line
    const char* thread_not_open;  // a line
    const char* no_handler;       // a line
    const char* read_error;       // printf format with the read result and errno
    const char* command_null;     // a line
    const char* command_not_open; // a line
    const char* kill_failed;      // a line
    const char* join_failed;      // a line
};

struct Monitor {
    const MonitorTexts& texts;
    int stop_signal;
    void (*signal_handler)(int);
    // Set only by signal_handler, which runs on the monitor thread itself.
    volatile std::sig_atomic_t& stop;
    // Record types the member looks at; others are skipped at once.
    bool (*wanted)(std::uint16_t type);
    // Called on the monitor thread for every wanted record.
    void (*process)(const Record& record);

    std::atomic<int> fd{-1};
    pthread_t thread{};
    // 0 until the thread has its signal handler (or has given up): the
    // teardown's signal must never meet the default action, which would end
    // the whole shell.
    std::atomic<int> ready{0};
};

// Opens the first device in @p dir whose name is @p wanted and starts the
// monitor thread on it; @p thread_entry runs monitor_run for this monitor.
int monitor_start(Monitor& m, const char* wanted, void* (*thread_entry)(void*), const char* dir = "/dev/input");

// Starts the monitor thread on an open device; the monitor owns @p fd from
// then on. Returns once the thread is ready for the teardown's signal.
int monitor_launch(Monitor& m, ft::UniqueFd fd, void* (*thread_entry)(void*));

// The monitor thread's body: 0 when stopped, -1 when it could not start.
int monitor_run(Monitor& m);

// The shell's "0"/"1" command: sets @p reporting, arms @p first_report and
// prints "Start WHAT test" or "Stop WHAT test".
int monitor_switch(Monitor& m, const char* mode, std::atomic<bool>& reporting, std::atomic<bool>& first_report,
                   const char* what);

// Signals the thread, joins it and closes the device; a second call has
// nothing left to stop.
int monitor_stop(Monitor& m);

}  // namespace ft::input
