// The switch diagnostics. All 27 commands follow one course (open the
// library's channel, take the port word, announce what will be set, call the
// library, print what it gave and a verdict), so each is one row of the table
// below and one runner walks the course; a row holds only what sets its
// command apart: its name, its ports, its library call and its texts.
#include "network/switch.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <unistd.h>

#include "common/unique_handle.h"
#include "common/words.h"
#include "network/link_names.h"
#include "platform/velor.h"

namespace {

using ft::network::link_mode_name;
using ft::network::link_status_name;
using ft::network::name_of;

constexpr std::array<const char*, 2> kMdixNames{"L2SW_AUTO_MDIX_DISABLED", "L2SW_AUTO_MDIX_ENABLED"};
constexpr std::array<const char*, 2> kEeeNames{"L2SW_EEE_DISABLED", "L2SW_EEE_ENABLED"};
constexpr std::array<const char*, 2> kSscNames{"L2SW_SSC_DISABLED", "L2SW_SSC_ENABLED"};
constexpr std::array<const char*, 2> kLpiNames{"L2SW_LPI_REGULAR", "L2SW_LPI_LOW"};

// Switch port identifiers by typed port number: PC, LAN, CPU, and the
// counter reset's "all". A row takes as many entries as it accepts ports.
constexpr std::array<std::int32_t, 4> kPortIds{L2SW_PORT_PC, L2SW_PORT_LAN, L2SW_PORT_CPU, L2SW_PORT_ALL};
constexpr std::span<const std::int32_t> kPcLan = std::span(kPortIds).first(2);
constexpr std::span<const std::int32_t> kPcLanCpu = std::span(kPortIds).first(3);
constexpr std::span<const std::int32_t> kAnyPort = kPortIds;
// The MAC address is read from the PC port or from the CPU port, whose
// address is the phone's own on the LAN side.
constexpr std::array<std::int32_t, 2> kMacPortIds{L2SW_PORT_PC, L2SW_PORT_CPU};
constexpr int kAllPorts = 3;

int num(const char* word) { return ft::word_to_int(word); }

// One run of a command: its words, the port they name, and what the library
// filled in.
struct Call {
    const char* w1 = "";
    const char* w2 = "";
    const char* w3 = "";
    int port = 0;          // as typed
    std::int32_t id = 0;   // its switch port identifier
    std::int32_t value = 0, value2 = 0;
    std::uint16_t value16 = 0;
    std::array<std::uint8_t, 6> mac{};
    const char* step = "";  // the second of two library calls names itself in the error line
};

// Where a report command creates the report marker (below), if it makes one.
enum class Report { None, BeforeChannel, AfterChannel };

struct Row {
    const char* name;                          // in the error and port-not-exist lines
    std::span<const std::int32_t> ports = {};  // identifiers by typed port; empty: no port word
    const char* intro = nullptr;               // a line printed before the channel is opened
    // Prints what is about to be set and refuses values the library must not
    // see; false ends the command with -1.
    bool (*announce)(const Call&) = nullptr;
    int (*library)(Call&) = nullptr;           // the library call(s); the result of the last one
    int (*done)(const Call&) = nullptr;        // success output and result; null: "PASS", 0
    const char* plain_failure = nullptr;       // a fixed line instead of the errno line
    Report report = Report::None;
    const char* report_name = nullptr;         // the report's own name, in its marker lines
};

int pass(const Call&) {
    std::puts("PASS");
    return 0;
}

bool refuse(const char* line) {
    std::puts(line);
    return false;
}

// --- The report marker: the library looks for it while it produces the
// three reports. It exists from one second before the report call until the
// call has returned.

constexpr const char* kReportMarker = "/tmp/specialFTfile.txt";

bool create_report_marker() {
    if (!ft::UniqueFile(std::fopen(kReportMarker, "w+")).valid()) {
        std::puts("\n createFile(): Failed to create the special file..... ");
        std::puts("createFile() ERROR!!! (command not run because the special file not created!!!");
        return false;
    }
    sleep(1);
    return true;
}

bool delete_report_marker() {
    if (std::remove(kReportMarker) == 0) return true;
    const int error = errno;
    std::puts("deleteFile(): Unable to delete the file - please delete the file /tmp/specialFTfile.txt !!!");
    // perror writes to standard error: our lines before it must be out first.
    std::fflush(stdout);
    errno = error;
    std::perror("Error");
    std::puts("\ndeleteFile(): Must delete the file manually from /tmp/specialFTfile.txt !!!");
    return false;
}

int cannot_create(const Row& r) {
    std::printf("%s() FAILED, cannot create the file !!!!\n", r.report_name);
    return 0;
}

int run(const Row& r, Call c) {
    if (r.intro) std::puts(r.intro);
    const bool report = r.report != Report::None;
    if (r.report == Report::BeforeChannel && !create_report_marker()) return cannot_create(r);
    Net_fd_init();
    if (!r.ports.empty()) {
        // "all" is the fourth entry, which only the counter reset's row has.
        c.port = ft::word_is(c.w1, "all") ? kAllPorts : num(c.w1);
        if (c.port < 0 || static_cast<std::size_t>(c.port) >= r.ports.size()) {
            std::printf("%s() FAIL: port not exist!!\n", r.name);
            return -1;
        }
        c.id = r.ports[static_cast<std::size_t>(c.port)];
    }
    if (r.announce && !r.announce(c)) return -1;
    if (r.report == Report::AfterChannel && !create_report_marker()) return cannot_create(r);
    const int rc = r.library(c);
    if (rc < 0) {
        const int error = errno;
        if (r.plain_failure) std::puts(r.plain_failure);
        else std::printf("%s()%s ERROR: ret=%d, errno=%d %s\n", r.name, c.step, rc, error, std::strerror(error));
        // A marker left behind would make the library take later calls for
        // reports; the error line above is what the station acts on.
        if (report) delete_report_marker();
        return -1;
    }
    if (report && !delete_report_marker()) {
        std::printf("\n%s() - cannot delete file ... \n", r.report_name);
        return 0;
    }
    return r.done ? r.done(c) : pass(c);
}

// --- The commands.

constexpr Row kEarlyInit{
    .name = "rltkFTEarlyInit",
    .announce = [](const Call& c) {
        const int mdix = num(c.w1);
        if (mdix != 0 && mdix != 1) return refuse("rltkFTEarlyInit() FAIL: MDIX invalid!!!");
        std::puts(mdix ? "\nrltkFTEarlyInit() call L2Switch_EarlyInit(MDIX enable)"
                       : "\nrltkFTEarlyInit() call L2Switch_EarlyInit(MDIX disable) !!");
        return true;
    },
    .library = [](Call& c) { return L2Switch_EarlyInit(num(c.w1)); },
    .done = [](const Call&) { std::puts("rltkFTEarlyInit() PASS"); return 0; },
    .plain_failure = "rltkFTEarlyInit() FAIL: L2Switch_EarlyInit() ",
};

constexpr Row kPortCntrs{
    .name = "rltkFTportCntrs",
    .ports = kPcLanCpu,
    .library = [](Call& c) { return L2Switch_portCntrs(c.id); },
    .done = [](const Call&) { std::puts("\nFTportCntrs(): PASS"); return 0; },
    .report = Report::AfterChannel,
    .report_name = "l2portCntrs",
};

constexpr Row kPortResetCntrs{
    .name = "rltkFTportResetCntrs",
    .ports = kAnyPort,
    .library = [](Call& c) { return L2Switch_portResetCntrs(c.id); },
    .done = [](const Call&) { std::puts("\nrltkFTportResetCntrs(): PASS"); return 0; },
};

constexpr Row kResetSettings{
    .name = "rltkFTResetSettings",
    .library = [](Call&) { return L2Switch_ResetSettings(); },
    .done = [](const Call&) {
        std::puts("\nReset configuration of L2 Switch to its defaults....l2resetSettings() PASS");
        return 0;
    },
    .plain_failure = "rltkFTResetSettings() FAIL: L2Switch_ResetSettings() ",
};

constexpr Row kGetMac{
    .name = "rltkFTGetMac",
    .ports = kMacPortIds,
    .library = [](Call& c) { return L2Switch_GetMacAddr(c.id, c.mac.data()); },
    .done = [](const Call& c) {
        const auto& m = c.mac;
        std::printf("\nMac Addr: %02x:%02x:%02x:%02x:%02x:%02x\n", m[0], m[1], m[2], m[3], m[4], m[5]);
        return pass(c);
    },
    .plain_failure = "rltkFTGetMac() FAIL: L2Switch_GetMacAddr()",
};

constexpr Row kPrintMacTable{
    .name = "rltkFTPrintMacTable",
    .library = [](Call&) { return L2Switch_print_mac_table(); },
    .done = [](const Call&) { std::puts("PASS... Please check dmesg for output"); return 0; },
    .plain_failure = "rltkFTPrintMacTable() FAIL: L2Switch_print_mac_table()",
};

constexpr Row kGetRegValue{
    .name = "rltkFTGetRegValue",
    .library = [](Call& c) {
        return L2Switch_GetRegValue(static_cast<std::int32_t>(std::strtoul(c.w1, nullptr, 16)), &c.value);
    },
    .done = [](const Call& c) {
        std::printf("PASS... rltkFTGetRegValue: %x\n", static_cast<unsigned>(c.value));
        return 0;
    },
    .plain_failure = "rltkFTGetRegValue() FAIL: L2Switch_GetRegValue()",
};

constexpr Row kGetPhyRegValue{
    .name = "rltkFTGetPhyRegValue",
    .ports = kPcLan,
    .library = [](Call& c) { return L2Switch_GetPhyRegValue(c.id, num(c.w2), &c.value); },
    .done = [](const Call& c) {
        std::printf("PASS... rltkFTGetPhyRegValue: phyReg[%d]= 0x%08x.\n", num(c.w2), static_cast<unsigned>(c.value));
        return 0;
    },
    .plain_failure = "rltkFTGetPhyRegValue() FAIL: L2Switch_GetPhyRegValue()",
};

constexpr Row kSetAutoMdix{
    .name = "rltkFTsetAutoMDIX",
    .ports = kPcLan,
    .announce = [](const Call& c) {
        std::printf("Setting autoMDIXPort port=%d to (%s)\n", c.port, name_of(kMdixNames, num(c.w2)));
        return true;
    },
    .library = [](Call& c) { return L2Switch_SetAutoMDIXPort(c.id, num(c.w2)); },
};

constexpr Row kGetAutoMdix{
    .name = "rltkFTgetAutoMDIX",
    .ports = kPcLan,
    .library = [](Call& c) { return L2Switch_GetAutoMDIXPort(c.id, &c.value); },
    .done = [](const Call& c) {
        std::printf("\nGot autoMDIXPort port=%d autoMDIXPort=(%s)\n", c.port, name_of(kMdixNames, c.value));
        return pass(c);
    },
};

constexpr Row kSetLinkStatus{
    .name = "rltkFTsetLinkStatus",
    .ports = kPcLanCpu,
    .announce = [](const Call& c) {
        const int status = num(c.w2);
        std::printf("Setting LinkStatus port=%d to (%d)%s\n", c.id, status, link_status_name(status));
        if (status < L2SW_LINK_UP || status > L2SW_LINK_DISABLED)
            return refuse("rltkFTsetLinkStatus() ERROR: link status not valid.!!");
        return true;
    },
    .library = [](Call& c) { return L2Switch_SetLinkStatus(c.id, num(c.w2)); },
};

constexpr Row kGetLinkStatus{
    .name = "rltkFTgetLinkStatus",
    .ports = kPcLanCpu,
    .library = [](Call& c) { return L2Switch_GetLinkStatus(c.id, &c.value); },
    .done = [](const Call& c) {
        std::printf("\nGetting linkStatus port=%d link status:(%s)\n", c.port, link_status_name(c.value));
        return pass(c);
    },
};

constexpr Row kSetLinkMode{
    .name = "rltkFTsetLinkMode",
    .ports = kPcLanCpu,
    .announce = [](const Call& c) {
        const int mode = num(c.w2);
        std::printf("Setting linkMode to port=%d to (%d)%s\n", c.id, mode, link_mode_name(mode));
        if (mode < L2SW_LINK_MODE_AUTO || mode > L2SW_LINK_MODE_1000_FULL)
            return refuse("rltkFTsetLinkMode() ERROR: link mode not valid.!!");
        return true;
    },
    .library = [](Call& c) { return L2Switch_SetLinkMode(c.id, num(c.w2)); },
};

constexpr Row kGetLinkMode{
    .name = "rltkFTgetLinkMode",
    .ports = kPcLanCpu,
    // Both modes are read before anything is printed.
    .library = [](Call& c) {
        if (const int rc = L2Switch_GetLinkMode(c.id, &c.value, nullptr); rc < 0) return rc;
        c.step = " (actualMode)";
        return L2Switch_GetLinkMode(c.id, nullptr, &c.value2);
    },
    .done = [](const Call& c) {
        std::printf("\nGetting linkMode:  port=%d   linkMode:(%s)\n", c.port, link_mode_name(c.value));
        std::printf("Getting actualMode:port=%d actualMode:(%s)\n", c.port, link_mode_name(c.value2));
        return pass(c);
    },
};

constexpr Row kGetPvid{
    .name = "rltkFTgetPVID",
    .ports = kPcLanCpu,
    .library = [](Call& c) { return L2Switch_GetPVID(&c.value16, c.id); },
    .done = [](const Call& c) {
        std::printf("\nGetPVID on port=%d vlanID:(%d)\n", c.port, c.value16);
        return pass(c);
    },
};

constexpr Row kGetPortPriority{
    .name = "rltkFTgetPortPriority",
    .ports = kPcLanCpu,
    .library = [](Call& c) { return L2Switch_GetPortPriority(c.id, &c.value16); },
    .done = [](const Call& c) {
        std::printf("\nPortPriority on port=%d priority:(%d)\n", c.port, c.value16);
        return pass(c);
    },
};

constexpr Row kGetVlanMbrCfg{
    .name = "rltkFTgetVlanMbrCfg",
    .library = [](Call& c) {
        return L2Switch_VlanMbrCfg(std::strncmp(c.w1, "all", 3) == 0 ? std::int32_t{L2SW_VLAN_ALL} : num(c.w1));
    },
    .done = [](const Call&) { std::puts("\nl2getVlanMbrCfg PASS"); return 0; },
    .report = Report::AfterChannel,
    .report_name = "l2getVlanMbrCfg",
};

constexpr Row kShowAllRules{
    .name = "rltkFTshowAllRules",
    .library = [](Call&) { return L2Switch_ShowAllRules(); },
    .report = Report::BeforeChannel,
    .report_name = "l2ShowAllRules",
};

constexpr Row kDelAllRules{
    .name = "rltkFTdelAllRules",
    .library = [](Call&) { return L2Switch_DelAllRules(); },
};

constexpr Row kGetGreenEthernet{
    .name = "rltkFTGetGreenEthernetPort",
    .intro = "\nGetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .",
    .library = [](Call& c) { return L2Switch_GetGreenEthernetPort(&c.value); },
    .done = [](const Call& c) {
        std::printf("\nGreen Ethernet mode :%d \n", c.value);
        if (c.value != 0 && c.value != 1) {
            std::puts("\nGreen Ethernet mode :error !!! ");
            return -1;
        }
        std::puts(c.value ? "\nGreen Ethernet mode L2SW_GREEN_ETHERNET_ENABLED "
                          : "\nGreen Ethernet mode L2SW_GREEN_ETHERNET_DISABLED ");
        return pass(c);
    },
};

constexpr Row kSetGreenEthernet{
    .name = "SetGreenEthernetPort",
    .intro = "\nSetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .",
    .announce = [](const Call& c) {
        const int mode = num(c.w1);
        if (mode != 0 && mode != 1) return refuse("SetGreenEthernetPort() mode not exist!!");
        std::puts(mode ? "Setting Set Green Ethernet to GREEN_ETHERNET_ENABLED."
                       : "Setting Set Green Ethernet to GREEN_ETHERNET_DISABLED.");
        return true;
    },
    .library = [](Call& c) { return L2Switch_SetGreenEthernetPort(num(c.w1)); },
};

constexpr Row kGetEee{
    .name = "rltkFTGetEEEPort",
    .ports = kPcLan,
    .library = [](Call& c) { return L2Switch_GetEEEPort(c.id, &c.value); },
    .done = [](const Call& c) {
        std::printf("\nGet EEE on Port=%d eeeMode:(%s)\n", c.port, name_of(kEeeNames, c.value));
        return pass(c);
    },
};

constexpr Row kSetEee{
    .name = "rltkFTSetEEEPort",
    .ports = kPcLan,
    .announce = [](const Call& c) {
        std::printf("Setting EEE on port=%d to (%s)\n", c.port, name_of(kEeeNames, num(c.w2)));
        return true;
    },
    .library = [](Call& c) { return L2Switch_SetEEEPort(c.id, num(c.w2)); },
};

constexpr Row kRgmiiDelay{
    .name = "rltkFTrgmiiDelayExt_set",
    .ports = kPcLanCpu,
    .announce = [](const Call& c) {
        std::printf("Setting rgmiiDelayExt on port=%d to (txDelay=%d) and (rxDelay=%d)\n", c.port, num(c.w2),
                    num(c.w3));
        return true;
    },
    .library = [](Call& c) { return L2Switch_rgmiiDelayExt_set(c.id, num(c.w2), num(c.w3)); },
};

constexpr Row kGetSsc{
    .name = "rltkFTl2getSSC",
    .library = [](Call& c) { return L2Switch_GetSSC(&c.value); },
    .done = [](const Call& c) {
        std::printf("\nspread frequency (SSC) for Ethernet Switch : %s \n", name_of(kSscNames, c.value));
        return pass(c);
    },
};

constexpr Row kSetSsc{
    .name = "rltkFTl2setSSC",
    .announce = [](const Call& c) {
        std::printf("Setting SSC to (%s)\n", name_of(kSscNames, num(c.w1)));
        return true;
    },
    .library = [](Call& c) { return L2Switch_SetSSC(num(c.w1)); },
};

constexpr Row kGetLpi{
    .name = "rltkFTl2getLPIStatus",
    .library = [](Call& c) { return L2Switch_GetLPI_Status(&c.value, &c.value2); },
    .done = [](const Call& c) {
        std::printf("\nLPI status for 1G: (%s) \n", name_of(kLpiNames, c.value));
        std::printf("LPI status for 100M: (%s) \n", name_of(kLpiNames, c.value2));
        return pass(c);
    },
};

}  // namespace

int rltkFTEarlyInit(const char* mode) { return run(kEarlyInit, {.w1 = mode}); }
int rltkFTportCntrs(const char* port) { return run(kPortCntrs, {.w1 = port}); }
int rltkFTportResetCntrs(const char* port) { return run(kPortResetCntrs, {.w1 = port}); }
int rltkFTResetSettings() { return run(kResetSettings, {}); }
int rltkFTGetMac(const char* port) { return run(kGetMac, {.w1 = port}); }
int rltkFTPrintMacTable() { return run(kPrintMacTable, {}); }
int rltkFTGetRegValue(const char* reg) { return run(kGetRegValue, {.w1 = reg}); }
int rltkFTGetPhyRegValue(const char* port, const char* reg) { return run(kGetPhyRegValue, {.w1 = port, .w2 = reg}); }
int rltkFTsetAutoMDIX(const char* port, const char* mode) { return run(kSetAutoMdix, {.w1 = port, .w2 = mode}); }
int rltkFTgetAutomdix(const char* port) { return run(kGetAutoMdix, {.w1 = port}); }
int rltkFTsetLinkStatus(const char* port, const char* status) {
    return run(kSetLinkStatus, {.w1 = port, .w2 = status});
}
int rltkFTgetLinkStatus(const char* port) { return run(kGetLinkStatus, {.w1 = port}); }
int rltkFTsetLinkMode(const char* port, const char* mode) { return run(kSetLinkMode, {.w1 = port, .w2 = mode}); }
int rltkFTgetLinkMode(const char* port) { return run(kGetLinkMode, {.w1 = port}); }
int rltkFTgetPVID(const char* port) { return run(kGetPvid, {.w1 = port}); }
int rltkFTgetPortPriority(const char* port) { return run(kGetPortPriority, {.w1 = port}); }
int rltkFTgetVlanMbrCfg(const char* index) { return run(kGetVlanMbrCfg, {.w1 = index}); }
int rltkFTshowAllRules() { return run(kShowAllRules, {}); }
int rltkFTdelAllRules() { return run(kDelAllRules, {}); }
int rltkFTGetGreenEthernetPort() { return run(kGetGreenEthernet, {}); }
int rltkFTSetGreenEthernetPort(const char* mode) { return run(kSetGreenEthernet, {.w1 = mode}); }
int rltkFTGetEEEPort(const char* port) { return run(kGetEee, {.w1 = port}); }
int rltkFTSetEEEPort(const char* port, const char* mode) { return run(kSetEee, {.w1 = port, .w2 = mode}); }
int rltkFTrgmiiDelayExt_set(const char* port, const char* tx_delay, const char* rx_delay) {
    return run(kRgmiiDelay, {.w1 = port, .w2 = tx_delay, .w3 = rx_delay});
}
int rltkFTl2getSSC() { return run(kGetSsc, {}); }
int rltkFTl2setSSC(const char* status) { return run(kSetSsc, {.w1 = status}); }
int rltkFTl2getLPIStatus() { return run(kGetLpi, {}); }
