#pragma once
// Bluetooth tests, as the shell calls them; btTestDestroy is part of quit.
#include "common/handler.h"

FT_NOT_BUILT_YET int btTestInit();
FT_NOT_BUILT_YET int btEnable();
FT_NOT_BUILT_YET int btDisable();
FT_NOT_BUILT_YET int btGetMacAddr(char* buffer);
FT_NOT_BUILT_YET int btScan();
FT_NOT_BUILT_YET int btCap();
FT_NOT_BUILT_YET int btTestDestroy();
