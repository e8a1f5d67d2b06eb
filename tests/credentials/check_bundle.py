#!/usr/bin/env python3
"""Opens the bundle gencert and regenfipscert leave on a simulated phone with
the host's openssl tool, as stations do: with the password gencert passed,
which must be HMAC-SHA256 keyed with the seed file over the MAC text, base64.

--case bundle: the bundle, its certificate, key and protection, and its
re-packing by regenfipscert.
--case injection: a MAC made of shell syntax runs nothing in the phone and
becomes the certificate's common name as it was typed."""
import argparse
import base64
import datetime
import hashlib
import hmac
import os
import re
import subprocess
import sys
import tempfile

PBE = "pbeWithSHA1And3-KeyTripleDES-CBC"
VALIDITY_DAYS = 7300


def check(cond, what):
    if not cond:
        raise AssertionError(what)


class Phone:
    def __init__(self, ftsim, openssl):
        self.ftsim_path, self.openssl = ftsim, openssl
        self.state = tempfile.mkdtemp(prefix="ft-creds-")
        self.certs = os.path.join(self.state, "persist/reserved/cp/certs")
        self.p12 = os.path.join(self.certs, "factorycert.p12")

    @staticmethod
    def run(*words, stdin=None):
        return subprocess.run(words, input=stdin, capture_output=True, timeout=120)

    def ftsim(self, *words, stdin=None):
        res = self.run(self.ftsim_path, "--state", self.state, *words, stdin=stdin)
        check(res.returncode == 0 and not res.stderr, f"ftsim {words[0]}: {res.stderr.decode()}")
        return res.stdout.decode()

    def read(self, name):
        with open(os.path.join(self.certs, name), "rb") as f:
            return f.read()

    def gencert(self, mac):
        """Programs the MAC and runs gencert on a fresh phone; the thumbprint it printed."""
        self.ftsim("reset")
        out = self.ftsim("shell", stdin=f"program write ETHERADD {mac}\ngencert\n".encode())
        printed = re.search(r"^ft>gencert\nThumbprint: (\S+)\n", out, re.M)
        check(printed and "*ERROR*" not in out, f"gencert:\n{out}")
        return printed.group(1)

    def device_key(self, mac_text):
        return base64.b64encode(hmac.new(self.read("factorySeed"), mac_text.encode(), hashlib.sha256).digest()).decode()

    def open_bundle(self, password):
        """Certificate text, key text and bag protection; None when the password is wrong."""
        pw = ("-passin", "pass:" + password)
        cert = self.run(self.openssl, "pkcs12", "-in", self.p12, "-nokeys", "-clcerts", *pw)
        if cert.returncode != 0:
            return None
        x509 = self.run(self.openssl, "x509", "-noout", "-subject", "-nameopt", "utf8,sep_multiline", "-dates",
                        "-fingerprint", "-sha256", stdin=cert.stdout)
        key = self.run(self.openssl, "pkcs12", "-in", self.p12, "-nocerts", "-nodes", *pw)
        ec = self.run(self.openssl, "pkey", "-noout", "-text", stdin=key.stdout)
        info = self.run(self.openssl, "pkcs12", "-in", self.p12, "-info", "-noout", *pw)
        return x509.stdout.decode(), ec.stdout.decode(), (info.stdout + info.stderr).decode()

    def close(self):
        subprocess.run(["rm", "-rf", "--one-file-system", self.state])


def days_valid(x509):
    def date(name):
        text = re.search(rf"^{name}=(.*)$", x509, re.M).group(1)
        return datetime.datetime.strptime(text, "%b %d %H:%M:%S %Y %Z")
    return (date("notAfter") - date("notBefore")).days


def bundle(phone):
    # Mixed case: the key and the certificate take the MAC's letters as stored.
    mac_text = "021234AbcDef"
    thumbprint = phone.gencert("02:12:34:Ab:cD:ef")
    passed = re.search(r"^openssl pkcs12 .*-export .*-password pass:(\S+)\\n$", phone.ftsim("log"), re.M)
    key = phone.device_key(mac_text)
    check(passed and passed.group(1) == key, f"gencert passed {passed and passed.group(1)}, not the key {key}")
    made = phone.open_bundle(key)
    check(made, "the bundle does not open with the key")
    x509, ec, info = made
    check(f"\n    CN={mac_text}\n" in x509, x509)
    check(days_valid(x509) == VALIDITY_DAYS, x509)
    check(f"Fingerprint={thumbprint}\n" in x509, f"printed {thumbprint}, certificate {x509}")
    check("ASN1 OID: prime256v1" in ec, ec)
    check(info.count(PBE) == 2, info)
    check(phone.open_bundle("x" + key) is None, "a wrong password opens the bundle")

    before = phone.read("factorycert.p12")
    out = phone.ftsim("shell", stdin=b"regenfipscert\n")
    check("generated pkcs12" in out and phone.read("factorycert.p12") != before, f"regenfipscert:\n{out}")
    check(phone.open_bundle(key) == made, "the re-packed bundle differs in certificate, key or protection")


def injection(phone):
    # Had the shell run it, id would have written /data/p (the phone's HOME).
    # The second MAC holds what the subject's own syntax and the shell's quotes treat specially.
    for mac in ("$(id>~/p)xxxxxxxx", "+\"\\/$'`;&|<>*?xxx"):
        mac_text = mac.replace(":", "")[:12]
        phone.gencert(mac)
        check(phone.ftsim("exec", "--", "ls", "-A", "/data") == "", "something ran and wrote to /data")
        made = phone.open_bundle(phone.device_key(mac_text))
        check(made, f"the bundle of {mac} does not open with the key")
        check(f"\n    CN={mac_text}\n" in made[0], made[0])


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("--openssl", required=True)
    ap.add_argument("--case", choices=["bundle", "injection"], required=True)
    args = ap.parse_args()
    phone = Phone(args.ftsim, args.openssl)
    try:
        {"bundle": bundle, "injection": injection}[args.case](phone)
    except AssertionError as e:
        print(f"FAILED: {e}")
        return 1
    finally:
        phone.close()
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
