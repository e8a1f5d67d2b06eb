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
import tempfile


def run(*words, stdin=None):
    return subprocess.run(words, input=stdin, capture_output=True, timeout=120)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("--openssl", required=True)
    args = ap.parse_args()
    state = tempfile.mkdtemp(prefix="ft-creds-")
    certs = os.path.join(state, "persist/reserved/cp/certs")

    def ftsim(*words, stdin=None):
        res = run(args.ftsim, "--state", state, *words, stdin=stdin)
        assert res.returncode == 0 and not res.stderr, f"ftsim {words[0]}: {res.stderr.decode()}"
        return res.stdout.decode()

    def read(name):
        return pathlib.Path(certs, name).read_bytes()

    def gencert(mac):
        """Programs the MAC, runs gencert on a fresh phone; its thumbprint, and the key as the MAC's text."""
        ftsim("reset")
        out = ftsim("shell", stdin=f"program write ETHERADD {mac}\ngencert\n".encode())
        printed = re.search(r"^ft>gencert\nThumbprint: (\S+)\n", out, re.M)
        assert printed and "*ERROR*" not in out, f"gencert:\n{out}"
        digest = hmac.new(read("factorySeed"), mac.replace(":", "")[:12].encode(), hashlib.sha256).digest()
        return printed.group(1), base64.b64encode(digest).decode()

    def open_bundle(password):
        """Certificate text, key text and bag protection; None when the password is wrong."""
        p12 = run(args.openssl, "pkcs12", "-in", os.path.join(certs, "factorycert.p12"), "-nodes", "-info",
                  "-passin", "pass:" + password)
        if p12.returncode != 0:
            return None
        x509 = run(args.openssl, "x509", "-noout", "-subject", "-nameopt", "utf8,sep_multiline", "-dates",
                   "-fingerprint", "-sha256", stdin=p12.stdout)
        ec = run(args.openssl, "pkey", "-noout", "-text", stdin=p12.stdout)
        return x509.stdout.decode(), ec.stdout.decode(), (p12.stdout + p12.stderr).decode()

    try:
        # Mixed case: the key and the certificate take the MAC's letters as stored.
        thumbprint, key = gencert("02:12:34:Ab:cD:ef")
        passed = re.search(r"^openssl pkcs12 .*-export .*-password pass:(\S+)\\n$", ftsim("log"), re.M)
        assert passed and passed.group(1) == key, f"gencert passed {passed and passed.group(1)}, not the key {key}"
        made = open_bundle(key)
        assert made, "the bundle does not open with the key"
        x509, ec, info = made
        dates = [datetime.datetime.strptime(d, "%b %d %H:%M:%S %Y %Z") for d in re.findall(r"^not\w+=(.*)$", x509, re.M)]
        assert "\n    CN=021234AbcDef\n" in x509 and (dates[1] - dates[0]).days == 7300, x509
        assert f"Fingerprint={thumbprint}\n" in x509, f"printed {thumbprint}, certificate {x509}"
        assert "ASN1 OID: prime256v1" in ec, ec
        assert info.count("pbeWithSHA1And3-KeyTripleDES-CBC") == 2, info
        assert open_bundle("x" + key) is None, "a wrong password opens the bundle"
        before = read("factorycert.p12")
        out = ftsim("shell", stdin=b"regenfipscert\n")
        assert "generated pkcs12" in out and read("factorycert.p12") != before, f"regenfipscert:\n{out}"
        assert open_bundle(key) == made, "the re-packed bundle differs in certificate, key or protection"

        # Had the shell run it, id would have written /data/p (the phone's HOME). The
        # second MAC holds what the subject's own syntax and the shell's quotes treat specially.
        for mac in ("$(id>~/p)xxxxxxxx", "+\"\\/$'`;&|<>*?xxx"):
            _, key = gencert(mac)
            assert ftsim("exec", "--", "ls", "-A", "/data") == "", "something ran and wrote to /data"
            made = open_bundle(key)
            assert made and f"\n    CN={mac[:12]}\n" in made[0], f"the bundle of {mac}: {made}"
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])
    print("ok")


if __name__ == "__main__":
    main()
