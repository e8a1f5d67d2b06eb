#include "common/words.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <climits>

namespace ft {

namespace {
const char* skip_blanks(const char* p) noexcept {
    // atoi skips what isspace accepts in the C locale.
    while (*p == ' ' || *p == '\t' || *p == '\n' || *p == '\v' || *p == '\f' || *p == '\r') ++p;
    return p;
}
}  // namespace

long long word_to_number(const char* word) noexcept {
    if (word == nullptr) return 0;
    const char* p = skip_blanks(word);
    bool negative = false;
    if (*p == '+' || *p == '-') negative = (*p++ == '-');
    long long value = 0;
    for (; *p >= '0' && *p <= '9'; ++p) {
        const int digit = *p - '0';
        if (value > (LLONG_MAX - digit) / 10) {
            value = LLONG_MAX;
            break;
        }
        value = value * 10 + digit;
    }
    return negative ? -value : value;
}

int word_to_int(const char* word) noexcept {
    const long long v = word_to_number(word);
    if (v > INT_MAX) return INT_MAX;
    if (v < INT_MIN) return INT_MIN;
    return static_cast<int>(v);
}

bool word_is_ipv4(const char* word) noexcept {
    in_addr address{};
    return inet_pton(AF_INET, word, &address) == 1;
}

}  // namespace ft
