#include "sim/audio/codec.h"

#include <cstdio>
#include <utility>

namespace ftsim::audio {

namespace {

constexpr int kSwitch = 1;
constexpr int kDigital = 127;   // DAC volume steps
constexpr int kAnalogue = 118;  // output stage and bypass steps
constexpr int kCapture = 119;   // capture PGA steps

// In the order the codec lists them.
constexpr std::array<Control, 62> kControls{{
    {"PCM Playback Volume", 2, kDigital},
    {"Line DAC Playback Volume", 2, kAnalogue},
    {"Line Line2 Bypass Volume", 2, kAnalogue},
    {"Line PGA Bypass Volume", 2, kAnalogue},
    {"Mono DAC Playback Volume", 1, kAnalogue},
    {"Mono Line2 Bypass Volume", 1, kAnalogue},
    {"Mono PGA Bypass Volume", 1, kAnalogue},
    {"HP DAC Playback Volume", 2, kAnalogue},
    {"HP Line2 Bypass Volume", 2, kAnalogue},
    {"HP PGA Bypass Volume", 2, kAnalogue},
    {"Left Line Mixer Line2R Bypass Volume", 1, kAnalogue},
    {"Left Line Mixer PGAR Bypass Volume", 1, kAnalogue},
    {"Left Line Mixer DACR1 Playback Volume", 1, kAnalogue},
    {"Right Line Mixer Line2L Bypass Volume", 1, kAnalogue},
    {"Right Line Mixer PGAL Bypass Volume", 1, kAnalogue},
    {"Right Line Mixer DACL1 Playback Volume", 1, kAnalogue},
    {"Left HP Mixer Line2R Bypass Volume", 1, kAnalogue},
    {"Left HP Mixer PGAR Bypass Volume", 1, kAnalogue},
    {"Left HP Mixer DACR1 Playback Volume", 1, kAnalogue},
    {"Right HP Mixer Line2L Bypass Volume", 1, kAnalogue},
    {"Right HP Mixer PGAL Bypass Volume", 1, kAnalogue},
    {"Right HP Mixer DACL1 Playback Volume", 1, kAnalogue},
    {"PGA Capture Volume", 2, kCapture},
    {"Line Playback Switch", 2, kSwitch},
    {"Mono Playback Switch", 1, kSwitch},
    {"HP Playback Switch", 2, kSwitch},
    {"PGA Capture Switch", 2, kSwitch},
    {"Right PGA Mixer Line1R Switch", 1, kSwitch},
    {"Right PGA Mixer Line2R Switch", 1, kSwitch},
    {"Right PGA Mixer Line1L Switch", 1, kSwitch},
    {"Right PGA Mixer Mic3L Switch", 1, kSwitch},
    {"Right PGA Mixer Mic3R Switch", 1, kSwitch},
    {"Left Line Mixer Line2L Bypass Switch", 1, kSwitch},
    {"Left Line Mixer PGAL Bypass Switch", 1, kSwitch},
    {"Left Line Mixer DACL1 Switch", 1, kSwitch},
    {"Left Line Mixer Line2R Bypass Switch", 1, kSwitch},
    {"Left Line Mixer DACR1 Switch", 1, kSwitch},
    {"Left Line Mixer PGAR Bypass Switch", 1, kSwitch},
    {"Right Line Mixer Line2L Bypass Switch", 1, kSwitch},
    {"Right Line Mixer PGAL Bypass Switch", 1, kSwitch},
    {"Right Line Mixer DACL1 Switch", 1, kSwitch},
    {"Right Line Mixer Line2R Bypass Switch", 1, kSwitch},
    {"Right Line Mixer DACR1 Switch", 1, kSwitch},
    {"Right Line Mixer PGAR Bypass Switch", 1, kSwitch},
    {"Mono Mixer Line2L Bypass Switch", 1, kSwitch},
    {"Mono Mixer PGAL Bypass Switch", 1, kSwitch},
    {"Mono Mixer DACL1 Switch", 1, kSwitch},
    {"Mono Mixer Line2R Bypass Switch", 1, kSwitch},
    {"Mono Mixer DACR1 Switch", 1, kSwitch},
    {"Mono Mixer PGAR Bypass Switch", 1, kSwitch},
    {"Left HP Mixer Line2L Bypass Switch", 1, kSwitch},
    {"Left HP Mixer PGAL Bypass Switch", 1, kSwitch},
    {"Left HP Mixer DACL1 Switch", 1, kSwitch},
    {"Left HP Mixer Line2R Bypass Switch", 1, kSwitch},
    {"Left HP Mixer DACR1 Switch", 1, kSwitch},
    {"Left HP Mixer PGAR Bypass Switch", 1, kSwitch},
    {"Right HP Mixer Line2L Bypass Switch", 1, kSwitch},
    {"Right HP Mixer PGAL Bypass Switch", 1, kSwitch},
    {"Right HP Mixer DACL1 Switch", 1, kSwitch},
    {"Right HP Mixer Line2R Bypass Switch", 1, kSwitch},
    {"Right HP Mixer DACR1 Switch", 1, kSwitch},
    {"Right HP Mixer PGAR Bypass Switch", 1, kSwitch},
}};

// What the codec's digital interface takes.
constexpr std::array<SampleFormat, 3> kFormats{{
    {0, "S16_LE", 2, 16},
    {1, "S32_LE", 4, 32},
    {4, "S24_3LE", 3, 24},
}};

bool digit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::span<const Control> controls() { return kControls; }

const Control* find_control(std::string_view name) {
    for (const Control& c : kControls)
        if (name == c.name) return &c;
    return nullptr;
}

std::string mixer_line(const Control& c, const std::array<int, 2>& value) {
    std::string line = std::string(c.name) + ":";
    for (unsigned i = 0; i < c.values; ++i) {
        char field[8];
        std::snprintf(field, sizeof field, " %*d", static_cast<int>(kValueWidth), value[i]);
        line += field;
    }
    return line + "\n";
}

std::string reset_mixer(const std::vector<std::string>& missing) {
    std::string text;
    for (const Control& c : kControls) {
        bool lacks = false;
        for (const std::string& m : missing) lacks = lacks || m == c.name;
        if (!lacks) text += mixer_line(c, {0, 0});
    }
    return text;
}

bool parse_mixer(std::string_view text, std::vector<ControlState>& out) {
    out.clear();
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t end = text.find('\n', pos);
        if (end == std::string_view::npos) return false;
        const std::string_view line = text.substr(pos, end - pos);
        const std::size_t colon = line.find(':');
        ControlState s;
        s.control = colon == std::string_view::npos ? nullptr : find_control(line.substr(0, colon));
        if (s.control == nullptr || line.size() != colon + 1 + s.control->values * (1 + kValueWidth)) return false;
        for (unsigned i = 0; i < s.control->values; ++i) {
            const std::size_t at = colon + 1 + i * (1 + kValueWidth);
            if (line[at] != ' ') return false;
            int v = 0;
            bool seen = false;
            for (std::size_t k = at + 1; k <= at + kValueWidth; ++k) {
                if (line[k] == ' ' && !seen) continue;
                if (!digit(line[k])) return false;
                seen = true;
                v = v * 10 + (line[k] - '0');
            }
            if (!seen || v > s.control->max) return false;
            s.value[i] = v;
            s.offset[i] = pos + at + 1;
        }
        for (const ControlState& other : out)
            if (other.control == s.control) return false;
        out.push_back(s);
        pos = end + 1;
    }
    return true;
}

const ControlState* find_state(const std::vector<ControlState>& states, std::string_view name) {
    for (const ControlState& s : states)
        if (name == s.control->name) return &s;
    return nullptr;
}

ControlState* find_state(std::vector<ControlState>& states, std::string_view name) {
    // The states are the caller's to change.
    return const_cast<ControlState*>(find_state(std::as_const(states), name));
}

const SampleFormat* find_format(int value) {
    for (const SampleFormat& f : kFormats)
        if (f.value == value) return &f;
    return nullptr;
}

const SampleFormat* find_format(std::string_view name) {
    for (const SampleFormat& f : kFormats)
        if (name == f.name) return &f;
    return nullptr;
}

std::string format_text(const SampleFormat& f, unsigned channels, unsigned rate) {
    return std::string(f.name) + " " + std::to_string(channels) + "ch " + std::to_string(rate) + "Hz";
}

bool parse_format_text(std::string_view text, const SampleFormat*& f, unsigned& channels, unsigned& rate) {
    char name[16] = {};
    char tail = 0;
    std::string s(text);
    while (!s.empty() && s.back() == '\n') s.pop_back();
    if (std::sscanf(s.c_str(), "%15s %uch %uHz%c", name, &channels, &rate, &tail) != 3) return false;
    f = find_format(std::string_view(name));
    return f != nullptr && channels >= 1 && channels <= 2 && rate >= 8000 && rate <= 96000;
}

}  // namespace ftsim::audio
