// Conditions and observed state of the audio codec, its amplifier and the
// dial tone file.
#include "sim/audio/codec.h"
#include "sim/core/state.h"

namespace {
namespace codec = ftsim::audio;

const ftsim::SettingsRegistrar kAudio{
    {"codec", ftsim::Kind::Condition, "present", "present|absent",
     "the audio codec: sound card 0 with its mixer and PCM device 5"},
    {"codec.missing", ftsim::Kind::Condition, "", "<text>",
     "mixer controls this codec lacks, their names joined by ';'"},
    {"audio.dialtone", ftsim::Kind::Condition, "default", "<text>",
     "/system/media/audio/ui/dialtone.wav: default, none, or a file on the host (copied when set)"},
    {"pcm.5", ftsim::Kind::Observed, "closed", "<text>",
     "PCM device 5: closed, or its format while open (S16_LE 1ch 8000Hz)"},
    {"amp.enable", ftsim::Kind::Observed, "0", "<text>", "the handset amplifier's enable file",
     codec::kAmpEnableFile},
    {"amp.gain", ftsim::Kind::Observed, "0", "<text>", "the handset amplifier's +20 dB gain file",
     codec::kAmpGainFile},
};
}  // namespace
