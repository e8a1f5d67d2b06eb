#pragma once
// USB tests, as the shell calls them.
#include "common/handler.h"

FT_NOT_BUILT_YET int usblist();
FT_NOT_BUILT_YET int usbrw();
FT_NOT_BUILT_YET int usb_cmd(const char* action, const char* value);
