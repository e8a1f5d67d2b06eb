#pragma once
// The WiFi driver's kernel modules, as the WiFi tests load and unload them.
#include <cstdio>

// 1 when /proc/modules lists the driver, 0 when it does not or cannot be read.
int is_wifi_driver_loaded();
// 0 when the loader script ran (whatever it answered), -1 when it could not be started.
int wifi_load_driver();
// 0 when both modules are gone, -1 otherwise (after its lines).
int wifi_unload_driver();
// Removes one module, retrying while the kernel calls it busy: 0, or the failing call's result.
int rmmod(const char* module_name);

namespace ft::wifi {
// The module list read as the driver check reads it: pieces of at most 17
// characters, each compared on its first seven with "sd8xxx ". So a line
// is found by its beginning, and also wherever a piece boundary of a longer
// line falls on such a text.
bool module_list_has_driver(std::FILE* modules);
}  // namespace ft::wifi
