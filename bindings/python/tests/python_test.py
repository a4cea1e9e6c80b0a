#!/usr/bin/env python3
"""python_test.py ROOT [MODULE]: the package for Python, from the sources with a module, or as it is installed."""
import copy
import gc
import os
import pathlib
import pickle
import subprocess
import sys
import tempfile
import threading
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
PACKAGE = ROOT / "bindings" / "python"
if len(sys.argv) > 1:
    os.environ["ZULCORE_LIBRARY"] = sys.argv.pop(1)
    os.environ["PYTHONPATH"] = str(PACKAGE / "src")
    sys.path.insert(0, str(PACKAGE / "src"))

import zulcore  # noqa: E402
from zulcore import Key, ZulError, _raw, certs, messages  # noqa: E402


def records():
    for block in (ROOT / "tests/data/bindings/vectors.txt").read_text().split("\n\n"):
        fields = dict(line.split(" =", 1) for line in block.splitlines() if " =" in line and line[0] != "#")
        if "Kind" in fields:
            yield {name: value.strip() for name, value in fields.items()}


def computed(record):
    """The result of a record, None for a signature that verifies."""
    def data(name):
        return bytes.fromhex(record[name])

    kind = record["Kind"].replace("-refused", "")
    if kind == "hash":
        return zulcore.hash_bytes(data("Message"), record["Algorithm"])
    if kind == "hmac":
        return zulcore.hmac(data("Key"), data("Message"), record["Algorithm"])
    if kind == "verify":
        return Key.read(data("Key")).verify(data("Signature"), data("Message"), record["Algorithm"])
    if kind == "aead":
        call = zulcore.decrypt if record["Kind"] == "aead-refused" else zulcore.encrypt
        return call(data("Key"), data("Message"), aad=data("Aad"), nonce=data("Nonce"), algorithm=record["Algorithm"])
    size = len(data("Result"))
    if kind == "hkdf":
        return zulcore.hkdf(data("Key"), size, salt=data("Salt"), info=data("Info"), hash=record["Hash"])
    if kind == "pbkdf2":
        return zulcore.pbkdf2(data("Password"), data("Salt"), size, iterations=int(record["Iterations"]),
                              hash=record["Hash"])
    assert kind == "scrypt", kind
    return zulcore.scrypt(data("Password"), data("Salt"), size, n=int(record["N"]), r=int(record["R"]),
                          p=int(record["P"]))


class Package(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.before = os.getcwd()
        os.chdir(self.folder.name)
        self.addCleanup(os.chdir, self.before)

    def refused(self, code, call, *arguments, **options):
        with self.assertRaises(ZulError) as caught:
            call(*arguments, **options)
        self.assertEqual(caught.exception.name, code)
        return caught.exception

    def test_vectors(self):
        seen = set()
        for record in records():
            with self.subTest(**record):
                if "Error" in record:
                    with self.assertRaises(ZulError) as caught:
                        computed(record)
                    self.assertEqual(caught.exception.code, int(record["Error"]))
                else:
                    result = computed(record)
                    self.assertEqual("" if result is None else result.hex(), record.get("Result", ""))
                seen.add(record["Kind"])
        self.assertEqual(len(seen), 9)

    def test_version(self):
        self.assertEqual(zulcore.module_version(), int(zulcore.__version__.replace(".", "")))

    def test_pieces(self):
        data = bytes(range(256)) * 5000
        self.assertEqual(zulcore.hex_encode(data[:256]), data[:256].hex())
        pathlib.Path("data").write_bytes(data)
        digest = zulcore.Hash("sha512").add(data[:1000])
        twin = digest.copy()
        self.assertEqual(digest.add(memoryview(data)[1000:]).finish(), zulcore.hash_file("data", "sha512"))
        self.assertEqual(twin.add(bytearray(data[1000:])).finish(), zulcore.hash_bytes(data, "sha512"))
        self.assertEqual(len(zulcore.Hash("shake128").finish(100)), 100)
        mac = zulcore.Hmac("key").add(data[:7]).add(data[7:])
        self.assertEqual(mac.finish(), zulcore.hmac(b"key", data))
        self.assertRaises(ValueError, mac.add, b"")

    def test_keys(self):
        for kind, password, saved in (("rsa-1024", "pässword", {}), ("p-256", b"\xe4", {"parameters": "kdf=scrypt"}),
                                      ("p-384", None, {"own": True}), ("ed25519", None, {"der": True})):
            with self.subTest(kind):
                key = Key.generate(kind)
                key.save("key", password, unencrypted=password is None, **saved)
                key.public().save("public")
                for read in (Key.read("key", password), Key.read(pathlib.Path("key").read_bytes(), password)):
                    self.assertEqual(read.fingerprint, key.fingerprint)
                public = Key.read("public")
                self.assertEqual((key.is_private, public.is_private), (True, False))
                self.assertTrue(read.matches(public))
                signature = read.sign(b"text")
                public.verify(signature, b"text")
                self.refused("SIGNATURE_ERROR", public.verify, signature, b"texts")
                public.verify_file(key.sign_file("public"), "public")
                self.assertEqual(Key.read(key.public_pem()).fingerprint, key.fingerprint)
                key.check()
        self.assertFalse(Key.generate("p-256").matches(public) or key.matches(Key.generate("ed25519").public()))
        one, two = Key.generate("x25519"), Key.generate("x25519")
        self.assertEqual(one.agree(two.public()), two.agree(one))

    def test_secrets_are_wiped_and_hidden(self):
        key, identity, digest = Key.generate("p-256"), zulcore.make_identity(), zulcore.Hash().add(b"secret")
        texts = [key._text, identity._text, digest._context]
        self.assertFalse(any(text.value.decode("latin-1") in repr(owner) for text, owner in zip(texts, (key, identity))))
        self.assertIn("p-256, 256 bits, private", repr(key))
        for owner in (key, identity, digest):
            self.assertRaises(TypeError, pickle.dumps, owner)
            self.assertRaises(TypeError, copy.deepcopy, owner)
        self.assertTrue(all(any(text.raw) for text in texts))
        key.close()
        del identity, digest, owner
        gc.collect()
        self.assertFalse(any(any(text.raw) for text in texts))
        self.assertRaises(ValueError, key.sign, b"")
        data = zulcore.random_bytes(70_000)
        self.assertTrue(any(data[65_536:]))
        zulcore.wipe(data)
        self.assertEqual(data, bytes(70_000))

    def test_a_wiped_key_leaves_the_error(self):
        key = Key.generate("ed25519")
        result = _raw.CERT_SelfSign(b"out", key._text, b"colour=red", 0)
        del key
        self.assertIn("colour", ZulError(result).detail)

    def test_misuse(self):
        key = Key.generate("ed25519")
        for expected, call in (
                (ValueError, lambda: zulcore.hash_bytes(b"", "sha256\0")),
                (ValueError, lambda: Key.read("key\0.pem")),
                (ValueError, lambda: Key.read("key.pem", "pass\0word")),
                (ValueError, lambda: key.save("key", b"pass\0word")),
                (ValueError, lambda: key.save("key")),
                (ValueError, lambda: key.save("key", "password", unencrypted=True)),
                (ValueError, lambda: zulcore.seal_file("a", "b", ["c;d"])),
                (ValueError, lambda: certs.check_path("a", "b", others=["c;d"])),
                (ValueError, lambda: certs.describe({"CN=a;O": "b"})),
                (ValueError, lambda: messages.sign(b"a\0b", b"M", key)),
                (ValueError, lambda: zulcore.random_number(2, 1)),
                (ValueError, lambda: zulcore.hkdf(b"key", 1 << 31)),
                (TypeError, lambda: zulcore.hash_bytes("text")),
                (TypeError, lambda: zulcore.wipe(b"constant")),
                (TypeError, lambda: messages.sign("text", b"M", key)),
                (TypeError, lambda: messages.sign("text", b"M", key, detached=True)),
                (TypeError, lambda: certs.describe({"dns": ["a.example", None]})),
                (ValueError, lambda: zulcore.Identity("identity.txt")),
                ("NOT_SUPPORTED_ERROR", lambda: zulcore.Hash("sha0")),
                ("BAD_KEY_LEN_ERROR", lambda: zulcore.encrypt(b"short", b"")),
                ("BAD_LENGTH_ERROR", lambda: zulcore.decrypt(bytes(32), b"short")),
                ("DECRYPT_ERROR", lambda: zulcore.decrypt(bytes(32), bytes(28))),
                ("OPEN_ERROR", lambda: Key.read("missing.pem")),
                ("INVALID_DATA_ERROR", lambda: Key.read(b"\x30\x82")),
                ("BAD_KEY_ERROR", lambda: zulcore.Identity("AGE-SECRET-KEY-1").recipient()),
                ("BAD_PARAM_ERROR", lambda: certs.self_sign(key, {"colour": "red"}))):
            with self.subTest(expected=expected):
                if isinstance(expected, str):
                    error = self.refused(expected, call)
                    self.assertEqual(str(pickle.loads(pickle.dumps(error))), str(error))
                else:
                    self.assertRaises(expected, call)
        self.assertEqual(os.listdir("."), [])

    def test_seal(self):
        pathlib.Path("plain").write_bytes(b"text" * 50_000)
        with zulcore.make_identity() as identity, zulcore.make_identity() as other:
            identity.save("identity")
            self.assertEqual(os.stat("identity").st_mode & 0o777, 0o600)
            self.assertRaises(FileExistsError, other.save, "identity")
            zulcore.seal_file("sealed", "plain", identity.recipient(), armour=True)
            for opens in ([other, identity], "identity"):
                zulcore.open_file("opened", "sealed", opens)
                self.assertEqual(zulcore.hash_file("opened"), zulcore.hash_file("plain"))
            self.refused("NO_MATCH_ERROR", zulcore.open_file, "opened", "sealed", other)
        zulcore.wipe_file("identity")
        self.assertFalse(os.path.exists("identity"))

    def test_certificates(self):
        rootKey, key = Key.generate("p-256"), Key.generate("rsa-2048")
        root = certs.self_sign(rootKey, {"subject": "C=AU;O=Example", "profile": "ca"}, der=True)
        name = "a'b\\c;O=Evil"
        request = certs.request(key, {"CN": name, "dns": ["www.example.com", "example.com"]}, file="request.pem")
        leaf = certs.issue(root, rootKey, "request.pem", {"copy": ["subjectAltName"], "profile": "server",
                                                          "serial": "0a3f"}, file="leaf.pem")
        der = certs.request(key, {"CN": name}, der=True)
        for subject in (der, key, key.public_pem(), zulcore.base64_decode(key.public_pem().decode().split("-----")[2])):
            made = certs.issue(root, rootKey, subject, {"CN": "Made"})
            self.assertEqual(Key.read(made).fingerprint, key.fingerprint)
        self.assertEqual(certs.query(request, "kind"), "request")
        self.assertEqual(certs.query(leaf, "subject"), "CN=a'b\\\\c\\;O=Evil")
        self.assertEqual(certs.report(leaf)["objects"][0]["serialNumber"], "0a3f")
        self.assertIn("www.example.com", certs.report_text("leaf.pem"))
        certs.check_name(leaf, "example.com")
        self.refused("NO_MATCH_ERROR", certs.check_name, leaf, "example.org")
        report = certs.check_path(leaf, root, conditions={"purpose": "server"})
        self.assertEqual(report["objects"][0]["result"], "valid")
        crl = certs.issue_crl(root, rootKey, [{"cert": bytearray(leaf), "reason": "superseded"}])
        error = self.refused("BAD_KEY_ERROR", certs.check_path, "leaf.pem", [root], evidence=[crl])
        self.assertEqual(error.report["objects"][0]["code"], error.code)
        self.refused("DUP_ERROR", certs.issue_crl, root, rootKey, [{"serial": "0a3f"}], earlier=crl)

        certs.p12_pack("bundle.p12", [leaf, root], key, "pässword", name="Alice")
        bundle = certs.p12_unpack(pathlib.Path("bundle.p12").read_bytes(), "pässword")
        self.assertEqual((bundle.key.fingerprint, bundle.certificates.count(b"BEGIN")), (key.fingerprint, 2))
        self.assertEqual(certs.p12_list("bundle.p12", "pässword")["entries"][0]["name"], "Alice")
        self.refused("DECRYPT_ERROR", certs.p12_unpack, "bundle.p12", "wrong", key=None)

    def test_messages(self):
        key, other = Key.generate("rsa-2048"), Key.generate("p-256")
        cert, foreign = (certs.self_sign(signer, {"CN": "Alice"}) for signer in (key, other))
        zeros = pathlib.Path("zeros")
        zeros.write_bytes(b"\0text\0")
        for content, plain in ((b"text", b"text"), (zeros, b"\0text\0")):
            for options in ({"hash": "sha512", "attributes": True}, {"der": True}):
                message = messages.sign(content, cert, key, **options)
                messages.verify(message, cert)
                self.assertEqual(messages.read(message), plain)
            detached = messages.sign(content, cert, key, detached=True, signing_time=True)
            messages.verify(detached, content=content)
            self.refused("SIGNATURE_ERROR", messages.verify, detached, content=b"other")
            self.assertEqual(messages.decrypt(messages.encrypt(content, cert), key, cert), plain)
        self.assertEqual(messages.query(detached, "CountOfSigners"), 1)
        self.assertEqual(messages.decrypt(messages.encrypt(bytearray(b"text"), cert), key), b"text")
        self.refused("BAD_KEY_ERROR", messages.encrypt, b"text", [cert, foreign], file="message")
        self.assertFalse(os.path.exists("message"))

    def test_threads_keep_their_errors(self):
        details = {}

        def fail(name):
            for _ in range(200):
                try:
                    Key.read(f"/missing/{name}")
                except ZulError as error:
                    details.setdefault(name, set()).add(error.detail.replace(name, "*"))

        threads = [threading.Thread(target=fail, args=(name,)) for name in ("first", "second")]
        [thread.start() for thread in threads]
        [thread.join() for thread in threads]
        self.assertEqual(details["first"], details["second"])
        self.assertEqual(len(details["first"]), 1)

    def test_examples(self):
        pathlib.Path("file").write_bytes(b"abc")
        for example, output in (("hash_file", "ba7816bf"), ("seal_open", "opened"), ("certificate", "good certificate"),
                                ("sign_verify", "The meeting is at ten."), ("errors", "15 DECRYPT_ERROR")):
            run = subprocess.run([sys.executable, "-B", PACKAGE / "examples" / f"{example}.py", "file"],
                                 capture_output=True, text=True)
            self.assertEqual((run.returncode, run.stderr), (0, ""), example)
            self.assertIn(output, run.stdout)


if __name__ == "__main__":
    unittest.main()
