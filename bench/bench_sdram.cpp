// The long SDRAM test against the least memory traffic its passes need: on
// blocks fresh from the same zeroing allocator, memset plus a full read of
// the 64 MiB block four times, plus one read of the 4 MiB block. Both are
// timed in turns in the same run; the medians and their ratio are printed.
//   bench_sdram [ROUNDS]
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

#include "peripherals/memory.h"
#include "peripherals/memory_checks.h"

namespace {

using Clock = std::chrono::steady_clock;

using ft::memory::opaque;

std::uint64_t read_all(const unsigned char* p, std::size_t n) {
    using Word = std::uint64_t __attribute__((may_alias));
    const Word* w = reinterpret_cast<const Word*>(opaque(p));
    std::uint64_t acc = 0;
    for (std::size_t i = 0; i < n / sizeof(Word); ++i) acc |= w[i];
    return acc;
}

double bound_seconds() {
    const auto start = Clock::now();
    auto* a = static_cast<unsigned char*>(std::calloc(ft::memory::kBlockABytes, 1));
    auto* b = static_cast<unsigned char*>(std::calloc(ft::memory::kBlockBBytes, 1));
    if (a == nullptr || b == nullptr) std::abort();
    std::uint64_t seen = 0;
    for (unsigned char pattern : {0x55, 0xAA, 0xFF, 0x00}) {
        std::memset(opaque(a), pattern, ft::memory::kBlockABytes);
        seen |= read_all(a, ft::memory::kBlockABytes);
    }
    seen |= read_all(b, ft::memory::kBlockBBytes);
    std::free(b);
    std::free(a);
    const auto end = Clock::now();
    asm volatile("" : : "r"(seen));
    return std::chrono::duration<double>(end - start).count();
}

// sdram prints its lines; they go to /dev/null here.
double sdram_seconds() {
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    close(null);
    const auto start = Clock::now();
    const int result = sdram("1");
    std::fflush(stdout);
    const auto end = Clock::now();
    dup2(saved, STDOUT_FILENO);
    close(saved);
    if (result != 0) {
        std::fprintf(stderr, "bench_sdram: sdram 1 failed\n");
        std::exit(1);
    }
    return std::chrono::duration<double>(end - start).count();
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 9;
    std::vector<double> test, bound;
    bound_seconds();  // warm the allocator and the page tables once
    for (int i = 0; i < rounds; ++i) {
        test.push_back(sdram_seconds());
        bound.push_back(bound_seconds());
    }
    const double t = median(test), b = median(bound);
    std::printf("sdram 1:                      %8.1f ms (median of %d)\n", t * 1e3, rounds);
    std::printf("bound (4x memset+read, read): %8.1f ms\n", b * 1e3);
    std::printf("ratio:                        %8.2f\n", t / b);
    return 0;
}
