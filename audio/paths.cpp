// The codec's known state at start-up, the loopback routes and the +20 dB
// gain of the handset path. A loopback is an analogue route inside the codec:
// an input through the right PGA, then the output mixer's PGA bypass.
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "audio/audio.h"
#include "audio/mixer_paths.h"
#include "common/unique_handle.h"
#include "common/words.h"

using namespace ft::audio;

namespace {

constexpr int kPcmStartLevel = 100;
constexpr int kPcmGainLevel = 127;
constexpr int kAnalogueLevel = 118;

constexpr const char* kAmpEnable = "/sys/class/audio_ports_ctl/wired_handset/amp_enable";
constexpr const char* kAmpGain = "/sys/class/audio_ports_ctl/wired_handset/amp_gain";

// The route a running loopback uses, so that it can be undone.
bool loop_started = false;
int loop_input = -1;
int loop_output = -1;

// The handset amplifier's sysfs files take the text an "echo 1 >" would
// write; written here directly, which saves a shell at every start-up. As
// with the shell, the outcome is not examined.
void write_amplifier(const char* file, const char* text) {
    ft::UniqueFd fd(open(file, O_WRONLY | O_TRUNC | O_CLOEXEC));
    if (!fd.valid()) return;
    const std::size_t n = std::strlen(text);
    [[maybe_unused]] const ssize_t written = write(fd.get(), text, n);
}

void stop_running_loop() {
    stop_audio_loop(static_cast<unsigned>(loop_input), static_cast<unsigned>(loop_output));
    loop_started = false;
}

}  // namespace

void initialize_audio() {
    audio_mixer = mixer_open(0);
    if (audio_mixer == nullptr) {
        std::puts("initialize_audio : mixer_open failed");
        return;
    }
    constexpr const char* who = "initialize_audio: ";
    for (std::size_t i = 0; i < vol_ctrl.size(); ++i)
        if (!set_every_value(who, vol_ctrl[i], i == 0 ? kPcmStartLevel : kAnalogueLevel)) return;
    for (unsigned output = 0; output < playback.size(); ++output)
        if (!disable_output(who, output)) return;
    write_amplifier(kAmpEnable, "1\n");
}

int audio_loop(const char* action, const char* input, const char* output) {
    switch (ft::word_to_int(action)) {
    case 0:
        if (!loop_started) {
            std::puts("Audio Loop not started!");
            return -1;
        }
        stop_running_loop();
        return 0;
    case 1: {
        if (loop_started) stop_running_loop();
        if (input[0] == '\0' && output[0] == '\0') {
            std::puts("<input> and <output> must both be specified to start the test");
            return -1;
        }
        // Taken as unsigned, so that negative numbers are out of range too.
        const auto in = static_cast<unsigned>(ft::word_to_int(input));
        const auto out = static_cast<unsigned>(ft::word_to_int(output));
        if (input[0] == '\0' || output[0] == '\0' || in >= kInputs || out >= kOutputs) {
            std::puts("<input> and <output> must contain valid values (0, 1, 2 or 3)");
            return -1;
        }
        start_audio_loop(in, out);
        // Running even when a control was missing: a stop undoes what was set.
        loop_input = static_cast<int>(in);
        loop_output = static_cast<int>(out);
        loop_started = true;
        return 0;
    }
    default:
        std::puts("Invalid command - Invalid Action");
        return -1;
    }
}

void start_audio_loop(unsigned input, unsigned output) {
    constexpr const char* who = "start_audio_loop : ";
    for (unsigned i = 0; i < in_mixer_switch.size(); ++i)
        if (!set_control(who, in_mixer_switch[i], {{0, i == input ? 1 : 0}})) return;
    if (!set_control(who, capture[0], {{0, 0}, {1, 1}})) return;
    // The chosen output mixer takes the right PGA's bypass and nothing else;
    // the headphone output has a mixer for each side.
    auto route = [&](const char* prefix) {
        for (std::size_t s = 0; s < out_switch.size(); ++s)
            if (!set_output_mixer(who, prefix, out_switch[s], s == kPgaRightBypass ? 1 : 0)) return false;
        return true;
    };
    if (!route(out_mixer[output])) return;
    if (output == kHeadphoneOutput && !route(out_mixer[kSecondHeadphoneMixer])) return;
    enable_output(who, output);
}

void stop_audio_loop(unsigned input, unsigned output) {
    constexpr const char* who = "stop_audio_loop : ";
    if (!set_control(who, capture[0], {{0, 0}, {1, 0}})) return;
    if (!set_control(who, in_mixer_switch[input], {{0, 0}})) return;
    if (!set_output_mixer(who, out_mixer[output], out_switch[kPgaRightBypass], 0)) return;
    if (output == kHeadphoneOutput &&
        !set_output_mixer(who, out_mixer[kSecondHeadphoneMixer], out_switch[kPgaRightBypass], 0))
        return;
    disable_output(who, output);
}

int audio_section508_gain(const char* action) {
    // The control is looked up before the action is examined.
    mixer_ctl* ctl = find_control("audio_section508_gain: ", vol_ctrl[0]);
    if (ctl == nullptr) return -1;
    int level = 0;
    switch (action[0]) {
    case '1':
        write_amplifier(kAmpGain, "1\n");
        level = kPcmGainLevel;
        break;
    case '0':
        write_amplifier(kAmpGain, "0\n");
        level = kPcmStartLevel;
        break;
    default:
        std::puts("FAIL\nft : Err Invalid action");
        return -1;
    }
    set_every_value(ctl, level);
    return 0;
}
