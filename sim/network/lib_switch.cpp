// The switch, the Ethernet LEDs and the phone's lamps in the replacement
// hardware library. Every setting lives in hw/switch (sim/network/
// switch_model.h), read and written afresh by each operation, so that ftsim
// shows what the last command left; the cables are conditions, read at each
// call, so that a cable pulled while the shell runs shows at once.
//
// Like the phone's own library, this one prints the three reports (port
// counters, VLAN members, ACL rules) on the console, and writes the MAC table
// to the kernel log (hw/kmsg, which the phone's dmesg shows).
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>
#include <sys/stat.h>
#include <vector>

#include "platform/velor.h"
#include "sim/core/state.h"
#include "sim/network/switch_model.h"

namespace {

using namespace ftsim::network;

int refuse(int error) {
    errno = error;
    return -1;
}

// Runs @p change on the switch as saved, and saves it: 0, or -1 with errno.
template <typename Change>
int update(Change change) {
    Switch s = load();
    if (const int rc = change(s); rc < 0) return rc;
    return save(s) ? 0 : -1;
}

// The port of a single-port identifier; PHY operations take the PC and LAN
// ports only, the CPU port being a MAC-to-MAC link without a PHY.
Port* port_of(Switch& s, std::int32_t id) {
    const auto i = port_index(id);
    return i ? &s.ports[static_cast<std::size_t>(*i)] : nullptr;
}
Port* phy_of(Switch& s, std::int32_t id) { return id == kPortIds[kCpu] ? nullptr : port_of(s, id); }

Link link_of(const Switch& s, int index) {
    return resolve(s.ports[static_cast<std::size_t>(index)], cable(index));
}

bool is_flag(std::int32_t v) { return v == 0 || v == 1; }

using Finder = Port* (*)(Switch&, std::int32_t);

// One setting of a port (found by @p find) or of the whole switch, read into
// *out or changed: 0, or -1 with errno.
template <typename Out>
int read_port(Finder find, std::int32_t id, long long Port::*field, Out* out) {
    Switch s = load();
    const Port* p = find(s, id);
    if (!p || out == nullptr) return refuse(EINVAL);
    *out = static_cast<Out>(p->*field);
    return 0;
}

int set_port(Finder find, std::int32_t id, long long Port::*field, std::int32_t value) {
    return update([&](Switch& s) {
        Port* p = find(s, id);
        if (!p) return refuse(EINVAL);
        p->*field = value;
        return 0;
    });
}

int read_switch(long long Switch::*field, std::int32_t* out) {
    if (out == nullptr) return refuse(EINVAL);
    *out = static_cast<std::int32_t>(load().*field);
    return 0;
}

int set_switch_flag(long long Switch::*field, std::int32_t value) {
    if (!is_flag(value)) return refuse(EINVAL);
    return update([&](Switch& s) {
        s.*field = value;
        return 0;
    });
}

// --- MAC addresses.

using Mac = std::array<std::uint8_t, 6>;

Mac phone_mac() {
    unsigned b[6] = {};
    Mac mac{};
    if (std::sscanf(ftsim::get("eth0.mac").c_str(), "%2x:%2x:%2x:%2x:%2x:%2x", &b[0], &b[1], &b[2], &b[3], &b[4],
                    &b[5]) == 6)
        for (std::size_t i = 0; i < mac.size(); ++i) mac[i] = static_cast<std::uint8_t>(b[i]);
    return mac;
}

// The switch's own addresses follow the phone's: the PC and LAN ports add
// their identifier to its last byte.
Mac port_mac(int index) {
    Mac mac = phone_mac();
    if (index != kCpu) mac[5] = static_cast<std::uint8_t>(mac[5] + kPortIds[static_cast<std::size_t>(index)]);
    return mac;
}

std::string mac_text(const Mac& m) {
    char text[18];
    std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", m[0], m[1], m[2], m[3], m[4], m[5]);
    return text;
}

// The devices on the far end of the PC and LAN cables.
constexpr std::array<const char*, 2> kPartnerMacs{"02:5e:10:00:00:01", "02:5e:10:00:00:02"};

// --- The reports.

// Age in milliseconds of the report marker the shell creates around a report
// call, or "absent": the state a station's script can check afterwards.
std::string marker_age() {
    struct stat st{};
    if (stat("/tmp/specialFTfile.txt", &st) != 0) return "absent";
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const long long ms = (now.tv_sec - st.st_mtim.tv_sec) * 1000LL + (now.tv_nsec - st.st_mtim.tv_nsec) / 1000000;
    return std::to_string(ms < 0 ? 0 : ms);
}

int reported(const std::string& kind, const std::string& arg, const std::string& marker) {
    return ftsim::set_observed("switch.report", kind + " " + arg + " marker=" + marker) ? 0 : -1;
}

// The one VLAN the switch comes with: every port a member, untagged.
struct Vlan {
    int vid;
    std::int32_t members, untagged;
    int fid;
};
constexpr std::array<Vlan, 1> kVlans{{{1, L2SW_PORT_ALL, L2SW_PORT_ALL, 0}}};

void print_vlan(const Vlan& v) {
    std::printf(" VLAN %4d: members 0x%03x, untagged 0x%03x, FID %d\n", v.vid, static_cast<unsigned>(v.members),
                static_cast<unsigned>(v.untagged), v.fid);
}

// The rules the phone installs at start: link-layer discovery and port
// authentication frames go to the processor, whichever port they came in on.
constexpr std::array<const char*, 2> kAclRules{
    "ethertype 0x88cc (LLDP), any port -> trap to CPU",
    "ethertype 0x888e (EAPOL), any port -> trap to CPU",
};

// --- The kernel log.

bool kernel_log(const std::string& text) {
    timespec t{};
    clock_gettime(CLOCK_BOOTTIME, &t);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "[%5lld.%06ld] ", static_cast<long long>(t.tv_sec), t.tv_nsec / 1000);
    return ftsim::append_line("kmsg", stamp + text);
}

// --- PHY registers (IEEE 802.3 clause 22), as the port's state makes them.

std::int32_t phy_register(const Port& p, const Cable& c, const Link& l, int reg) {
    const bool up = l.status == L2SW_LINK_UP;
    switch (reg) {
    case 0: {  // basic control
        std::int32_t v = 0;
        if (p.mode == L2SW_LINK_MODE_AUTO) v |= 0x1000;
        if (p.forced == L2SW_LINK_DOWN || p.forced == L2SW_LINK_DISABLED) v |= 0x0800;
        const int mode = up ? l.actual : static_cast<int>(p.mode);
        if (mode == L2SW_LINK_MODE_1000_FULL) v |= 0x0040;
        if (mode == L2SW_LINK_MODE_100_FULL || mode == L2SW_LINK_MODE_100_HALF) v |= 0x2000;
        if (mode == L2SW_LINK_MODE_10_FULL || mode == L2SW_LINK_MODE_100_FULL || mode == L2SW_LINK_MODE_1000_FULL ||
            mode == L2SW_LINK_MODE_AUTO)
            v |= 0x0100;
        return v;
    }
    case 1:  // basic status: 10/100 abilities, extended status, link, autonegotiation complete
        return 0x7909 | (up ? 0x0004 : 0) | (up && p.mode == L2SW_LINK_MODE_AUTO ? 0x0020 : 0);
    case 2: return 0x0000;  // PHY identifier: the simulated PHY has no registered maker
    case 3: return 0x0c31;
    case 4: return 0x05e1;  // advertised: 10/100 half and full, pause
    case 5:                 // the partner's abilities, once it was heard
        if (!up || p.mode != L2SW_LINK_MODE_AUTO) return 0;
        return c.partner >= 100 ? 0x45e1 : 0x4061;
    case 9:  // 1000BASE-T control: advertised 1000 full, test mode in bits 15..13
        return (c.gigabit ? 0x0200 : 0) | static_cast<std::int32_t>(p.test_mode << 13);
    case 10:  // 1000BASE-T status
        return up && l.actual == L2SW_LINK_MODE_1000_FULL ? 0x3c00 : 0;
    case 15: return c.gigabit ? 0x2000 : 0;  // extended status: 1000BASE-T full
    default: return 0;
    }
}

// The actual-mode half of L2Switch_GetLinkMode, a failure point of its own:
// the commands read the configured and the actual mode in two calls, and a
// test must be able to fail the second alone.
int L2Switch_GetLinkMode_actual(const Switch& s, int port, int32_t& actual) {
    FTSIM_FAILURE_POINT();
    actual = link_of(s, port).actual;
    return 0;
}

}  // namespace

extern "C" {

int Net_fd_init(void) {
    FTSIM_FAILURE_POINT();
    return 0;
}

int L2Switch_EarlyInit(int32_t auto_mdix) {
    FTSIM_FAILURE_POINT();
    if (!is_flag(auto_mdix)) return refuse(EINVAL);
    return update([&](Switch& s) {
        s.ports[kPc].mdix = s.ports[kLan].mdix = auto_mdix;
        return 0;
    });
}

int L2Switch_ResetSettings(void) {
    FTSIM_FAILURE_POINT();
    return update([](Switch& s) {
        reset_settings(s);
        return 0;
    });
}

int L2Switch_IsSwitchPortSupport1G(int32_t port, int32_t* supported) {
    FTSIM_FAILURE_POINT();
    const auto i = port_index(port);
    if (!i || supported == nullptr) return refuse(EINVAL);
    *supported = cable(*i).gigabit ? 1 : 0;
    return 0;
}

int L2Switch_SetLinkStatus(int32_t port, int32_t status) {
    FTSIM_FAILURE_POINT();
    if (status < L2SW_LINK_UP || status > L2SW_LINK_DISABLED) return refuse(EINVAL);
    return set_port(port_of, port, &Port::forced, status);
}

int L2Switch_GetLinkStatus(int32_t port, int32_t* status) {
    FTSIM_FAILURE_POINT();
    const auto i = port_index(port);
    if (!i || status == nullptr) return refuse(EINVAL);
    *status = link_of(load(), *i).status;
    return 0;
}

int L2Switch_SetLinkMode(int32_t port, int32_t mode) {
    FTSIM_FAILURE_POINT();
    const auto i = port_index(port);
    if (!i || mode < L2SW_LINK_MODE_AUTO || mode > L2SW_LINK_MODE_1000_FULL) return refuse(EINVAL);
    if (mode == L2SW_LINK_MODE_1000_FULL && !cable(*i).gigabit) return refuse(EOPNOTSUPP);
    return update([&](Switch& s) {
        // Setting a mode restarts the PHY in normal operation.
        s.ports[static_cast<std::size_t>(*i)].mode = mode;
        s.ports[static_cast<std::size_t>(*i)].test_mode = 0;
        return 0;
    });
}

int L2Switch_GetLinkMode(int32_t port, int32_t* configured, int32_t* actual) {
    FTSIM_FAILURE_POINT();
    const auto i = port_index(port);
    if (!i) return refuse(EINVAL);
    const Switch s = load();
    if (configured) *configured = static_cast<int32_t>(s.ports[static_cast<std::size_t>(*i)].mode);
    if (actual) return L2Switch_GetLinkMode_actual(s, *i, *actual);
    return 0;
}

int L2Switch_SetTestMode(int32_t port, int32_t test_mode) {
    FTSIM_FAILURE_POINT();
    if (test_mode < 0 || test_mode > 4) return refuse(EINVAL);
    const auto i = port_index(port);
    if (!i || *i == kCpu) return refuse(EINVAL);
    if (!cable(*i).gigabit) return refuse(EOPNOTSUPP);
    return update([&](Switch& s) {
        s.ports[static_cast<std::size_t>(*i)].test_mode = test_mode;
        return 0;
    });
}

int L2Switch_GetTestMode(int32_t port, int32_t* test_mode) {
    FTSIM_FAILURE_POINT();
    return read_port(phy_of, port, &Port::test_mode, test_mode);
}

int L2Switch_portCntrs(int32_t port) {
    FTSIM_FAILURE_POINT();
    const std::string marker = marker_age();
    const auto i = port_index(port);
    if (!i) return refuse(EINVAL);
    const Switch s = load();
    const Port& p = s.ports[static_cast<std::size_t>(*i)];
    std::printf("Port 0x%x (%s) counters:\n", static_cast<unsigned>(port), kPortNames[static_cast<std::size_t>(*i)]);
    for (std::size_t c = 0; c < kCounterNames.size(); ++c)
        std::printf(" %-22s: %lld\n", kCounterNames[c], p.counters[c]);
    return reported("portCntrs", hex(port), marker);
}

int L2Switch_portResetCntrs(int32_t port) {
    FTSIM_FAILURE_POINT();
    return update([&](Switch& s) {
        if (port == L2SW_PORT_ALL) {
            for (Port& p : s.ports) p.counters = {};
            return 0;
        }
        Port* p = port_of(s, port);
        if (!p) return refuse(EINVAL);
        p->counters = {};
        return 0;
    });
}

int L2Switch_GetMacAddr(int32_t port, uint8_t mac[6]) {
    FTSIM_FAILURE_POINT();
    const auto i = port_index(port);
    if (!i || mac == nullptr) return refuse(EINVAL);
    const Mac m = port_mac(*i);
    for (std::size_t b = 0; b < m.size(); ++b) mac[b] = m[b];
    return 0;
}

int L2Switch_print_mac_table(void) {
    FTSIM_FAILURE_POINT();
    const Switch s = load();
    // The processor's address is static; the partners' were learnt while their links were up.
    std::vector<std::string> entries{mac_text(port_mac(kCpu)) + "  port 0x400  vid 1  static"};
    for (int i : {kPc, kLan})
        if (link_of(s, i).status == L2SW_LINK_UP)
            entries.push_back(std::string(kPartnerMacs[static_cast<std::size_t>(i)]) + "  port " +
                              hex(kPortIds[static_cast<std::size_t>(i)]) + "    vid 1  dynamic");
    bool ok = kernel_log("l2switch: MAC address table:");
    for (const std::string& e : entries) ok = ok && kernel_log("l2switch:   " + e);
    ok = ok && kernel_log("l2switch: " + std::to_string(entries.size()) + " entries");
    return ok ? 0 : -1;
}

int L2Switch_GetRegValue(int32_t address, int32_t* value) {
    FTSIM_FAILURE_POINT();
    if (address < 0 || address > 0xFFFF || value == nullptr) return refuse(EINVAL);
    const Switch s = load();
    switch (address) {
    case 0x091A: {  // link state of every port, one bit per port identifier
        std::int32_t bits = 0;
        for (int i = 0; i < kPortCount; ++i)
            if (link_of(s, i).status == L2SW_LINK_UP) bits |= kPortIds[static_cast<std::size_t>(i)];
        *value = bits;
        break;
    }
    case 0x1300: *value = 0x5a31; break;  // chip identifier
    case 0x1301: *value = 0x0002; break;  // chip revision
    default: *value = 0;
    }
    return 0;
}

int L2Switch_GetPhyRegValue(int32_t port, int32_t reg, int32_t* value) {
    FTSIM_FAILURE_POINT();
    if (reg < 0 || reg > 31 || value == nullptr) return refuse(EINVAL);
    Switch s = load();
    const Port* p = phy_of(s, port);
    if (!p) return refuse(EINVAL);
    const int i = *port_index(port);
    *value = phy_register(*p, cable(i), link_of(s, i), reg);
    return 0;
}

int L2Switch_SetAutoMDIXPort(int32_t port, int32_t enabled) {
    FTSIM_FAILURE_POINT();
    if (!is_flag(enabled)) return refuse(EINVAL);
    return set_port(phy_of, port, &Port::mdix, enabled);
}

int L2Switch_GetAutoMDIXPort(int32_t port, int32_t* enabled) {
    FTSIM_FAILURE_POINT();
    return read_port(phy_of, port, &Port::mdix, enabled);
}

int L2Switch_GetPVID(uint16_t* pvid, int32_t port) {
    FTSIM_FAILURE_POINT();
    return read_port(port_of, port, &Port::pvid, pvid);
}

int L2Switch_GetPortPriority(int32_t port, uint16_t* priority) {
    FTSIM_FAILURE_POINT();
    return read_port(port_of, port, &Port::priority, priority);
}

int L2Switch_VlanMbrCfg(int32_t index) {
    FTSIM_FAILURE_POINT();
    const std::string marker = marker_age();
    if ((index < 0 || index > 4095) && index != L2SW_VLAN_ALL) return refuse(EINVAL);
    std::printf("VLAN member configuration:\n");
    bool found = false;
    for (const Vlan& v : kVlans) {
        if (index != L2SW_VLAN_ALL && v.vid != index) continue;
        print_vlan(v);
        found = true;
    }
    if (!found) std::printf(" VLAN %4d: not configured\n", static_cast<int>(index));
    return reported("VlanMbrCfg", std::to_string(index), marker);
}

int L2Switch_ShowAllRules(void) {
    FTSIM_FAILURE_POINT();
    const std::string marker = marker_age();
    const bool installed = load().acl != 0;
    std::printf("ACL rules: %zu\n", installed ? kAclRules.size() : 0);
    if (installed)
        for (std::size_t r = 0; r < kAclRules.size(); ++r) std::printf(" rule %zu: %s\n", r, kAclRules[r]);
    return reported("ShowAllRules", "-", marker);
}

int L2Switch_DelAllRules(void) {
    FTSIM_FAILURE_POINT();
    return update([](Switch& s) {
        s.acl = 0;
        return 0;
    });
}

int L2Switch_GetGreenEthernetPort(int32_t* enabled) {
    FTSIM_FAILURE_POINT();
    return read_switch(&Switch::green, enabled);
}

int L2Switch_SetGreenEthernetPort(int32_t enabled) {
    FTSIM_FAILURE_POINT();
    return set_switch_flag(&Switch::green, enabled);
}

int L2Switch_GetEEEPort(int32_t port, int32_t* enabled) {
    FTSIM_FAILURE_POINT();
    return read_port(phy_of, port, &Port::eee, enabled);
}

int L2Switch_SetEEEPort(int32_t port, int32_t enabled) {
    FTSIM_FAILURE_POINT();
    if (!is_flag(enabled)) return refuse(EINVAL);
    return set_port(phy_of, port, &Port::eee, enabled);
}

int L2Switch_rgmiiDelayExt_set(int32_t port, int32_t tx_delay, int32_t rx_delay) {
    FTSIM_FAILURE_POINT();
    if (port != kPortIds[kCpu] || !is_flag(tx_delay) || rx_delay < 0 || rx_delay > 7) return refuse(EINVAL);
    return update([&](Switch& s) {
        s.tx_delay = tx_delay;
        s.rx_delay = rx_delay;
        return 0;
    });
}

int L2Switch_GetSSC(int32_t* enabled) {
    FTSIM_FAILURE_POINT();
    return read_switch(&Switch::ssc, enabled);
}

int L2Switch_SetSSC(int32_t enabled) {
    FTSIM_FAILURE_POINT();
    return set_switch_flag(&Switch::ssc, enabled);
}

int L2Switch_GetLPI_Status(int32_t* lpi_1g, int32_t* lpi_100m) {
    FTSIM_FAILURE_POINT();
    if (lpi_1g == nullptr || lpi_100m == nullptr) return refuse(EINVAL);
    // An idle link with EEE on at both ends rests in low power idle; the
    // partners on the simulated cables all offer EEE.
    const Switch s = load();
    *lpi_1g = *lpi_100m = 0;
    for (int i : {kPc, kLan}) {
        const Link l = link_of(s, i);
        if (l.status != L2SW_LINK_UP || s.ports[static_cast<std::size_t>(i)].eee == 0) continue;
        if (l.actual == L2SW_LINK_MODE_1000_FULL) *lpi_1g = 1;
        if (l.actual == L2SW_LINK_MODE_100_FULL || l.actual == L2SW_LINK_MODE_100_HALF) *lpi_100m = 1;
    }
    return 0;
}

int L2SW_EthernetLedTest(int32_t action) {
    FTSIM_FAILURE_POINT();
    if (action < 1 || action > 3) return refuse(EINVAL);
    return ftsim::set_observed("switch.ledtest", std::to_string(action)) ? 0 : -1;
}

int Led_SetSteadyStateAll(int32_t on) {
    FTSIM_FAILURE_POINT();
    if (!is_flag(on)) return refuse(EINVAL);
    return ftsim::set_observed("leds", on ? "on" : "off") ? 0 : -1;
}

int Led_SetFlashStateAll(int32_t on_period, int32_t off_period) {
    FTSIM_FAILURE_POINT();
    if (on_period <= 0 || off_period <= 0) return refuse(EINVAL);
    return ftsim::set_observed("leds", "flash " + std::to_string(on_period) + "/" + std::to_string(off_period)) ? 0
                                                                                                                : -1;
}

}  // extern "C"
