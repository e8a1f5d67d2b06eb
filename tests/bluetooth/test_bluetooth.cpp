// The Bluetooth tests' pieces that no session reaches: the wake alarm the HAL
// runs its timers on, a null address buffer, and the simulated phone's list
// of devices in range.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <thread>

#include "peripherals/bluetooth.h"
#include "peripherals/bt_os_callouts.h"
#include "sim/bluetooth/devices.h"

namespace {

std::thread::id g_caller;
std::atomic<bool> g_elsewhere{false};

void on_alarm(void* data) {
    g_elsewhere.store(std::this_thread::get_id() != g_caller);
    auto& fired = *static_cast<std::atomic<int>*>(data);
    fired.fetch_add(1);
    fired.notify_all();
}

void never(void* data) { static_cast<std::atomic<int>*>(data)->fetch_add(1); }

// A broken alarm never fires, and the wait below never ends: ctest's time limit catches it.
TEST(WakeAlarm, RunsTheFirstCallbackOnAThreadOfItsOwnAndZeroFiresAtOnce) {
    g_caller = std::this_thread::get_id();
    static std::atomic<int> fired{0};
    ASSERT_TRUE(set_wake_alarm(20, true, on_alarm, &fired));
    fired.wait(0);
    EXPECT_TRUE(g_elsewhere.load());

    // The HAL always passes the same callback: the first one serves all.
    std::atomic<int> other{0};
    ASSERT_TRUE(set_wake_alarm(0, false, never, &other));
    fired.wait(1);
    EXPECT_EQ(fired.load(), 2);
    EXPECT_EQ(other.load(), 0);
}

TEST(Bluetooth, NullAddressBufferAndTeardownBeforeInit) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(btGetMacAddr(nullptr), -1);
    EXPECT_EQ(btTestDestroy(), -1);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "BT btGetMacAddr: pbuf is NULL!\n");
}

using ftsim::bt::devices_in_range;

TEST(DevicesInRange, ItemsAndTheirLimits) {
    std::size_t unreadable = 0;
    const auto devices = devices_in_range(
        "0a:0b:0c:0d:0e:0f,name=Desk,class=5A020C,type=3,rssi=-128,twice;;"
        "12:00:00:00:00:02,rssi=127;12:00:00:00:00:03,rssi=-129;12:00:00:00:00:04,rssi=128;"
        "12:00:00:00:00:05,colour=red;10:00:00:00:00:6;10-00-00-00-00-07",
        &unreadable);
    ASSERT_EQ(devices.size(), 2u);
    EXPECT_EQ(unreadable, 5u);
    EXPECT_EQ(ftsim::bt::address_text(devices[0].address), "0A:0B:0C:0D:0E:0F");
    EXPECT_EQ(devices[0].name, "Desk");
    EXPECT_EQ(devices[0].device_class, 0x5A020Cu);
    EXPECT_EQ(devices[0].type, 3u);
    EXPECT_EQ(devices[0].rssi, -128);
    EXPECT_TRUE(devices[0].twice);
    EXPECT_EQ(devices[1].rssi, 127);
    EXPECT_FALSE(devices[1].name.size() || devices[1].device_class || devices[1].type || devices[1].twice);
    EXPECT_TRUE(devices_in_range("").empty());
}

}  // namespace
