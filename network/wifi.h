#pragma once
// WiFi tests, as the shell calls them; wifi_exit(0) is also part of quit.
#include "common/handler.h"

FT_NOT_BUILT_YET int wifi_init(int verbose);
FT_NOT_BUILT_YET int wifi_exit(int verbose);
FT_NOT_BUILT_YET int wifi_mac_get();
FT_NOT_BUILT_YET int wifi_scan_network();
FT_NOT_BUILT_YET int wifi_cap();
FT_NOT_BUILT_YET int wifi_rf_cfg(const char* tx_path, const char* rx_path);
FT_NOT_BUILT_YET int wifi_rf_scan(const char* filter_type, const char* filter_value, const char* iterations,
                                  const char* mode);
