// Flash and SDRAM tests: a known text through a file of the cache partition,
// and pattern passes over two blocks of working memory held at once.
#include "peripherals/memory.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>

#include "common/unique_handle.h"
#include "peripherals/memory_checks.h"

namespace {

constexpr const char* kFlashFile = "/cache/test.txt";

struct FreeBlock {
    void operator()(unsigned char* p) const noexcept { std::free(p); }
};
using Block = std::unique_ptr<unsigned char[], FreeBlock>;

Block zeroed_block(std::size_t bytes) { return Block(static_cast<unsigned char*>(std::calloc(bytes, 1))); }

}  // namespace

int flash() {
    {
        ft::UniqueFile out(std::fopen(kFlashFile, "w+"));
        if (!out.valid()) {
            std::printf("FAIL to open file %s for write operation\n", kFlashFile);
            return -1;
        }
        // What reached the file is judged by reading it back.
        std::fwrite(ft::memory::kFlashText, 1, sizeof ft::memory::kFlashText, out.get());
    }
    std::array<char, 50> buffer;  // only the bytes read are ever looked at
    std::size_t got = 0;
    {
        ft::UniqueFile in(std::fopen(kFlashFile, "r"));
        if (!in.valid()) {
            std::printf("FAIL to open file %s for read operation\n", kFlashFile);
            return -1;
        }
        got = std::fread(buffer.data(), 1, buffer.size(), in.get());
    }
    // Whether it went is seen below, by opening it again.
    std::remove(kFlashFile);
    if (!ft::memory::flash_text_matches(std::span<const char>(buffer.data(), got))) {
        std::printf("FAIL. The string in %s does not match the string that was written to the file\n", kFlashFile);
        return -1;
    }
    if (ft::UniqueFile again(std::fopen(kFlashFile, "r")); again.valid()) {
        std::printf("FAIL to remove %s file\n", kFlashFile);
        return -1;
    }
    std::puts("PASS");
    return 0;
}

int sdram(const char* type) {
    const ft::memory::SdramTest test = ft::memory::sdram_test(type);
    if (test == ft::memory::SdramTest::WrongType) {
        std::puts("FAIL. Type should be 0 or 1");
        return -1;
    }
    if (test == ft::memory::SdramTest::Invalid) {
        std::puts("FAIL. Invalid parameter.");
        return -1;
    }
    const bool long_test = test == ft::memory::SdramTest::Long;
    std::printf("Test in progress... for mem block=%u Bytes and %u Bytes. Please wait...\n",
                static_cast<unsigned>(ft::memory::kBlockABytes), static_cast<unsigned>(ft::memory::kBlockBBytes));
    const Block a = zeroed_block(ft::memory::kBlockABytes);
    if (!a) {
        std::printf("FAIL to allocate %u Bytes of memory block\n", static_cast<unsigned>(ft::memory::kBlockABytes));
        return -1;
    }
    const Block b = zeroed_block(ft::memory::kBlockBBytes);
    if (!b) {
        std::printf("FAIL to allocate  %u Bytes of memory block\n", static_cast<unsigned>(ft::memory::kBlockBBytes));
        return -1;
    }
    const std::span<unsigned char> block_a(a.get(), ft::memory::kBlockABytes);
    const std::span<const unsigned char> block_b(b.get(), ft::memory::kBlockBBytes);
    const bool passed = ft::memory::zero_check(block_a) && (!long_test || ft::memory::long_passes(block_a, block_b));
    std::puts(passed ? "PASS" : "FAIL");
    return passed ? 0 : -1;
}
