// How the simulated switch resolves each port's link, and how it reads back
// a state file that the phone may have scribbled on.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>

#include "platform/velor.h"
#include "sim/network/switch_model.h"

namespace {

using namespace ftsim::network;

// What the handlers' tests leave out: autonegotiation at 10 Mb/s or with
// nothing plugged in, a mode set to disabled, a forced speed above the
// partner's or on a port without 1000 Mb/s.
TEST(LinkResolution, BeyondTheHandlersTests) {
    using Result = std::pair<int, int>;  // actual link mode, link state
    const auto link = [](long long mode, Cable cable) {
        Port p;
        p.mode = mode;
        const Link l = resolve(p, cable);
        return Result(l.actual, l.status);
    };
    EXPECT_EQ(link(L2SW_LINK_MODE_AUTO, {true, 10}), Result(L2SW_LINK_MODE_10_FULL, L2SW_LINK_UP));
    EXPECT_EQ(link(L2SW_LINK_MODE_AUTO, {true, 0}), Result(L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN));
    EXPECT_EQ(link(L2SW_LINK_MODE_DISABLED, {true, 1000}), Result(L2SW_LINK_MODE_DISABLED, L2SW_LINK_DOWN));
    EXPECT_EQ(link(L2SW_LINK_MODE_100_FULL, {true, 10}), Result(L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN));
    EXPECT_EQ(link(L2SW_LINK_MODE_1000_FULL, {false, 1000}), Result(L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN));
}

TEST(StateFile, ACounterMayRunFar) {
    // The key names themselves are what the sessions read back from /sim/switch.
    Switch s = factory_switch();
    s.ports[kCpu].counters[5] = 1LL << 40;
    EXPECT_EQ(parse(serialize(s)).ports[kCpu].counters[5], 1LL << 40);
}

TEST(StateFile, AScribbledLineLeavesItsSettingAtTheDefault) {
    const std::string factory = serialize(factory_switch());
    for (const char* junk : {"lan.mode 8\n", "lan.mode -1\n", "pc.test 5\n", "cpu.rxdelay 8\n", "lan.mode 2x\n",
                             "lan.mode\n", "lan.mode  2\n", "lan.mode 0x2\n", "LAN.MODE 2\n", "nonsense 1\n", "\n\n\n",
                             "lan.ifInOctets -1\n", "lan.mode 99999999999999999999999\n", "lan.pvid 4096\n"})
        EXPECT_EQ(serialize(parse(junk)), factory) << junk;
    // The last good value of a key wins; a line without its end still counts.
    const Switch s = parse("lan.mode 0\nlan.mode 9\nlan.mode 6\npc.forced 4");
    EXPECT_EQ(s.ports[kLan].mode, L2SW_LINK_MODE_1000_FULL);
    EXPECT_EQ(s.ports[kPc].forced, L2SW_LINK_DISABLED);
}

TEST(StateFile, AResetRestoresSettingsButKeepsTheCounters) {
    Switch s = factory_switch();
    s.ports[kPc].counters[0] = 42;
    s.ports[kLan].mdix = 0;
    s.ports[kCpu].forced = L2SW_LINK_DOWN;
    s.green = 0;
    s.tx_delay = 0;
    s.acl = 0;
    reset_settings(s);
    Switch expected = factory_switch();
    expected.ports[kPc].counters[0] = 42;
    EXPECT_EQ(serialize(s), serialize(expected));
}

TEST(Ports, NoOtherIdentifierNamesAPort) {
    for (std::int32_t id : {0x0, 0x3, 0x4, 0x403, 0x401, -1, INT_MAX})
        EXPECT_FALSE(port_index(id)) << id;
}

}  // namespace
