#pragma once
// The shell's fixed buffers and the two pieces of text handling that fill
// them: the word splitter and the quoted-value joiner.
#include <array>
#include <cstddef>

namespace ft {

inline constexpr std::size_t kLineSize = 256;    // 255 characters and the NUL
inline constexpr std::size_t kMaxWords = 20;
inline constexpr std::size_t kWordSize = 100;    // 99 characters and the NUL
inline constexpr std::size_t kQuotedSize = 100;

struct CommandLine {
    std::array<char, kLineSize> line{};
    std::array<std::array<char, kWordSize>, kMaxWords> words{};
    int count = 0;

    void clear() noexcept { *this = CommandLine{}; }
    // An untyped word is the empty text, never null.
    const char* word(std::size_t i) const noexcept { return i < kMaxWords ? words[i].data() : ""; }
};

enum class SplitResult { Ok, LineTooLong, TooManyWords, WordTooLong };

// Splits @p text at blanks (only ' '; a tab is part of a word), dropping any
// number of leading "ft" words. Input that would not fit the buffers is
// refused whole: @p out is left cleared and nothing of the line is kept.
SplitResult split_line(const char* text, CommandLine& out) noexcept;

// Refusal text for a line the splitter did not accept.
const char* split_refusal(SplitResult r) noexcept;

// Joins the value of "program write|writecommit": word 3, or, when it starts
// with a double quote, words 3.. up to the first empty one, cut at the last
// quote. Returns false (and leaves @p out empty) when the value would not fit.
bool join_quoted_value(const CommandLine& cl, std::array<char, kQuotedSize>& out) noexcept;

inline constexpr const char* kQuotedTooLong =
    "Value too long: at most 99 characters between the quotes. Nothing was written.";

}  // namespace ft
