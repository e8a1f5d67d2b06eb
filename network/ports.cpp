// The wired side of the phone as the line sees it: link modes and the
// gigabit transmitter test modes of the PC and LAN ports, the LAN interface's
// speed and address, ping, and the phone's lamps.
#include "network/ports.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <unistd.h>

#include "common/quote.h"
#include "common/run.h"
#include "common/words.h"
#include "network/link_names.h"
#include "platform/velor.h"

namespace {

using ft::network::link_mode_name;
using ft::network::link_status_name;

// The typed number, and whether the word really was one: atoi reads any
// non-number as 0, so a 0 only counts when the word starts with '0'.
bool typed_number(const char* word, int& value) {
    value = ft::word_to_int(word);
    return value != 0 || word[0] == '0';
}

int fail(const char* line) {
    std::puts(line);
    return -1;
}

// --- eth

// The speed modes the operator types and the link mode each configures.
struct SpeedMode {
    int typed;
    std::int32_t link_mode;
    bool needs_gigabit;
};
constexpr std::array<SpeedMode, 6> kSpeedModes{{
    {0, L2SW_LINK_MODE_AUTO, false},
    {1000, L2SW_LINK_MODE_1000_FULL, true},
    {100, L2SW_LINK_MODE_100_FULL, false},
    {101, L2SW_LINK_MODE_100_HALF, false},
    {10, L2SW_LINK_MODE_10_FULL, false},
    {11, L2SW_LINK_MODE_10_HALF, false},
}};

constexpr int kLinkDownMode = 1;
constexpr int kFirstTestMode = 1001;
constexpr int kLastTestMode = 1004;

const SpeedMode* speed_mode(int typed) {
    for (const SpeedMode& m : kSpeedModes)
        if (m.typed == typed) return &m;
    return nullptr;
}

bool is_test_mode(int typed) { return typed >= kFirstTestMode && typed <= kLastTestMode; }

// What the switch must read back for the typed mode to have taken.
bool took_effect(int typed, bool gigabit, std::int32_t configured, std::int32_t status, std::int32_t test_mode) {
    if (typed == kLinkDownMode) return status == L2SW_LINK_DOWN;
    if (is_test_mode(typed)) return gigabit && test_mode == typed - 1000;
    const SpeedMode* m = speed_mode(typed);
    return m != nullptr && configured == m->link_mode;
}

// --- setport

constexpr const char* kEthernetStatus = "ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'";

struct InterfaceMode {
    int typed;
    const char* command;
};
constexpr std::array<InterfaceMode, 7> kInterfaceModes{{
    {0, "ifconfig eth0 down;ethtool -s eth0 autoneg on;ifconfig eth0 up"},
    {1, "ifconfig eth0 down"},
    {10, "ethtool -s eth0 speed 10 duplex full autoneg off"},
    {11, "ethtool -s eth0 speed 10 duplex half autoneg off"},
    {100, "ethtool -s eth0 speed 100 duplex full autoneg off"},
    {101, "ethtool -s eth0 speed 100 duplex half autoneg off"},
    {1000, "ethtool -s eth0 speed 1000 duplex full autoneg on"},
}};

// --- ip and ping

constexpr std::size_t kShortCommand = 100;
constexpr const char* kFactoryTestMarker = "/tmp/factorytest.txt";

}  // namespace

int eth(const char* port_word, const char* mode_word) {
    int port = 0, mode = 0;
    if (!typed_number(port_word, port) || !typed_number(mode_word, mode)) return fail("FAIL: eth() port not found...");
    if (port != 0 && port != 1) return fail("FAIL: eth() port not exist!!");
    const std::int32_t id = port == 0 ? L2SW_PORT_PC : L2SW_PORT_LAN;
    Net_fd_init();
    if (L2Switch_EarlyInit(1) < 0) return fail("FAIL: L2Switch_EarlyInit() ");
    std::int32_t gigabit = 0;
    if (L2Switch_IsSwitchPortSupport1G(id, &gigabit) < 0) return fail("FAIL: L2Switch_IsSwitchPortSupport1G()!!");

    // A speed mode first brings back a link that "eth N 1" forced down; the
    // outcome shows in the read-back, so this call's own result is not judged.
    const SpeedMode* speed = speed_mode(mode);
    if (speed) L2Switch_SetLinkStatus(id, L2SW_LINK_UP);

    int rc = 0;
    if (mode == kLinkDownMode) rc = L2Switch_SetLinkStatus(id, L2SW_LINK_DOWN);
    else if (speed && (!speed->needs_gigabit || gigabit)) rc = L2Switch_SetLinkMode(id, speed->link_mode);
    else if (is_test_mode(mode) && gigabit) rc = L2Switch_SetTestMode(id, mode - 1000);
    else if (mode == 102 || mode == 103) return fail("FAIL: in eth() NA!!!!");
    else return fail("FAIL: not match ..");
    if (rc < 0) return fail("FAIL: setLink...");

    std::int32_t configured = 0, actual = 0, status = 0, test_mode = 0;
    if (L2Switch_GetLinkMode(id, &configured, nullptr) < 0) return fail("FAIL: in GetLinkMode()!!!!");
    std::printf("\nGetLinkMode() port=%d link mode:(%s)\n", id, link_mode_name(configured));
    if (L2Switch_GetLinkMode(id, nullptr, &actual) < 0) return fail("FAIL: in GetLinkMode()-actualMode!!!!");
    std::printf("\nGetLinkMode() port=%d actual linkmode:(%s)\n", id, link_mode_name(actual));
    if (L2Switch_GetLinkStatus(id, &status) < 0) {
        std::printf("FAIL: in GetLinkStatus(rtk_port=%d, status=%d)!!!\n", id, status);
        return -1;
    }
    std::printf("\nGetLinkStatus() port=%d link status:(%s)\n", id, link_status_name(status));
    if (L2Switch_GetTestMode(id, &test_mode) < 0) return fail("FAIL: GetTestMode()!!!");

    // The configured mode is what the command set; the actual one depends on the cable.
    if (!took_effect(mode, gigabit != 0, configured, status, test_mode)) return fail("FAIL: to set ft eth...");
    std::puts("PASS");
    return 0;
}

int setport(const char* port_word, const char* mode_word) {
    int port = 0, mode = 0;
    if (!typed_number(port_word, port) || !typed_number(mode_word, mode)) return fail("FAIL : port not valid !!");
    if (port != 1) return fail("FAIL : port not valid !!!");
    const InterfaceMode* chosen = nullptr;
    for (const InterfaceMode& m : kInterfaceModes)
        if (m.typed == mode) chosen = &m;
    if (!chosen) return fail("FAIL : mode not valid");

    std::puts("\nEthernet status , Before:");
    ft::run_command(kEthernetStatus);
    const int rc = ft::run_command(chosen->command);
    if (rc < 0) {
        std::printf("FAIL: %s \n", std::strerror(errno));
        return -1;
    }
    std::puts("\nEthernet status , After:");
    ft::run_command(kEthernetStatus);
    std::puts("PASS");
    return rc;
}

int ethled(const char* mode) {
    std::int32_t action = 0;
    if (ft::word_is(mode, "off")) action = 1;
    else if (ft::word_is(mode, "on")) action = 2;
    else if (ft::word_is(mode, "enable")) action = 3;
    else return fail("FAIL");
    const int rc = L2SW_EthernetLedTest(action);
    std::puts(rc >= 0 ? "PASS" : "FAIL");
    return rc;
}

int ip(const char* action_word, const char* address) {
    int action = 0;
    const bool typed = typed_number(action_word, action);
    std::array<char, kShortCommand> command{};
    if (action == 1) {
        if (!ft::word_is_ipv4(address)) return fail("FAIL");
        // The address check let only digits and dots through: Quoted leaves them as
        // they are, so the address is safe inside the format's own quotes too.
        const ft::Quoted value(address);
        const bool formatted =
            access(kFactoryTestMarker, F_OK) == 0
                ? ft::format_command(command, "ifconfig eth0 %s", value.c_str())
                // Outside factory test the endpoint application owns the interface.
                : ft::format_command(command,
                                     "am broadcast -a com.velor.endpoint.intent.action.ftcommand -e \"ip\" '%s'",
                                     value.c_str());
        if (!formatted) return fail("FAIL");
    } else if (typed && action == 0) {
        ft::format_command(command, "ifconfig eth0");
    } else {
        return fail("FAIL");
    }
    if (ft::run_command(command.data()) < 0) return fail("FAIL");
    std::puts("PASS");
    return 0;
}

int ping(const char* address) {
    if (!ft::word_is_ipv4(address)) return fail("Invalid IP address");
    std::array<char, kShortCommand> command{};
    if (ft::format_command(command, "ping -q -c 4 %s", ft::Quoted(address).c_str())) ft::run_command(command.data());
    return 0;
}

int ledTest(const char* pattern) {
    int rc = 0;
    if (ft::word_is(pattern, "on")) rc = Led_SetSteadyStateAll(1);
    else if (ft::word_is(pattern, "off")) rc = Led_SetSteadyStateAll(0);
    else if (ft::word_is(pattern, "flash")) rc = Led_SetFlashStateAll(500, 500);
    else {
        std::puts("Incorrect parameter");
        return fail("FAIL");
    }
    std::puts(rc == 0 ? "PASS" : "FAIL");
    return rc;
}
