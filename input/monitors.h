#pragma once
// The background monitors of the keypad, the hook switches and the headset
// jack, as the shell starts, commands and stops them.

int keyTestInit();
int keyTrackThread();
int keyTest(const char* mode);
int keyTestDestroy();

int jackTestInit();
int jackTrackThread();
int jackTest(const char* mode);
int jackKeyTest(const char* mode);
int jackTestDestroy();

int hookswitchTestInit();
int hookswitchTrackThread();
int hookswitchTest(const char* mode);
int hookswitchTestDestroy();

int ehsTestInit();
int ehsTrackThread();
int ehsTest(const char* mode);
int ehsTestDestroy();
