#include "factory_data/config.h"

#include <array>
#include <cstdio>
#include <unistd.h>

#include "common/run.h"
#include "common/words.h"
#include "factory_data/fields.h"
#include "platform/eeprom.h"

namespace {

constexpr int kValueBufferSize = 32;
constexpr int kModeBufferSize = 28;

struct Labelled {
    const char* field;
    const char* label;
};

// Prints the fields in order, stopping at the first one that cannot be printed.
template <std::size_t N>
int read_all(const std::array<Labelled, N>& fields) {
    for (const auto& f : fields)
        if (int rc = doRead(f.field, f.label); rc != 0) return rc;
    return 0;
}

}  // namespace

int doRead(const char* field, const char* label) {
    const int index = eeprom_nameToIndex(field);
    if (index < 0 || index >= static_cast<int>(ft::kFactoryFieldCount)) return -1;
    std::array<char, kValueBufferSize> value{};
    if (eeprom_read(index, value.data(), kValueBufferSize) != 0) return -1;
    value.back() = '\0';  // never trust a library to terminate
    std::printf("%s = \"%s\"\n", label ? label : ft::kFactoryFields[index].name,
                value[0] ? value.data() : "<NOT Initialized>");
    return 0;
}

int config_info() {
    std::printf("Factory Test %s %s\n", __DATE__, __TIME__);
    static constexpr std::array<Labelled, 7> kInfo{{
        {"MODEL_NUM", "Model"},
        {"ID_LCD_GLASS", "LCD"},
        {"HW_VER", "HW Version"},
        {"GEN_VER", "Gen Version"},
        {"ETHERADD", "MAC"},
        {"OPERATIONAL_MODE", "Operational Mode"},
        {"CONFIGDATA_DES_SUPPORT", "ConfigData Des Support"},
    }};
    return read_all(kInfo) == 0 ? 0 : -1;
}

int config_print_fact_cert_info(const char* thumbprint) {
    std::printf("Thumbprint: %s", thumbprint ? thumbprint : "");
    static constexpr std::array<Labelled, 5> kIdentity{{
        {"ETHERADD", "MAC"},
        {"SN_UNIT", "Serial#"},
        {"CC_UNIT", "Product"},
        {"MODEL_NUM", "Model"},
        {"HW_VER", "Hardware"},
    }};
    return read_all(kIdentity);
}

int config_program_write(const char* field, const char* value) {
    if (value == nullptr || value[0] == '\0') {
        std::puts("FAIL");
        return -1;
    }
    const int index = eeprom_nameToIndex(field);
    if (index < 0) {
        std::puts("FAIL");
        return -1;
    }
    if (eeprom_write(index, value) < 0) {
        std::puts("FAIL");
        return 1;
    }
    std::puts("PASS");
    return 0;
}

// The store writes through to flash on every write, so "writecommit" is a
// write: operators who type it expect the value saved, as the help promises.
int config_program_writecommit(const char* field, const char* value) {
    return config_program_write(field, value);
}

int config_program_commit() {
    std::puts("PASS");
    return 0;
}

int config_program_list(const char* target) {
    if (!ft::word_is_one_of(target, {"ict", "all"})) {
        std::puts("Invalid target!");
        return -1;
    }
    for (int i = 0; i < static_cast<int>(ft::kFactoryFieldCount); ++i) {
        std::array<char, kValueBufferSize> value{};
        const bool ok = eeprom_read(i, value.data(), kValueBufferSize) >= 0;
        value.back() = '\0';
        std::printf("%2d: %s = \"%s\"\n", i, ft::kFactoryFields[i].name, ok ? value.data() : "FAIL");
    }
    return 0;
}

int config_program_read(const char* field) { return doRead(field, nullptr); }

int config_program_reset(const char* target) {
    if (ft::word_is(target, "nvdata")) {
        std::puts("Not supporting reset of nvdata");
        return 0;
    }
    std::puts("Invalid target!");
    return -1;
}

int config_production(const char* action) {
    std::array<char, kModeBufferSize> mode_text{};
    const int read_rc = eeprom_read(ft::kOperationalModeIndex, mode_text.data(), kModeBufferSize);
    mode_text.back() = '\0';
    const int mode = read_rc == 0 ? ft::word_to_int(mode_text.data()) : 0;

    switch (ft::word_to_int(action)) {
    case 0:
        std::printf("%s Mode\n", mode != 0 ? "Production" : "Factory");
        break;
    case 1:
        if (mode != 0) {
            std::puts("Production Mode is already enabled");
            break;
        }
        if (int rc = eeprom_set_rw_mode(0); rc < 0) return rc;
        std::puts("Production Mode Enabled");
        std::puts("Rebooting...");
        std::fflush(stdout);
        sleep(1);
        ft::run_command("reboot");
        return 0;
    default:
        break;
    }
    return read_rc;
}
