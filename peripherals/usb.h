#pragma once
// USB tests, as the shell calls them.

int usblist();
int usbrw();
int usb_cmd(const char* action, const char* value);
