// The panel's framebuffer node is a plain file in the simulated phone; the
// kernel calls a framebuffer driver would answer are served here from the
// geometry the control tool fixed at power-up.
#include <cerrno>
#include <linux/fb.h>
#include <string>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"
#include "sim/display/geometry.h"

namespace {

constexpr const char* kNode = "/dev/graphics/fb0";

int fail(int error) {
    errno = error;
    return -1;
}

bool framebuffer_ioctl(int fd, unsigned long request, void* arg, int& result) {
    if (ftsim::shim::fd_path(fd) != kNode) return false;
    ftsim::display::Panel g;
    if (!ftsim::display::read_panel(g)) {
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
        info->xres = g.visible.w;
        info->yres = g.visible.h;
        info->xres_virtual = g.virt.w;
        info->yres_virtual = g.virt.h;
        info->bits_per_pixel = 32;
        result = 0;
        return true;
    }
    // A pan must keep the shown window inside the virtual screen.
    if (static_cast<unsigned long long>(info->xoffset) + info->xres > g.virt.w ||
        static_cast<unsigned long long>(info->yoffset) + info->yres > g.virt.h) {
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
