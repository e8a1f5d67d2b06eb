// The switch handlers repeat the shell's checks with messages of their own,
// which no session can reach while the shell's checks stand in front. Each
// is driven here on a scratch hardware folder; a refused value must never
// reach the library, so the switch there stays as it leaves the factory.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>

#include "network/switch.h"
#include "sim/core/state.h"

namespace {

class OwnChecks : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = std::filesystem::temp_directory_path() / ("ft-switch-" + std::to_string(getpid()));
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
        setenv("FTSIM_HW", dir_.c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::filesystem::path dir_;
};

struct Refusal {
    std::function<int()> call;
    const char* output;
};

TEST_F(OwnChecks, EveryPortOrValueBeyondTheHandlersRangeIsRefusedWithItsLine) {
    const Refusal refusals[] = {
        {[] { return rltkFTportCntrs("3"); }, "rltkFTportCntrs() FAIL: port not exist!!\n"},
        {[] { return rltkFTportCntrs("-1"); }, "rltkFTportCntrs() FAIL: port not exist!!\n"},
        {[] { return rltkFTportResetCntrs("4"); }, "rltkFTportResetCntrs() FAIL: port not exist!!\n"},
        {[] { return rltkFTGetMac("2"); }, "rltkFTGetMac() FAIL: port not exist!!\n"},
        {[] { return rltkFTGetPhyRegValue("2", "0"); }, "rltkFTGetPhyRegValue() FAIL: port not exist!!\n"},
        {[] { return rltkFTEarlyInit("2"); }, "rltkFTEarlyInit() FAIL: MDIX invalid!!!\n"},
        {[] { return rltkFTsetAutoMDIX("2", "0"); }, "rltkFTsetAutoMDIX() FAIL: port not exist!!\n"},
        {[] { return rltkFTgetAutomdix("2"); }, "rltkFTgetAutoMDIX() FAIL: port not exist!!\n"},
        {[] { return rltkFTsetLinkStatus("3", "1"); }, "rltkFTsetLinkStatus() FAIL: port not exist!!\n"},
        {[] { return rltkFTsetLinkStatus("0", "0"); },
         "Setting LinkStatus port=1 to (0)L2SW_LINK_INVALID\nrltkFTsetLinkStatus() ERROR: link status not valid.!!\n"},
        {[] { return rltkFTsetLinkStatus("2", "5"); },
         "Setting LinkStatus port=1024 to (5)ENUM NOT FOUND!\nrltkFTsetLinkStatus() ERROR: link status not valid.!!\n"},
        {[] { return rltkFTgetLinkStatus("3"); }, "rltkFTgetLinkStatus() FAIL: port not exist!!\n"},
        {[] { return rltkFTsetLinkMode("3", "1"); }, "rltkFTsetLinkMode() FAIL: port not exist!!\n"},
        {[] { return rltkFTsetLinkMode("1", "0"); },
         "Setting linkMode to port=2 to (0)L2SW_LINK_MODE_DISABLED\nrltkFTsetLinkMode() ERROR: link mode not valid.!!\n"},
        {[] { return rltkFTsetLinkMode("1", "7"); },
         "Setting linkMode to port=2 to (7)L2SW_LINK_MODE_INVALID\nrltkFTsetLinkMode() ERROR: link mode not valid.!!\n"},
        {[] { return rltkFTgetLinkMode("3"); }, "rltkFTgetLinkMode() FAIL: port not exist!!\n"},
        {[] { return rltkFTgetPVID("3"); }, "rltkFTgetPVID() FAIL: port not exist!!\n"},
        {[] { return rltkFTgetPortPriority("3"); }, "rltkFTgetPortPriority() FAIL: port not exist!!\n"},
        {[] { return rltkFTSetGreenEthernetPort("2"); },
         "\nSetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .\n"
         "SetGreenEthernetPort() mode not exist!!\n"},
        {[] { return rltkFTGetEEEPort("2"); }, "rltkFTGetEEEPort() FAIL: port not exist!!\n"},
        {[] { return rltkFTSetEEEPort("2", "1"); }, "rltkFTSetEEEPort() FAIL: port not exist!!\n"},
        {[] { return rltkFTrgmiiDelayExt_set("3", "0", "0"); }, "rltkFTrgmiiDelayExt_set() FAIL: port not exist!!\n"},
    };
    for (const Refusal& r : refusals) {
        testing::internal::CaptureStdout();
        const int rc = r.call();
        const std::string out = testing::internal::GetCapturedStdout();
        EXPECT_EQ(out, r.output);
        EXPECT_EQ(rc, -1) << r.output;
    }
    EXPECT_FALSE(std::filesystem::exists(dir_ / "switch"));
}

TEST_F(OwnChecks, TheLastValueOfEachRangeStillReachesTheLibrary) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(rltkFTsetLinkStatus("2", "4"), 0);
    EXPECT_EQ(rltkFTsetLinkMode("0", "1"), 0);
    EXPECT_EQ(rltkFTsetLinkMode("2", "6"), 0);
    EXPECT_EQ(rltkFTportResetCntrs("all"), 0);
    EXPECT_EQ(rltkFTEarlyInit("0"), 0);
    testing::internal::GetCapturedStdout();
    std::string state;
    ASSERT_TRUE(ftsim::read_text("switch", state));
    EXPECT_NE(state.find("cpu.forced 4\n"), std::string::npos);
    EXPECT_NE(state.find("cpu.mode 6\n"), std::string::npos);
    EXPECT_NE(state.find("pc.mdix 0\n"), std::string::npos);
    EXPECT_NE(state.find("lan.ifInOctets 0\n"), std::string::npos);
}

}  // namespace
