#include "sim/network/switch_model.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/velor.h"
#include "sim/core/state.h"

namespace ftsim::network {

std::optional<int> port_index(std::int32_t id) {
    for (int i = 0; i < kPortCount; ++i)
        if (kPortIds[static_cast<std::size_t>(i)] == id) return i;
    return std::nullopt;
}

std::string hex(std::int32_t id) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%x", static_cast<unsigned>(id));
    return text;
}

Switch factory_switch() {
    Switch s;
    // What the LAN side saw while the phone booted (DHCP, discovery, the
    // call server); the CPU port carried the phone's share of it.
    s.ports[kLan].counters = {1284736, 8120, 502211, 7904, 0, 0};
    s.ports[kCpu].counters = {502211, 7904, 1161480, 7310, 0, 0};
    return s;
}

void reset_settings(Switch& s) {
    Switch fresh = factory_switch();
    for (int i = 0; i < kPortCount; ++i)
        fresh.ports[static_cast<std::size_t>(i)].counters = s.ports[static_cast<std::size_t>(i)].counters;
    s = fresh;
}

namespace {

// One setting of the state file: its key, where it lives and its range.
struct Field {
    std::string key;
    long long* value;
    long long lo, hi;
};

constexpr long long kCounterMax = (1LL << 62);

std::vector<Field> fields(Switch& s) {
    std::vector<Field> list;
    for (std::size_t i = 0; i < kPortCount; ++i) {
        Port& p = s.ports[i];
        const std::string k = std::string(kPortKeys[i]) + ".";
        list.push_back({k + "mode", &p.mode, L2SW_LINK_MODE_DISABLED, L2SW_LINK_MODE_1000_FULL});
        list.push_back({k + "forced", &p.forced, L2SW_LINK_UP, L2SW_LINK_DISABLED});
        list.push_back({k + "test", &p.test_mode, 0, 4});
        list.push_back({k + "mdix", &p.mdix, 0, 1});
        list.push_back({k + "eee", &p.eee, 0, 1});
        list.push_back({k + "pvid", &p.pvid, 0, 4095});
        list.push_back({k + "priority", &p.priority, 0, 7});
        for (std::size_t c = 0; c < kCounterNames.size(); ++c)
            list.push_back({k + kCounterNames[c], &p.counters[c], 0, kCounterMax});
    }
    // A register field the library hands on as the switch holds it, so a
    // switch that went astray can be shown to the commands.
    list.push_back({"green", &s.green, 0, 255});
    list.push_back({"ssc", &s.ssc, 0, 1});
    list.push_back({"cpu.txdelay", &s.tx_delay, 0, 1});
    list.push_back({"cpu.rxdelay", &s.rx_delay, 0, 7});
    list.push_back({"acl", &s.acl, 0, 1});
    return list;
}

}  // namespace

std::string serialize(const Switch& s) {
    Switch copy = s;
    std::string text;
    for (const Field& f : fields(copy)) text += f.key + " " + std::to_string(*f.value) + "\n";
    return text;
}

Switch parse(std::string_view text) {
    Switch s = factory_switch();
    const std::vector<Field> list = fields(s);
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        const std::size_t blank = line.find(' ');
        if (blank == std::string_view::npos) continue;
        const std::string_view key = line.substr(0, blank), number = line.substr(blank + 1);
        long long v = 0;
        const auto [rest, error] = std::from_chars(number.data(), number.data() + number.size(), v);
        if (error != std::errc() || rest != number.data() + number.size()) continue;
        for (const Field& f : list)
            if (f.key == key && v >= f.lo && v <= f.hi) *f.value = v;
    }
    return s;
}

namespace {

// The speed a link mode runs at, in Mb/s.
int speed_of(long long mode) {
    switch (mode) {
    case L2SW_LINK_MODE_10_HALF:
    case L2SW_LINK_MODE_10_FULL: return 10;
    case L2SW_LINK_MODE_100_HALF:
    case L2SW_LINK_MODE_100_FULL: return 100;
    case L2SW_LINK_MODE_1000_FULL: return 1000;
    default: return 0;
    }
}

}  // namespace

Link resolve(const Port& port, const Cable& cable) {
    // A port switched off or forced down keeps its PHY quiet.
    if (port.forced == L2SW_LINK_DISABLED) return {L2SW_LINK_MODE_DISABLED, L2SW_LINK_DISABLED};
    if (port.forced == L2SW_LINK_DOWN || port.mode == L2SW_LINK_MODE_DISABLED)
        return {L2SW_LINK_MODE_DISABLED, L2SW_LINK_DOWN};
    // A PHY sending a transmitter test waveform links with nobody.
    if (port.test_mode != 0) return {L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN};
    const Link none{L2SW_LINK_MODE_INVALID, L2SW_LINK_DOWN};
    if (cable.partner == 0) return none;
    if (port.mode == L2SW_LINK_MODE_AUTO) {
        // Autonegotiation settles on the best mode both ends offer, full duplex.
        if (cable.partner >= 1000 && cable.gigabit) return {L2SW_LINK_MODE_1000_FULL, L2SW_LINK_UP};
        if (cable.partner >= 100) return {L2SW_LINK_MODE_100_FULL, L2SW_LINK_UP};
        return {L2SW_LINK_MODE_10_FULL, L2SW_LINK_UP};
    }
    // A forced mode links when the partner can run at that speed too (a
    // faster partner also offers the slower speeds).
    const int speed = speed_of(port.mode);
    if (speed == 0 || speed > cable.partner || (speed == 1000 && !cable.gigabit)) return none;
    return {static_cast<int>(port.mode), L2SW_LINK_UP};
}

namespace {
constexpr const char* kStateFile = "switch";
}

Switch load() {
    std::string text;
    if (!read_text(kStateFile, text)) return factory_switch();
    return parse(text);
}

bool save(const Switch& s) { return write_atomic(kStateFile, serialize(s)); }

bool forget() { return hw().remove(kStateFile); }

Cable cable(int port) {
    // The CPU port's partner is the phone's own processor, always there at 1000 Mb/s.
    if (port == kCpu) return {true, 1000};
    const std::string key = kPortKeys[static_cast<std::size_t>(port)];
    Cable c;
    c.gigabit = get("switch.gigabit." + key) != "no";
    const std::string partner = get("switch.partner." + key);
    c.partner = partner == "none" ? 0 : std::atoi(partner.c_str());
    return c;
}

}  // namespace ftsim::network
