// The SDRAM passes and the flash read-back, on memory the tests hand them.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "peripherals/memory.h"
#include "peripherals/memory_checks.h"

namespace {

using ft::memory::long_passes;
using ft::memory::pattern_pass;
using ft::memory::zero_check;

struct Pass {
    unsigned char previous, next;
};
// The pattern passes of the long test, in their order.
constexpr std::array<Pass, 4> kPasses{{{0x00, 0x55}, {0x55, 0xAA}, {0xAA, 0xFF}, {0xFF, 0x00}}};

// A block that starts @p offset bytes past a word boundary and is long
// enough to have a byte-wise head, whole chunks and a byte-wise tail.
class Block {
public:
    explicit Block(std::size_t offset, std::size_t size = 3 * 512 + 3 * 8 + 5)
        : storage_(size + 16), data_(storage_.data() + (8 - reinterpret_cast<std::uintptr_t>(storage_.data()) % 8) % 8 + offset, size) {}
    std::span<unsigned char> span() { return data_; }
    void fill(unsigned char v) { std::memset(data_.data(), v, data_.size()); }
    unsigned char& operator[](std::size_t i) { return data_[i]; }
    std::size_t size() const { return data_.size(); }
    bool all(unsigned char v) const {
        for (unsigned char b : data_)
            if (b != v) return false;
        return true;
    }

private:
    std::vector<unsigned char> storage_;
    std::span<unsigned char> data_;
};

// Places in a block where a fault hides: the first examined byte, both sides
// of the first word boundary and of a chunk boundary, the middle, the last.
// (Byte 0 is never examined.)
std::vector<std::size_t> fault_places(std::size_t offset, std::size_t size) {
    const std::size_t first_word = (8 - offset % 8) % 8;
    std::vector<std::size_t> places{1, first_word + 1, first_word + 7, first_word + 8, first_word + 511,
                                    first_word + 512, first_word + 513, size / 2, size - 9, size - 8, size - 2,
                                    size - 1};
    if (first_word != 0) places.push_back(first_word);
    return places;
}

TEST(SdramPasses, EachPassCatchesAByteThatDoesNotHoldThePreviousPattern) {
    for (std::size_t offset = 0; offset < 8; ++offset) {
        Block block(offset);
        for (const Pass& p : kPasses) {
            for (std::size_t at : fault_places(offset, block.size())) {
                // Any other pattern, and a single flipped bit.
                for (unsigned char wrong : {0x00, 0x55, 0xAA, 0xFF, static_cast<int>(p.previous ^ 0x80)}) {
                    if (wrong == p.previous) continue;
                    block.fill(p.previous);
                    block[at] = wrong;
                    EXPECT_FALSE(pattern_pass(block.span(), p.previous, p.next))
                        << "offset " << offset << ", byte " << at << " = " << int(wrong) << " in pass "
                        << int(p.previous) << "->" << int(p.next);
                }
            }
            block.fill(p.previous);
            ASSERT_TRUE(pattern_pass(block.span(), p.previous, p.next));
            EXPECT_TRUE(block.all(p.next)) << "pass " << int(p.previous) << "->" << int(p.next) << " left bytes behind";
        }
    }
}

// A byte that stops taking writes keeps what it held; the next pass finds it,
// whichever pass it stuck in (the last pass has no next one).
TEST(SdramPasses, AByteStuckInAPassIsFoundByTheNext) {
    for (std::size_t stuck_in = 0; stuck_in + 1 < kPasses.size(); ++stuck_in) {
        for (std::size_t at : fault_places(0, Block(0).size())) {
            Block block(0);
            block.fill(0x00);
            std::size_t failed = kPasses.size();
            unsigned char held = 0;
            for (std::size_t i = 0; i < kPasses.size(); ++i) {
                if (i == stuck_in) held = block[at];
                const bool ok = pattern_pass(block.span(), kPasses[i].previous, kPasses[i].next);
                if (i >= stuck_in) block[at] = held;
                if (!ok) {
                    failed = i;
                    break;
                }
            }
            EXPECT_EQ(failed, stuck_in + 1) << "byte " << at << " stuck in pass " << stuck_in;
        }
    }
}

TEST(SdramPasses, ByteZeroIsWrittenButNeverExamined) {
    Block block(0);
    for (const Pass& p : kPasses) {
        block.fill(p.previous);
        block[0] = static_cast<unsigned char>(p.previous ^ 0x0F);
        EXPECT_TRUE(pattern_pass(block.span(), p.previous, p.next));
        EXPECT_EQ(block[0], p.next);
    }
    block.fill(0x00);
    block[0] = 0x42;
    EXPECT_TRUE(zero_check(block.span()));
    block[1] = 0x01;
    EXPECT_FALSE(zero_check(block.span()));
}

TEST(SdramPasses, TheGuardBlockMustStayZeroUntilTheLastPass) {
    for (std::size_t offset = 0; offset < 8; ++offset) {
        Block b(offset);
        for (std::size_t at : fault_places(offset, b.size())) {
            Block a(0);
            a.fill(0x00);
            b.fill(0x00);
            b[at] = 0x10;
            EXPECT_FALSE(zero_check(b.span())) << "offset " << offset << ", byte " << at;
            EXPECT_FALSE(long_passes(a.span(), b.span())) << "offset " << offset << ", byte " << at;
            // Checked after the 0xFF pass and before the last one.
            EXPECT_TRUE(a.all(0xFF));
        }
    }
    Block a(3), b(5);
    a.fill(0x00);
    b.fill(0x00);
    EXPECT_TRUE(long_passes(a.span(), b.span()));
    EXPECT_TRUE(a.all(0x00));
    a[a.size() - 1] = 0x01;
    EXPECT_FALSE(long_passes(a.span(), b.span()));
}

TEST(FlashReadBack, OnlyTheBytesReadAreLookedAt) {
    const std::string text = ft::memory::kFlashText;
    // Exactly as long as the text, without its zero: whatever follows in
    // memory must not complete it.
    std::vector<char> cut(text.begin(), text.end());
    EXPECT_FALSE(ft::memory::flash_text_matches(cut));
    EXPECT_FALSE(ft::memory::flash_text_matches({}));
    std::vector<char> whole(text.begin(), text.end());
    whole.push_back('\0');
    EXPECT_TRUE(ft::memory::flash_text_matches(whole));
    // What follows the zero byte does not count.
    whole.insert(whole.end(), {'x', 'y'});
    EXPECT_TRUE(ft::memory::flash_text_matches(whole));
    std::vector<char> shorter(text.begin(), text.end() - 1);
    shorter.push_back('\0');
    EXPECT_FALSE(ft::memory::flash_text_matches(shorter));
    std::vector<char> longer(text.begin(), text.end());
    longer.insert(longer.end(), {'!', '\0'});
    EXPECT_FALSE(ft::memory::flash_text_matches(longer));
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

// Runs sdram 1 in a child whose address space may grow by @p headroom bytes
// only; returns what it printed.
std::string sdram_with_headroom(std::size_t headroom) {
    int out[2];
    if (pipe(out) != 0) return "pipe failed";
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        dup2(out[1], STDOUT_FILENO);
        close(out[0]);
        close(out[1]);
        std::setvbuf(stdout, nullptr, _IONBF, 0);
        long pages = 0;
        if (FILE* statm = std::fopen("/proc/self/statm", "r")) {
            if (std::fscanf(statm, "%ld", &pages) != 1) pages = 0;
            std::fclose(statm);
        }
        const rlim_t limit = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + headroom;
        const rlimit rl{limit, limit};
        if (pages == 0 || setrlimit(RLIMIT_AS, &rl) != 0) _exit(3);
        _exit(sdram("1") == -1 ? 0 : 1);
    }
    close(out[1]);
    std::string text;
    char buf[512];
    for (ssize_t n; (n = read(out[0], buf, sizeof buf)) > 0;) text.append(buf, static_cast<std::size_t>(n));
    close(out[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) text += "[the child did not return -1]";
    return text;
}

TEST(Sdram, EachBlockThatCannotBeHadIsNamed) {
    if (kSanitized) GTEST_SKIP() << "the sanitizers' runtime needs more address space than any limit leaves";
    constexpr const char* kProgress = "Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...\n";
    EXPECT_EQ(sdram_with_headroom(16u << 20),
              std::string(kProgress) + "FAIL to allocate 67108864 Bytes of memory block\n");
    EXPECT_EQ(sdram_with_headroom((64u << 20) + (2u << 20)),
              std::string(kProgress) + "FAIL to allocate  4194304 Bytes of memory block\n");
}

}  // namespace
