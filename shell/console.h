#pragma once
// Where the shell's command lines come from. At a terminal an operator gets
// readline: line editing, history, and background reports shown above a
// redrawn prompt. Anything else (a station's pipe, a file) is read as plain
// lines: no key is special there, so a control byte is just a character of
// a word, and nothing a station sends can recall or edit an earlier line.
#include <array>
#include <cstddef>
#include <cstdio>

#include "shell/line.h"

namespace ft {

enum class Input {
    Line,     // a line (possibly empty: Ctrl-D at a terminal too) is in the buffer
    TooLong,  // longer than the buffer holds; nothing of it was kept
    HasNul,   // holds a NUL byte, which no word can carry
    End,      // no more input will come
};

using LineBuffer = std::array<char, kLineSize>;

// The line the shell prints instead of running a refused line.
const char* input_refusal(Input refused) noexcept;

// Plain lines from a descriptor, as a station sends them. Shows the prompt
// and echoes each line whole, with its line feed, as a terminal would have.
// Holds no more than one line's worth of a line of any length.
class PlainLines {
public:
    PlainLines(int fd, std::FILE* echo) noexcept : fd_(fd), echo_(echo) {}
    Input next(LineBuffer& line) noexcept;

private:
    bool fill() noexcept;

    int fd_;
    std::FILE* echo_;
    std::array<char, 4096> buffer_{};
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    bool ended_ = false;
};

// The shell's input: readline when standard input is a terminal, plain lines
// otherwise.
class ShellInput {
public:
    ShellInput() noexcept;
    Input next(LineBuffer& line) noexcept;

private:
    bool terminal_;
    PlainLines plain_;
};

}  // namespace ft
