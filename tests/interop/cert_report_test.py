#!/usr/bin/env python3
"""Compares reports as JSON and answers to queries with what python3-cryptography reads, and host names with what
openssl matches. Usage: cert_report_test.py MODULE"""
import base64
import ctypes
import datetime
import ipaddress
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import warnings

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import dsa, ec, rsa
from cryptography.x509.oid import ExtensionOID, NameOID

JSON = 0x10
DATA = pathlib.Path(__file__).resolve().parents[1] / "data"
ROOTS = pathlib.Path("/etc/ssl/certs/ca-certificates.crt")
BLOCK = re.compile(rb"-----BEGIN ([A-Z0-9 ]+)-----(.*?)-----END", re.S)
USAGES = {"digitalSignature": "digital_signature", "nonRepudiation": "content_commitment",
          "keyEncipherment": "key_encipherment", "dataEncipherment": "data_encipherment",
          "keyAgreement": "key_agreement", "keyCertSign": "key_cert_sign", "cRLSign": "crl_sign"}


def text_of(function, *arguments):
    needed = function(None, 0, *arguments)
    if needed < 0:
        error = ctypes.create_string_buffer(512)
        ZUL.ZUL_LastError(error, 511)
        raise ValueError(f"{-needed} {error.value.decode()}")
    buffer = ctypes.create_string_buffer(needed + 1)
    function(buffer, max(needed, 1), *arguments)
    return buffer.value.decode()


def pem(der, label="CERTIFICATE"):
    return f"-----BEGIN {label}-----\n{base64.b64encode(der).decode()}\n-----END {label}-----\n".encode()


def report(argument):
    objects = json.loads(text_of(ZUL.CERT_Report, argument, JSON))["objects"]
    text = text_of(ZUL.CERT_Report, argument, 0)
    assert all(c == "\n" or (c.isprintable() or c == "\xa0" or ord(c) > 0xFF) for c in text)
    return objects


def query(argument, word):
    return text_of(ZUL.CERT_Query, argument, word.encode(), 0)


def time(moment):
    return moment.strftime("%Y-%m-%dT%H:%M:%SZ") if moment.year >= 1000 else f"{moment.isoformat()}Z"


def attributes(name):
    return [[attribute.value for attribute in rdn] for rdn in name.rdns]


def shown_attributes(name):
    return [sorted(a["value"] for a in rdn if isinstance(a["value"], str)) for rdn in name["rdnSequence"]]


def general_name(name):
    if isinstance(name, x509.DNSName):
        return {"dNSName": name.value}
    if isinstance(name, x509.RFC822Name):
        return {"rfc822Name": name.value}
    if isinstance(name, x509.UniformResourceIdentifier):
        return {"uniformResourceIdentifier": name.value}
    if isinstance(name, x509.IPAddress):
        return {"iPAddress": str(name.value)}
    if isinstance(name, x509.RegisteredID):
        return {"registeredID": name.value.dotted_string}
    return None


def extension_values(entries):
    return {entry["extnID"]: entry["extnValue"] for entry in entries}


def is_certificate(der):
    try:
        certificate = x509.load_der_x509_certificate(der)
        attributes(certificate.subject), attributes(certificate.issuer), list(certificate.extensions)
        return True
    except Exception:  # the library under test has to cope with more than the peer takes
        return False


def objects_of(path):
    data = path.read_bytes()
    if blocks := BLOCK.findall(data):
        return [base64.b64decode(body) for label, body in blocks if b"CERTIFICATE" in label and b"REQ" not in label]
    return [data] if data[:1] == b"0" else []


class Reports(unittest.TestCase):
    def assert_name(self, shown, name):
        if any(not isinstance(value, str) for rdn in attributes(name) for value in rdn):
            return  # the peer keeps BIT STRINGs as bytes
        self.assertEqual(shown_attributes(shown), [sorted(rdn) for rdn in attributes(name)])

    def assert_key(self, shown, key):
        if isinstance(key, rsa.RSAPublicKey):
            self.assertEqual((int(shown["modulus"], 16), shown["publicExponent"], shown["bits"]),
                             (key.public_numbers().n, key.public_numbers().e, key.key_size))
        elif isinstance(key, ec.EllipticCurvePublicKey):
            point = key.public_bytes(serialization.Encoding.X962, serialization.PublicFormat.UncompressedPoint)
            self.assertEqual((shown["namedCurve"], shown["bits"]), (key.curve.name, key.key_size))
            self.assertIn(shown["publicKey"][:2], ("02", "03", "04"))
            self.assertEqual(shown["publicKey"][2:66], point.hex()[2:66])
        elif isinstance(key, dsa.DSAPublicKey):
            numbers = key.public_numbers()
            self.assertEqual([int(shown[i], 16) for i in ("p", "q", "g", "publicKey")],
                             [numbers.parameter_numbers.p, numbers.parameter_numbers.q, numbers.parameter_numbers.g,
                              numbers.y])

    def assert_extension(self, shown, value):
        if isinstance(value, x509.BasicConstraints):
            self.assertEqual((shown["cA"], shown.get("pathLenConstraint")), (value.ca, value.path_length))
        elif isinstance(value, x509.KeyUsage):
            self.assertEqual([name for name in USAGES if name in shown],
                             [name for name, attribute in USAGES.items() if getattr(value, attribute)])
        elif isinstance(value, x509.SubjectKeyIdentifier):
            self.assertEqual(shown, value.digest.hex())
        elif isinstance(value, x509.AuthorityKeyIdentifier):
            self.assertEqual(shown.get("keyIdentifier"), value.key_identifier and value.key_identifier.hex())
            if value.authority_cert_serial_number is not None:
                self.assertEqual(int(shown["authorityCertSerialNumber"], 16), value.authority_cert_serial_number)
        elif isinstance(value, (x509.SubjectAlternativeName, x509.IssuerAlternativeName)):
            self.assertEqual(len(shown), len(list(value)))
            for ours, theirs in zip(shown, value):
                if expected := general_name(theirs):
                    self.assertEqual(ours, expected)
                elif isinstance(theirs, x509.DirectoryName):
                    self.assert_name(ours["directoryName"], theirs.value)
        elif isinstance(value, x509.CertificatePolicies):
            self.assertEqual(len(shown), len(list(value)))
            for ours, theirs in zip(shown, value):
                uris = [q["cPSuri"] for q in ours.get("policyQualifiers", ()) if "cPSuri" in q]
                self.assertEqual(uris, [q for q in theirs.policy_qualifiers or () if isinstance(q, str)])
        elif isinstance(value, x509.CRLDistributionPoints):
            self.assertEqual([[name.get("uniformResourceIdentifier") for name in
                               point.get("distributionPoint", {}).get("fullName", ())] for point in shown],
                             [[name.value if isinstance(name, x509.UniformResourceIdentifier) else None
                               for name in point.full_name or ()] for point in value])
        elif isinstance(value, x509.AuthorityInformationAccess):
            self.assertEqual([entry["accessLocation"] for entry in shown],
                             [general_name(entry.access_location) for entry in value])
        elif isinstance(value, x509.NameConstraints):
            for ours, theirs in ((shown.get("permittedSubtrees", []), value.permitted_subtrees),
                                 (shown.get("excludedSubtrees", []), value.excluded_subtrees)):
                self.assertEqual(len(ours), len(theirs or []))
                for base, name in zip(ours, theirs or []):
                    if expected := general_name(name):
                        self.assertEqual(base["base"], expected)
        elif isinstance(value, (x509.CRLNumber, x509.DeltaCRLIndicator)):
            self.assertEqual(int(str(shown), 0), value.crl_number)

    def assert_certificate(self, shown, peer):
        self.assertEqual(int(shown["serialNumber"], 16), peer.serial_number)
        self.assertEqual(shown["version"], peer.version.value + 1)
        self.assertEqual(shown["validity"], {"notBefore": time(peer.not_valid_before),
                                             "notAfter": time(peer.not_valid_after)})
        self.assertEqual(shown["fingerprints"]["sha1"], peer.fingerprint(hashes.SHA1()).hex())
        self.assertEqual(shown["fingerprints"]["sha256"], peer.fingerprint(hashes.SHA256()).hex())
        self.assertEqual(shown["signatureValue"], peer.signature.hex())
        self.assert_name(shown["issuer"], peer.issuer)
        self.assert_name(shown["subject"], peer.subject)
        try:
            self.assert_key(shown["subjectPublicKeyInfo"], peer.public_key())
        except (ValueError, TypeError) as error:
            self.assertNotIsInstance(error, AssertionError)  # a key that the peer does not know
        values = extension_values(shown.get("extensions", ()))
        self.assertEqual(list(values), [extension.oid.dotted_string for extension in peer.extensions])
        for entry, extension in zip(shown.get("extensions", ()), peer.extensions):
            self.assertEqual(entry["critical"], extension.critical)
            self.assert_extension(entry["extnValue"], extension.value)

    def test_roots(self):
        if not ROOTS.exists():
            self.skipTest("no package ca-certificates")
        roots = objects_of(ROOTS)
        shown = report(os.fsencode(ROOTS))
        self.assertEqual(len(shown), len(roots))
        self.assertGreater(len(shown), 100)
        self.assertNotIn('"malformed"', json.dumps(shown))
        for ours, der in zip(shown, roots):
            self.assert_certificate(ours, x509.load_der_x509_certificate(der))
            self.assertEqual(query(pem(der), "selfSigned"), "1")

    def test_certificates_and_lists_of_other_tests(self):
        certificates = lists = 0
        for path in sorted(DATA.rglob("*")):
            if path.suffix not in (".der", ".pem", ".crt", ".crl", ".cer"):
                continue
            for der in objects_of(path):
                with self.subTest(path.name):
                    if is_certificate(der) and path.name not in ("times.der", "times_bad.der"):
                        self.assert_certificate(report(pem(der))[0], x509.load_der_x509_certificate(der))
                        certificates += 1
                        continue
                    try:
                        peer = x509.load_der_x509_crl(der)
                    except Exception:
                        continue
                    self.assert_list(report(pem(der))[0], peer)
                    lists += 1
        self.assertGreater(certificates, 30)
        self.assertGreater(lists, 2)

    def assert_list(self, shown, peer):
        self.assertEqual(shown["thisUpdate"], time(peer.last_update))
        self.assertEqual(shown.get("nextUpdate"), peer.next_update and time(peer.next_update))
        self.assert_name(shown["issuer"], peer.issuer)
        self.assertEqual([(int(entry["userCertificate"], 16), entry["revocationDate"])
                          for entry in shown.get("revokedCertificates", ())],
                         [(entry.serial_number, time(entry.revocation_date)) for entry in peer])
        for extension in peer.extensions:
            self.assert_extension(extension_values(shown["crlExtensions"])[extension.oid.dotted_string],
                                  extension.value)

    def test_queries(self):
        key = ec.generate_private_key(ec.SECP384R1())
        name = x509.Name([x509.NameAttribute(NameOID.COUNTRY_NAME, "AU"),
                          x509.NameAttribute(NameOID.COMMON_NAME, "Zoë, \"q\"\n\u202e")])
        start = datetime.datetime(2026, 1, 31, 12, 30)
        builder = x509.CertificateBuilder(name, name, key.public_key(), 2 ** 159 - 1, start,
                                          start + datetime.timedelta(days=20000))
        names = [x509.DNSName("a.example"), x509.IPAddress(ipaddress.ip_address("2001:db8::1")),
                 x509.RFC822Name("joe@example.com"), x509.DNSName("*.b.example")]
        certificate = builder.add_extension(x509.SubjectAlternativeName(names), False).add_extension(
            x509.BasicConstraints(True, 4), True).sign(key, hashes.SHA384())
        argument = certificate.public_bytes(serialization.Encoding.PEM)
        spki = key.public_key().public_bytes(serialization.Encoding.PEM,
                                             serialization.PublicFormat.SubjectPublicKeyInfo)
        digest = hashes.Hash(hashes.SHA256())
        digest.update(base64.b64decode(b"".join(spki.splitlines()[1:-1])))
        for word, answer in {
                "subject": r'C=AU, CN=Zoë\, \"q\"\x0a\xe2\x80\xae', "serialNumber": f"{2 ** 159 - 1:x}",
                "notBefore": "2026-01-31T12:30:00Z", "publicKeyBits": "384", "curve": "secp384r1",
                "signatureAlgorithm": "ecdsa-with-SHA384", "dns": "a.example\n*.b.example", "ip": "2001:db8::1",
                "email": "joe@example.com", "isCA": "1", "pathLength": "4", "selfSigned": "1",
                "spkiSha256": digest.finalize().hex(), "publicKey": spki.decode(),
                "sha256": certificate.fingerprint(hashes.SHA256()).hex()}.items():
            self.assertEqual(query(argument, word), answer, word)
        days = (certificate.not_valid_after - datetime.datetime.utcnow()).days
        self.assertIn(int(query(argument, "daysLeft")), (days, days - 1))
        wrong = pem(certificate.public_bytes(serialization.Encoding.DER).replace(b"a.example", b"A.example"))
        self.assertEqual(query(wrong, "selfSigned"), "0")

    def test_host_names(self):
        key = ec.generate_private_key(ec.SECP256R1())
        name = x509.Name([x509.NameAttribute(NameOID.COMMON_NAME, "cn.example")])
        start = datetime.datetime(2026, 1, 31)
        patterns = ["www.example.com", "*.example.org", "*.com", "f*.example.net", "xn--bcher-kva.example",
                    "*.xn--bcher-kva.example", "*.a.b.example"]
        certificate = x509.CertificateBuilder(name, name, key.public_key(), 1, start, start).add_extension(
            x509.SubjectAlternativeName([x509.DNSName(p) for p in patterns] +
                                        [x509.IPAddress(ipaddress.ip_address("192.0.2.1"))]), False).sign(
                                            key, hashes.SHA256())
        argument = certificate.public_bytes(serialization.Encoding.PEM)
        with tempfile.NamedTemporaryFile(suffix=".pem") as file:
            file.write(argument)
            file.flush()
            for host in ("www.example.com", "WWW.example.com", "example.com", "a.example.org", "a.b.example.org",
                         "example.org", "example.com", "b.com", "xn--bcher-kva.example", "a.xn--bcher-kva.example",
                         "x.a.b.example", "a.b.example", "cn.example", "localhost", "192.0.2.1"):
                option = "-checkip" if host[0].isdigit() else "-checkhost"
                peer = subprocess.run(["openssl", "x509", "-in", file.name, "-noout", option, host], check=True,
                                      capture_output=True, text=True).stdout
                self.assertEqual(ZUL.CERT_CheckName(argument, host.encode(), 0) == 0, "does match" in peer, host)
        # Here the peer takes a wildcard that is part of a label, which RFC 9525 does not.
        self.assertEqual(ZUL.CERT_CheckName(argument, b"foo.example.net", 0), 21)


if __name__ == "__main__":
    warnings.simplefilter("ignore")
    ZUL = ctypes.CDLL(sys.argv.pop(1))
    unittest.main()
