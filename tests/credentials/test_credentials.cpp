// What the simulated phone's store cannot be made to hand over: values that
// fill the caller's whole buffer with no terminator, and operational modes
// the factory commands cannot write.
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
}  // namespace

extern "C" int eeprom_read(int, char* buffer, int length) {
    if (g_field == nullptr) {
        std::memset(buffer, g_fill, static_cast<std::size_t>(length));
        return 0;
    }
    std::snprintf(buffer, static_cast<std::size_t>(length), "%s", g_field);
    return 0;
}
extern "C" int eeprom_nameToIndex(const char* name) { return std::strcmp(name, "SN_UNIT") == 0 ? 4 : -1; }
extern "C" int eeprom_write(int, const char*) { return -1; }
extern "C" int eeprom_set_rw_mode(int) { return -1; }
// No test may run a command on the host.
extern "C" int system(const char* command) {
    ADD_FAILURE() << "ran " << command;
    return -1;
}

TEST(DeviceKey, MacFieldWithoutTerminatorIsNotProgrammed) {
    g_field = nullptr;
    std::array<char, ft::cred::kMacTextSize> mac{};
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_mac_address(mac.data(), static_cast<int>(mac.size())), -1);
    EXPECT_NE(testing::internal::GetCapturedStdout().find("():69 MAC is not programmed\n"), std::string::npos);
}

TEST(Gencert, RefusedUnlessTheModeStartsWithZero) {
    for (const char* mode : {"", "x"}) {
        g_field = mode;
        testing::internal::CaptureStdout();
        EXPECT_EQ(gen_self_signed_cert(), -1) << "mode '" << mode << "'";
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "*ERROR* misc:gen_self_signed_cert():97 gencert can only be executed in factory mode\n");
    }
}

TEST(FactoryData, AValueFillingTheWholeBufferPrintsAsItsFirst31Characters) {
    g_field = nullptr;
    g_fill = 'A';
    const std::string a31(31, 'A');
    testing::internal::CaptureStdout();
    EXPECT_EQ(config_program_read("SN_UNIT"), 0);
    EXPECT_EQ(config_program_list("ict"), 0);
    std::istringstream out(testing::internal::GetCapturedStdout());
    std::string line;
    std::getline(out, line);
    EXPECT_EQ(line, "SN_UNIT = \"" + a31 + "\"");
    std::getline(out, line);
    EXPECT_EQ(line, " 0: OPERATIONAL_MODE = \"" + a31 + "\"");
    // The mode is read as a number; digits up to the buffer's end mean production.
    g_fill = '1';
    testing::internal::CaptureStdout();
    config_production("0");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Production Mode\n");
}
