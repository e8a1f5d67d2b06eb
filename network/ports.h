#pragma once
// Ethernet ports, IP address, ping and LEDs, as the shell calls them.

int setport(const char* port, const char* mode);
int ethled(const char* mode);
int eth(const char* port, const char* mode);
int ip(const char* action, const char* address);
int ping(const char* address);
int ledTest(const char* pattern);
