// The driver check reads /proc/modules in pieces of at most 17 characters and
// compares the start of each piece: what it finds depends on where the piece
// boundaries fall.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "common/unique_handle.h"
#include "network/wifi_driver.h"

namespace {

bool finds_driver(std::string text) {
    // fmemopen of an empty buffer is not portable: give it one byte it never reads.
    text.push_back('\0');
    const ft::UniqueFile f(fmemopen(text.data(), text.size() - 1, "r"));
    return f.valid() && ft::wifi::module_list_has_driver(f.get());
}

const std::string kBase = "evdev 28672 2 - Live 0x0000000000000000\nmlan 385024 1 sd8xxx, Live 0x0000000000000000\n";

TEST(WifiModules, OnlyALineStartingWithTheNameAndABlank) {
    EXPECT_TRUE(finds_driver(kBase + "sd8xxx 524288 0 - Live 0x0000000000000000\n"));
    EXPECT_TRUE(finds_driver("sd8xxx "));  // the seven characters alone, without a line feed
    for (const std::string& text : {std::string(), kBase, kBase + "sd8xxx\n", kBase + "sd8xxxx 1\n",
                                    kBase + " sd8xxx 1\n", kBase + "SD8XXX 1\n"})
        EXPECT_FALSE(finds_driver(text)) << text;
}

TEST(WifiModules, PiecesOfSeventeenCharacters) {
    // A line of 16 characters and its line feed is one piece; one of 17
    // leaves its line feed to a piece of its own. Either way the next line
    // starts a piece.
    EXPECT_TRUE(finds_driver(std::string(16, 'a') + "\nsd8xxx 1\n"));
    EXPECT_TRUE(finds_driver(std::string(17, 'a') + "\nsd8xxx 1\n"));
    // Inside a long line, pieces start at characters 17, 34 ...
    EXPECT_TRUE(finds_driver(std::string(17, 'a') + "sd8xxx 1\n"));
    EXPECT_TRUE(finds_driver(std::string(34, 'a') + "sd8xxx 1\n"));
    EXPECT_FALSE(finds_driver(std::string(16, 'a') + "sd8xxx 1\n"));
    EXPECT_FALSE(finds_driver(std::string(18, 'a') + "sd8xxx 1\n"));
}

}  // namespace
