// Factory-data store of the simulated phone: 34 fields in the factory table's
// order, kept in hw/eeprom as NAME=VALUE lines (backslash-escaped) and
// replaced atomically on every change.
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <array>

#include "common/unique_handle.h"
#include "factory_data/fields.h"
#include "platform/eeprom.h"
#include "sim/common/simstate.h"

namespace {

constexpr int kFields = static_cast<int>(ft::kFactoryFieldCount);
// The phone's EEPROM gives each field a fixed slot; longer texts do not fit.
constexpr std::size_t kMaxValue = 127;

using Store = std::array<std::string, ft::kFactoryFieldCount>;

std::string escape(std::string_view v) {
    std::string out;
    for (char c : v) {
        if (c == '\\') out += "\\\\";
        else if (c == '\n') out += "\\n";
        else out += c;
    }
    return out;
}

std::string unescape(std::string_view v) {
    std::string out;
    for (std::size_t i = 0; i < v.size(); ++i) {
        if (v[i] == '\\' && i + 1 < v.size()) {
            ++i;
            out += v[i] == 'n' ? '\n' : v[i];
        } else {
            out += v[i];
        }
    }
    return out;
}

int index_of(std::string_view name) {
    for (int i = 0; i < kFields; ++i)
        if (name == ft::kFactoryFields[i].name) return i;
    return -1;
}

bool load(Store& store) {
    std::string text;
    if (!ftsim::read_text(ftsim::hw_path("eeprom"), text)) return false;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        const std::string_view line(text.data() + pos, end - pos);
        pos = end + 1;
        const auto eq = line.find('=');
        if (eq == std::string_view::npos) continue;
        const int i = index_of(line.substr(0, eq));
        if (i >= 0) store[i] = unescape(line.substr(eq + 1));
    }
    return true;
}

bool save(const Store& store) {
    std::string text;
    for (int i = 0; i < kFields; ++i) text += std::string(ft::kFactoryFields[i].name) + "=" + escape(store[i]) + "\n";
    return ftsim::write_atomic(ftsim::hw_path("eeprom"), text);
}

// Serialises read-modify-write between the shell and the control tool.
class StoreLock {
public:
    StoreLock() : fd_(open(ftsim::hw_path("eeprom.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
        if (fd_.valid()) flock(fd_.get(), LOCK_EX);
    }
    bool held() const { return fd_.valid(); }

private:
    ft::UniqueFd fd_;
};

int update(int index, std::string_view value) {
    StoreLock lock;
    Store store;
    if (!lock.held() || !load(store)) {
        errno = EIO;
        return -1;
    }
    store[index] = value;
    if (!save(store)) {
        errno = EIO;
        return -1;
    }
    return 0;
}

}  // namespace

extern "C" int eeprom_nameToIndex(const char* name) {
    FTSIM_FAILURE_POINT("eeprom_nameToIndex");
    return name ? index_of(name) : -1;
}

extern "C" int eeprom_read(int index, char* buffer, int length) {
    FTSIM_FAILURE_POINT("eeprom_read");
    if (index < 0 || index >= kFields || buffer == nullptr || length <= 0) {
        errno = EINVAL;
        return -1;
    }
    Store store;
    {
        StoreLock lock;
        if (!load(store)) {
            errno = EIO;
            return -1;
        }
    }
    const std::string& v = store[index];
    const std::size_t n = std::min(v.size(), static_cast<std::size_t>(length - 1));
    std::memcpy(buffer, v.data(), n);
    buffer[n] = '\0';
    return 0;
}

extern "C" int eeprom_write(int index, const char* value) {
    FTSIM_FAILURE_POINT("eeprom_write");
    if (index < 0 || index >= kFields || value == nullptr || std::strlen(value) > kMaxValue) {
        errno = EINVAL;
        return -1;
    }
    return update(index, value);
}

extern "C" int eeprom_set_rw_mode(int mode) {
    FTSIM_FAILURE_POINT("eeprom_set_rw_mode");
    if (mode != 0) {
        // Only the switch into production mode exists on the phone.
        errno = EINVAL;
        return -1;
    }
    return update(ft::kOperationalModeIndex, "1");
}
