// The shell's word splitter and the joiner of quoted values.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/line.h"

using ft::CommandLine;
using ft::SplitResult;
using V = std::vector<std::string>;

namespace {

// Each call splits into the table the last one left.
V split(const std::string& text, SplitResult want = SplitResult::Ok) {
    static CommandLine cl;
    EXPECT_EQ(ft::split_line(text.c_str(), cl), want) << text;
    V w;
    for (int i = 0; i < cl.count; ++i) w.emplace_back(cl.word(static_cast<std::size_t>(i)));
    EXPECT_STREQ(cl.word(0), w.empty() ? "" : w[0].c_str()) << "a refused line leaves no word behind";
    return w;
}

// The value of "program write SN_UNIT " + @p words; "!" when it is refused.
std::string joined(const std::string& words) {
    CommandLine cl;
    EXPECT_EQ(ft::split_line(("program write SN_UNIT " + words).c_str(), cl), SplitResult::Ok);
    std::array<char, ft::kQuotedSize> value;
    value.fill('x');
    return ft::join_quoted_value(cl, value) ? value.data() : value[0] == '\0' ? "!" : "not emptied";
}

}  // namespace

TEST(Splitter, BlanksSeparateAndLeadingFtWordsAreDropped) {
    EXPECT_EQ(split("  ft   ft info  "), V{"info"});
    EXPECT_EQ(split("info ft"), (V{"info", "ft"}));  // only leading ones
    EXPECT_EQ(split("FT info"), (V{"FT", "info"}));  // case matters
    EXPECT_EQ(split("ft\tinfo"), V{"ft\tinfo"});     // a tab is part of a word
    EXPECT_EQ(split("ftx info"), (V{"ftx", "info"}));
    EXPECT_EQ(split("ft ft"), V{});
    CommandLine cl;
    ASSERT_EQ(ft::split_line("lcd fill", cl), SplitResult::Ok);
    for (std::size_t i = 2; i < ft::kMaxWords + 3; ++i) ASSERT_STREQ(cl.word(i), "") << "untyped words are empty texts";
}

// Exactly at each limit is accepted; one past it is refused and keeps nothing.
TEST(Splitter, RefusesWhatDoesNotFitAndKeepsNothing) {
    std::string twenty;
    for (int i = 0; i < 20; ++i) twenty += "w ";
    EXPECT_EQ(split(twenty).size(), 20u);
    EXPECT_EQ(split("ft ft " + twenty).size(), 20u) << "dropped words do not count";
    const std::string line255 = std::string(99, 'a') + " " + std::string(99, 'b') + " " + std::string(55, 'c');
    EXPECT_EQ(split(line255), (V{std::string(99, 'a'), std::string(99, 'b'), std::string(55, 'c')}));
    EXPECT_EQ(split(line255 + "c", SplitResult::LineTooLong), V{});
    EXPECT_EQ(split(twenty + "w", SplitResult::TooManyWords), V{});
    EXPECT_EQ(split("info " + std::string(100, 'a'), SplitResult::WordTooLong), V{});
}

TEST(Joiner, QuotedValues) {
    EXPECT_EQ(joined("plain"), "plain");
    EXPECT_EQ(joined("\"A  B\""), "A B");               // the splitter merged the blanks
    EXPECT_EQ(joined("\"AB"), "AB ");                   // a lone quote runs to the end
    EXPECT_EQ(joined("\"x\" y \"z\"tail w"), "x\" y \"z");  // from the first quote to the last
    EXPECT_EQ(joined("\"\""), "");
    EXPECT_EQ(joined("x\"y\""), "x\"y\"");  // only a leading quote starts joining
    EXPECT_EQ(joined(""), "");
    // Words 3 to 19: the last word a line can have still counts.
    EXPECT_EQ(joined("\"a b c d e f g h i j k l m n o p q\""), "a b c d e f g h i j k l m n o p q");
    // 99 characters between the quotes fit; one more, or many full words, do not.
    EXPECT_EQ(joined("\"" + std::string(60, 'a') + " " + std::string(38, 'b') + "\""),
              std::string(60, 'a') + " " + std::string(38, 'b'));
    EXPECT_EQ(joined("\"" + std::string(60, 'a') + " " + std::string(39, 'b') + "\""), "!");
    EXPECT_EQ(joined("\"" + std::string(98, 'c') + " " + std::string(98, 'c') + " "), "!");
}
