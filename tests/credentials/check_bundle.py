#!/usr/bin/env python3
"""Checks the files gencert and regenfipscert leave on a simulated phone.

The device key is derived here independently (HMAC-SHA256 keyed with the seed
file over the MAC text, base64), and the host's openssl tool must open the
bundle with it. Stations and the phone's own software rely on exactly that.
"""
import argparse
import base64
import hashlib
import hmac
import os
import re
import shutil
import subprocess
import sys
import tempfile

CERTS = "persist/reserved/cp/certs"
PBE = "pbeWithSHA1And3-KeyTripleDES-CBC"


class Phone:
    def __init__(self, ftsim, openssl, state):
        self.ftsim, self.openssl, self.state = ftsim, openssl, state
        self.certs = os.path.join(state, CERTS)
        self.ctl("reset")

    def ctl(self, *args):
        res = subprocess.run([self.ftsim, "--state", self.state, *args], capture_output=True, text=True, timeout=60)
        if res.returncode != 0:
            raise AssertionError(f"ftsim {' '.join(args)} failed: {res.stderr}")
        return res.stdout

    def shell(self, *commands):
        res = subprocess.run([self.ftsim, "--state", self.state, "shell"], input="".join(c + "\n" for c in commands),
                             capture_output=True, text=True, timeout=120)
        if res.returncode != 0 or res.stderr:
            raise AssertionError(f"shell ended {res.returncode}: {res.stderr}")
        return res.stdout

    def files(self):
        return sorted(os.listdir(self.certs)) if os.path.isdir(self.certs) else []

    def read(self, name):
        with open(os.path.join(self.certs, name), "rb") as f:
            return f.read()

    def key_for(self, mac_text, seed=None):
        seed = self.read("factorySeed") if seed is None else seed
        return base64.b64encode(hmac.new(seed, mac_text.encode(), hashlib.sha256).digest()).decode()

    def openssl_run(self, *args, stdin=None):
        return subprocess.run([self.openssl, *args], input=stdin, capture_output=True, timeout=60)

    def open_bundle(self, password):
        """(subject, SHA-256 fingerprint, public key, info) or None when the password is wrong."""
        p12 = os.path.join(self.certs, "factorycert.p12")
        cert = self.openssl_run("pkcs12", "-in", p12, "-nokeys", "-clcerts", "-passin", "pass:" + password)
        if cert.returncode != 0:
            return None
        x509 = self.openssl_run("x509", "-noout", "-subject", "-fingerprint", "-sha256", stdin=cert.stdout)
        out = x509.stdout.decode()
        subject = re.search(r"^subject=(.*)$", out, re.M).group(1)
        fingerprint = re.search(r"Fingerprint=(.*)$", out, re.M).group(1)
        key = self.openssl_run("pkcs12", "-in", p12, "-nocerts", "-nodes", "-passin", "pass:" + password)
        pub = self.openssl_run("pkey", "-pubout", stdin=key.stdout).stdout
        info = self.openssl_run("pkcs12", "-in", p12, "-info", "-noout", "-passin", "pass:" + password)
        return subject, fingerprint, pub, info.stderr.decode() + info.stdout.decode()


def expect(cond, what):
    if not cond:
        raise AssertionError(what)


def first_gencert(phone):
    # Only the missing directory is made when its parent is already there.
    phone.ctl("exec", "--", "mkdir", "/reserved/cp")
    out = phone.shell("program write ETHERADD 02:12:34:ab:cd:ef", "gencert")
    m = re.search(r"^ft>gencert\nThumbprint: ([0-9A-F:]+)\nMAC = \"02:12:34:ab:cd:ef\"\n", out, re.M)
    expect(m, f"no thumbprint line after gencert:\n{out}")
    expect("*ERROR*" not in out, f"gencert reported an error:\n{out}")
    expect(phone.files() == ["factorySeed", "factorycert.p12"], f"left behind: {phone.files()}")
    st = os.stat(os.path.join(phone.certs, "factorySeed"))
    expect(st.st_size == 32, f"seed of {st.st_size} bytes")
    expect(st.st_mode & 0o777 == 0o600, f"seed mode {oct(st.st_mode & 0o777)}")

    key = phone.key_for("021234abcdef")
    opened = phone.open_bundle(key)
    expect(opened, "the bundle does not open with the key derived from the seed and the MAC text")
    subject, fingerprint, pub, info = opened
    expect(subject.replace(" ", "").endswith("CN=021234abcdef"), f"subject {subject}")
    expect(fingerprint == m.group(1), f"printed thumbprint {m.group(1)}, certificate {fingerprint}")
    expect(info.count(PBE) == 2, f"bundle protection:\n{info}")
    expect(phone.open_bundle(key[:-1] + ("A" if key[-2] != "A" else "B")) is None, "a wrong password opens the bundle")

    log = phone.ctl("log").splitlines()
    expect("/system/bin/setSystemDate.sh" in log, "the clock was not set")
    expect("mkdir /reserved/cp/certs" in log and "mkdir /reserved/cp" not in log, "directories:\n" + "\n".join(log))
    export = ("openssl pkcs12 -descert -certpbe PBE-SHA1-3DES -keypbe PBE-SHA1-3DES -export "
              "-in /reserved/cp/certs/factory.cert -inkey /reserved/cp/certs/factory.key "
              f"-out /reserved/cp/certs/factorycert.p12 -password pass:{key}\\n")
    expect(export in log, f"export command not as expected:\n" + "\n".join(log))
    return key, fingerprint, pub


def regen_keeps_everything(phone, key, fingerprint, pub):
    seed_path = os.path.join(phone.certs, "factorySeed")
    seed, seed_mtime = phone.read("factorySeed"), os.stat(seed_path).st_mtime_ns
    old_bundle = phone.read("factorycert.p12")
    out = phone.shell("regenfipscert")
    expect(f"key PEM {key}\n\n" in out, f"regenfipscert output:\n{out}")
    expect("generated pkcs12\n" in out, f"regenfipscert output:\n{out}")
    expect(phone.read("factorycert.p12") != old_bundle, "the bundle was not rewritten")
    expect(phone.read("factorySeed") == seed and os.stat(seed_path).st_mtime_ns == seed_mtime, "the seed changed")
    expect(phone.files() == ["factorySeed", "factorycert.p12"], f"left behind: {phone.files()}")
    opened = phone.open_bundle(key)
    expect(opened, "the regenerated bundle does not open with the same key")
    expect(opened[1] == fingerprint and opened[2] == pub, "certificate or key changed")
    expect(opened[3].count(PBE) == 2, f"bundle protection:\n{opened[3]}")


def second_run_replaces_both(phone, old_key):
    old_seed = phone.read("factorySeed")
    out = phone.shell("program write ETHERADD 02:12:34:AB:CD:EF", "gencert")
    expect("Thumbprint: " in out and "*ERROR*" not in out, out)
    expect(phone.read("factorySeed") != old_seed, "the seed was not renewed")
    expect(phone.open_bundle(old_key) is None, "the earlier password still opens the new bundle")
    expect(phone.open_bundle(phone.key_for("021234abcdef")) is None, "the MAC's letter case is ignored")
    opened = phone.open_bundle(phone.key_for("021234ABCDEF"))
    expect(opened and opened[0].replace(" ", "").endswith("CN=021234ABCDEF"), f"upper-case MAC: {opened}")
    return phone.key_for("021234ABCDEF")


def missing_mac_keeps_bundle(phone, key):
    old_seed, old_bundle = phone.read("factorySeed"), phone.read("factorycert.p12")
    out = phone.shell("program write ETHERADD 02:12:34", "gencert")
    expect("MAC is not programmed\n" in out and "Unable to generate factory base64 device key\n" in out, out)
    expect(phone.files() == ["factorySeed", "factorycert.p12"], f"files: {phone.files()}")
    expect(phone.read("factorySeed") != old_seed, "no new seed")
    expect(len(phone.read("factorySeed")) == 32, "new seed is not 32 bytes")
    expect(phone.read("factorycert.p12") == old_bundle, "the earlier bundle changed")
    expect(phone.open_bundle(key) is not None, "the earlier bundle no longer opens with its own password")


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("--openssl", default=shutil.which("openssl"))
    args = ap.parse_args()
    state = tempfile.mkdtemp(prefix="ft-creds-")
    try:
        phone = Phone(args.ftsim, args.openssl, state)
        key, fingerprint, pub = first_gencert(phone)
        regen_keeps_everything(phone, key, fingerprint, pub)
        key = second_run_replaces_both(phone, key)
        missing_mac_keeps_bundle(phone, key)
    except AssertionError as e:
        print(f"FAILED: {e}")
        return 1
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
