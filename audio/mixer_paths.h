#pragma once
// The codec's mixer as the audio commands share it: the handle opened at
// start-up, the fixed tables of control names, and the steps that set them.
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <tinyalsa/asoundlib.h>

namespace ft::audio {

// Opened once at start-up and never closed; null when the codec could not be
// opened, and then every control is missing.
extern mixer* audio_mixer;

// Input selectors of the right PGA mixer, by input number; the fifth has no
// number and a loop start always turns it off.
inline constexpr std::array<const char*, 5> in_mixer_switch{
    "Right PGA Mixer Line1R Switch",  // handset
    "Right PGA Mixer Line2R Switch",  // wired headset
    "Right PGA Mixer Line1L Switch",  // speakerphone microphone
    "Right PGA Mixer Mic3L Switch",   // 3.5 mm headset
    "Right PGA Mixer Mic3R Switch",
};
// How many inputs the commands take by number.
inline constexpr unsigned kInputs = in_mixer_switch.size() - 1;

// Name prefixes of the output mixers, by output number; the fifth is the
// second mixer of output 3.
inline constexpr std::array<const char*, 5> out_mixer{
    "Right Line ",  // handset
    "Mono ",        // wired headset
    "Left Line ",   // speakerphone
    "Right HP ",    // 3.5 mm headset
    "Left HP ",
};
inline constexpr std::size_t kSecondHeadphoneMixer = 4;
inline constexpr unsigned kHeadphoneOutput = 3;

// Name suffixes of the output mixers' inputs.
inline constexpr std::array<const char*, 6> out_switch{
    "Mixer Line2L Bypass Switch", "Mixer PGAL Bypass Switch", "Mixer DACL1 Switch",
    "Mixer Line2R Bypass Switch", "Mixer DACR1 Switch",       "Mixer PGAR Bypass Switch",
};
inline constexpr std::size_t kDacRight = 4;
inline constexpr std::size_t kPgaRightBypass = 5;

// Value 0 the left PGA, value 1 the right one.
inline constexpr std::array<const char*, 1> capture{"PGA Capture Switch"};

// Output enables, by output number: outputs 0 and 2 share one stereo control
// (value 0 the left line, value 1 the right), output 1's has one value.
inline constexpr std::array<const char*, 4> playback{
    "Line Playback Switch",
    "Mono Playback Switch",
    "Line Playback Switch",
    "HP Playback Switch",
};
inline constexpr unsigned kMonoOutput = 1;
// How many outputs the commands take by number.
inline constexpr unsigned kOutputs = playback.size();

// Volumes set at start-up; the first is also the +20 dB gain's.
inline constexpr std::array<const char*, 23> vol_ctrl{
    "PCM Playback Volume",
    "Left Line Mixer Line2R Bypass Volume",
    "Left Line Mixer PGAR Bypass Volume",
    "Left Line Mixer DACR1 Playback Volume",
    "Right Line Mixer Line2L Bypass Volume",
    "Right Line Mixer PGAL Bypass Volume",
    "Right Line Mixer DACL1 Playback Volume",
    "Left HP Mixer Line2R Bypass Volume",
    "Left HP Mixer PGAR Bypass Volume",
    "Left HP Mixer DACR1 Playback Volume",
    "Right HP Mixer Line2L Bypass Volume",
    "Right HP Mixer PGAL Bypass Volume",
    "Right HP Mixer DACL1 Playback Volume",
    "Line Line2 Bypass Volume",
    "Line PGA Bypass Volume",
    "Line DAC Playback Volume",
    "Mono Line2 Bypass Volume",
    "Mono PGA Bypass Volume",
    "Mono DAC Playback Volume",
    "HP Line2 Bypass Volume",
    "HP PGA Bypass Volume",
    "HP DAC Playback Volume",
    "PGA Capture Volume",
};

// Composed output mixer names are formatted into this many bytes.
inline constexpr std::size_t kControlNameSize = 64;

// Every composed name fits, terminator included.
constexpr bool composed_names_fit() {
    for (const char* prefix : out_mixer)
        for (const char* suffix : out_switch)
            if (std::string_view(prefix).size() + std::string_view(suffix).size() >= kControlNameSize) return false;
    return true;
}
static_assert(composed_names_fit());

// One value of a control: which one, and what it becomes.
struct Value {
    unsigned index;
    int value;
};

// Each operation names itself in its messages with @p who ("start_audio_loop : ").
// A control the codec does not have ends it: "<who>Failed to get mixer
// control for NAME" is printed and the result is null or false.
mixer_ctl* find_control(const char* who, const char* name);
void set_every_value(mixer_ctl* ctl, int value);
bool set_control(const char* who, const char* name, std::initializer_list<Value> values);
// Every value the control has.
bool set_every_value(const char* who, const char* name, int value);
// The control of an output mixer: @p prefix followed directly by @p suffix.
bool set_output_mixer(const char* who, const char* prefix, const char* suffix, int value);
// The output's playback switch as a loop or tone start sets it: output 0
// the right line only, 1 on, 2 the left line only, 3 both sides.
bool enable_output(const char* who, unsigned output);
// Value 0 off and, except on the mono output, value 1 off.
bool disable_output(const char* who, unsigned output);

}  // namespace ft::audio
