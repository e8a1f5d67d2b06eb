// The generated digit images: the format the drawing code and the stations'
// eyes rely on.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>

#include "display/digit_images.h"

namespace {

constexpr std::array<const std::uint32_t*, 10> kImages{image_arr_0, image_arr_1, image_arr_2, image_arr_3,
                                                      image_arr_4, image_arr_5, image_arr_6, image_arr_7,
                                                      image_arr_8, image_arr_9};

TEST(DigitImages, GreyGlyphOnWhiteInsideTheGlyphBox) {
    std::set<std::uint32_t> greys;
    for (int d = 0; d <= 9; ++d) {
        SCOPED_TRACE(d);
        int black = 0, outside = 0, coloured = 0;
        for (int r = 0; r < 100; ++r) {
            for (int c = 0; c < 100; ++c) {
                const std::uint32_t v = kImages[static_cast<std::size_t>(d)][r * 100 + c];
                const std::uint32_t red = v >> 16 & 0xFF, green = v >> 8 & 0xFF, blue = v & 0xFF;
                if ((v >> 24) != 0 || red != green || green != blue) ++coloured;
                greys.insert(v);
                if (v == 0) ++black;
                const bool in_box = c >= 22 && c <= 65 && r >= 19 && r <= 72;
                if (!in_box && v != 0x00FFFFFF) ++outside;
            }
        }
        EXPECT_EQ(coloured, 0) << "only greys with a zero top byte";
        EXPECT_EQ(outside, 0) << "the background is pure white outside the glyph box";
        EXPECT_GT(black, 300) << "a solid stroke, not a hairline";
    }
    EXPECT_EQ(greys.size(), 16u) << "16 grey levels from black to white";
    EXPECT_TRUE(greys.count(0x00000000) && greys.count(0x00FFFFFF));
}

// Digits told apart by a station's eye must at least differ as pictures,
// and each glyph fills most of its box (roughly 40 by 50 pixels).
TEST(DigitImages, EachDigitIsItsOwnFullSizeGlyph) {
    for (int d = 0; d <= 9; ++d) {
        SCOPED_TRACE(d);
        int left = 100, right = -1, top = 100, bottom = -1;
        for (int r = 0; r < 100; ++r)
            for (int c = 0; c < 100; ++c)
                if (kImages[static_cast<std::size_t>(d)][r * 100 + c] != 0x00FFFFFF) {
                    left = std::min(left, c), right = std::max(right, c);
                    top = std::min(top, r), bottom = std::max(bottom, r);
                }
        EXPECT_GE(bottom - top + 1, 50);
        EXPECT_GE(right - left + 1, d == 1 ? 25 : 38);
        for (int e = 0; e < d; ++e) {
            int differing = 0;
            for (int i = 0; i < 100 * 100; ++i)
                differing += kImages[static_cast<std::size_t>(d)][i] != kImages[static_cast<std::size_t>(e)][i];
            EXPECT_GT(differing, 100) << "digit " << e;
        }
    }
}

}  // namespace
