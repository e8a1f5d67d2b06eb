#!/usr/bin/env python3
"""Opens the bundle gencert and regenfipscert leave on a simulated phone with
the host's openssl tool, as stations do: with the password gencert passed,
which must be HMAC-SHA256 keyed with the seed file over the MAC text, base64."""
import argparse
import base64
import hashlib
import hmac
import os
import re
import subprocess
import sys
import tempfile

# Mixed case: the key and the certificate take the MAC's letters as stored.
MAC, MAC_TEXT = "02:12:34:Ab:cD:ef", "021234AbcDef"
PBE = "pbeWithSHA1And3-KeyTripleDES-CBC"


def check(cond, what):
    if not cond:
        raise AssertionError(what)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("--openssl", required=True)
    args = ap.parse_args()
    state = tempfile.mkdtemp(prefix="ft-creds-")
    certs = os.path.join(state, "persist/reserved/cp/certs")
    p12 = os.path.join(certs, "factorycert.p12")

    def run(*words, stdin=None):
        return subprocess.run(words, input=stdin, capture_output=True, timeout=120)

    def ftsim(*words, stdin=None):
        res = run(args.ftsim, "--state", state, *words, stdin=stdin)
        check(res.returncode == 0 and not res.stderr, f"ftsim {words[0]}: {res.stderr.decode()}")
        return res.stdout.decode()

    def open_bundle(password):
        """Certificate text, key text and bag protection; None when the password is wrong."""
        pw = ("-passin", "pass:" + password)
        cert = run(args.openssl, "pkcs12", "-in", p12, "-nokeys", "-clcerts", *pw)
        if cert.returncode != 0:
            return None
        x509 = run(args.openssl, "x509", "-noout", "-subject", "-fingerprint", "-sha256", stdin=cert.stdout)
        key = run(args.openssl, "pkcs12", "-in", p12, "-nocerts", "-nodes", *pw)
        ec = run(args.openssl, "pkey", "-noout", "-text", stdin=key.stdout)
        info = run(args.openssl, "pkcs12", "-in", p12, "-info", "-noout", *pw)
        return x509.stdout.decode(), ec.stdout.decode(), (info.stdout + info.stderr).decode()

    def read(name):
        with open(os.path.join(certs, name), "rb") as f:
            return f.read()

    try:
        ftsim("reset")
        out = ftsim("shell", stdin=f"program write ETHERADD {MAC}\ngencert\n".encode())
        printed = re.search(r"^ft>gencert\nThumbprint: (\S+)\n", out, re.M)
        check(printed and "*ERROR*" not in out, f"gencert:\n{out}")
        passed = re.search(r"^openssl pkcs12 .*-export .*-password pass:(\S+)\\n$", ftsim("log"), re.M)
        key = base64.b64encode(hmac.new(read("factorySeed"), MAC_TEXT.encode(), hashlib.sha256).digest()).decode()
        check(passed and passed.group(1) == key, f"gencert passed {passed and passed.group(1)}, not the key {key}")
        made = open_bundle(key)
        check(made, "the bundle does not open with the key")
        x509, ec, info = made
        check(re.search(rf"^subject=.*CN ?= ?{MAC_TEXT}$", x509, re.M), x509)
        check(f"Fingerprint={printed.group(1)}\n" in x509, f"printed {printed.group(1)}, certificate {x509}")
        check("ASN1 OID: prime256v1" in ec, ec)
        check(info.count(PBE) == 2, info)
        check(open_bundle("x" + key) is None, "a wrong password opens the bundle")

        before = read("factorycert.p12")
        out = ftsim("shell", stdin=b"regenfipscert\n")
        check("generated pkcs12" in out and read("factorycert.p12") != before, f"regenfipscert:\n{out}")
        check(open_bundle(key) == made, "the re-packed bundle differs in certificate, key or protection")
    except AssertionError as e:
        print(f"FAILED: {e}")
        return 1
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
