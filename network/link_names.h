#pragma once
// Names of the switch's link modes and link states, as the port commands and
// the switch diagnostics both print them. Defined once here: a station that
// parses one command's output parses the other's the same way.
#include <array>
#include <span>

namespace ft::network {

inline constexpr const char* kEnumNotFound = "ENUM NOT FOUND!";

// Link modes by value (the library's numbering).
inline constexpr std::array<const char*, 8> kLinkModeNames{
    "L2SW_LINK_MODE_DISABLED",  "L2SW_LINK_MODE_AUTO",     "L2SW_LINK_MODE_10_HALF",
    "L2SW_LINK_MODE_10_FULL",   "L2SW_LINK_MODE_100_HALF", "L2SW_LINK_MODE_100_FULL",
    "L2SW_LINK_MODE_1000_FULL", "L2SW_LINK_MODE_INVALID",
};

// Link states by value.
inline constexpr std::array<const char*, 5> kLinkStatusNames{
    "L2SW_LINK_INVALID", "L2SW_LINK_UP", "L2SW_LINK_DOWN", "L2SW_LINK_ENABLE", "L2SW_LINK_DISABLED",
};

// The name of @p value in a table indexed by value; a value the library
// should never have given still prints something a station can match.
constexpr const char* name_of(std::span<const char* const> names, int value) {
    if (value < 0 || static_cast<unsigned>(value) >= names.size()) return kEnumNotFound;
    return names[static_cast<unsigned>(value)];
}

constexpr const char* link_mode_name(int mode) { return name_of(kLinkModeNames, mode); }
constexpr const char* link_status_name(int status) { return name_of(kLinkStatusNames, status); }

}  // namespace ft::network
