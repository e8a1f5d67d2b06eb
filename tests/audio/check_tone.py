#!/usr/bin/env python3
"""The dial tone as PCM device 5 played it, from the recordings `ftsim audio` writes (kept in the working
folder); other files; the tone thread's failures; starts and stops in a row (for the ThreadSanitizer)."""
import argparse
import math
import os
import re
import struct
import sys
import tempfile
import time
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "shell"))
import phone  # noqa: E402

ARGS = None
BUFFER_FRAMES = 160 * 4  # the tone's period size times its period count
BUSY = (rb"play_sample : Unable to open PCM device 5 \(cannot open device '/dev/snd/pcmC0D5p': "
        rb"Device or resource busy\)\n")


def goertzel(samples, rate, freq):
    """Power of @p freq in @p samples, per sample squared."""
    k = 2 * math.cos(2 * math.pi * freq / rate)
    s1 = s2 = 0.0
    for x in samples:
        s1, s2 = x + k * s1 - s2, s1
    return (s1 * s1 + s2 * s2 - k * s1 * s2) / (len(samples) ** 2)


def parse_wav(data):
    """(channels, rate, bits, offset of the first sample) the way the tone thread reads a file."""
    pos, fmt = 12, (0, 0, 0)
    while pos + 8 <= len(data):
        cid, size = data[pos:pos + 4], struct.unpack_from("<I", data, pos + 4)[0]
        pos += 8
        if cid == b"data":
            return fmt + (pos,)
        if cid == b"fmt ":
            fmt = struct.unpack_from("<2xHI6xH", data, pos)
        pos += size
    raise ValueError("no data chunk")


def one_pass(tone, frame_bytes, start):
    """A pass over the file from @p start as the device plays it: of each read of a buffer, its whole frames."""
    step = BUFFER_FRAMES * frame_bytes
    pieces = (tone[at:at + step] for at in range(start, len(tone), step))
    return b"".join(p[:len(p) - len(p) % frame_bytes] for p in pieces)


def played(tone, frame_bytes, length, start=None):
    """The first @p length bytes played: a pass from the first sample (or @p start), then over the whole file."""
    out = one_pass(tone, frame_bytes, parse_wav(tone)[3] if start is None else start)
    while len(out) < length:
        out += one_pass(tone, frame_bytes, 0)
    return out[:length]


def make_wav(channels, rate, bits, body, fmt_size, extra_chunk=b""):
    """A WAV file with the given "fmt " size and chunk before "data" (no pad byte after it)."""
    width = bits // 8
    fmt = struct.pack("<HHIIHH", 1, channels, rate, rate * channels * width, channels * width, bits)
    chunks = (b"fmt " + struct.pack("<I", fmt_size) + fmt.ljust(fmt_size, b"\0") + extra_chunk + b"data" +
              struct.pack("<I", len(body)) + body)
    return b"RIFF" + struct.pack("<I", 4 + len(chunks)) + b"WAVE" + chunks


class Shell(phone.Shell):
    """The shell on a pipe; expect() and run() look only at what came after the last match."""

    def __init__(self, test):
        super().__init__(test.phone)
        test.addCleanup(self.close)
        self.pos = 0
        self.expect(rb"ft>")

    def expect(self, pattern):
        regex = re.compile(pattern, re.S)
        match = regex.search(self.wait_for(lambda out: regex.search(out, self.pos)), self.pos)
        self.pos = match.end()
        return match

    def run(self, command):
        """Types @p command; returns what it printed before the next prompt."""
        self.send(command.encode() + b"\n")
        return self.expect(re.escape(command.encode()) + rb"\n(.*?)ft>").group(1)

    def quit(self, test):
        self.send(b"q\n")
        test.assertEqual(self.finish(), 0)
        test.assertEqual(self.err.data, b"")

    def close(self):
        if self.proc.poll() is None:
            self.proc.kill()
        self.finish()
        self.proc.stdout.close()
        self.proc.stderr.close()


class Tone(unittest.TestCase):
    def setUp(self):
        self.phone = phone.Phone(ARGS.ftsim)
        self.addCleanup(self.phone.__exit__)
        self.ftsim = self.phone.ftsim

    def recording(self, name):
        """(channels, rate, bits, samples) of what PCM device 5 played, written to @p name."""
        self.ftsim("audio", name)
        with open(name, "rb") as f:
            wav = f.read()
        channels, rate, bits, start = parse_wav(wav)
        return channels, rate, bits, wav[start:]

    def put_tone(self, data):
        """The dial tone file of a phone powered up with audio.dialtone other than the default."""
        with open(os.path.join(self.phone.state, "hw", "audio", "ui", "dialtone.wav"), "wb") as f:
            f.write(data)

    def wait_no_tone_thread(self):
        deadline = time.monotonic() + phone.TIMEOUT
        while self.ftsim("exec", "--", "sh", "-c", "grep -lx tone /proc/[0-9]*/task/*/comm; true"):
            self.assertLess(time.monotonic(), deadline, "tone threads still running")
            time.sleep(0.05)

    def play(self, sh, command, seconds, frame_bytes, opened="S16_LE 1ch 8000Hz"):
        """Plays a tone for @p seconds once the device is open with the format @p opened, and waits for its end.
        Returns (start, device open, stop typed, end) times and `ftsim show` while it played."""
        t0 = time.monotonic()
        self.assertEqual(sh.run(command), b"")
        self.ftsim("audio", "--wait", "open")
        t1 = time.monotonic()
        show = self.ftsim("show").decode()
        self.assertRegex(show, rf"pcm 5: {opened}, \d+\.\d{{3}} s played\n")
        time.sleep(seconds)
        t2 = time.monotonic()
        self.assertEqual(sh.run("tone 0"), b"")
        raw = os.path.join(self.phone.state, "hw", "audio", "pcm5.raw")
        at_stop = os.path.getsize(raw)
        self.ftsim("audio", "--wait", "closed")
        # The thread notices the stop after the write it is in: at most one buffer more reaches the device.
        self.assertLessEqual(os.path.getsize(raw) - at_stop, BUFFER_FRAMES * frame_bytes)
        self.assertRegex(self.ftsim("show").decode(), rf"pcm 5: closed, \d+\.\d{{3}} s played as {opened}\n")
        return (t0, t1, t2, time.monotonic()), show

    def check_bytes(self, recorded, tone, frame_bytes):
        self.assertEqual(recorded, played(tone, frame_bytes, len(recorded)), "not the file read pass after pass")
        first_pass = len(one_pass(tone, frame_bytes, parse_wav(tone)[3]))
        self.assertGreater(len(recorded), first_pass + 44, "the tone did not play into its second pass")

    def test_dial_tone(self):
        tone = ARGS.dialtone
        self.assertEqual(parse_wav(tone)[:3], (1, 8000, 16))
        sh = Shell(self)
        # Start-up leaves every volume at 118 but the DAC's at 100, every switch off.
        self.assertEqual([line for line in self.ftsim("mixer").decode().splitlines()
                          if not re.search(r"Volume: 118( 118)?$|Switch: 0( 0)?$", line)],
                         ["PCM Playback Volume: 100 100"])
        sh.run("loop 1 0 2")
        show = self.ftsim("show").decode()
        self.assertIn("loop: handset mic -> speakerphone\ntone: none\nhandset gain: PCM Playback Volume 100 100, "
                      "amplifier enable 1 gain 0\npcm 5: closed, nothing played yet\n", show)
        sh.run("loop 0")
        sh.run("section508 1")
        (t0, _, _, t3), show = self.play(sh, "tone 1 3", 2.5, 2)
        self.assertIn("loop: none\ntone: 3.5 mm headset\n"
                      "handset gain: PCM Playback Volume 127 127, amplifier enable 1 gain 1\n", show)
        sh.quit(self)
        rate, data = 8000, self.recording("dialtone-recorded.wav")[3]
        # A write waits while the buffer is full: no more than the time it played and one buffer ahead.
        # That it played on is check_bytes' second pass.
        seconds = len(data) / (rate * 2)
        self.assertLessEqual(seconds, (t3 - t0) + BUFFER_FRAMES / rate)
        self.check_bytes(data, tone, 2)
        first = struct.unpack_from(f"<{rate}h", data)
        for other in (480, 620, 1000):
            self.assertGreater(min(goertzel(first, rate, 350), goertzel(first, rate, 440)),
                               1000 * goertzel(first, rate, other), f"no dial tone: {other} Hz is as strong")

    def test_other_files_and_failures(self):
        # 32 bits stereo at 16 kHz, its "fmt " chunk 18 bytes long and an odd-sized chunk before "data" without
        # a pad byte; then 8 bits, played as 16, of an odd length so that each pass ends on half a frame.
        tone32 = make_wav(2, 16000, 32, bytes(range(256)) * 100, 18, b"LIST\5\0\0\0INFOx")
        tone8 = make_wav(1, 8000, 8, bytes(range(256)) * 6 + bytes(65), 16)
        # The phone keeps its copy, whatever becomes of the file.
        with tempfile.NamedTemporaryFile() as f:
            f.write(tone32)
            f.flush()
            self.ftsim("set", "audio.dialtone", f.name)
        sh = Shell(self)
        for tone, opened, fmt, frame_bytes in ((tone32, "S32_LE 2ch 16000Hz", (2, 16000, 32), 8),
                                               (tone8, "S16_LE 1ch 8000Hz", (1, 8000, 16), 2)):
            if tone is tone8:
                self.put_tone(tone8)
            self.play(sh, "tone 1 0", 0.6, frame_bytes, opened)
            channels, rate, bits, data = self.recording(f"recorded-{len(tone)}.wav")
            self.assertEqual((channels, rate, bits), fmt)
            self.check_bytes(data, tone, frame_bytes)
        # The thread's failures leave the shell going.
        os.remove(os.path.join(self.phone.state, "hw", "audio", "ui", "dialtone.wav"))
        sh.send(b"tone 1 2\n")
        sh.expect(rb"play_thread : Unable to open file '/system/media/audio/ui/dialtone\.wav'\n")
        sh.run("tone 0")
        # No "data" chunk: the thread ends without a word and without opening the device.
        self.put_tone(b"RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x80\x3e\0\0\x02\0\x10\0")
        sh.run("tone 1 2")
        self.wait_no_tone_thread()
        self.assertNotIn(b"play_", sh.out.data[sh.pos:])
        sh.run("tone 0")
        # No "fmt " chunk: no channels and no rate.
        self.put_tone(b"RIFF\x10\0\0\0WAVEdata\x04\0\0\0\x01\x02\x03\x04")
        sh.send(b"tone 1 2\n")
        sh.expect(rb"play_sample : Unable to open PCM device 5 \(cannot set hw params: Invalid argument\)\n")
        sh.run("tone 0")

        tone = ARGS.dialtone
        self.put_tone(tone)
        for point, line in (("pcm_open", BUSY), ("pcm_get_buffer_size", rb"play_sample : Unable to allocate 0 bytes\n")):
            self.ftsim("fail", point, "0", "EBUSY")
            sh.send(b"tone 1 2\n")
            sh.expect(line)
            self.ftsim("unfail", "all")
            sh.run("tone 0")
            self.assertEqual(self.ftsim("get", "pcm.5"), b"closed\n", point)
        # A second start while the first plays finds the device busy; the first plays on until the stop.
        sh.run("tone 1 2")
        self.ftsim("audio", "--wait", "open")
        sh.send(b"tone 1 2\n")
        sh.expect(BUSY)
        self.assertEqual(self.ftsim("get", "pcm.5"), b"S16_LE 1ch 8000Hz\n")
        # Writes that fail are reported a buffer's time (80 ms) apart, not in a busy loop, and playing goes on
        # from the file's very first byte once they work again.
        self.ftsim("fail", "pcm_write", "-1", "EIO")
        sh.expect(rb"Error playing tone\n")
        errors_from, started = sh.pos, time.monotonic()
        time.sleep(0.5)
        self.ftsim("unfail", "all")
        # Bounded by the time that passed, so that a slow machine only lowers the count.
        errors = sh.out.data[errors_from:].count(b"Error playing tone\n")
        self.assertLessEqual(errors, (time.monotonic() - started) / (BUFFER_FRAMES / 8000) + 1)
        time.sleep(0.5)
        sh.run("tone 0")
        self.ftsim("audio", "--wait", "closed")
        sh.quit(self)
        data = self.recording("recorded-after-errors.wav")[3]
        model = played(tone, 2, len(data))
        differs = next((i for i in range(len(data)) if data[i] != model[i]), None)
        if differs is not None:
            resumed = data.rfind(tone[:44], 0, differs + 44)
            self.assertGreaterEqual(resumed, 0)
            self.assertEqual(data[resumed:], played(tone, 2, len(data) - resumed, start=0))

    def test_thread_not_created(self):
        # A stack limit no thread's stack can be mapped for (only the main thread's grows on demand).
        if "thread" in ARGS.sanitize:
            self.skipTest("ThreadSanitizer cannot lay out its memory under such a stack limit")
        out = self.ftsim("exec", "--", "sh", "-c", "ulimit -s 1000000000 && echo 'tone 1 2' | /system/bin/ft")
        self.assertIn(b"ft>tone 1 2\naudio_tone : Error creating thread\nft>", out)
        self.assertEqual(self.ftsim("mixer", "Line Playback Switch"), b"1 0\n")

    def test_starts_and_stops_in_a_row(self):
        # Starts and stops without waiting: a start may find the device still held by the thread before it (and
        # say so), or clear the stop flag before that thread saw it; the last stop ends every thread. Then a
        # quit while a tone plays: the detached thread ends with the process.
        sh = Shell(self)
        prompts = 1
        for i in range(25):
            for command in (f"tone 1 {i % 4}", "tone 0"):
                sh.send(command.encode() + b"\n")
                prompts += 1
                sh.wait_for(lambda out: out.count(b"ft>") >= prompts)
        self.wait_no_tone_thread()
        self.assertEqual(self.ftsim("get", "pcm.5"), b"closed\n")
        sh.send(b"tone 1 2\n")
        self.ftsim("audio", "--wait", "open")
        sh.quit(self)
        lines = set(re.sub(BUSY + rb"|ft>", b"", sh.out.data).decode().splitlines())
        self.assertLessEqual(lines, {"", phone.BANNER.decode().strip(), "tone 0", "q"} |
                             {f"tone 1 {output}" for output in range(4)})


def main():
    global ARGS
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("--dialtone", required=True)
    ap.add_argument("--sanitize", default="")
    ARGS, rest = ap.parse_known_args()
    ARGS.ftsim = os.path.abspath(ARGS.ftsim)
    with open(ARGS.dialtone, "rb") as f:
        ARGS.dialtone = f.read()
    unittest.main(argv=[sys.argv[0]] + rest, verbosity=2)


if __name__ == "__main__":
    main()
