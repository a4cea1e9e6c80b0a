#!/usr/bin/env python3
"""Has openssl, certtool and python3-cryptography read, verify and use CRLs of CERT_IssueCRL.
Usage: crl_test.py MODULE"""
import ctypes
import datetime
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization

DER = 1
KEYS = {
    "rsa": "RSA -pkeyopt rsa_keygen_bits:2048",
    "rsa-pss": "RSA-PSS -pkeyopt rsa_keygen_bits:2048",
    "p-256": "EC -pkeyopt ec_paramgen_curve:P-256",
    "p-384": "EC -pkeyopt ec_paramgen_curve:P-384",
    "p-521": "EC -pkeyopt ec_paramgen_curve:P-521",
    "ed25519": "ED25519",
}
FLAGS = x509.ReasonFlags
CA_EXTENSIONS = "-addext keyUsage=critical,keyCertSign,cRLSign"


def utc(*fields):
    return datetime.datetime(*fields)


class CrlInterop(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zul-crl-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_shell(self, command, code=0):
        result = subprocess.run(command, shell=True, cwd=self.folder, capture_output=True, text=True)
        self.assertEqual(result.returncode, code, f"{command}\n{result.stdout}{result.stderr}")
        return result.stdout + result.stderr

    def path(self, name):
        return None if name is None else os.fsencode(self.folder / name)

    def make_ca(self, kind="p-256", serials=(10, 11)):
        """ca.pem and ca.key, and a certificate for each serial number, all made by openssl."""
        self.run_shell(f"openssl genpkey -algorithm {KEYS[kind]} -out ca.key")
        self.run_shell(f"openssl req -x509 -new -key ca.key -subj '/C=AU/O=Example/CN=CA' {CA_EXTENSIONS} -out ca.pem")
        self.run_shell("openssl req -new -newkey ed25519 -nodes -keyout leaf.key -subj /CN=leaf -out leaf.req")
        self.run_shell("printf 'authorityKeyIdentifier=keyid\nsubjectKeyIdentifier=hash\n' >leaf.ext")
        for serial in serials:
            self.run_shell("openssl x509 -req -in leaf.req -CA ca.pem -CAkey ca.key -days 9 -extfile leaf.ext "
                           f"-set_serial {serial} -out {serial}.pem")

    def issue(self, out, revoked="", description="", earlier=None, options=0):
        status = ZUL.CERT_IssueCRL(self.path(out), self.path("ca.pem"), self.path("ca.key"), self.path(earlier),
                                   revoked.encode(), description.encode(), options)
        text = ctypes.create_string_buffer(512)
        ZUL.ZUL_LastError(text, 511)
        self.assertEqual(status, 0, text.value.decode())
        content = (self.folder / out).read_bytes()
        return x509.load_der_x509_crl(content) if options == DER else x509.load_pem_x509_crl(content)

    def verify(self, serial, crls, expected, options=""):
        """What openssl says of a certificate by these lists: "OK" or a part of the error."""
        self.run_shell(f"cat {crls} >crls")
        said = self.run_shell(f"openssl verify -crl_check -x509_strict {options} -CAfile ca.pem -CRLfile crls "
                              f"{serial}.pem", 0 if expected == "OK" else 2)
        self.assertIn(expected, said)

    def value(self, crl, kind, critical):
        extension = crl.extensions.get_extension_for_class(kind)
        self.assertEqual(extension.critical, critical)
        return extension.value

    def test_every_kind_of_key(self):
        for kind in KEYS:
            with self.subTest(kind):
                self.make_ca(kind)
                crl = self.issue("crl", "serial=0A,reason=keyCompromise,date=2026-01-31T01:02:03,invalidity=2025-12-01;"
                                 "serial=ffee", "number=4096;days=7")
                self.run_shell("openssl crl -in crl -verify -CAfile ca.pem -noout")
                self.verify(10, "crl", "certificate revoked")
                self.verify(11, "crl", "OK")
                # certtool refuses CRLs with PSS of openssl too; cryptography 38 checks neither PSS nor Ed25519.
                if kind != "rsa-pss":
                    self.run_shell("certtool --verify-crl --load-ca-certificate ca.pem --infile crl")
                ca = x509.load_pem_x509_certificate((self.folder / "ca.pem").read_bytes())
                if kind not in ("rsa-pss", "ed25519"):
                    self.assertTrue(crl.is_signature_valid(ca.public_key()))
                self.assertEqual(crl.issuer, ca.subject)
                self.assertEqual(crl.next_update - crl.last_update, datetime.timedelta(7))
                self.assertEqual(self.value(crl, x509.CRLNumber, False).crl_number, 4096)
                self.assertEqual(self.value(crl, x509.AuthorityKeyIdentifier, False).key_identifier,
                                 ca.extensions.get_extension_for_class(x509.SubjectKeyIdentifier).value.digest)
                first, second = crl
                self.assertEqual((first.serial_number, first.revocation_date), (10, utc(2026, 1, 31, 1, 2, 3)))
                self.assertEqual(self.value(first, x509.CRLReason, False).reason, FLAGS.key_compromise)
                self.assertEqual(self.value(first, x509.InvalidityDate, False).invalidity_date, utc(2025, 12, 1))
                self.assertEqual((second.serial_number, second.revocation_date, len(second.extensions)),
                                 (0xFFEE, crl.last_update, 0))
                self.issue("der", "", "", "crl", DER)
                self.run_shell("openssl crl -inform DER -in der -verify -CAfile ca.pem -noout")

    def test_reasons(self):
        self.make_ca()
        names = ["unspecified", "keyCompromise", "cACompromise", "affiliationChanged", "superseded",
                 "cessationOfOperation", "certificateHold", "removeFromCRL", "privilegeWithdrawn", "aACompromise"]
        crl = self.issue("crl", ";".join(f"serial={i + 1:x},reason={name}" for i, name in enumerate(names)),
                         "deltaFrom=3;number=4")
        for entry, name in zip(crl, names):
            if name == "unspecified":
                self.assertEqual(len(entry.extensions), 0)
            else:
                self.assertEqual(self.value(entry, x509.CRLReason, False).reason.value, name)
        self.assertEqual(self.value(crl, x509.DeltaCRLIndicator, True).crl_number, 3)

    def test_extensions(self):
        self.make_ca()
        uri = x509.UniformResourceIdentifier
        crl = self.issue("crl", "", "idp=http://a.example/1,'dirName:CN=Point';onlyUser;"
                         "onlyReasons=keyCompromise,privilegeWithdrawn,aACompromise;freshestCrl=http://a.example/d;"
                         "caIssuers=http://a.example/ca;expiredCertsOnCRL=2020-01-01;extension=1.2.3.4:0500")
        point = self.value(crl, x509.IssuingDistributionPoint, True)
        self.assertEqual(point.full_name, [uri("http://a.example/1"), x509.DirectoryName(
            x509.Name([x509.NameAttribute(x509.NameOID.COMMON_NAME, "Point")]))])
        self.assertEqual(point.only_some_reasons, frozenset(
            [FLAGS.key_compromise, FLAGS.privilege_withdrawn, FLAGS.aa_compromise]))
        self.assertEqual((point.only_contains_user_certs, point.only_contains_ca_certs, point.indirect_crl,
                          point.only_contains_attribute_certs), (True, False, False, False))
        self.assertEqual(self.value(crl, x509.FreshestCRL, False)[0].full_name, [uri("http://a.example/d")])
        access = self.value(crl, x509.AuthorityInformationAccess, False)[0]
        self.assertEqual(access.access_method, x509.AuthorityInformationAccessOID.CA_ISSUERS)
        self.assertEqual(access.access_location, uri("http://a.example/ca"))
        expired = crl.extensions.get_extension_for_oid(x509.ObjectIdentifier("2.5.29.60"))
        self.assertEqual(expired.value.value, b"\x18\x0f20200101000000Z")
        self.assertIn("Only User Certificates", self.run_shell("openssl crl -in crl -text -noout"))
        for flag, name in (("onlyCA", "only_contains_ca_certs"), ("onlyAttribute", "only_contains_attribute_certs"),
                           ("indirect", "indirect_crl")):
            point = self.value(self.issue("crl", "", flag), x509.IssuingDistributionPoint, True)
            self.assertTrue(getattr(point, name))

    def test_growth(self):
        """Three lists, the first one from elsewhere, with an extension that nobody knows."""
        self.make_ca(serials=(10, 11, 12))
        ca = x509.load_pem_x509_certificate((self.folder / "ca.pem").read_bytes())
        key = serialization.load_pem_private_key((self.folder / "ca.key").read_bytes(), None)
        odd = x509.UnrecognizedExtension(x509.ObjectIdentifier("1.2.3.4"), b"\x04\x03odd")
        builder = x509.CertificateRevocationListBuilder(ca.subject, utc(2025, 1, 1), utc(2025, 2, 1))
        builder = builder.add_extension(x509.CRLNumber(0xFFFF), False)
        for serial, reason in ((10, FLAGS.superseded), (11, FLAGS.certificate_hold)):
            builder = builder.add_revoked_certificate(
                x509.RevokedCertificateBuilder(serial, utc(2024, 5, serial)).add_extension(odd, False)
                .add_extension(x509.CRLReason(reason), False).build())
        first = builder.sign(key, hashes.SHA256())
        (self.folder / "first").write_bytes(first.public_bytes(serialization.Encoding.PEM))
        entries = [x509_bytes(first, serial) for serial in (10, 11)]
        second = self.issue("second", f"cert={self.folder / '12.pem'},reason=certificateHold", "", "first")
        self.assertEqual([entry.serial_number for entry in second], [10, 11, 12])
        self.assertEqual(self.value(second, x509.CRLNumber, False).crl_number, 0x10000)
        self.assertIn(b"".join(entries), second.tbs_certlist_bytes)
        third = self.issue("third", "serial=b,reason=cACompromise;serial=c,reason=removeFromCRL", "", "second")
        self.assertIn(entries[0], third.tbs_certlist_bytes)
        self.assertNotIn(entries[1], third.tbs_certlist_bytes)
        changed = third.get_revoked_certificate_by_serial_number(11)
        self.assertEqual(changed.revocation_date, utc(2024, 5, 11))
        self.assertEqual(self.value(changed, x509.CRLReason, False).reason, FLAGS.ca_compromise)
        self.verify(11, "third", "certificate revoked")
        self.verify(12, "second", "certificate revoked")
        self.verify(12, "third", "OK")
        dropped = self.issue("third", "", "dropBefore=2024-05-11", "second")
        self.assertEqual([entry.serial_number for entry in dropped], [11, 12])

    def test_delta(self):
        """One text makes the delta list and the next complete one, and both say the same."""
        self.make_ca(serials=(10, 11, 12, 13))
        self.issue("base", "serial=a,reason=certificateHold,date=2024-01-01;serial=b,reason=certificateHold;serial=c",
                   "number=7;freshestCrl=http://a.example/delta")
        changes = "serial=a,reason=superseded;serial=b,reason=removeFromCRL;serial=d"
        delta = self.issue("delta", changes, "delta", "base")
        self.issue("complete", changes, "", "base")
        self.assertEqual(self.value(delta, x509.DeltaCRLIndicator, True).crl_number, 7)
        self.assertEqual(self.value(delta, x509.CRLNumber, False).crl_number, 8)
        self.assertEqual({entry.serial_number for entry in delta}, {10, 11, 13})
        for serial, expected in ((10, "revoked"), (11, "OK"), (12, "revoked"), (13, "revoked")):
            self.verify(serial, "base delta", expected, "-use_deltas -extended_crl")
            self.verify(serial, "complete", expected)
        self.verify(13, "base", "OK")
        self.verify(11, "base", "revoked")
        again = self.issue("again", "serial=b,reason=keyCompromise;serial=e", "delta", "delta")
        self.assertEqual([entry.serial_number for entry in again], [10, 11, 13, 14])
        self.assertEqual(self.value(again, x509.DeltaCRLIndicator, True).crl_number, 7)
        self.verify(11, "base again", "revoked", "-use_deltas -extended_crl")

    def test_indirect(self):
        """Entries without certificateIssuer have that of the entry before (RFC 5280, 5.3.3)."""
        self.make_ca()

        def issuers(crl):
            issuer, found = "CA", []
            for entry in crl:
                try:
                    name = self.value(entry, x509.CertificateIssuer, True).get_values_for_type(x509.DirectoryName)[0]
                    issuer = name.get_attributes_for_oid(x509.NameOID.COMMON_NAME)[0].value
                except x509.ExtensionNotFound:
                    pass
                found.append(f"{issuer}{entry.serial_number}")
            return found

        first = self.issue("first", "serial=1;serial=1,issuer='CN=X',date=2024-01-01;serial=2,issuer='CN=X';"
                           "serial=2,reason=certificateHold,issuer='C=AU;O=example;CN=ca'", "indirect")
        self.assertEqual(issuers(first), ["CA1", "X1", "X2", "CA2"])
        self.assertEqual([len(entry.extensions) for entry in first], [0, 1, 0, 2])
        second = self.issue("second", "serial=3,issuer='CN=Y';serial=2,reason=removeFromCRL;serial=3,issuer='CN= x '",
                            "dropBefore=2024-01-02", "first")
        self.assertEqual(issuers(second), ["CA1", "X2", "Y3", "x3"])

    def test_many(self):
        self.make_ca()
        serials = [i * 7919 + 12345 for i in range(100000)]
        self.issue("crl", ";".join(f"serial={serial:x},reason=superseded" for serial in serials))
        crl = self.issue("next", "serial=1", "", "crl")
        self.assertEqual([entry.serial_number for entry in crl], serials + [1])
        self.assertIn("verify OK", self.run_shell("openssl crl -in next -verify -CAfile ca.pem -noout"))


def x509_bytes(crl, serial):
    """The encoding of the entry of a serial number below 128, in a list of short entries."""
    data = crl.tbs_certlist_bytes
    start = data.index(bytes([2, 1, serial, 0x17, 13])) - 2
    return data[start:start + 2 + data[start + 1]]


ZUL = ctypes.CDLL(sys.argv.pop(1))

if __name__ == "__main__":
    unittest.main()
