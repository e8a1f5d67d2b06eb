#pragma once
// Drawing primitives on the panel's framebuffer: a 256-entry palette, pixels,
// lines, rectangle outlines and filled rectangles, written straight into the
// shared mapping of the device. One process-wide state behind one mutex.
//
// Expected order: init_framebuffer() once at start-up; then per drawing job
// open_framebuffer(), get_framebuffer_resolution(), drawing calls,
// close_framebuffer(). Colours are palette indices 0-255; the palette is kept
// across close_framebuffer().
#include <cstdint>

int init_framebuffer();
int get_resolution(const char* path, std::uint32_t* out);
int open_framebuffer();
int close_framebuffer();
int get_framebuffer_resolution(std::uint32_t* width_out, std::uint32_t* height_out);
int setcolor(unsigned index, std::uint32_t rgb);
int pixel(int x, int y, unsigned colour);
int line(int x0, int y0, int x1, int y1, unsigned colour);
int rect(int x0, int y0, int x1, int y1, unsigned colour);
int fillrect(int x0, int y0, int x1, int y1, unsigned colour);

// Seams for tests and benchmarks, which run without the phone's device node
// and kernel. The phone never calls these.
namespace drvfb_testing {
using IoctlFn = int (*)(int fd, unsigned long request, void* arg);
struct Device {
    const char* framebuffer;  // the device node (any mmap-able file)
    const char* hactive;      // device-tree cell with the active width
    const char* vactive;      // device-tree cell with the active height
    IoctlFn ioctl;            // answers FBIOGET_VSCREENINFO and FBIOPAN_DISPLAY
};
// Points the layer at another device; null restores the phone's.
void use_device(const Device* device);
// Closes the framebuffer and forgets geometry and palette, as at process start.
void forget_state();
// Start of the current mapping (null when closed), for checking what was drawn.
const std::uint32_t* mapping();
}  // namespace drvfb_testing
