// The replacement factory-data store, used directly on a scratch hardware folder.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/eeprom.h"
#include "sim/core/state.h"

namespace {

class Store : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = std::filesystem::temp_directory_path() /
               ("ft-eeprom-" + std::to_string(getpid()) + "-" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
        setenv("FTSIM_HW", dir_.c_str(), 1);
        std::ofstream(dir_ / "eeprom").flush();
        ASSERT_EQ(eeprom_write(0, "0"), 0);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::string read(int index, int length = 32) {
        std::string buf(static_cast<std::size_t>(length), '\x7f');
        EXPECT_EQ(eeprom_read(index, buf.data(), length), 0);
        return buf.c_str();
    }

    std::filesystem::path dir_;
};

TEST_F(Store, NamesFollowTheTableOrder) {
    EXPECT_EQ(eeprom_nameToIndex("OPERATIONAL_MODE"), 0);
    EXPECT_EQ(eeprom_nameToIndex("ETHERADD"), 1);
    EXPECT_EQ(eeprom_nameToIndex("CONFIGDATA_DES_SUPPORT"), 32);
    EXPECT_EQ(eeprom_nameToIndex("EEA_PRODUCT"), 33);
    EXPECT_EQ(eeprom_nameToIndex("etheradd"), -1);
    EXPECT_EQ(eeprom_nameToIndex(""), -1);
    EXPECT_EQ(eeprom_nameToIndex(nullptr), -1);
}

TEST_F(Store, ValuesSurviveAndAreTerminatedWithinTheCallersLength) {
    ASSERT_EQ(eeprom_write(4, "SN 123\\with\nnewline"), 0);
    EXPECT_EQ(read(4, 64), "SN 123\\with\nnewline");
    EXPECT_EQ(read(4, 4), "SN ");  // three characters and the NUL
    char one = 'x';
    EXPECT_EQ(eeprom_read(4, &one, 1), 0);
    EXPECT_EQ(one, '\0');
    EXPECT_EQ(read(5), "");
    EXPECT_EQ(read(0), "0");
    EXPECT_LT(eeprom_read(34, &one, 1), 0);
    EXPECT_LT(eeprom_read(4, &one, 0), 0);
    EXPECT_LT(eeprom_write(-1, "x"), 0);
}

// A reader that opened the store before a write reads the old store whole:
// the write replaces the file, so no one ever sees it half written.
TEST_F(Store, AWriteReplacesTheFileInsteadOfRewritingIt) {
    ASSERT_EQ(eeprom_write(4, "old"), 0);
    std::ifstream before(dir_ / "eeprom");
    ASSERT_EQ(eeprom_write(4, "new"), 0);
    const std::string old_text((std::istreambuf_iterator<char>(before)), std::istreambuf_iterator<char>());
    EXPECT_NE(old_text.find("SN_UNIT=old\n"), std::string::npos) << old_text;
    EXPECT_EQ(read(4), "new");
}

TEST_F(Store, ProductionModeShowsInOperationalMode) {
    EXPECT_LT(eeprom_set_rw_mode(1), 0);
    EXPECT_EQ(read(0), "0");
    ASSERT_EQ(eeprom_set_rw_mode(0), 0);
    EXPECT_EQ(read(0), "1");
}

TEST_F(Store, InjectedFailuresReturnTheChosenResultAndErrno) {
    ASSERT_TRUE(ftsim::set_failures({{"eeprom_write", -5, EROFS}, {"eeprom_read", -1, EIO}}));
    errno = 0;
    EXPECT_EQ(eeprom_write(4, "x"), -5);
    EXPECT_EQ(errno, EROFS);
    char buf[8];
    EXPECT_EQ(eeprom_read(4, buf, 8), -1);
    EXPECT_EQ(errno, EIO);
    ASSERT_TRUE(ftsim::set_failures({}));
    EXPECT_EQ(eeprom_write(4, "x"), 0);
    EXPECT_EQ(read(4), "x");
}

TEST_F(Store, AMissingStoreIsAnErrorNotAnEmptyPhone) {
    std::filesystem::remove(dir_ / "eeprom");
    char buf[8];
    EXPECT_LT(eeprom_read(0, buf, 8), 0);
    EXPECT_LT(eeprom_write(0, "1"), 0);
}

}  // namespace
