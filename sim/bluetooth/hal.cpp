// The phone's Bluetooth stack behind the legacy HAL: the library
// /system/lib/hw/bluetooth.default.so that hw_get_module("bluetooth") finds.
// Like the real stack it answers every request later, from a thread of its
// own and never from the caller's: the interface queues the request and
// returns, and the thread makes the callbacks in the order the requests came.
//
// A discovery is a timeline of device reports (bt.devices, spread over
// bt.discovery_ms). The thread learns that a report is due from the wake
// alarm it asks of the caller's OS call-outs, as the real stack runs its
// timers; only a caller that gave no call-outs has it keep the time itself.
//
// Observed state: bt.stack, bt.adapter, bt.discovering.
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <pthread.h>
#include <string>
#include <vector>

#include "platform/bluetooth.h"
#include "platform/hardware.h"
#include "sim/bluetooth/devices.h"
#include "sim/core/state.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr long kShortestDiscoveryMs = 100;
// Devices in range answer an inquiry within its first seconds, however long
// the discovery goes on.
constexpr long kLongestStepMs = 1000;
constexpr const char* kWakeLock = "bluetooth_timer";

enum class Request { Enable, Disable, Address, StartDiscovery, CancelDiscovery, Wake, Quit };

struct Report {
    Clock::time_point due;
    std::size_t device;
    bool everything;  // false: the address alone
};

struct Stack {
    std::mutex lock;
    std::condition_variable changed;

    // Under the lock.
    std::deque<Request> requests;
    bool initialized = false;
    bool enabled = false;
    bt_os_callouts_t* callouts = nullptr;

    // Set by init before the thread starts.
    bt_callbacks_t* callbacks = nullptr;
    pthread_t thread{};

    // The thread's own.
    bool discovering = false;
    bool alarm_set = false;
    std::vector<ftsim::bt::Device> devices;
    std::vector<Report> reports;
    std::size_t next_report = 0;
    Clock::time_point discovery_end;
};

// Never destroyed: a wake alarm may still come in while the process ends.
Stack& stack() {
    static Stack* const s = new Stack;
    return *s;
}

void push(Stack& s, Request r) {
    s.requests.push_back(r);
    s.changed.notify_one();
}

bt_os_callouts_t* callouts_of(Stack& s) {
    std::lock_guard held(s.lock);
    return s.callouts;
}

// Runs on whatever thread the caller's OS runs its alarms on.
void wake_alarm(void* data) {
    Stack& s = *static_cast<Stack*>(data);
    std::lock_guard held(s.lock);
    if (s.initialized) push(s, Request::Wake);
}

// --- On the stack's thread.

Clock::time_point next_due(const Stack& s) {
    return s.next_report < s.reports.size() ? s.reports[s.next_report].due : s.discovery_end;
}

Request next_request(Stack& s) {
    std::unique_lock held(s.lock);
    const auto asked = [&s] { return !s.requests.empty(); };
    if (!s.discovering || s.alarm_set)
        s.changed.wait(held, asked);
    else if (!s.changed.wait_until(held, next_due(s), asked))
        return Request::Wake;
    const Request r = s.requests.front();
    s.requests.pop_front();
    return r;
}

// Observed state is written before the callback, so that whoever saw the
// callback finds it. Without tell there is no callback: after cleanup the
// caller gets none.

void report_address(Stack& s) {
    if (!s.callbacks->adapter_properties_cb) return;
    ftsim::bt::Address a{};
    if (!ftsim::bt::parse_address(ftsim::get("bt.address"), a)) {
        s.callbacks->adapter_properties_cb(BT_STATUS_FAIL, 0, nullptr);
        return;
    }
    bt_bdaddr_t address;
    std::memcpy(address.address, a.data(), a.size());
    bt_property_t property{BT_PROPERTY_BDADDR, sizeof address, &address};
    s.callbacks->adapter_properties_cb(BT_STATUS_SUCCESS, 1, &property);
}

void switch_adapter(Stack& s, bool on, bool tell) {
    {
        std::lock_guard held(s.lock);
        if (s.enabled == on) return;
        s.enabled = on;
    }
    // Some stacks tell the adapter's properties as it comes up, before they
    // report it on.
    if (on && ftsim::get("bt.address.unasked") == "yes") report_address(s);
    ftsim::set_observed("bt.adapter", on ? "on" : "off");
    if (tell && s.callbacks->adapter_state_changed_cb)
        s.callbacks->adapter_state_changed_cb(on ? BT_STATE_ON : BT_STATE_OFF);
}

void start_discovery(Stack& s) {
    {
        std::lock_guard held(s.lock);
        if (s.discovering || !s.enabled) return;
    }
    s.devices = ftsim::bt::devices_in_range(ftsim::get("bt.devices"));
    const long length = std::max(kShortestDiscoveryMs, std::atol(ftsim::get("bt.discovery_ms").c_str()));
    s.reports.clear();
    for (std::size_t i = 0; i < s.devices.size(); ++i) s.reports.push_back({{}, i, !s.devices[i].twice});
    for (std::size_t i = 0; i < s.devices.size(); ++i)
        if (s.devices[i].twice) s.reports.push_back({{}, i, true});
    const Clock::time_point start = Clock::now();
    const milliseconds step(std::min(kLongestStepMs, length / static_cast<long>(s.reports.size() + 1)));
    for (std::size_t k = 0; k < s.reports.size(); ++k) s.reports[k].due = start + step * static_cast<long>(k + 1);
    s.next_report = 0;
    s.discovery_end = start + milliseconds(length);
    s.discovering = true;
    s.alarm_set = false;
    if (bt_os_callouts_t* c = callouts_of(s); c && c->acquire_wake_lock) c->acquire_wake_lock(kWakeLock);
    ftsim::set_observed("bt.discovering", "yes");
    if (s.callbacks->discovery_state_changed_cb) s.callbacks->discovery_state_changed_cb(BT_DISCOVERY_STARTED);
}

void stop_discovery(Stack& s, bool tell) {
    if (!s.discovering) return;
    s.discovering = false;
    s.reports.clear();
    if (bt_os_callouts_t* c = callouts_of(s); c && c->release_wake_lock) c->release_wake_lock(kWakeLock);
    ftsim::set_observed("bt.discovering", "no");
    if (tell && s.callbacks->discovery_state_changed_cb)
        s.callbacks->discovery_state_changed_cb(BT_DISCOVERY_STOPPED);
}

void report_device(Stack& s, const Report& r) {
    if (!s.callbacks->device_found_cb) return;
    const ftsim::bt::Device& d = s.devices[r.device];
    bt_bdaddr_t address;
    std::memcpy(address.address, d.address.data(), d.address.size());
    // The name exactly as long as it is, with no NUL after it: a reader that
    // goes by anything but the length is caught by the sanitizers.
    std::vector<char> name(d.name.begin(), d.name.end());
    uint32_t device_class = d.device_class.value_or(0);
    uint32_t type = d.type.value_or(0);
    int8_t rssi = d.rssi.value_or(0);
    std::vector<bt_property_t> properties{{BT_PROPERTY_BDADDR, sizeof address, &address}};
    if (r.everything) {
        if (!name.empty()) properties.push_back({BT_PROPERTY_BDNAME, static_cast<int>(name.size()), name.data()});
        if (d.device_class) properties.push_back({BT_PROPERTY_CLASS_OF_DEVICE, sizeof device_class, &device_class});
        if (d.type) properties.push_back({BT_PROPERTY_TYPE_OF_DEVICE, sizeof type, &type});
        if (d.rssi) properties.push_back({BT_PROPERTY_REMOTE_RSSI, sizeof rssi, &rssi});
    }
    s.callbacks->device_found_cb(static_cast<int>(properties.size()), properties.data());
}

// With call-outs the stack relies on them, as the real one does: an alarm
// that never comes stalls the discovery.
void set_alarm(Stack& s) {
    bt_os_callouts_t* const c = callouts_of(s);
    s.alarm_set = c != nullptr && c->set_wake_alarm != nullptr;
    if (!s.alarm_set) return;
    const auto wait = std::chrono::ceil<milliseconds>(next_due(s) - Clock::now()).count();
    c->set_wake_alarm(static_cast<uint64_t>(std::max<decltype(wait)>(1, wait)), true, wake_alarm, &s);
}

// Makes the reports that are due, ends the discovery when its time is up,
// and asks to be woken for what comes next.
void advance_discovery(Stack& s) {
    if (!s.discovering) return;
    const Clock::time_point now = Clock::now();
    while (s.next_report < s.reports.size() && s.reports[s.next_report].due <= now)
        report_device(s, s.reports[s.next_report++]);
    if (s.next_report == s.reports.size() && s.discovery_end <= now) {
        stop_discovery(s, true);
        return;
    }
    set_alarm(s);
}

void* run_stack(void*) {
    Stack& s = stack();
    for (;;) {
        switch (next_request(s)) {
            case Request::Enable: switch_adapter(s, true, true); break;
            case Request::Disable:
                stop_discovery(s, true);
                switch_adapter(s, false, true);
                break;
            case Request::Address: report_address(s); break;
            case Request::StartDiscovery: start_discovery(s); break;
            case Request::CancelDiscovery: stop_discovery(s, true); break;
            case Request::Wake: break;
            case Request::Quit:
                // The adapter goes down with the stack.
                stop_discovery(s, false);
                switch_adapter(s, false, false);
                return nullptr;
        }
        advance_discovery(s);
    }
}

// --- The interface, on the caller's thread.

int queue(Request r, bool needs_adapter = false) {
    Stack& s = stack();
    std::lock_guard held(s.lock);
    if (!s.initialized || (needs_adapter && !s.enabled)) return BT_STATUS_NOT_READY;
    push(s, r);
    return BT_STATUS_SUCCESS;
}

int bt_init(bt_callbacks_t* callbacks) {
    FTSIM_FAILURE_POINT();
    if (callbacks == nullptr || callbacks->size != sizeof(bt_callbacks_t)) return BT_STATUS_PARM_INVALID;
    Stack& s = stack();
    std::lock_guard held(s.lock);
    if (s.initialized) return BT_STATUS_DONE;
    s.callbacks = callbacks;
    s.enabled = false;
    s.requests.clear();
    // The caller's signals are the caller's business, not this thread's.
    sigset_t all, old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    const int started = pthread_create(&s.thread, nullptr, run_stack, nullptr);
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    if (started != 0) return BT_STATUS_NOMEM;
    s.initialized = true;
    ftsim::set_observed("bt.stack", "running");
    return BT_STATUS_SUCCESS;
}

int bt_enable(bool /*guest_mode*/) {
    FTSIM_FAILURE_POINT();
    return queue(Request::Enable);
}

int bt_disable() {
    FTSIM_FAILURE_POINT();
    return queue(Request::Disable);
}

void bt_cleanup() {
    FTSIM_FAILURE_POINT_RETURNING();
    Stack& s = stack();
    pthread_t thread{};
    {
        std::lock_guard held(s.lock);
        if (!s.initialized) return;
        push(s, Request::Quit);
        thread = s.thread;
    }
    pthread_join(thread, nullptr);
    ftsim::set_observed("bt.stack", "stopped");
    std::lock_guard held(s.lock);
    s.initialized = false;
    s.requests.clear();
}

int bt_get_adapter_property(bt_property_type_t type) {
    FTSIM_FAILURE_POINT();
    // The factory tests ask for the address only.
    if (type != BT_PROPERTY_BDADDR) return BT_STATUS_UNSUPPORTED;
    return queue(Request::Address);
}

int bt_start_discovery() {
    FTSIM_FAILURE_POINT();
    return queue(Request::StartDiscovery, true);
}

int bt_cancel_discovery() {
    FTSIM_FAILURE_POINT();
    return queue(Request::CancelDiscovery);
}

int bt_set_os_callouts(bt_os_callouts_t* callouts) {
    FTSIM_FAILURE_POINT();
    if (callouts == nullptr || callouts->size != sizeof(bt_os_callouts_t)) return BT_STATUS_PARM_INVALID;
    Stack& s = stack();
    std::lock_guard held(s.lock);
    s.callouts = callouts;
    return BT_STATUS_SUCCESS;
}

// The operations the factory tests use; the others are not offered.
bt_interface_t make_interface() {
    bt_interface_t i{};
    i.size = sizeof(bt_interface_t);
    i.init = bt_init;
    i.enable = bt_enable;
    i.disable = bt_disable;
    i.cleanup = bt_cleanup;
    i.get_adapter_property = bt_get_adapter_property;
    i.start_discovery = bt_start_discovery;
    i.cancel_discovery = bt_cancel_discovery;
    i.set_os_callouts = bt_set_os_callouts;
    return i;
}

const bt_interface_t* get_bluetooth_interface() {
    FTSIM_FAILURE_POINT_RETURNING(nullptr);
    static const bt_interface_t interface = make_interface();
    return &interface;
}

int close_bluetooth_stack(hw_device_t*) { return 0; }

int open_bluetooth_stack(const hw_module_t* module, const char* id, hw_device_t** device) {
    FTSIM_FAILURE_POINT();
    if (device == nullptr || id == nullptr || std::strcmp(id, BT_STACK_MODULE_ID) != 0) return -EINVAL;
    static bluetooth_device_t stack_device = [module] {
        bluetooth_device_t d{};
        d.common.tag = HARDWARE_DEVICE_TAG;
        d.common.module = const_cast<hw_module_t*>(module);
        d.common.close = close_bluetooth_stack;
        d.get_bluetooth_interface = get_bluetooth_interface;
        return d;
    }();
    *device = &stack_device.common;
    return 0;
}

hw_module_methods_t g_methods = {open_bluetooth_stack};

}  // namespace

extern "C" {
__attribute__((visibility("default"))) hw_module_t HAL_MODULE_INFO_SYM = {
    HARDWARE_MODULE_TAG, 1, 0, BT_STACK_MODULE_ID, "Bluetooth stack of the simulated phone", "ft", &g_methods,
    nullptr, {},
};
}  // extern "C"
