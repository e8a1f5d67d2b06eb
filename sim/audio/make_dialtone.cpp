// Draws the phone's dial tone at build time: 350 Hz and 440 Hz together,
// 16-bit mono at 8 kHz, as a RIFF WAVE file. Both tones complete whole cycles
// every 800 samples (35 and 44 of them), so a file of whole tenths of a second
// loops without a click.
// Usage: make_dialtone OUT.wav
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <string>

#include "sim/audio/codec.h"

namespace {

constexpr unsigned kRate = 8000;
constexpr unsigned kSamples = kRate;  // one second
constexpr double kLevel = 0.25;       // of full scale, each tone

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_dialtone OUT.wav\n");
        return 2;
    }
    std::string samples;
    for (unsigned n = 0; n < kSamples; ++n) {
        const double t = static_cast<double>(n) / kRate;
        const double v = kLevel * (std::sin(2 * std::numbers::pi * 350 * t) + std::sin(2 * std::numbers::pi * 440 * t));
        ftsim::audio::put_le(samples, static_cast<std::uint32_t>(static_cast<std::int16_t>(std::lround(v * 32767))), 2);
    }
    const std::string wav = ftsim::audio::wav_file(1, kRate, 2, 16, samples);
    std::FILE* f = std::fopen(argv[1], "wb");
    if (f == nullptr || std::fwrite(wav.data(), 1, wav.size(), f) != wav.size() || std::fclose(f) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}
