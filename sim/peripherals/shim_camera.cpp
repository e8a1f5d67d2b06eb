// The USB camera's capability query. /dev/video0 is a plain file of the
// phone's, so the kernel cannot answer for it; the answer follows the camera
// condition at the time of the query.
#include <cerrno>
#include <cstring>
#include <linux/videodev2.h>
#include <string>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"

namespace {

constexpr const char* kVideoNode = "/dev/video0";

void copy_text(__u8* field, std::size_t size, const char* text) {
    std::memset(field, 0, size);
    std::strncpy(reinterpret_cast<char*>(field), text, size - 1);
}

bool query_capabilities(int fd, unsigned long, void* arg, int& result) {
    if (ftsim::shim::fd_path(fd) != kVideoNode) return false;
    const std::string camera = ftsim::get("camera");
    // A camera that went away leaves a node whose every query fails.
    if (camera == "stale" || camera == "absent") {
        errno = ENODEV;
        result = -1;
        return true;
    }
    if (arg == nullptr) {
        errno = EFAULT;
        result = -1;
        return true;
    }
    auto* caps = static_cast<v4l2_capability*>(arg);
    std::memset(caps, 0, sizeof *caps);
    copy_text(caps->driver, sizeof caps->driver, "uvcvideo");
    copy_text(caps->card, sizeof caps->card, "USB Camera");
    copy_text(caps->bus_info, sizeof caps->bus_info, "usb-xhci-hcd.0-1");
    caps->version = (5u << 16) | (10u << 8);
    // Without capture it is the kind of node that carries only metadata.
    caps->device_caps = (camera == "nocapture" ? V4L2_CAP_META_CAPTURE : V4L2_CAP_VIDEO_CAPTURE) | V4L2_CAP_STREAMING;
    caps->capabilities = caps->device_caps | V4L2_CAP_DEVICE_CAPS;
    result = 0;
    return true;
}

const ftsim::shim::IoctlRegistrar kQueryCap{VIDIOC_QUERYCAP, query_capabilities};

}  // namespace
