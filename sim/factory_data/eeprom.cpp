// Factory-data store of the simulated phone: 34 fields in the store's own
// index order, kept in hw/eeprom as NAME=VALUE lines (backslash-escaped) and
// replaced atomically on every change. The table is the store's, not the
// shell's: a wrong row in the shell's table must show as a wrong field, as it
// would on the phone, rather than be copied here.
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <array>

#include "common/unique_handle.h"
#include "platform/eeprom.h"
#include "sim/core/state.h"
#include "sim/factory_data/store.h"

namespace {

using ftsim::factory_data::kFields;
using ftsim::factory_data::kMaxValue;
using ftsim::factory_data::kOperationalMode;
using ftsim::factory_data::Store;

// The store's field names by index.
constexpr const char* kTable[] = {
    "OPERATIONAL_MODE",
    "ETHERADD",
    "BLUETOOTHADD",
    "WIFIADD",
    "SN_UNIT",
    "SN_PWB",
    "CC_UNIT",
    "CC_PWB",
    "MODEL_NUM",
    "GEN_VER",
    "HW_VER",
    "ID_LCD_GLASS",
    "ID_LCD_CONTROLLER",
    "ID_TOUCH_CONTROLLER",
    "RF_COMBO_MODULE",
    "CAMERA_MODULE",
    "NM_HF_M1",
    "NM_HAND_M",
    "NM_HEAD_M",
    "NM_CORDLESS_M",
    "NM_35_M",
    "NM_HF_S",
    "NM_HAND_S",
    "NM_HEAD_S",
    "NM_CORDLESS_S",
    "NM_35_S",
    "CONFIGDATA_HAND_RX_GAIN",
    "CONFIGDATA_HAND_TX_GAIN",
    "SEC_MODE",
    "ADB_ROOT",
    "SERIAL_ENABLED",
    "AUTH_ENABLED",
    "CONFIGDATA_DES_SUPPORT",
    "EEA_PRODUCT",
};
static_assert(std::size(kTable) == kFields);

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
        if (name == kTable[i]) return i;
    return -1;
}

bool load(Store& store) {
    std::string text;
    if (!ftsim::read_text("eeprom", text)) return false;
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
    for (int i = 0; i < kFields; ++i) text += std::string(kTable[i]) + "=" + escape(store[i]) + "\n";
    return ftsim::write_atomic("eeprom", text);
}

// Serialises read-modify-write between the shell and the control tool.
class StoreLock {
public:
    StoreLock() : fd_(ftsim::hw().open_at("eeprom.lock", O_RDWR | O_CREAT, ftsim::Type::File)) {
        if (fd_.valid()) flock(fd_.get(), LOCK_EX);
    }
    bool held() const { return fd_.valid(); }

private:
    ft::UniqueFd fd_;
};

// Saves replace the file whole, so a read that cannot have the lock still
// finds one version or the other.
bool load_locked(Store& store) {
    StoreLock lock;
    return load(store);
}

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
    FTSIM_FAILURE_POINT();
    return name ? index_of(name) : -1;
}

extern "C" int eeprom_read(int index, char* buffer, int length) {
    FTSIM_FAILURE_POINT();
    if (index < 0 || index >= kFields || buffer == nullptr || length <= 0) {
        errno = EINVAL;
        return -1;
    }
    Store store;
    if (!load_locked(store)) {
        errno = EIO;
        return -1;
    }
    const std::string& v = store[index];
    const std::size_t n = std::min(v.size(), static_cast<std::size_t>(length - 1));
    std::memcpy(buffer, v.data(), n);
    buffer[n] = '\0';
    return 0;
}

extern "C" int eeprom_write(int index, const char* value) {
    FTSIM_FAILURE_POINT();
    if (index < 0 || index >= kFields || value == nullptr || std::strlen(value) > kMaxValue) {
        errno = EINVAL;
        return -1;
    }
    return update(index, value);
}

extern "C" int eeprom_set_rw_mode(int mode) {
    FTSIM_FAILURE_POINT();
    if (mode != 0) {
        // Only the switch into production mode exists on the phone.
        errno = EINVAL;
        return -1;
    }
    return update(kOperationalMode, "1");
}

int ftsim::factory_data::read_store(Store& store) {
    int injected = 0;
    if (ftsim::injected_failure("eeprom_read", injected)) return injected;
    if (!load_locked(store)) {
        errno = EIO;
        return -1;
    }
    return 0;
}
