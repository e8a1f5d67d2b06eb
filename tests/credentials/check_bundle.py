#!/usr/bin/env python3
"""Opens the bundle gencert and regenfipscert leave with the host's openssl, as
stations do: with the password gencert passed, HMAC-SHA256 keyed with the seed
over the MAC text, base64. A MAC made of shell syntax runs nothing."""
import argparse
import base64
import datetime
import hashlib
import hmac
import os
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "shell"))
import phone as ph  # noqa: E402

ap = argparse.ArgumentParser()
ap.add_argument("--ftsim", required=True)
ap.add_argument("--openssl", required=True)
args = ap.parse_args()


def run(*words, stdin=None):
    return subprocess.run(words, input=stdin, capture_output=True, timeout=120)


def shell(phone, data):
    out, err, status = phone.session(data)
    assert (err, status) == (b"", 0), (err, status)
    return out.decode()


def gencert(phone, mac):
    """Programs the MAC and runs gencert on a fresh phone: its thumbprint, and the key of the MAC's text."""
    phone.ftsim("reset")
    out = shell(phone, f"program write ETHERADD {mac}\ngencert\n".encode())
    printed = re.search(r"^ft>gencert\nThumbprint: (\S+)\n", out, re.M)
    assert printed and "*ERROR*" not in out, f"gencert:\n{out}"
    seed = pathlib.Path(phone.state, "persist/reserved/cp/certs/factorySeed").read_bytes()
    return printed.group(1), base64.b64encode(hmac.new(seed, mac.replace(":", "")[:12].encode(),
                                                       hashlib.sha256).digest()).decode()


def open_bundle(phone, password):
    """Certificate text, key text and bag protection; None when the password is wrong."""
    p12 = run(args.openssl, "pkcs12", "-in", os.path.join(phone.state, "persist/reserved/cp/certs/factorycert.p12"),
              "-nodes", "-info", "-passin", "pass:" + password)
    if p12.returncode != 0:
        return None
    x509 = run(args.openssl, "x509", "-noout", "-subject", "-nameopt", "utf8,sep_multiline", "-dates", "-fingerprint",
               "-sha256", stdin=p12.stdout)
    ec = run(args.openssl, "pkey", "-noout", "-text", stdin=p12.stdout)
    return x509.stdout.decode(), ec.stdout.decode(), (p12.stdout + p12.stderr).decode()


with ph.Phone(args.ftsim) as phone:
    # Mixed case: the key and the certificate take the MAC's letters as stored.
    thumbprint, key = gencert(phone, "02:12:34:Ab:cD:ef")
    passed = re.search(r"^openssl pkcs12 .*-export .*-password pass:(\S+)\\n$", phone.ftsim("log").decode(), re.M)
    assert passed and passed.group(1) == key, f"gencert passed {passed and passed.group(1)}, not the key {key}"
    made = open_bundle(phone, key)
    assert made, "the bundle does not open with the key"
    x509, ec, info = made
    dates = [datetime.datetime.strptime(d, "%b %d %H:%M:%S %Y %Z") for d in re.findall(r"^not\w+=(.*)$", x509, re.M)]
    assert "\n    CN=021234AbcDef\n" in x509 and (dates[1] - dates[0]).days == 7300, x509
    assert f"Fingerprint={thumbprint}\n" in x509, f"printed {thumbprint}, certificate {x509}"
    assert "ASN1 OID: prime256v1" in ec and info.count("pbeWithSHA1And3-KeyTripleDES-CBC") == 2, (ec, info)
    assert open_bundle(phone, "x" + key) is None, "a wrong password opens the bundle"
    bundle = pathlib.Path(phone.state, "persist/reserved/cp/certs/factorycert.p12")
    before = bundle.read_bytes()
    assert "generated pkcs12" in shell(phone, b"regenfipscert\n") and bundle.read_bytes() != before
    assert open_bundle(phone, key) == made, "the re-packed bundle differs in certificate, key or protection"

    # Had the shell run it, id would have written /data/p (the phone's HOME). The
    # second MAC holds what the subject's own syntax and the shell's quotes treat specially.
    for mac in ("$(id>~/p)xxxxxxxx", "+\"\\/$'`;&|<>*?xxx"):
        _, key = gencert(phone, mac)
        assert phone.ftsim("exec", "--", "ls", "-A", "/data") == b"", "something ran and wrote to /data"
        made = open_bundle(phone, key)
        assert made and f"\n    CN={mac[:12]}\n" in made[0], f"the bundle of {mac}: {made}"
print("ok")
