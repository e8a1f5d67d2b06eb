#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/line.h"

using ft::CommandLine;
using ft::SplitResult;

namespace {

std::vector<std::string> words_of(const CommandLine& cl) {
    std::vector<std::string> w;
    for (int i = 0; i < cl.count; ++i) w.emplace_back(cl.word(static_cast<std::size_t>(i)));
    return w;
}

std::vector<std::string> split(const std::string& text) {
    CommandLine cl;
    EXPECT_EQ(ft::split_line(text.c_str(), cl), SplitResult::Ok) << text;
    return words_of(cl);
}

std::string joined(const std::string& text) {
    CommandLine cl;
    EXPECT_EQ(ft::split_line(text.c_str(), cl), SplitResult::Ok);
    std::array<char, ft::kQuotedSize> value{};
    EXPECT_TRUE(ft::join_quoted_value(cl, value));
    return value.data();
}

}  // namespace

TEST(Splitter, BlanksSeparateAndLeadingFtWordsAreDropped) {
    using V = std::vector<std::string>;
    EXPECT_EQ(split("info"), V{"info"});
    EXPECT_EQ(split("  ft   ft info  "), V{"info"});
    EXPECT_EQ(split("info ft"), (V{"info", "ft"}));        // only leading ones
    EXPECT_EQ(split("FT info"), (V{"FT", "info"}));        // case matters
    EXPECT_EQ(split("ft\tinfo"), V{"ft\tinfo"});           // a tab is part of a word
    EXPECT_EQ(split("ftx info"), (V{"ftx", "info"}));
    EXPECT_EQ(split("ft ft"), V{});
    EXPECT_EQ(split("     "), V{});
}

TEST(Splitter, UntypedWordsAreEmptyTextsNotNull) {
    CommandLine cl;
    ASSERT_EQ(ft::split_line("lcd fill", cl), SplitResult::Ok);
    for (std::size_t i = 2; i < ft::kMaxWords + 3; ++i) ASSERT_STREQ(cl.word(i), "");
}

TEST(Splitter, RefusesWhatDoesNotFitAndKeepsNothing) {
    CommandLine cl;
    // Exactly at the limits is accepted.
    std::string twenty;
    for (int i = 0; i < 20; ++i) twenty += "w ";
    EXPECT_EQ(ft::split_line(twenty.c_str(), cl), SplitResult::Ok);
    EXPECT_EQ(cl.count, 20);
    EXPECT_EQ(ft::split_line(("ft ft " + twenty).c_str(), cl), SplitResult::Ok);  // dropped words do not count
    const std::string word99(99, 'a');
    EXPECT_EQ(ft::split_line(("program write SN_UNIT " + word99).c_str(), cl), SplitResult::Ok);
    EXPECT_EQ(std::string(cl.word(3)), word99);
    const std::string line255 = std::string(99, 'a') + " " + std::string(99, 'b') + " " + std::string(55, 'c');
    EXPECT_EQ(ft::split_line(line255.c_str(), cl), SplitResult::Ok);
    EXPECT_EQ(cl.count, 3);

    // One past each limit is refused, and the table is left empty.
    EXPECT_EQ(ft::split_line((line255 + "c").c_str(), cl), SplitResult::LineTooLong);
    EXPECT_EQ(cl.count, 0);
    EXPECT_EQ(ft::split_line((twenty + "w").c_str(), cl), SplitResult::TooManyWords);
    EXPECT_EQ(cl.count, 0);
    EXPECT_STREQ(cl.word(0), "");
    EXPECT_EQ(ft::split_line(("info " + std::string(100, 'a')).c_str(), cl), SplitResult::WordTooLong);
    EXPECT_EQ(cl.count, 0);
    EXPECT_STREQ(cl.word(0), "");
}

TEST(Joiner, QuotedValues) {
    EXPECT_EQ(joined("program write SN_UNIT plain"), "plain");
    EXPECT_EQ(joined("program write SN_UNIT \"AB 12\""), "AB 12");
    EXPECT_EQ(joined("program write SN_UNIT \"A  B\""), "A B");          // the splitter merged the blanks
    EXPECT_EQ(joined("program write SN_UNIT \"AB"), "AB ");              // a lone quote runs to the end
    EXPECT_EQ(joined("program write SN_UNIT \"A B\"tail more"), "A B");  // text after the closing quote is dropped
    EXPECT_EQ(joined("program write SN_UNIT \"\""), "");
    EXPECT_EQ(joined("program write SN_UNIT x\"y\""), "x\"y\"");         // only a leading quote starts joining
    EXPECT_EQ(joined("program write SN_UNIT"), "");
    // Words 3 to 19: the last word a line can have still counts.
    EXPECT_EQ(joined("program write SN_UNIT \"a b c d e f g h i j k l m n o p q\""), "a b c d e f g h i j k l m n o p q");
}

TEST(Joiner, RefusesAValueOverNinetyNineCharacters) {
    CommandLine cl;
    std::array<char, ft::kQuotedSize> value{};
    const std::string fits = "program write SN_UNIT \"" + std::string(60, 'a') + " " + std::string(38, 'b') + "\"";
    ASSERT_EQ(ft::split_line(fits.c_str(), cl), SplitResult::Ok);
    EXPECT_TRUE(ft::join_quoted_value(cl, value));
    EXPECT_EQ(std::string(value.data()).size(), 99u);

    const std::string over = "program write SN_UNIT \"" + std::string(60, 'a') + " " + std::string(39, 'b') + "\"";
    ASSERT_EQ(ft::split_line(over.c_str(), cl), SplitResult::Ok);
    EXPECT_FALSE(ft::join_quoted_value(cl, value));
    EXPECT_STREQ(value.data(), "");

    // Many full-length words joined: far beyond the buffer, still refused cleanly.
    std::string many = "program write SN_UNIT \"";
    for (int i = 0; i < 2; ++i) many += std::string(98, 'c') + " ";
    ASSERT_EQ(ft::split_line(many.c_str(), cl), SplitResult::Ok);
    EXPECT_FALSE(ft::join_quoted_value(cl, value));
}
