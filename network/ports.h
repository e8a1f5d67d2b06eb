#pragma once
// Ethernet ports, IP address, ping and LEDs, as the shell calls them.
#include "common/handler.h"

FT_NOT_BUILT_YET int setport(const char* port, const char* mode);
FT_NOT_BUILT_YET int ethled(const char* mode);
FT_NOT_BUILT_YET int eth(const char* port, const char* mode);
FT_NOT_BUILT_YET int ip(const char* action, const char* address);
FT_NOT_BUILT_YET int ping(const char* address);
FT_NOT_BUILT_YET int ledTest(const char* pattern);
