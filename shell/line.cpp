#include "shell/line.h"

#include <cstring>
#include <string_view>

namespace ft {

SplitResult split_line(const char* text, CommandLine& out) noexcept {
    out.clear();
    const std::size_t len = std::strlen(text);
    if (len >= kLineSize) return SplitResult::LineTooLong;
    std::memcpy(out.line.data(), text, len + 1);

    // Check everything before storing anything, so a refused line leaves no
    // half-filled word table behind.
    int count = 0;
    for (int pass = 0; pass < 2; ++pass) {
        count = 0;
        const char* p = out.line.data();
        while (*p) {
            while (*p == ' ') ++p;
            if (!*p) break;
            const char* start = p;
            while (*p && *p != ' ') ++p;
            const std::string_view w(start, static_cast<std::size_t>(p - start));
            if (count == 0 && w == "ft") continue;
            if (w.size() >= kWordSize || static_cast<std::size_t>(count) >= kMaxWords) {
                const bool long_word = w.size() >= kWordSize;
                out.clear();
                return long_word ? SplitResult::WordTooLong : SplitResult::TooManyWords;
            }
            if (pass == 1) {
                std::memcpy(out.words[count].data(), w.data(), w.size());
                out.words[count][w.size()] = '\0';
            }
            ++count;
        }
    }
    out.count = count;
    return SplitResult::Ok;
}

const char* split_refusal(SplitResult r) noexcept {
    switch (r) {
    case SplitResult::LineTooLong:
        return "Line too long: at most 255 characters. Nothing was run.";
    case SplitResult::TooManyWords:
        return "Too many words: at most 20. Nothing was run.";
    case SplitResult::WordTooLong:
        return "Word too long: at most 99 characters. Nothing was run.";
    case SplitResult::Ok:
        break;
    }
    return "";
}

bool join_quoted_value(const CommandLine& cl, std::array<char, kQuotedSize>& out) noexcept {
    out.fill('\0');
    const char* first_word = cl.word(3);
    if (first_word[0] != '"') {
        std::strcpy(out.data(), first_word);  // a word always fits: both hold 99
        return true;
    }
    // Words 3..19 with a blank after each fit easily in the line's own size.
    std::array<char, kLineSize + kMaxWords> joined{};
    std::size_t n = 0;
    for (std::size_t i = 3; i < kMaxWords; ++i) {
        const char* w = cl.word(i);
        if (i > 3 && w[0] == '\0') break;
        const std::size_t wl = std::strlen(w);
        std::memcpy(joined.data() + n, w, wl);
        n += wl;
        joined[n++] = ' ';
    }
    const std::string_view text(joined.data(), n);
    const std::size_t first = text.find('"');
    const std::size_t last = text.rfind('"');
    // A lone quote opens a value that runs to the end, trailing blank included.
    const std::size_t end = last == first ? text.size() : last;
    const std::string_view value = text.substr(first + 1, end - first - 1);
    if (value.size() >= kQuotedSize) return false;
    std::memcpy(out.data(), value.data(), value.size());
    return true;
}

}  // namespace ft
