#include "fake_platform.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/eeprom.h"

namespace fake {
Platform& platform() {
    static Platform p;
    return p;
}
void reset() { platform() = Platform{}; }
}  // namespace fake

extern "C" int eeprom_nameToIndex(const char*) { return -1; }

extern "C" int eeprom_read(int index, char* buffer, int length) {
    auto& p = fake::platform();
    if (p.read_fails || index < 0 || index >= 34 || length <= 0) {
        errno = EIO;
        return -1;
    }
    if (p.unterminated_bytes > 0) {
        std::memset(buffer, 'A', static_cast<std::size_t>(std::min(length, p.unterminated_bytes)));
        return 0;
    }
    const std::string& v = p.fields[static_cast<std::size_t>(index)];
    const std::size_t n = std::min(v.size(), static_cast<std::size_t>(length - 1));
    std::memcpy(buffer, v.data(), n);
    buffer[n] = '\0';
    return 0;
}

extern "C" int eeprom_write(int index, const char* value) {
    fake::platform().fields.at(static_cast<std::size_t>(index)) = value;
    return 0;
}

extern "C" int eeprom_set_rw_mode(int) { return -1; }

// Replaces the C library's system() for this test program.
extern "C" int system(const char* command) {
    auto& p = fake::platform();
    p.commands.emplace_back(command ? command : "");
    errno = EAGAIN;
    return p.system_result;
}
