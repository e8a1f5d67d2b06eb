#pragma once
// Values formatted into a command line for the system shell: a typed word or
// a factory field reaches the tool as the literal text of one argument and
// never runs anything.
#include <array>
#include <cstddef>
#include <string_view>

namespace ft {

// Where the format puts the value.
enum class QuotePlace {
    Bare,          // a word of its own: %s
    DoubleQuoted,  // inside the double quotes the format already has: "...%s..."
};

// The longest value any command formats: a whole input line.
inline constexpr std::size_t kMaxQuotedValue = 255;

// The text to put in place of a value. A value made only of letters, digits
// and _@%+=:,./- comes out exactly as it is, so command lines stay as the
// formats show them for such values; an empty value stays empty. Any other
// value becomes one literal argument: single-quoted in a bare place (a ' as
// '\''), or with a backslash before each ", \, $ and ` inside double quotes.
class Quoted {
public:
    Quoted(std::string_view value, QuotePlace place = QuotePlace::Bare) noexcept;
    const char* c_str() const noexcept { return text_.data(); }
    // False for a value longer than kMaxQuotedValue, which is then the empty
    // argument '' (or nothing inside quotes): never shell syntax.
    bool fits() const noexcept { return fits_; }

private:
    std::array<char, 4 * kMaxQuotedValue + 3> text_{};
    bool fits_ = true;
};

}  // namespace ft
