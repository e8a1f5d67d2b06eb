// LCD test patterns and the backlight commands, and the panel's start-up.
// A station judges the panel by eye; the verdict printed here only says
// whether every drawing step went through.
#include "display/lcd.h"

#include <array>
#include <cstdint>
#include <cstdio>

#include "common/words.h"
#include "display/digit_images.h"
#include "display/drvFB.h"
#include "platform/velor.h"

namespace {

constexpr unsigned kBlack = 4;
constexpr unsigned kWhite = 5;
constexpr int kStartupBrightness = 20;

struct PaletteEntry {
    unsigned index;
    std::uint32_t rgb;
};
constexpr std::array<PaletteEntry, 6> kPalette{{
    {0, 0x000000},
    {1, 0xFF0000},  // Red
    {2, 0x00FF00},  // Green
    {3, 0x0000FF},  // Blue
    {kBlack, 0x000000},
    {kWhite, 0xFFFFFF},
}};

constexpr int kDigitSize = 100;
constexpr std::uint32_t kImageWhite = 0x00FFFFFF;
constexpr std::array<const std::uint32_t*, 10> kDigitImages{image_arr_0, image_arr_1, image_arr_2, image_arr_3,
                                                           image_arr_4, image_arr_5, image_arr_6, image_arr_7,
                                                           image_arr_8, image_arr_9};

bool is_colour(int c) { return c >= 1 && c <= 5; }

int verdict(int result) {
    std::puts(result == 0 ? "PASS" : "FAIL");
    return result;
}

// Library calls report failure as any non-zero value; the shell's verdicts
// only know 0 and -1.
int ok(int library_result) { return library_result == 0 ? 0 : -1; }

// The frame every whole-screen pattern shares: open, size, draw, close. The
// verdict is the OR of every step, so a failed step shows as FAIL even when
// the rest could still be drawn.
template <typename Draw>
int draw_pattern(Draw draw) {
    std::uint32_t w = 0, h = 0;
    int result = open_framebuffer();
    result |= get_framebuffer_resolution(&w, &h);
    result |= draw(static_cast<int>(w), static_cast<int>(h));
    result |= close_framebuffer();
    return verdict(result);
}

// Lines through the centre on a filled screen: the crosshair, and the grid
// before its frame.
int draw_cross(int w, int h, unsigned background, unsigned ink) {
    int r = fillrect(0, 0, w - 1, h - 1, background);
    r |= line(w / 2, 0, w / 2, h - 1, ink);
    r |= line(0, h / 2, w - 1, h / 2, ink);
    return r;
}

}  // namespace

int initialize_lcd() {
    int result = init_framebuffer();
    result |= open_framebuffer();
    // setcolor only stores while the framebuffer is open, hence the open and
    // close around it; the palette then lasts for the life of the process.
    for (const PaletteEntry& e : kPalette) result |= setcolor(e.index, e.rgb);
    result |= close_framebuffer();
    result |= ok(Backlight_Init());
    result |= ok(Backlight_SetRawBrightness(kStartupBrightness));
    return result;
}

int lcd_fill(const char* color) {
    const int c = ft::word_to_int(color);
    if (!is_colour(c)) {
        std::printf("FAIL Err invalid color=%d\n", c);
        return -1;
    }
    return draw_pattern(
        [c](int w, int h) { return fillrect(0, 0, w - 1, h - 1, static_cast<unsigned>(c)); });
}

int lcd_crosshair() {
    return draw_pattern([](int w, int h) { return draw_cross(w, h, kWhite, kBlack); });
}

int lcd_invertgrid(const char* color) {
    const int c = ft::word_to_int(color);
    if (!is_colour(c)) {
        std::printf("ft: Err color=%d is out of supported range.\n", c);
        return -1;
    }
    const unsigned fg = static_cast<unsigned>(c);
    const unsigned background = fg == kBlack ? kWhite : kBlack;
    return draw_pattern([fg, background](int w, int h) {
        const int r = draw_cross(w, h, background, fg);
        return r | rect(0, 0, w - 1, h - 1, fg);
    });
}

int lcd_half_filled() {
    return draw_pattern([](int w, int h) {
        int r = fillrect(0, 0, w / 2, h - 1, kBlack);
        r |= fillrect(w / 2 + 1, 0, w - 1, h - 1, kWhite);
        return r;
    });
}

int lcd_fl(const char* bars, const char* color1, const char* color2) {
    std::uint32_t w = 0, h = 0;
    int result = get_framebuffer_resolution(&w, &h);
    const int n = ft::word_to_int(bars);
    if (n < 1 || static_cast<long long>(n) > h) {
        std::printf("ft lcd_fl: Error incorrect number of bars, num_of_bars=%d.\n", n);
        return -1;
    }
    int c1 = static_cast<int>(kBlack), c2 = static_cast<int>(kWhite);
    if (color1[0] != '\0' && color2[0] != '\0') {
        c1 = ft::word_to_int(color1);
        c2 = ft::word_to_int(color2);
        if (!is_colour(c1) || !is_colour(c2)) {
            std::printf("ft lcd_fl: Error nColor1=%d, nColor2=%d are out of supported range.\n", c1, c2);
            return -1;
        }
    }
    result |= open_framebuffer();
    const std::uint64_t rows = h, count = static_cast<std::uint64_t>(n);
    for (std::uint64_t i = 0; i < count; ++i) {
        const int colour = i % 2 == 0 ? c1 : c2;
        // Integer division spreads the rows so bar heights differ by at most one.
        const auto top = static_cast<int>(rows * i / count);
        const auto bottom = static_cast<int>(rows * (i + 1) / count) - 1;
        result |= fillrect(0, top, static_cast<int>(w) - 1, bottom, static_cast<unsigned>(colour));
    }
    result |= close_framebuffer();
    return verdict(result);
}

int lcd_digit(const char* color, const char* digit) {
    const char letter = color[0];
    const int d = ft::word_to_int(digit);
    if (d < 0 || d > 9 || (d == 0 && digit[0] != '0')) return -1;
    if (letter != 'W' && letter != 'w' && letter != 'B' && letter != 'b') return -1;
    const bool white_digit = letter == 'W' || letter == 'w';
    const unsigned background = white_digit ? kBlack : kWhite;
    const unsigned ink = white_digit ? kWhite : kBlack;
    const std::uint32_t* image = kDigitImages[static_cast<std::size_t>(d)];
    return draw_pattern([=](int w, int h) {
        const int result = fillrect(0, 0, w - 1, h - 1, background);
        if (w >= kDigitSize && h >= kDigitSize) {
            const int left = w / 2 - kDigitSize / 2, top = h / 2 - kDigitSize / 2;
            // Pixel by pixel, one lock each: a single digit is 10,000 calls,
            // which the station never notices.
            for (int r = 0; r < kDigitSize; ++r)
                for (int c = 0; c < kDigitSize; ++c)
                    pixel(left + c, top + r, image[r * kDigitSize + c] == kImageWhite ? background : ink);
        }
        return result;
    });
}

int backlight(const char* word) {
    int result = -1;
    if (ft::word_is(word, "off")) {
        result = ok(BacklightOnOff(0));
    } else if (ft::word_is(word, "on")) {
        result = ok(BacklightOnOff(1));
    } else if (ft::word_is(word, "dimmest")) {
        result = ok(Backlight_SetRawBrightness(1));
    } else if (ft::word_is(word, "brightest")) {
        int max = 0;
        result = ok(Backlight_GetMaxBrightness(&max));
        if (result == 0) result = ok(Backlight_SetRawBrightness(max));
    } else {
        std::printf("backlight: unknown argument (%s)\n", word);
    }
    return verdict(result);
}

int rawbacklight(const char* word) {
    int max = 0;
    const bool max_known = Backlight_GetMaxBrightness(&max) == 0;
    if (max_known) std::printf("Valid brightness values are: [0 - %d]\n", max);
    const int level = ft::word_to_int(word);
    if ((level == 0 && word[0] != '0') || level < 0 || (max_known && level > max)) return verdict(-1);
    return verdict(ok(Backlight_SetRawBrightness(level)));
}
