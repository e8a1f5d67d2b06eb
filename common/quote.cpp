#include "common/quote.h"

#include <cstring>

namespace ft {
namespace {

// True when @p value needs no quoting in any place.
bool is_plain(std::string_view value) noexcept {
    for (const char c : value) {
        const bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                        std::strchr("_@%+=:,./-", c) != nullptr;
        if (!ok || c == '\0') return false;
    }
    return true;
}

}  // namespace

Quoted::Quoted(std::string_view value, QuotePlace place) noexcept {
    std::size_t n = 0;
    auto put = [&](char c) { text_[n++] = c; };
    if (value.size() > kMaxQuotedValue) {
        fits_ = false;
        if (place == QuotePlace::Bare) {
            put('\'');
            put('\'');
        }
    } else if (is_plain(value)) {
        for (const char c : value) put(c);
    } else if (place == QuotePlace::Bare) {
        put('\'');
        for (const char c : value) {
            if (c == '\'') {
                // Close the quotes, an escaped quote, open them again.
                put('\'');
                put('\\');
                put('\'');
                put('\'');
            } else {
                put(c);
            }
        }
        put('\'');
    } else {
        for (const char c : value) {
            if (c == '"' || c == '\\' || c == '$' || c == '`') put('\\');
            put(c);
        }
    }
    text_[n] = '\0';
}

}  // namespace ft
