#pragma once
/* The phone's ALSA access library, as far as the factory shell uses it: the
 * mixer of a sound card and playback on a PCM device. Names, numbers and
 * signatures are the phone's own, so the same code builds against its library.
 *
 * PCM results follow the phone's library: pcm_open never returns null (test
 * pcm_is_ready and pass every handle to pcm_close); pcm_write returns 0 on
 * success and non-zero on failure, with the text in pcm_get_error. */
#ifdef __cplusplus
extern "C" {
#endif

/* --- PCM devices. */

struct pcm;

#define PCM_OUT 0x00000000
#define PCM_IN 0x10000000
#define PCM_MMAP 0x00000001
#define PCM_NOIRQ 0x00000002
#define PCM_NORESTART 0x00000004
#define PCM_MONOTONIC 0x00000008

enum pcm_format {
    PCM_FORMAT_INVALID = -1,
    PCM_FORMAT_S16_LE = 0, /* 16-bit signed */
    PCM_FORMAT_S32_LE,     /* 32-bit signed */
    PCM_FORMAT_S8,         /* 8-bit signed */
    PCM_FORMAT_S24_LE,     /* 24 bits in 4 bytes */
    PCM_FORMAT_S24_3LE,    /* 24 bits in 3 bytes */
    PCM_FORMAT_MAX,
};

/** Stream configuration. A threshold of 0 takes the library's default: start
 * and stop at period_count * period_size frames, no silence filling. Zero the
 * whole struct before setting fields by name. */
struct pcm_config {
    unsigned int channels;
    unsigned int rate;
    unsigned int period_size;  /* frames */
    unsigned int period_count;
    enum pcm_format format;
    unsigned int start_threshold;
    unsigned int stop_threshold;
    unsigned int silence_threshold;
    unsigned int silence_size;
    int avail_min;
};

/** Opens PCM @p device of sound card @p card with @p config; @p flags is
 * PCM_OUT for playback or PCM_IN for capture, or'ed with the PCM_* options.
 * Never null: a handle that could not be opened is not ready and carries the
 * reason in pcm_get_error. */
struct pcm* pcm_open(unsigned int card, unsigned int device, unsigned int flags, struct pcm_config* config);
/** Releases a handle from pcm_open, ready or not. Returns 0. */
int pcm_close(struct pcm* pcm);
/** 1 when the handle was opened and configured, else 0. */
int pcm_is_ready(struct pcm* pcm);
/** The text of the handle's last error ("" when none). Valid until the next
 * call on the handle. */
const char* pcm_get_error(struct pcm* pcm);
/** The device's buffer size in frames. */
unsigned int pcm_get_buffer_size(struct pcm* pcm);
/** @p frames expressed in bytes for the handle's channels and sample format. */
unsigned int pcm_frames_to_bytes(struct pcm* pcm, unsigned int frames);
/** Plays @p count bytes of interleaved frames (a partial last frame is not
 * played). Blocks while the device's buffer is full, so a stream paces its
 * writer at the sample rate. Returns 0, or non-zero with pcm_get_error set. */
int pcm_write(struct pcm* pcm, const void* data, unsigned int count);

/* --- Mixer controls. */

struct mixer;
struct mixer_ctl;

/** The mixer of sound card @p card, or null when the card has none. */
struct mixer* mixer_open(unsigned int card);
/** The control named exactly @p name, or null when the card has none of that
 * name. Valid as long as its mixer. */
struct mixer_ctl* mixer_get_ctl_by_name(struct mixer* mixer, const char* name);
/** How many values the control holds (2 for a stereo control, 1 for a mono one). */
unsigned int mixer_ctl_get_num_values(struct mixer_ctl* ctl);
/** Sets value @p id of the control to @p value. 0 on success; -EINVAL for an
 * @p id the control does not have; -1 with errno EINVAL for a value outside
 * the control's range. */
int mixer_ctl_set_value(struct mixer_ctl* ctl, unsigned int id, int value);

#ifdef __cplusplus
}
#endif
