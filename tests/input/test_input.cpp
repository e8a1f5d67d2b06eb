// The event monitor's teardown, and the jack's reading of what the library says.
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "input/event_monitor.h"
#include "input/jack_events.h"

namespace {

using ft::input::Record;

Record rec(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    Record r{};
    r.type = type, r.code = code, r.value = value;
    return r;
}

constexpr ft::input::MonitorTexts kTexts{"open %s\n", "no name", "not found", "no thread", "thread: not open",
                                         "no handler", "short [%d] errno [%d]\n", "null", "command: not open",
                                         "kill failed", "join failed"};

volatile std::sig_atomic_t g_stop = 0;
void on_signal(int) { g_stop = 1; }
// Records are never sent: only the wait and its teardown matter here.
ft::input::Monitor g_monitor{kTexts, SIGUSR1, on_signal, g_stop, [](std::uint16_t) { return false; },
                             [](const Record&) {}};
void* entry(void*) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(ft::input::monitor_run(g_monitor))); }

int launch() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return -1;
    g_stop = 0;
    // As at start-up: every launch must install its handler in time.
    std::signal(SIGUSR1, SIG_DFL);
    if (ft::input::monitor_launch(g_monitor, ft::UniqueFd(ends[1]), entry) != 0) return -1;
    return ends[0];
}

// Right after start-up too: the signal must never meet its default action.
TEST(Monitor, TeardownEndsABlockedReadQuietlyAndClosesTheDevice) {
    testing::internal::CaptureStdout();
    for (int i = 0; i < 200; ++i) {
        const int feed = launch();
        ASSERT_GE(feed, 0);
        const int fd = g_monitor.fd.load();
        if (i == 0) usleep(100 * 1000);  // surely waiting in its read
        ASSERT_EQ(ft::input::monitor_stop(g_monitor), 0);
        ASSERT_EQ(fcntl(fd, F_GETFD), -1) << "the device is closed";
        ASSERT_EQ(ft::input::monitor_stop(g_monitor), 0) << "a second teardown has nothing to do";
        close(feed);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

int g_type = 0;
int query(int* type) { return *type = g_type, 0; }

// Any answer of the library but the two wiring standards must not index past the names.
TEST(Jack, TypesOtherThanTheTwoStandardsShowAsMic) {
    for (int type : {5, -1}) {
        g_type = type;
        ft::input::JackState state;
        ft::input::JackLine line;
        for (const Record& r : {rec(EV_SW, SW_MICROPHONE_INSERT, 1), rec(EV_SW, SW_JACK_PHYSICAL_INSERT, 1),
                                rec(EV_SYN, SYN_REPORT, 0)})
            ft::input::interpret_jack_record(state, r, true, false, query, line);
        EXPECT_STREQ(line.data(), "JACK = mic\n") << type;
    }
}

}  // namespace
