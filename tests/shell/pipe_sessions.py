#!/usr/bin/env python3
"""The shell on a station's pipe: no byte is an editing key there, control
bytes reach the handlers as characters, and a random input that used to crash
the line editor runs to its end."""
import argparse
import os
import sys
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import phone as ph  # noqa: E402
import random_input  # noqa: E402

FTSIM = None
HERE = os.path.dirname(os.path.abspath(__file__))


def exchange(*pairs):
    """The input and the exact output of lines typed one after the other:
    each pair is a line as sent and what the shell answers to it."""
    data = b"".join(line + b"\n" for line, _ in pairs)
    out = ph.BANNER + b"".join(b"ft>" + line + b"\n" + answer for line, answer in pairs) + b"ft>"
    return data, out


class ControlBytes(unittest.TestCase):
    def test_no_byte_recalls_searches_or_ends(self):
        not_valid = b"Not a valid command\n"
        data, expected = exchange(
            (b"program write SN_UNIT OLD", b"PASS\n"),
            (b"program write SN_UNIT NEW", b"PASS\n"),
            # Ctrl-P twice once fetched the OLD write back and ran it.
            (b"\x10\x10", not_valid),
            (b"program read SN_UNIT", b'SN_UNIT = "NEW"\n'),
            # Ctrl-R once started a search that swallowed the next line.
            (b"\x12", not_valid),
            (b"production", b"Factory Mode\n"),
            # Ctrl-D once ended the session and dropped the rest.
            (b"\x04", not_valid),
            (b"key \x04", b"Incorrect parameter\n"),
            # An arrow key's sequence, a tab, a carriage return: characters.
            (b"\x1b[A", not_valid),
            (b"ft\tinfo", not_valid),
            (b"produc\rtion", not_valid),
            (b"\x1b\x7fproduction", not_valid),
        )
        with ph.Phone(FTSIM) as p:
            out, err, status = p.session(data)
        self.assertEqual(out, expected)
        self.assertEqual((err, status), (b"", 0))

    def test_lines_ended_by_cr_lf_are_the_same_lines(self):
        with ph.Phone(FTSIM) as p:
            out, err, status = p.session(b"production\r\nproduction 0\r\n\r\nproduction")
        self.assertEqual(out, ph.BANNER + b"ft>production\nFactory Mode\nft>production 0\nFactory Mode\n"
                              b"ft>\nft>production\nFactory Mode\nft>")
        self.assertEqual((err, status), (b"", 0))

    def test_control_bytes_inside_words_reach_the_handlers(self):
        value = b"A\x01B\x7fC\x1b"
        data, expected = exchange(
            (b"program write SN_UNIT " + value, b"PASS\n"),
            (b"program read SN_UNIT", b'SN_UNIT = "' + value + b'"\n'),
            (b'program write SN_UNIT "x\x08 \x15y"', b"PASS\n"),
            (b"program read SN_UNIT", b'SN_UNIT = "x\x08 \x15y"\n'),
            # No word can carry a NUL: the line is refused whole.
            (b"program write SN_UNIT a\x00b", b"NUL character in the line. Nothing was run.\n"),
            (b"program read SN_UNIT", b'SN_UNIT = "x\x08 \x15y"\n'),
        )
        with ph.Phone(FTSIM) as p:
            out, err, status = p.session(data)
        self.assertEqual(out, expected)
        self.assertEqual((err, status), (b"", 0))


class RandomInput(unittest.TestCase):
    def check(self, data):
        figures = random_input.run(FTSIM, data, ph.TIMEOUT * 15)
        self.assertFalse(figures["hung"])
        self.assertEqual(figures["stderr"], b"")
        self.assertEqual((figures["status"], figures["executed"]), (0, figures["lines"]))

    def test_the_input_that_crashed_the_line_editor(self):
        with open(os.path.join(HERE, "readline_double_free.in"), "rb") as f:
            self.check(f.read())

    def test_fresh_random_input(self):
        self.check(random_input.generate(1500, 8))


if __name__ == "__main__":
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args, rest = ap.parse_known_args()
    FTSIM = args.ftsim
    unittest.main(argv=[sys.argv[0]] + rest, verbosity=2)
