#include "shell/dispatch.h"

#include <array>
#include <cstdio>
#include <span>
#include <string_view>

#include "common/run.h"
#include "common/words.h"
#include "shell/handlers.h"

namespace ft {
namespace {

using Run = int (*)(const CommandLine&);

struct Row {
    std::string_view word;
    Run run;
};

int say(const char* line) {
    std::puts(line);
    return -1;
}

constexpr const char* kNotValid = "Not a valid command";

// Exact match of a word in a table; no prefixes, so a new row can never
// change what an abbreviation runs.
int run_table(std::span<const Row> table, std::string_view word, const CommandLine& cl, const char* otherwise) {
    for (const Row& r : table)
        if (r.word == word) return r.run(cl);
    return say(otherwise);
}

constexpr Row kProgram[] = {
    {"write",
     [](const CommandLine& c) {
         std::array<char, kQuotedSize> value{};
         if (!join_quoted_value(c, value)) return say(kQuotedTooLong);
         return config_program_write(c.word(2), value.data());
     }},
    {"writecommit",
     [](const CommandLine& c) {
         std::array<char, kQuotedSize> value{};
         if (!join_quoted_value(c, value)) return say(kQuotedTooLong);
         return config_program_writecommit(c.word(2), value.data());
     }},
    {"commit", [](const CommandLine&) { return config_program_commit(); }},
    {"list", [](const CommandLine& c) { return config_program_list(c.word(2)); }},
    {"read", [](const CommandLine& c) { return config_program_read(c.word(2)); }},
    {"reset", [](const CommandLine& c) { return config_program_reset(c.word(2)); }},
};

constexpr Row kLcd[] = {
    {"fill", [](const CommandLine& c) { return lcd_fill(c.word(2)); }},
    {"crosshair", [](const CommandLine&) { return lcd_crosshair(); }},
    {"invertgrid", [](const CommandLine& c) { return lcd_invertgrid(c.word(2)); }},
    {"half_filled", [](const CommandLine&) { return lcd_half_filled(); }},
    {"fl", [](const CommandLine& c) { return lcd_fl(c.word(2), c.word(3), c.word(4)); }},
};

constexpr Row kWifi[] = {
    {"mac_get", [](const CommandLine&) { return wifi_mac_get(); }},
    {"scan", [](const CommandLine&) { return wifi_scan_network(); }},
    {"start", [](const CommandLine&) { return wifi_init(1); }},
    {"stop", [](const CommandLine&) { return wifi_exit(1); }},
    {"cap", [](const CommandLine&) { return wifi_cap(); }},
};

constexpr Row kWifiRf[] = {
    {"cfg", [](const CommandLine& c) { return wifi_rf_cfg(c.word(2), c.word(3)); }},
    {"scan",
     [](const CommandLine& c) { return wifi_rf_scan(c.word(2), c.word(3), c.word(4), c.word(5)); }},
};

// The shell prints the verdict of these Bluetooth calls itself.
int bt_verdict_on_failure(int (*handler)()) {
    const int rc = handler();
    if (rc != 0) std::puts("FAIL");
    return rc;
}

constexpr Row kBt[] = {
    {"on", [](const CommandLine&) { return bt_verdict_on_failure(btEnable); }},
    {"off", [](const CommandLine&) { return bt_verdict_on_failure(btDisable); }},
    {"mac_get",
     [](const CommandLine&) {
         std::array<char, 20> address{};
         const int rc = btGetMacAddr(address.data());
         address.back() = '\0';
         if (rc == 0)
             std::printf("%s\nPASS\n", address.data());
         else
             std::puts("FAIL");
         return rc;
     }},
    {"scan", [](const CommandLine&) { return btScan(); }},
    {"init",
     [](const CommandLine&) {
         const int rc = btTestInit();
         std::puts(rc == 0 ? "PASS" : "FAIL");
         return rc;
     }},
    {"cap", [](const CommandLine&) { return btCap(); }},
};

constexpr const char* kMfgOptions = "Not a valid command option. Please check ft help for mfg command options.";

int mfg(const CommandLine& c) {
    if (word_is(c.word(1), "bt"))
        return say("Bluetooth is not supported yet. Please check ft help for mfg command options.");
    if (!word_is(c.word(1), "wifi")) return say(kMfgOptions);
    if (word_is(c.word(2), "start")) return run_command("/system/bin/wifi_reg_test.sh start");
    if (word_is(c.word(2), "stop")) return run_command("/system/bin/wifi_reg_test.sh stop");
    return say(kMfgOptions);
}

// --- Ethernet switch: the shell checks the port and mode words exactly. ---

using Accept = bool (*)(const char*);

template <const auto& List>
bool one_of(const char* w) {
    for (std::string_view a : List)
        if (a == w) return true;
    return false;
}

constexpr std::array<std::string_view, 2> k01{"0", "1"};
constexpr std::array<std::string_view, 3> k012{"0", "1", "2"};
constexpr std::array<std::string_view, 4> k012all{"0", "1", "2", "all"};
constexpr std::array<std::string_view, 4> k1to4{"1", "2", "3", "4"};
constexpr std::array<std::string_view, 6> k1to6{"1", "2", "3", "4", "5", "6"};
constexpr std::array<std::string_view, 1> k2{"2"};

// Below 4096 as an unsigned 32-bit value, or "all"; a word without digits
// converts to 0 and passes, a negative number wraps and fails.
bool vlan_index(const char* w) {
    if (w[0] == '\0') return false;
    if (word_is(w, "all")) return true;
    return static_cast<unsigned int>(word_to_number(w)) < 4096u;
}

struct Check {
    Accept accept = nullptr;  // null: the word is passed unchecked
    const char* failure = nullptr;
};

struct SwitchRow {
    std::string_view word;
    Check word1;
    Check word2;
    Run run;
};

constexpr SwitchRow kSwitch[] = {
    {"l2", {}, {}, [](const CommandLine&) { return factory_l2_help(); }},
    {"l2resetSettings", {}, {}, [](const CommandLine&) { return rltkFTResetSettings(); }},
    {"l2portCntrs", {one_of<k012>, "\nl2portCntrs() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTportCntrs(c.word(1)); }},
    {"l2portResetCntrs", {one_of<k012all>, "\nl2portResetCntrs() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTportResetCntrs(c.word(1)); }},
    {"l2getmac", {one_of<k01>, "\nl2getmac() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTGetMac(c.word(1)); }},
    {"l2printMacTable", {}, {}, [](const CommandLine&) { return rltkFTPrintMacTable(); }},
    {"l2getRegValue", {}, {}, [](const CommandLine& c) { return rltkFTGetRegValue(c.word(1)); }},
    {"l2getPhyRegValue", {one_of<k01>, "\nl2getPhyRegValue() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTGetPhyRegValue(c.word(1), c.word(2)); }},
    {"l2Init", {one_of<k01>, "\nl2Init() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTEarlyInit(c.word(1)); }},
    {"l2setAutoMDIX", {one_of<k01>, "\nl2setAutoMDIX() FAIL. port not valid ! "},
     {one_of<k01>, "\nl2setAutoMDIX() FAIL. mode not valid ! "},
     [](const CommandLine& c) { return rltkFTsetAutoMDIX(c.word(1), c.word(2)); }},
    {"l2getAutoMDIX", {one_of<k01>, "\nl2getAutoMDIX() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTgetAutomdix(c.word(1)); }},
    {"l2setLinkStatus", {one_of<k012>, "\nl2setLinkStatus() FAIL. port not valid ! "},
     {one_of<k1to4>, "\nl2setLinkStatus() FAIL. status not valid ! "},
     [](const CommandLine& c) { return rltkFTsetLinkStatus(c.word(1), c.word(2)); }},
    {"l2getLinkStatus", {one_of<k01>, "\nl2getLinkStatus() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTgetLinkStatus(c.word(1)); }},
    {"l2setLinkMode", {one_of<k012>, "\nl2setLinkMode() FAIL. port not valid ! "},
     {one_of<k1to6>, "\nl2setLinkMode() FAIL. status not valid ! "},
     [](const CommandLine& c) { return rltkFTsetLinkMode(c.word(1), c.word(2)); }},
    {"l2getLinkMode", {one_of<k01>, "\nl2getLinkMode() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTgetLinkMode(c.word(1)); }},
    {"l2GetPVID", {one_of<k012>, "\nl2GetPVID() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTgetPVID(c.word(1)); }},
    {"l2GetPortPriority", {one_of<k012>, "\nl2GetPortPriority() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTgetPortPriority(c.word(1)); }},
    {"l2GetVlan_mbrCfg", {vlan_index, "\nl2GetVlan_mbrCfg() FAIL. parameter not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTgetVlanMbrCfg(c.word(1)); }},
    {"l2ShowAllRules", {}, {}, [](const CommandLine&) { return rltkFTshowAllRules(); }},
    {"l2DelAllRules", {}, {}, [](const CommandLine&) { return rltkFTdelAllRules(); }},
    {"l2GetGreenEthernetPort", {}, {}, [](const CommandLine&) { return rltkFTGetGreenEthernetPort(); }},
    {"l2SetGreenEthernetPort", {one_of<k01>, "\nl2SetGreenEthernetPort() FAIL. mode not valid !"}, {},
     [](const CommandLine& c) { return rltkFTSetGreenEthernetPort(c.word(1)); }},
    {"l2GetEEEPort", {one_of<k01>, "\nl2GetEEEPort() FAIL. port not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTGetEEEPort(c.word(1)); }},
    {"l2SetEEEPort", {one_of<k01>, "\nl2SetEEEPort() FAIL. port not valid ! "},
     {one_of<k01>, "\nl2SetEEEPort() FAIL. mode not valid ! "},
     [](const CommandLine& c) { return rltkFTSetEEEPort(c.word(1), c.word(2)); }},
    {"l2rgmiiDelayExt_set", {one_of<k2>, "\nl2rgmiiDelayExt_set() FAIL. port not valid (only cpu_port (2) ) ! "},
     {one_of<k01>, "\nl2rgmiiDelayExt_set() FAIL. txDelay not valid ! "},
     [](const CommandLine& c) { return rltkFTrgmiiDelayExt_set(c.word(1), c.word(2), c.word(3)); }},
    {"l2getSSC", {}, {}, [](const CommandLine&) { return rltkFTl2getSSC(); }},
    {"l2setSSC", {one_of<k01>, "\nl2setSSC() FAIL. SSC status not valid ! "}, {},
     [](const CommandLine& c) { return rltkFTl2setSSC(c.word(1)); }},
    {"l2getLPIStatus", {}, {}, [](const CommandLine&) { return rltkFTl2getLPIStatus(); }},
};

int run_switch(const SwitchRow& r, const CommandLine& c) {
    // Port words are checked before mode or status words.
    if (r.word1.accept && !r.word1.accept(c.word(1))) return say(r.word1.failure);
    if (r.word2.accept && !r.word2.accept(c.word(2))) return say(r.word2.failure);
    return r.run(c);
}

constexpr Row kCommands[] = {
    // Factory data.
    {"info", [](const CommandLine&) { return config_info(); }},
    {"program",
     [](const CommandLine& c) { return run_table(kProgram, c.word(1), c, kNotValid); }},
    {"production", [](const CommandLine& c) { return config_production(c.word(1)); }},
    // Audio.
    {"audio", [](const CommandLine&) { return factory_audio_help(); }},
    {"loop", [](const CommandLine& c) { return audio_loop(c.word(1), c.word(2), c.word(3)); }},
    {"section508", [](const CommandLine& c) { return audio_section508_gain(c.word(1)); }},
    {"tone", [](const CommandLine& c) { return audio_tone(c.word(1), c.word(2)); }},
    {"warn",
     [](const CommandLine& c) {
         return audio_warn(c.word(1), c.word(2), c.word(3), c.word(4), c.word(5), c.word(6), c.word(7));
     }},
    // Display and input.
    {"lcd", [](const CommandLine& c) { return run_table(kLcd, c.word(1), c, kNotValid); }},
    {"lcd_digit", [](const CommandLine& c) { return lcd_digit(c.word(1), c.word(2)); }},
    {"backlight", [](const CommandLine& c) { return backlight(c.word(1)); }},
    {"rawbacklight", [](const CommandLine& c) { return rawbacklight(c.word(1)); }},
    {"key", [](const CommandLine& c) { return keyTest(c.word(1)); }},
    {"jackdet", [](const CommandLine& c) { return jackTest(c.word(1)); }},
    {"jackkeydet", [](const CommandLine& c) { return jackKeyTest(c.word(1)); }},
    {"hookswitch", [](const CommandLine& c) { return hookswitchTest(c.word(1)); }},
    {"ehs", [](const CommandLine& c) { return ehsTest(c.word(1)); }},
    // Wireless.
    {"wifi",
     [](const CommandLine& c) {
         return run_table(kWifi, c.word(1), c,
                          "Not a valid command option. Please check ft help for wifi command options.");
     }},
    {"wifi_rf",
     [](const CommandLine& c) {
         return run_table(kWifiRf, c.word(1), c,
                          "Not a valid command option. Please check ft help for wifi_rf command options.");
     }},
    {"bt",
     [](const CommandLine& c) {
         return run_table(kBt, c.word(1), c,
                          "Not a valid command option. Please check ft help for BT command options.");
     }},
    {"mfg", mfg},
    // Memory, network, transfers, peripherals and credentials.
    {"flash", [](const CommandLine&) { return flash(); }},
    {"sdram", [](const CommandLine& c) { return sdram(c.word(1)); }},
    {"setport", [](const CommandLine& c) { return setport(c.word(1), c.word(2)); }},
    {"ethled", [](const CommandLine& c) { return ethled(c.word(1)); }},
    {"eth", [](const CommandLine& c) { return eth(c.word(1), c.word(2)); }},
    {"ip", [](const CommandLine& c) { return ip(c.word(1), c.word(2)); }},
    {"ping", [](const CommandLine& c) { return ping(c.word(1)); }},
    {"led", [](const CommandLine& c) { return ledTest(c.word(1)); }},
    {"send",
     [](const CommandLine& c) { return sendFTP(c.word(1), c.word(2), c.word(3), c.word(4), c.word(5)); }},
    {"get",
     [](const CommandLine& c) { return getFTP(c.word(1), c.word(2), c.word(3), c.word(4), c.word(5)); }},
    {"velor",
     [](const CommandLine& c) {
         // Only "velor regulatory" exists; anything else is no command at all.
         if (!word_is(c.word(1), "regulatory")) return say(kNotValid);
         return velor_regulatory(c.word(2), c.word(3), c.word(4), c.word(5));
     }},
    {"usblist", [](const CommandLine&) { return usblist(); }},
    {"usbrw", [](const CommandLine&) { return usbrw(); }},
    {"usb", [](const CommandLine& c) { return usb_cmd(c.word(1), c.word(2)); }},
    {"camera", [](const CommandLine& c) { return cameraAction(c.word(1)); }},
    {"cradle",
     [](const CommandLine& c) {
         cradleTest(c.word(1));  // no result: the shell ignores results anyway
         return 0;
     }},
    {"gencert", [](const CommandLine&) { return gen_self_signed_cert(); }},
    {"regenfipscert", [](const CommandLine&) { return regen_fips_signed_cert(); }},
};

}  // namespace

Next dispatch(const CommandLine& cl) {
    const std::string_view w0 = cl.word(0);
    if (word_is_one_of(cl.word(0), {"help", "h", "?"})) {
        std::puts("\n");
        factory_help();
        return Next::Prompt;
    }
    if (word_is_one_of(cl.word(0), {"quit", "q"})) return Next::Quit;
    for (const Row& r : kCommands) {
        if (r.word == w0) {
            r.run(cl);
            return Next::Prompt;
        }
    }
    for (const SwitchRow& r : kSwitch) {
        if (r.word == w0) {
            run_switch(r, cl);
            return Next::Prompt;
        }
    }
    say(kNotValid);
    return Next::Prompt;
}

}  // namespace ft
