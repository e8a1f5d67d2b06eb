#pragma once
// The phone's audio codec as the simulated phone keeps it: its mixer controls
// with their value counts and ranges, the state file that holds their values
// (hw/audio/mixer, one line a control, values at fixed places so that a
// control is set by rewriting its digits in place, as a register write), and
// what PCM device 5 has played. Shared by the replacement library and ftsim.
//
// The table is the codec's, not the shell's: a name the shell gets wrong
// must show up as a missing control, as on the phone.
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ftsim::audio {

struct Control {
    const char* name;
    unsigned values;  // 2 for a stereo control, 1 for a mono one
    int max;          // values run from 0 to max
};

std::span<const Control> controls();
const Control* find_control(std::string_view name);

// Relative to the hardware folder.
constexpr const char* kMixerFile = "audio/mixer";
constexpr const char* kPcmFormatFile = "audio/pcm5.format";  // "S16_LE 1ch 8000Hz" of the last open
constexpr const char* kPcmDataFile = "audio/pcm5.raw";       // every frame written since that open
constexpr const char* kPcmLockFile = "audio/pcm5.lock";      // held while the device is open

// The handset amplifier's sysfs folder and its two files.
constexpr const char* kAmpDir = "sys/class/audio_ports_ctl/wired_handset";
constexpr const char* kAmpEnableFile = "sys/class/audio_ports_ctl/wired_handset/amp_enable";
constexpr const char* kAmpGainFile = "sys/class/audio_ports_ctl/wired_handset/amp_gain";

// The device keeps at most this much of what it played.
constexpr unsigned kRecordSeconds = 60;

// Each value takes this many characters after its blank: "NAME: 118 118".
constexpr std::size_t kValueWidth = 3;

struct ControlState {
    const Control* control = nullptr;
    std::array<int, 2> value{};
    std::array<std::size_t, 2> offset{};  // of each value's digits in the file
};

// The line of one control with the given values.
std::string mixer_line(const Control& c, const std::array<int, 2>& value);
// The state file of a codec just powered up: every control at 0, except
// those named in @p missing, which this codec lacks.
std::string reset_mixer(const std::vector<std::string>& missing);
// Reads a state file. False when a line is not one of the codec's controls
// in the file's layout (the phone's programs can write the file).
bool parse_mixer(std::string_view text, std::vector<ControlState>& out);
// The state of the control named @p name, or null when the codec lacks it.
ControlState* find_state(std::vector<ControlState>& states, std::string_view name);
const ControlState* find_state(const std::vector<ControlState>& states, std::string_view name);

// Sample formats of the PCM device, by the library's enum values.
struct SampleFormat {
    int value;         // enum pcm_format
    const char* name;  // as ALSA names it
    unsigned bytes;    // per sample, as the device stores it
    unsigned bits;     // per sample in a WAV file
};
const SampleFormat* find_format(int value);
const SampleFormat* find_format(std::string_view name);

// How many bytes of a stream the device keeps: kRecordSeconds of it.
inline std::uint64_t record_bytes(const SampleFormat& f, unsigned channels, unsigned rate) {
    return std::uint64_t{kRecordSeconds} * rate * channels * f.bytes;
}

// "S16_LE 1ch 8000Hz"
std::string format_text(const SampleFormat& f, unsigned channels, unsigned rate);
bool parse_format_text(std::string_view text, const SampleFormat*& f, unsigned& channels, unsigned& rate);

// @p v as @p bytes bytes, least significant first.
inline void put_le(std::string& out, std::uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i) out += static_cast<char>((v >> (8 * i)) & 0xFF);
}

// A RIFF WAVE file of integer samples around @p data, whose frames are
// @p block bytes of @p channels samples of @p bits bits each.
inline std::string wav_file(unsigned channels, unsigned rate, unsigned block, unsigned bits, std::string_view data) {
    std::string wav = "RIFF";
    put_le(wav, static_cast<std::uint32_t>(36 + data.size()), 4);
    wav += "WAVEfmt ";
    put_le(wav, 16, 4);
    put_le(wav, 1, 2);  // integer samples
    put_le(wav, channels, 2);
    put_le(wav, rate, 4);
    put_le(wav, rate * block, 4);
    put_le(wav, block, 2);
    put_le(wav, bits, 2);
    wav += "data";
    put_le(wav, static_cast<std::uint32_t>(data.size()), 4);
    wav += data;
    return wav;
}

}  // namespace ftsim::audio
