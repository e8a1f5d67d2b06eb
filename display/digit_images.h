#pragma once
// The ten images of "lcd_digit": 100 x 100 pixels each, rows from the top,
// one word 0x00RRGGBB per pixel. White (0x00FFFFFF) background, a black glyph
// with grey edges inside columns 22-65 and rows 19-72. Generated at build time.
#include <cstdint>

extern const std::uint32_t image_arr_0[100 * 100];
extern const std::uint32_t image_arr_1[100 * 100];
extern const std::uint32_t image_arr_2[100 * 100];
extern const std::uint32_t image_arr_3[100 * 100];
extern const std::uint32_t image_arr_4[100 * 100];
extern const std::uint32_t image_arr_5[100 * 100];
extern const std::uint32_t image_arr_6[100 * 100];
extern const std::uint32_t image_arr_7[100 * 100];
extern const std::uint32_t image_arr_8[100 * 100];
extern const std::uint32_t image_arr_9[100 * 100];
