// The audio codec's piece of the phone on the host side: the codec as it
// comes up at power-up (its mixer state, the amplifier's sysfs files, the
// dial tone file), what PCM device 5 played as a WAV file, the mixer's
// controls, and the routes they make in `ftsim show`.
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <vector>

#include "common/unique_handle.h"
#include "sim/audio/codec.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {
namespace {

namespace codec = ftsim::audio;

constexpr const char* kToneFolder = "audio/ui";  // bound at /system/media/audio/ui unless default
constexpr const char* kToneCopy = "audio/ui/dialtone.wav";
constexpr const char* kToneDest = "/system/media/audio/ui";
constexpr std::size_t kMaxToneFile = 16u << 20;

std::vector<std::string> split(const std::string& text, char sep) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t at = text.find(sep, start);
        const std::string part = text.substr(start, at == std::string::npos ? at : at - start);
        if (!part.empty()) parts.push_back(part);
        if (at == std::string::npos) return parts;
        start = at + 1;
    }
}

bool audio_power_up(const Phone&, PowerUp& up, std::string& error) {
    const Folder dir = hw();
    if (!dir.make_dirs("audio") || !dir.make_dirs(codec::kAmpDir)) {
        error = explain("cannot prepare the codec's files");
        return false;
    }
    const std::vector<std::string> missing = split(get("codec.missing"), ';');
    for (const std::string& name : missing) {
        if (!codec::find_control(name)) {
            error = "codec.missing names '" + name + "', which is no control of the codec ('ftsim mixer' lists them)";
            return false;
        }
    }
    // The codec comes out of reset with every switch off and every volume at 0.
    const bool present = get("codec") == "present";
    if (!(present ? dir.write_atomic(codec::kMixerFile, codec::reset_mixer(missing))
                  : dir.remove(codec::kMixerFile))) {
        error = explain("cannot lay out the codec's mixer");
        return false;
    }
    for (const char* file : {codec::kAmpEnableFile, codec::kAmpGainFile}) {
        if (!dir.write_atomic(file, "0\n")) {
            error = explain(std::string("cannot make the amplifier's ") + (std::strrchr(file, '/') + 1));
            return false;
        }
    }
    if (get("audio.dialtone") == "default") return true;
    return up.bind_hw(kToneFolder, kToneDest, Type::Dir, error, true);
}

// Takes the copy of a dial tone file the operator names, so that a power-up
// never reads a host path out of the phone's own folder.
bool audio_set(const Phone&, const std::string& name, const std::string& value, std::string& error) {
    if (name != "audio.dialtone") return true;
    const Folder dir = hw();
    if (!dir.make_dirs(kToneFolder) || !dir.remove(kToneCopy)) {
        error = explain("cannot prepare the phone's dial tone folder");
        return false;
    }
    if (value == "default" || value == "none") return true;
    ft::UniqueFd fd(open(value.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    struct stat st{};
    if (!fd.valid() || fstat(fd.get(), &st) != 0) {
        error = "cannot read " + value + ": " + std::strerror(errno);
        return false;
    }
    if (!S_ISREG(st.st_mode) || static_cast<std::size_t>(st.st_size) > kMaxToneFile) {
        error = value + " is not a file of at most 16 MiB";
        return false;
    }
    std::string data(static_cast<std::size_t>(st.st_size), '\0');
    std::size_t got = 0;
    while (got < data.size()) {
        const ssize_t n = read(fd.get(), data.data() + got, data.size() - got);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            error = "cannot read " + value + ": " + (n == 0 ? "it shrank while read" : std::strerror(errno));
            return false;
        }
        got += static_cast<std::size_t>(n);
    }
    if (!dir.write_atomic(kToneCopy, data)) {
        error = explain("cannot copy the dial tone into the phone");
        return false;
    }
    return true;
}

// For the readers below: false after the message.
bool refuse(const std::string& message) {
    fail(message, 1);
    return false;
}

// The mixer's controls as the state file holds them.
bool read_mixer(std::vector<codec::ControlState>& states) {
    std::string text;
    if (!read_text(codec::kMixerFile, text)) {
        if (errno != ENOENT) return refuse(explain("cannot read the codec's mixer"));
        if (get("codec") != "present") return refuse("this phone has no codec (ftsim set codec present)");
        return refuse("the codec's mixer is laid out at power-up, and this phone was not powered up yet");
    }
    if (!codec::parse_mixer(text, states))
        return refuse("the codec's mixer state was changed from inside the phone; 'ftsim reset' makes a fresh phone");
    return true;
}

std::string values_text(const codec::ControlState& s) {
    std::string out;
    for (unsigned i = 0; i < s.control->values; ++i) out += (i ? " " : "") + std::to_string(s.value[i]);
    return out;
}

bool switched_on(const codec::ControlState& s) {
    return s.control->max == 1 && (s.value[0] != 0 || s.value[1] != 0);
}

int no_control(const std::string& name) {
    return fail("the codec has no control named '" + name + "'; 'ftsim mixer' lists them", 1);
}

// Sets a control as another program of the phone could, to see what the
// shell's commands do to a codec that is not in its reset state.
int set_mixer(std::vector<codec::ControlState>& states, const Args& args) {
    codec::ControlState* s = codec::find_state(states, args[0]);
    if (s == nullptr) return no_control(args[0]);
    if (args.size() - 1 != s->control->values)
        return fail(args[0] + " has " + std::to_string(s->control->values) + " value(s)");
    for (unsigned i = 0; i < s->control->values; ++i) {
        long v = 0;
        if (!parse_long(args[1 + i], 0, s->control->max, v))
            return fail(args[0] + " takes values from 0 to " + std::to_string(s->control->max));
        s->value[i] = static_cast<int>(v);
    }
    std::string text;
    for (const codec::ControlState& c : states) text += codec::mixer_line(*c.control, c.value);
    return write_atomic(codec::kMixerFile, text) ? 0 : fail(explain("cannot write the codec's mixer"), 1);
}

int verb_mixer(const Phone&, const Args& args) {
    if (args.size() > 3) return fail("usage: ftsim mixer [NAME [VALUES] | --on]");
    std::vector<codec::ControlState> states;
    if (!read_mixer(states)) return 1;
    if (args.size() >= 2) return set_mixer(states, args);
    const bool on = !args.empty() && args[0] == "--on";
    if (!args.empty() && !on) {
        const codec::ControlState* s = codec::find_state(states, args[0]);
        if (s == nullptr) return no_control(args[0]);
        std::printf("%s\n", values_text(*s).c_str());
        return 0;
    }
    for (const codec::ControlState& s : states)
        if (!on || switched_on(s)) std::printf("%s: %s\n", s.control->name, values_text(s).c_str());
    return 0;
}

// What PCM device 5 played since it was last opened: its format, and its
// frames up to the device's limit (the file is the phone's to write).
bool read_recording(const codec::SampleFormat*& format, unsigned& channels, unsigned& rate, std::string& data) {
    std::string text;
    if (!read_text(codec::kPcmFormatFile, text)) {
        if (errno == ENOENT) return refuse("PCM device 5 was never opened on this phone");
        return refuse(explain("cannot read what PCM device 5 played"));
    }
    if (!codec::parse_format_text(text, format, channels, rate))
        return refuse("the format of PCM device 5 was changed from inside the phone");
    const std::size_t limit = codec::record_bytes(*format, channels, rate);
    ft::UniqueFd fd = hw().open_at(codec::kPcmDataFile, O_RDONLY, Type::File);
    if (!fd.valid()) return refuse(explain("cannot read what PCM device 5 played"));
    data.resize(limit);
    std::size_t got = 0;
    while (got < limit) {
        const ssize_t n = read(fd.get(), data.data() + got, limit - got);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return refuse(explain("cannot read what PCM device 5 played"));
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    data.resize(got - got % (channels * format->bytes));
    return true;
}

// True while a player of the phone holds PCM device 5. The lock is read
// from the kernel's list rather than tried: a try would make a player that
// opens the device at that moment find it busy.
bool device_held() {
    ft::UniqueFd fd = hw().open_at(codec::kPcmLockFile, O_RDONLY, Type::File);
    struct stat st{};
    if (!fd.valid() || fstat(fd.get(), &st) != 0) return false;
    ft::UniqueFile locks(std::fopen("/proc/locks", "re"));
    if (!locks.valid()) return false;
    std::array<char, 256> line{};
    while (std::fgets(line.data(), static_cast<int>(line.size()), locks.get())) {
        unsigned dev_major = 0, dev_minor = 0;
        unsigned long inode = 0;
        if (std::sscanf(line.data(), "%*d: FLOCK %*s %*s %*d %x:%x:%lu", &dev_major, &dev_minor, &inode) == 3 &&
            dev_major == major(st.st_dev) && dev_minor == minor(st.st_dev) && inode == st.st_ino)
            return true;
    }
    return false;
}

// "closed", or the format PCM device 5 is open with. A phone that is off
// has it closed, whatever a shell that ended while playing left behind. A
// player marks the device closed just before it lets go of it: until it has,
// it is not closed yet for whoever waits to open it next.
std::string device_state(const Phone& phone) {
    if (!phone.folder().exists(kPowerRecord, Type::File)) return "closed";
    const std::string state = get("pcm.5");
    return state == "closed" && device_held() ? "closing" : state;
}

// Waits until PCM device 5 is open, or closed again: a tone thread starts and
// ends on its own time, after the command that asked for it has returned.
int wait_for_device(const Phone& phone, const std::string& state) {
    constexpr int kTries = 2000;  // 20 s
    for (int i = 0; i < kTries; ++i) {
        const std::string now = device_state(phone);
        if (state == "closed" ? now == "closed" : now != "closed" && now != "closing") return 0;
        usleep(10000);
    }
    return fail("PCM device 5 was not " + state + " within 20 s", 1);
}

constexpr const char* kAudioUsage = "usage: ftsim audio FILE.wav | --wait open|closed";

int verb_audio(const Phone& phone, const Args& args) {
    if (args.size() == 2 && args[0] == "--wait" && (args[1] == "open" || args[1] == "closed"))
        return wait_for_device(phone, args[1]);
    if (args.size() != 1 || args[0].empty() || args[0][0] == '-') return fail(kAudioUsage);
    const codec::SampleFormat* format = nullptr;
    unsigned channels = 0, rate = 0;
    std::string data;
    if (!read_recording(format, channels, rate, data)) return 1;
    const std::string wav = codec::wav_file(channels, rate, channels * format->bytes, format->bits, data);
    ft::UniqueFile out(std::fopen(args[0].c_str(), "wb"));
    if (!out.valid() || std::fwrite(wav.data(), 1, wav.size(), out.get()) != wav.size() ||
        std::fclose(out.release()) != 0)
        return fail("cannot write " + args[0] + ": " + std::strerror(errno), 1);
    return 0;
}

// --- `ftsim show`: the routes the mixer makes.

struct Output {
    const char* name;
    const char* mixer;        // prefix of its output mixer's controls
    const char* enable;       // its playback switch
    unsigned enable_value;    // which value of it
};
constexpr std::array<Output, 5> kOutputs{{
    {"handset", "Right Line ", "Line Playback Switch", 1},
    {"wired headset", "Mono ", "Mono Playback Switch", 0},
    {"speakerphone", "Left Line ", "Line Playback Switch", 0},
    {"3.5 mm headset", "Right HP ", "HP Playback Switch", 1},
    {"3.5 mm headset", "Left HP ", "HP Playback Switch", 0},
}};

struct Input {
    const char* name;
    const char* control;
};
constexpr std::array<Input, 5> kInputs{{
    {"handset mic", "Right PGA Mixer Line1R Switch"},
    {"wired headset mic", "Right PGA Mixer Line2R Switch"},
    {"speakerphone mic", "Right PGA Mixer Line1L Switch"},
    {"3.5 mm headset mic", "Right PGA Mixer Mic3L Switch"},
    {"Mic3R input", "Right PGA Mixer Mic3R Switch"},
}};

class Mixer {
public:
    explicit Mixer(const std::vector<codec::ControlState>& s) : states_(s) {}
    int value(const std::string& name, unsigned i = 0) const {
        const codec::ControlState* s = codec::find_state(states_, name);
        return s != nullptr && i < s->control->values ? s->value[i] : 0;
    }
    std::string text(const std::string& name) const {
        const codec::ControlState* s = codec::find_state(states_, name);
        return s != nullptr ? values_text(*s) : "(none)";
    }

private:
    const std::vector<codec::ControlState>& states_;
};

void add_once(std::vector<std::string>& list, const char* item) {
    for (const std::string& have : list)
        if (have == item) return;
    list.emplace_back(item);
}

std::string joined(const std::vector<std::string>& list) {
    std::string out;
    for (const std::string& item : list) out += (out.empty() ? "" : ", ") + item;
    return out;
}

// Outputs that are on and take the mixer input @p suffix.
std::string outputs_taking(const Mixer& m, const char* suffix) {
    std::vector<std::string> list;
    for (const Output& o : kOutputs)
        if (m.value(o.enable, o.enable_value) && m.value(std::string(o.mixer) + suffix)) add_once(list, o.name);
    return joined(list);
}

void audio_show(const Phone& phone, std::string& out) {
    std::string text;
    std::vector<codec::ControlState> states;
    if (!read_text(codec::kMixerFile, text)) {
        out += get("codec") == "present" ? "audio codec: not powered up yet\n" : "audio codec: absent\n";
    } else if (!codec::parse_mixer(text, states)) {
        out += "audio codec: mixer state changed from inside the phone\n";
    } else {
        const Mixer m(states);
        out += "audio codec: " + std::to_string(states.size()) + " mixer controls\n";
        // The loopback runs through the right PGA into the outputs' bypass.
        std::vector<std::string> sources;
        if (m.value("PGA Capture Switch", 1))
            for (const Input& in : kInputs)
                if (m.value(in.control)) add_once(sources, in.name);
        const std::string inputs = joined(sources);
        const std::string looped = outputs_taking(m, "Mixer PGAR Bypass Switch");
        out += "loop: " + (looped.empty() ? std::string("none") : (inputs.empty() ? "nothing" : inputs) + " -> " + looped) + "\n";
        const std::string toned = outputs_taking(m, "Mixer DACR1 Switch");
        out += "tone: " + (toned.empty() ? std::string("none") : toned) + "\n";
        out += "handset gain: PCM Playback Volume " + m.text("PCM Playback Volume") + ", amplifier enable " +
               get("amp.enable") + " gain " + get("amp.gain") + "\n";
    }
    const std::string pcm = device_state(phone);
    const codec::SampleFormat* format = nullptr;
    unsigned channels = 0, rate = 0;
    struct stat st{};
    ft::UniqueFd fd = hw().open_at(codec::kPcmDataFile, O_RDONLY, Type::File);
    if (!read_text(codec::kPcmFormatFile, text) || !codec::parse_format_text(text, format, channels, rate) ||
        !fd.valid() || fstat(fd.get(), &st) != 0) {
        out += "pcm 5: " + pcm + ", nothing played yet\n";
        return;
    }
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.3f s",
                  static_cast<double>(st.st_size) / (static_cast<double>(rate) * channels * format->bytes));
    out += "pcm 5: " + pcm + (pcm == "closed" ? ", " + std::string(seconds) + " played as " + text.substr(0, text.find('\n'))
                                              : ", " + std::string(seconds) + " played") + "\n";
}

const ModuleRegistrar kAudio{Module{
    "audio",
    {
        {"audio", "audio FILE.wav             what PCM device 5 played since it was last opened, as a WAV file\n"
                  "  ftsim audio --wait open|closed   until PCM device 5 is open, or closed (a tone thread's start or end)",
         verb_audio},
        {"mixer", "mixer [NAME [VALUES]|--on] the codec's mixer controls and their values; NAME: that\n"
                  "                                   control's values, or sets them; --on: the switches that are\n"
                  "                                   on, which make the routes",
         verb_mixer},
    },
    audio_power_up,
    audio_show,
    nullptr,
    audio_set,
}};

}  // namespace
}  // namespace ftsim
