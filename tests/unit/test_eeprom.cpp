// The replacement factory-data store, used directly on a scratch hardware folder.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/eeprom.h"
#include "sim/core/state.h"

namespace {

class Store : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = std::filesystem::temp_directory_path() / ("ft-eeprom-" + std::to_string(getpid()));
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

// The store's own names and order; values come back whole, or cut to the
// caller's length and always terminated.
TEST_F(Store, ValuesSurviveAndAreTerminatedWithinTheCallersLength) {
    EXPECT_EQ(eeprom_nameToIndex("ETHERADD"), 1);
    for (const char* name : {"etheradd", "", static_cast<const char*>(nullptr)}) EXPECT_EQ(eeprom_nameToIndex(name), -1);
    ASSERT_EQ(eeprom_write(33, "SN 123\\with\nnewline"), 0);
    EXPECT_EQ(read(33, 64), "SN 123\\with\nnewline");
    EXPECT_EQ(read(33, 4), "SN ");
    EXPECT_EQ(read(33, 1), "");
    EXPECT_EQ(read(5) + read(0), "0");
    char one = 'x';
    for (const int rc : {eeprom_read(34, &one, 1), eeprom_read(-1, &one, 1), eeprom_read(4, &one, 0),
                         eeprom_write(-1, "x"), eeprom_write(34, "x")})
        EXPECT_EQ(rc, -1);
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

// Only the switch into production mode exists; a missing store is no empty phone.
TEST_F(Store, ProductionModeInjectedFailuresAndAMissingStore) {
    EXPECT_LT(eeprom_set_rw_mode(1), 0);
    EXPECT_EQ(read(0), "0");
    ASSERT_EQ(eeprom_set_rw_mode(0), 0);
    EXPECT_EQ(read(0), "1");
    ASSERT_TRUE(ftsim::set_failures({{"eeprom_write", -5, EROFS}}));
    errno = 0;
    EXPECT_EQ(eeprom_write(4, "x"), -5);
    EXPECT_EQ(errno, EROFS);
    ASSERT_TRUE(ftsim::set_failures({}));
    std::filesystem::remove(dir_ / "eeprom");
    char buf[8];
    EXPECT_EQ(eeprom_read(0, buf, 8), -1);
    EXPECT_EQ(eeprom_write(0, "1"), -1);
}

// A folder read twice through the same handle: the copy of its descriptor
// shares the read position, so the second listing once came back empty.
TEST_F(Store, AFolderListsTheSameEachTime) {
    const ftsim::Folder hw = ftsim::hw();
    const std::vector<std::string> first = hw.list();
    EXPECT_EQ(first, (std::vector<std::string>{"eeprom", "eeprom.lock"}));
    EXPECT_EQ(hw.list(), first);
}

}  // namespace
