// The drawing layer on a framebuffer file of its own, with a fake kernel that
// answers the screen-information and pan calls; and the generated digit images.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <endian.h>
#include <fcntl.h>
#include <filesystem>
#include <linux/fb.h>
#include <set>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "common/unique_handle.h"
#include "display/digit_images.h"
#include "display/drvFB.h"

namespace {

using Points = std::set<std::pair<int, int>>;
constexpr int kW = 16, kH = 12;
constexpr std::uint32_t kRed = 0xFFFF0000;

struct FakeKernel {
    fb_var_screeninfo screen{}, last_pan{};
    int get_errno = 0, pan_errno = 0;  // non-zero: that call fails with it
} g_kernel;

int fake_ioctl(int, unsigned long request, void* arg) {
    auto* info = static_cast<fb_var_screeninfo*>(arg);
    const bool get = request == FBIOGET_VSCREENINFO;
    if (get && !g_kernel.get_errno) *info = g_kernel.screen;
    if (!get) g_kernel.last_pan = *info;
    errno = get ? g_kernel.get_errno : g_kernel.pan_errno;
    return errno ? -1 : 0;
}

// The lowest free descriptor: it moves up when the layer keeps one open.
int next_fd() { return ft::UniqueFd(open("/dev/null", O_RDONLY)).get(); }

void write_cell(const std::string& path, std::uint32_t value) {
    ft::UniqueFd fd(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
    const std::uint32_t cell = htobe32(value);
    ASSERT_EQ(write(fd.get(), &cell, 4), 4);
}

class Framebuffer : public ::testing::Test {
protected:
    void SetUp() override {
        char tmpl[] = "/tmp/drvfb_test.XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir_ = tmpl;
        fb_ = dir_ + "/fb0", hactive_ = dir_ + "/hactive", vactive_ = dir_ + "/vactive";
        g_kernel = FakeKernel{};
        g_kernel.screen.xres_virtual = kW, g_kernel.screen.yres_virtual = kH, g_kernel.screen.bits_per_pixel = 32;
        ft::UniqueFd fd(open(fb_.c_str(), O_RDWR | O_CREAT, 0600));
        ASSERT_EQ(ftruncate(fd.get(), kW * kH * 4), 0);
        write_cell(hactive_, 10);  // the panel shows 10x8 of the framebuffer
        write_cell(vactive_, 8);
        device_ = {fb_.c_str(), hactive_.c_str(), vactive_.c_str(), fake_ioctl};
        drvfb_testing::forget_state();
        drvfb_testing::use_device(&device_);
    }
    void TearDown() override {
        drvfb_testing::forget_state();
        drvfb_testing::use_device(nullptr);
        std::filesystem::remove_all(dir_);
    }

    void open_cleared() {
        ASSERT_EQ(init_framebuffer(), 0);
        ASSERT_EQ(open_framebuffer(), 0);
        ASSERT_EQ(setcolor(1, 0xFF0000), 0);
        clear();
    }
    void clear() { ASSERT_EQ(fillrect(0, 0, kW - 1, kH - 1, 0), 0); }

    Points lit(std::uint32_t value = kRed) const {
        Points s;
        const std::uint32_t* m = drvfb_testing::mapping();
        for (int i = 0; m && i < kW * kH; ++i)
            if (m[i] == value) s.insert({i % kW, i / kW});
        return s;
    }
    Points drawn_by(int x0, int y0, int x1, int y1) {
        clear();
        EXPECT_EQ(line(x0, y0, x1, y1, 1), 0);
        return lit();
    }

    std::string dir_, fb_, hactive_, vactive_;
    drvfb_testing::Device device_{};
};

TEST_F(Framebuffer, ShapesAreExactAndClippedWithoutWrapping) {
    open_cleared();
    EXPECT_EQ(drawn_by(0, 0, 4, 2), (Points{{0, 0}, {1, 1}, {2, 1}, {3, 2}, {4, 2}}));
    EXPECT_EQ(drawn_by(0, 0, 2, 4), (Points{{0, 0}, {1, 1}, {1, 2}, {2, 3}, {2, 4}}));
    // Every octant: one pixel per step of the major axis, the same either way round.
    for (int dx = -5; dx <= 5; ++dx)
        for (int dy = -5; dy <= 5; ++dy) {
            const Points forward = drawn_by(7, 6, 7 + dx, 6 + dy);
            EXPECT_EQ(forward.size(), std::max(std::abs(dx), std::abs(dy)) + 1u) << dx << "," << dy;
            EXPECT_EQ(drawn_by(7 + dx, 6 + dy, 7, 6), forward) << dx << "," << dy;
        }
    EXPECT_EQ(drawn_by(kW - 2, 3, kW + 3, 3), (Points{{kW - 2, 3}, {kW - 1, 3}})) << "spilled into the next row";
    Points diagonal;
    for (int i = 0; i < kH; ++i) diagonal.insert({i, i});
    EXPECT_EQ(drawn_by(-4, -4, kH + 4, kH + 4), diagonal);
    EXPECT_EQ(drawn_by(-1000000, 0, 1000000, 0).size(), static_cast<std::size_t>(kW));
    clear();
    EXPECT_EQ(pixel(kW, 0, 1), 0);
    EXPECT_EQ(fillrect(-10, -10, -1, kH + 10, 1), 0);
    EXPECT_EQ(lit(), Points{});
    ASSERT_EQ(fillrect(9, 5, 0, 2, 1), 0);
    EXPECT_EQ(lit().size(), 40u);
    EXPECT_TRUE(lit().count({0, 2}) && lit().count({9, 5}));
    clear();
    ASSERT_EQ(rect(1, 1, 4, 3, 1), 0);
    EXPECT_EQ(lit(), (Points{{1, 1}, {2, 1}, {3, 1}, {4, 1}, {4, 2}, {4, 3}, {3, 3}, {2, 3}, {1, 3}, {1, 2}}));
    // Palette entries are opaque whatever the top byte; 255 is the last.
    ASSERT_EQ(setcolor(255, 0xAB123456), 0);
    ASSERT_EQ(pixel(0, 0, 255), 0);
    EXPECT_EQ(drvfb_testing::mapping()[0], 0xFF123456u);
    EXPECT_EQ(setcolor(256, 0), -1);
    EXPECT_EQ(line(0, 0, 5, 5, 256), -1);
    EXPECT_EQ(lit().size(), 10u);
}

// Drawing needs an open mapping; the palette outlives it.
TEST_F(Framebuffer, InitPansToTheVisibleSizeAndKeepsNoDescriptor) {
    const int fd = next_fd();
    ASSERT_EQ(init_framebuffer(), 0);
    EXPECT_EQ(next_fd(), fd);
    EXPECT_EQ(g_kernel.last_pan.xres * 100 + g_kernel.last_pan.yres, 1008u);
    EXPECT_EQ(setcolor(1, 0xFF0000), -1);
    ASSERT_EQ(open_framebuffer(), 0);
    ASSERT_EQ(setcolor(1, 0xFF0000), 0);
    EXPECT_EQ(open_framebuffer(), -1);
    // Rows lie a virtual width apart; init while open keeps the mapping.
    ASSERT_EQ(init_framebuffer(), 0);
    ASSERT_EQ(pixel(1, 1, 1), 0);
    EXPECT_EQ(drvfb_testing::mapping()[kW + 1], kRed);
    EXPECT_EQ(close_framebuffer(), 0);
    EXPECT_EQ(next_fd(), fd);
    EXPECT_EQ(pixel(3, 3, 1), -1);
    ASSERT_EQ(open_framebuffer(), 0);
    EXPECT_EQ(pixel(4, 4, 1), 0);
    EXPECT_EQ(lit().count({4, 4}), 1u);
    close_framebuffer();

    // Only a missing height fails the size query; both fall back to the framebuffer's.
    std::uint32_t w = 0, h = 0;
    unlink(hactive_.c_str());
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_framebuffer_resolution(&w, &h), 0);
    EXPECT_EQ(w * 100 + h, kW * 100 + 8u);
    unlink(vactive_.c_str());
    EXPECT_EQ(get_framebuffer_resolution(&w, &h), -1);
    EXPECT_EQ(h, static_cast<unsigned>(kH));
    g_kernel.screen.bits_per_pixel = 16;
    EXPECT_EQ(init_framebuffer(), 0) << "a wrong depth is only a warning";
    EXPECT_EQ(g_kernel.last_pan.xres, static_cast<unsigned>(kW));
    g_kernel.pan_errno = EINVAL;
    EXPECT_EQ(init_framebuffer(), -1);
    g_kernel.get_errno = EIO;
    EXPECT_EQ(init_framebuffer(), -1);
    unlink(fb_.c_str());
    EXPECT_EQ(init_framebuffer(), -1);
#define AT(fn) "libvelor \\(line [0-9]+ of " fn " in drvFB\\.cpp\\): "
    const std::string no_cell = AT("get_resolution") "Failed to open /tmp/drvfb_test\\.[A-Za-z0-9]+/[hv]active";
    const std::string bpp = AT("init_framebuffer") "unsupported bpp \\(16\\), should be \\(32\\)\n";
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(testing::internal::RE::FullMatch(
        log, no_cell + no_cell + no_cell + bpp + no_cell + no_cell + bpp + no_cell + no_cell +
                 AT("init_framebuffer") "ioctl FBIOPAN_DISPLAY failed, errno=22\n" AT("init_framebuffer")
                 "ioctl FBIOGET_VSCREENINFO failed, errno=5\n" AT("init_framebuffer") "open failed, errno=2\n"))
        << log;
}

// A filled rectangle is one locked call: drawn from several threads at once
// they never interleave, so the last one covers the whole screen.
TEST_F(Framebuffer, FilledRectanglesFromSeveralThreadsDoNotInterleave) {
    open_cleared();
    std::vector<std::thread> threads;
    for (unsigned c = 3; c < 7; ++c) ASSERT_EQ(setcolor(c, 0x010101 * c), 0);
    for (unsigned c = 3; c < 7; ++c)
        threads.emplace_back([c] {
            for (int i = 0; i < 200; ++i) fillrect(0, 0, kW - 1, kH - 1, c);
        });
    for (std::thread& t : threads) t.join();
    EXPECT_EQ(lit(drvfb_testing::mapping()[0]).size(), static_cast<std::size_t>(kW * kH));
}

TEST(DigitImages, GreyGlyphsOnWhiteThatDifferFromEachOther) {
    const std::array<const std::uint32_t*, 10> images{image_arr_0, image_arr_1, image_arr_2, image_arr_3, image_arr_4,
                                                      image_arr_5, image_arr_6, image_arr_7, image_arr_8, image_arr_9};
    for (int d = 0; d <= 9; ++d) {
        int odd = 0, black = 0;
        for (int i = 0; i < 100 * 100; ++i) {
            const std::uint32_t v = images[d][i], r = i / 100, c = i % 100;
            const bool in_box = c >= 22 && c <= 65 && r >= 19 && r <= 72;
            odd += v != (v & 0xFF) * 0x010101 || (!in_box && v != 0xFFFFFF);
            black += v == 0;
        }
        EXPECT_EQ(odd, 0) << d << ": only greys, and white outside the glyph box";
        EXPECT_GT(black, 300) << d << ": a solid stroke, not a hairline";
        for (int e = 0; e < d; ++e) {
            int differing = 0;
            for (int i = 0; i < 100 * 100; ++i) differing += images[d][i] != images[e][i];
            EXPECT_GT(differing, 100) << d << " and " << e;
        }
    }
}

}  // namespace
