// WiFi tests. The shell can bring WiFi up by itself (load the combo module's
// driver, raise wlan0) beside the phone's own WiFi service, which may load or
// unload the same driver meanwhile: so the driver's presence is always read
// from /proc/modules, and the started flag only says whether this shell
// brought WiFi up.
#include "network/wifi.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

#include "common/quote.h"
#include "common/run.h"
#include "common/unique_handle.h"
#include "common/words.h"
#include "network/wifi_driver.h"
#include "platform/velor.h"

namespace {

using namespace std::chrono_literals;

constexpr const char* kModules = "/proc/modules";
constexpr const char* kMacFile = "/sys/class/net/wlan0/address";

// Fail at once instead of waiting while the module is in use, and refuse
// when it is in use rather than forcing it out.
constexpr unsigned kRemoveFlags = O_NONBLOCK | O_EXCL;
static_assert(kRemoveFlags == 0x880, "the phone's kernel ABI values of O_NONBLOCK and O_EXCL");
constexpr int kRemoveAttempts = 10;
constexpr int kGoneChecks = 20;
constexpr auto kPause = 500ms;

constexpr const char* kStartFailed = "FAIL\nft: Err: failed to start WiFi service, retry.";
constexpr const char* kStopFailed = "FAIL\nft: Err: failed to stop WiFi service, retry.";

// Set while WiFi is up because this shell brought it up (or found the
// driver loaded when asked to); touched on the shell's thread only.
bool g_wifi_started = false;

// An antenna path word: exactly one of "1" (path A), "2" (path B), "3" (both).
bool is_antenna_path(const char* word) { return ft::word_is_one_of(word, {"1", "2", "3"}); }

bool given(const char* word) { return word[0] != '\0'; }

}  // namespace

namespace ft::wifi {

bool module_list_has_driver(std::FILE* modules) {
    std::array<char, 18> piece{};
    while (std::fgets(piece.data(), static_cast<int>(piece.size()), modules) != nullptr)
        if (std::strncmp(piece.data(), "sd8xxx ", 7) == 0) return true;
    return false;
}

}  // namespace ft::wifi

int is_wifi_driver_loaded() {
    const ft::UniqueFile modules(std::fopen(kModules, "r"));
    if (!modules.valid()) {
        std::printf("Could not open %s: %s\n", kModules, std::strerror(errno));
        return 0;
    }
    return ft::wifi::module_list_has_driver(modules.get()) ? 1 : 0;
}

int wifi_load_driver() {
    if (ft::run_command("/system/bin/load_wireless_driver.sh --type wifi") == -1) {
        std::puts("wifi_load_driver: failed");
        return -1;
    }
    return 0;
}

int rmmod(const char* module_name) {
    long result = -1;
    for (int attempt = 1; attempt <= kRemoveAttempts; ++attempt) {
        // glibc has no wrapper for delete_module.
        result = syscall(SYS_delete_module, module_name, kRemoveFlags);
        if (result == 0) return 0;
        if (errno != EAGAIN || attempt == kRemoveAttempts) break;
        std::this_thread::sleep_for(kPause);
    }
    std::printf("Unable to unload driver module \"%s\": %s\n", module_name, std::strerror(errno));
    return static_cast<int>(result);
}

int wifi_unload_driver() {
    // sd8xxx uses mlan, so it goes first.
    if (rmmod("sd8xxx") != 0 || rmmod("mlan") != 0) return -1;
    bool gone = false;
    for (int check = 0; check < kGoneChecks && !gone; ++check) {
        gone = is_wifi_driver_loaded() == 0;
        if (!gone) std::this_thread::sleep_for(kPause);
    }
    // The interface goes away a little after the module list says so.
    std::this_thread::sleep_for(kPause);
    return gone ? 0 : -1;
}

int wifi_init(int verbose) {
    if (g_wifi_started) {
        if (verbose) std::puts("ft: WiFi service is already running.");
        return 0;
    }
    // Loaded by the phone's own service: use it as it is.
    if (is_wifi_driver_loaded()) {
        g_wifi_started = true;
        return 0;
    }
    if (wifi_load_driver() != 0) {
        std::puts("ft: Err starting WiFi service");
        std::puts(kStartFailed);
        return -1;
    }
    if (ft::run_command("ip link set wlan0 up") == -1) {
        std::printf("ft: Err starting WiFi service errno = %d\n", errno);
        std::puts(kStartFailed);
        return -1;
    }
    std::puts("ft: WiFi started.");
    g_wifi_started = true;
    return 0;
}

int wifi_exit(int verbose) {
    if (!g_wifi_started) {
        if (!verbose) return 0;
        // Typed by the operator: a driver someone else loaded is taken down too.
        std::puts("ft: WiFi service is already stopped.");
    }
    if (!is_wifi_driver_loaded()) {
        g_wifi_started = false;
        return 0;
    }
    if (ft::run_command("ip link set wlan0 down") == -1) {
        std::printf("ft: Err stopping WiFi service errno = %d\n", errno);
        std::puts(kStopFailed);
        return -1;
    }
    if (wifi_unload_driver() != 0) {
        std::puts("ft: Err stopping WiFi service");
        std::puts(kStopFailed);
        return -1;
    }
    std::puts("ft: WiFi stopped.");
    g_wifi_started = false;
    return 0;
}

int wifi_mac_get() {
    if (wifi_init(0) != 0) return -1;
    struct stat st{};
    if (stat(kMacFile, &st) == 0) {
        std::puts("ft : MAC Address");
        if (ft::run_command("cat /sys/class/net/wlan0/address") != -1) return 0;
    }
    std::puts("FAIL\nft: Err getting WiFi MAC address ");
    return -1;
}

int wifi_scan_network() {
    if (wifi_init(0) != 0) return -1;
    std::puts("ft: Initiating wifi scan... ");
    // A driver just loaded needs a moment before it can scan.
    std::this_thread::sleep_for(1s);
    if (ft::run_command("iwlist wlan0 scan") == -1) {
        std::puts("FAIL\nft: Err scanning WiFi APs");
        return -1;
    }
    std::puts("ft: Done, check AP list above. ");
    return 0;
}

int wifi_cap() {
    int present = -1;
    const int result = Cap_WiFi(&present);
    std::puts(result == 0 && present == 1 ? "PASS" : "FAIL");
    return result;
}

int wifi_rf_cfg(const char* tx_path, const char* rx_path) {
    if (wifi_init(0) != 0) return -1;
    if (given(tx_path) && !is_antenna_path(tx_path)) {
        std::printf("ft wifi_rf cfg: Error TxPath=<%s> is out of supported range.\n", tx_path);
        return -1;
    }
    if (given(rx_path) && !is_antenna_path(rx_path)) {
        std::printf("ft wifi_rf cfg: Error RxPath=<%s> is out of supported range.\n", rx_path);
        return -1;
    }
    if (given(tx_path)) {
        // Without an RX path the tool gets the TX value alone and applies it to both.
        std::array<char, 32> line{};
        if (!ft::format_command(line, "mlanutl wlan0 antcfg %c %c", tx_path[0], given(rx_path) ? rx_path[0] : ' ') ||
            ft::run_command(line.data()) == -1) {
            std::puts("FAIL\nft: Err setting mode of Tx/Rx antenna");
            return -1;
        }
    }
    ft::run_command("mlanutl wlan0 antcfg");
    return 0;
}

int wifi_rf_scan(const char* filter_type, const char* filter_value, const char* iterations, const char* mode) {
    if (wifi_init(0) != 0) return -1;
    if (!given(filter_type) || !given(filter_value)) {
        std::puts("ft wifi_rf scan: Error - filter_type and filter_value are required.");
        return -1;
    }
    if (!ft::word_is_one_of(filter_type, {"ssid", "mac"})) {
        std::printf("ft wifi_rf scan: Error - incorrect filter_type '%s'.\n", filter_type);
        return -1;
    }
    int count = 1;
    if (given(iterations)) {
        count = ft::word_to_int(iterations);
        if (count <= 0) {
            std::printf("ft wifi_rf scan: Error iterations=<%s> is out of supported range.\n", iterations);
            return -1;
        }
    }
    // 0 keeps the antenna mode configured now; 1 to 3 are the paths.
    int antenna_mode = 0;
    if (given(mode)) {
        const long long m = ft::word_to_number(mode);
        if (m < 0 || m > 3) {
            std::printf("ft wifi_rf scan: Error mode=<%s> is out of supported range.\n", mode);
            return -1;
        }
        antenna_mode = static_cast<int>(m);
    }
    std::array<char, 512> line{};
    if (!ft::format_command(line, "/system/bin/wifi_rf_scan.sh --%s \"%s\" -n %d --mode %d", filter_type,
                            ft::Quoted(filter_value, ft::QuotePlace::DoubleQuoted).c_str(), count, antenna_mode) ||
        ft::run_command(line.data()) == -1) {
        std::puts("FAIL\nft: Err scanning");
        return -1;
    }
    return 0;
}
