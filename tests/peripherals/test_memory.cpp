// The SDRAM passes and the flash read-back, on memory the tests hand them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

#include "peripherals/memory.h"
#include "peripherals/memory_checks.h"

namespace {

using namespace ft::memory;

// Which test a word asks for: nothing else tells the short test from the long
// one, since both print the same lines.
TEST(SdramTest, OnlyARealZeroIsTheShortTestAndOnlyOneTheLong) {
    for (const char* w : {"0", "00", "0x"}) EXPECT_EQ(sdram_test(w), SdramTest::Short) << w;
    for (const char* w : {"1", "+1", "01"}) EXPECT_EQ(sdram_test(w), SdramTest::Long) << w;
    for (const char* w : {"2", "-1"}) EXPECT_EQ(sdram_test(w), SdramTest::WrongType) << w;
    for (const char* w : {"-0", "x", ""}) EXPECT_EQ(sdram_test(w), SdramTest::Invalid) << w;
}

// The long test's passes go from each pattern to the next.
constexpr unsigned char kPatterns[] = {0x00, 0x55, 0xAA, 0xFF, 0x00};
// Long enough for a byte-wise head, whole chunks of 512 bytes and a byte-wise tail.
constexpr std::size_t kSize = 3 * 512 + 3 * 8 + 5;

// kSize bytes of @p value, @p offset bytes past a word boundary.
struct Block {
    std::vector<std::uint64_t> storage = std::vector<std::uint64_t>(kSize / 8 + 2);
    std::span<unsigned char> data;
    Block(std::size_t offset, unsigned char value)
        : data(reinterpret_cast<unsigned char*>(storage.data()) + offset, kSize) {
        std::ranges::fill(data, value);
    }
    bool all(unsigned char v) const { return std::ranges::all_of(data, [v](unsigned char b) { return b == v; }); }
};

// A pass stops at any byte but 0 that does not hold the previous pattern
// (another pattern, or one flipped bit), wherever it sits against word and
// chunk boundaries; a good pass leaves the next pattern everywhere, in byte 0
// too, which it writes unexamined. The zero check reads the same way.
TEST(SdramPasses, EachPassCatchesAByteThatDoesNotHoldThePreviousPattern) {
    for (std::size_t offset = 0; offset < 8; ++offset) {
        for (std::size_t at = 1; at < kSize; ++at) {
            Block zeroes(offset, 0x00);
            zeroes.data[at] = 0x10;
            EXPECT_FALSE(zero_check(zeroes.data)) << "offset " << offset << ", byte " << at;
        }
        for (std::size_t i = 0; i + 1 < std::size(kPatterns); ++i) {
            const unsigned char was = kPatterns[i], next = kPatterns[i + 1];
            for (std::size_t at = 1; at < kSize; ++at) {
                for (unsigned wrong : {0x00u, 0x55u, 0xAAu, 0xFFu, was ^ 0x80u, was ^ 0x01u}) {
                    if (wrong == was) continue;
                    Block b(offset, was);
                    b.data[at] = static_cast<unsigned char>(wrong);
                    EXPECT_FALSE(pattern_pass(b.data, was, next))
                        << "offset " << offset << ", byte " << at << " = " << wrong << " in pass from " << int(was);
                }
            }
            Block b(offset, was);
            b.data[0] = was ^ 0x0F;
            ASSERT_TRUE(pattern_pass(b.data, was, next));
            EXPECT_TRUE(b.all(next)) << "offset " << offset << ", pass from " << int(was);
        }
    }
}

// The guard block must read zero, byte 0 aside; it is checked after the 0xFF
// pass and before the last.
TEST(SdramPasses, TheGuardBlockMustStayZeroUntilTheLastPass) {
    Block a(3, 0x00), b(5, 0x00);
    b.data[0] = 0x42;
    EXPECT_TRUE(long_passes(a.data, b.data));
    EXPECT_TRUE(a.all(0x00));
    b.data[kSize - 1] = 0x10;
    EXPECT_FALSE(long_passes(a.data, b.data));
    EXPECT_TRUE(a.all(0xFF));
}

// Only the bytes read are looked at, up to the first zero byte among them.
TEST(FlashReadBack, OnlyTheBytesReadAreLookedAt) {
    const std::string text = kFlashText;
    const auto matches = [](const std::string& read) { return flash_text_matches({read.data(), read.size()}); };
    EXPECT_FALSE(matches(text));  // without its zero; the string's own terminator lies past the bytes read
    EXPECT_TRUE(matches(text + '\0'));
    EXPECT_TRUE(matches(text + '\0' + "xy"));
    EXPECT_FALSE(matches(text.substr(0, text.size() - 1) + '\0'));
    EXPECT_FALSE(matches(text + "!" + '\0'));
}

// What sdram 1 prints while the address space may grow by @p headroom bytes only.
std::string sdram_with_headroom(std::size_t headroom) {
    long pages = 0;
    FILE* statm = std::fopen("/proc/self/statm", "r");
    if (statm == nullptr || std::fscanf(statm, "%ld", &pages) != 1) return "no /proc/self/statm";
    std::fclose(statm);
    rlimit old{};
    getrlimit(RLIMIT_AS, &old);
    const rlimit tight{static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + headroom, old.rlim_max};
    testing::internal::CaptureStdout();
    setrlimit(RLIMIT_AS, &tight);
    EXPECT_EQ(sdram("1"), -1);
    setrlimit(RLIMIT_AS, &old);
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

TEST(Sdram, EachBlockThatCannotBeHadIsNamed) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizers' runtime needs more address space than any limit leaves";
#endif
    const std::string progress = "Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...\n";
    EXPECT_EQ(sdram_with_headroom(16u << 20), progress + "FAIL to allocate 67108864 Bytes of memory block\n");
    EXPECT_EQ(sdram_with_headroom((64u << 20) + (2u << 20)), progress + "FAIL to allocate  4194304 Bytes of memory block\n");
}

}  // namespace
