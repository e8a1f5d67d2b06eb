#include <gtest/gtest.h>

#include <climits>

#include "common/words.h"

TEST(Words, NumbersAreReadAsAtoiReadsThem) {
    EXPECT_EQ(ft::word_to_int("42"), 42);
    EXPECT_EQ(ft::word_to_int("  -7xyz"), -7);
    EXPECT_EQ(ft::word_to_int("+3"), 3);
    EXPECT_EQ(ft::word_to_int("abc"), 0);
    EXPECT_EQ(ft::word_to_int(""), 0);
    EXPECT_EQ(ft::word_to_int("0x10"), 0);
    // Where atoi would be undefined, we saturate.
    EXPECT_EQ(ft::word_to_int("99999999999999999999"), INT_MAX);
    EXPECT_EQ(ft::word_to_int("-99999999999999999999"), INT_MIN);
}

TEST(Words, ARealZeroIsToldFromANonNumber) {
    EXPECT_TRUE(ft::word_has_number("0"));
    EXPECT_TRUE(ft::word_has_number(" -0"));
    EXPECT_FALSE(ft::word_has_number("x0"));
    EXPECT_FALSE(ft::word_has_number(""));
    EXPECT_FALSE(ft::word_has_number("-"));
}

TEST(Words, ExactWordChecksAcceptNoVariants) {
    EXPECT_TRUE(ft::word_is_one_of("0", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("00", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("1 ", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("", {"0", "1"}));
    EXPECT_FALSE(ft::word_is_one_of("AlL", {"all"}));
}
