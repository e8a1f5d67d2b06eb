#pragma once
// Camera and cradle, as the shell calls them; cameraInit is part of start-up
// and cameraExit of quit.

int cameraInit();
int cameraExit();
int cameraAction(const char* action);
// Reports through its printed verdict only.
void cradleTest(const char* action);
