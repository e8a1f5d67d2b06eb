#pragma once
// The background monitors of the keypad, the hook switches and the headset
// jack, as the shell starts, commands and stops them.

int keyTestInit();
int keyTest(const char* mode);
int keyTestDestroy();

int jackTestInit();
int jackTest(const char* mode);
int jackKeyTest(const char* mode);
int jackTestDestroy();

int hookswitchTestInit();
int hookswitchTest(const char* mode);
int hookswitchTestDestroy();

int ehsTestInit();
int ehsTest(const char* mode);
int ehsTestDestroy();
