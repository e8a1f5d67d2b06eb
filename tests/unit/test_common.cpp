// The helpers every area shares: word conversion, handle owners, and the
// quoting of values for a command line, judged by a real sh.
#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "common/quote.h"
#include "common/unique_handle.h"
#include "common/words.h"

namespace {

TEST(Words, NumbersAreReadAsAtoiReadsThem) {
    EXPECT_EQ(ft::word_to_int("42"), 42);
    EXPECT_EQ(ft::word_to_int("  -7xyz"), -7);
    EXPECT_EQ(ft::word_to_int("\t\n\v\f\r 12"), 12);  // every blank atoi skips
    EXPECT_EQ(ft::word_to_int("-\t1"), 0);
    EXPECT_EQ(ft::word_to_int("+3"), 3);
    EXPECT_EQ(ft::word_to_int("abc"), 0);
    EXPECT_EQ(ft::word_to_int(""), 0);
    EXPECT_EQ(ft::word_to_int("0x10"), 0);
    // Where atoi would be undefined, we saturate.
    EXPECT_EQ(ft::word_to_int("99999999999999999999"), INT_MAX);
    EXPECT_EQ(ft::word_to_int("-99999999999999999999"), INT_MIN);
}

TEST(Words, ExactWordChecksAcceptNoVariants) {
    EXPECT_TRUE(ft::word_is_one_of("0", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("00", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("1 ", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("AlL", {"all"}));
}

// A handler that gives up reports the errno of the call that failed, after
// its handles are gone: their close must not overwrite it.
TEST(Handles, ClosingKeepsTheErrnoOfTheFailureBeforeIt) {
    {
        // The buffered byte only meets the full device when the close flushes it.
        ft::UniqueFile full(std::fopen("/dev/full", "w"));
        ASSERT_TRUE(full.valid());
        std::fputc('x', full.get());
        errno = ENOENT;
    }
    EXPECT_EQ(errno, ENOENT);
    {
        ft::UniqueMapping unaligned(reinterpret_cast<void*>(1), 4096);  // munmap refuses it
        errno = EACCES;
    }
    EXPECT_EQ(errno, EACCES);
}

// What sh makes of the command line "set -- PLACED", PLACED being the value
// put in its place: the number of arguments, '|', then the first argument.
// It runs in an empty folder with an empty PATH, so that a value taken as
// syntax could at worst make a file there, which the test then sees.
class Shell : public ::testing::Test {
protected:
    void SetUp() override {
        std::string tmpl = (std::filesystem::temp_directory_path() / "ft-quote-XXXXXX").string();
        ASSERT_NE(mkdtemp(tmpl.data()), nullptr);
        dir_ = tmpl;
    }
    void TearDown() override {
        EXPECT_TRUE(std::filesystem::is_empty(dir_)) << "a value ran as shell syntax";
        std::filesystem::remove_all(dir_);
    }

    std::string sh(const std::string& placed) {
        const std::string line = "set -- " + placed + "; printf '%s|' \"$#\"; printf '%s' \"$1\"";
        int out[2];
        if (pipe(out) != 0) return "pipe failed";
        const pid_t child = fork();
        if (child == 0) {
            dup2(out[1], 1);
            close(out[0]);
            close(out[1]);
            char empty_path[] = "PATH=";
            char* env[] = {empty_path, nullptr};
            if (chdir(dir_.c_str()) == 0) execle("/bin/sh", "sh", "-c", line.c_str(), nullptr, env);
            _exit(127);
        }
        close(out[1]);
        std::string got;
        char buf[4096];
        for (ssize_t n; (n = read(out[0], buf, sizeof buf)) > 0;) got.append(buf, static_cast<std::size_t>(n));
        close(out[0]);
        int status = 0;
        waitpid(child, &status, 0);
        return got;
    }
    // The value bare (%s) and inside the quotes a format has ("...%s...").
    std::string bare(const std::string& v) { return sh(ft::Quoted(v).c_str()); }
    std::string quoted(const std::string& v) {
        return sh("\"" + std::string(ft::Quoted(v, ft::QuotePlace::DoubleQuoted).c_str()) + "\"");
    }

    std::filesystem::path dir_;
};

TEST_F(Shell, EveryCharacterComesBackAsOneLiteralArgument) {
    std::string all;
    for (int c = 1; c < 128; ++c) {
        const std::string value = std::string("a") + static_cast<char>(c) + "b";
        EXPECT_EQ(bare(value), "1|" + value) << "character " << c << " bare";
        EXPECT_EQ(quoted(value), "1|" + value) << "character " << c << " inside quotes";
        all += static_cast<char>(c);
    }
    EXPECT_EQ(bare(all), "1|" + all);
    EXPECT_EQ(quoted(all), "1|" + all);
    EXPECT_EQ(bare("$(touch ran)'`touch ran`'"), "1|$(touch ran)'`touch ran`'");
    EXPECT_EQ(quoted("\\\"; touch ran; \""), "1|\\\"; touch ran; \"");
}

TEST_F(Shell, PlainValuesAreLeftAsTheyAre) {
    const std::string plain = "AZaz09_@%+=:,./-";
    EXPECT_STREQ(ft::Quoted(plain).c_str(), plain.c_str());
    EXPECT_STREQ(ft::Quoted(plain, ft::QuotePlace::DoubleQuoted).c_str(), plain.c_str());
    // Empty stays empty: no argument bare, an empty one inside quotes.
    EXPECT_STREQ(ft::Quoted("").c_str(), "");
    EXPECT_EQ(bare(""), "0|");
    EXPECT_EQ(quoted(""), "1|");
}

TEST_F(Shell, TheLongestValueFitsAndOneMoreBecomesEmpty) {
    // Quotes make the longest forms in both places.
    const std::string longest(ft::kMaxQuotedValue, '\''), longest_dq(ft::kMaxQuotedValue, '"');
    EXPECT_TRUE(ft::Quoted(longest).fits());
    EXPECT_EQ(bare(longest), "1|" + longest);
    EXPECT_EQ(quoted(longest_dq), "1|" + longest_dq);

    const std::string over = longest + "'";
    EXPECT_FALSE(ft::Quoted(over).fits());
    EXPECT_FALSE(ft::Quoted(over, ft::QuotePlace::DoubleQuoted).fits());
    EXPECT_EQ(bare(over), "1|");
    EXPECT_EQ(quoted(longest_dq + "\""), "1|");
}

}  // namespace
