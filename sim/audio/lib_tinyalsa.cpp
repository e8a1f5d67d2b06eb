// The phone's ALSA library, replaced: the codec's mixer is the state file
// hw/audio/mixer that ftsim lays out at power-up, and PCM device 5 of card 0
// plays like the hardware: a write returns at once while the device's buffer
// has room and otherwise waits for the time its frames take to play, so a
// player is paced by the sample rate and costs almost no CPU. What the device
// plays since its last open is kept in hw/audio/pcm5.raw for `ftsim audio`.
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <new>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

#pragma GCC visibility push(default)
#include <tinyalsa/asoundlib.h>
#pragma GCC visibility pop

#include "common/unique_handle.h"
#include "sim/audio/codec.h"
#include "sim/core/state.h"

namespace codec = ftsim::audio;

struct mixer_ctl {
    const codec::Control* control;
    std::array<std::size_t, 2> offset;
};

struct mixer {
    std::vector<mixer_ctl> ctls;  // never resized after mixer_open: handles point into it
};

struct pcm {
    bool ready = false;
    std::string error;
    const codec::SampleFormat* format = nullptr;
    unsigned channels = 0, rate = 0, buffer_frames = 0, start_frames = 0;
    ft::UniqueFd lock;  // the device is one player's at a time
    ft::UniqueFd data;  // what it played
    std::uint64_t recorded = 0, record_limit = 0;
    // The stream as the hardware runs it: it starts when the start threshold
    // is queued and plays rate frames a second from then on.
    bool running = false;
    std::int64_t started_ns = 0;
    std::uint64_t queued = 0;  // frames written since the stream (re)started
};

namespace {

constexpr unsigned kCard = 0;
constexpr unsigned kPlaybackDevice = 5;
constexpr std::array<unsigned, 9> kRates{8000, 11025, 16000, 22050, 32000, 44100, 48000, 88200, 96000};
constexpr std::int64_t kNanos = 1000000000;

// Handed out when not even a failed handle can be allocated; made at load
// time and never destroyed, like the handles a thread may still hold at exit.
pcm* const g_unallocated = new pcm;

std::string errno_text(const std::string& what) { return what + ": " + std::strerror(errno); }

std::string node_name(unsigned card, unsigned device, unsigned flags) {
    char name[48];
    std::snprintf(name, sizeof name, "/dev/snd/pcmC%uD%u%c", card, device, (flags & PCM_IN) ? 'c' : 'p');
    return name;
}

// A handle that is not ready, with the reason as the phone's library words it.
pcm* failed(std::string error) {
    pcm* p = new (std::nothrow) pcm;
    if (p == nullptr) return g_unallocated;
    p->error = std::move(error);
    return p;
}

pcm* cannot_open(unsigned card, unsigned device, unsigned flags) {
    return failed(errno_text("cannot open device '" + node_name(card, device, flags) + "'"));
}

std::int64_t now_ns() {
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<std::int64_t>(ts.tv_sec) * kNanos + ts.tv_nsec;
}

// Frames played in @p ns at @p rate, and the time @p frames take; split so
// that a stream playing for days does not overflow.
std::uint64_t frames_in(std::int64_t ns, unsigned rate) {
    if (ns <= 0) return 0;
    const auto secs = static_cast<std::uint64_t>(ns / kNanos), rest = static_cast<std::uint64_t>(ns % kNanos);
    return secs * rate + rest * rate / kNanos;
}
std::int64_t time_of(std::uint64_t frames, unsigned rate) {
    return static_cast<std::int64_t>(frames / rate) * kNanos +
           static_cast<std::int64_t>((frames % rate) * kNanos / rate);
}

void sleep_until(std::int64_t deadline_ns) {
    const timespec ts{static_cast<time_t>(deadline_ns / kNanos), static_cast<long>(deadline_ns % kNanos)};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &ts, nullptr) == EINTR) {
    }
}

bool write_all(int fd, const unsigned char* p, std::size_t n) {
    while (n > 0) {
        const ssize_t w = write(fd, p, n);
        if (w < 0 && errno == EINTR) continue;
        if (w <= 0) return false;
        p += w;
        n -= static_cast<std::size_t>(w);
    }
    return true;
}

bool rate_supported(unsigned rate) {
    for (unsigned r : kRates)
        if (r == rate) return true;
    return false;
}

}  // namespace

extern "C" pcm* pcm_open(unsigned int card, unsigned int device, unsigned int flags, pcm_config* config) {
    FTSIM_FAILURE_POINT_RETURNING(cannot_open(card, device, flags));
    const ftsim::Folder hw = ftsim::hw();
    // Without the codec the card has no devices at all.
    if (card != kCard || device != kPlaybackDevice || (flags & PCM_IN) || !hw.exists(codec::kMixerFile, ftsim::Type::File)) {
        errno = ENOENT;
        return cannot_open(card, device, flags);
    }
    hw.make_dirs("audio");
    ft::UniqueFd lock = hw.open_at(codec::kPcmLockFile, O_RDWR | O_CREAT, ftsim::Type::File);
    if (!lock.valid()) return cannot_open(card, device, flags);
    if (flock(lock.get(), LOCK_EX | LOCK_NB) != 0) {
        errno = errno == EWOULDBLOCK ? EBUSY : errno;
        return cannot_open(card, device, flags);
    }
    const codec::SampleFormat* format = config ? codec::find_format(static_cast<int>(config->format)) : nullptr;
    if (format == nullptr || config->channels < 1 || config->channels > 2 || !rate_supported(config->rate) ||
        config->period_size < 16 || config->period_size > 8192 || config->period_count < 2 ||
        config->period_count > 32) {
        errno = EINVAL;
        return failed(errno_text("cannot set hw params"));
    }
    pcm* p = new (std::nothrow) pcm;
    if (p == nullptr) {
        errno = ENOMEM;
        return failed(errno_text("cannot set hw params"));
    }
    p->format = format;
    p->channels = config->channels;
    p->rate = config->rate;
    p->buffer_frames = config->period_size * config->period_count;
    p->start_frames = config->start_threshold == 0 || config->start_threshold > p->buffer_frames
                          ? p->buffer_frames
                          : config->start_threshold;
    p->record_limit = codec::record_bytes(*format, p->channels, p->rate);
    p->lock = std::move(lock);
    p->data = hw.open_at(codec::kPcmDataFile, O_WRONLY | O_CREAT | O_TRUNC, ftsim::Type::File);
    const std::string text = codec::format_text(*format, p->channels, p->rate);
    hw.write_atomic(codec::kPcmFormatFile, text + "\n");
    ftsim::set_observed("pcm.5", text);
    p->ready = true;
    return p;
}

extern "C" int pcm_close(pcm* p) {
    FTSIM_FAILURE_POINT();
    if (p == nullptr || p == g_unallocated) return 0;
    // Marked closed while the device is still held: marked after letting go,
    // it could be marked closed after the next player had opened it. Whoever
    // waits to open it next also waits for the lock (ftsim audio --wait).
    if (p->ready) ftsim::set_observed("pcm.5", "closed");
    delete p;
    return 0;
}

extern "C" int pcm_is_ready(pcm* p) {
    FTSIM_FAILURE_POINT();
    return p != nullptr && p->ready ? 1 : 0;
}

extern "C" const char* pcm_get_error(pcm* p) {
    FTSIM_FAILURE_POINT_RETURNING("");
    return p != nullptr ? p->error.c_str() : "";
}

extern "C" unsigned int pcm_get_buffer_size(pcm* p) {
    FTSIM_FAILURE_POINT();
    return p != nullptr ? p->buffer_frames : 0;
}

extern "C" unsigned int pcm_frames_to_bytes(pcm* p, unsigned int frames) {
    FTSIM_FAILURE_POINT();
    if (p == nullptr || p->format == nullptr) return 0;
    return frames * p->channels * p->format->bytes;
}

extern "C" int pcm_write(pcm* p, const void* data, unsigned int count) {
    FTSIM_FAILURE_POINT();
    if (p == nullptr || !p->ready) {
        errno = EBADF;
        if (p != nullptr && p != g_unallocated) p->error = errno_text("cannot write stream data");
        return -1;
    }
    const unsigned frame_bytes = p->channels * p->format->bytes;
    const unsigned frames = count / frame_bytes;
    if (frames == 0) return 0;
    const std::int64_t now = now_ns();
    // A writer that fell behind finds the buffer played out: the device
    // stopped (an underrun), and the library prepares it and starts afresh.
    if (p->running && frames_in(now - p->started_ns, p->rate) >= p->queued) {
        p->running = false;
        p->queued = 0;
    }
    p->queued += frames;
    if (!p->running && p->queued >= p->start_frames) {
        p->running = true;
        p->started_ns = now;
    }
    // The last of these frames enters the buffer once all but a buffer's
    // worth of what was queued has played.
    if (p->running && p->queued > p->buffer_frames)
        sleep_until(p->started_ns + time_of(p->queued - p->buffer_frames, p->rate));
    if (p->data.valid() && p->recorded < p->record_limit) {
        const std::uint64_t room = p->record_limit - p->recorded;
        const std::uint64_t n = std::min<std::uint64_t>(room, std::uint64_t{frames} * frame_bytes);
        if (write_all(p->data.get(), static_cast<const unsigned char*>(data), n)) p->recorded += n;
    }
    return 0;
}

extern "C" mixer* mixer_open(unsigned int card) {
    FTSIM_FAILURE_POINT_RETURNING(nullptr);
    if (card != kCard) {
        errno = ENODEV;
        return nullptr;
    }
    std::string text;
    if (!ftsim::read_text(codec::kMixerFile, text)) return nullptr;
    std::vector<codec::ControlState> states;
    if (!codec::parse_mixer(text, states)) {
        errno = EIO;
        return nullptr;
    }
    mixer* m = new (std::nothrow) mixer;
    if (m == nullptr) {
        errno = ENOMEM;
        return nullptr;
    }
    m->ctls.reserve(states.size());
    for (const codec::ControlState& s : states) m->ctls.push_back({s.control, s.offset});
    return m;
}

extern "C" mixer_ctl* mixer_get_ctl_by_name(mixer* m, const char* name) {
    FTSIM_FAILURE_POINT_RETURNING(nullptr);
    if (m == nullptr || name == nullptr) return nullptr;
    for (mixer_ctl& c : m->ctls)
        if (std::strcmp(c.control->name, name) == 0) return &c;
    return nullptr;
}

extern "C" unsigned int mixer_ctl_get_num_values(mixer_ctl* ctl) {
    FTSIM_FAILURE_POINT();
    return ctl != nullptr ? ctl->control->values : 0;
}

extern "C" int mixer_ctl_set_value(mixer_ctl* ctl, unsigned int id, int value) {
    FTSIM_FAILURE_POINT();
    if (ctl == nullptr || id >= ctl->control->values) return -EINVAL;
    if (value < 0 || value > ctl->control->max) {
        errno = EINVAL;
        return -1;
    }
    std::array<char, 16> digits{};  // the range check above keeps it to kValueWidth
    std::snprintf(digits.data(), digits.size(), "%*d", static_cast<int>(codec::kValueWidth), value);
    // In place, like a register write: a control never disturbs its neighbours,
    // whoever else sets them meanwhile.
    ft::UniqueFd fd = ftsim::hw().open_at(codec::kMixerFile, O_WRONLY, ftsim::Type::File);
    if (!fd.valid() || pwrite(fd.get(), digits.data(), codec::kValueWidth, static_cast<off_t>(ctl->offset[id])) !=
                           static_cast<ssize_t>(codec::kValueWidth))
        return -1;
    return 0;
}
