#pragma once
// What the Bluetooth HAL asks of the OS (its OS call-outs): wake alarms on
// one POSIX timer, and wake locks, which the factory tests need not hold.
#include <cstdint>

#include "platform/bluetooth.h"

// Arms the one wake timer to run callback(data), once, delay_ms from now.
// The timer is made at the first call and kept; it runs the first call's
// callback and data ever after, as the HAL always passes the same. False
// when the timer could not be made or armed.
bool set_wake_alarm(uint64_t delay_ms, bool should_wake, alarm_cb callback, void* data);
// Both succeed (0) without doing anything.
int acquire_wake_lock(const char* name);
int release_wake_lock(const char* name);
