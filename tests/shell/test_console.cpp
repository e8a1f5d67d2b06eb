// The shell's two ends of standard input and output: plain lines read from a
// station's pipe, and background reports that must start lines of their own.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <poll.h>
#include <string>
#include <string_view>
#include <sstream>
#include <thread>
#include <vector>

#include "common/console.h"
#include "common/unique_handle.h"
#include "shell/console.h"

namespace {

using ft::Input;

// Lines of every length, crossing the reader's chunks at every offset; the
// limit's two sides; control bytes; and a station's CR LF.
TEST(PlainLines, EveryLineComesOutWholeOrIsRefusedWhole) {
    std::vector<std::string> sent;
    for (std::size_t n = 0; n < 300; ++n) sent.emplace_back(n, static_cast<char>('a' + n % 26));
    sent.emplace_back(9000, 'z');
    sent.emplace_back("x\0y", 3);
    sent.emplace_back("a\rb\x04\x10");
    std::string text, echo;
    for (const std::string& s : sent) text += s + "\n", echo += "ft>" + s + "\n";
    text += "\r\ncrlf\r\nlast";
    ft::UniqueFile in(std::tmpfile());
    ASSERT_EQ(std::fwrite(text.data(), 1, text.size(), in.get()), text.size());
    std::rewind(in.get());
    char* echoed = nullptr;
    std::size_t echoed_size = 0;
    std::FILE* echo_stream = open_memstream(&echoed, &echoed_size);
    std::vector<std::pair<Input, std::string>> reads;
    {
        ft::PlainLines lines(fileno(in.get()), echo_stream);
        do {
            ft::LineBuffer line;
            line.fill('x');
            const Input got = lines.next(line);
            reads.emplace_back(got, got == Input::End ? "" : line.data());
        } while (reads.back().first != Input::End);
    }
    std::fclose(echo_stream);
    EXPECT_EQ(std::string(echoed, echoed_size), echo + "ft>\nft>crlf\nft>last\nft>") << "the last line runs too";
    std::free(echoed);
    ASSERT_EQ(reads.size(), sent.size() + 4);
    for (std::size_t i = 0; i < sent.size(); ++i) {
        const Input want = sent[i].size() > 255 ? Input::TooLong : i == 301 ? Input::HasNul : Input::Line;
        EXPECT_EQ(reads[i], std::make_pair(want, std::string(want == Input::TooLong ? "" : sent[i].c_str()))) << i;
    }
    std::size_t n = sent.size();
    for (const char* l : {"", "crlf", "last"}) EXPECT_EQ(reads[n++], std::make_pair(Input::Line, std::string(l)));
}

// What the shell's line editor is shown while it holds the console.
std::string g_shown;
void show(std::string_view text) { g_shown += text; }

// Standard output, watched as the shell's is, captured for one test.
class Stdout : public testing::Test {
protected:
    static void SetUpTestSuite() { ft::console::watch_stdout(); }
    void SetUp() override { testing::internal::CaptureStdout(); }
    std::string printed() { return testing::internal::GetCapturedStdout(); }
};

TEST_F(Stdout, AReportEndsAnOpenLineFirstAndALongOneIsCut) {
    std::fputs("ft>", stdout);  // a prompt: no line feed, left in the buffer
    ft::async_print("KeyCode[0002] value[1]\n");
    ft::async_print("KeyCode[0002] value[0]\n");  // the line is closed now
    std::fputs("ft>", stdout);
    ft::async_print("\nKeyCode[0003] value[1]\n");  // a first report brings its own
    std::fputs("Start keypad test\n", stdout);
    const std::string fits(ft::kAsyncTextMax - 1, 'a');
    ft::async_print(fits + "\n");
    ft::async_printf("%s\n", std::string(ft::kAsyncTextMax, 'b').c_str());
    ft::async_print(std::string(ft::kAsyncTextMax + 1, 'c'));
    std::fputs("after\n", stdout);
    EXPECT_EQ(printed(), "ft>\nKeyCode[0002] value[1]\nKeyCode[0002] value[0]\nft>\nKeyCode[0003] value[1]\n"
                         "Start keypad test\n" +
                             fits + "\n" + std::string(ft::kAsyncTextMax - 1, 'b') + "\n" +
                             std::string(ft::kAsyncTextMax - 1, 'c') + "\nafter\n");
}

// While the shell's line editor holds the screen, reports wait and wake it;
// it shows them all, in order, and what comes after the hold prints at once.
TEST_F(Stdout, HeldReportsWaitForTheShell) {
    const int wake = ft::console::hold();
    ASSERT_GE(wake, 0);
    ft::async_print("one\n");
    ft::async_print("\ntwo\n");
    pollfd p{wake, POLLIN, 0};
    ASSERT_EQ(poll(&p, 1, 0), 1) << "the shell is woken";
    g_shown.clear();
    ft::console::show_waiting(show);
    EXPECT_EQ(g_shown, "one\n\ntwo\n");
    EXPECT_EQ(poll(&p, 1, 0), 0) << "the wake-up is used up";
    ft::console::show_waiting([](std::string_view) { FAIL() << "nothing waits"; });
    ft::async_print("three\n");
    ft::console::release();
    ft::async_print("four\n");
    EXPECT_EQ(printed(), "three\nfour\n") << "show_waiting's caller prints what it is shown";
}

// Reporters that outrun a busy shell wait for it: many threads, far more text
// than the waiting room holds, and not a line lost, cut or mixed.
TEST_F(Stdout, ReportersOutrunningTheShellLoseNothing) {
    constexpr int kThreads = 4, kLines = 2000;
    const int wake = ft::console::hold();
    std::atomic<int> finished{0};
    std::vector<std::thread> reporters;
    for (int t = 0; t < kThreads; ++t)
        reporters.emplace_back([t, &finished] {
            for (int i = 0; i < kLines; ++i)
                ft::async_printf("reporter %d line %04d %s\n", t, i, std::string(40, 'x').c_str());
            ++finished;
        });
    g_shown.clear();
    while (finished.load() < kThreads) {
        pollfd p{wake, POLLIN, 0};
        poll(&p, 1, 10);
        ft::console::show_waiting(show);
    }
    for (std::thread& r : reporters) r.join();
    ft::console::show_waiting(show);
    ft::console::release();
    EXPECT_EQ(printed(), "");

    std::array<int, kThreads> next{};
    std::istringstream lines(g_shown);
    int count = 0;
    for (std::string l; std::getline(lines, l); ++count) {
        const int t = l.size() > 9 ? l[9] - '0' : -1;
        ASSERT_TRUE(t >= 0 && t < kThreads) << l;
        std::array<char, 80> want{};
        std::snprintf(want.data(), want.size(), "reporter %d line %04d %s", t, next[t]++, std::string(40, 'x').c_str());
        ASSERT_EQ(l, want.data()) << "whole, in order, none lost";
    }
    EXPECT_EQ(count, kThreads * kLines);
}

}  // namespace
