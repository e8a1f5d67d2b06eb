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
    EXPECT_TRUE(f.valid());
    return f.valid() && ft::wifi::module_list_has_driver(f.get());
}

const std::string kBase =
    "evdev 28672 2 - Live 0x0000000000000000\n"
    "snd_soc_core 253952 1 - Live 0x0000000000000000\n"
    "uvcvideo 106496 0 - Live 0x0000000000000000\n";
const std::string kMlan = "mlan 385024 1 - Live 0x0000000000000000\n";
const std::string kSd8xxx = "sd8xxx 524288 0 - Live 0x0000000000000000\n";

TEST(WifiModules, DriverLineIsFoundWhereverItStands) {
    EXPECT_TRUE(finds_driver(kSd8xxx));
    EXPECT_TRUE(finds_driver(kBase + kMlan + kSd8xxx));
    EXPECT_TRUE(finds_driver(kSd8xxx + kMlan + kBase));
    EXPECT_TRUE(finds_driver(kBase + "sd8xxx 1"));  // last line without a line feed
    EXPECT_TRUE(finds_driver("sd8xxx "));            // the seven characters alone
}

TEST(WifiModules, OnlyTheModuleNameAndItsBlankCount) {
    EXPECT_FALSE(finds_driver(""));
    EXPECT_FALSE(finds_driver(kBase + kMlan));  // mlan alone is not the driver
    EXPECT_FALSE(finds_driver(kBase + "sd8xxx"));
    EXPECT_FALSE(finds_driver(kBase + "sd8xxx\n"));
    EXPECT_FALSE(finds_driver(kBase + "sd8xxxx 1\n"));
    EXPECT_FALSE(finds_driver(kBase + "sd8xx 1\n"));
    EXPECT_FALSE(finds_driver(kBase + " sd8xxx 1\n"));
    EXPECT_FALSE(finds_driver(kBase + "SD8XXX 1\n"));
    EXPECT_FALSE(finds_driver("mlan 385024 1 sd8xxx, Live 0x0000000000000000\n"));
}

TEST(WifiModules, PiecesOfSeventeenCharactersStartLinesAfresh) {
    // A line of 16 characters and its line feed is one whole piece; one of
    // 17 leaves its line feed to a piece of its own; either way the next
    // line starts a piece.
    EXPECT_TRUE(finds_driver(std::string(16, 'a') + "\n" + kSd8xxx));
    EXPECT_TRUE(finds_driver(std::string(17, 'a') + "\n" + kSd8xxx));
    EXPECT_TRUE(finds_driver(std::string(18, 'a') + "\n" + kSd8xxx));
    EXPECT_TRUE(finds_driver(std::string(34, 'a') + "\n" + kSd8xxx));
}

TEST(WifiModules, InsideALongLineOnlyPieceStartsAreCompared) {
    // Pieces of a long line start at characters 17, 34, 51 ...
    EXPECT_TRUE(finds_driver(std::string(17, 'a') + "sd8xxx 1\n"));
    EXPECT_TRUE(finds_driver(std::string(34, 'a') + "sd8xxx 1\n"));
    EXPECT_FALSE(finds_driver(std::string(16, 'a') + "sd8xxx 1\n"));
    EXPECT_FALSE(finds_driver(std::string(18, 'a') + "sd8xxx 1\n"));
    EXPECT_FALSE(finds_driver(std::string(33, 'a') + "sd8xxx 1\n"));
    // The name cut by a piece boundary is not seen.
    EXPECT_FALSE(finds_driver(std::string(12, 'a') + "sd8xxx 1\n"));
}

}  // namespace
