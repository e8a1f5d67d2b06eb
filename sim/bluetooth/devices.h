#pragma once
// The Bluetooth devices in range of the simulated phone, as the condition
// bt.devices lists them: items joined by ';', each an address followed by
// optional ",name=NAME", ",class=HEX", ",type=N", ",rssi=N" and the flag
// ",twice" (first found with the address alone, later with everything).
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ftsim::bt {

using Address = std::array<uint8_t, 6>;

struct Device {
    Address address{};
    std::string name;  // empty: the device tells no name
    std::optional<uint32_t> device_class;
    std::optional<uint32_t> type;
    std::optional<int8_t> rssi;
    bool twice = false;
};

// "00:11:22:AA:BB:CC" (either case) into its six bytes.
bool parse_address(std::string_view text, Address& out);
std::string address_text(const Address& a);

// The devices in the order listed. Items that do not parse are never found;
// @p unreadable (if given) counts them.
std::vector<Device> devices_in_range(std::string_view list, std::size_t* unreadable = nullptr);

}  // namespace ftsim::bt
