// The codec's state file and PCM format file as the simulated phone reads
// them back: the phone's programs can write them, so anything but their own
// layout is refused.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim/audio/codec.h"

namespace {

namespace codec = ftsim::audio;

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
    EXPECT_TRUE(codec::parse_mixer("PCM Playback Volume: 127   0\nMono Playback Switch:   1\n", states));
    EXPECT_TRUE(codec::parse_mixer("", states));
    EXPECT_TRUE(states.empty());
}

TEST(PcmFormat, TextOfAnOpenDeviceReadsBack) {
    const codec::SampleFormat* f = nullptr;
    unsigned channels = 0, rate = 0;
    ASSERT_TRUE(codec::parse_format_text("S32_LE 2ch 16000Hz\n", f, channels, rate));
    EXPECT_EQ(codec::format_text(*f, channels, rate), "S32_LE 2ch 16000Hz");
    EXPECT_EQ(f->bytes, 4u);
    // Each limit from both sides: the last value taken and the first refused.
    for (const char* text : {"S16_LE 1ch 8000Hz", "S16_LE 2ch 96000Hz"})
        EXPECT_TRUE(codec::parse_format_text(text, f, channels, rate)) << text;
    for (const char* text : {"S8 1ch 8000Hz", "S16_LE 0ch 8000Hz", "S16_LE 3ch 8000Hz", "S16_LE 1ch 7999Hz",
                             "S16_LE 1ch 96001Hz", "S16_LE 1ch 8000Hz x", "S16_LE 1ch"})
        EXPECT_FALSE(codec::parse_format_text(text, f, channels, rate)) << text;
}

}  // namespace
