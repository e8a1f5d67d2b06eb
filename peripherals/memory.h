#pragma once
// Flash and SDRAM tests, as the shell calls them.
#include "common/handler.h"

FT_NOT_BUILT_YET int flash();
FT_NOT_BUILT_YET int sdram(const char* type);
