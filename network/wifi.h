#pragma once
// WiFi tests, as the shell calls them; wifi_exit(0) is also part of quit.
int wifi_init(int verbose);
int wifi_exit(int verbose);
int wifi_mac_get();
int wifi_scan_network();
int wifi_cap();
int wifi_rf_cfg(const char* tx_path, const char* rx_path);
int wifi_rf_scan(const char* filter_type, const char* filter_value, const char* iterations, const char* mode);
