// The words the shell checks before an Ethernet switch handler runs: each list
// takes exactly its words; any other gets the row's message and reaches no
// handler. No area is linked: every handler is a stand-in noting its call.
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "shell/dispatch.h"
#include "shell/handlers.h"

namespace {

std::string g_call;  // "handler(word,word)" of the last call

int record(const char* handler, std::initializer_list<const char*> words) {
    g_call = std::string(handler) + "(";
    for (const char* w : words) g_call += std::string(w) + ",";
    if (words.size() != 0) g_call.pop_back();
    g_call += ")";
    return 0;
}

}  // namespace

// clang-format off
#define H0(f) int f() { return record(#f, {}); }
#define H1(f) int f(const char* a) { return record(#f, {a}); }
#define H2(f) int f(const char* a, const char* b) { return record(#f, {a, b}); }
#define H3(f) int f(const char* a, const char* b, const char* c) { return record(#f, {a, b, c}); }
#define H4(f) int f(const char* a, const char* b, const char* c, const char* d) { return record(#f, {a, b, c, d}); }
#define H5(f) int f(const char* a, const char* b, const char* c, const char* d, const char* e) { \
        return record(#f, {a, b, c, d, e}); }

H0(config_info) H2(config_program_write) H2(config_program_writecommit) H0(config_program_commit)
H1(config_program_list) H1(config_program_read) H1(config_program_reset) H1(config_production)
H3(audio_loop) H1(audio_section508_gain) H2(audio_tone)
int audio_warn(const char* a, const char* b, const char* c, const char* d, const char* e, const char* f,
               const char* g) { return record("audio_warn", {a, b, c, d, e, f, g}); }
H1(lcd_fill) H0(lcd_crosshair) H1(lcd_invertgrid) H0(lcd_half_filled) H3(lcd_fl) H2(lcd_digit) H1(backlight)
H1(rawbacklight) H1(keyTest) H1(jackTest) H1(jackKeyTest) H1(hookswitchTest) H1(ehsTest)
H0(wifi_mac_get) H0(wifi_scan_network) H0(wifi_cap) H2(wifi_rf_cfg) H4(wifi_rf_scan)
int wifi_init(int) { return record("wifi_init", {}); }
int wifi_exit(int) { return record("wifi_exit", {}); }
H0(btEnable) H0(btDisable) H0(btScan) H0(btTestInit) H0(btCap)
int btGetMacAddr(char*) { return record("btGetMacAddr", {}); }
H0(flash) H1(sdram) H2(setport) H1(ethled) H2(eth) H2(ip) H1(ping) H1(ledTest) H5(sendFTP) H5(getFTP)
H4(velor_regulatory) H0(usblist) H0(usbrw) H2(usb_cmd) H1(cameraAction)
void cradleTest(const char* a) { record("cradleTest", {a}); }
H0(gen_self_signed_cert) H0(regen_fips_signed_cert)
H0(rltkFTResetSettings) H1(rltkFTportCntrs) H1(rltkFTportResetCntrs) H1(rltkFTGetMac) H0(rltkFTPrintMacTable)
H1(rltkFTGetRegValue) H2(rltkFTGetPhyRegValue) H1(rltkFTEarlyInit) H2(rltkFTsetAutoMDIX) H1(rltkFTgetAutomdix)
H2(rltkFTsetLinkStatus) H1(rltkFTgetLinkStatus) H2(rltkFTsetLinkMode) H1(rltkFTgetLinkMode) H1(rltkFTgetPVID)
H1(rltkFTgetPortPriority) H1(rltkFTgetVlanMbrCfg) H0(rltkFTshowAllRules) H0(rltkFTdelAllRules)
H0(rltkFTGetGreenEthernetPort) H1(rltkFTSetGreenEthernetPort) H1(rltkFTGetEEEPort) H2(rltkFTSetEEEPort)
H3(rltkFTrgmiiDelayExt_set) H0(rltkFTl2getSSC) H1(rltkFTl2setSSC) H0(rltkFTl2getLPIStatus)

namespace {

// What a typed line does: the handler call it made, then what it printed.
std::string run(const std::string& line) {
    g_call.clear();
    ft::CommandLine cl;
    EXPECT_EQ(ft::split_line(line.c_str(), cl), ft::SplitResult::Ok) << line;
    testing::internal::CaptureStdout();
    ft::dispatch(cl);
    return g_call + testing::internal::GetCapturedStdout();
}

using Words = std::vector<std::string>;
const Words k01{"0", "1"}, k012{"0", "1", "2"};

struct Checked {
    const char* command;
    const char* handler;
    int passes;   // words handed on: 1, 2 or 3
    Words word1;  // accepted words; empty: unchecked
    const char* refused1;
    Words word2 = {};
    const char* refused2 = nullptr;
};

const char* kPort = "port not valid ! ";
const Checked kChecked[] = {
    {"l2portCntrs", "rltkFTportCntrs", 1, k012, kPort},
    {"l2portResetCntrs", "rltkFTportResetCntrs", 1, {"0", "1", "2", "all"}, kPort},
    {"l2getmac", "rltkFTGetMac", 1, k01, kPort},
    {"l2getPhyRegValue", "rltkFTGetPhyRegValue", 2, k01, kPort},
    {"l2Init", "rltkFTEarlyInit", 1, k01, kPort},
    {"l2setAutoMDIX", "rltkFTsetAutoMDIX", 2, k01, kPort, k01, "mode not valid ! "},
    {"l2getAutoMDIX", "rltkFTgetAutomdix", 1, k01, kPort},
    {"l2setLinkStatus", "rltkFTsetLinkStatus", 2, k012, kPort, {"1", "2", "3", "4"}, "status not valid ! "},
    {"l2getLinkStatus", "rltkFTgetLinkStatus", 1, k01, kPort},
    {"l2setLinkMode", "rltkFTsetLinkMode", 2, k012, kPort, {"1", "2", "3", "4", "5", "6"}, "status not valid ! "},
    {"l2getLinkMode", "rltkFTgetLinkMode", 1, k01, kPort},
    {"l2GetPVID", "rltkFTgetPVID", 1, k012, kPort},
    {"l2GetPortPriority", "rltkFTgetPortPriority", 1, k012, kPort},
    {"l2SetGreenEthernetPort", "rltkFTSetGreenEthernetPort", 1, k01, "mode not valid !"},
    {"l2GetEEEPort", "rltkFTGetEEEPort", 1, k01, kPort},
    {"l2SetEEEPort", "rltkFTSetEEEPort", 2, k01, kPort, k01, "mode not valid ! "},
    {"l2rgmiiDelayExt_set", "rltkFTrgmiiDelayExt_set", 3, {"2"}, "port not valid (only cpu_port (2) ) ! ", k01,
     "txDelay not valid ! "},
    {"l2setSSC", "rltkFTl2setSSC", 1, k01, "SSC status not valid ! "},
    {"l2getRegValue", "rltkFTGetRegValue", 1, {}, nullptr},  // unchecked: any word reaches the handler
};

// Each list is tried with every word here: the neighbours of its ends, and
// look-alikes of the accepted words. "" is the missing word.
const Words kTried{"", "-1", "0", "1", "2", "3", "4", "5", "6", "7", "00", "01", "+1", "1x", "all", "ALL"};

TEST(SwitchChecks, EachListTakesExactlyItsWordsAndThePortComesFirst) {
    for (const Checked& c : kChecked) {
        const auto in = [](const Words& list, const std::string& w) {
            return std::find(list.begin(), list.end(), w) != list.end();
        };
        const auto call = [&c](const std::string& w1, const std::string& w2) {
            const Words words{w1, w2, "extra"};
            std::string s = std::string(c.handler) + "(" + w1;
            for (int i = 1; i < c.passes; ++i) s += "," + words[static_cast<std::size_t>(i)];
            return s + ")";
        };
        const auto refusal = [&c](const char* message) { return std::string("\n") + c.command + "() FAIL. " + message + "\n"; };
        const std::string good1 = c.word1.empty() ? "x" : c.word1.back(), good2 = c.word2.empty() ? "x" : c.word2.back();
        for (const std::string& w : kTried) {
            // A missing word 1 leaves every later word missing too.
            const std::string line = std::string(c.command) + (w.empty() ? "" : " " + w + " " + good2 + " extra");
            const bool ok = c.word1.empty() || in(c.word1, w);
            EXPECT_EQ(run(line), ok ? call(w, w.empty() ? "" : good2) : refusal(c.refused1)) << line;
            if (c.word2.empty()) continue;
            const std::string line2 = std::string(c.command) + " " + good1 + (w.empty() ? "" : " " + w + " extra");
            EXPECT_EQ(run(line2), in(c.word2, w) ? call(good1, w) : refusal(c.refused2)) << line2;
            // A bad port is reported whatever the mode.
            EXPECT_EQ(run(std::string(c.command) + " 9 " + w), refusal(c.refused1));
        }
    }
}

TEST(SwitchChecks, VlanIndexBelow4096OrAll) {
    for (const char* w : {"0", "4095", "all", "vlan", "4095x", "+7", "\t7", "ALL"})
        EXPECT_EQ(run(std::string("l2GetVlan_mbrCfg ") + w), std::string("rltkFTgetVlanMbrCfg(") + w + ")") << w;
    for (const char* w : {"4096", "-1", "-4095", "99999", ""})
        EXPECT_EQ(run(std::string("l2GetVlan_mbrCfg ") + w), "\nl2GetVlan_mbrCfg() FAIL. parameter not valid ! \n") << w;
}

}  // namespace
// clang-format on
