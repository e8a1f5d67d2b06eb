// How the simulated switch resolves each port's link, and how it reads back
// a state file that the phone may have scribbled on.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "platform/velor.h"
#include "sim/network/switch_model.h"

namespace {

using namespace ftsim::network;

Port port(long long mode, long long forced = L2SW_LINK_UP, long long test_mode = 0) {
    Port p;
    p.mode = mode;
    p.forced = forced;
    p.test_mode = test_mode;
    return p;
}

struct Case {
    Port port;
    Cable cable;
    int actual;
    int status;
};

TEST(LinkResolution, AutonegotiationSettlesOnTheBestCommonModeFullDuplex) {
    const Port automatic = port(L2SW_LINK_MODE_AUTO);
    const Case cases[] = {
        {automatic, {true, 1000}, L2SW_LINK_MODE_1000_FULL, L2SW_LINK_UP},
        {automatic, {false, 1000}, L2SW_LINK_MODE_100_FULL, L2SW_LINK_UP},
        {automatic, {true, 100}, L2SW_LINK_MODE_100_FULL, L2SW_LINK_UP},
        {automatic, {true, 10}, L2SW_LINK_MODE_10_FULL, L2SW_LINK_UP},
        {automatic, {true, 0}, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
    };
    for (const Case& c : cases) {
        const Link l = resolve(c.port, c.cable);
        EXPECT_EQ(l.actual, c.actual) << "partner " << c.cable.partner << ", gigabit " << c.cable.gigabit;
        EXPECT_EQ(l.status, c.status) << "partner " << c.cable.partner << ", gigabit " << c.cable.gigabit;
    }
}

TEST(LinkResolution, AForcedModeLinksOnlyWhereThePartnerReachesItsSpeed) {
    const Case cases[] = {
        // A faster partner offers the slower speeds too, either duplex.
        {port(L2SW_LINK_MODE_10_HALF), {true, 1000}, L2SW_LINK_MODE_10_HALF, L2SW_LINK_UP},
        {port(L2SW_LINK_MODE_100_HALF), {true, 100}, L2SW_LINK_MODE_100_HALF, L2SW_LINK_UP},
        {port(L2SW_LINK_MODE_100_FULL), {true, 10}, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
        {port(L2SW_LINK_MODE_1000_FULL), {true, 1000}, L2SW_LINK_MODE_1000_FULL, L2SW_LINK_UP},
        {port(L2SW_LINK_MODE_1000_FULL), {true, 100}, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
        {port(L2SW_LINK_MODE_1000_FULL), {false, 1000}, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
        {port(L2SW_LINK_MODE_10_FULL), {true, 0}, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
    };
    for (const Case& c : cases) {
        const Link l = resolve(c.port, c.cable);
        EXPECT_EQ(l.actual, c.actual) << "mode " << c.port.mode << ", partner " << c.cable.partner;
        EXPECT_EQ(l.status, c.status) << "mode " << c.port.mode << ", partner " << c.cable.partner;
    }
}

TEST(LinkResolution, APortHeldDownOrTestingHasNoLinkWhateverItsCable) {
    const Cable best{true, 1000};
    const Case cases[] = {
        {port(L2SW_LINK_MODE_AUTO, L2SW_LINK_DOWN), best, L2SW_LINK_MODE_DISABLED, L2SW_LINK_DOWN},
        {port(L2SW_LINK_MODE_AUTO, L2SW_LINK_DISABLED), best, L2SW_LINK_MODE_DISABLED, L2SW_LINK_DISABLED},
        {port(L2SW_LINK_MODE_DISABLED), best, L2SW_LINK_MODE_DISABLED, L2SW_LINK_DOWN},
        {port(L2SW_LINK_MODE_AUTO, L2SW_LINK_UP, 1), best, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
        {port(L2SW_LINK_MODE_AUTO, L2SW_LINK_UP, 4), best, L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN},
        // Enabling a port is as good as forcing it up.
        {port(L2SW_LINK_MODE_AUTO, L2SW_LINK_ENABLE), best, L2SW_LINK_MODE_1000_FULL, L2SW_LINK_UP},
    };
    for (const Case& c : cases) {
        const Link l = resolve(c.port, c.cable);
        EXPECT_EQ(l.actual, c.actual) << "forced " << c.port.forced << ", test mode " << c.port.test_mode;
        EXPECT_EQ(l.status, c.status) << "forced " << c.port.forced << ", test mode " << c.port.test_mode;
    }
}

TEST(StateFile, WhatIsSavedComesBack) {
    Switch s = factory_switch();
    s.ports[kLan].mode = L2SW_LINK_MODE_100_HALF;
    s.ports[kPc].forced = L2SW_LINK_DISABLED;
    s.ports[kPc].test_mode = 3;
    s.ports[kCpu].counters[5] = 1LL << 40;
    s.ssc = 1;
    s.rx_delay = 7;
    s.acl = 0;
    EXPECT_EQ(serialize(parse(serialize(s))), serialize(s));
    // Nothing saved yet: the switch as it leaves the factory, traffic since boot counted.
    EXPECT_EQ(serialize(parse("")), serialize(factory_switch()));
    EXPECT_EQ(factory_switch().ports[kLan].mode, L2SW_LINK_MODE_AUTO);
    EXPECT_EQ(factory_switch().ports[kPc].eee, 1);
    EXPECT_GT(factory_switch().ports[kLan].counters[0], 0);
}

TEST(StateFile, AScribbledFileLeavesEveryOtherSettingAtItsDefault) {
    const std::string factory = serialize(factory_switch());
    const char* const junk[] = {
        "lan.mode 8\n",  "lan.mode -1\n",        "pc.test 5\n",     "cpu.rxdelay 8\n", "lan.mode 2x\n",
        "lan.mode\n",    "lan.mode  2\n",        "lan.mode 0x2\n",  "LAN.MODE 2\n",    "nonsense 1\n",
        "\n\n\n",        "lan.ifInOctets -1\n",  "lan.mode 99999999999999999999999\n",
        "lan.pvid 4096\n",
    };
    for (const char* text : junk) EXPECT_EQ(serialize(parse(text)), factory) << text;
    // The last good value of a key wins; a line without its end still counts.
    Switch s = parse("lan.mode 0\nlan.mode 9\nlan.mode 6\npc.forced 4");
    EXPECT_EQ(s.ports[kLan].mode, L2SW_LINK_MODE_1000_FULL);
    EXPECT_EQ(s.ports[kPc].forced, L2SW_LINK_DISABLED);
}

TEST(StateFile, AResetRestoresSettingsButKeepsTheCounters) {
    Switch s = factory_switch();
    s.ports[kLan].counters = {};
    s.ports[kPc].counters[0] = 42;
    s.ports[kLan].mdix = 0;
    s.ports[kCpu].forced = L2SW_LINK_DOWN;
    s.green = 0;
    s.tx_delay = 0;
    s.acl = 0;
    reset_settings(s);
    Switch expected = factory_switch();
    expected.ports[kLan].counters = {};
    expected.ports[kPc].counters[0] = 42;
    EXPECT_EQ(serialize(s), serialize(expected));
}

TEST(Ports, OnlyTheThreeSinglePortIdentifiersNameAPort) {
    EXPECT_EQ(port_index(0x1), kPc);
    EXPECT_EQ(port_index(0x2), kLan);
    EXPECT_EQ(port_index(0x400), kCpu);
    for (std::int32_t id : {0x0, 0x3, 0x4, 0x403, 0x401, -1, INT_MAX}) EXPECT_FALSE(port_index(id)) << id;
}

}  // namespace
