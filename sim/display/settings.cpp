// Conditions and observed state of the panel and its backlight.
#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kDisplay{
    {"lcd.size", ftsim::Kind::Condition, "800x480", "<WxH>", "visible panel size (device-tree active size)"},
    {"lcd.virtual", ftsim::Kind::Condition, "", "<WxH>", "framebuffer size; empty: same as lcd.size"},
    {"lcd.device", ftsim::Kind::Condition, "present", "present|absent", "the framebuffer device node"},
    {"lcd.devicetree", ftsim::Kind::Condition, "present", "present|absent|no-vactive",
     "the panel's device-tree timing files"},
    {"lcd.pan", ftsim::Kind::Observed, "", "<text>", "last pan of the display: XOFF,YOFF WxH"},
    {"backlight.max", ftsim::Kind::Condition, "255", "<number>", "highest raw backlight level"},
    {"backlight.power", ftsim::Kind::Observed, "off", "on|off", "backlight switched on or off"},
    {"backlight.level", ftsim::Kind::Observed, "0", "<number>", "raw backlight level last set"},
};
}  // namespace
