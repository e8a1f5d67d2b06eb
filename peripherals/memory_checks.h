#pragma once
// The checks behind "flash" and "sdram", apart from the files and blocks
// they run on, so that they can be shown to catch what they are for.
#include <cstddef>
#include <span>

namespace ft::memory {

// The text the flash test writes, with its terminating zero byte.
inline constexpr char kFlashText[] = "I am testing the flash";

// Whether the bytes read back hold the flash text as a zero-terminated text.
// Only the bytes read are looked at: without a zero among them it is a mismatch.
bool flash_text_matches(std::span<const char> read) noexcept;

// @p p, as a pointer the optimiser must take to whatever the memory holds: it
// may know that a zeroing allocator produced the block, or what an earlier
// pass stored, and would then drop the very reads that look for a fault.
template <typename T>
T* opaque(T* p) noexcept {
    asm volatile("" : "+r"(p) : : "memory");
    return p;
}

// What the word after "sdram" asks for: only 0 and 1 are types, and only a
// word that starts with a digit 0 is a 0 (a word without digits reads as 0 too).
enum class SdramTest { WrongType, Invalid, Short, Long };
SdramTest sdram_test(const char* word) noexcept;

inline constexpr std::size_t kBlockABytes = 64u << 20;
inline constexpr std::size_t kBlockBBytes = 4u << 20;

// Whether bytes 1 to the end of @p block read 0x00; byte 0 is not examined.
bool zero_check(std::span<const unsigned char> block) noexcept;

// One pattern pass: @p next goes into byte 0 unexamined; then, from byte 1
// upward, each byte must still hold @p previous (false at once when one does
// not) and receives @p next.
bool pattern_pass(std::span<unsigned char> block, unsigned char previous, unsigned char next) noexcept;

// The long test after the zero check of @p a: 0x55, 0xAA and 0xFF over @p a,
// the guard check of @p b (zero_check), and 0x00 over @p a.
bool long_passes(std::span<unsigned char> a, std::span<const unsigned char> b) noexcept;

}  // namespace ft::memory
