#!/usr/bin/env python3
"""A snapshot of the panel, decoded here without libpng: right size, right
colours, and the panel's own window of a larger virtual framebuffer."""
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib


def decode_png(path):
    with open(path, "rb") as f:
        data = f.read()
    assert data[:8] == b"\x89PNG\r\n\x1a\n", "not a PNG"
    pos, idat, width = 8, b"", None
    while pos < len(data):
        length, kind = struct.unpack(">I4s", data[pos:pos + 8])
        body = data[pos + 8:pos + 8 + length]
        assert zlib.crc32(kind + body) == struct.unpack(">I", data[pos + 8 + length:pos + 12 + length])[0]
        if kind == b"IHDR":
            width, height, depth, colour_type = struct.unpack(">IIBB", body[:10])
            assert (depth, colour_type) == (8, 2), "expected 8-bit RGB"
        elif kind == b"IDAT":
            idat += body
        pos += 12 + length
    raw = zlib.decompress(idat)
    stride = width * 3
    rows, prev = [], bytearray(stride)
    for y in range(height):
        kind, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride):
            a = line[i - 3] if i >= 3 else 0
            b = prev[i]
            c = prev[i - 3] if i >= 3 else 0
            if kind == 1:
                line[i] = (line[i] + a) & 0xFF
            elif kind == 2:
                line[i] = (line[i] + b) & 0xFF
            elif kind == 3:
                line[i] = (line[i] + (a + b) // 2) & 0xFF
            elif kind == 4:
                p = a + b - c
                pa, pb, pc = abs(p - a), abs(p - b), abs(p - c)
                pred = a if pa <= pb and pa <= pc else (b if pb <= pc else c)
                line[i] = (line[i] + pred) & 0xFF
        rows.append([tuple(line[x * 3:x * 3 + 3]) for x in range(width)])
        prev = line
    return width, height, rows


def main():
    ftsim = sys.argv[1]
    state = tempfile.mkdtemp(prefix="ft-snapshot-")
    try:
        def run(*args, stdin=None):
            return subprocess.run([ftsim, "--state", state, *args], input=stdin, capture_output=True,
                                  check=True, timeout=60)
        run("reset")
        run("set", "lcd.size", "64x40")
        run("set", "lcd.virtual", "80x48")
        out = run("shell", stdin=b"lcd half_filled\nq\n").stdout.decode()
        assert "PASS" in out, out
        png = state + "/half.png"
        run("lcd", png)
        width, height, rows = decode_png(png)
        assert (width, height) == (64, 40), (width, height)
        for y, row in enumerate(rows):
            for x, rgb in enumerate(row):
                want = (0, 0, 0) if x <= 32 else (255, 255, 255)
                assert rgb == want, f"pixel {x},{y} is {rgb}, expected {want}"
        run("shell", stdin=b"lcd fill 3\nq\n")
        run("lcd", png)
        _, _, rows = decode_png(png)
        assert all(rgb == (0, 0, 255) for row in rows for rgb in row), "lcd fill 3 is not all blue"
        print("ok")
    finally:
        shutil.rmtree(state, ignore_errors=True)


if __name__ == "__main__":
    main()
