// The shell's two ends of standard input and output: plain lines read from a
// station's pipe, and background reports that must start lines of their own.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "common/console.h"
#include "common/unique_handle.h"
#include "shell/console.h"

namespace {

using ft::Input;

// A file holding @p text, open for reading from its start.
ft::UniqueFd input_of(const std::string& text) {
    ft::UniqueFd fd(memfd_create("input", MFD_CLOEXEC));
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = write(fd.get(), text.data() + done, text.size() - done);
        if (n <= 0) return {};
        done += static_cast<std::size_t>(n);
    }
    lseek(fd.get(), 0, SEEK_SET);
    return fd;
}

struct Read {
    Input got;
    std::string line;
};

// Reads every line of @p text; what was echoed lands in @p echoed.
std::vector<Read> read_all(const std::string& text, std::string& echoed) {
    ft::UniqueFd in = input_of(text);
    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* echo = open_memstream(&buffer, &size);
    std::vector<Read> reads;
    {
        ft::PlainLines lines(in.get(), echo);
        for (;;) {
            ft::LineBuffer line;
            line.fill('x');
            const Input got = lines.next(line);
            reads.push_back({got, got == Input::End ? "" : line.data()});
            if (got == Input::End) break;
        }
    }
    std::fclose(echo);
    echoed.assign(buffer, size);
    std::free(buffer);
    return reads;
}

TEST(PlainLines, LimitsNulAndAnUnfinishedLastLine) {
    const std::string longest(255, 'a');
    const std::string too_long(256, 'b');
    std::string echoed;
    const std::vector<Read> reads =
        read_all(longest + "\n" + too_long + "\nnext\n" + std::string("x\0y\nlast", 8), echoed);
    ASSERT_EQ(reads.size(), 6u);
    EXPECT_EQ(reads[0].got, Input::Line);
    EXPECT_EQ(reads[0].line, longest);
    EXPECT_EQ(reads[1].got, Input::TooLong);
    EXPECT_EQ(reads[1].line, "") << "nothing of a refused line is kept";
    EXPECT_EQ(reads[2].line, "next");
    EXPECT_EQ(reads[3].got, Input::HasNul);
    EXPECT_EQ(reads[4].got, Input::Line) << "a last line without its line feed still runs";
    EXPECT_EQ(reads[4].line, "last");
    EXPECT_EQ(reads[5].got, Input::End);
    EXPECT_EQ(echoed, "ft>" + longest + "\nft>" + too_long + "\nft>next\nft>x" + std::string(1, '\0') +
                          "y\nft>last\nft>");
    EXPECT_STREQ(ft::input_refusal(Input::TooLong), "Line too long: at most 255 characters. Nothing was run.");
    EXPECT_STREQ(ft::input_refusal(Input::HasNul), "NUL character in the line. Nothing was run.");
}

// Lines of every length, crossing the reader's chunks at every offset.
TEST(PlainLines, LinesAcrossReadsComeOutWhole) {
    std::string text;
    std::vector<std::string> sent;
    for (std::size_t n = 0; n < 300; ++n) {
        sent.push_back(std::string(n, static_cast<char>('a' + n % 26)));
        text += sent.back() + "\n";
    }
    std::string echoed;
    const std::vector<Read> reads = read_all(text, echoed);
    ASSERT_EQ(reads.size(), sent.size() + 1);
    for (std::size_t i = 0; i < sent.size(); ++i) {
        EXPECT_EQ(reads[i].got, i < 256 ? Input::Line : Input::TooLong) << i;
        if (i < 256) {
            EXPECT_EQ(reads[i].line, sent[i]) << i;
        }
    }
    EXPECT_EQ(echoed.size(), text.size() + 3 * (sent.size() + 1));
}

TEST(PlainLines, AHugeLineIsRefusedAndTheNextOneRuns) {
    const std::string huge(10 * 1024 * 1024, 'z');
    std::string echoed;
    const std::vector<Read> reads = read_all(huge + "\nproduction\n", echoed);
    ASSERT_EQ(reads.size(), 3u);
    EXPECT_EQ(reads[0].got, Input::TooLong);
    EXPECT_EQ(reads[1].line, "production");
    EXPECT_EQ(echoed, "ft>" + huge + "\nft>production\nft>");
}

// Standard output goes to a pipe for one test; what the test printed is read
// back whole when it ends.
class Stdout : public testing::Test {
protected:
    void SetUp() override {
        static const bool watched = (ft::console::watch_stdout(), true);
        static_cast<void>(watched);
        std::fflush(stdout);
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        fcntl(ends[1], F_SETPIPE_SZ, 1 << 20);
        read_end_.reset(ends[0]);
        saved_.reset(dup(STDOUT_FILENO));
        dup2(ends[1], STDOUT_FILENO);
        close(ends[1]);
    }
    void TearDown() override { restore(); }

    std::string printed() {
        restore();
        std::string text;
        std::array<char, 65536> chunk;
        ssize_t n = 0;
        while ((n = read(read_end_.get(), chunk.data(), chunk.size())) > 0) text.append(chunk.data(), n);
        return text;
    }

private:
    void restore() {
        if (!saved_.valid()) return;
        std::fflush(stdout);
        dup2(saved_.get(), STDOUT_FILENO);
        saved_.reset();
    }
    ft::UniqueFd read_end_, saved_;
};

TEST_F(Stdout, AReportEndsAnOpenLineFirst) {
    std::fputs("ft>", stdout);  // a prompt: no line feed, left in the buffer
    ft::async_print("KeyCode[0002] value[1]\n");
    ft::async_print("KeyCode[0002] value[0]\n");  // the line is closed now
    std::fputs("ft>", stdout);
    ft::async_print("\nKeyCode[0003] value[1]\n");  // a first report brings its own
    std::fputs("Start keypad test\n", stdout);
    ft::async_printf("%s %d\n", "formatted", 7);
    EXPECT_EQ(printed(),
              "ft>\nKeyCode[0002] value[1]\nKeyCode[0002] value[0]\n"
              "ft>\nKeyCode[0003] value[1]\nStart keypad test\nformatted 7\n");
}

TEST_F(Stdout, ALongReportIsCutAndStillEndsItsLine) {
    const std::string fits(ft::kAsyncTextMax - 1, 'a');
    ft::async_print(fits + "\n");
    ft::async_printf("%s\n", std::string(ft::kAsyncTextMax, 'b').c_str());
    ft::async_print(std::string(ft::kAsyncTextMax + 1, 'c'));
    std::fputs("after\n", stdout);
    const std::string cut_b = std::string(ft::kAsyncTextMax - 1, 'b') + "\n";
    const std::string cut_c = std::string(ft::kAsyncTextMax - 1, 'c') + "\n";
    EXPECT_EQ(printed(), fits + "\n" + cut_b + cut_c + "after\n");
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
    static std::string shown;
    shown.clear();
    ft::console::show_waiting([](std::string_view text) { shown += text; });
    EXPECT_EQ(shown, "one\n\ntwo\n");
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
    constexpr int kThreads = 4;
    constexpr int kLines = 2000;
    const int wake = ft::console::hold();
    ASSERT_GE(wake, 0);
    std::atomic<int> finished{0};
    std::vector<std::thread> reporters;
    for (int t = 0; t < kThreads; ++t)
        reporters.emplace_back([t, &finished] {
            for (int i = 0; i < kLines; ++i)
                ft::async_printf("reporter %d line %04d %s\n", t, i, std::string(40, 'x').c_str());
            ++finished;
        });
    static std::string shown;
    shown.clear();
    while (finished.load() < kThreads) {
        pollfd p{wake, POLLIN, 0};
        poll(&p, 1, 10);
        ft::console::show_waiting([](std::string_view text) { shown += text; });
    }
    for (std::thread& r : reporters) r.join();
    ft::console::show_waiting([](std::string_view text) { shown += text; });
    ft::console::release();
    EXPECT_EQ(printed(), "");

    std::array<int, kThreads> next{};
    const std::string tail = " " + std::string(40, 'x');
    std::size_t start = 0;
    int count = 0;
    while (start < shown.size()) {
        const std::size_t end = shown.find('\n', start);
        ASSERT_NE(end, std::string::npos);
        const std::string l = shown.substr(start, end - start);
        int t = -1, i = -1, used = 0;
        ASSERT_EQ(std::sscanf(l.c_str(), "reporter %d line %d%n", &t, &i, &used), 2) << l;
        ASSERT_TRUE(t >= 0 && t < kThreads) << l;
        EXPECT_EQ(l.substr(static_cast<std::size_t>(used)), tail) << "whole: " << l;
        EXPECT_EQ(i, next[t]++) << "in order, none lost";
        ++count;
        start = end + 1;
    }
    EXPECT_EQ(count, kThreads * kLines);
}

}  // namespace
