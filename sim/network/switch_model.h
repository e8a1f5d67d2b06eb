#pragma once
// The simulated phone's three-port Ethernet switch: what it holds, how each
// port's link comes out of its settings and the cable, and how it is kept in
// the hardware folder (hw/switch, one "key value" a line). Shared by the
// replacement hardware library, which changes it, and ftsim, which shows it;
// ftsim reads a file the phone can write, so parsing takes nothing on trust.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/velor.h"

namespace ftsim::network {

enum PortIndex { kPc = 0, kLan = 1, kCpu = 2 };
inline constexpr int kPortCount = 3;

// The library's identifiers of the three ports.
inline constexpr std::array<std::int32_t, kPortCount> kPortIds{L2SW_PORT_PC, L2SW_PORT_LAN, L2SW_PORT_CPU};
inline constexpr std::array<const char*, kPortCount> kPortNames{"PC", "LAN", "CPU"};
// Keys of the ports in the state file.
inline constexpr std::array<const char*, kPortCount> kPortKeys{"pc", "lan", "cpu"};

// Port index of a single-port identifier.
std::optional<int> port_index(std::int32_t id);
// A port identifier as the reports and ftsim write it ("0x400").
std::string hex(std::int32_t id);

// The port counters, in the order the counter report prints them.
inline constexpr std::array<const char*, 6> kCounterNames{
    "ifInOctets", "ifInUcastPkts", "ifOutOctets", "ifOutUcastPkts", "dot3StatsFCSErrors", "etherStatsDropEvents",
};

struct Port {
    long long mode = 1;       // configured link mode (1 auto .. 6 1000 full; 0 disabled)
    long long forced = 1;     // the last link state set: 1 up, 2 down, 3 enable, 4 disabled
    long long test_mode = 0;  // 1000BASE-T transmitter test mode, 0 for normal operation
    long long mdix = 1;
    long long eee = 1;
    long long pvid = 1;
    long long priority = 0;
    std::array<long long, kCounterNames.size()> counters{};
};

struct Switch {
    std::array<Port, kPortCount> ports;
    long long green = 1;     // Green Ethernet, switch-wide
    long long ssc = 0;       // spread-spectrum clocking
    long long tx_delay = 1;  // RGMII delays of the CPU port
    long long rx_delay = 0;
    long long acl = 1;       // the default ACL rules are installed
};

// The switch as it leaves the factory (and L2Switch_ResetSettings leaves it),
// with the traffic counted since power-up.
Switch factory_switch();
// Restores every setting of @p s, keeping its counters.
void reset_settings(Switch& s);

std::string serialize(const Switch& s);
// Reads what serialize wrote. Lines it does not know, and values out of
// their range, are ignored: the rest of the switch keeps factory values.
Switch parse(std::string_view text);

// The cable on a port: whether the port can run at 1000 Mb/s, and the best
// speed the link partner offers (0: nothing plugged in).
struct Cable {
    bool gigabit = true;
    int partner = 0;
};

// What a port's PHY makes of its settings and its cable.
struct Link {
    int actual;  // link mode resolved
    int status;  // link state: up, down, or disabled
};
Link resolve(const Port& port, const Cable& cable);

// --- In the hardware folder, with the cable from the conditions.

// The switch as last saved, or as it leaves the factory.
Switch load();
bool save(const Switch& s);
Cable cable(int port);
// Removes the saved switch: the next load sees it as powered up afresh.
bool forget();

}  // namespace ftsim::network
