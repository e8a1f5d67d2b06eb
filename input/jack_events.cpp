#include "input/jack_events.h"

#include <array>
#include <cstdio>

namespace ft::input {
namespace {

constexpr std::array<const char*, 5> kHeadsetNames{"none", "no mic", "mic", "CTIA", "OMTP"};
constexpr int kTypeMic = 2;
constexpr int kTypeCtia = 3;
constexpr int kTypeOmtp = 4;

constexpr unsigned kSyncReport = SYN_REPORT;
constexpr unsigned kHeadphoneInserted = SW_HEADPHONE_INSERT;
constexpr unsigned kMicrophoneInserted = SW_MICROPHONE_INSERT;
constexpr unsigned kJackInserted = SW_JACK_PHYSICAL_INSERT;

struct Button {
    unsigned code;
    char name;
};
constexpr std::array<Button, 4> kButtons{{
    {KEY_MEDIA, 'A'},
    {KEY_VOLUMEUP, 'B'},
    {KEY_VOLUMEDOWN, 'C'},
    {KEY_VOICECOMMAND, 'D'},
}};

int headset_type(const JackState& s, HeadsetTypeQuery query) {
    if (s.microphone == 0) return s.headphone;
    int type = kTypeMic;
    // Only the two wiring standards are worth naming; anything else the
    // library says, or a failed query, is just a headset with a microphone.
    if (query(&type) == 0 && (type == kTypeCtia || type == kTypeOmtp)) return type;
    return kTypeMic;
}

void evaluate_change(JackState& s, bool detection, HeadsetTypeQuery query, JackLine& out) {
    if (!s.change_pending) return;
    s.change_pending = false;
    if (detection)
        std::snprintf(out.data(), out.size(), "JACK = %s\n",
                      kHeadsetNames[static_cast<std::size_t>(headset_type(s, query))]);
    if (s.last_insertion == 0) {
        s.microphone = 0;
        s.headphone = 0;
    }
}

}  // namespace

void interpret_jack_record(JackState& s, const Record& r, bool detection, bool buttons, HeadsetTypeQuery query,
                           JackLine& out) {
    out[0] = '\0';
    switch (r.code) {
    case kSyncReport:
        evaluate_change(s, detection, query, out);
        return;
    case kHeadphoneInserted:
        s.headphone = r.value != 0 ? 1 : 0;
        return;
    case kMicrophoneInserted:
        s.microphone = static_cast<unsigned char>(r.value & 0xff);
        return;
    case kJackInserted:
        if (r.value != s.last_insertion) {
            s.change_pending = true;
            s.last_insertion = r.value;
        }
        return;
    default:
        break;
    }
    for (const Button& b : kButtons) {
        if (b.code == r.code) {
            if (buttons) std::snprintf(out.data(), out.size(), "jackKeyCode[%c] value[%d]\n", b.name, r.value);
            return;
        }
    }
    std::snprintf(out.data(), out.size(), "Unknown jack event: keyCode[%04x] value[%d]\n", r.code, r.value);
}

}  // namespace ft::input
