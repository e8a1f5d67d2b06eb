#include "shell/watchdog.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "common/unique_handle.h"

int disable_watchdog() {
    std::printf("Opening watchdog file at /dev/watchdog ... ");
    ft::UniqueFd fd(open("/dev/watchdog", O_WRONLY | O_CLOEXEC));
    if (!fd.valid()) {
        std::puts("watchdog file could not be opened");
        return -1;
    }
    std::puts("Disabling watchdog timer.");
    // With magic close the driver stops the timer only if 'V' was the last
    // byte written before close; the write's outcome is not ours to judge.
    [[maybe_unused]] const ssize_t n = write(fd.get(), "V", 1);
    return 0;
}
