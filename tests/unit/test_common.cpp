// The helpers every area shares: words, handle owners, quoting judged by a real sh.
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <utility>

#include "common/quote.h"
#include "common/unique_handle.h"
#include "common/words.h"

namespace {

// As atoi reads them, except that where atoi would be undefined we saturate.
TEST(Words, NumbersAreReadAsAtoiReadsThem) {
    for (const auto& [word, value] : std::initializer_list<std::pair<const char*, int>>{
             {"42", 42}, {"  -7xyz", -7}, {"\t\n\v\f\r 12", 12}, {"-\t1", 0}, {"+3", 3}, {"abc", 0}, {"", 0},
             {"0x10", 0}, {"-99999999999999999999", INT_MIN}, {"99999999999999999999", INT_MAX}})
        EXPECT_EQ(ft::word_to_int(word), value) << word;
    EXPECT_EQ(ft::word_to_number("9223372036854775806"), LLONG_MAX - 1) << "the last value before saturation";
}

// A handler that gives up reports the errno of the call that failed, after
// its handles are gone: their close must not overwrite it.
TEST(Handles, ClosingKeepsTheErrnoOfTheFailureBeforeIt) {
    {
        ft::UniqueFile full(std::fopen("/dev/full", "w"));  // the byte meets the full device at the close
        std::fputc('x', full.get());
        ft::UniqueMapping unaligned(reinterpret_cast<void*>(1), 4096);  // munmap refuses it
        errno = ENOENT;
    }
    EXPECT_EQ(errno, ENOENT);
}

TEST(Quoting, EveryCharacterComesBackAsOneLiteralArgumentUpToTheLongestValue) {
    std::string dir = (std::filesystem::temp_directory_path() / "ft-quote-XXXXXX").string();
    ASSERT_NE(mkdtemp(dir.data()), nullptr);
    // What sh makes of "set -- PLACED": the number of arguments, '|', the first
    // one. In an empty folder with an empty PATH, a value taken as syntax could
    // at worst make a file there, which the test then sees.
    const auto sh = [&dir](const std::string& placed) {
        const std::string line =
            "cd " + dir + " && PATH= && set -- " + placed + "; printf '%s|' \"$#\"; printf '%s' \"$1\"";
        std::FILE* out = popen(line.c_str(), "r");
        std::string got;
        std::array<char, 4096> buf;
        for (std::size_t n; (n = std::fread(buf.data(), 1, buf.size(), out)) > 0;) got.append(buf.data(), n);
        pclose(out);
        return got;
    };
    // The value bare (%s) and inside the quotes a format has ("...%s...").
    const auto bare = [&sh](const std::string& v) { return sh(ft::Quoted(v).c_str()); };
    const auto quoted = [&sh](const std::string& v) {
        return sh("\"" + std::string(ft::Quoted(v, ft::QuotePlace::DoubleQuoted).c_str()) + "\"");
    };
    std::string all;
    for (int c = 1; c < 128; ++c) {
        const std::string value = std::string("a") + static_cast<char>(c) + "b";
        EXPECT_EQ(bare(value), "1|" + value) << "character " << c << " bare";
        EXPECT_EQ(quoted(value), "1|" + value) << "character " << c << " inside quotes";
        all += static_cast<char>(c);
    }
    EXPECT_EQ(bare(all), "1|" + all);
    EXPECT_EQ(quoted(all), "1|" + all);
    EXPECT_EQ(quoted("\\\"; touch ran; \""), "1|\\\"; touch ran; \"");
    // Plain values are left as they are; empty is no argument bare, an empty one inside quotes.
    const std::string plain = "AZaz09_@%+=:,./-";
    EXPECT_STREQ(ft::Quoted(plain).c_str(), plain.c_str());
    EXPECT_STREQ(ft::Quoted(plain, ft::QuotePlace::DoubleQuoted).c_str(), plain.c_str());
    EXPECT_EQ(bare(""), "0|");
    EXPECT_EQ(quoted(""), "1|");
    // Quotes make the longest forms in both places; one more is refused.
    const std::string longest(ft::kMaxQuotedValue, '\''), longest_dq(ft::kMaxQuotedValue, '"');
    EXPECT_TRUE(ft::Quoted(longest).fits());
    EXPECT_EQ(bare(longest), "1|" + longest);
    EXPECT_EQ(quoted(longest_dq), "1|" + longest_dq);
    EXPECT_FALSE(ft::Quoted(longest + "'").fits());
    EXPECT_FALSE(ft::Quoted(longest_dq + "\"", ft::QuotePlace::DoubleQuoted).fits());
    EXPECT_EQ(bare(longest + "'"), "1|");
    EXPECT_EQ(quoted(longest_dq + "\""), "1|");
    EXPECT_TRUE(std::filesystem::is_empty(dir)) << "a value ran as shell syntax";
    std::filesystem::remove_all(dir);
}

}  // namespace
