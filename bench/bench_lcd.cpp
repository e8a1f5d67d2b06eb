// Time of the LCD patterns on an 800 x 480 panel, against a memset of the
// same framebuffer in the same run: the ratio says what the drawing layer's
// locking and clipping cost over raw memory bandwidth.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <linux/fb.h>
#include <string>
#include <unistd.h>

#include "common/unique_handle.h"
#include "display/drvFB.h"
#include "shell/handlers.h"

namespace {

constexpr unsigned kWidth = 800, kHeight = 480;
constexpr std::size_t kBytes = std::size_t{kWidth} * kHeight * 4;

int panel_ioctl(int, unsigned long request, void* arg) {
    auto* info = static_cast<fb_var_screeninfo*>(arg);
    if (request == FBIOGET_VSCREENINFO) {
        *info = fb_var_screeninfo{};
        info->xres = info->xres_virtual = kWidth;
        info->yres = info->yres_virtual = kHeight;
        info->bits_per_pixel = 32;
    }
    return 0;
}

std::string g_node;
drvfb_testing::Device g_device{};

bool make_panel() {
    char dir[] = "/dev/shm/bench_lcd.XXXXXX";
    char fallback[] = "/tmp/bench_lcd.XXXXXX";
    const char* made = mkdtemp(dir);
    if (made == nullptr) made = mkdtemp(fallback);
    if (made == nullptr) return false;
    const std::string base = made;
    g_node = base + "/fb0";
    ft::UniqueFd fd(open(g_node.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (!fd.valid() || ftruncate(fd.get(), static_cast<off_t>(kBytes)) != 0) return false;
    // No device-tree files: the visible size falls back to the virtual one.
    g_device = {g_node.c_str(), "/nonexistent/hactive", "/nonexistent/vactive", panel_ioctl};
    drvfb_testing::use_device(&g_device);
    return true;
}

void BM_memset(benchmark::State& state) {
    ft::UniqueFd fd(open(g_node.c_str(), O_RDWR | O_CLOEXEC));
    ft::UniqueMapping map(mmap(nullptr, kBytes, PROT_READ | PROT_WRITE, MAP_SHARED, fd.get(), 0), kBytes);
    for (auto _ : state) {
        std::memset(map.get(), 0xFF, kBytes);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_memset);

void BM_lcd_fill(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(lcd_fill("1"));
}
BENCHMARK(BM_lcd_fill);

// The fill alone, on a framebuffer that stays open: what lcd fill costs
// beyond mapping the device afresh for every pattern.
void BM_fillrect_open(benchmark::State& state) {
    open_framebuffer();
    for (auto _ : state) benchmark::DoNotOptimize(fillrect(0, 0, kWidth - 1, kHeight - 1, 1));
    close_framebuffer();
}
BENCHMARK(BM_fillrect_open);

void BM_lcd_digit(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(lcd_digit("W", "8"));
}
BENCHMARK(BM_lcd_digit);

}  // namespace

int main(int argc, char** argv) {
    if (!make_panel()) {
        std::perror("bench_lcd: cannot make a framebuffer file");
        return 1;
    }
    // The patterns need the palette and geometry that start-up loads; the
    // backlight part of start-up is not ours to time and may fail here.
    init_framebuffer();
    open_framebuffer();
    constexpr std::uint32_t kColours[] = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0x000000, 0xFFFFFF};
    for (unsigned i = 0; i < 6; ++i) setcolor(i, kColours[i]);
    close_framebuffer();

    // The handlers print a verdict per run; keep those off the report.
    std::fflush(stdout);
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (null >= 0) {
        dup2(null, STDOUT_FILENO);
        close(null);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::ConsoleReporter reporter;
    reporter.SetOutputStream(&std::cerr);
    reporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    unlink(g_node.c_str());
    rmdir(g_node.substr(0, g_node.rfind('/')).c_str());
    return 0;
}
