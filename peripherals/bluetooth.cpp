// Bluetooth tests through the phone's legacy Bluetooth HAL. The commands run
// on the shell's thread; the HAL answers them later, from a thread of its
// own, through the callbacks below, and the commands wait for those answers
// by polling flags every 10 ms.
#include "peripherals/bluetooth.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "common/console.h"
#include "common/run.h"
#include "common/unique_handle.h"
#include "peripherals/bt_os_callouts.h"
#include "platform/bluetooth.h"
#include "platform/hardware.h"
#include "platform/velor.h"

namespace {

constexpr const char* kDriverModule = "mbt8xxx";
constexpr const char* kDriverDevice = "/dev/mbtchar0";
constexpr std::size_t kModulesReadSize = 2048;
constexpr int kUnloadAttempts = 10;

constexpr int kAddressWritten = 0;
constexpr int kAddressFailed = 1;
constexpr int kAddressPending = 4;

constexpr std::size_t kMaxScanDevices = 20;
constexpr std::size_t kMaxNameLength = 248;

// Shared with the HAL's thread: each written by one side and polled by the
// other. The scan-cancelled flag is also written by the SIGINT handler.
std::atomic<bool> g_adapter_on{false};
std::atomic<bool> g_discovering{false};
std::atomic<bool> g_scan_cancelled{false};
static_assert(std::atomic<bool>::is_always_lock_free, "the SIGINT handler writes the scan-cancelled flag");
// Where the address callback writes; set only while "bt mac_get" waits.
std::atomic<char*> g_address_buffer{nullptr};
std::atomic<int> g_address_status{kAddressWritten};

// The shell's thread only.
bool g_initialized = false;
hw_device_t* g_device = nullptr;
const bt_interface_t* g_interface = nullptr;
int g_last_status = 1;

struct ScanEntry {
    std::array<char, kMaxNameLength + 1> name;
    std::array<uint8_t, 6> address;
    uint32_t device_class;
    uint32_t device_type;
    int32_t rssi;
    uint8_t recorded;  // properties stored so far, the address included
};

// Filled by device_found on the HAL's thread while a discovery runs, and
// emptied by the shell's thread only after the discovery has stopped: the
// discovering flag hands the table from one thread to the other.
std::array<ScanEntry, kMaxScanDevices> g_scan_table;
uint8_t g_scan_count = 0;

// An entry is zeroed when it is taken.
void clear_scan_table() { g_scan_count = 0; }

void sleep_ms(long ms) {
    const timespec pause{ms / 1000, (ms % 1000) * 1'000'000};
    nanosleep(&pause, nullptr);
}

// Waits for a HAL callback. There is no time limit: a HAL that never
// answers leaves the test nothing better to do.
template <typename Done>
void poll_until(Done done) {
    while (!done()) sleep_ms(10);
}

// --- The kernel driver.

int is_module_loaded() {
    ft::UniqueFd modules(open("/proc/modules", O_RDONLY | O_CLOEXEC));
    if (!modules.valid()) return -1;
    std::array<char, kModulesReadSize + 1> text{};
    const ssize_t n = read(modules.get(), text.data(), kModulesReadSize);
    if (n == static_cast<ssize_t>(kModulesReadSize)) std::puts("is_module_loaded: buffer is not enough");
    return std::strstr(text.data(), kDriverModule) != nullptr ? 1 : 0;
}

// A module still in use refuses removal for a moment after its users close it.
void unload_bt_driver() {
    if (is_module_loaded() != 1) return;
    for (int attempt = 1; attempt <= kUnloadAttempts; ++attempt) {
        if (syscall(SYS_delete_module, kDriverModule, O_NONBLOCK | O_EXCL) == 0 || errno != EAGAIN) return;
        if (attempt < kUnloadAttempts) sleep_ms(500);
    }
}

// The script's own exit status says nothing: only a shell that could not run fails here.
bool load_bt_driver() {
    if (ft::run_command("/system/bin/load_wireless_driver.sh --type bt") == -1) {
        std::puts("load_bt_driver: failed");
        return false;
    }
    return true;
}

// --- Callbacks, on the HAL's thread. Each prints before it changes the flag
// that a command waits for, so that its line comes before the prompt.

const bt_property_t* find_property(int count, const bt_property_t* properties, bt_property_type_t type,
                                   int min_length) {
    if (properties == nullptr) return nullptr;
    for (int i = 0; i < count; ++i)
        if (properties[i].type == type && properties[i].val != nullptr && properties[i].len >= min_length)
            return &properties[i];
    return nullptr;
}

void adapter_state_changed(bt_state_t state) {
    const bool on = state == BT_STATE_ON;
    ft::async_printf("BT state changed: %s\n", on ? "ON" : "OFF");
    g_adapter_on.store(on);
}

void discovery_state_changed(bt_discovery_state_t state) {
    const bool started = state == BT_DISCOVERY_STARTED;
    ft::async_printf("BT discovery %s\n", started ? "STARTED" : "STOPPED");
    g_discovering.store(started);
}

void adapter_properties_cb(bt_status_t status, int count, bt_property_t* properties) {
    char* const buffer = g_address_buffer.load();
    if (buffer == nullptr) {
        ft::async_print("BT adapter_properties_callback: bt_addr_buf == NULL!\n");
        g_address_status.store(kAddressFailed);
        return;
    }
    const bt_property_t* address =
        status == BT_STATUS_SUCCESS ? find_property(count, properties, BT_PROPERTY_BDADDR, 6) : nullptr;
    if (address == nullptr) {
        g_address_status.store(kAddressFailed);
        return;
    }
    // "%02X" and ':' for each byte, a NUL after the sixth: 17 characters.
    constexpr char kHex[] = "0123456789ABCDEF";
    const auto* bytes = static_cast<const uint8_t*>(address->val);
    for (std::size_t i = 0; i < 6; ++i) {
        buffer[3 * i] = kHex[bytes[i] >> 4];
        buffer[3 * i + 1] = kHex[bytes[i] & 0xF];
        buffer[3 * i + 2] = i < 5 ? ':' : '\0';
    }
    g_address_status.store(kAddressWritten);
}

ScanEntry* find_entry(const uint8_t* address) {
    for (std::size_t i = 0; i < g_scan_count; ++i)
        if (std::memcmp(g_scan_table[i].address.data(), address, 6) == 0) return &g_scan_table[i];
    return nullptr;
}

uint32_t read_u32(const bt_property_t& p) {
    uint32_t value = 0;
    std::memcpy(&value, p.val, sizeof value);
    return value;
}

// Stores the fields a report brings that the entry still lacks.
void record(ScanEntry& entry, int count, const bt_property_t* properties) {
    auto counted = [&entry] {
        if (entry.recorded < UINT8_MAX) ++entry.recorded;
    };
    for (int i = 0; i < count; ++i) {
        const bt_property_t& p = properties[i];
        if (p.val == nullptr || p.len <= 0) continue;
        switch (p.type) {
            case BT_PROPERTY_BDNAME:
                if (entry.name[0] == '\0') {
                    const auto* text = static_cast<const char*>(p.val);
                    const std::size_t length =
                        strnlen(text, std::min(static_cast<std::size_t>(p.len), kMaxNameLength));
                    std::memcpy(entry.name.data(), text, length);
                    entry.name[length] = '\0';
                    counted();
                }
                break;
            case BT_PROPERTY_CLASS_OF_DEVICE:
                if (entry.device_class == 0 && p.len >= 4) {
                    entry.device_class = read_u32(p);
                    counted();
                }
                break;
            case BT_PROPERTY_TYPE_OF_DEVICE:
                if (entry.device_type == 0 && p.len >= 4) {
                    entry.device_type = read_u32(p);
                    counted();
                }
                break;
            case BT_PROPERTY_REMOTE_RSSI:
                if (entry.rssi == 0) {
                    entry.rssi = *static_cast<const int8_t*>(p.val);
                    counted();
                }
                break;
            default:
                break;
        }
    }
}

// Appends to a line of fixed size; what does not fit is cut off.
struct Line {
    std::array<char, 512> text{};
    std::size_t used = 0;
    template <typename... A>
    void add(const char* format, A... args) {
        if (used + 1 >= text.size()) return;
        const int n = std::snprintf(text.data() + used, text.size() - used, format, args...);
        if (n > 0) used = std::min(used + static_cast<std::size_t>(n), text.size() - 1);
    }
};

const char* type_name(uint32_t type) {
    switch (type) {
        case BT_DEVICE_DEVTYPE_BREDR: return "BREDR";
        case BT_DEVICE_DEVTYPE_BLE: return "BLE";
        case BT_DEVICE_DEVTYPE_DUAL: return "DUAL";
        default: return "Unknown";
    }
}

void print_entry(const ScanEntry& entry) {
    // One report for the whole line, the table's header included with its
    // first row: the monitors' threads print too.
    Line line;
    if (g_scan_count == 1) line.add("%-20s %-17s %-8s %-5s %s\n", "Name", "Address", "Class", "Type", "RSSI");
    line.add("%-20s ", entry.name[0] != '\0' ? entry.name.data() : "Unknown");
    for (std::size_t i = 0; i < entry.address.size(); ++i)
        line.add("%.2X%c", static_cast<unsigned>(entry.address[i]), i + 1 < entry.address.size() ? ':' : ' ');
    if (entry.device_class != 0) line.add("0x%.6X ", entry.device_class);
    if (entry.device_type != 0) line.add("%-5s ", type_name(entry.device_type));
    if (entry.rssi != 0) line.add("%d", entry.rssi);
    line.add("\n");
    ft::async_print(line.text.data());
}

void device_found(int count, bt_property_t* properties) {
    if (g_scan_count == kMaxScanDevices) return;
    const bt_property_t* address = find_property(count, properties, BT_PROPERTY_BDADDR, 6);
    if (address == nullptr) return;
    const auto* bytes = static_cast<const uint8_t*>(address->val);
    ScanEntry* entry = find_entry(bytes);
    if (entry != nullptr) {
        // Printed again only when this report knows more than the last.
        if (entry->recorded >= count) return;
    } else {
        entry = &g_scan_table[g_scan_count++];
        *entry = ScanEntry{};
        std::memcpy(entry->address.data(), bytes, entry->address.size());
        entry->recorded = 1;
    }
    record(*entry, count, properties);
    print_entry(*entry);
}

bt_callbacks_t g_callbacks = {
    sizeof(bt_callbacks_t),
    adapter_state_changed,
    adapter_properties_cb,
    nullptr,  // remote device properties
    device_found,
    discovery_state_changed,
    nullptr,  // PIN request
    nullptr,  // SSP request
    nullptr,  // bond state
    nullptr,  // ACL state
    nullptr,  // thread event
    nullptr,  // DUT mode
    nullptr,  // LE test mode
    nullptr,  // energy info
};
// The phone is a 32-bit system: its HAL expects 56 bytes here.
static_assert(sizeof(void*) != 4 || sizeof(bt_callbacks_t) == 56);

bt_os_callouts_t g_callouts = {
    sizeof(bt_os_callouts_t),
    set_wake_alarm,
    acquire_wake_lock,
    release_wake_lock,
};
static_assert(sizeof(void*) != 4 || sizeof(bt_os_callouts_t) == 16);

// --- The scan.

void discovery_cancelled_handler(int signo) {
    if (signo == SIGINT && g_discovering.load()) g_scan_cancelled.store(true);
}

void set_sigint(void (*handler)(int), int flags) {
    struct sigaction action{};
    action.sa_handler = handler;
    sigfillset(&action.sa_mask);
    action.sa_flags = flags;
    sigaction(SIGINT, &action, nullptr);
}

// One discovery, from its start until it has stopped, whether it ran its
// course or the operator cut it short with Ctrl+C.
void run_discovery() {
    g_scan_cancelled.store(false);
    // Once only: a second Ctrl+C during the same scan ends the shell.
    set_sigint(discovery_cancelled_handler, SA_RESETHAND);
    poll_until([] { return g_discovering.load(); });
    while (!g_scan_cancelled.load()) {
        sleep(1);
        if (!g_discovering.load()) break;
    }
    const bool cancelled = g_scan_cancelled.load();
    if (cancelled) {
        g_last_status = g_interface->cancel_discovery();
        if (g_last_status != 0) std::puts("BT: failed to cancel discovery or already finished");
    }
    // The table stays the HAL thread's until its discovery has stopped, also
    // when the cancel failed and the discovery runs its course.
    poll_until([] { return !g_discovering.load(); });
    if (!cancelled) set_sigint(SIG_DFL, 0);
    clear_scan_table();
}

}  // namespace

int btTestInit() {
    if (g_initialized) return 0;
    const int loaded = is_module_loaded();
    if (loaded < 0 || (loaded == 0 && !load_bt_driver()) || access(kDriverDevice, F_OK) != 0) {
        std::puts("ERROR: failed to load BT driver!");
        return -1;
    }
    // The chip takes its address only once the driver has settled.
    sleep(1);
    int status = ft::run_command("/system/bin/bd_addr_loader");
    if (status != 0) {
        sleep(2);
        status = ft::run_command("/system/bin/bd_addr_loader");
        if (status != 0) {
            std::printf("ERROR: failed to save BT MAC address (error code = 0x%x)\n",
                        static_cast<unsigned>(status >> 8));
            unload_bt_driver();
            return -1;
        }
    }

    const hw_module_t* module = nullptr;
    hw_device_t* device = nullptr;
    if (hw_get_module(BT_STACK_MODULE_ID, &module) != 0 || module == nullptr || module->methods == nullptr ||
        module->methods->open(module, BT_STACK_MODULE_ID, &device) != 0 || device == nullptr) {
        std::puts("ERROR: failed to load BT HAL library!");
        unload_bt_driver();
        return -1;
    }
    g_device = device;
    g_interface = reinterpret_cast<bluetooth_device_t*>(device)->get_bluetooth_interface();
    if (g_interface == nullptr) {
        std::puts("btTestInit: bt_if is NULL");
        g_last_status = 1;
    } else {
        g_last_status = g_interface->init(&g_callbacks);
        if (g_last_status == 0) {
            std::puts("BT interface initialized");
            g_last_status = g_interface->set_os_callouts(&g_callouts);
        }
    }
    clear_scan_table();
    ft::run_command("/vendor/bin/hw/android.hardware.bluetooth@1.0-service &");
    g_initialized = g_last_status == 0;
    return g_initialized ? 0 : -1;
}

int btEnable() {
    if (!g_initialized) {
        std::puts("BT is not initialized!");
        return -1;
    }
    if (g_adapter_on.load()) {
        std::puts("BT is already ON");
        return 0;
    }
    g_last_status = g_interface->enable(false);
    if (g_last_status != 0) return -1;
    poll_until([] { return g_adapter_on.load(); });
    return 0;
}

int btDisable() {
    if (!g_initialized) {
        std::puts("BT is not initialized!");
        return -1;
    }
    if (!g_adapter_on.load()) {
        std::puts("BT is already OFF");
        return 0;
    }
    g_last_status = g_interface->disable();
    if (g_last_status != 0) return -1;
    poll_until([] { return !g_adapter_on.load(); });
    return 0;
}

int btGetMacAddr(char* buffer) {
    if (buffer == nullptr) {
        std::puts("BT btGetMacAddr: pbuf is NULL!");
        return -1;
    }
    if (!g_initialized) {
        std::puts("BT is not initialized!");
        return -1;
    }
    g_address_status.store(kAddressPending);
    g_address_buffer.store(buffer);
    g_last_status = g_interface->get_adapter_property(BT_PROPERTY_BDADDR);
    int result = -1;
    if (g_last_status == 0) {
        poll_until([] { return g_address_status.load() != kAddressPending; });
        result = g_address_status.load() == kAddressWritten ? 0 : -1;
    }
    g_address_buffer.store(nullptr);
    return result;
}

int btScan() {
    if (!g_initialized) {
        std::puts("FAIL: BT is not initialized!");
        return -1;
    }
    bool switched_on = false;
    if (!g_adapter_on.load()) {
        if (const int rc = btEnable(); rc != 0) return rc;
        switched_on = true;
    }
    int result = 0;
    g_last_status = g_interface->start_discovery();
    if (g_last_status == 0)
        run_discovery();
    else
        result = -1;
    if (switched_on) btDisable();
    return result;
}

int btCap() {
    int cap = -1;
    const int result = Cap_Bluetooth(&cap);
    std::puts(result == 0 && cap == 1 ? "PASS" : "FAIL");
    return result;
}

int btTestDestroy() {
    if (!g_initialized) return -1;
    if (g_adapter_on.load()) btDisable();
    if (g_interface != nullptr) {
        g_interface->cleanup();
        g_interface = nullptr;
    }
    unload_bt_driver();
    g_initialized = false;
    return 0;
}
