#include "display/drvFB.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <endian.h>
#include <fcntl.h>
#include <linux/fb.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "common/unique_handle.h"

namespace {

constexpr const char* kSourceFile = "drvFB.cpp";

// Every message of this layer carries the reporting statement's line, the
// function and this file, so a field log points at the exact step that failed.
#define FB_LOG(fmt, ...) \
    std::printf("libvelor (line %d of %s in %s): " fmt, __LINE__, __func__, kSourceFile __VA_OPT__(, ) __VA_ARGS__)

int kernel_ioctl(int fd, unsigned long request, void* arg) { return ::ioctl(fd, request, arg); }

constexpr drvfb_testing::Device kPhoneDevice{
    "/dev/graphics/fb0",
    "/proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/hactive",
    "/proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactive",
    kernel_ioctl,
};
std::atomic<const drvfb_testing::Device*> g_device{&kPhoneDevice};

// The one framebuffer state of the process; everything here is guarded by
// g_lock. Width and height are atomics only because the size query reads them
// without the lock; init_framebuffer is their only writer.
pthread_mutex_t g_lock = PTHREAD_MUTEX_INITIALIZER;
ft::UniqueFd g_fd;
int g_state = 0;  // 0 closed, 1 open and mapped, -1 open attempted or failed
std::atomic<std::uint32_t> g_width{0};
std::atomic<std::uint32_t> g_height{0};
std::uint32_t g_map_size = 0;
ft::UniqueMapping g_map;
std::array<std::uint32_t, 256> g_palette{};

// A failed lock is reported and the operation goes on regardless: a drawing
// glitch on a test pattern is better than a shell that stops answering.
#define FB_LOCK()                                                                  \
    do {                                                                           \
        const int lock_rc_ = pthread_mutex_lock(&g_lock);                          \
        if (lock_rc_ != 0) FB_LOG("Call to pthread_mutex_lock failed, rc=%d\n", lock_rc_); \
    } while (0)
#define FB_UNLOCK()                                                                    \
    do {                                                                               \
        const int unlock_rc_ = pthread_mutex_unlock(&g_lock);                          \
        if (unlock_rc_ != 0) FB_LOG("Call to pthread_mutex_unlock failed, rc=%d\n", unlock_rc_); \
    } while (0)

const drvfb_testing::Device& device() { return *g_device.load(std::memory_order_acquire); }

std::uint32_t* pixels() { return static_cast<std::uint32_t*>(g_map.get()); }

// Off-screen points are skipped one by one, so a line may leave the screen
// and come back.
inline void plot(long long x, long long y, std::uint32_t value, std::uint32_t width, std::uint32_t height) {
    if (x < 0 || y < 0 || x >= width || y >= height) return;
    pixels()[static_cast<std::size_t>(x) + static_cast<std::size_t>(width) * static_cast<std::size_t>(y)] = value;
}

}  // namespace

int init_framebuffer() {
    FB_LOCK();
    int result = -1;
    const drvfb_testing::Device& dev = device();
    if (g_state != 1) g_fd.reset(open(dev.framebuffer, O_RDWR | O_CLOEXEC));
    if (!g_fd.valid()) {
        FB_LOG("open failed, errno=%d\n", errno);
    } else {
        fb_var_screeninfo info{};
        if (dev.ioctl(g_fd.get(), FBIOGET_VSCREENINFO, &info) < 0) {
            FB_LOG("ioctl FBIOGET_VSCREENINFO failed, errno=%d\n", errno);
        } else {
            if (info.bits_per_pixel != 32) FB_LOG("unsupported bpp (%u), should be (%u)\n", info.bits_per_pixel, 32u);
            g_width.store(info.xres_virtual, std::memory_order_relaxed);
            g_height.store(info.yres_virtual, std::memory_order_relaxed);
            if (get_resolution(dev.hactive, &info.xres) != 0) info.xres = info.xres_virtual;
            if (get_resolution(dev.vactive, &info.yres) != 0) info.yres = info.yres_virtual;
            g_map_size = info.xres_virtual * info.yres_virtual * 4;
            info.xoffset = 0;
            info.yoffset = 0;
            // The only pan of the display: the panel shows the top-left corner
            // of the virtual screen from here on.
            if (dev.ioctl(g_fd.get(), FBIOPAN_DISPLAY, &info) == -1)
                FB_LOG("ioctl FBIOPAN_DISPLAY failed, errno=%d\n", errno);
            else
                result = 0;
        }
        // Also when the descriptor belonged to an open mapping: the mapping
        // stays valid without it.
        g_fd.reset();
    }
    FB_UNLOCK();
    return result;
}

int get_resolution(const char* path, std::uint32_t* out) {
    ft::UniqueFd fd(open(path, O_RDONLY | O_CLOEXEC));
    if (!fd.valid()) {
        FB_LOG("Failed to open %s", path);
        return -1;
    }
    // A device-tree cell is one big-endian 32-bit word; a short read leaves
    // the rest of *out as it was.
    if (read(fd.get(), out, sizeof *out) < 0) {
        FB_LOG("Failed to read %s", path);
        return -1;
    }
    *out = be32toh(*out);
    return 0;
}

int open_framebuffer() {
    FB_LOCK();
    int result = -1;
    if (g_state == 0) {
        g_state = -1;
        g_fd.reset(open(device().framebuffer, O_RDWR | O_CLOEXEC));
        if (!g_fd.valid()) {
            FB_LOG("open failed, errno=%d\n", errno);
        } else {
            // Populated in one go: faulting a fresh mapping in page by page
            // cost several times the drawing of a full screen.
            void* map = mmap(nullptr, g_map_size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, g_fd.get(), 0);
            if (map == MAP_FAILED) {
                // The descriptor stays until close_framebuffer.
                FB_LOG("mmap failed, errno=%d\n", errno);
            } else {
                g_map = ft::UniqueMapping(map, g_map_size);
                g_state = 1;
                result = 0;
            }
        }
    }
    FB_UNLOCK();
    return result;
}

int close_framebuffer() {
    FB_LOCK();
    g_map.reset();
    g_fd.reset();
    g_state = 0;
    FB_UNLOCK();
    return 0;
}

int get_framebuffer_resolution(std::uint32_t* width_out, std::uint32_t* height_out) {
    if (width_out == nullptr || height_out == nullptr) return -1;
    const drvfb_testing::Device& dev = device();
    // Only a missing height makes the query fail; a missing width quietly
    // falls back, as the panel has always behaved.
    if (get_resolution(dev.hactive, width_out) != 0) *width_out = g_width.load(std::memory_order_relaxed);
    if (get_resolution(dev.vactive, height_out) == 0) return 0;
    *height_out = g_height.load(std::memory_order_relaxed);
    return -1;
}

namespace {

// Every drawing call refuses an index outside the palette before taking the
// lock, and draws only while the framebuffer is mapped.
template <typename Draw>
int draw_while_open(unsigned index, Draw draw) {
    if (index > 255) return -1;
    FB_LOCK();
    const bool mapped = g_state == 1;
    if (mapped) draw();
    FB_UNLOCK();
    return mapped ? 0 : -1;
}

void render_line(int x0, int y0, int x1, int y1, unsigned colour) {
    const std::uint32_t value = g_palette[colour & 0xFFu];
    const std::uint32_t width = g_width.load(std::memory_order_relaxed);
    const std::uint32_t height = g_height.load(std::memory_order_relaxed);
    // 64-bit arithmetic: the difference of two 32-bit coordinates may not fit.
    const long long dx = static_cast<long long>(x1) - x0;
    const long long dy = static_cast<long long>(y1) - y0;
    const long long adx = dx < 0 ? -dx : dx;
    const long long ady = dy < 0 ? -dy : dy;
    const long long sx = dx < 0 ? -1 : 1;
    const long long sy = dy < 0 ? -1 : 1;
    const bool x_major = adx >= ady;
    const long long major = x_major ? adx : ady;
    const long long minor = x_major ? ady : adx;
    long long x = x0;
    long long y = y0;
    if (dy == 0 && major > 0) {
        // Rows are what filled rectangles are made of: clip the run once and
        // fill it, rather than stepping and clipping pixel by pixel.
        if (y < 0 || y >= height) return;
        const long long left = std::max(0LL, std::min<long long>(x0, x1));
        const long long right = std::min<long long>(width - 1LL, std::max<long long>(x0, x1));
        if (left > right) return;
        std::uint32_t* row = pixels() + static_cast<std::size_t>(width) * static_cast<std::size_t>(y);
        std::fill(row + left, row + right + 1, value);
        return;
    }
    plot(x, y, value, width, height);
    if (major < 1) return;
    // The extra -1 for upward lines makes a line and its reverse cover the
    // same pixels.
    long long err = 2 * minor - major - (dy < 0 ? 1 : 0);
    for (long long i = 0; i < major; ++i) {
        const bool step_minor = err >= 0;
        if (x_major || step_minor) x += sx;
        if (!x_major || step_minor) y += sy;
        err += 2 * minor;
        if (step_minor) err -= 2 * major;
        plot(x, y, value, width, height);
    }
}

}  // namespace

int setcolor(unsigned index, std::uint32_t rgb) {
    return draw_while_open(index, [&] { g_palette[index] = 0xFF000000u | (rgb & 0xFFFFFFu); });
}

int pixel(int x, int y, unsigned colour) {
    return draw_while_open(colour, [&] {
        plot(x, y, g_palette[colour], g_width.load(std::memory_order_relaxed),
             g_height.load(std::memory_order_relaxed));
    });
}

int line(int x0, int y0, int x1, int y1, unsigned colour) {
    return draw_while_open(colour, [&] { render_line(x0, y0, x1, y1, colour); });
}

int rect(int x0, int y0, int x1, int y1, unsigned colour) {
    return draw_while_open(colour, [&] {
        render_line(x0, y0, x1, y0, colour);
        render_line(x1, y0, x1, y1, colour);
        render_line(x1, y1, x0, y1, colour);
        render_line(x0, y1, x0, y0, colour);
    });
}

int fillrect(int x0, int y0, int x1, int y1, unsigned colour) {
    return draw_while_open(colour, [&] {
        const int top = y0 < y1 ? y0 : y1;
        const int bottom = y0 < y1 ? y1 : y0;
        for (long long y = top; y <= bottom; ++y) render_line(x0, static_cast<int>(y), x1, static_cast<int>(y), colour);
    });
}

namespace drvfb_testing {

void use_device(const Device* dev) { g_device.store(dev ? dev : &kPhoneDevice, std::memory_order_release); }

void forget_state() {
    FB_LOCK();
    g_map.reset();
    g_fd.reset();
    g_state = 0;
    g_width.store(0, std::memory_order_relaxed);
    g_height.store(0, std::memory_order_relaxed);
    g_map_size = 0;
    g_palette.fill(0);
    FB_UNLOCK();
}

const std::uint32_t* mapping() {
    FB_LOCK();
    const std::uint32_t* p = g_state == 1 ? pixels() : nullptr;
    FB_UNLOCK();
    return p;
}

}  // namespace drvfb_testing
