#pragma once
// Camera and cradle, as the shell calls them; cameraInit is part of start-up
// and cameraExit of quit.
#include "common/handler.h"

FT_NOT_BUILT_YET int cameraInit();
FT_NOT_BUILT_YET int cameraExit();
FT_NOT_BUILT_YET int cameraAction(const char* action);
FT_NOT_BUILT_YET int cradleTest(const char* action);
