// The codec's state file as the simulated phone reads it back: the phone's
// programs can write it, so anything but the codec's own layout is refused.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim/audio/codec.h"

namespace {

namespace codec = ftsim::audio;

TEST(MixerFile, ResetStateParsesWithEachValueFoundAtItsDigits) {
    const std::string text = codec::reset_mixer({"Mono Playback Switch"});
    std::vector<codec::ControlState> states;
    ASSERT_TRUE(codec::parse_mixer(text, states));
    EXPECT_EQ(states.size(), codec::controls().size() - 1);
    for (const codec::ControlState& s : states) {
        EXPECT_STRNE(s.control->name, "Mono Playback Switch");
        for (unsigned i = 0; i < s.control->values; ++i) {
            EXPECT_EQ(s.value[i], 0);
            EXPECT_EQ(text.substr(s.offset[i], codec::kValueWidth), "  0") << s.control->name;
        }
    }
    const codec::Control* pcm = codec::find_control("PCM Playback Volume");
    ASSERT_NE(pcm, nullptr);
    EXPECT_EQ(codec::mixer_line(*pcm, {127, 5}), "PCM Playback Volume: 127   5\n");
}

TEST(MixerFile, RefusesWhatTheCodecDoesNotLayOut) {
    std::vector<codec::ControlState> states;
    const std::vector<std::string> refused{
        "Bogus Switch:   1\n",                                   // no such control
        "PCM Playback Volume: 128 100\n",                        // over its range
        "Mono Playback Switch:   2\n",                           // a switch is 0 or 1
        "PCM Playback Volume: 100\n",                            // one value of two
        "Mono Playback Switch:   1   0\n",                       // two values of one
        "Mono Playback Switch: 1\n",                             // not at its place
        "Mono Playback Switch:  -1\n",                           // not a number
        "Mono Playback Switch:   1",                             // an unfinished line
        "Mono Playback Switch:   1\nMono Playback Switch:   0\n",  // one control twice
    };
    for (const std::string& text : refused) EXPECT_FALSE(codec::parse_mixer(text, states)) << text;
    EXPECT_TRUE(codec::parse_mixer("Mono Playback Switch:   1\n", states));
    EXPECT_TRUE(codec::parse_mixer("", states));
    EXPECT_TRUE(states.empty());
}

TEST(PcmFormat, TextOfAnOpenDeviceReadsBack) {
    const codec::SampleFormat* f = nullptr;
    unsigned channels = 0, rate = 0;
    ASSERT_TRUE(codec::parse_format_text("S32_LE 2ch 16000Hz\n", f, channels, rate));
    EXPECT_EQ(codec::format_text(*f, channels, rate), "S32_LE 2ch 16000Hz");
    EXPECT_EQ(f->bytes, 4u);
    for (const char* text : {"S8 1ch 8000Hz", "S16_LE 3ch 8000Hz", "S16_LE 1ch 7999Hz", "S16_LE 1ch 8000Hz x",
                             "S16_LE 1ch"})
        EXPECT_FALSE(codec::parse_format_text(text, f, channels, rate)) << text;
}

}  // namespace
