// What the simulated phone's store cannot be made to hand over: values with no
// terminator, a read failing for one field alone, modes no command writes.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>

#include "credentials/misc.h"
#include "factory_data/config.h"

namespace {
const char* g_field = nullptr;  // null: the store fills the buffer with g_fill and no terminator
char g_fill = 'A';
int g_failing = -1;  // the index whose read fails
}  // namespace

extern "C" int eeprom_read(int index, char* buffer, int length) {
    if (index == g_failing) return -1;
    if (g_field == nullptr) {
        std::memset(buffer, g_fill, static_cast<std::size_t>(length));
        return 0;
    }
    std::snprintf(buffer, static_cast<std::size_t>(length), "%s", g_field);
    return 0;
}
// PAST_THE_END: a store whose table has grown by a field this build does not know.
extern "C" int eeprom_nameToIndex(const char* name) {
    if (std::strcmp(name, "PAST_THE_END") == 0) return 34;
    return std::strcmp(name, "SN_UNIT") == 0 ? 4 : -1;
}
extern "C" int eeprom_write(int, const char*) { return -1; }
extern "C" int eeprom_set_rw_mode(int) { return -1; }
// No test may run a command on the host.
extern "C" int system(const char* command) {
    ADD_FAILURE() << "ran " << command;
    return -1;
}

// Every field by its name, in the store's order; a read that fails shows as
// FAIL, a value filling the whole buffer as its first 31 characters, and a MAC
// without its terminator as not programmed; gencert refuses any mode but 0.
TEST(FactoryData, WhatTheStoreGivesIsNotTakenOnTrust) {
    std::istringstream names(
        "OPERATIONAL_MODE ETHERADD BLUETOOTHADD WIFIADD SN_UNIT SN_PWB CC_UNIT CC_PWB MODEL_NUM GEN_VER HW_VER "
        "ID_LCD_GLASS ID_LCD_CONTROLLER ID_TOUCH_CONTROLLER RF_COMBO_MODULE CAMERA_MODULE NM_HF_M1 NM_HAND_M "
        "NM_HEAD_M NM_CORDLESS_M NM_35_M NM_HF_S NM_HAND_S NM_HEAD_S NM_CORDLESS_S NM_35_S CONFIGDATA_HAND_RX_GAIN "
        "CONFIGDATA_HAND_TX_GAIN SEC_MODE ADB_ROOT SERIAL_ENABLED AUTH_ENABLED CONFIGDATA_DES_SUPPORT EEA_PRODUCT");
    const std::string a31(31, 'A');
    std::string expected;
    int i = 0;
    for (std::string name; names >> name; ++i) {
        std::array<char, 80> line{};
        std::snprintf(line.data(), line.size(), "%2d: %s = \"%s\"\n", i, name.c_str(), i == 33 ? "FAIL" : a31.c_str());
        expected += line.data();
    }
    g_failing = 33;
    for (const char* target : {"all", "ict"}) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(config_program_list(target), 0);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), expected) << target;
    }
    g_failing = -1;
    std::array<char, ft::cred::kMacTextSize> mac{};
    testing::internal::CaptureStdout();
    EXPECT_EQ(config_program_read("PAST_THE_END"), -1);
    EXPECT_EQ(config_program_read("SN_UNIT"), 0);
    EXPECT_EQ(get_mac_address(mac.data(), static_cast<int>(mac.size())), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "SN_UNIT = \"" + a31 + "\"\n*ERROR* fact_device_key:get_mac_address():69 MAC is not programmed\n"
              "*ERROR* fact_device_key:get_mac_address():70 Please program MAC before generating certificate\n");
    // Twelve digits and the terminator: the smallest buffer taken, and one less refused.
    g_field = "0a:1B:2c:3D:4e:5F";
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_mac_address(mac.data(), static_cast<int>(mac.size()) - 1), -1);
    EXPECT_EQ(get_mac_address(mac.data(), static_cast<int>(mac.size())), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "*ERROR* fact_device_key:get_mac_address():58 Buffer size too small\n");
    EXPECT_STREQ(mac.data(), "0a1B2c3D4e5F");
    g_field = nullptr;
    // The mode is read as a number; digits up to the buffer's end mean production.
    g_fill = '1';
    testing::internal::CaptureStdout();
    config_production("0");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Production Mode\n");
    for (const char* mode : {"", "x"}) {
        g_field = mode;
        testing::internal::CaptureStdout();
        EXPECT_EQ(gen_self_signed_cert(), -1) << "mode '" << mode << "'";
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "*ERROR* misc:gen_self_signed_cert():97 gencert can only be executed in factory mode\n");
    }
}
