// The generated digit images, as the drawing code and the stations' eyes need them.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "display/digit_images.h"

TEST(DigitImages, GreyGlyphsOnWhiteThatDifferFromEachOther) {
    const std::array<const std::uint32_t*, 10> images{image_arr_0, image_arr_1, image_arr_2, image_arr_3, image_arr_4,
                                                      image_arr_5, image_arr_6, image_arr_7, image_arr_8, image_arr_9};
    for (int d = 0; d <= 9; ++d) {
        int odd = 0, black = 0;
        for (int i = 0; i < 100 * 100; ++i) {
            const std::uint32_t v = images[d][i], r = i / 100, c = i % 100;
            const bool in_box = c >= 22 && c <= 65 && r >= 19 && r <= 72;
            odd += v != (v & 0xFF) * 0x010101 || (!in_box && v != 0xFFFFFF);
            black += v == 0;
        }
        EXPECT_EQ(odd, 0) << d << ": only greys, and white outside the glyph box";
        EXPECT_GT(black, 300) << d << ": a solid stroke, not a hairline";
        for (int e = 0; e < d; ++e) {
            int differing = 0;
            for (int i = 0; i < 100 * 100; ++i) differing += images[d][i] != images[e][i];
            EXPECT_GT(differing, 100) << d << " and " << e;
        }
    }
}
