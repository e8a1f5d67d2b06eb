#include "sim/bluetooth/devices.h"

#include <charconv>
#include <cstdio>

namespace ftsim::bt {

namespace {

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

template <typename T>
bool parse_number(std::string_view text, T& out, int base) {
    if (text.empty()) return false;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, out, base);
    return ec == std::errc() && ptr == end;
}

bool parse_device(std::string_view item, Device& d) {
    const std::size_t comma = item.find(',');
    if (!parse_address(item.substr(0, comma), d.address)) return false;
    std::size_t pos = comma;
    while (pos != std::string_view::npos) {
        const std::size_t next = item.find(',', pos + 1);
        const std::string_view field = item.substr(pos + 1, next == std::string_view::npos ? next : next - pos - 1);
        pos = next;
        const std::size_t eq = field.find('=');
        const std::string_view key = field.substr(0, eq);
        const std::string_view value = eq == std::string_view::npos ? std::string_view() : field.substr(eq + 1);
        if (eq == std::string_view::npos) {
            if (key != "twice") return false;
            d.twice = true;
        } else if (key == "name") {
            d.name = value;
        } else if (key == "class") {
            uint32_t v = 0;
            if (!parse_number(value, v, 16)) return false;
            d.device_class = v;
        } else if (key == "type") {
            uint32_t v = 0;
            if (!parse_number(value, v, 10)) return false;
            d.type = v;
        } else if (key == "rssi") {
            int v = 0;
            if (!parse_number(value, v, 10) || v < INT8_MIN || v > INT8_MAX) return false;
            d.rssi = static_cast<int8_t>(v);
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace

bool parse_address(std::string_view text, Address& out) {
    if (text.size() != 17) return false;
    for (std::size_t i = 0; i < 6; ++i) {
        const int hi = hex_digit(text[3 * i]), lo = hex_digit(text[3 * i + 1]);
        if (hi < 0 || lo < 0 || (i < 5 && text[3 * i + 2] != ':')) return false;
        out[i] = static_cast<uint8_t>(hi * 16 + lo);
    }
    return true;
}

std::string address_text(const Address& a) {
    char text[18];
    std::snprintf(text, sizeof text, "%02X:%02X:%02X:%02X:%02X:%02X", a[0], a[1], a[2], a[3], a[4], a[5]);
    return text;
}

std::vector<Device> devices_in_range(std::string_view list, std::size_t* unreadable) {
    std::vector<Device> devices;
    std::size_t bad = 0;
    std::size_t pos = 0;
    while (pos <= list.size() && !list.empty()) {
        std::size_t end = list.find(';', pos);
        if (end == std::string_view::npos) end = list.size();
        const std::string_view item = list.substr(pos, end - pos);
        pos = end + 1;
        if (item.empty()) continue;
        Device d;
        if (parse_device(item, d))
            devices.push_back(std::move(d));
        else
            ++bad;
    }
    if (unreadable) *unreadable = bad;
    return devices;
}

}  // namespace ftsim::bt
