// The dial tone, played in an endless loop on a detached thread until a stop.
// The thread owns the file, the PCM handle and the buffer and releases all
// three on every way out; the only thing it shares with the shell is the stop
// flag. The mixer is touched by the shell's thread alone. The thread reports
// through the console, so that its lines start lines of their own.
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>
#include <new>
#include <pthread.h>

#include "audio/audio.h"
#include "audio/mixer_paths.h"
#include "common/console.h"
#include "common/unique_handle.h"
#include "common/words.h"

using namespace ft::audio;

namespace {

constexpr const char* kToneFile = "/system/media/audio/ui/dialtone.wav";
constexpr unsigned kCard = 0;
constexpr unsigned kToneDevice = 5;
constexpr unsigned kPeriodSize = 160;
constexpr unsigned kPeriodCount = 4;
constexpr long kRiffHeaderSize = 12;

constexpr const char* kBadAction = "<action> must contain valid values (0 or 1)";
constexpr const char* kBadOutput = "<output> must contain valid values (0, 1, 2 or 3)";

// The output of the tone last started; -1 when none.
int tone_device = -1;
// Set by the shell's thread, polled by the tone thread after each write and
// after each rewind.
std::atomic<bool> tone_stop{false};

struct PcmTraits {
    static pcm* invalid() noexcept { return nullptr; }
    static void close(pcm* p) noexcept { pcm_close(p); }
};
using UniquePcm = ft::UniqueHandle<pcm*, PcmTraits>;

struct ThreadAttributes {
    pthread_attr_t attr{};
    ThreadAttributes() {
        pthread_attr_init(&attr);
        pthread_attr_setdetachstate(&attr, PTHREAD_CREATE_DETACHED);
    }
    ~ThreadAttributes() { pthread_attr_destroy(&attr); }
    ThreadAttributes(const ThreadAttributes&) = delete;
    ThreadAttributes& operator=(const ThreadAttributes&) = delete;
};

// What the "fmt " chunk says, as far as the playback uses it.
struct WaveFormat {
    unsigned channels = 0;
    unsigned rate = 0;
    unsigned bits = 0;
};

std::uint32_t le16(const unsigned char* p) { return p[0] | static_cast<std::uint32_t>(p[1]) << 8; }
std::uint32_t le32(const unsigned char* p) { return le16(p) | le16(p + 2) << 16; }

// Forward by @p n bytes in steps a 32-bit long can hold, so that a huge chunk
// size can never turn into a step backwards.
bool skip(std::FILE* f, std::uint32_t n) {
    constexpr std::uint32_t kStep = 1u << 30;
    while (n > 0) {
        const std::uint32_t step = n < kStep ? n : kStep;
        if (std::fseek(f, static_cast<long>(step), SEEK_CUR) != 0) return false;
        n -= step;
    }
    return true;
}

// Walks the chunks after the RIFF header and leaves the file on the first
// sample. Chunks are skipped by their size alone, without the pad byte of
// odd sizes. False when a chunk header cannot be read before "data".
bool find_samples(std::FILE* f, WaveFormat& format) {
    if (std::fseek(f, kRiffHeaderSize, SEEK_CUR) != 0) return false;
    for (;;) {
        std::array<unsigned char, 8> header{};
        if (std::fread(header.data(), 1, header.size(), f) != header.size()) return false;
        const std::uint32_t size = le32(&header[4]);
        if (std::memcmp(header.data(), "data", 4) == 0) return true;
        if (std::memcmp(header.data(), "fmt ", 4) == 0) {
            // Only the first 16 bytes count, however long the chunk is.
            std::array<unsigned char, 16> fmt{};
            if (std::fread(fmt.data(), 1, fmt.size(), f) != fmt.size()) return false;
            format.channels = le16(&fmt[2]);
            format.rate = le32(&fmt[4]);
            format.bits = le16(&fmt[14]);
            if (size > fmt.size() && !skip(f, size - static_cast<std::uint32_t>(fmt.size()))) return false;
        } else if (!skip(f, size)) {
            return false;
        }
    }
}

// A device that refuses every write would turn the loop into a busy one:
// after a failed write the thread waits as long as the buffer takes to play.
void wait_one_buffer(unsigned frames, unsigned rate) {
    if (rate == 0) return;
    const std::uint64_t ns = std::uint64_t{frames} * 1000000000u / rate;
    timespec ts{static_cast<time_t>(ns / 1000000000u), static_cast<long>(ns % 1000000000u)};
    while (nanosleep(&ts, &ts) != 0 && errno == EINTR) {
    }
}

void play_sample(std::FILE* file, const WaveFormat& format) {
    pcm_config config{};
    config.channels = format.channels;
    config.rate = format.rate;
    config.period_size = kPeriodSize;
    config.period_count = kPeriodCount;
    config.format = format.bits == 32 ? PCM_FORMAT_S32_LE : PCM_FORMAT_S16_LE;
    UniquePcm pcm(pcm_open(kCard, kToneDevice, PCM_OUT, &config));
    if (!pcm.valid() || !pcm_is_ready(pcm.get())) {
        ft::async_printf("play_sample : Unable to open PCM device %u (%s)\n", kToneDevice,
                         pcm.valid() ? pcm_get_error(pcm.get()) : "no handle");
        return;
    }
    const unsigned frames = pcm_get_buffer_size(pcm.get());
    const unsigned size = pcm_frames_to_bytes(pcm.get(), frames);
    // An empty buffer would read nothing forever.
    std::unique_ptr<unsigned char[]> buffer(size > 0 ? new (std::nothrow) unsigned char[size] : nullptr);
    if (!buffer) {
        ft::async_printf("play_sample : Unable to allocate %d bytes\n", static_cast<int>(size));
        return;
    }
    if (tone_stop.load()) return;
    for (;;) {
        const std::size_t got = std::fread(buffer.get(), 1, size, file);
        if (got > 0) {
            if (pcm_write(pcm.get(), buffer.get(), static_cast<unsigned>(got)) != 0) {
                ft::async_print("Error playing tone\n");
                wait_one_buffer(frames, format.rate);
            } else if (!tone_stop.load()) {
                continue;
            }
        }
        // Back to the very first byte, not the first sample: later passes
        // play the header and chunk bytes as samples too.
        std::rewind(file);
        if (tone_stop.load()) return;
    }
}

void* play_thread(void*) {
    pthread_setname_np(pthread_self(), "tone");
    ft::UniqueFile file(std::fopen(kToneFile, "rb"));
    if (!file.valid()) {
        ft::async_printf("play_thread : Unable to open file '%s'\n", kToneFile);
        return nullptr;
    }
    WaveFormat format;
    if (find_samples(file.get(), format)) play_sample(file.get(), format);
    return nullptr;
}

int start_tone(unsigned output) {
    constexpr const char* who = "audio_tone: ";
    ThreadAttributes attributes;
    tone_stop.store(false);
    tone_device = static_cast<int>(output);
    if (!set_output_mixer(who, out_mixer[output], out_switch[kDacRight], 1)) return -1;
    if (!enable_output(who, output)) return -1;
    // No check for a tone already playing: a second start starts another thread.
    pthread_t thread{};
    if (pthread_create(&thread, &attributes.attr, play_thread, nullptr) != 0) {
        std::puts("audio_tone : Error creating thread");
        return -1;
    }
    return 1;
}

// Returns at once; the thread notices the flag after the write in progress.
// The output mixer's DAC switch stays on.
int stop_tone(unsigned output) {
    tone_stop.store(true);
    if (!disable_output("audio_tone: ", output)) return -1;
    tone_device = -1;
    return 1;
}

}  // namespace

int audio_tone(const char* action, const char* device) {
    if (action[0] == '\0') {
        std::puts(kBadAction);
        return -1;
    }
    // Without a device word, the output of the tone last started.
    const int output = device[0] == '\0' ? tone_device : ft::word_to_int(device);
    // Taken as unsigned, so that -1 (none recorded) and negative numbers fail too.
    if (static_cast<unsigned>(output) >= kOutputs) {
        std::puts(kBadOutput);
        return -1;
    }
    switch (ft::word_to_int(action)) {
    case 1: return start_tone(static_cast<unsigned>(output));
    case 0: return stop_tone(static_cast<unsigned>(output));
    default: std::puts(kBadAction); return -1;
    }
}
