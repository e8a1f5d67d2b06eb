// The panel's framebuffer node is a plain file in the simulated phone; the
// kernel calls a framebuffer driver would answer are served here from the
// geometry the control tool fixed at power-up.
#include <cerrno>
#include <cstdio>
#include <linux/fb.h>
#include <string>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"

namespace {

constexpr const char* kNode = "/dev/graphics/fb0";

struct Geometry {
    unsigned width, height, virtual_width, virtual_height;
};

// Written by ftsim at power-up beside the node's backing file: "WxH VWxVH".
bool read_geometry(Geometry& g) {
    std::string text;
    if (!ftsim::read_text("dev/fb0.geometry", text)) return false;
    return std::sscanf(text.c_str(), "%ux%u %ux%u", &g.width, &g.height, &g.virtual_width, &g.virtual_height) == 4;
}

int fail(int error) {
    errno = error;
    return -1;
}

bool framebuffer_ioctl(int fd, unsigned long request, void* arg, int& result) {
    if (ftsim::shim::fd_path(fd) != kNode) return false;
    Geometry g{};
    if (!read_geometry(g)) {
        result = fail(ENODEV);
        return true;
    }
    auto* info = static_cast<fb_var_screeninfo*>(arg);
    if (info == nullptr) {
        result = fail(EFAULT);
        return true;
    }
    if (request == FBIOGET_VSCREENINFO) {
        *info = fb_var_screeninfo{};
        info->xres = g.width;
        info->yres = g.height;
        info->xres_virtual = g.virtual_width;
        info->yres_virtual = g.virtual_height;
        info->bits_per_pixel = 32;
        result = 0;
        return true;
    }
    // A pan must keep the shown window inside the virtual screen.
    if (static_cast<unsigned long long>(info->xoffset) + info->xres > g.virtual_width ||
        static_cast<unsigned long long>(info->yoffset) + info->yres > g.virtual_height) {
        result = fail(EINVAL);
        return true;
    }
    const std::string pan = std::to_string(info->xoffset) + "," + std::to_string(info->yoffset) + " " +
                            std::to_string(info->xres) + "x" + std::to_string(info->yres);
    result = ftsim::set_observed("lcd.pan", pan) ? 0 : fail(EIO);
    return true;
}

const ftsim::shim::IoctlRegistrar kScreenInfo{FBIOGET_VSCREENINFO, framebuffer_ioctl};
const ftsim::shim::IoctlRegistrar kPan{FBIOPAN_DISPLAY, framebuffer_ioctl};

}  // namespace
