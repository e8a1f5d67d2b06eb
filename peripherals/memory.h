#pragma once
// Flash and SDRAM tests, as the shell calls them.

int flash();
int sdram(const char* type);
