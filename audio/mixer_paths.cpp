#include "audio/mixer_paths.h"

#include <array>
#include <cstdio>

namespace ft::audio {

mixer* audio_mixer = nullptr;

mixer_ctl* find_control(const char* who, const char* name) {
    mixer_ctl* ctl = audio_mixer != nullptr ? mixer_get_ctl_by_name(audio_mixer, name) : nullptr;
    if (ctl == nullptr) std::printf("%sFailed to get mixer control for %s\n", who, name);
    return ctl;
}

// Results of the set calls are not examined: what the codec takes is
// judged by whoever listens, not by the shell.
void set_every_value(mixer_ctl* ctl, int value) {
    const unsigned n = mixer_ctl_get_num_values(ctl);
    for (unsigned i = 0; i < n; ++i) mixer_ctl_set_value(ctl, i, value);
}

bool set_control(const char* who, const char* name, std::initializer_list<Value> values) {
    mixer_ctl* ctl = find_control(who, name);
    if (ctl == nullptr) return false;
    for (const Value& v : values) mixer_ctl_set_value(ctl, v.index, v.value);
    return true;
}

bool set_every_value(const char* who, const char* name, int value) {
    mixer_ctl* ctl = find_control(who, name);
    if (ctl == nullptr) return false;
    set_every_value(ctl, value);
    return true;
}

bool set_output_mixer(const char* who, const char* prefix, const char* suffix, int value) {
    std::array<char, kControlNameSize> name{};
    std::snprintf(name.data(), name.size(), "%s%s", prefix, suffix);
    return set_control(who, name.data(), {{0, value}});
}

bool enable_output(const char* who, unsigned output) {
    switch (output) {
    case 0: return set_control(who, playback[0], {{0, 0}, {1, 1}});
    case 1: return set_control(who, playback[1], {{0, 1}});
    case 2: return set_control(who, playback[2], {{0, 1}, {1, 0}});
    case 3: return set_control(who, playback[3], {{0, 1}, {1, 1}});
    default: return false;
    }
}

bool disable_output(const char* who, unsigned output) {
    if (output >= playback.size()) return false;
    if (output == kMonoOutput) return set_control(who, playback[output], {{0, 0}});
    return set_control(who, playback[output], {{0, 0}, {1, 0}});
}

}  // namespace ft::audio
