#pragma once
// The panel's geometry as the last power-up fixed it, kept beside the
// framebuffer's backing file as "WxH VWxVH" (visible, then virtual): the
// control tool writes and shows it, the kernel shim answers the
// framebuffer's calls from it. Conditions set since the power-up only apply
// at the next one.
#include <cstdio>
#include <string>

#include "sim/core/state.h"

namespace ftsim::display {

inline constexpr const char* kGeometryFile = "dev/fb0.geometry";

struct Size {
    unsigned w = 0, h = 0;
};

struct Panel {
    Size visible, virt;
};

inline std::string text_of(Size s) { return std::to_string(s.w) + "x" + std::to_string(s.h); }

inline bool read_panel(Panel& panel) {
    std::string text;
    if (!read_text(kGeometryFile, text)) return false;
    return std::sscanf(text.c_str(), "%ux%u %ux%u", &panel.visible.w, &panel.visible.h, &panel.virt.w,
                       &panel.virt.h) == 4;
}

}  // namespace ftsim::display
