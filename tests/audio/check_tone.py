#!/usr/bin/env python3
"""The dial tone as PCM device 5 played it, checked from the recording that
`ftsim audio` writes: its format, its length against the time it played, its
bytes against the tone file (the first pass from the first sample on, later
passes from the file's very first byte), and its frequencies (Goertzel at the
dial tone's 350 Hz and 440 Hz against other tones). Also files of other
formats, the tone thread's failures while the shell goes on, and many starts
and stops in a row (the case the ThreadSanitizer build is run for).

The recordings are kept in the working folder (the build tree), the default
dial tone's as dialtone-recorded.wav.
"""
import argparse
import math
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest

FTSIM = None
DIALTONE = None
TIMEOUT = float(os.environ.get("FT_TRANSCRIPT_TIMEOUT", "20"))

TONE_FILE = "/system/media/audio/ui/dialtone.wav"
BUFFER_FRAMES = 160 * 4  # the tone's period size times its period count


class Shell:
    """The factory shell on a pipe, with its output kept for waiting on."""

    def __init__(self, argv):
        self.proc = subprocess.Popen(argv, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.PIPE)
        self.out = b""
        self.err = b""
        self.pos = 0
        self.cond = threading.Condition()
        self.closed = False
        self.readers = [threading.Thread(target=self._pump, args=(self.proc.stdout, "out"), daemon=True),
                        threading.Thread(target=self._pump, args=(self.proc.stderr, "err"), daemon=True)]
        for r in self.readers:
            r.start()

    def _pump(self, pipe, name):
        while True:
            chunk = os.read(pipe.fileno(), 65536)
            with self.cond:
                if not chunk:
                    if name == "out":
                        self.closed = True
                    self.cond.notify_all()
                    return
                setattr(self, name, getattr(self, name) + chunk)
                self.cond.notify_all()

    def wait_for(self, pattern, timeout=TIMEOUT):
        """Waits for @p pattern in what came after the last match; returns the match."""
        regex = re.compile(pattern.encode(), re.S)
        deadline = time.monotonic() + timeout
        with self.cond:
            while True:
                m = regex.search(self.out, self.pos)
                if m:
                    self.pos = m.end()
                    return m
                left = deadline - time.monotonic()
                if left <= 0 or self.closed:
                    raise AssertionError(f"no {pattern!r} in the shell's output:\n"
                                         f"{self.out[self.pos:].decode(errors='replace')}")
                self.cond.wait(left)

    def type(self, command):
        self.proc.stdin.write(command.encode() + b"\n")
        self.proc.stdin.flush()

    def run(self, command):
        """Types @p command and waits for the next prompt; returns what came between."""
        self.type(command)
        return self.wait_for(re.escape(command) + r"\n(.*?)ft>").group(1).decode()

    def shell_pid(self):
        """The factory shell's process, a descendant of the ftsim we started."""
        children = {}
        for entry in os.listdir("/proc"):
            if not entry.isdigit():
                continue
            try:
                with open(f"/proc/{entry}/stat") as f:
                    stat = f.read()
            except (OSError, ValueError):
                continue
            ppid = int(stat[stat.rfind(")") + 2:].split()[1])
            children.setdefault(ppid, []).append(int(entry))
        todo = [self.proc.pid]
        while todo:
            pid = todo.pop()
            try:
                with open(f"/proc/{pid}/comm") as f:
                    if f.read().strip() == "ft":
                        return pid
            except OSError:
                pass
            todo += children.get(pid, [])
        raise AssertionError("no factory shell among ftsim's descendants")

    def wait_no_tone_thread(self):
        """Waits until every tone thread (named "tone") has ended."""
        pid = self.shell_pid()
        deadline = time.monotonic() + TIMEOUT
        while True:
            names = []
            for task in os.listdir(f"/proc/{pid}/task"):
                try:
                    with open(f"/proc/{pid}/task/{task}/comm") as f:
                        names.append(f.read().strip())
                except OSError:
                    pass
            if "tone" not in names:
                return
            if time.monotonic() > deadline:
                raise AssertionError(f"tone threads still running: {names}")
            time.sleep(0.01)

    def wait_prompts(self, count):
        """Waits until the shell has shown @p count prompts in all: a tone
        thread's line may land anywhere, even inside the echo of a command."""
        deadline = time.monotonic() + TIMEOUT
        with self.cond:
            while self.out.count(b"ft>") < count:
                left = deadline - time.monotonic()
                if left <= 0 or self.closed:
                    raise AssertionError(f"the shell showed no prompt {count}:\n{self.out.decode(errors='replace')}")
                self.cond.wait(left)

    def quit(self):
        self.proc.stdin.write(b"q\n")
        self.proc.stdin.close()
        rc = self.proc.wait(timeout=TIMEOUT)
        self.close()
        return rc

    def close(self):
        if self.proc.poll() is None:
            self.proc.kill()
            self.proc.wait()
        for r in self.readers:
            r.join()
        for pipe in (self.proc.stdin, self.proc.stdout, self.proc.stderr):
            pipe.close()


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
            _, channels, rate, _, _, bits = struct.unpack_from("<HHIIHH", data, pos)
            fmt = (channels, rate, bits)
        pos += size
    raise ValueError("no data chunk")


def played_stream(tone, frame_bytes, length, start=None):
    """What the device plays from @p tone: reads of one buffer each, the first
    pass from the first sample (or from @p start), then passes over the whole
    file; of each read only whole frames are played."""
    start = parse_wav(tone)[3] if start is None else start
    buffer_bytes = BUFFER_FRAMES * frame_bytes
    out = bytearray()
    while len(out) < length:
        for at in range(start, len(tone), buffer_bytes):
            piece = tone[at:at + buffer_bytes]
            out += piece[:len(piece) - len(piece) % frame_bytes]
        start = 0
    return bytes(out[:length])


def make_wav(channels, rate, bits, samples, fmt_size=16, extra_chunk=b""):
    """A WAV file with the given "fmt " size and chunk before "data" (no pad byte after it)."""
    width = bits // 8
    if bits == 8:
        body = bytes((s + 128) & 0xFF for s in samples)
    else:
        body = b"".join(struct.pack("<i" if bits == 32 else "<h", s) for s in samples)
    fmt = struct.pack("<HHIIHH", 1, channels, rate, rate * channels * width, channels * width, bits)
    fmt += b"\0" * (fmt_size - 16)
    chunks = b"fmt " + struct.pack("<I", fmt_size) + fmt + extra_chunk + b"data" + struct.pack("<I", len(body)) + body
    return b"RIFF" + struct.pack("<I", 4 + len(chunks)) + b"WAVE" + chunks


def dial_tone_samples(rate, seconds, scale, channels=1):
    out = []
    for n in range(int(rate * seconds)):
        v = scale * 0.25 * (math.sin(2 * math.pi * 350 * n / rate) + math.sin(2 * math.pi * 440 * n / rate))
        out += [int(round(v))] * channels
    return out


class Phone:
    """A fresh phone of its own for each test."""

    def __init__(self):
        self.dir = tempfile.mkdtemp(prefix="ft-audio-")
        self.state = os.path.join(self.dir, "phone")
        self.ftsim("reset")

    def ftsim(self, *args, ok=True):
        res = subprocess.run([FTSIM, "--state", self.state, *args], capture_output=True, text=True,
                             timeout=TIMEOUT + 10)
        if ok is not None and (res.returncode == 0) != ok:
            raise AssertionError(f"ftsim {' '.join(args)} exited {res.returncode}: {res.stdout}{res.stderr}")
        return res.stdout

    def shell(self, test, argv=None):
        sh = Shell([FTSIM, "--state", self.state] + (argv or ["shell"]))
        test.addCleanup(sh.close)
        sh.wait_for(r"ft>")
        return sh

    def recording(self, name):
        """What PCM device 5 played, written to @p name in the working folder."""
        self.ftsim("audio", name)
        with open(name, "rb") as f:
            wav = f.read()
        channels, rate, bits, start = parse_wav(wav)
        return channels, rate, bits, wav[start:]

    def remove(self):
        shutil.rmtree(self.dir, ignore_errors=True)


class Tone(unittest.TestCase):
    def setUp(self):
        self.phone = Phone()
        self.addCleanup(self.phone.remove)

    def play(self, sh, command, seconds, frame_bytes, opened="S16_LE 1ch 8000Hz"):
        """Starts a tone, lets it play for @p seconds once the device is open
        (with the format @p opened), stops it and waits for its end. Returns
        (start, device open, stop typed, end) times."""
        t0 = time.monotonic()
        self.assertEqual(sh.run(command), "")
        self.phone.ftsim("audio", "--wait", "open")
        t1 = time.monotonic()
        self.assertEqual(self.phone.ftsim("get", "pcm.5"), opened + "\n")
        time.sleep(seconds)
        t2 = time.monotonic()
        self.assertEqual(sh.run("tone 0"), "")
        raw = os.path.join(self.phone.state, "hw", "audio", "pcm5.raw")
        at_stop = os.path.getsize(raw)
        self.phone.ftsim("audio", "--wait", "closed")
        # The thread notices the stop after the write it is in: at most one
        # buffer more reaches the device.
        self.assertLessEqual(os.path.getsize(raw) - at_stop, BUFFER_FRAMES * frame_bytes)
        return t0, t1, t2, time.monotonic()

    def check_bytes(self, recorded, tone, frame_bytes):
        """The recording is the tone file as the thread reads it, and it got into the second pass."""
        expected = played_stream(tone, frame_bytes, len(recorded))
        self.assertEqual(recorded[:256], expected[:256], "the first bytes are not the file's first samples")
        self.assertEqual(recorded, expected, "the recording is not the file read pass after pass")
        start = parse_wav(tone)[3]
        buffer_bytes = BUFFER_FRAMES * frame_bytes
        pass_one = sum(len(tone[a:a + buffer_bytes]) - len(tone[a:a + buffer_bytes]) % frame_bytes
                       for a in range(start, len(tone), buffer_bytes))
        self.assertGreater(len(recorded), pass_one + 44, "the tone did not play into its second pass")
        self.assertEqual(recorded[pass_one:pass_one + 44], tone[:44],
                         "the second pass does not start with the file's header bytes")

    def check_dial_tone(self, samples, rate):
        p350, p440 = goertzel(samples, rate, 350), goertzel(samples, rate, 440)
        for other in (480, 620, 1000):
            self.assertGreater(min(p350, p440), 1000 * goertzel(samples, rate, other),
                               f"the recording is no dial tone: {other} Hz is as strong")

    def test_dial_tone_recorded(self):
        with open(DIALTONE, "rb") as f:
            tone = f.read()
        self.assertEqual(parse_wav(tone)[:3], (1, 8000, 16))
        sh = self.phone.shell(self)
        t0, t1, t2, t3 = self.play(sh, "tone 1 2", 2.5, 2)
        self.assertEqual(sh.quit(), 0)
        self.assertEqual(sh.err, b"")
        channels, rate, bits, data = self.phone.recording("dialtone-recorded.wav")
        self.assertEqual((channels, rate, bits), (1, 8000, 16))
        seconds = len(data) / (rate * 2)
        # A write waits while the buffer is full: no more than the time it
        # played and one buffer ahead; and it really played on (a loose
        # lower bound, for loaded machines).
        self.assertLessEqual(seconds, (t3 - t0) + BUFFER_FRAMES / rate)
        self.assertGreater(seconds, 0.5 * (t2 - t1))
        self.check_bytes(data, tone, 2)
        first = struct.unpack_from(f"<{rate}h", data, 0)
        self.check_dial_tone(first, rate)

    def test_show_while_playing(self):
        sh = self.phone.shell(self)
        sh.run("loop 1 0 2")
        show = self.phone.ftsim("show")
        self.assertIn("loop: handset mic -> speakerphone\n", show)
        self.assertIn("tone: none\n", show)
        self.assertIn("pcm 5: closed, nothing played yet\n", show)
        sh.run("loop 0")
        sh.run("section508 1")
        sh.run("tone 1 3")
        self.phone.ftsim("audio", "--wait", "open")
        show = self.phone.ftsim("show")
        self.assertIn("loop: none\n", show)
        self.assertIn("tone: 3.5 mm headset\n", show)
        self.assertIn("handset gain: PCM Playback Volume 127 127, amplifier enable 1 gain 1\n", show)
        self.assertRegex(show, r"pcm 5: S16_LE 1ch 8000Hz, \d+\.\d{3} s played\n")
        sh.run("tone 0")
        self.phone.ftsim("audio", "--wait", "closed")
        show = self.phone.ftsim("show")
        self.assertIn("tone: none\n", show)
        self.assertRegex(show, r"pcm 5: closed, \d+\.\d{3} s played as S16_LE 1ch 8000Hz\n")
        self.assertEqual(sh.quit(), 0)

    def test_32_and_8_bit_files(self):
        # 32 bits stereo at 16 kHz, its "fmt " chunk 18 bytes long and an
        # odd-sized chunk before "data" without a pad byte; then 8 bits,
        # played as 16, with an odd number of bytes so that each pass ends on
        # half a frame.
        files = {
            "tone32.wav": (make_wav(2, 16000, 32, dial_tone_samples(16000, 0.2, 2 ** 31 - 1, channels=2),
                                    fmt_size=18, extra_chunk=b"LIST" + struct.pack("<I", 5) + b"INFOx"),
                           "S32_LE 2ch 16000Hz", (2, 16000, 32), 8),
            "tone8.wav": (make_wav(1, 8000, 8, dial_tone_samples(8000, 0.2, 127) + [0]), "S16_LE 1ch 8000Hz",
                          (1, 8000, 16), 2),
        }
        for name, (tone, opened, fmt, frame_bytes) in files.items():
            with self.subTest(file=name):
                path = os.path.join(self.phone.dir, name)
                with open(path, "wb") as f:
                    f.write(tone)
                self.phone.ftsim("set", "audio.dialtone", path)
                # The phone keeps its copy, whatever becomes of the file.
                os.remove(path)
                sh = self.phone.shell(self)
                self.play(sh, "tone 1 0", 0.6, frame_bytes, opened)
                self.assertEqual(self.phone.ftsim("get", "pcm.5"), "closed\n")
                self.assertEqual(sh.quit(), 0)
                channels, rate, bits, data = self.phone.recording("recorded-" + name)
                self.assertEqual((channels, rate, bits), fmt)
                self.check_bytes(data, tone, frame_bytes)
                if bits == 32:
                    left = struct.unpack_from(f"<{len(data) // 8 * 2}i", data, 0)[0:2 * 3200:2]
                    self.check_dial_tone(left, rate)

    def test_failures_leave_the_shell_going(self):
        self.phone.ftsim("set", "audio.dialtone", "none")
        sh = self.phone.shell(self)
        sh.type("tone 1 2")
        sh.wait_for(r"play_thread : Unable to open file '/system/media/audio/ui/dialtone\.wav'\n")
        self.assertEqual(sh.run("loop 0"), "Audio Loop not started!\n")
        sh.run("tone 0")
        self.assertEqual(sh.quit(), 0)
        self.phone.ftsim("audio", "x.wav", ok=False)

        self.phone.ftsim("set", "audio.dialtone", "default")
        sh = self.phone.shell(self)
        for point, result, line in (
                ("pcm_open", "0", r"play_sample : Unable to open PCM device 5 \(cannot open device "
                                  r"'/dev/snd/pcmC0D5p': Device or resource busy\)\n"),
                ("pcm_get_buffer_size", "0", r"play_sample : Unable to allocate 0 bytes\n")):
            with self.subTest(point=point):
                self.phone.ftsim("fail", point, result, "EBUSY")
                sh.type("tone 1 2")
                sh.wait_for(line)
                self.assertEqual(sh.run("loop 0"), "Audio Loop not started!\n")
                self.phone.ftsim("unfail", "all")
                self.assertEqual(sh.run("tone 0"), "")
                self.assertEqual(self.phone.ftsim("get", "pcm.5"), "closed\n")
        # A second start while the first plays finds the device busy; the
        # first plays on until the stop.
        sh.run("tone 1 2")
        self.phone.ftsim("audio", "--wait", "open")
        sh.type("tone 1 2")
        sh.wait_for(r"play_sample : Unable to open PCM device 5 \(cannot open device "
                    r"'/dev/snd/pcmC0D5p': Device or resource busy\)\n")
        self.assertEqual(self.phone.ftsim("get", "pcm.5"), "S16_LE 1ch 8000Hz\n")
        # Writes that fail are reported, and playing goes on from the very
        # start of the file once they work again.
        self.phone.ftsim("fail", "pcm_write", "-1", "EIO")
        sh.wait_for(r"Error playing tone\n")
        errors_from = sh.pos
        time.sleep(0.5)
        self.phone.ftsim("unfail", "all")
        # A try a buffer's time (80 ms), not a busy loop of them.
        self.assertIn(sh.out[errors_from:].count(b"Error playing tone\n"), range(1, 30))
        self.assertIn("Audio Loop not started!\n", sh.run("loop 0"))
        time.sleep(0.5)
        sh.run("tone 0")
        self.phone.ftsim("audio", "--wait", "closed")
        self.assertEqual(sh.quit(), 0)
        self.assertEqual(sh.err, b"")
        with open(DIALTONE, "rb") as f:
            tone = f.read()
        data = self.phone.recording("recorded-after-errors.wav")[3]
        model = played_stream(tone, 2, len(data))
        differs = next((i for i in range(len(data)) if data[i] != model[i]), None)
        if differs is not None:
            resumed = data.rfind(tone[:44], 0, differs + 44)
            self.assertGreater(resumed, 0)
            self.assertEqual(data[resumed:], played_stream(tone, 2, len(data) - resumed, start=0))

    def test_files_the_thread_cannot_play(self):
        cases = {
            # No "data" chunk: the thread ends without opening the device.
            "nodata.wav": (b"RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x80\x3e\0\0\x02\0\x10\0",
                           None),
            # No "fmt " chunk: no channels and no rate.
            "nofmt.wav": (b"RIFF\x10\0\0\0WAVEdata\x04\0\0\0\x01\x02\x03\x04",
                          r"play_sample : Unable to open PCM device 5 \(cannot set hw params: Invalid argument\)\n"),
        }
        for name, (tone, line) in cases.items():
            with self.subTest(file=name):
                path = os.path.join(self.phone.dir, name)
                with open(path, "wb") as f:
                    f.write(tone)
                self.phone.ftsim("set", "audio.dialtone", path)
                sh = self.phone.shell(self)
                sh.type("tone 1 2")
                if line:
                    sh.wait_for(line)
                self.assertEqual(sh.run("tone 0"), "")
                self.assertEqual(sh.quit(), 0)
                self.assertEqual(sh.out.count(b"play_"), 1 if line else 0)
                self.phone.ftsim("audio", "x.wav", ok=False)

    def test_the_phone_cannot_name_a_host_file(self):
        # The condition is the phone's to write too; only 'ftsim set' copies.
        canary = os.path.join(self.phone.dir, "canary.wav")
        with open(canary, "w") as f:
            f.write("host-secret-2b9c\n")
        self.phone.ftsim("exec", "--", "sh", "-c", f"echo {canary} > /sim/conditions/audio.dialtone")
        out = self.phone.ftsim("exec", "--", "sh", "-c", f"cat {TONE_FILE}; ls /system/media/audio/ui", ok=None)
        self.assertNotIn("host-secret", out)
        self.assertEqual(out, "")

    def test_thread_not_created(self):
        # A stack limit no thread's stack can be mapped for: only the main
        # thread's stack grows on demand.
        if "thread" in SANITIZE:
            self.skipTest("ThreadSanitizer cannot lay out its memory under such a stack limit")
        sh = self.phone.shell(self, ["exec", "--", "sh", "-c", "ulimit -s 1000000000 && exec /system/bin/ft"])
        self.assertEqual(sh.run("tone 1 2"), "audio_tone : Error creating thread\n")
        self.assertEqual(self.phone.ftsim("mixer", "Line Playback Switch"), "1 0\n")
        self.assertEqual(sh.quit(), 0)

    def test_starts_and_stops_in_a_row(self):
        # Starts and stops without waiting: a start may find the device still
        # held by the thread before it (and say so), or clear the stop flag
        # before that thread saw it; the last stop ends every thread. Then a
        # quit while a tone plays: the detached thread ends with the process.
        sh = self.phone.shell(self)
        prompts = sh.out.count(b"ft>")
        for i in range(25):
            for command in (f"tone 1 {i % 4}", "tone 0"):
                sh.type(command)
                prompts += 1
                sh.wait_prompts(prompts)
        # A thread started just before a stop may not have reached the
        # device yet: "closed" is not enough to know that all have ended.
        sh.wait_no_tone_thread()
        self.assertEqual(self.phone.ftsim("get", "pcm.5"), "closed\n")
        sh.type("tone 1 2")
        sh.wait_prompts(prompts + 1)
        self.phone.ftsim("audio", "--wait", "open")
        self.assertEqual(sh.quit(), 0)
        busy = ("play_sample : Unable to open PCM device 5 (cannot open device '/dev/snd/pcmC0D5p': "
                "Device or resource busy)\n")
        lines = set(sh.out.decode().replace(busy, "").replace("ft>", "").splitlines())
        self.assertLessEqual(lines, {"", "Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.",
                                     "tone 1 0", "tone 1 1", "tone 1 2", "tone 1 3", "tone 0", "q"})
        self.assertEqual(sh.err, b"")


SANITIZE = ""


def main():
    global FTSIM, DIALTONE, SANITIZE
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("--dialtone", required=True)
    ap.add_argument("--sanitize", default="")
    args, rest = ap.parse_known_args()
    FTSIM = os.path.abspath(args.ftsim)
    DIALTONE = args.dialtone
    SANITIZE = args.sanitize
    unittest.main(argv=[sys.argv[0]] + rest, verbosity=2)


if __name__ == "__main__":
    main()
