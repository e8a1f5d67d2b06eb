#pragma once
// Bluetooth tests, as the shell calls them; btTestDestroy is part of quit.

int btTestInit();
int btEnable();
int btDisable();
int btGetMacAddr(char* buffer);
int btScan();
int btCap();
int btTestDestroy();
