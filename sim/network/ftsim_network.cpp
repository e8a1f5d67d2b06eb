// The wired network in ftsim: a power-up brings the switch, eth0, the lamps
// and the kernel log up as a fresh boot does, and `ftsim show` lists the
// switch's ports, eth0 and the LEDs.
#include <cerrno>
#include <cstring>
#include <string>

#include "platform/velor.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"
#include "sim/network/switch_model.h"

namespace ftsim {
namespace {

using namespace network;

bool network_power_up(const Phone&, PowerUp&, std::string& error) {
    if (!forget() || !hw().remove("kmsg")) {
        error = std::string("cannot reset the switch: ") + std::strerror(errno);
        return false;
    }
    return true;
}

std::string mode_text(long long mode) {
    switch (mode) {
    case L2SW_LINK_MODE_DISABLED: return "disabled";
    case L2SW_LINK_MODE_AUTO: return "auto";
    case L2SW_LINK_MODE_10_HALF: return "10 half";
    case L2SW_LINK_MODE_10_FULL: return "10 full";
    case L2SW_LINK_MODE_100_HALF: return "100 half";
    case L2SW_LINK_MODE_100_FULL: return "100 full";
    case L2SW_LINK_MODE_1000_FULL: return "1000 full";
    default: return "none";
    }
}

std::string status_text(int status) {
    switch (status) {
    case L2SW_LINK_UP: return "up";
    case L2SW_LINK_DISABLED: return "port disabled";
    default: return "down";
    }
}

void network_show(const Phone&, std::string& out) {
    const Switch s = load();
    for (int i = 0; i < kPortCount; ++i) {
        const Port& p = s.ports[static_cast<std::size_t>(i)];
        const Cable c = cable(i);
        const Link l = resolve(p, c);
        std::string line = "switch " + std::string(kPortNames[static_cast<std::size_t>(i)]) + " (" +
                           hex(kPortIds[static_cast<std::size_t>(i)]) + "): configured " + mode_text(p.mode) +
                           ", actual " + mode_text(l.actual) + ", link " + status_text(l.status);
        line += p.test_mode ? ", test mode " + std::to_string(p.test_mode) : ", no test mode";
        if (i != kCpu)
            line += "; cable: " + (c.partner ? "partner " + std::to_string(c.partner) : std::string("nothing")) +
                    (c.gigabit ? "" : ", port without 1000");
        out += line + "\n";
    }
    const std::string address = get("eth0.address");
    out += "eth0: " + get("eth0.link") + ", " + get("eth0.speed") + "Mb/s " + get("eth0.duplex") +
           " duplex, autoneg " + get("eth0.autoneg") + ", " + (address.empty() ? "no address" : "inet " + address) +
           "\n";
    out += "leds: " + get("leds") + "; Ethernet LED test: " + get("switch.ledtest") + "\n";
}

const ModuleRegistrar kNetwork{Module{
    "network",
    {},
    network_power_up,
    network_show,
    nullptr,
}};

}  // namespace
}  // namespace ftsim
