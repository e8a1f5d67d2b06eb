#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "input/event_monitor.h"

namespace {

using ft::input::Record;
namespace fs = std::filesystem;

constexpr ft::input::MonitorTexts kTexts{
    "open %s\n", "no name", "not found", "no thread", "thread: not open", "no handler",
    "short [%d] errno [%d]\n", "null", "command: not open", "kill failed", "join failed",
};

volatile std::sig_atomic_t g_stop = 0;
void on_signal(int) { g_stop = 1; }
bool keys_only(std::uint16_t type) { return type == EV_KEY; }

std::mutex g_lock;
std::condition_variable g_seen;
std::vector<Record> g_records;

void collect(const Record& r) {
    std::lock_guard<std::mutex> hold(g_lock);
    g_records.push_back(r);
    g_seen.notify_all();
}

ft::input::Monitor g_monitor{kTexts, SIGUSR1, on_signal, g_stop, keys_only, collect};

void* entry(void*) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(ft::input::monitor_run(g_monitor))); }

Record rec(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    Record r{};
    r.type = type;
    r.code = code;
    r.value = value;
    return r;
}

struct Monitor : ::testing::Test {
    int feed = -1;  // our end of the device

    void SetUp() override {
        g_stop = 0;
        g_records.clear();
        // Datagrams keep each write a record of its own, as an event device
        // delivers them, so a short one can be sent on purpose.
        int ends[2];
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
        feed = ends[0];
        ASSERT_EQ(ft::input::monitor_launch(g_monitor, ft::UniqueFd(ends[1]), entry), 0);
    }

    void TearDown() override {
        if (g_monitor.fd.load() >= 0) ft::input::monitor_stop(g_monitor);
        close(feed);
    }

    void send(const Record& r) { ASSERT_EQ(write(feed, &r, sizeof r), static_cast<ssize_t>(sizeof r)); }

    bool wait_for(std::size_t count) {
        std::unique_lock<std::mutex> hold(g_lock);
        return g_seen.wait_for(hold, std::chrono::seconds(10), [&] { return g_records.size() >= count; });
    }
};

TEST_F(Monitor, PassesOnWantedRecordsWholeAndSkipsTheRest) {
    send(rec(EV_MSC, MSC_SCAN, 458792));
    send(rec(EV_KEY, KEY_VOLUMEUP, 1));
    send(rec(EV_SYN, SYN_REPORT, 0));
    send(rec(EV_KEY, KEY_VOLUMEUP, 0));
    ASSERT_TRUE(wait_for(2));
    std::lock_guard<std::mutex> hold(g_lock);
    ASSERT_EQ(g_records.size(), 2u);
    EXPECT_EQ(g_records[0].code, KEY_VOLUMEUP);
    EXPECT_EQ(g_records[0].value, 1);
    EXPECT_EQ(g_records[1].value, 0);
}

TEST_F(Monitor, ReportsAShortReadAndGoesOn) {
    testing::internal::CaptureStdout();
    ASSERT_EQ(write(feed, "abcde", 5), 5);
    send(rec(EV_KEY, KEY_A, 1));
    ASSERT_TRUE(wait_for(1));
    ASSERT_EQ(ft::input::monitor_stop(g_monitor), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "short [5] errno [0]\n");
}

TEST_F(Monitor, TeardownEndsABlockedReadQuietlyAndForgetsTheDevice) {
    const int fd = g_monitor.fd.load();
    testing::internal::CaptureStdout();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ft::input::monitor_stop(g_monitor), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(g_monitor.fd.load(), -1);
    EXPECT_EQ(fcntl(fd, F_GETFD), -1) << "the device is closed";
    // A second teardown has nothing left to do.
    EXPECT_EQ(ft::input::monitor_stop(g_monitor), 0);
}

// Quit right after start-up: the signal must never find the thread without
// its handler, whose default action would end the whole process.
TEST_F(Monitor, StartAndStopAtOnceManyTimes) {
    ASSERT_EQ(ft::input::monitor_stop(g_monitor), 0);
    for (int i = 0; i < 200; ++i) {
        int ends[2];
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends), 0);
        g_stop = 0;
        ASSERT_EQ(ft::input::monitor_launch(g_monitor, ft::UniqueFd(ends[1]), entry), 0);
        ASSERT_EQ(ft::input::monitor_stop(g_monitor), 0);
        close(ends[0]);
    }
}

TEST_F(Monitor, ReportingSwitch) {
    std::atomic<bool> reporting{false};
    std::atomic<bool> first{false};
    testing::internal::CaptureStdout();
    for (const char* bad : {"", "2", "01", "x", "-1", "1 ", "10"})
        EXPECT_EQ(ft::input::monitor_switch(g_monitor, bad, reporting, first, "thing"), -1) << bad;
    EXPECT_EQ(ft::input::monitor_switch(g_monitor, nullptr, reporting, first, "thing"), -1);
    EXPECT_FALSE(reporting.load());
    EXPECT_FALSE(first.load());
    EXPECT_EQ(ft::input::monitor_switch(g_monitor, "1", reporting, first, "thing"), 0);
    EXPECT_TRUE(reporting.load());
    EXPECT_TRUE(first.load());
    first.store(false);
    EXPECT_EQ(ft::input::monitor_switch(g_monitor, "1", reporting, first, "thing"), 0);
    EXPECT_TRUE(first.load()) << "a repeated start arms the line feed again";
    EXPECT_EQ(ft::input::monitor_switch(g_monitor, "0", reporting, first, "thing"), 0);
    EXPECT_FALSE(reporting.load());
    ASSERT_EQ(ft::input::monitor_stop(g_monitor), 0);
    EXPECT_EQ(ft::input::monitor_switch(g_monitor, "1", reporting, first, "thing"), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Incorrect parameter\nIncorrect parameter\nIncorrect parameter\nIncorrect parameter\n"
              "Incorrect parameter\nIncorrect parameter\nIncorrect parameter\nnull\n"
              "Start thing test\nStart thing test\nStop thing test\ncommand: not open\n");
}

// Entries that are not devices of the wanted name: each is passed over with
// its message (or none), in whatever order the directory lists them.
TEST(MonitorSearch, ReportsWhatItCannotUseAndFindsNothing) {
    const fs::path dir = fs::temp_directory_path() / ("input-search-" + std::to_string(getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir);
    for (const char* plain : {"mice", "eventX", "event3"}) std::fclose(std::fopen((dir / plain).c_str(), "w"));
    fs::create_symlink(dir / "gone", dir / "event9");
    testing::internal::CaptureStdout();
    EXPECT_EQ(ft::input::monitor_start(g_monitor, "keys", entry, dir.c_str()), -1);
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(g_monitor.fd.load(), -1);
    const std::string opened = "open " + (dir / "event9").string() + "\n";
    // A plain file has no name to give.
    const std::string expected_a = opened + "no name\nnot found\n";
    const std::string expected_b = "no name\n" + opened + "not found\n";
    EXPECT_TRUE(out == expected_a || out == expected_b) << out;
    fs::remove_all(dir);
}

}  // namespace
