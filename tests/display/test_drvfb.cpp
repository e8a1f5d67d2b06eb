// The drawing layer on a framebuffer file of its own, with a fake kernel that
// answers the screen-information and pan calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <endian.h>
#include <fcntl.h>
#include <linux/fb.h>
#include <set>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

#include "common/unique_handle.h"
#include "display/drvFB.h"

namespace {

using Point = std::pair<int, int>;

struct FakeKernel {
    fb_var_screeninfo screen{};
    int fail_get_errno = 0;  // non-zero: FBIOGET_VSCREENINFO fails with it
    int fail_pan_errno = 0;
    int pans = 0;
    fb_var_screeninfo last_pan{};
};
FakeKernel g_kernel;

int fake_ioctl(int, unsigned long request, void* arg) {
    auto* info = static_cast<fb_var_screeninfo*>(arg);
    if (request == FBIOGET_VSCREENINFO) {
        if (g_kernel.fail_get_errno) {
            errno = g_kernel.fail_get_errno;
            return -1;
        }
        *info = g_kernel.screen;
        return 0;
    }
    if (request == FBIOPAN_DISPLAY) {
        ++g_kernel.pans;
        g_kernel.last_pan = *info;
        if (g_kernel.fail_pan_errno) {
            errno = g_kernel.fail_pan_errno;
            return -1;
        }
        return 0;
    }
    errno = ENOTTY;
    return -1;
}

int open_descriptors() {
    int n = 0;
    if (DIR* d = opendir("/proc/self/fd")) {
        while (readdir(d)) ++n;
        closedir(d);
    }
    return n;
}

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;

class Framebuffer : public ::testing::Test {
protected:
    static constexpr unsigned kW = 16, kH = 12;

    void SetUp() override {
        char tmpl[] = "/tmp/drvfb_test.XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir_ = tmpl;
        node_ = dir_ + "/fb0";
        hactive_ = dir_ + "/hactive";
        vactive_ = dir_ + "/vactive";
        g_kernel = FakeKernel{};
        make_panel(kW, kH, kW, kH);
        device_ = {node_.c_str(), hactive_.c_str(), vactive_.c_str(), fake_ioctl};
        drvfb_testing::forget_state();
        drvfb_testing::use_device(&device_);
    }

    void TearDown() override {
        drvfb_testing::forget_state();
        drvfb_testing::use_device(nullptr);
        for (const std::string& f : {node_, hactive_, vactive_}) unlink(f.c_str());
        rmdir(dir_.c_str());
    }

    void make_panel(unsigned visible_w, unsigned visible_h, unsigned virtual_w, unsigned virtual_h) {
        g_kernel.screen = {};
        g_kernel.screen.xres = visible_w;
        g_kernel.screen.yres = visible_h;
        g_kernel.screen.xres_virtual = virtual_w;
        g_kernel.screen.yres_virtual = virtual_h;
        g_kernel.screen.bits_per_pixel = 32;
        ft::UniqueFd fd(open(node_.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600));
        ASSERT_TRUE(fd.valid());
        ASSERT_EQ(ftruncate(fd.get(), static_cast<off_t>(virtual_w) * virtual_h * 4), 0);
        write_cell(hactive_, visible_w);
        write_cell(vactive_, visible_h);
    }

    static void write_cell(const std::string& path, std::uint32_t value) {
        ft::UniqueFd fd(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600));
        const std::uint32_t cell = htobe32(value);
        ASSERT_EQ(write(fd.get(), &cell, 4), 4);
    }

    // init, open and a palette with red at 1 and green at 2.
    void open_with_palette() {
        ASSERT_EQ(init_framebuffer(), 0);
        ASSERT_EQ(open_framebuffer(), 0);
        ASSERT_EQ(setcolor(1, 0xFF0000), 0);
        ASSERT_EQ(setcolor(2, 0x00FF00), 0);
    }

    std::uint32_t at(int x, int y) const {
        const std::uint32_t* m = drvfb_testing::mapping();
        return m ? m[static_cast<std::size_t>(y) * width_ + static_cast<std::size_t>(x)] : 0xDEADBEEF;
    }

    std::set<Point> lit(std::uint32_t value = kRed) const {
        std::set<Point> s;
        const std::uint32_t* m = drvfb_testing::mapping();
        for (unsigned i = 0; m && i < width_ * height_; ++i)
            if (m[i] == value) s.insert({static_cast<int>(i % width_), static_cast<int>(i / width_)});
        return s;
    }

    // Pixels drawn since the last clear (which paints palette entry 0, opaque black).
    std::size_t nonzero() const {
        const std::uint32_t* m = drvfb_testing::mapping();
        return m ? static_cast<std::size_t>(std::count_if(m, m + width_ * height_, [](auto v) { return v != 0 && v != 0xFF000000; }))
                 : 0;
    }

    void clear() {
        ASSERT_EQ(setcolor(0, 0), 0);
        ASSERT_EQ(fillrect(0, 0, static_cast<int>(width_) - 1, static_cast<int>(height_) - 1, 0), 0);
    }

    std::string dir_, node_, hactive_, vactive_;
    drvfb_testing::Device device_{};
    unsigned width_ = kW, height_ = kH;
};

TEST_F(Framebuffer, LinesMatchTheKnownStepping) {
    open_with_palette();
    const struct {
        int x0, y0, x1, y1;
        std::set<Point> pixels;
    } cases[] = {
        {0, 0, 4, 2, {{0, 0}, {1, 1}, {2, 1}, {3, 2}, {4, 2}}},
        {4, 2, 0, 0, {{0, 0}, {1, 1}, {2, 1}, {3, 2}, {4, 2}}},
        {0, 0, 5, 2, {{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}, {5, 2}}},
        {0, 0, 2, 4, {{0, 0}, {1, 1}, {1, 2}, {2, 3}, {2, 4}}},
        {3, 3, 3, 3, {{3, 3}}},
        {2, 5, 9, 5, {{2, 5}, {3, 5}, {4, 5}, {5, 5}, {6, 5}, {7, 5}, {8, 5}, {9, 5}}},
    };
    for (const auto& c : cases) {
        clear();
        ASSERT_EQ(line(c.x0, c.y0, c.x1, c.y1, 1), 0);
        EXPECT_EQ(lit(), c.pixels) << c.x0 << "," << c.y0 << " to " << c.x1 << "," << c.y1;
    }
}

// Every line in every octant: both end points, major + 1 pixels, one step per
// pixel along the major axis, never more than half a pixel off the ideal
// line, and the same pixels when drawn the other way round.
TEST_F(Framebuffer, LinesInAllOctantsAreTightAndReversible) {
    open_with_palette();
    const int cx = 7, cy = 6;
    for (int dx = -5; dx <= 5; ++dx) {
        for (int dy = -5; dy <= 5; ++dy) {
            clear();
            ASSERT_EQ(line(cx, cy, cx + dx, cy + dy, 1), 0);
            const std::set<Point> forward = lit();
            const int major = std::max(std::abs(dx), std::abs(dy));
            SCOPED_TRACE(testing::Message() << "dx=" << dx << " dy=" << dy);
            EXPECT_EQ(forward.size(), static_cast<std::size_t>(major) + 1);
            EXPECT_TRUE(forward.count({cx, cy}) && forward.count({cx + dx, cy + dy}));
            const bool x_major = std::abs(dx) >= std::abs(dy);
            const int along_d = x_major ? dx : dy, across_d = x_major ? dy : dx;
            for (const auto& [x, y] : forward) {
                const int along = x_major ? x - cx : y - cy;
                const int across = x_major ? y - cy : x - cx;
                // |across - along * across_d / along_d| <= 1/2, in integers.
                if (along_d != 0) {
                    EXPECT_LE(2 * std::abs(across * along_d - along * across_d), std::abs(along_d)) << x << "," << y;
                }
            }
            clear();
            ASSERT_EQ(line(cx + dx, cy + dy, cx, cy, 1), 0);
            EXPECT_EQ(lit(), forward);
        }
    }
}

TEST_F(Framebuffer, OffScreenPointsAreSkippedWithoutWrapping) {
    open_with_palette();
    // Across the right edge: nothing may spill into the next row.
    EXPECT_EQ(line(kW - 2, 3, kW + 3, 3, 1), 0);
    EXPECT_EQ(lit(), (std::set<Point>{{kW - 2, 3}, {kW - 1, 3}}));
    clear();
    // Through the whole screen from outside: only the on-screen diagonal.
    EXPECT_EQ(line(-4, -4, kH + 4, kH + 4, 1), 0);
    std::set<Point> diagonal;
    for (int i = 0; i < static_cast<int>(kH); ++i) diagonal.insert({i, i});
    EXPECT_EQ(lit(), diagonal);
    clear();
    EXPECT_EQ(pixel(-1, 0, 1), 0);
    EXPECT_EQ(pixel(kW, 0, 1), 0);
    EXPECT_EQ(pixel(0, kH, 1), 0);
    EXPECT_EQ(fillrect(-10, -10, -1, kH + 10, 1), 0);
    EXPECT_EQ(rect(kW, kH, kW + 5, kH + 5, 1), 0);
    EXPECT_EQ(nonzero(), 0u);
    // A long line far beyond both edges still draws exactly its visible part.
    EXPECT_EQ(line(-1000000, 0, 1000000, 0, 2), 0);
    EXPECT_EQ(lit(kGreen).size(), static_cast<std::size_t>(kW));
}

TEST_F(Framebuffer, RectanglesCoverTheirCornersInEitherOrder) {
    open_with_palette();
    ASSERT_EQ(fillrect(0, 5, 9, 2, 1), 0);
    const std::set<Point> upside_down = lit();
    clear();
    ASSERT_EQ(fillrect(9, 2, 0, 5, 1), 0);
    EXPECT_EQ(lit(), upside_down);
    std::set<Point> expected;
    for (int y = 2; y <= 5; ++y)
        for (int x = 0; x <= 9; ++x) expected.insert({x, y});
    EXPECT_EQ(upside_down, expected);

    clear();
    ASSERT_EQ(rect(4, 4, 4, 4, 1), 0);
    EXPECT_EQ(lit(), (std::set<Point>{{4, 4}}));
    clear();
    ASSERT_EQ(rect(1, 1, 4, 3, 1), 0);
    EXPECT_EQ(lit(), (std::set<Point>{{1, 1}, {2, 1}, {3, 1}, {4, 1}, {4, 2}, {4, 3}, {3, 3}, {2, 3}, {1, 3}, {1, 2}}));
}

TEST_F(Framebuffer, PaletteEntriesAreOpaqueAndIgnoreTheTopByte) {
    open_with_palette();
    ASSERT_EQ(setcolor(7, 0xAB123456), 0);
    ASSERT_EQ(setcolor(255, 0x000001), 0);
    ASSERT_EQ(pixel(0, 0, 7), 0);
    ASSERT_EQ(pixel(1, 0, 255), 0);
    EXPECT_EQ(at(0, 0), 0xFF123456u);
    EXPECT_EQ(at(1, 0), 0xFF000001u);
    // Blue in the lowest byte of memory.
    const auto* bytes = reinterpret_cast<const unsigned char*>(drvfb_testing::mapping());
    EXPECT_EQ(bytes[0], 0x56);
    EXPECT_EQ(bytes[3], 0xFF);
}

TEST_F(Framebuffer, ColoursAbove255AreRefusedEverywhere) {
    open_with_palette();
    EXPECT_EQ(setcolor(256, 0xFFFFFF), -1);
    EXPECT_EQ(pixel(0, 0, 256), -1);
    EXPECT_EQ(line(0, 0, 5, 5, 256), -1);
    EXPECT_EQ(rect(0, 0, 5, 5, 1000), -1);
    EXPECT_EQ(fillrect(0, 0, 5, 5, 0xFFFFFFFF), -1);
    EXPECT_EQ(nonzero(), 0u);
}

TEST_F(Framebuffer, DrawingNeedsAnOpenFramebuffer) {
    EXPECT_EQ(setcolor(1, 0xFF0000), -1) << "closed before init";
    ASSERT_EQ(init_framebuffer(), 0);
    EXPECT_EQ(pixel(0, 0, 1), -1);
    EXPECT_EQ(line(0, 0, 1, 1, 1), -1);
    EXPECT_EQ(rect(0, 0, 1, 1, 1), -1);
    EXPECT_EQ(fillrect(0, 0, 1, 1, 1), -1);

    ASSERT_EQ(open_framebuffer(), 0);
    ASSERT_EQ(setcolor(1, 0xFF0000), 0);
    const std::uint32_t* first = drvfb_testing::mapping();
    EXPECT_EQ(open_framebuffer(), -1) << "second open";
    EXPECT_EQ(drvfb_testing::mapping(), first);
    EXPECT_EQ(pixel(2, 2, 1), 0);
    EXPECT_EQ(at(2, 2), kRed);

    EXPECT_EQ(close_framebuffer(), 0);
    EXPECT_EQ(pixel(3, 3, 1), -1);
    EXPECT_EQ(close_framebuffer(), 0) << "closing twice is harmless";
    // The palette outlives the close; the picture stays in the device.
    ASSERT_EQ(open_framebuffer(), 0);
    EXPECT_EQ(at(2, 2), kRed);
    EXPECT_EQ(at(3, 3), 0u);
    EXPECT_EQ(pixel(4, 4, 1), 0);
    EXPECT_EQ(at(4, 4), kRed);
}

TEST_F(Framebuffer, AFailedOpenRefusesDrawingUntilClosed) {
    // Without init the mapping size is 0, so the mapping fails.
    testing::internal::CaptureStdout();
    EXPECT_EQ(open_framebuffer(), -1);
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(testing::internal::RE::FullMatch(
        log, testing::internal::RE("libvelor \\(line [0-9]+ of open_framebuffer in drvFB\\.cpp\\): mmap failed, "
                                   "errno=22\n")))
        << log;
    EXPECT_EQ(open_framebuffer(), -1) << "the failed attempt stays until close";
    EXPECT_EQ(pixel(0, 0, 0), -1);
    EXPECT_EQ(setcolor(1, 1), -1);
    EXPECT_EQ(close_framebuffer(), 0);
    ASSERT_EQ(init_framebuffer(), 0);
    EXPECT_EQ(open_framebuffer(), 0);

    // A missing node.
    close_framebuffer();
    unlink(node_.c_str());
    testing::internal::CaptureStdout();
    EXPECT_EQ(open_framebuffer(), -1);
    EXPECT_EQ(init_framebuffer(), -1);
    const std::string missing = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(testing::internal::RE::FullMatch(
        missing, testing::internal::RE("libvelor \\(line [0-9]+ of open_framebuffer in drvFB\\.cpp\\): open failed, "
                                       "errno=2\nlibvelor \\(line [0-9]+ of init_framebuffer in drvFB\\.cpp\\): "
                                       "open failed, errno=2\n")))
        << missing;
}

TEST_F(Framebuffer, InitPansToTheVisibleSizeAndKeepsNoDescriptor) {
    make_panel(10, 8, kW, kH);
    const int before = open_descriptors();
    ASSERT_EQ(init_framebuffer(), 0);
    EXPECT_EQ(open_descriptors(), before);
    ASSERT_EQ(g_kernel.pans, 1);
    EXPECT_EQ(g_kernel.last_pan.xres, 10u);
    EXPECT_EQ(g_kernel.last_pan.yres, 8u);
    EXPECT_EQ(g_kernel.last_pan.xoffset, 0u);
    EXPECT_EQ(g_kernel.last_pan.yoffset, 0u);
    // Drawing uses the virtual stride, not the visible width.
    ASSERT_EQ(open_framebuffer(), 0);
    ASSERT_EQ(setcolor(1, 0xFF0000), 0);
    ASSERT_EQ(pixel(0, 1, 1), 0);
    EXPECT_EQ(drvfb_testing::mapping()[kW], kRed);
    // Init while open closes the mapping's descriptor but not the mapping.
    ASSERT_EQ(init_framebuffer(), 0);
    EXPECT_EQ(open_descriptors(), before + 0) << "no descriptor left behind";
    EXPECT_EQ(pixel(1, 1, 1), 0);
    EXPECT_EQ(drvfb_testing::mapping()[kW + 1], kRed);
    close_framebuffer();
    EXPECT_EQ(open_descriptors(), before);

    // Without the device-tree files the pan shows the whole virtual screen.
    unlink(hactive_.c_str());
    unlink(vactive_.c_str());
    testing::internal::CaptureStdout();
    ASSERT_EQ(init_framebuffer(), 0);
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(g_kernel.last_pan.xres, kW);
    EXPECT_EQ(g_kernel.last_pan.yres, kH);
}

TEST_F(Framebuffer, InitReportsKernelFailures) {
    g_kernel.screen.bits_per_pixel = 16;
    testing::internal::CaptureStdout();
    EXPECT_EQ(init_framebuffer(), 0) << "a wrong depth is only a warning";
    g_kernel.fail_pan_errno = EINVAL;
    EXPECT_EQ(init_framebuffer(), -1);
    g_kernel.fail_get_errno = EIO;
    EXPECT_EQ(init_framebuffer(), -1);
    const std::string log = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(testing::internal::RE::FullMatch(
        log, testing::internal::RE(
                 "libvelor \\(line [0-9]+ of init_framebuffer in drvFB\\.cpp\\): unsupported bpp \\(16\\), should be "
                 "\\(32\\)\n"
                 "libvelor \\(line [0-9]+ of init_framebuffer in drvFB\\.cpp\\): unsupported bpp \\(16\\), should be "
                 "\\(32\\)\n"
                 "libvelor \\(line [0-9]+ of init_framebuffer in drvFB\\.cpp\\): ioctl FBIOPAN_DISPLAY failed, "
                 "errno=22\n"
                 "libvelor \\(line [0-9]+ of init_framebuffer in drvFB\\.cpp\\): ioctl FBIOGET_VSCREENINFO failed, "
                 "errno=5\n")))
        << log;
    // The geometry was set before the pan failed, so the layer still draws.
    g_kernel.fail_get_errno = 0;
    EXPECT_EQ(open_framebuffer(), 0);
}

TEST_F(Framebuffer, SizeQueryFallsBackAndOnlyAMissingHeightFails) {
    make_panel(10, 8, kW, kH);
    ASSERT_EQ(init_framebuffer(), 0);
    std::uint32_t w = 0, h = 0;
    EXPECT_EQ(get_framebuffer_resolution(&w, &h), 0);
    EXPECT_EQ(w, 10u);
    EXPECT_EQ(h, 8u);
    EXPECT_EQ(get_framebuffer_resolution(nullptr, &h), -1);
    EXPECT_EQ(get_framebuffer_resolution(&w, nullptr), -1);

    unlink(hactive_.c_str());
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_framebuffer_resolution(&w, &h), 0);
    EXPECT_EQ(w, kW);
    EXPECT_EQ(h, 8u);
    write_cell(hactive_, 10);
    unlink(vactive_.c_str());
    EXPECT_EQ(get_framebuffer_resolution(&w, &h), -1);
    EXPECT_EQ(w, 10u);
    EXPECT_EQ(h, kH);
    const std::string log = testing::internal::GetCapturedStdout();
    // No line feed after these two messages.
    EXPECT_TRUE(testing::internal::RE::FullMatch(
        log, testing::internal::RE("libvelor \\(line [0-9]+ of get_resolution in drvFB\\.cpp\\): Failed to open "
                                   "/tmp/drvfb_test\\.[A-Za-z0-9]+/hactive"
                                   "libvelor \\(line [0-9]+ of get_resolution in drvFB\\.cpp\\): Failed to open "
                                   "/tmp/drvfb_test\\.[A-Za-z0-9]+/vactive")))
        << log;

    // A cell is big-endian; a directory cannot be read.
    write_cell(vactive_, 0x01020304);
    EXPECT_EQ(get_resolution(vactive_.c_str(), &h), 0);
    EXPECT_EQ(h, 0x01020304u);
    testing::internal::CaptureStdout();
    EXPECT_EQ(get_resolution(dir_.c_str(), &h), -1);
    EXPECT_NE(testing::internal::GetCapturedStdout().find("): Failed to read /tmp/drvfb_test"), std::string::npos);
}

// A filled rectangle is one locked call: rectangles drawn at the same time
// from several threads never interleave, so the last one covers the screen.
TEST_F(Framebuffer, FilledRectanglesFromSeveralThreadsDoNotInterleave) {
    open_with_palette();
    for (unsigned c = 3; c < 7; ++c) ASSERT_EQ(setcolor(c, 0x010101 * c), 0);
    std::vector<std::thread> threads;
    for (unsigned c = 3; c < 7; ++c)
        threads.emplace_back([c] {
            for (int i = 0; i < 200; ++i) fillrect(0, 0, kW - 1, kH - 1, c);
        });
    for (std::thread& t : threads) t.join();
    const std::uint32_t first = at(0, 0);
    EXPECT_EQ(lit(first).size(), static_cast<std::size_t>(kW) * kH);
}

}  // namespace
