#pragma once
// Word helpers shared by every command group: handlers receive the typed words
// as texts and convert them themselves.
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace ft {

// Leading decimal number of a word, as atoi reads it (leading blanks, optional
// sign, digits; anything after them is ignored; no digits gives 0). Unlike
// atoi it never overflows: out-of-range values saturate.
long long word_to_number(const char* word) noexcept;
int word_to_int(const char* word) noexcept;

// Exact comparison against a list of accepted texts: "0" matches "0", "00" does not.
inline bool word_is_one_of(const char* word, std::initializer_list<std::string_view> accepted) noexcept {
    for (std::string_view a : accepted)
        if (a == word) return true;
    return false;
}

inline bool word_is(const char* word, std::string_view text) noexcept { return text == word; }

// A dotted-quad IPv4 address and nothing else: host names are refused, since
// the phone's test network is always given by address.
bool word_is_ipv4(const char* word) noexcept;

}  // namespace ft
