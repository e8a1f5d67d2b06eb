#include "peripherals/memory_checks.h"

#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "common/words.h"

namespace ft::memory {

bool flash_text_matches(std::span<const char> read) noexcept {
    if (read.empty()) return false;
    const void* zero = std::memchr(read.data(), '\0', read.size());
    if (zero == nullptr) return false;
    const std::size_t length = static_cast<std::size_t>(static_cast<const char*>(zero) - read.data());
    return std::string_view(read.data(), length) == std::string_view(kFlashText);
}

namespace {

// Blocks are walked a word at a time, the words of a chunk checked together
// and only then rewritten: the same bytes are read and written in the same
// order of chunks as byte by byte, and a fault ends the pass before anything
// past it is written, but the memory bus sees full-width accesses.
using Word = std::uint64_t __attribute__((may_alias));
constexpr std::size_t kWordBytes = sizeof(Word);
constexpr std::size_t kChunkWords = 64;
constexpr std::size_t kChunkBytes = kChunkWords * kWordBytes;

constexpr Word spread(unsigned char byte) { return 0x0101010101010101ULL * byte; }

std::size_t bytes_to_alignment(const unsigned char* p, std::size_t n) noexcept {
    const std::size_t misalignment = reinterpret_cast<std::uintptr_t>(p) % kWordBytes;
    const std::size_t head = misalignment == 0 ? 0 : kWordBytes - misalignment;
    return head < n ? head : n;
}

template <bool Write>
using Bytes = std::conditional_t<Write, unsigned char*, const unsigned char*>;

// Bytes up to the first aligned word, whole chunks, then the bytes left: each
// must hold @p previous; with Write, each then receives @p next, a chunk only
// once the whole of it was checked.
template <bool Write>
bool walk(Bytes<Write> p, std::size_t n, unsigned char previous, unsigned char next) noexcept {
    const std::size_t head = bytes_to_alignment(p, n);
    for (std::size_t i = 0; i < head; ++i) {
        if (p[i] != previous) return false;
        if constexpr (Write) p[i] = next;
    }
    p += head;
    n -= head;
    const Word was = spread(previous), now = spread(next);
    for (; n >= kChunkBytes; n -= kChunkBytes, p += kChunkBytes) {
        const Word* w = reinterpret_cast<const Word*>(p);
        Word differs = 0;
        for (std::size_t i = 0; i < kChunkWords; ++i) differs |= w[i] ^ was;
        if (differs != 0) return false;
        if constexpr (Write) {
            Word* out = reinterpret_cast<Word*>(p);
            for (std::size_t i = 0; i < kChunkWords; ++i) out[i] = now;
        }
    }
    for (std::size_t i = 0; i < n; ++i) {
        if (p[i] != previous) return false;
        if constexpr (Write) p[i] = next;
    }
    return true;
}

}  // namespace

bool zero_check(std::span<const unsigned char> block) noexcept {
    if (block.size() < 2) return true;
    return walk<false>(opaque(block.data()) + 1, block.size() - 1, 0x00, 0x00);
}

bool pattern_pass(std::span<unsigned char> block, unsigned char previous, unsigned char next) noexcept {
    if (block.empty()) return true;
    unsigned char* p = opaque(block.data());
    p[0] = next;
    return walk<true>(p + 1, block.size() - 1, previous, next);
}

bool long_passes(std::span<unsigned char> a, std::span<const unsigned char> b) noexcept {
    return pattern_pass(a, 0x00, 0x55) && pattern_pass(a, 0x55, 0xAA) && pattern_pass(a, 0xAA, 0xFF) &&
           zero_check(b) && pattern_pass(a, 0xFF, 0x00);
}

SdramTest sdram_test(const char* word) noexcept {
    const long long number = ft::word_to_number(word);
    if (number != 0 && number != 1) return SdramTest::WrongType;
    if (number == 0 && word[0] != '0') return SdramTest::Invalid;
    return number == 1 ? SdramTest::Long : SdramTest::Short;
}

}  // namespace ft::memory
