#pragma once
// LCD test patterns, digits and the backlight, as the shell calls them.
int initialize_lcd();
int lcd_fill(const char* color);
int lcd_crosshair();
int lcd_invertgrid(const char* color);
int lcd_half_filled();
int lcd_fl(const char* bars, const char* color1, const char* color2);
int lcd_digit(const char* color, const char* digit);
int backlight(const char* word);
int rawbacklight(const char* word);
