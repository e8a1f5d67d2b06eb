// The wired handlers' lines beyond one run of each command on the phone
// (tests/e2e/network_*.t), on a scratch hardware folder: the words their own
// checks refuse, each failed library call, and the switch as settings and cables change.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <span>
#include <string>

#include "network/ports.h"
#include "network/switch.h"
#include "sim/core/state.h"

namespace {

struct Case {
    std::function<int()> call;
    const char* output;          // all it prints
    const char* fail = nullptr;  // the library operation made to fail (EIO), if any
    int result = -1;             // and what that returns instead
};

class WiredHandlers : public ::testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
        setenv("FTSIM_HW", dir_.c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    // Runs the cases in order; a refused call returns -1.
    void run(std::span<const Case> cases, bool refused = false) {
        for (const Case& c : cases) {
            std::vector<ftsim::Failure> failures;
            if (c.fail)
                failures.push_back({c.fail, c.result, EIO});
            EXPECT_TRUE(ftsim::set_failures(failures));
            testing::internal::CaptureStdout();
            const int rc = c.call();
            EXPECT_EQ(testing::internal::GetCapturedStdout(), c.output);
            EXPECT_TRUE(!refused || rc == -1) << c.output;
        }
    }

    const std::filesystem::path dir_ =
        std::filesystem::temp_directory_path() / ("ft-wired-" + std::to_string(getpid()));
};

// A call, as a case runs it.
#define DO(...) [] { return __VA_ARGS__; }
#define NO_PORT(name) name "() FAIL: port not exist!!\n"
#define BAD_STATUS "rltkFTsetLinkStatus() ERROR: link status not valid.!!\n"
#define BAD_MODE "rltkFTsetLinkMode() ERROR: link mode not valid.!!\n"
#define ERR(name) name " ERROR: ret=-1, errno=5 Input/output error\n"
#define READ_BACK(port, configured, actual, status)                                                                \
    "\nGetLinkMode() port=" port " link mode:(L2SW_LINK_MODE_" configured ")\n\nGetLinkMode() port=" port          \
    " actual linkmode:(L2SW_LINK_MODE_" actual ")\n\nGetLinkStatus() port=" port " link status:(L2SW_LINK_" status \
    ")\n"
#define LAN(configured, actual, status) READ_BACK("2", configured, actual, status)
#define GREEN(what) "\n" what "GreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .\n"
#define PHY(reg, value) "PASS... rltkFTGetPhyRegValue: phyReg[" reg "]= 0x0000" value ".\n"
#define PHY_FAIL "rltkFTGetPhyRegValue() FAIL: L2Switch_GetPhyRegValue()\n"
#define LPI(g, m) "\nLPI status for 1G: (L2SW_LPI_" g ") \nLPI status for 100M: (L2SW_LPI_" m ") \nPASS\n"

TEST_F(WiredHandlers, RefuseWhatTheirOwnChecksKeepOut) {
    const Case cases[] = {
        // The switch handlers behind the shell's checks: the first value refused at each end.
        {DO(rltkFTportCntrs("3")), NO_PORT("rltkFTportCntrs")},
        {DO(rltkFTportCntrs("-1")), NO_PORT("rltkFTportCntrs")},
        {DO(rltkFTportResetCntrs("4")), NO_PORT("rltkFTportResetCntrs")},
        {DO(rltkFTGetMac("2")), NO_PORT("rltkFTGetMac")},
        {DO(rltkFTGetPhyRegValue("2", "0")), NO_PORT("rltkFTGetPhyRegValue")},
        {DO(rltkFTEarlyInit("2")), "rltkFTEarlyInit() FAIL: MDIX invalid!!!\n"},
        {DO(rltkFTsetAutoMDIX("2", "0")), NO_PORT("rltkFTsetAutoMDIX")},
        {DO(rltkFTgetAutomdix("2")), NO_PORT("rltkFTgetAutoMDIX")},
        {DO(rltkFTsetLinkStatus("3", "1")), NO_PORT("rltkFTsetLinkStatus")},
        {DO(rltkFTsetLinkStatus("0", "0")), "Setting LinkStatus port=1 to (0)L2SW_LINK_INVALID\n" BAD_STATUS},
        {DO(rltkFTsetLinkStatus("2", "5")), "Setting LinkStatus port=1024 to (5)ENUM NOT FOUND!\n" BAD_STATUS},
        {DO(rltkFTgetLinkStatus("3")), NO_PORT("rltkFTgetLinkStatus")},
        {DO(rltkFTsetLinkMode("3", "1")), NO_PORT("rltkFTsetLinkMode")},
        {DO(rltkFTsetLinkMode("1", "0")), "Setting linkMode to port=2 to (0)L2SW_LINK_MODE_DISABLED\n" BAD_MODE},
        {DO(rltkFTsetLinkMode("1", "7")), "Setting linkMode to port=2 to (7)L2SW_LINK_MODE_INVALID\n" BAD_MODE},
        {DO(rltkFTgetLinkMode("3")), NO_PORT("rltkFTgetLinkMode")},
        {DO(rltkFTgetPVID("3")), NO_PORT("rltkFTgetPVID")},
        {DO(rltkFTgetPortPriority("3")), NO_PORT("rltkFTgetPortPriority")},
        {DO(rltkFTSetGreenEthernetPort("2")), GREEN("Set") "SetGreenEthernetPort() mode not exist!!\n"},
        {DO(rltkFTGetEEEPort("2")), NO_PORT("rltkFTGetEEEPort")},
        {DO(rltkFTSetEEEPort("2", "1")), NO_PORT("rltkFTSetEEEPort")},
        {DO(rltkFTrgmiiDelayExt_set("3", "0", "0")), NO_PORT("rltkFTrgmiiDelayExt_set")},
        // The port commands check their own words.
        {DO(eth("x", "0")), "FAIL: eth() port not found...\n"},
        {DO(eth("0", "x")), "FAIL: eth() port not found...\n"},
        {DO(eth("-1", "0")), "FAIL: eth() port not exist!!\n"},
        {DO(eth("2", "0")), "FAIL: eth() port not exist!!\n"},
        {DO(setport("x", "1")), "FAIL : port not valid !!\n"},
        {DO(setport("1", "x")), "FAIL : port not valid !!\n"},
        {DO(setport("0", "0")), "FAIL : port not valid !!!\n"},
        {DO(setport("2", "0")), "FAIL : port not valid !!!\n"},
        {DO(setport("1", "5")), "FAIL : mode not valid\n"},
        {DO(ip("1", "10.0.0.256")), "FAIL\n"},
        {DO(ip("2", "10.0.0.1")), "FAIL\n"},
        {DO(ip("x", "")), "FAIL\n"},
        {DO(ping("host")), "Invalid IP address\n"},
        {DO(ledTest("ON")), "Incorrect parameter\nFAIL\n"},
        {DO(ethled("Off")), "FAIL\n"},
    };
    run(cases, true);
    EXPECT_EQ(ftsim::hw().list(), std::vector<std::string>{"fail"});
}

TEST_F(WiredHandlers, SayWhichLibraryCallFailed) {
    const Case cases[] = {
        {DO(rltkFTEarlyInit("1")),
         "\nrltkFTEarlyInit() call L2Switch_EarlyInit(MDIX enable)\nrltkFTEarlyInit() FAIL: L2Switch_EarlyInit() \n",
         "L2Switch_EarlyInit"},
        {rltkFTResetSettings, "rltkFTResetSettings() FAIL: L2Switch_ResetSettings() \n", "L2Switch_ResetSettings"},
        {DO(rltkFTGetMac("1")), "rltkFTGetMac() FAIL: L2Switch_GetMacAddr()\n", "L2Switch_GetMacAddr"},
        {rltkFTPrintMacTable, "rltkFTPrintMacTable() FAIL: L2Switch_print_mac_table()\n", "L2Switch_print_mac_table"},
        {DO(rltkFTgetLinkMode("1")), ERR("rltkFTgetLinkMode()"), "L2Switch_GetLinkMode"},
        {DO(rltkFTgetLinkMode("1")), ERR("rltkFTgetLinkMode() (actualMode)"), "L2Switch_GetLinkMode_actual"},
        // eth: a failed link-up before a mode change is not judged, a call
        // that reports success but changes nothing fails the verdict.
        {DO(eth("1", "100")), "FAIL: L2Switch_EarlyInit() \n", "L2Switch_EarlyInit"},
        {DO(eth("1", "100")), "FAIL: L2Switch_IsSwitchPortSupport1G()!!\n", "L2Switch_IsSwitchPortSupport1G"},
        {DO(eth("1", "1")), "FAIL: setLink...\n", "L2Switch_SetLinkStatus"},
        {DO(eth("1", "10")), LAN("10_FULL", "10_FULL", "UP") "PASS\n", "L2Switch_SetLinkStatus"},
        {DO(eth("1", "1")), LAN("10_FULL", "10_FULL", "UP") "FAIL: to set ft eth...\n", "L2Switch_SetLinkStatus", 0},
        {DO(eth("1", "100")), LAN("10_FULL", "10_FULL", "UP") "FAIL: to set ft eth...\n", "L2Switch_SetLinkMode", 1},
        {DO(eth("1", "100")), "FAIL: setLink...\n", "L2Switch_SetLinkMode"},
        {DO(eth("1", "1003")), "FAIL: setLink...\n", "L2Switch_SetTestMode"},
        {DO(eth("1", "100")), "FAIL: in GetLinkMode()!!!!\n", "L2Switch_GetLinkMode"},
        {DO(eth("1", "11")),
         "\nGetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_HALF)\nFAIL: in GetLinkMode()-actualMode!!!!\n",
         "L2Switch_GetLinkMode_actual"},
        {DO(eth("1", "101")),
         "\nGetLinkMode() port=2 link mode:(L2SW_LINK_MODE_100_HALF)\n\nGetLinkMode() port=2 actual "
         "linkmode:(L2SW_LINK_MODE_100_HALF)\nFAIL: in GetLinkStatus(rtk_port=2, status=0)!!!\n",
         "L2Switch_GetLinkStatus", -2},
        {DO(eth("1", "1004")), LAN("100_HALF", "INVALID", "DOWN") "FAIL: GetTestMode()!!!\n", "L2Switch_GetTestMode"},
        // led passes on a result of 0 only, ethled on 0 or more.
        {DO(ledTest("on")), "FAIL\n", "Led_SetSteadyStateAll", 1},
        {DO(ledTest("flash")), "FAIL\n", "Led_SetFlashStateAll"},
        {DO(ethled("on")), "FAIL\n", "L2SW_EthernetLedTest"},
        {DO(ethled("on")), "PASS\n", "L2SW_EthernetLedTest", 1},
    };
    run(cases);
}

TEST_F(WiredHandlers, ReadTheSwitchAsItsSettingsAndCablesMakeIt) {
    const Case cases[] = {
        // eth: link down passes on the state read back; without 1000 Mb/s the
        // gigabit modes are refused, after bringing back the link it forced down.
        {DO(eth("1", "1")), LAN("AUTO", "DISABLED", "DOWN") "PASS\n"},
        {DO(ftsim::set_condition("switch.gigabit.lan", "no"), eth("1", "1000")), "FAIL: not match ..\n"},
        {DO(eth("1", "1001")), "FAIL: not match ..\n"},
        {DO(rltkFTgetLinkStatus("1")), "\nGetting linkStatus port=1 link status:(L2SW_LINK_UP)\nPASS\n"},
        {DO(ftsim::set_condition("switch.gigabit.lan", "yes"), eth("1", "0")), LAN("AUTO", "1000_FULL", "UP") "PASS\n"},
        {DO(eth("1", "100")), LAN("100_FULL", "100_FULL", "UP") "PASS\n"},
        // A test mode keeps the configured mode; a PHY sending its waveform has no link.
        {DO(eth("1", "1001")), LAN("100_FULL", "INVALID", "DOWN") "PASS\n"},
        {DO(eth("1", "102")), "FAIL: in eth() NA!!!!\n"},
        {DO(eth("1", "103")), "FAIL: in eth() NA!!!!\n"},
        {DO(eth("1", "1005")), "FAIL: not match ..\n"},
        {DO(eth("1", "0")), LAN("AUTO", "1000_FULL", "UP") "PASS\n"},
        {DO(rltkFTGetMac("0")), "\nMac Addr: 02:1a:2b:3c:4d:01\nPASS\n"},
        // Registers: the chip's identifier, and the last address there is and the first there isn't.
        {DO(rltkFTGetRegValue("0x1300")), "PASS... rltkFTGetRegValue: 5a31\n"},
        {DO(rltkFTGetRegValue("ffff")), "PASS... rltkFTGetRegValue: 0\n"},
        {DO(rltkFTGetRegValue("10000")), "rltkFTGetRegValue() FAIL: L2Switch_GetRegValue()\n"},
        {DO(rltkFTGetPhyRegValue("1", "0")), PHY("0", "1140")},
        {DO(rltkFTGetPhyRegValue("1", "10")), PHY("10", "3c00")},
        {DO(rltkFTGetPhyRegValue("0", "31")), PHY("31", "0000")},
        {DO(rltkFTGetPhyRegValue("0", "32")), PHY_FAIL},
        {DO(rltkFTGetPhyRegValue("0", "-1")), PHY_FAIL},
        // A 100 Mb/s partner on the PC port: low power idle at each speed with EEE on.
        {DO(ftsim::set_condition("switch.partner.pc", "100"), rltkFTl2getLPIStatus()), LPI("LOW", "LOW")},
        {DO(rltkFTGetPhyRegValue("0", "10")), PHY("10", "0000")},
        {DO(rltkFTSetEEEPort("1", "0")), "Setting EEE on port=1 to (L2SW_EEE_DISABLED)\nPASS\n"},
        {rltkFTl2getLPIStatus, LPI("REGULAR", "LOW")},
        // Down and disabled hold a port down whatever its cable, enable lets it link again.
        {DO(rltkFTsetLinkStatus("1", "2")), "Setting LinkStatus port=2 to (2)L2SW_LINK_DOWN\nPASS\n"},
        {DO(rltkFTGetPhyRegValue("1", "1")), PHY("1", "7909")},
        {DO(rltkFTGetPhyRegValue("1", "0")), PHY("0", "1900")},
        {DO(rltkFTsetLinkStatus("1", "4")), "Setting LinkStatus port=2 to (4)L2SW_LINK_DISABLED\nPASS\n"},
        {DO(rltkFTgetLinkStatus("1")), "\nGetting linkStatus port=1 link status:(L2SW_LINK_DISABLED)\nPASS\n"},
        {DO(rltkFTsetLinkStatus("1", "3")), "Setting LinkStatus port=2 to (3)L2SW_LINK_ENABLE\nPASS\n"},
        {DO(rltkFTsetLinkStatus("2", "4")), "Setting LinkStatus port=1024 to (4)L2SW_LINK_DISABLED\nPASS\n"},
        {DO(eth("0", "11")), READ_BACK("1", "10_HALF", "10_HALF", "UP") "PASS\n"},
        {DO(rltkFTsetLinkMode("0", "6")), "Setting linkMode to port=1 to (6)L2SW_LINK_MODE_1000_FULL\nPASS\n"},
        {DO(rltkFTGetRegValue("91a")), "PASS... rltkFTGetRegValue: 2\n"},
        // A port without 1000 Mb/s refuses that mode outright.
        {DO(ftsim::set_condition("switch.gigabit.pc", "no"), rltkFTsetLinkMode("0", "6")),
         "Setting linkMode to port=1 to (6)L2SW_LINK_MODE_1000_FULL\n"
         "rltkFTsetLinkMode() ERROR: ret=-1, errno=95 Operation not supported\n"},
        {DO(rltkFTsetLinkMode("2", "1")), "Setting linkMode to port=1024 to (1)L2SW_LINK_MODE_AUTO\nPASS\n"},
        {rltkFTResetSettings, "\nReset configuration of L2 Switch to its defaults....l2resetSettings() PASS\n"},
        {DO(rltkFTGetRegValue("91a")), "PASS... rltkFTGetRegValue: 403\n"},
        // l2Init sets both PHY ports' automatic MDI/MDI-X.
        {DO(rltkFTEarlyInit("0")),
         "\nrltkFTEarlyInit() call L2Switch_EarlyInit(MDIX disable) !!\nrltkFTEarlyInit() PASS\n"},
        {DO(rltkFTgetAutomdix("1")), "\nGot autoMDIXPort port=1 autoMDIXPort=(L2SW_AUTO_MDIX_DISABLED)\nPASS\n"},
        {DO(rltkFTEarlyInit("1")),
         "\nrltkFTEarlyInit() call L2Switch_EarlyInit(MDIX enable)\nrltkFTEarlyInit() PASS\n"},
        {DO(rltkFTgetAutomdix("0")), "\nGot autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)\nPASS\n"},
        {DO(rltkFTSetGreenEthernetPort("1")),
         GREEN("Set") "Setting Set Green Ethernet to GREEN_ETHERNET_ENABLED.\nPASS\n"},
        {DO(ftsim::write_atomic("switch", "green 0\n"), rltkFTGetGreenEthernetPort()),
         GREEN("Get") "\nGreen Ethernet mode :0 \n\nGreen Ethernet mode L2SW_GREEN_ETHERNET_DISABLED \nPASS\n"},
        {DO(rltkFTl2setSSC("1")), "Setting SSC to (L2SW_SSC_ENABLED)\nPASS\n"},
        {rltkFTl2getSSC, "\nspread frequency (SSC) for Ethernet Switch : L2SW_SSC_ENABLED \nPASS\n"},
        // The CPU port's receive delay runs from 0 to 7.
        {DO(rltkFTrgmiiDelayExt_set("2", "1", "8")),
         "Setting rgmiiDelayExt on port=2 to (txDelay=1) and (rxDelay=8)\n"
         "rltkFTrgmiiDelayExt_set() ERROR: ret=-1, errno=22 Invalid argument\n"},
        {DO(rltkFTrgmiiDelayExt_set("2", "1", "-1")),
         "Setting rgmiiDelayExt on port=2 to (txDelay=1) and (rxDelay=-1)\n"
         "rltkFTrgmiiDelayExt_set() ERROR: ret=-1, errno=22 Invalid argument\n"},
        {DO(rltkFTrgmiiDelayExt_set("2", "1", "0")),
         "Setting rgmiiDelayExt on port=2 to (txDelay=1) and (rxDelay=0)\nPASS\n"},
        // A Green Ethernet mode the library should never give.
        {DO(ftsim::write_atomic("switch", "green 2\n"), rltkFTGetGreenEthernetPort()),
         GREEN("Get") "\nGreen Ethernet mode :2 \n\nGreen Ethernet mode :error !!! \n"},
    };
    run(cases);
}

}  // namespace
