// USB host port tests: the storage devices behind the SCSI hosts, an endless
// write/read/compare run on a mounted stick until the operator presses
// Ctrl+C, and the port's power and current limit through the hardware library.
#include "peripherals/usb.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/run.h"
#include "common/unique_handle.h"
#include "common/words.h"
#include "platform/velor.h"

namespace {

constexpr const char* kScsiHosts = "/sys/class/scsi_host";

constexpr const char* kMountPoint = "/data/usb_test";
constexpr const char* kTestFile = "usbrw_test_file";
// Writes reach the stick before each write returns.
constexpr unsigned long kMountFlags = MS_NOSUID | MS_SYNCHRONOUS;
static_assert(kMountFlags == 0x12);
// The first partitions of sda to sdo; the letter goes where the blank is.
constexpr char kDeviceTemplate[] = "/dev/block/sd 1";
constexpr std::size_t kDeviceLetter = std::string_view(kDeviceTemplate).find(' ');

constexpr std::size_t kBlockBytes = 512;
constexpr std::size_t kBlocksPerPass = 2048;

// What a run of usbrw holds, so that clean_up can undo it in reverse order
// whichever way the run ends, and forget it for the next run.
std::atomic<bool> g_abort{false};  // set by the interrupt handler only
static_assert(std::atomic<bool>::is_always_lock_free, "the interrupt handler sets it");
bool g_mounted = false;
bool g_mount_point = false;
ft::UniqueDir g_dir;
ft::UniqueFile g_file;

// The test notices the flag between blocks; the handler only notes the request.
void signal_handler(int) {
    if (!g_abort.load()) {
        g_abort.store(true);
        return;
    }
    // printf is not safe here; the test prints nothing while it runs, so the
    // note cannot cut into a line.
    const int saved = errno;
    static constexpr std::string_view kNote = "signal_handler: signal already received.\n";
    [[maybe_unused]] const ssize_t n = write(STDOUT_FILENO, kNote.data(), kNote.size());
    errno = saved;
}

void clean_up() {
    if (g_file.valid()) {
        g_file.reset();
        std::array<char, 64> path{};
        std::snprintf(path.data(), path.size(), "%s/%s", kMountPoint, kTestFile);
        std::remove(path.data());
    }
    g_dir.reset();
    if (g_mounted) {
        // Lazily: the working directory stays inside the stick.
        umount2(kMountPoint, MNT_DETACH);
        g_mounted = false;
    }
    if (g_mount_point) {
        rmdir(kMountPoint);
        g_mount_point = false;
    }
    struct sigaction deflt {};
    deflt.sa_handler = SIG_DFL;
    sigemptyset(&deflt.sa_mask);
    if (sigaction(SIGINT, &deflt, nullptr) != 0) std::puts("clean_up: Can't reset SIGINT signal handler");
}

bool mount_stick() {
    std::array<char, sizeof kDeviceTemplate> device{};
    std::memcpy(device.data(), kDeviceTemplate, sizeof kDeviceTemplate);
    for (char letter = 'a'; letter <= 'o'; ++letter) {
        device[kDeviceLetter] = letter;
        if (mount(device.data(), kMountPoint, "vfat", kMountFlags, "") == 0) return true;
    }
    return false;
}

// Passes of 2048 random blocks, each written, read back and compared, until
// the operator interrupts, a block differs or the stick reports an error.
void run_passes(FILE* file) {
    std::array<unsigned char, kBlockBytes> written{};
    std::array<unsigned char, kBlockBytes> read{};
    for (;;) {
        errno = 0;
        std::fseek(file, 0, SEEK_SET);
        if (errno != 0) {
            std::printf("Error:  %s", std::strerror(errno));
            return;
        }
        std::srand(static_cast<unsigned>(std::time(nullptr)));
        if (g_abort.load()) return;
        for (std::size_t block = 0; block < kBlocksPerPass; ++block) {
            for (unsigned char& byte : written) byte = static_cast<unsigned char>(std::rand());
            std::fwrite(written.data(), 1, written.size(), file);
            if (errno != 0) {
                std::printf("Error: %s", std::strerror(errno));
                return;
            }
            std::fseek(file, -static_cast<long>(kBlockBytes), SEEK_CUR);
            if (g_abort.load()) return;
            std::fread(read.data(), 1, read.size(), file);
            if (errno != 0) {
                std::printf("Error: %s", std::strerror(errno));
                return;
            }
            if (read != written) {
                std::printf("FAIL. Read block does not match written block");
                return;
            }
            // A stream read from may only be written to after a positioning call.
            std::fseek(file, 0, SEEK_CUR);
            if (block + 1 < kBlocksPerPass && g_abort.load()) return;
        }
    }
}

// The steps of usbrw after the handler is installed; every way out of here
// goes through clean_up.
int run_usbrw() {
    struct stat st {};
    if (stat(kMountPoint, &st) != 0 && mkdir(kMountPoint, 0700) != 0) {
        std::puts("FAIL to create mount point.");
        return -1;
    }
    g_mount_point = true;
    if (!mount_stick()) {
        std::puts("USB device cannot be mounted or is not attached to the phone");
        return -1;
    }
    g_mounted = true;
    g_dir.reset(opendir(kMountPoint));
    if (!g_dir.valid()) {
        std::printf("FAIL to open dir %s.\n", kMountPoint);
        return -1;
    }
    // The file is made in the folder held open, so that it lands on the
    // stick even if the working directory could not follow.
    [[maybe_unused]] const int moved = chdir(kMountPoint);
    const int fd = openat(dirfd(g_dir.get()), kTestFile, O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd >= 0) {
        g_file.reset(fdopen(fd, "wb+"));
        if (!g_file.valid()) close(fd);
    }
    if (!g_file.valid()) {
        std::printf("FAIL to open file %s\n", kTestFile);
        return -1;
    }
    std::puts("USB test in progress... Press Ctrl+C to abort");
    run_passes(g_file.get());
    return 0;
}

int usb_power(const char* action) {
    int (*operation)() = ft::word_is(action, "off") ? Usb_Port1_Off : ft::word_is(action, "on") ? Usb_Port1_On : nullptr;
    if (operation == nullptr) {
        std::puts("FAIL");
        return -1;
    }
    const int result = operation();
    if (result >= 0) {
        std::puts("PASS");
    } else {
        if (result == -2) std::puts("USB port is in device mode. Could not provide power on USB port.");
        std::puts("FAIL");
    }
    return result;
}

int usb_overcurrent(const char*) {
    // Neither answer unless the library fills it in.
    int fault = -1;
    const int result = Usb_HadPowerFault(&fault);
    if (result < 0) {
        std::puts("FAIL");
        return result;
    }
    if (fault == 1) std::puts("Overcurrent detected");
    else if (fault == 0) std::puts("No overcurrent detected");
    std::puts("PASS");
    return result;
}

struct Limit {
    std::string_view word;
    int setting;  // the library's value: 0 = 100 mA, 1 = 500 mA
    const char* milliamps;
};
constexpr std::array<Limit, 2> kLimits{{{"low", 0, "100"}, {"high", 1, "500"}}};

int usb_limit(const char* action) {
    for (const Limit& l : kLimits) {
        if (!ft::word_is(action, l.word)) continue;
        const int result = Usb_SetCurrentLimit(l.setting);
        if (result == 0) std::printf("USB port power limit was set to %s mA\n", l.milliamps);
        else std::puts("Usb_SetCurrentLimit() error");
        return result;
    }
    if (!ft::word_is(action, "get")) {
        std::puts("Unknown action");
        return -1;
    }
    const int limit = Usb_GetCurrentLimit();
    for (const Limit& l : kLimits) {
        if (limit != l.setting) continue;
        std::printf("USB current limit is %s mA\n", l.milliamps);
        return 0;
    }
    if (limit == -1) std::puts("Usb_getCurrentLimit() error");
    else std::printf("Error unexpected value in Usb_getCurrentLimit(): %d\n", limit);
    return -1;
}

struct UsbCommand {
    std::string_view word;
    int (*run)(const char* action);
};
constexpr std::array<UsbCommand, 3> kUsbCommands{{
    {"power", usb_power},
    {"overcurrent", usb_overcurrent},
    {"limit", usb_limit},
}};

}  // namespace

int usblist() {
    ft::UniqueDir hosts(opendir(kScsiHosts));
    if (!hosts.valid()) {
        std::printf("FAIL to open dir %s.\n", kScsiHosts);
        return -1;
    }
    // The listing runs relative to each host; the process stays in the host list.
    bool in_hosts = chdir(kScsiHosts) == 0;
    bool any = false;
    while (const dirent* entry = readdir(hosts.get())) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with("host") || name.size() == 4 || name[4] < '0' || name[4] > '9') continue;
        if (!any) std::puts("Attached devices:");
        any = true;
        std::printf("%s:\n", entry->d_name);
        if (!in_hosts || chdir(entry->d_name) != 0) continue;
        ft::run_command("find device/target*/ -name model | xargs cat");
        in_hosts = chdir(kScsiHosts) == 0;
    }
    if (!any) std::puts("No devices found.");
    return 0;
}

int usbrw() {
    g_abort.store(false);
    g_mounted = false;
    g_mount_point = false;
    struct sigaction handler {};
    handler.sa_handler = signal_handler;
    sigemptyset(&handler.sa_mask);
    if (sigaction(SIGINT, &handler, nullptr) != 0) {
        std::puts("Can't set signal handler");
        return -1;
    }
    const int result = run_usbrw();
    clean_up();
    return result;
}

int usb_cmd(const char* action, const char* value) {
    for (const UsbCommand& c : kUsbCommands)
        if (ft::word_is(action, c.word)) return c.run(value);
    std::puts("Not a valid command.");
    return -1;
}
