#!/usr/bin/env python3
"""Reads what real programs read, in one process: the certificates that this system trusts, and 100,000 leaf certificates of
an authority. Every answer is known, from python3-cryptography, from openssl or because the test chose it, and memory stays
flat. Usage: real_loads_test.py MODULE [COUNT]"""
import base64
import ctypes
import json
import pathlib
import random
import re
import subprocess
import sys
import tempfile
import unittest
import warnings

from cryptography import x509
from cryptography.hazmat.primitives import hashes
from cryptography.hazmat.primitives.asymmetric import rsa

BUNDLE = pathlib.Path("/etc/ssl/certs/ca-certificates.crt")
DER, JSON, NO_DATES = 0x1, 0x10, 1
EXPIRED, SIGNATURE, ISSUER, NO_MATCH, NOT_SUPPORTED, OUT_OF_RANGE = 16, 22, 25, 21, 19, 11
AUTHORITIES = 50
# openssl's numbers of the same faults.
FAULTS = {0: 0, EXPIRED: 10, SIGNATURE: 7, ISSUER: 20}


def resident():
    """The memory of this process, in KiB."""
    status = pathlib.Path("/proc/self/status").read_text()
    return int(re.search(r"VmRSS:\s+(\d+)", status)[1])


def text_of(function, *arguments, room=4000):
    out = ctypes.create_string_buffer(room + 1)
    length = function(out, room, *arguments)
    if length < 0:
        raise AssertionError(f"{function.__name__}: {length}")
    return out.raw[:length].decode()


def pem_of(der):
    body = base64.encodebytes(der).decode()
    return f"-----BEGIN CERTIFICATE-----\n{body}-----END CERTIFICATE-----\n"


def date_of(moment):
    return moment.strftime("%Y-%m-%dT%H:%M:%SZ")


class RealLoads(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zul-loads-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def path(self, name):
        return str(self.folder / name).encode()

    def good(self, status):
        text = ctypes.create_string_buffer(512)
        ZUL.ZUL_LastError(text, 511)
        self.assertEqual(status, 0, text.value.decode())

    def key(self, kind):
        return text_of(ZUL.KEY_Make, kind.encode(), 0, room=90000).encode()

    def verified_by_openssl(self, names, *options):
        """openssl's number of the first fault of each file, 0 for none."""
        run = subprocess.run(["openssl", "verify", *options, *names], cwd=self.folder, capture_output=True, text=True)
        found = dict.fromkeys(re.findall(r"^(\S+): OK$", run.stdout, re.M), 0)
        # The fault stands before the line that names the file.
        for fault, name in re.findall(r"^error (\d+) at .*\n(?:(?!error \d+ at \d+ depth).*\n)*?error (\S+): verification failed",
                                      run.stdout + run.stderr, re.M):
            found.setdefault(name, int(fault))
        self.assertEqual(set(found), set(names), run.stdout + run.stderr)
        return found

    def test_certificates_of_the_system(self):
        blocks = re.findall(r"-----BEGIN CERTIFICATE-----.*?-----END CERTIFICATE-----\n", BUNDLE.read_text(), re.S)
        self.assertGreater(len(blocks), 100)
        bundle = str(BUNDLE).encode()
        report = json.loads(text_of(ZUL.CERT_Report, bundle, JSON, room=8 << 20))
        self.assertEqual(len(report["objects"]), len(blocks))
        for number, block in enumerate(blocks):
            (self.folder / f"{number}.pem").write_text(block)
        expected = self.verified_by_openssl([f"{number}.pem" for number in range(len(blocks))], "-CAfile", bundle.decode(),
                                            "-partial_chain")
        for number, block in enumerate(blocks):
            with warnings.catch_warnings():
                warnings.simplefilter("ignore")  # of serial numbers that are not positive
                other = x509.load_pem_x509_certificate(block.encode())
            cert = block.encode()
            with self.subTest(subject=other.subject.rfc4514_string()):
                fingerprint = other.fingerprint(hashes.SHA256()).hex()
                self.assertEqual(text_of(ZUL.CERT_Query, cert, b"sha256", 0), fingerprint)
                self.assertEqual(text_of(ZUL.X509_CertThumb_, cert, 3), fingerprint)
                for query in ("notBefore", "notAfter"):
                    date = date_of(getattr(other, "not_valid_before" if query == "notBefore" else "not_valid_after"))
                    self.assertEqual(text_of(ZUL.CERT_Query, cert, query.encode(), 0), date)
                    self.assertEqual(text_of(ZUL.X509_QueryCert, cert, query.encode(), 0), date)
                serial = text_of(ZUL.CERT_Query, cert, b"serialNumber", 0)
                self.assertEqual(int(serial, 16), other.serial_number)
                self.assertEqual(int(text_of(ZUL.X509_QueryCert, cert, b"serialNumber", 0), 16), other.serial_number)
                self.assertEqual(text_of(ZUL.CERT_Query, cert, b"isSelfIssued", 0), "1")
                self.assertEqual(text_of(ZUL.CERT_Query, cert, b"selfSigned", 0), "1")
                self.assertGreater(text_of(ZUL.CERT_Report, cert, 0, room=60000).count("\n"), 10)
                path = ZUL.CERT_CheckPath(None, 0, cert, None, bundle, None, None, 0)
                self.assertEqual(FAULTS[path], expected[f"{number}.pem"])
                is_rsa = isinstance(other.public_key(), rsa.RSAPublicKey)
                self.assertEqual(ZUL.X509_VerifyCert(cert, cert), 0 if is_rsa else NOT_SUPPORTED)
                if is_rsa:
                    self.assertEqual(ZUL.X509_ValidatePath(cert, None, NO_DATES), 0)

    def test_a_path_of_twenty(self):
        keys = [self.key("rsa-1024") for _ in range(20)]
        self.good(ZUL.CERT_SelfSign(self.path("0.pem"), keys[0], b"CN=Level 0;profile=ca", 0))
        for level in range(1, 20):
            self.good(ZUL.CERT_Issue(self.path(f"{level}.pem"), self.path(f"{level - 1}.pem"), keys[level - 1], keys[level],
                                     f"CN=Level {level};profile=ca".encode(), 0))
        certs = [(self.folder / f"{level}.pem").read_bytes() for level in range(20)]
        shuffled = random.Random(1)
        for _ in range(20):
            order = shuffled.sample(certs, 20)
            self.assertEqual(ZUL.X509_ValidatePath(b";".join(order), None, 0), 0)
            self.assertEqual(ZUL.X509_ValidatePath(b";".join(order), certs[0], 0), 0)
            self.good(ZUL.CERT_CheckPath(None, 0, certs[19], b";".join(order), certs[0], None, None, 0))
            gap = certs[shuffled.randrange(1, 19)]
            order.remove(gap)
            self.assertEqual(ZUL.X509_ValidatePath(b";".join(order), None, 0), -NO_MATCH)
            self.assertEqual(ZUL.CERT_CheckPath(None, 0, certs[19], b";".join(order), certs[0], None, None, 0), ISSUER)
        (self.folder / "between.pem").write_bytes(b"".join(certs[1:19]))
        self.assertEqual(self.verified_by_openssl(["19.pem"], "-CAfile", "0.pem", "-untrusted", "between.pem",
                                                  "-auth_level", "1"), {"19.pem": 0})

    def make_authorities(self):
        """A root and its authorities, and of each a leaf, valid and expired, whose number and signature can be replaced."""
        root, subject = self.key("ed25519"), self.key("ed25519")
        self.good(ZUL.CERT_SelfSign(self.path("root.pem"), root, b"CN=Root;profile=ca;notBefore=2020-01-01", 0))
        self.keys, self.leaves = [], []
        for number in range(AUTHORITIES):
            key = self.key("ed25519")
            name = self.path(f"authority{number}.pem")
            self.good(ZUL.CERT_Issue(name, self.path("root.pem"), root, key,
                                     f"CN=Authority {number};profile=ca;notBefore=2020-01-01;valid=9y".encode(), 0))
            forms = []
            for dates in ("days=9", "notBefore=2021-01-01;notAfter=2022-01-01"):
                form = self.path("form.der")
                self.good(ZUL.CERT_Issue(form, name, key, subject, f"CN=leaf-000000;profile=server;dns=leaf-000000.example;"
                                         f"serial=01{'AA' * 15};{dates}".encode(), DER))
                forms.append((self.folder / "form.der").read_bytes())
            self.keys.append(key)
            self.leaves.append(forms)

    def leaf(self, number):
        """A certificate as DER, and what its path gives."""
        authority = number % AUTHORITIES
        expected = {7: EXPIRED, 8: SIGNATURE}.get(number // AUTHORITIES % 10, 0)
        form = self.leaves[authority][expected == EXPIRED]
        form = form.replace(b"leaf-000000", b"leaf-%06d" % number).replace(b"\x01" + b"\xaa" * 15,
                                                                        b"\x01" + number.to_bytes(15, "big"))
        length = 4 + int.from_bytes(form[6:8], "big")
        signed = form[4:4 + length]
        signature = ctypes.create_string_buffer(64)
        self.assertEqual(ZUL.SIG_Sign(signature, 64, signed, len(signed), self.keys[authority], b"ed25519", 0), 64)
        signature = bytes(signature.raw)
        if expected == SIGNATURE:
            signature = bytes([signature[0] ^ 1]) + signature[1:]
        return form[:4] + signed + form[4 + length:-64] + signature, expected

    def test_many_leaves(self):
        self.make_authorities()
        between = "".join((self.folder / f"authority{n}.pem").read_text() for n in range(AUTHORITIES))
        (self.folder / "between.pem").write_text(between)
        root, authorities = self.path("root.pem"), [self.path(f"authority{n}.pem") for n in range(AUTHORITIES)]
        early, sample, paths = None, {}, 0
        with open(self.folder / "all.pem", "w") as everything:
            for number in range(COUNT):
                der, expected = self.leaf(number)
                cert = base64.b64encode(der)
                self.assertEqual(text_of(ZUL.CERT_Query, cert, b"subject", 0), "CN=leaf-%06d" % number)
                self.assertEqual(int(text_of(ZUL.X509_QueryCert, cert, b"serialNumber", 0)[2:], 16), number)
                self.assertEqual(ZUL.CERT_CheckName(cert, b"leaf-%06d.example" % number, 0), 0)
                if number % 7 == 0:
                    paths += 1
                    self.assertEqual(ZUL.CERT_CheckPath(None, 0, cert, authorities[number % AUTHORITIES], root, None, None, 0),
                                     expected, number)
                if number % 20 == 0:
                        self.assertIn('"dNSName":"leaf-%06d.example"' % number,
                                  text_of(ZUL.CERT_Report, cert, JSON, room=20000))
                if number % (COUNT // 80) == 0:
                    sample[f"{number}.pem"] = expected
                    (self.folder / f"{number}.pem").write_text(pem_of(der))
                everything.write(pem_of(der))
                if number == COUNT // 5:
                    early = resident()
            everything.write(between)
        late = resident()
        self.assertLess(late - early, 4096)
        self.assertGreater(paths, COUNT // 10)
        found = self.verified_by_openssl(list(sample), "-CAfile", "root.pem", "-untrusted", "between.pem")
        self.assertEqual(found, {name: FAULTS[expected] for name, expected in sample.items()})

        # One list of everything, among which the issuer has to be found, and all that the system trusts.
        trusted = str(BUNDLE).encode() + b";" + root
        for number in (0, COUNT // 2, COUNT - 1, 7 * AUTHORITIES, 8 * AUTHORITIES):
            der, expected = self.leaf(number)
            cert = base64.b64encode(der)
            self.assertEqual(ZUL.CERT_CheckPath(None, 0, cert, self.path("all.pem"), trusted, None, None, 0), expected)
        self.assertEqual(ZUL.CERT_CheckPath(None, 0, cert, self.path("all.pem"), str(BUNDLE).encode(), None, None, 0), ISSUER)
        print(f"{COUNT} leaves, {paths} paths; memory {early} -> {late} KiB, {resident()} KiB after lists of "
              f"{(self.folder / 'all.pem').stat().st_size >> 20} MiB")


if __name__ == "__main__":
    ZUL = ctypes.CDLL(sys.argv[1])
    # The order of the others' arguments.
    ZUL.X509_CertThumb_ = lambda out, room, cert, options: ZUL.X509_CertThumb(cert, out, room, options)
    ZUL.X509_CertThumb_.__name__ = "X509_CertThumb"
    COUNT = int(sys.argv[2]) if len(sys.argv) > 2 else 100000
    unittest.main(argv=sys.argv[:1])
