#!/usr/bin/env python3
"""Exchanges derived keys, messages and PKCS #12 files with python3-cryptography, and signatures with minisign, both ways.
Usage: cryptography_test.py MODULE"""
import base64
import ctypes
import datetime
import hashlib
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import ec, ed25519, rsa, utils
from cryptography.hazmat.primitives.ciphers import aead
from cryptography.hazmat.primitives.kdf.hkdf import HKDF
from cryptography.hazmat.primitives.kdf.pbkdf2 import PBKDF2HMAC
from cryptography.hazmat.primitives.kdf.scrypt import Scrypt
from cryptography.hazmat.primitives.serialization import Encoding, NoEncryption, PrivateFormat, PublicFormat, pkcs12

RAW, DETERMINISTIC = 1, 2
SIGNATURE_ERROR = 22
DATA = bytes(range(200))

KEYS = {
    "rsa": rsa.generate_private_key(65537, 2048),
    "p-256": ec.generate_private_key(ec.SECP256R1()),
    "p-384": ec.generate_private_key(ec.SECP384R1()),
    "p-521": ec.generate_private_key(ec.SECP521R1()),
    "ed25519": ed25519.Ed25519PrivateKey.generate(),
}
HASHES = {"sha1": hashes.SHA1(), "sha224": hashes.SHA224(), "sha256": hashes.SHA256(), "sha384": hashes.SHA384(),
          "sha512": hashes.SHA512(), "sha512-256": hashes.SHA512_256(), "sha3-256": hashes.SHA3_256(),
          "sha3-512": hashes.SHA3_512()}


def last_error():
    text = ctypes.create_string_buffer(512)
    ZUL.ZUL_LastError(text, 511)
    return text.value.decode()


def output(function, *arguments, room=None):
    """The bytes that a function of the length convention writes, with room for what its query asks for."""
    needed = function(None, 0, *arguments) if room is None else room
    if needed >= 0:
        buffer = ctypes.create_string_buffer(needed + 1)
        needed = function(buffer, needed, *arguments)
    if needed < 0:
        raise ValueError(f"{-needed} {last_error()}")
    return buffer.raw[:needed]


def sized(*blocks):
    return [argument for block in blocks for argument in (block, len(block))]


def pkcs8(key):
    return key.private_bytes(Encoding.DER, PrivateFormat.PKCS8, NoEncryption())


def spki(key):
    return key.public_key().public_bytes(Encoding.DER, PublicFormat.SubjectPublicKeyInfo)


class Interop(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zul-interop-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.file = self.folder / "file"

    def read(self, content, password=None):
        self.file.write_bytes(content)
        return output(ZUL.KEY_Read, os.fsencode(self.file), password, 0)

    def private(self, kind):
        return self.read(pkcs8(KEYS[kind]))

    def public(self, kind):
        return self.read(spki(KEYS[kind]))

    def assert_verifies(self, signature, data, key, algorithm, options=0):
        self.assertEqual(ZUL.SIG_Verify(*sized(signature, data), key, algorithm, options), 0, last_error())
        self.assertEqual(ZUL.SIG_Verify(*sized(signature, data + b"x"), key, algorithm, options), SIGNATURE_ERROR)

    def test_raw_ecdsa_signatures_hold_the_same_numbers(self):
        for kind, size in (("p-256", 32), ("p-384", 48), ("p-521", 66)):
            with self.subTest(kind):
                raw = output(ZUL.SIG_Sign, *sized(DATA), self.private(kind), b"ecdsa-sha512", RAW | DETERMINISTIC)
                numbers = int.from_bytes(raw[:size], "big"), int.from_bytes(raw[size:], "big")
                der = output(ZUL.SIG_Sign, *sized(DATA), self.private(kind), b"ecdsa-sha512", DETERMINISTIC)
                self.assertEqual(utils.encode_dss_signature(*numbers), der)
                KEYS[kind].public_key().verify(der, DATA, ec.ECDSA(hashes.SHA512()))

    def test_keys_are_derived_alike(self):
        key, salt, info = b"a key or password", b"salt and more", bytes(90)
        for name, digest in HASHES.items():
            for length in (1, 33, 300):
                with self.subTest(name, length=length):
                    self.assertEqual(output(ZUL.KDF_Hkdf, *sized(key, salt, info), name.encode(), room=length),
                                     HKDF(digest, length, salt, info).derive(key))
                    self.assertEqual(output(ZUL.KDF_Pbkdf2, *sized(key, salt), 77, name.encode(), room=length),
                                     PBKDF2HMAC(digest, length, salt, 77).derive(key))
        for n, r, p in ((2, 1, 1), (64, 3, 5), (1024, 8, 2)):
            with self.subTest("scrypt", n=n, r=r, p=p):
                self.assertEqual(output(ZUL.KDF_Scrypt, *sized(key, salt), n, r, p, room=100),
                                 Scrypt(salt, 100, n, r, p).derive(key))

    def test_messages_are_exchanged(self):
        ciphers = [("aes-128-gcm", 16, aead.AESGCM, 12), ("aes-192-gcm", 24, aead.AESGCM, 8),
                   ("aes-256-gcm", 32, aead.AESGCM, 60), ("chacha20-poly1305", 32, aead.ChaCha20Poly1305, 12)]
        if hasattr(aead, "AESGCMSIV"):
            ciphers.append(("aes-256-gcm-siv", 32, aead.AESGCMSIV, 12))
        for name, size, cipher, nonce_size in ciphers:
            key, nonce = os.urandom(size), os.urandom(nonce_size)
            for length in (1, 16, 63, 64, 1000, 5003):
                with self.subTest(name, length=length):
                    plain, aad = os.urandom(length), os.urandom(length % 70)
                    sealed = cipher(key).encrypt(nonce, plain, aad)
                    more = [*sized(key, nonce, aad), name.encode(), 0]
                    self.assertEqual(output(ZUL.AEAD_Encrypt, *sized(plain), *more), sealed)
                    self.assertEqual(output(ZUL.AEAD_Decrypt, *sized(sealed), *more), plain)

    def test_pkcs12_files(self):
        password, name = "p\u00e4ss\u20ac\U0001F600".encode(), "Own \u00fc".encode()
        subject = x509.Name([x509.NameAttribute(x509.NameOID.COMMON_NAME, "Own")])
        schemes = [(pkcs12.PBES.PBESv1SHA1And3KeyTripleDESCBC, hashes.SHA1()),
                   (pkcs12.PBES.PBESv2SHA256AndAES256CBC, hashes.SHA512())]
        for kind in ("rsa", "p-256", "p-384", "p-521", "ed25519"):
            key, certs = KEYS[kind], self.folder / "certs"
            now = datetime.datetime(2026, 1, 1)
            certificate = (x509.CertificateBuilder().subject_name(subject).issuer_name(subject).serial_number(1)
                           .public_key(key.public_key()).not_valid_before(now).not_valid_after(now.replace(year=2036))
                           .sign(key, None if kind == "ed25519" else hashes.SHA256()))
            for scheme, digest in schemes:
                encryption = (PrivateFormat.PKCS12.encryption_builder().kdf_rounds(2000).key_cert_algorithm(scheme)
                              .hmac_hash(digest).build(password))
                self.file.write_bytes(pkcs12.serialize_key_and_certificates(name, key, certificate, None, encryption))
                text = ctypes.create_string_buffer(4000)
                self.assertEqual(ZUL.P12_Unpack(os.fsencode(certs), text, 3999, os.fsencode(self.file), password, 0), 0,
                                 last_error())
                self.assertEqual(ZUL.KEY_Match(text.value, self.public(kind)), 0)
                self.assertEqual(x509.load_pem_x509_certificate(certs.read_bytes()), certificate)
            self.file.unlink()
            for options in (0, 0x100):  # PBES2, and the schemes of old
                self.assertEqual(ZUL.P12_Pack(os.fsencode(self.file), os.fsencode(certs), text, password, name, options),
                                 0, last_error())
                made = pkcs12.load_pkcs12(self.file.read_bytes(), password)
                self.assertEqual((pkcs8(made.key), made.cert.certificate), (pkcs8(key), certificate))
                self.assertEqual(made.cert.friendly_name, name)

    def test_minisign_signatures(self):
        """The signature is that of a BLAKE2b digest; a second one covers the first and the comment."""
        def run(*command):
            return subprocess.run(["minisign", *command], cwd=self.folder, capture_output=True, text=True)

        def parts(name):
            return [line if b"comment" in line else base64.b64decode(line)
                    for line in (self.folder / name).read_bytes().splitlines()]
        (self.folder / "data").write_bytes(DATA)
        digest, prefix = hashlib.blake2b(DATA).digest(), b"trusted comment: "
        self.assertEqual(run("-G", "-W", "-p", "public", "-s", "secret").returncode, 0)
        self.assertEqual(run("-S", "-s", "secret", "-m", "data", "-t", "a comment").returncode, 0)
        identity = parts("public")[1]
        head = spki(KEYS["ed25519"])[:12]  # the same for every key
        key = self.read(head + identity[10:])
        _, signature, comment, all_signature = parts("data.minisig")
        self.assertEqual((signature[:2], signature[2:10]), (b"ED", identity[2:10]))
        self.assert_verifies(signature[10:], digest, key, b"ed25519")
        self.assert_verifies(all_signature, signature[10:] + comment[len(prefix):], key, b"ed25519")

        own, number = self.private("ed25519"), b"8 bytes."
        sign = lambda data: output(ZUL.SIG_Sign, *sized(data), own, b"ed25519", 0)
        signature = sign(digest)
        lines = [b"untrusted comment: ours", base64.b64encode(b"ED" + number + signature), prefix + b"ours too",
                 base64.b64encode(sign(signature + b"ours too"))]
        (self.folder / "data.minisig").write_bytes(b"\n".join(lines) + b"\n")
        public = base64.b64encode(b"Ed" + number + spki(KEYS["ed25519"])[12:]).decode()
        self.assertEqual(run("-V", "-P", public, "-m", "data").returncode, 0)
        (self.folder / "data").write_bytes(DATA + b"x")
        self.assertNotEqual(run("-V", "-P", public, "-m", "data").returncode, 0)


if __name__ == "__main__":
    ZUL = ctypes.CDLL(sys.argv[1])
    unittest.main(argv=sys.argv[:1])
