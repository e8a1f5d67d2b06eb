// The typed words that the WiFi and FTP commands format into command lines,
// run through the system shell as those commands run them: each reaches the
// tool as exactly one argument, as typed, and nothing else runs.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "common/quote.h"
#include "common/unique_handle.h"

namespace {

struct PipeTraits {
    static FILE* invalid() noexcept { return nullptr; }
    static void close(FILE* f) noexcept { pclose(f); }
};

// What /bin/sh makes of the line: the count of arguments, then each argument
// between < and >.
std::string arguments_of(const std::string& words) {
    const std::string line = "set -- " + words + "; printf '%d' \"$#\"; printf '<%s>' \"$@\"";
    const ft::UniqueHandle<FILE*, PipeTraits> sh(popen(line.c_str(), "r"));
    if (!sh.valid()) return "popen failed";
    std::string out;
    std::array<char, 256> chunk{};
    std::size_t n = 0;
    while ((n = std::fread(chunk.data(), 1, chunk.size(), sh.get())) > 0) out.append(chunk.data(), n);
    return out;
}

// Words a station or an operator might type, and words meant to break out.
// Run on the host, so a word that escaped must do no harm: it only prints.
const char* const kWords[] = {
    "p;echo pwned", "it's", "$(echo pwned)", "`echo pwned`", "a\"b", "back\\slash", "$HOME", "*", "~root", "!1",
    "x|:&:", "x>/dev/null", "tab\there", "a b", "'", "''", "\\", "\"", "$", "a'b'c", "#comment", "{a,b}", "[ab]",
};

TEST(Quoting, PlainWordsStayAsTyped) {
    for (const char* w : {"ft", "factory-lab", "02:00:00:00:AA:01", "/data/f.bin", "user@lab", "a_b%c+d=e,f.g"})
        EXPECT_STREQ(ft::Quoted(w).c_str(), w);
    EXPECT_STREQ(ft::Quoted("").c_str(), "");
    EXPECT_STREQ(ft::Quoted("", ft::QuotePlace::DoubleQuoted).c_str(), "");
}

TEST(Quoting, EveryOtherWordIsOneLiteralArgumentInABarePlace) {
    for (const char* w : kWords) EXPECT_EQ(arguments_of(ft::Quoted(w).c_str()), "1<" + std::string(w) + ">") << w;
}

TEST(Quoting, EveryOtherWordIsOneLiteralArgumentInsideDoubleQuotes) {
    for (const char* w : kWords) {
        const std::string inside = "\"" + std::string(ft::Quoted(w, ft::QuotePlace::DoubleQuoted).c_str()) + "\"";
        EXPECT_EQ(arguments_of(inside), "1<" + std::string(w) + ">") << w;
    }
}

TEST(Quoting, AWordTooLongForAnyLineBecomesAnEmptyArgument) {
    const std::string longest(ft::kMaxQuotedValue, '\'');
    EXPECT_TRUE(ft::Quoted(longest).fits());
    EXPECT_EQ(arguments_of(ft::Quoted(longest).c_str()), "1<" + longest + ">");
    const std::string too_long(ft::kMaxQuotedValue + 1, '\'');
    EXPECT_FALSE(ft::Quoted(too_long).fits());
    EXPECT_EQ(arguments_of(ft::Quoted(too_long).c_str()), "1<>");
}

}  // namespace
