// The panel and its backlight: the framebuffer node and device-tree timing
// files made at power-up, snapshots of what the panel shows, and their lines
// in `ftsim show`.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <png.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "common/unique_handle.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"
#include "sim/display/geometry.h"

namespace ftsim {
namespace {

// The panel's timing node, below /proc/device-tree as the phone's kernel
// shows it (hw/proc/device-tree here).
constexpr const char* kTimingDir = "proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing";

using display::Panel;
using display::read_panel;
using display::Size;
using display::text_of;

bool parse_size(const std::string& text, Size& s) {
    return std::sscanf(text.c_str(), "%ux%u", &s.w, &s.h) == 2 && s.w > 0 && s.h > 0;
}

bool write_cell(const std::string& path, unsigned value, std::string& error) {
    const char cell[4] = {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
                          static_cast<char>(value >> 8), static_cast<char>(value)};
    if (write_atomic(path, std::string_view(cell, 4))) return true;
    error = explain("cannot write " + path);
    return false;
}

bool display_power_up(const Phone&, PowerUp& up, std::string& error) {
    Panel panel;
    if (!parse_size(get("lcd.size"), panel.visible)) {
        error = "lcd.size '" + get("lcd.size") + "' is not WxH";
        return false;
    }
    const std::string virt = get("lcd.virtual");
    if (virt.empty()) panel.virt = panel.visible;
    else if (!parse_size(virt, panel.virt)) {
        error = "lcd.virtual '" + virt + "' is not WxH";
        return false;
    }
    const unsigned long long bytes = 4ull * panel.virt.w * panel.virt.h;
    if (bytes > (1ull << 31)) {
        error = "a framebuffer of " + text_of(panel.virt) + " is too large for the simulated phone";
        return false;
    }
    // A power cycle: the panel comes up dark and unlit, the backlight off.
    const Folder dir = hw();
    dir.remove("dev/fb0");
    if (!dir.write_atomic(display::kGeometryFile, text_of(panel.visible) + " " + text_of(panel.virt) + "\n")) {
        error = explain("cannot write the framebuffer's geometry");
        return false;
    }
    if (get("lcd.device") == "present") {
        ft::UniqueFd fd = dir.open_at("dev/fb0", O_RDWR | O_CREAT | O_EXCL, Type::File);
        if (!fd.valid() || ftruncate(fd.get(), static_cast<off_t>(bytes)) != 0) {
            error = explain("cannot create the framebuffer");
            return false;
        }
        if (!up.bind_hw("dev/fb0", "/dev/graphics/fb0", Type::File, error)) return false;
    }
    const std::string dt = kTimingDir;
    const std::string dt_mode = get("lcd.devicetree");
    dir.remove(dt + "/hactive");
    dir.remove(dt + "/vactive");
    if (dt_mode != "absent") {
        if (!dir.make_dirs(dt)) {
            error = explain("cannot create " + dt);
            return false;
        }
        if (!write_cell(dt + "/hactive", panel.visible.w, error)) return false;
        if (dt_mode != "no-vactive" && !write_cell(dt + "/vactive", panel.visible.h, error)) return false;
    }
    return true;
}

// The panel as it shows: the visible window at the last pan's offset, each
// little-endian word 0xAARRGGBB decoded to RGB, rows a virtual width apart.
struct Snapshot {
    unsigned w = 0, h = 0;
    std::vector<unsigned char> rgb;  // 3 bytes per pixel
    unsigned at(unsigned x, unsigned y) const {
        const unsigned char* p = &rgb[(static_cast<std::size_t>(y) * w + x) * 3];
        return static_cast<unsigned>(p[0]) << 16 | static_cast<unsigned>(p[1]) << 8 | p[2];
    }
};

int take_snapshot(Snapshot& snap) {
    Panel panel;
    std::string fb;
    if (!read_panel(panel) || !read_text("dev/fb0", fb))
        return fail("no framebuffer to show: the phone was not powered up yet (ftsim shell), or lcd.device is absent", 1);
    if (fb.size() != 4ull * panel.virt.w * panel.virt.h)
        return fail("the framebuffer does not have the size of " + text_of(panel.virt), 1);
    unsigned xoff = 0, yoff = 0;
    std::sscanf(get("lcd.pan").c_str(), "%u,%u", &xoff, &yoff);
    snap.w = panel.visible.w;
    snap.h = panel.visible.h;
    snap.rgb.assign(static_cast<std::size_t>(snap.w) * snap.h * 3, 0);
    for (unsigned y = 0; y < snap.h; ++y) {
        for (unsigned x = 0; x < snap.w; ++x) {
            const unsigned long long vx = xoff + x, vy = yoff + y;
            if (vx >= panel.virt.w || vy >= panel.virt.h) continue;
            const unsigned char* word = reinterpret_cast<const unsigned char*>(fb.data()) + (vy * panel.virt.w + vx) * 4;
            unsigned char* out = &snap.rgb[(static_cast<std::size_t>(y) * snap.w + x) * 3];
            out[0] = word[2];
            out[1] = word[1];
            out[2] = word[0];
        }
    }
    return 0;
}

std::string colour_name(unsigned rgb) {
    switch (rgb) {
    case 0x000000: return "black";
    case 0xFFFFFF: return "white";
    case 0xFF0000: return "red";
    case 0x00FF00: return "green";
    case 0x0000FF: return "blue";
    default: {
        char hex[8];
        std::snprintf(hex, sizeof hex, "%06x", rgb);
        return hex;
    }
    }
}

bool parse_uint(const std::string& text, unsigned limit, unsigned& out) {
    char* end = nullptr;
    const unsigned long v = std::strtoul(text.c_str(), &end, 10);
    if (text.empty() || text[0] == '-' || *end != '\0' || v >= limit) return false;
    out = static_cast<unsigned>(v);
    return true;
}

// Runs of one colour along a row or a column: "FIRST-LAST colour".
void print_runs(const Snapshot& s, bool along_row, unsigned fixed) {
    const unsigned n = along_row ? s.w : s.h;
    unsigned start = 0;
    for (unsigned i = 1; i <= n; ++i) {
        auto colour = [&](unsigned k) { return along_row ? s.at(k, fixed) : s.at(fixed, k); };
        if (i < n && colour(i) == colour(start)) continue;
        if (i - 1 == start) std::printf("%u %s\n", start, colour_name(colour(start)).c_str());
        else std::printf("%u-%u %s\n", start, i - 1, colour_name(colour(start)).c_str());
        start = i;
    }
}

constexpr const char* kLcdUsage =
    "usage: ftsim lcd FILE.png | --pixel X,Y... | --row Y | --column X | --colours | --ascii X0 Y0 X1 Y1 STEP";

int verb_lcd(const Phone&, const Args& args) {
    if (args.empty()) return fail(kLcdUsage);
    Snapshot s;
    if (int rc = take_snapshot(s)) return rc;
    const std::string& what = args[0];
    if (what == "--pixel" && args.size() >= 2) {
        for (std::size_t i = 1; i < args.size(); ++i) {
            const auto comma = args[i].find(',');
            unsigned x = 0, y = 0;
            if (comma == std::string::npos || !parse_uint(args[i].substr(0, comma), s.w, x) ||
                !parse_uint(args[i].substr(comma + 1), s.h, y))
                return fail("'" + args[i] + "' is not a point X,Y of the " + text_of({s.w, s.h}) + " panel");
            std::printf("%u,%u %s\n", x, y, colour_name(s.at(x, y)).c_str());
        }
        return 0;
    }
    if ((what == "--row" || what == "--column") && args.size() == 2) {
        const bool row = what == "--row";
        unsigned k = 0;
        if (!parse_uint(args[1], row ? s.h : s.w, k)) return fail("'" + args[1] + "' is off the panel");
        print_runs(s, row, k);
        return 0;
    }
    if (what == "--colours" && args.size() == 1) {
        std::map<unsigned, unsigned long> counts;
        for (unsigned y = 0; y < s.h; ++y)
            for (unsigned x = 0; x < s.w; ++x) ++counts[s.at(x, y)];
        for (const auto& [rgb, n] : counts) std::printf("%s %lu\n", colour_name(rgb).c_str(), n);
        return 0;
    }
    if (what == "--ascii" && args.size() == 6) {
        unsigned x0, y0, x1, y1, step;
        if (!parse_uint(args[1], s.w, x0) || !parse_uint(args[2], s.h, y0) || !parse_uint(args[3], s.w, x1) ||
            !parse_uint(args[4], s.h, y1) || !parse_uint(args[5], 1000, step) || step == 0 || x1 < x0 || y1 < y0)
            return fail("--ascii needs a region X0 Y0 X1 Y1 on the panel and a STEP of 1 or more");
        // Dark samples as '#', light ones as '.': enough to read a pattern.
        for (unsigned y = y0; y <= y1; y += step) {
            std::string row;
            for (unsigned x = x0; x <= x1; x += step) {
                const unsigned c = s.at(x, y);
                const unsigned luma = ((c >> 16 & 0xFF) * 3 + (c >> 8 & 0xFF) * 6 + (c & 0xFF)) / 10;
                row += luma < 128 ? '#' : '.';
            }
            std::printf("%s\n", row.c_str());
        }
        return 0;
    }
    if (args.size() != 1 || what.empty() || what[0] == '-') return fail(kLcdUsage);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = s.w;
    image.height = s.h;
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, what.c_str(), 0, s.rgb.data(), static_cast<png_int_32>(s.w * 3), nullptr))
        return fail("cannot write " + what + ": " + image.message, 1);
    return 0;
}

void display_show(const Phone&, std::string& out) {
    Panel panel;
    out += "lcd: " + get("lcd.size") + " panel";
    if (read_panel(panel)) {
        out += " (framebuffer " + text_of(panel.virt) + ")";
        const std::string pan = get("lcd.pan");
        out += pan.empty() ? ", not panned yet" : ", showing " + pan;
    } else {
        out += ", not powered up yet";
    }
    out += "\nbacklight: " + get("backlight.power") + ", level " + get("backlight.level") + " of " +
           get("backlight.max") + "\n";
}

const ModuleRegistrar kDisplay{Module{
    "display",
    {
        {"lcd", "lcd FILE.png               the visible LCD area as a PNG image\n"
                "  ftsim lcd --pixel X,Y... | --row Y | --column X | --colours | --ascii X0 Y0 X1 Y1 STEP\n"
                "                                   the same area as text: colours of points, runs of colour\n"
                "                                   along a row or column, pixel counts, a coarse picture",
         verb_lcd},
    },
    display_power_up,
    display_show,
    nullptr,
}};

}  // namespace
}  // namespace ftsim
