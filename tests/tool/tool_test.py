#!/usr/bin/env python3
"""tool_test.py TOOL [LAUNCHER...]: runs the command-line tool, if need be through a launcher (Wine), and compares
what it does with Python's hashlib, with openssl and with published vectors."""
import base64
import hashlib
import hmac
import os
import pathlib
import pty
import subprocess
import sys
import tempfile
import unittest

TOOL = []  # launcher and tool
CONTENT = bytes(range(256)) * 300 + b"the end"  # 76,807 bytes: no whole number of blocks
COMMANDS = ("hash hmac encrypt decrypt wrap unwrap key sign verify rsa-encrypt rsa-decrypt cert request crl "
            "cms pfx ocsp encode decode der random wipe error version").split()
KEY = bytes(range(0x40, 0x60))
IV = bytes(range(0xE0, 0xF0))


def zul(*arguments, stdin=b""):
    # in a session without a terminal, so that nothing is asked
    return subprocess.run(TOOL + list(arguments), input=stdin, capture_output=True, timeout=120, start_new_session=True)


def openssl(*arguments, stdin):
    return subprocess.run(["openssl", *arguments], input=stdin, capture_output=True, check=True).stdout


def read(name):
    return pathlib.Path(name).read_bytes()


def write(name, content):
    pathlib.Path(name).write_bytes(content)
    return name


class ToolTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(folder.name)
        write("in.bin", CONTENT)

    def done(self, *arguments, stdin=b""):
        result = zul(*arguments, stdin=stdin)
        self.assertEqual((result.returncode, result.stderr), (0, b""), arguments)
        return result.stdout

    def refused(self, code, *arguments, stdin=b"", says=""):
        result = zul(*arguments, stdin=stdin)
        message = result.stderr.decode()
        self.assertEqual(result.returncode, 1, (arguments, message))
        self.assertRegex(message, rf"^zul: .*: error {code}: \w")
        self.assertIn(says, message)
        return result

    def wrong_usage(self, says, *arguments):
        result = zul(*arguments)
        message = result.stderr.decode()
        self.assertEqual((result.returncode, result.stdout), (2, b""), (arguments, message))
        self.assertIn(says, message)
        return message


class Digests(ToolTest):
    def test_hash(self):
        for name in "md5 sha1 sha224 sha256 sha384 sha512".split():
            expected = hashlib.new(name, CONTENT).hexdigest()
            with self.subTest(name):
                self.assertEqual(self.done("hash", name, "in.bin"), f"{expected}  in.bin\n".encode())
                self.assertEqual(self.done("hash", name, "-", stdin=CONTENT), f"{expected}  -\n".encode())
        # RFC 1319, A.5
        self.assertEqual(self.done("hash", "MD2", stdin=b"abc"), b"da853b0d3f88d99b30283a69e6ded6bb  -\n")
        self.assertEqual(self.done("hash", "SHA-256", stdin=b""), hashlib.sha256().hexdigest().encode() + b"  -\n")

    def test_text_mode(self):
        write("dos.txt", b"one\r\ntwo\rthree\r\r\n")
        expected = hashlib.sha1(b"one\ntwo\rthree\r\n").hexdigest()
        for result in (self.done("hash", "sha1", "--text", "dos.txt"),
                       self.done("hash", "sha1", "--text", "-", stdin=read("dos.txt"))):
            self.assertEqual(result.split()[0].decode(), expected)

    def test_one_file_of_several_is_missing(self):
        result = self.refused(1, "hash", "md5", "missing", "in.bin", says="zul: missing: error 1: Cannot open input file")
        self.assertEqual(result.stdout.split()[0].decode(), hashlib.md5(CONTENT).hexdigest())

    def test_hmac(self):
        for name in "md5 sha1 sha224 sha256 sha384 sha512".split():
            for key in (b"", b"Jefe", KEY * 5):
                expected = hmac.new(key, CONTENT, name).hexdigest()
                with self.subTest(name, key=key):
                    write("mac.key", key)
                    self.assertEqual(self.done("hmac", name, "--key-file", "mac.key", "in.bin").decode(),
                                     f"{expected}  in.bin\n")
                    if key:
                        self.assertEqual(self.done("hmac", name, "--key", key.hex(), "-", stdin=CONTENT).decode(),
                                         f"{expected}  -\n")


class Ciphers(ToolTest):
    # the tool's word, openssl's word, key bytes, block bytes
    CIPHERS = [("aes-128", "aes-128", 16, 16), ("AES192", "aes-192", 24, 16), ("Aes/256", "aes-256", 32, 16),
               ("3des", "des-ede3", 24, 8)]

    def by_openssl(self, cipher, mode, key, iv):
        if (cipher, mode) == ("des-ede3", "ctr"):  # which it lacks: counter blocks through ECB
            start = int.from_bytes(iv, "big")
            blocks = [((start + i) % 2**64).to_bytes(8, "big") for i in range(len(CONTENT) // 8 + 1)]
            stream = openssl("enc", "-des-ede3-ecb", "-nopad", "-K", key.hex(), stdin=b"".join(blocks))
            return bytes(a ^ b for a, b in zip(CONTENT, stream))
        return openssl("enc", f"-{cipher}-{mode}", "-K", key.hex(), *(["-iv", iv.hex()] if iv else []), stdin=CONTENT)

    def test_every_cipher_and_mode(self):
        for ours, theirs, key_bytes, block in self.CIPHERS:
            for mode in "ecb cbc cfb ofb ctr".split():
                key, iv = KEY[:key_bytes], b"" if mode == "ecb" else IV[:block]
                choice = ["-a", f"{ours}-{mode}", "--key", key.hex(), *(["--iv", iv.hex()] if iv else [])]
                with self.subTest(f"{ours}-{mode}"):
                    expected = self.by_openssl(theirs, mode, key, iv)
                    self.done("encrypt", *choice, "in.bin", "out.bin")
                    self.assertEqual(read("out.bin"), expected)
                    self.assertEqual(self.done("encrypt", *choice, "-", "-", stdin=CONTENT), expected)
                    self.done("decrypt", *choice, "out.bin", "back.bin")
                    self.assertEqual(read("back.bin"), CONTENT)
                    self.assertEqual(self.done("decrypt", *choice, "out.bin", "-"), CONTENT)

    def test_names_and_key_forms(self):
        expected = openssl("enc", "-des-ede3-cbc", "-K", KEY[:24].hex(), "-iv", IV[:8].hex(), stdin=b"x")
        write("raw.key", KEY[:24])
        write("hex.key", KEY[:24].hex(":").encode().replace(b":", b" ") + b"\r\n")
        for name in ("3DES-CBC", "tdea/cbc", "des-ede3-cbc", "DESede CBC", "des3cbc", "triple-des-cbc"):
            for key in (["--key-file", "raw.key"], ["--key-file=hex.key"], [f"--key={KEY[:24].hex(':')}"]):
                with self.subTest(name, key=key):
                    self.assertEqual(self.done("encrypt", "-a", name, *key, "--iv", IV[:8].hex(), "-", "-", stdin=b"x"),
                                     expected)

    def test_empty_input(self):
        write("empty.bin", b"")
        for mode, size in (("cbc", 16), ("ctr", 0)):
            choice = ["-a", f"aes-128-{mode}", "--key", KEY[:16].hex(), "--iv", IV.hex()]
            self.done("encrypt", *choice, "empty.bin", "out.bin")
            self.assertEqual(len(read("out.bin")), size)
            self.assertEqual(self.done("encrypt", *choice, "-", "-"), read("out.bin"))
            self.assertEqual(self.done("decrypt", *choice, "out.bin", "-"), b"")

    def test_damage_is_refused_in_both_forms(self):
        choice = ["-a", "aes-256-cbc", "--key", KEY.hex(), "--iv", IV.hex()]
        good = openssl("enc", "-aes-256-cbc", "-K", KEY.hex(), "-iv", IV.hex(), stdin=CONTENT)
        flipped = good[:-17] + bytes([good[-17] ^ 0x80]) + good[-16:]  # the pad's last byte becomes 0x80 or more
        cases = [(flipped, 15, "not the right one, or the data was damaged"), (good[:-1], 26, "some of it is missing"),
                 (b"", 26, "Data not a valid length")]
        for content, code, says in cases:
            with self.subTest(code):
                write("damaged.bin", content)
                self.refused(code, "decrypt", *choice, "damaged.bin", "never.bin", says=says)
                result = self.refused(code, "decrypt", *choice, "damaged.bin", "-", says=says)
                self.assertEqual(result.stdout, b"")
                self.assertFalse(os.path.exists("never.bin"))

    def test_files_that_cannot_be_used(self):
        choice = ["-a", "aes-256-ctr", "--key", KEY.hex(), "--iv", IV.hex()]
        os.mkdir("folder")
        for out in ("out.bin", "-"):
            self.refused(1, "encrypt", *choice, "missing", out, says="missing: error 1: Cannot open input file")
            self.refused(1, "encrypt", *choice, "folder", out)
        self.refused(2, "encrypt", *choice, "in.bin", "no/such/out.bin", says="no/such/out.bin: error 2")
        self.refused(2, "encrypt", *choice, "-", "no/such/out.bin", says="no/such/out.bin: error 2")
        self.refused(6, "encrypt", *choice, "in.bin", "./in.bin", says="the same file")
        self.assertEqual(read("in.bin"), CONTENT)


class KeyWrap(ToolTest):
    # RFC 3394, 4.1, 4.4 and 4.6; RFC 3217, 3.4 (its IV is random, so for unwrapping alone)
    VECTORS = [
        ("aes-128", KEY_ := "000102030405060708090A0B0C0D0E0F", "00112233445566778899AABBCCDDEEFF",
         "1FA68B0A8112B447AEF34BD8FB5A7B829D3E862371D2CFE5"),
        ("aes192", KEY_ + "1011121314151617", "00112233445566778899AABBCCDDEEFF0001020304050607",
         "031D33264E15D33268F24EC260743EDCE1C6C7DDEE725A936BA814915C6762D2"),
        ("AES-256", KEY_ + "101112131415161718191A1B1C1D1E1F",
         "00112233445566778899AABBCCDDEEFF000102030405060708090A0B0C0D0E0F",
         "28C9F404C4B810F4CBCCB35CFB87F8263F5786E2D80ED326CBC7F0E71A99F43BFB988B9B7A02DD21"),
        ("3des", "255E0D1C07B646DFB3134CC843BA8AA71F025B7C0838251F",
         "2923BF85E06DD6AE529149F1F1BAE9EAB3A7DA3D860D3E98",
         "690107618EF092B3B48CA1796B234AE9FA33EBB4159604037DB5D6A84EB3AAC2768C632775A467D4"),
    ]

    def test_vectors(self):
        for name, kek, data, wrapped in self.VECTORS:
            with self.subTest(name):
                choice = ["-a", name, "--kek", kek]
                made = self.done("wrap", *choice, "--data", data).decode().strip()
                if name != "3des":
                    self.assertEqual(made, wrapped)
                self.assertEqual(self.done("unwrap", *choice, "--data", made).decode(), data + "\n")
                self.assertEqual(self.done("unwrap", *choice, "--data", wrapped).decode(), data + "\n")

    def test_files(self):
        _, kek, data, wrapped = self.VECTORS[2]
        write("kek", kek.encode())
        write("key", bytes.fromhex(data))
        self.done("wrap", "-a", "aes-256", "--kek-file", "kek", "-o", "wrapped", "key")
        self.assertEqual(read("wrapped").hex().upper(), wrapped)
        self.done("unwrap", "-a", "aes-256", "--kek-file", "kek", "--out", "again", "wrapped")
        self.assertEqual(read("again"), read("key"))
        self.assertEqual(self.done("unwrap", "-a", "aes-256", "--kek-file", "kek", "-", stdin=wrapped.encode()).decode(),
                         data + "\n")

    def test_refusals(self):
        for name, kek, data, wrapped in self.VECTORS:
            with self.subTest(name):
                other = f"{int(kek[:2], 16) ^ 0x80:02x}" + kek[2:]
                damaged = wrapped[:-2] + f"{int(wrapped[-2:], 16) ^ 1:02x}"
                for k, d in ((other, wrapped), (kek, damaged)):
                    result = self.refused(1, "unwrap", "-a", name, "--kek", k, "--data", d, "-o", "never",
                                          says="the key-encryption key is not the right one")
                    self.assertFalse(os.path.exists("never"))
                    self.assertEqual(result.stdout, b"")
                self.refused(26, "wrap", "-a", name, "--kek", kek, "--data", data[:-2], says="wraps a key of")
                self.refused(26, "unwrap", "-a", name, "--kek", kek, "--data", wrapped[:-2], says="wrapped with")


class Encodings(ToolTest):
    def encode(self, kind, *options):
        """Encodes in.bin in both forms, which must agree, and decodes it again in both."""
        self.done("encode", kind, *options, "in.bin", "out.txt")
        text = read("out.txt")
        self.assertEqual(self.done("encode", kind, *options, "-", "-", stdin=CONTENT), text)
        self.done("decode", kind, "out.txt", "back.bin")
        self.assertEqual(read("back.bin"), CONTENT)
        self.assertEqual(self.done("decode", kind, "-", "-", stdin=text), CONTENT)
        return text

    def test_hex(self):
        self.assertEqual(self.encode("hex"), CONTENT.hex().upper().encode() + b"\n")
        self.assertEqual(self.done("encode", "hex", "--line-length", "4", "-", "-", stdin=b"abc"), b"6162\n63\n")
        self.assertEqual(self.done("decode", "hex", "-", "-", stdin=b"DE:AD be-ef"), bytes.fromhex("deadbeef"))

    def test_base64(self):
        self.assertEqual(self.encode("base64"), base64.b64encode(CONTENT) + b"\n")
        self.assertEqual(self.encode("base64", "--line-length", "76"), base64.encodebytes(CONTENT))

    def test_pem(self):
        lines = base64.b64encode(CONTENT)
        for options, label, width in (([], b"DATA", 64), (["--label", "TRUSTED THING", "--line-length", "70"],
                                                            b"TRUSTED THING", 68), (["--line-length=3"], b"DATA", 64)):
            body = [lines[i:i + width] for i in range(0, len(lines), width)]
            expected = [b"-----BEGIN " + label + b"-----", *body, b"-----END " + label + b"-----", b""]
            self.assertEqual(self.encode("pem", *options), b"\r\n".join(expected))

    def test_pem_by_openssl(self):
        pem = openssl("genpkey", "-algorithm", "ED25519", stdin=b"")
        write("key.pem", b"a word before\n" + pem)
        self.done("decode", "pem", "key.pem", "key.der")
        self.assertEqual(read("key.der"), openssl("pkey", "-outform", "DER", stdin=pem))
        self.done("encode", "pem", "--label", "PRIVATE KEY", "key.der", "again.pem")
        self.assertEqual(openssl("pkey", stdin=read("again.pem")), pem)

    def test_sizes_about_a_chunk(self):
        chunk = 96 * 1024
        for size in (0, 1, 2, chunk - 1, chunk, chunk + 1, 2 * chunk):
            data = (CONTENT * 3)[:size]
            with self.subTest(size):
                self.assertEqual(self.done("encode", "base64", "-", "-", stdin=data).strip(), base64.b64encode(data))

    def test_refusals(self):
        write("plain.pem", b"-----BEGIN X-----\nQUJD\n" + b" " * 40)
        self.refused(7, "decode", "pem", "plain.pem", "never.bin")
        self.refused(7, "decode", "base64", "in.bin", "never.bin", says="zero bytes")
        self.refused(1, "encode", "pem", "missing", "never.bin", says="missing")
        self.refused(6, "encode", "base64", "in.bin", "./in.bin", says="the same file")
        self.assertEqual(read("in.bin"), CONTENT)
        self.assertFalse(os.path.exists("never.bin"))


class Keys(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.pem = openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", "rsa_keygen_bits:1024", stdin=b"")
        cls.der = openssl("pkcs8", "-topk8", "-nocrypt", "-outform", "DER", stdin=cls.pem)
        cls.spki = openssl("pkey", "-pubout", "-outform", "DER", stdin=cls.pem)

    def setUp(self):
        super().setUp()
        write("key.pem", self.pem)
        write("pub.der", self.spki)
        write("pw", b"geheim\n")
        write("enc.pem", openssl("pkcs8", "-topk8", "-v2", "aes-128-cbc", "-passout", "pass:geheim", stdin=self.pem))

    def at_terminal(self, typed, *arguments):
        """Runs the tool at a terminal and types an answer after each question: its status and all it showed."""
        child, screen = pty.fork()
        if child == 0:
            os.execv(TOOL[0], TOOL + list(arguments))
        shown = b""
        try:
            while chunk := os.read(screen, 1000):
                shown += chunk
                if shown.endswith(b": ") and typed:
                    os.write(screen, typed.pop(0))
        except OSError:  # the terminal's other side is closed
            pass
        os.close(screen)
        return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), shown

    def test_make(self):
        for options, says in (([], "aes-256-cbc"), (["--encrypt", "md5-des", "--count=1", "-f", "der"], "pbeWithMD5AndDES"),
                              (["--encrypt", "AES192", "-f", "pem-alt", "--exponent", "3"], "aes-192-cbc"),
                              (["--encrypt", "aes-128", "--prf", "sha512", "--progress"], "aes-128-cbc"),
                              (["--encrypt", "3des", "--progress"], "des-ede3-cbc")):
            with self.subTest(options):
                result = zul("key", "make", "--bits", "1000", "--password-file", "pw", *options, "pub", "pri")
                self.assertEqual((result.returncode, result.stdout), (0, b""), result.stderr)
                shown = b"Generating new prime:" in result.stderr  # Windows has a console for it
                self.assertEqual(shown, "--progress" in options and len(TOOL) == 1)
                form = "DER" if "der" in options else "PEM"
                self.assertIn(says, openssl("asn1parse", "-in", "pri", "-inform", form, stdin=b"").decode())
                openssl("pkey", "-inform", form, "-in", "pri", "-passin", "file:pw", "-check", "-noout", "-provider",
                        "legacy", "-provider", "default", stdin=b"")
                self.assertEqual(self.done("key", "match", "--password-file", "pw", "pri", "pub"), b"the keys match\n")
        self.refused(2, "key", "make", "--bits=512", "--password-file=pw", "pub", "no/such", says="no/such")
        self.refused(2, "key", "make", "--bits=512", "--password-file=pw", "no/such", "pri", says="no/such")
        self.refused(11, "key", "make", "--bits=96", "--password-file=pw", "pub", "pri", says="Invalid size 96")

    def test_passwords(self):
        good = b"valid private key of 1024 bits\n"
        write("long", b"geheim\r\nand more")
        self.assertEqual(self.done("key", "check", "--password-file", "long", "enc.pem"), good)
        self.assertEqual(self.done("key", "check", "--password-file", "-", "enc.pem", stdin=b"geheim"), good)
        self.assertEqual(self.done("key", "convert", "--password-file", "-", "--new-password-file", "-", "--encrypt",
                                   "p12-3des", "enc.pem", "new.pem", stdin=b"geheim\nneu\n"), b"")
        result = zul("key", "check", "--password", "neu", "new.pem")
        self.assertEqual((result.returncode, result.stdout), (0, good))
        self.assertRegex(result.stderr, rb"^zul: a password after --password is visible")
        self.refused(15, "key", "check", "--password-file", "-", "new.pem", stdin=b"geheim\n", says="the right one")
        if len(TOOL) > 1:
            return
        self.refused(20, "key", "check", "enc.pem", says="no terminal")
        status, shown = self.at_terminal([b"gehh\x7feim\r"], "key", "check", "enc.pem")
        self.assertEqual((status, shown), (0, b"Password for 'enc.pem': \r\n" + good.replace(b"\n", b"\r\n")))
        self.assertEqual(self.at_terminal([b"gehei\x03"], "key", "check", "enc.pem")[0], 1)
        make = ["key", "make", "--bits", "512", "pub", "pri"]
        self.refused(6, "key", "make", "--password-file", "pw", "./pri", "pri", says="the same file")
        status, shown = self.at_terminal([b"one\n", b"other\n"], *make)
        self.assertEqual((status, os.path.exists("pri")), (1, False), shown)
        self.assertEqual(self.at_terminal([b"x\x15one\n", b"one\n"], *make)[0], 0)
        self.done("key", "match", "--password-file", "-", "pri", "pub", stdin=b"one")

    def test_show(self):
        xml = self.done("key", "convert", "--unencrypted", "--format=xml", "key.pem", "-").decode()
        secret = xml[xml.index("<P>"):xml.index("</P>")]
        expected = self.done("key", "show", "key.pem").decode().splitlines()
        self.assertEqual([line.split()[0] for line in expected], ["key", "bits", "exponent", "hash", "public"])
        self.assertEqual(expected[1:3], ["bits       1024", "exponent   65537"])
        self.assertNotIn(secret, "".join(expected))
        self.assertIn(secret, self.done("key", "show", "--private", "key.pem").decode())
        for file in ("pub.der", "enc.pem"):
            shown = self.done("key", "show", "--password-file", "pw", file).decode().splitlines()
            self.assertEqual(shown[1:], expected[1:])
        self.assertEqual(self.done("key", "check", "pub.der"), b"public key of 1024 bits\n")
        other = openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", "rsa_keygen_bits:1024", stdin=b"")
        self.refused(21, "key", "match", "key.pem", write("other.pem", other), says="Keys do not match")
        self.refused(7, "key", "show", write("bad.der", self.der[:-1]))
        self.refused(7, "key", "show", write("no.der", b"\x30\x03\x02\x01\x05"), says="no RSA key")

    def test_convert(self):
        private = ["--unencrypted"], ["--unencrypted", "-f", "pem-alt"], ["--unencrypted", "-f", "der"], \
            ["--unencrypted", "-f", "xml"], ["--unencrypted", "-f", "xml", "--hex", "--keyvalue"], \
            ["--encrypt", "aes-128", "--prf", "sha384", "--new-password-file", "pw"], \
            ["--encrypt", "md2-des", "-f", "der", "--new-password-file", "pw"]
        for options in private:
            with self.subTest(options):
                self.done("key", "convert", *options, "key.pem", "out")
                self.done("key", "convert", "--unencrypted", "-f", "der", "--password-file", "pw", "out", "back")
                self.assertEqual(read("back"), self.der)
        begins = {"pem": b"-----BEGIN RSA PUBLIC KEY-----", "pem-alt": b"-----BEGIN PUBLIC KEY-----", "der": b"\x30",
                  "xml": b"<RSAKeyValue><Modulus>"}
        for form, begin in begins.items():
            with self.subTest(form):
                self.done("key", "convert", "--public", "-f", form, "key.pem", "out")
                self.assertTrue(read("out").startswith(begin))
                self.done("key", "convert", "-f", "pem-alt", "out", "back")
                self.assertEqual(openssl("pkey", "-pubin", "-in", "back", "-outform", "DER", stdin=b""), self.spki)

    def test_signatures(self):
        for name in "md5 sha1 sha224 sha256 sha384 sha512".split():
            with self.subTest(name):
                signature = self.done("sign", "-k", "key.pem", "-d", name, "in.bin", "-")
                self.assertEqual(signature, openssl("dgst", "-" + name, "-sign", "key.pem", stdin=CONTENT))
                self.assertEqual(self.done("verify", "-k", "pub.der", "-d", name, "in.bin", write("sig", signature)),
                                 b"in.bin: good signature\n")
        self.done("sign", "-k", "enc.pem", "--password-file", "pw", "-", "sig", stdin=CONTENT)
        self.done("verify", "-k", "key.pem", "-", "sig", stdin=CONTENT)
        good = read("sig")
        write("other.bin", CONTENT + b"x")
        for file, signature, *more in (("in.bin", good[:-1] + bytes([good[-1] ^ 1])), ("in.bin", good[:-1]),
                                       ("in.bin", b"\0" + good), ("in.bin", b"\xff" * 128), ("in.bin", b""),
                                       ("other.bin", good), ("in.bin", good, "-d", "sha1")):
            self.assertEqual(self.refused(22, "verify", "-k", "pub.der", *more, file, write("sig", signature)).stdout, b"")
        self.refused(7, "sign", "-k", "pub.der", "in.bin", "never", says="takes a private key")
        self.refused(6, "sign", "-k", "key.pem", "in.bin", "./in.bin", says="would replace the input")
        self.refused(6, "sign", "-k", "key.pem", "in.bin", "./key.pem", says="would replace the key")
        self.refused(20, "sign", "-k", write("empty", b""), "in.bin", "never")
        self.refused(7, "sign", "-k", write("text", b"no key, no DER"), "in.bin", "never", says="no RSA key")
        self.assertFalse(os.path.exists("never"))

    def test_encryption(self):
        oaep = ["-pkeyopt", "rsa_padding_mode:oaep", "-pkeyopt"]
        write("message", b"a session key")
        for ours, theirs in (([], oaep + ["rsa_oaep_md:sha256"]), (["-d", "sha1"], oaep + ["rsa_oaep_md:sha1"]),
                             (["-p", "v1.5"], [])):
            with self.subTest(ours):
                made = self.done("rsa-encrypt", "-k", "pub.der", *ours, "message", "-")
                self.assertEqual(openssl("pkeyutl", "-decrypt", "-inkey", "key.pem", *theirs, stdin=made), read("message"))
                made = openssl("pkeyutl", "-encrypt", "-inkey", "key.pem", *theirs, stdin=read("message"))
                self.done("rsa-decrypt", "-k", "key.pem", *ours, write("made", made), "back")
                self.assertEqual(read("back"), read("message"))
                for bad in (made[:-1], b"\0" + made, made[:-1] + bytes([made[-1] ^ 1]), b"\xff" * 128):
                    self.refused(15, "rsa-decrypt", "-k", "key.pem", *ours, write("bad", bad), "-", says="was damaged")
        self.refused(30, "rsa-encrypt", "-k", "pub.der", "in.bin", "never")
        self.assertFalse(os.path.exists("never"))

    def test_der(self):
        listing = ("30 80  #Level=0  (NDEF)\n   30 13  #Level=1 length=0x13/19\n      04 11  #Level=2 length=0x11/17\n"
                   "         " + "61 " * 16 + "\n         61 \n   bf 87 65 00  #Level=1 length=0x0/0\n"
                   "   00 00  #Level=1 length=0x0/0\n04 81 01  #Level=0 length=0x1/1\n   62 \n")
        data = b"\x30\x80\x30\x13\x04\x11" + b"a" * 17 + b"\xbf\x87\x65\x00\0\0\x04\x81\x01b"
        text = base64.encodebytes(data)
        for content in (data, text, b"-----BEGIN X-----\n" + text + b"-----END X-----\n"):
            self.assertEqual(self.done("der", write("some", content)).decode(), listing)
            self.assertEqual(self.done("der", "-", stdin=content).decode(), listing)
        for damaged, says in ((data[:-1], "At byte 29: a content of 1"), (data[:27], "byte 27: an element of indefinite"),
                              (data[:3], "a header is cut off"), (b"\x04\x80\0\0", "primitive"), (b"\0\0", "without"),
                              (b"\x04\x85\0\0\0\0\1a", "a length of 5 bytes"), (b"\x30\x80" * 201, "levels"),
                              (b"\x30\x03\x04\x02ab", "of which 1"), (b"\x1f\xff", "cut off"),
                              (b"\x04\x84\xff\xff\xff\xffa", "4294967295 bytes")):
            self.refused(7, "der", write("damaged", damaged), says=says)
        self.refused(20, "der", "-")


class Certificates(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.keys = {name: openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", "rsa_keygen_bits:1024", stdin=b"")
                    for name in ("root", "inter", "alice")}

    def setUp(self):
        super().setUp()
        for name, pem in self.keys.items():
            write(name + ".key", pem)
        self.done("cert", "self", "-k", "root.key", "-s", "C=AU;CN=Root", "--subject-key-id=0a0b", "--years=3", "root.pem")
        self.done("cert", "issue", "--issuer", "root.pem", "-k", "root.key", "--public-key", "inter.key", "--ca",
                  "-s", "C=AU ;CN=Inter ", "--years=2", "inter.pem")
        self.done("request", "make", "-k", "alice.key", "-s", "C=AU;O='Smith; Jones';CN=Alice", "alice.req")
        self.issue = ["cert", "issue", "--issuer", "inter.pem", "-k", "inter.key", "--request"]
        self.done(*self.issue, "alice.req", "--email", "alice@example.com", "alice.pem")

    def subject(self, file):
        return openssl("x509", "-in", file, "-noout", "-subject", "-nameopt", "utf8,sep_semi_plus_space",
                       stdin=b"").decode().strip().removeprefix("subject=")

    def test_openssl_accepts_them(self):
        self.assertIn(b"verify OK", subprocess.run(["openssl", "req", "-in", "alice.req", "-verify", "-noout"],
                                                   capture_output=True, check=True).stderr)
        openssl("verify", "-x509_strict", "-CAfile", "root.pem", "-untrusted", "inter.pem", "alice.pem", stdin=b"")
        self.assertEqual(self.subject("alice.pem"), "C=AU; O=Smith; Jones; CN=Alice")
        key = openssl("rsa", "-in", "inter.key", "-RSAPublicKey_out", "-outform", "DER", stdin=b"")
        self.assertEqual(self.done("cert", "query", "alice.pem", "authorityKeyIdentifier").decode().strip(),
                         hashlib.sha1(key).hexdigest())
        self.done(*self.issue, "alice.req", "--no-key-ids", "bare.pem")
        self.assertNotIn(b"Key Identifier", openssl("x509", "-noout", "-text", stdin=read("bare.pem")))
        der = self.done(*self.issue, "-", "--der", "-", stdin=read("alice.req"))
        openssl("verify", "-CAfile", "root.pem", "-untrusted", "inter.pem", write("alice.der", der), stdin=b"")

    def test_serials_and_dates(self):
        for options, expected in (
                (["--serial", "0xAB:cd:e", "--from", "2020/2/9", "--until", "2021-12-31"],
                 "serial=0ABCDE notBefore=Feb  9 00:00:01 2020 GMT notAfter=Dec 31 23:59:59 2021 GMT"),
                (["--serial", "123456789012345678901234567890", "--from", "2024-02-29 1:30", "--years=1", "--version1"],
                 "serial=018EE90FF6C373E0EE4E3F0AD2 notBefore=Feb 29 01:30:00 2024 GMT "
                 "notAfter=Feb 28 01:30:00 2025 GMT"),
                (["--serial=128", "--from=2026-01-01T00:00:00Z", "--until=2060-01-01T00:00"],
                 "serial=80 notBefore=Jan  1 00:00:00 2026 GMT notAfter=Jan  1 00:00:00 2060 GMT")):
            with self.subTest(expected):
                made = self.done("cert", "self", "-k", "root.key", "-s", "CN=x", *options, "-")
                shown = openssl("x509", "-noout", "-serial", "-startdate", "-enddate", stdin=made).decode()
                self.assertEqual(" ".join(shown.splitlines()), expected)
        serials = {self.done("cert", "query", file, "serialNumber") for file in ("root.pem", "inter.pem", "alice.pem")}
        self.assertEqual({len(serial) for serial in serials}, {33})
        self.assertEqual(len(serials), 3)

    def test_names_of_requests(self):
        for name, expected in (("/C=AU/O=A;B/CN=\u0141ukasz", "C=AU; O=A;B; CN=\u0141ukasz"),
                               ("/CN=O'Neill \\\\ Sons", r"CN=O'Neill \ Sons"), ("/CN=#x41", "CN=#x41")):
            with self.subTest(name):
                openssl("req", "-new", "-utf8", "-key", "alice.key", "-subj", name, "-out", "other.req", stdin=b"")
                self.done(*self.issue, "other.req", "other.pem")
                self.assertEqual(self.subject("other.pem"), expected)
        openssl("req", "-new", "-key", "alice.key", "-subj", "/CN=x/serialNumber=5", "-out", "other.req", stdin=b"")
        self.refused(19, *self.issue, "other.req", "never.pem", says="--subject")
        self.done(*self.issue, "other.req", "-s", "CN=M\u00fcller", "other.pem")
        self.assertEqual(self.subject("other.pem"), "CN=M\u00fcller")
        openssl("req", "-new", "-key", "alice.key", "-subj", "/", "-addext", "subjectAltName=DNS:a", "-out", "bare.req",
                stdin=b"")
        self.refused(19, *self.issue, "bare.req", "never.pem", says="--subject")
        self.assertIn(b"asks for extensions", zul(*self.issue, "bare.req", "-sCN=y", "other.pem").stderr)
        self.assertEqual(self.subject("other.pem"), "CN=y")
        forged = bytearray(base64.b64decode(b"".join(read("alice.req").splitlines()[1:-1])))
        forged[-1] ^= 1
        self.refused(22, *self.issue, write("forged", bytes(forged)), "never.pem", says="Signature is invalid")
        self.assertFalse(os.path.exists("never.pem"))

    def test_queries(self):
        every = dict(line.split(":", 1) for line in self.done("cert", "query", "alice.pem").decode().splitlines())
        self.assertEqual(len(every), 19)
        for name, value in (("version", "3"), ("isCA", "0"), ("sigAlgID", "0"), ("keyUsageString", ""),
                            ("signatureAlgorithm", "sha256WithRSAEncryption"), ("rfc822Name", "alice@example.com")):
            self.assertEqual(every[name].strip(), value)
            self.assertEqual(self.done("cert", "query", "alice.pem", name.upper()).decode(), value + "\n")
        self.assertEqual(self.done("cert", "query", "inter.pem", "isCA", "authorityKeyIdentifier").split(),
                         [b"isCA:", b"1", b"authorityKeyIdentifier:", b"0a0b"])
        der = openssl("x509", "-in", "alice.pem", "-outform", "DER", stdin=b"")
        for options, digest in (([], "sha256"), (["-a", "sha1"], "sha1"), (["-d", "SHA-512"], "sha512")):
            self.assertEqual(self.done("cert", "thumb", *options, "-", stdin=der).decode(),
                             hashlib.new(digest, der).hexdigest() + "  -\n")

    def test_show(self):
        for group, file, begins in (("cert", "alice.pem", "X.509 CERTIFICATE\nVersion: 3\n"),
                                    ("request", "alice.req", "NEW CERTIFICATE REQUEST\nVersion: 0\n")):
            shown = self.done(group, "show", file).decode()
            self.assertTrue(shown.startswith(begins), shown)
            self.assertEqual(self.done(group, "show", "-", stdin=read(file)).decode(), shown)
            self.done(group, "show", file, "-o", "dump.txt")
            self.assertEqual(read("dump.txt").decode().replace("\r\n", "\n"), shown)
        self.done("cert", "self", "-k", "root.key", "-s", "CN=#x1b5b324a;O=J\u00fcrgen", "odd.pem")
        for command in (["query", "odd.pem", "subjectName"], ["show", "odd.pem"]):
            self.assertIn("CN=\\x1b[2J;O=J\u00fcrgen", self.done("cert", *command).decode())
            self.assertNotIn(b"\x1b", self.done("cert", *command))

    def test_a_closed_pipe_leaves_nothing_behind(self):
        reader, writer = os.pipe()
        os.close(reader)
        for form in (["show", "alice.pem"], ["self", "-k", "root.key", "-sCN=a", "-"],
                     ["self", "-k", "root.key", "-sCN=a", "--der", "-"]):
            subprocess.run([*TOOL, "cert", *form], stdout=writer, stderr=subprocess.DEVNULL,
                           env={**os.environ, "TMPDIR": os.getcwd()})
        os.close(writer)
        self.assertEqual([name for name in os.listdir() if name.startswith("zul-")], [])

    def test_verification(self):
        self.done("cert", "verify", "alice.pem", "--issuer", "inter.pem")
        self.done("cert", "verify", "-", "--issuer", "root.pem", stdin=read("inter.pem"))
        self.refused(22, "cert", "verify", "alice.pem", "--issuer", "root.pem", says="not signed with the key of root")
        self.refused(7, "cert", "verify", "alice.pem", "--issuer", "alice.req")
        write("all.pem", read("alice.pem") + read("root.pem") + b"text; more\n" + read("inter.pem"))
        self.done("cert", "self", "-k", "root.key", "-sCN=old", "--from=2020-01-01", "--until=2020-12-31", "old.pem")
        self.assertIn(b"warning", zul("cert", "issue", "--issuer=alice.pem", "-k", "alice.key", "--public-key=root.key",
                                      "-sCN=Mallory", "mallory.pem").stderr)
        for good in (["alice.pem", "root.pem", "inter.pem"], ["root.pem"], ["all.pem"],
                     ["inter.pem", "alice.pem", "--trusted", "root.pem"], ["--ignore-dates", "old.pem"]):
            with self.subTest(good):
                self.assertIn(b"valid path", self.done("cert", "path", *good))
        self.assertIn(b"valid path", self.done("cert", "path", "-", stdin=read("all.pem")))
        for code, bad in (*self.bad_issuers(), (21, ["alice.pem", "root.pem"]), (25, ["alice.pem", "inter.pem"]), (16, ["old.pem"]),
                          (25, ["alice.pem", "root.pem", "inter.pem", "mallory.pem"]),
                          (25, ["mallory.pem", "--trusted", "alice.pem"]),
                          (21, ["--trusted", "old.pem", "--ignore-dates", "inter.pem"]),
                          (7, ["root.pem", "alice.req"]), (1, ["root.pem", "missing"])):
            with self.subTest(bad):
                self.assertEqual(self.refused(code, "cert", "path", *bad).stdout, b"")

    def bad_issuers(self):
        write("bundled.pem", read("all.pem") + read("mallory.pem"))
        for form in ("PEM", "DER"):
            openssl("crl2pkcs7", "-nocrl", "-certfile", "bundled.pem", "-outform", form, "-out", form, stdin=b"")
            yield 25, [form]
            openssl("crl2pkcs7", "-nocrl", "-certfile", "all.pem", "-outform", form, "-out", "good", stdin=b"")
            self.assertIn(b"valid path", self.done("cert", "path", "good", "--trusted", "root.pem"))
        for name, options in (("v1", ["--version1"]), ("usage", ["--ca", "--usage=cRLSign"])):
            self.done("cert", "issue", "--issuer=root.pem", "-k", "root.key", "--public-key=inter.key", "-s", "CN=" + name,
                      *options, name + ".pem")
            zul("cert", "issue", "--issuer", name + ".pem", "-k", "inter.key", "--request=alice.req", "leaf" + name)
            yield 25, ["root.pem", "leaf" + name, name + ".pem"]
            yield 25, ["--trusted=root.pem", name + ".pem", "leaf" + name]
        yield 25, ["--trusted=usage.pem", "leafusage"]
        openssl("req", "-x509", "-new", "-key", "root.key", "-subj", "/CN=srv", "-out", "srv.pem", "-addext",
                "basicConstraints=critical,CA:FALSE", stdin=b"")
        for good in (["--trusted=srv.pem", "srv.pem"], ["--trusted=v1.pem", "leafv1"]):
            self.assertIn(b"valid path", self.done("cert", "path", *good))

    def test_revocation(self):
        serial = self.done("cert", "query", "alice.pem", "serialNumber").decode().strip()
        self.done("crl", "make", "--issuer", "inter.pem", "-k", "inter.key", "--revoke", f"0x{serial},2026-06-01",
                  "--revoke", "7", "--issued", "2026-06-02", "--next", "2056-07-01", "inter.crl")
        text = openssl("crl", "-noout", "-text", stdin=read("inter.crl")).decode()
        for part in (serial.upper(), "Jun  1 00:00:00 2026", "Serial Number: 07", "Update: Jul  1 00:00:00 2056"):
            self.assertIn(part, text)
        check = ["crl", "check", "--crl", "inter.crl"]
        of = "says inter.crl of 2026-06-02T00:00:00Z"
        for option, status, says in ((None, 1, f"REVOKED, {of} (whose signature was not checked"),
                                     ("--issuer=inter.pem", 1, f"REVOKED, {of}\n"),
                                     ("--date=2026-05-31", 0, f"not revoked on 2026-05-31T23:59:59Z, {of}"),
                                     ("--date=2026-06-01", 1, "REVOKED on 2026-06-01T23:59:59Z"),
                                     ("--date=2026-06-01T00:00", 1, "REVOKED on 2026-06-01T00:00:00Z")):
            result = zul(*check, "alice.pem", *filter(None, [option]))
            self.assertEqual((result.returncode, result.stderr), (status, b""))
            self.assertTrue(result.stdout.decode().startswith("alice.pem: " + says), result.stdout)
        self.done(*self.issue, "alice.req", "again.pem")
        self.assertIn(b"again.pem: not revoked, says", self.done(*check, "again.pem", "--issuer=inter.pem"))
        for code, arguments in ((25, ["inter.pem"]), (22, ["alice.pem", "--issuer=root.pem"]), (1, ["missing"])):
            self.assertEqual(self.refused(code, *check, *arguments).stdout, b"")
        self.assertIn(b"(CRL)\n", self.done("crl", "show", "inter.crl"))
        der = openssl("crl", "-outform", "DER", stdin=read("inter.crl"))
        for file, content in ((write("der.crl", der), b""), ("-", der)):
            result = zul("crl", "check", "again.pem", "--crl", file, "--date=2056-07-01", stdin=content)
            self.assertEqual(result.returncode, 0)
            self.assertIn(b"out of date: the next list was due at 2056-07-01T00:00:00Z", result.stderr)
        self.refused(1, "crl", "check", "alice.pem", "--crl", "missing", says="zul: missing:")

    def test_inputs_are_safe(self):
        before = {name: read(name) for name in os.listdir()}
        for out in ("inter.key", "inter.pem", "alice.req"):
            self.refused(6, *self.issue, "alice.req", "./" + out, says="would replace")
        self.refused(6, "crl", "make", "--issuer", "inter.pem", "-k", "inter.key", "inter.pem")
        self.refused(6, "request", "make", "-k", "alice.key", "-s", "CN=a", "./alice.key")
        self.refused(6, "cert", "show", "alice.pem", "-o", "./alice.pem")
        self.refused(6, "cert", "self", "-k", "root.key", "-sCN=a", "--password-file", "inter.key", "./inter.key")
        self.refused(6, "key", "make", "--password-file", "inter.key", "new.pub", "./inter.key")
        self.refused(21, "cert", "issue", "--issuer=root.pem", "-k", "inter.key", "--request", "alice.req", "alice.pem",
                     says="not that of the issuer")
        self.refused(7, "cert", "self", "-k", "alice.pem", "-s", "CN=a", "new.pem", says="takes a private key")
        self.assertEqual({name: read(name) for name in os.listdir()}, before)


class Others(ToolTest):
    def test_random(self):
        for size in (0, 1, 65536, 150000):
            with self.subTest(size):
                self.done("random", str(size), "random.bin")
                self.assertEqual(len(read("random.bin")), size)
                line = self.done("random", str(size), "--hex").decode()
                self.assertRegex(line, r"\A[0-9A-F]*\n?\Z")
                self.assertEqual(len(line.strip()), 2 * size)
        one, other = self.done("random", "70000"), self.done("random", "70000")
        self.assertEqual((len(one), len(other)), (70000, 70000))
        self.assertNotEqual(one[:32], other[:32])
        self.assertNotEqual(one[:4000], one[65536:65536 + 4000])

    def test_random_number(self):
        seen = {int(self.done("random", "--number", "-1", "1")) for _ in range(12)}
        self.assertLessEqual(seen, {-1, 0, 1})
        self.assertGreater(len(seen), 1)  # all twelve alike: once in 177,147

    def test_generator_test(self):
        self.assertIn(b"passed", self.done("random", "--test", "--report", "report.txt"))
        self.assertIn(b"FIPS140-2 test for 20000 bits", read("report.txt"))
        self.refused(202, "random", "--test", "--report", "no/such/report.txt")

    def test_wipe(self):
        write("one", b"x" * 5000)
        write("two", b"")
        self.refused(1, "wipe", "one", "missing", "two", says="zul: missing: error 1")
        self.assertEqual(os.listdir(), ["in.bin"])
        self.assertEqual(self.done("wipe", "in.bin"), b"")
        self.assertEqual(os.listdir(), [])

    def test_error(self):
        self.assertEqual(self.done("error", "15"), b"  15  Decryption error\n")
        self.assertEqual(self.done("error", "-6"), b"   6  Parameter is wrong or missing\n")
        every = self.done("error").decode().splitlines()
        self.assertEqual((len(every), every[-1]), (47, "9999  Miscellaneous error"))

    def test_version(self):
        lines = dict(line.split(maxsplit=1) for line in self.done("version").decode().splitlines())
        self.assertEqual(list(lines), ["zulcore", "built", "module", "platform"])
        self.assertEqual(lines["zulcore"], "3.6.0")
        self.assertRegex(lines["built"], r"^[A-Z][a-z]{2} [ \d]\d \d{4} \d\d:\d\d:\d\d$")
        self.assertIn(os.path.basename(lines["module"].replace("\\", "/")), ("zulcore.dll", "libzulcore.so"))

    def test_help(self):
        overview = self.done("--help").decode()
        inner = {"key": "make show convert match check", "cert": "self issue show query verify path thumb",
                 "request": "make show", "crl": "make check show",
                 "cms": "sign verify encrypt decrypt show certs", "cms certs": "make extract", "pfx": "make verify extract",
                 "ocsp": "request read"}
        for command in COMMANDS + [f"{group} {name}" for group, names in inner.items() for name in names.split()]:
            with self.subTest(command):
                if " " not in command:
                    self.assertRegex(overview, rf"(?m)^  {command} ")
                text = self.done(*command.split(), "--help").decode()
                self.assertRegex(text, rf"Example:\n(.*\n)*  zul {command}")
                self.assertLess(max(map(len, text.splitlines())), 120)


class Usage(ToolTest):
    def test_a_wrong_argument_names_what_would_be_right(self):
        key, iv = KEY.hex(), IV.hex()
        files = ["in.bin", "out.bin"]
        cases = [
            ("commands: hash, hmac, encrypt", []),
            ("unknown command 'hsah'; commands: hash, hmac", ["hsah"]),
            ("digests: sha1, sha224, sha256, sha384, sha512, md5, md2", ["hash", "sha3", "in.bin"]),
            ("not offered with md2", ["hmac", "md2", "--key", key, "in.bin"]),
            ("--key HEX or --key-file FILE", ["hmac", "md5", "in.bin"]),
            ("not both", ["hmac", "md5", "--key", key, "--key-file", "in.bin", "in.bin"]),
            ("standard input", ["hmac", "md5", "--key-file", "-", "-"]),
            ("ciphers: aes-128, aes-192, aes-256, 3des", ["encrypt", "-a", "rot13-cbc", "--key", key, *files]),
            ("modes: ecb, cbc, cfb, ofb, ctr", ["encrypt", "-a", "aes-256", "--key", key, *files]),
            ("modes: ecb, cbc, cfb, ofb, ctr", ["encrypt", "-a", "aes-256-gcm", "--key", key, *files]),
            ("needs an IV of 16 bytes", ["encrypt", "-a", "aes-256-cbc", "--key", key, *files]),
            ("needs 8 (16 hex digits)", ["encrypt", "-a", "3des-cbc", "--key", key[:48], "--iv", iv, *files]),
            ("takes no IV", ["encrypt", "-a", "aes-256-ecb", "--key", key, "--iv", iv, *files]),
            ("aes-256-cbc needs 32 bytes (64 hex digits)",
             ["encrypt", "-a", "aes-256-cbc", "--key", key[:32], "--iv", iv, *files]),
            ("aes-128-ecb needs 16 bytes (raw, or as 32 hex digits)",
             ["decrypt", "-a", "aes-128-ecb", "--key-file", "in.bin", *files]),
            ("unknown option --version", ["--version"]),
            ("--key: 1 required HEX missing", ["encrypt", "-a", "aes-256-ecb", *files, "--key"]),
            ("unknown option --keey", ["encrypt", "-a", "aes-256-ecb", "--keey", key, *files]),
            ("too many arguments", ["decrypt", "-a", "aes-256-ecb", "--key", key, *files, "more.bin"]),
            ("OUT is required", ["encode", "hex", "in.bin"]),
            ("formats: hex, base64, pem", ["encode", "base32", *files]),
            ("aes-192 key wrap needs 24 bytes", ["wrap", "-a", "aes192", "--kek", key, "--data", key]),
            ("ciphers: aes-128", ["wrap", "-a", "aes-256-cbc", "--kek", key, "--data", key]),
            ("--data HEX or as the file IN", ["unwrap", "-a", "aes256", "--kek", key]),
            ("how many bytes?", ["random"]),
            ("N is a number of bytes", ["random", "-5"]),
            ("LOWER UPPER", ["random", "--number", "6", "1"]),
            ("at most 2147483647 numbers", ["random", "--number", "-2147483648", "2147483647"]),
            ("exclude each other", ["random", "16", "--test"]),
            ("'zul error' alone lists all", ["error", "10"]),
            ("unknown command 'mkae'; commands: make, show, convert, match, check", ["key", "mkae"]),
            ("a command is needed; commands: make", ["key"]),
            ("PRIVATE is required", ["key", "make", "pub"]),
            ("--exponent is 3, 5, 17, 257 or 65537", ["key", "make", "--exponent", "7", *files]),
            ("encryptions: aes-128", ["key", "make", "--encrypt", "rot13", *files]),
            ("leave out --prf", ["key", "make", "--encrypt", "md5-des", "--prf", "sha1", *files]),
            ("--prf is sha1", ["key", "make", "--prf", "md5", *files]),
            ("formats: der, pem, pem-alt", ["key", "make", "-f", "xml", *files]),
            ("exclude each other", ["key", "convert", "--public", "--encrypt", "3des", *files]),
            ("go with --encrypt", ["key", "convert", "--prf", "sha1", *files]),
            ("cannot be encrypted", ["key", "convert", "--encrypt", "3des", "-f", "xml", *files]),
            ("only xml goes to standard output", ["key", "convert", "in.bin", "-"]),
            ("not both", ["key", "make", "--password", "a", "--password-file", "b", *files]),
            ("the password is empty", ["key", "make", "--password-file", "-", *files]),
            ("standard input", ["sign", "-k", "-", "-", "out.bin"]),
            ("paddings: oaep, v1.5", ["rsa-encrypt", "-k", "in.bin", "-p", "pss", *files]),
            ("--key-file is required", ["verify", *files]),
            ("commands: self, issue, show, query, verify, path, thumb", ["cert"]),
            ("--subject is required", ["cert", "self", "-k", *files]),
            ("no value", [*(selfmade := ["cert", "self", "-k", "in.bin", "out.pem", "-s"]), "C=AU;CN="]),
            ("separated by ';'", [*selfmade, "C=AU, CN=Bob"]),
            ("unknown keyword 'CN ' in the name; keywords: CN, C,", [*selfmade, "CN =Bob"]),
            ("'Bob' in the name has no keyword", [*selfmade, "C=AU;Bob"]),
            ("has no end", [*selfmade, r"CN='Bob\'"]),
            ("stands more", [*selfmade, "CN='Bob' Smith"]),
            ("is not hex", [*selfmade, "CN=#xyz"]),
            ("odd number", [*selfmade, "CN=#x123"]),
            ("CN has no value", [*selfmade, "CN='';C=AU"]),
            ("two letters", [*selfmade, "C='A1';CN=a"]),
            ("not '2026-02-29'", [*selfmade, "CN=a", "--from", "2026-02-29"]),
            ("not '2026-01-01T24:00'", [*selfmade, "CN=a", "--until", "2026-01-01T24:00"]),
            ("lies before", [*selfmade, "CN=a", "--from", "2026-01-02", "--until", "2026-01-01"]),
            ("lies before", [*selfmade, "CN=a", "--from", "2026-01-02", "--until", "2026-01-02T00:00"]),
            ("lies before", ["crl", "make", "--issuer=a", "-k", *files, "--issued=2026-01-02T1:00", "--next=2026-01-02"]),
            ("exclude each other", [*selfmade, "CN=a", "--years=1", "--until", "2026-01-01"]),
            ("hex after 0x", [*selfmade, "CN=a", "--serial", "0a3f"]),
            ("at most 20 bytes", [*selfmade, "CN=a", "--serial", "0x1" + "0" * 40]),
            ("below 0x80", [*selfmade, "CN=a", "--serial", "0x80" + "0" * 38]),
            ("at least 1", [*selfmade, "CN=a", "--serial", "0"]),
            ("usages: digitalSignature, ", [*selfmade, "CN=a", "--usage", "keyCertSign,signing"]),
            ("ASCII address", [*selfmade, "CN=a", "--email", "alice"]),
            ("version 1 has no", [*selfmade, "CN=a", "--version1", "--email", "a@b"]),
            ("--request FILE or --public-key FILE", ["cert", "issue", "--issuer=a", "-k", *files]),
            ("brings its own name", ["cert", "issue", "--issuer=a", "--public-key=b", "-k", *files]),
            ("queries: version, serialNumber, ", ["cert", "query", "in.bin", "serial"]),
            ("argument 4 is empty", ["cert", "path", "--trusted", "", "in.bin"]),
            ("argument 6 is empty", ["crl", "check", "in.bin", "--crl", "in.bin", ""]),
            ("the value of --from is empty", [*selfmade, "CN=a", "--from="]),
            ("at most 20 certificates", ["cert", "path", *["in.bin"] * 21]),
            ("--revoke SERIAL,DATE takes", ["crl", "make", "--issuer=a", "-k", *files, "--revoke", "1,June"]),
            ("standard input", ["crl", "check", "-", "--crl", "-"]),
            ("FILE is required", ["wipe"]),
        ]
        for says, arguments in cases:
            with self.subTest(" ".join(arguments)):
                message = self.wrong_usage(says, *arguments)
                self.assertIn("Usage: zul", message)
                self.assertIn("--help' tells more", message)
        self.assertEqual(os.listdir(), ["in.bin"])

    def test_no_message_shows_a_key(self):
        secret = "C0FFEE" * 7  # no key of any cipher
        write("secret.key", secret.encode())
        for arguments in (["encrypt", "-a", "aes-256-ecb", "--key", secret, "in.bin", "out.bin"],
                          ["encrypt", "-a", "aes-256-ecb", "--key", secret + "x", "in.bin", "out.bin"],
                          ["encrypt", "-a", "aes-256-ecb", f"--key={secret}f", "in.bin", "out.bin"],
                          ["encrypt", "-a", "aes-256-ecb", "--key-file", "secret.key", "in.bin", "out.bin"],
                          ["encrypt", "-a", "aes-256-ecb", "-k", secret, "in.bin", "out.bin"],
                          ["hash", "md5", "--key", secret], ["wrap", "-a", "3des", "--kek", secret, "--data", secret],
                          ["hmac", "md5", f"--kye={secret}", "in.bin"],
                          ["key", "check", "--password", secret, "in.bin"], ["hmac", "md5", "--key", "--" + secret, "in.bin"], ["key", f"--password={secret}"],
                          ["wrap", "-a", "3des", "--kek", KEY[:24].hex(), "--data", secret]):
            with self.subTest(" ".join(arguments)):
                result = zul(*arguments)
                self.assertIn(result.returncode, (1, 2))
                self.assertNotIn(secret, (result.stdout + result.stderr).decode().upper())


class OcspMessages(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.key = openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", "rsa_keygen_bits:1024", stdin=b"")

    def setUp(self):
        super().setUp()
        write("ca.key", self.key)
        self.done("cert", "self", "-k", "ca.key", "-s", "CN=Root", "--serial=9", "ca.pem")
        for name, serial in (("alice", "0x0A3F"), ("bob", "0xF00D")):
            self.done("cert", "issue", "--issuer", "ca.pem", "-k", "ca.key", "--public-key", "ca.key",
                      "-s", "CN=" + name, "--serial", serial, name + ".pem")

    def test_request(self):
        for name, serial in (("alice", "2623"), ("bob", "0xF0:0d")):
            for digest in ("sha1", "sha256"):
                openssl("ocsp", "-no_nonce", "-issuer", "ca.pem", "-" + digest, "-cert", name + ".pem",
                        "-reqout", "theirs", stdin=b"")
                asked = ["ocsp", "request", "--issuer", "ca.pem", "-d", digest]
                self.done(*asked, name + ".pem", "-o", "ours")
                self.assertEqual(read("ours"), read("theirs"))
                self.assertEqual(self.done(*asked, "-", stdin=read(name + ".pem")), read("theirs"))
                self.assertEqual(self.done(*asked, "--serial", serial), read("theirs"))
                self.assertEqual(self.done(*asked, "--base64", name + ".pem"), base64.b64encode(read("theirs")) + b"\n")
        before = read("alice.pem")
        self.refused(21, "ocsp", "request", "--issuer", "bob.pem", "alice.pem", says="alice.pem: error 21")
        self.refused(7, "ocsp", "request", "--issuer", "ca.pem", "ca.key", says="ca.key: error 7")
        for says, arguments in (("CERT or --serial N", []), ("CERT or --serial N", ["alice.pem", "--serial", "1"]),
                                ("hex after 0x", ["--serial", "0A3F"]), ("digests: sha1", ["alice.pem", "-d", "crc"])):
            self.wrong_usage(says, "ocsp", "request", "--issuer", "ca.pem", *arguments)
        self.refused(6, "ocsp", "request", "--issuer", "ca.pem", "alice.pem", "-o", "alice.pem", says="replace")
        self.assertEqual(read("alice.pem"), before)

    def test_read(self):
        write("index", b"V\t450101000000Z\t\t0A3F\tx\t/CN=a\nR\t450101000000Z\t260102030405Z\tF00D\tx\t/CN=b\n")
        self.done("ocsp", "request", "--issuer", "ca.pem", "bob.pem", "-o", "request")
        openssl("ocsp", "-index", "index", "-CA", "ca.pem", "-rsigner", "ca.pem", "-rkey", "ca.key", "-ndays", "1",
                "-reqin", "request", "-respout", "response", stdin=b"")
        expected = (rb"Successful response:\n Produced at 20\d\d-\d\d-\d\dT\d\d:\d\d:\d\dZ\n"
                    rb" CertStatus=revoked at 2026-01-02T03:04:05Z\n SerialNumber=00F00D\n")
        unchecked = rb"The signature was not checked: --issuer FILE does\n"
        self.assertRegex(self.done("ocsp", "read", "response"), rb"\A" + expected + unchecked + rb"\Z")
        text = base64.encodebytes(read("response"))
        self.assertRegex(self.done("ocsp", "read", "-", "--issuer", "ca.pem", stdin=text),
                         rb"\A" + expected + rb"Good signature, made with the key of ca.pem\n\Z")
        write("changed", read("response").replace(b"20260102030405Z", b"20260102030406Z"))
        self.refused(22, "ocsp", "read", "changed", "--issuer", "ca.pem", says="the key of ca.pem")
        self.refused(7, "ocsp", "read", "response", "--issuer", "ca.key", says="ca.key")
        self.refused(8, "ocsp", "read", "ca.pem", says="Not a valid OCSPResponse")
        self.refused(1, "ocsp", "read", "missing")
        self.assertEqual(self.done("ocsp", "read", "-", stdin=bytes.fromhex("30030a0103")), b"tryLater.\n")


class CmsMessages(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.keys = {name: openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", "rsa_keygen_bits:1024", stdin=b"")
                    for name in ("root", "inter", "alice", "bob")}

    def setUp(self):
        super().setUp()
        for name, pem in self.keys.items():
            write(name + ".key", pem)
        self.done("cert", "self", "-k", "root.key", "-s", "C=AU;CN=Root", "root.pem")
        self.done("cert", "issue", "--issuer=root.pem", "-k", "root.key", "--public-key=inter.key", "--ca", "-sCN=Inter",
                  "inter.pem")
        for name in ("alice", "bob"):
            self.done("cert", "issue", "--issuer=inter.pem", "-k", "inter.key", "--public-key", name + ".key",
                      "--usage=digitalSignature,keyEncipherment", "-s", "CN=" + name, name + ".pem")
        write("ca.pem", read("root.pem") + read("inter.pem"))
        self.sign = ["cms", "sign", "in.bin", "-k", "alice.key", "--cert", "alice.pem"]

    def openssl_verify(self, message, *options):
        return openssl("cms", "-verify", "-inform", "DER", "-binary", "-CAfile", "ca.pem", *options, stdin=message)

    def test_signed_messages(self):
        carry, trusted = ["--extra-cert", "inter.pem"], ["--trusted", "root.pem"]
        for made, ours, theirs in (
                (carry, trusted, []), ([*carry, "--signing-time", "-d", "sha512"], trusted, []),
                ([*carry, "--attributes", "--smime-capabilities", "--extra-cert=bob.pem", "-d", "sha384"], trusted, []),
                ([*carry, "--detached"], [*trusted, "--content=in.bin"], ["-content", "in.bin"]),
                (["--no-certs"], ["--cert=alice.pem"], ["-certfile", "alice.pem"]), ([], [*trusted, *carry], [])):
            with self.subTest(made):
                message = self.done(*self.sign, *made)
                self.assertEqual(self.openssl_verify(message, *theirs), CONTENT)
                says = self.done("cms", "verify", write("m.p7m", message), *ours).decode()
                self.assertIn("validated: a valid path" if trusted[0] in ours else "the one given with --cert", says)
                self.assertEqual("  time " in says, "--signing-time" in made)
                self.assertNotIn("NOT VALIDATED", says)
        text = self.done(*self.sign, "--base64")
        self.assertEqual(base64.b64decode(text), self.done(*self.sign))
        self.assertIn(b"good signature, but by whom is not", self.done("cms", "verify", "-", stdin=text))
        bare = self.done("cms", "sign", "-", *self.sign[3:], "--bare", stdin=CONTENT)
        self.assertIn(bare, self.done(*self.sign))
        message = self.done("cms", "sign", "alice.pem", *self.sign[3:])  # content that could be taken for the message
        self.done("cms", "verify", write("m.p7m", message), "--cert=alice.pem", "-o", "out.pem")
        self.assertEqual(read("out.pem"), read("alice.pem"))
        digest = ["--content-digest", hashlib.sha256(CONTENT).hexdigest()]
        self.done("cms", "verify", write("m.p7m", self.done(*self.sign, "--detached")), "--cert=alice.pem", *digest)

    def test_foreign_messages(self):
        both = ["-signer", "alice.pem", "-inkey", "alice.key", "-signer", "bob.pem", "-inkey", "bob.key"]
        for options, says in ((both[:4], b"CN=alice"), ([*both[:4], "-noattr", "-outform", "PEM"], b"CN=alice"),
                              ([*both[:4], "-stream", "-md", "sha1"], b"CN=alice"), (both, b"CN=bob")):
            with self.subTest(options):
                write("m.p7m", openssl("cms", "-sign", "-binary", "-nodetach", "-outform", "DER", "-certfile", "inter.pem",
                                       *options, stdin=CONTENT))
                result = zul("cms", "verify", "m.p7m", "--trusted", "root.pem", "-o", "out.bin")
                self.assertEqual((result.returncode, read("out.bin")), (0, CONTENT), result.stderr)
                self.assertIn(says, result.stdout)
                self.assertEqual(b"signed with sha1" in result.stderr.replace(b"-", b""), "sha1" in options)

    def test_what_is_not_verified_does_not_count(self):
        certificate = openssl("x509", "-in", "alice.pem", "-outform", "DER", stdin=b"")
        message = openssl("cms", "-sign", "-binary", "-nodetach", "-outform", "DER", "-stream", "-nocerts", "-certfile",
                          "alice.pem", "-signer", "alice.pem", "-inkey", "alice.key", "-signer", "bob.pem", "-inkey",
                          "bob.key", stdin=CONTENT)
        before, after = message.split(certificate)
        write("m.p7m", before[:-4] + b"\xa0\x80" + certificate * 2 + b"\0\0" + after)  # in it twice
        says = self.done("cms", "verify", "m.p7m", "--trusted=root.pem", "--extra-cert=inter.pem")
        self.assertEqual((says.count(b"CN=alice"), says.count(b"2 in the message; ")), (1, 1))
        self.assertIn(b"one for each signer above, and no other", says)

    def test_a_closed_pipe_leaves_no_message_behind(self):
        write("m.p7m", self.done(*self.sign))
        reader, writer = os.pipe()
        os.close(reader)
        for command in ("verify", "show"):
            subprocess.run([*TOOL, "cms", command, "m.p7m"], stdout=writer, stderr=subprocess.DEVNULL,
                           env={**os.environ, "TMPDIR": os.getcwd()})
        os.close(writer)
        self.assertEqual([name for name in os.listdir() if name.startswith("zul-")], [])

    def test_a_stranger_is_not_the_signer(self):
        self.done("cert", "self", "-k", "bob.key", "-sCN=Root", "fake.pem")
        zul("cert", "issue", "--issuer=fake.pem", "-k", "bob.key", "--public-key=bob.key", "-sCN=alice", "mallory.pem")
        self.done("cms", "sign", "in.bin", "-k", "bob.key", "--cert=mallory.pem", "--extra-cert=fake.pem",
                  "--extra-cert=alice.pem", "--extra-cert=inter.pem", "-o", "m.p7m")
        says = self.done("cms", "verify", "m.p7m", "-o", "out.bin")
        self.assertIn(b"by whom is not validated", says)
        self.assertIn(b"CN=alice\n", says)
        self.assertIn(b"NOT VALIDATED: the message brought this certificate along", says)
        os.remove("out.bin")
        for code, options in ((21, ["--trusted=root.pem"]), (21, ["--cert=alice.pem"]), (21, ["--cert=fake.pem"])):
            self.refused(code, "cms", "verify", "m.p7m", *options, "-o", "out.bin")
        warned = zul("cms", "sign", "in.bin", "-k", "root.key", "--cert=root.pem", "-o", "m.p7m")
        self.assertIn(b"does not say that its key is for signing messages", warned.stderr)
        self.refused(25, "cms", "verify", "m.p7m", "--trusted=root.pem", "-o", "out.bin", says="not for signing messages")
        self.assertFalse(os.path.exists("out.bin"))

    def test_damage_is_refused(self):
        good = self.done(*self.sign, "--attributes")
        digest = good.rindex(hashlib.sha256(CONTENT).digest())
        for at in (good.index(CONTENT) + 1000, digest, len(good) - 1):
            damaged = good[:at] + bytes([good[at] ^ 1]) + good[at + 1:]
            result = self.refused(22, "cms", "verify", write("m.p7m", damaged), "--cert=alice.pem", "-o", "never.bin")
            self.assertEqual(result.stdout, b"")
        write("m.p7m", self.done(*self.sign, "--detached"))
        write("other.bin", CONTENT[:-1])
        verify = ["cms", "verify", "m.p7m"]
        self.refused(22, *verify, "--content=other.bin", says="was changed")
        self.refused(20, *verify, says="--content FILE gives it")
        self.refused(20, *verify, "--content=in.bin", "-o", "never.bin")
        self.refused(21, "cms", "verify", write("m.p7m", self.done(*self.sign, "--no-certs")), says="--cert FILE gives it")
        self.refused(8, "cms", "verify", "in.bin")
        self.refused(1, "cms", "verify", "missing\x1b[31m", says="zul: missing?[31m:")
        self.assertFalse(os.path.exists("never.bin"))

    def test_encryption(self):
        semicolon = write("a;b.pem", read("alice.pem"))
        for cipher in ("aes-256", "AES128", "aes-192", "3des"):
            message = self.done("cms", "encrypt", "in.bin", "--to", semicolon, "--to=bob.pem", "--cipher", cipher)
            for name in ("alice", "bob"):
                self.assertEqual(self.done("cms", "decrypt", "-", "-k", name + ".key", stdin=message), CONTENT)
                self.assertEqual(openssl("cms", "-decrypt", "-inform", "DER", "-inkey", name + ".key", "-recip",
                                         name + ".pem", stdin=message), CONTENT)
        for cipher in ("aes-256-cbc", "des3", "aes-128-cbc"):
            theirs = openssl("cms", "-encrypt", "-binary", "-outform", "DER", "-stream", "-" + cipher, "bob.pem",
                             "alice.pem", stdin=CONTENT)
            self.done("cms", "decrypt", write("m.p7m", theirs), "-k", "alice.key", "--cert=alice.pem", "-o", "out.bin")
            self.assertEqual(read("out.bin"), CONTENT)
        self.refused(15, "cms", "decrypt", "m.p7m", "-k", "root.key", "-o", "never.bin", says="not that of a recipient")
        self.refused(15, "cms", "decrypt", "m.p7m", "-k", "alice.key", "--cert=root.pem", "-o", "never.bin")
        for content in (b"", b"\0", b"a\0b"):
            message = self.done("cms", "encrypt", "-", "--to=alice.pem", "--base64", stdin=content)
            self.assertEqual(self.done("cms", "decrypt", "-", "-k", "alice.key", stdin=base64.encodebytes(
                base64.b64decode(message))), content)
        self.assertFalse(os.path.exists("never.bin"))

    def test_everybody_is_served_or_nobody(self):
        openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-keyout", "ec.key",
                "-subj", "/CN=ec", "-out", "ec.pem", stdin=b"")
        self.done("key", "make", "--bits=300", "--password-file", write("pw", b"pw"), "small.pub", "small.key")
        self.done("cert", "issue", "--issuer=root.pem", "-k", "root.key", "--public-key=small.pub", "-sCN=small",
                  "small.pem")
        for code, file in ((19, "small.pem"), (7, "ec.pem"), (1, "missing.pem"), (7, "alice.key")):
            with self.subTest(file):
                result = zul("cms", "encrypt", "in.bin", "--to=alice.pem", "--to", file, "--to=bob.pem", "-o", "never.p7m")
                self.assertEqual((result.returncode, result.stdout), (1, b""))
                self.assertRegex(result.stderr.decode(), rf"zul: {file}: error {code}")
                self.assertFalse(os.path.exists("never.p7m"))

    def test_show(self):
        serial = self.done("cert", "query", "alice.pem", "serialNumber").decode().strip()
        write("signed", self.done(*self.sign, "--attributes", "--extra-cert=inter.pem"))
        write("bare", self.done(*self.sign, "--bare", "--no-certs", "--detached", "-d", "sha1"))
        write("env", self.done("cms", "encrypt", "in.bin", "--to=bob.pem", "--to=alice.pem"))
        for file, rows in (("signed", f"""signed message|HASeContent: 1|CountOfCerts: 2|CountOfSigners: 1|signer 1|
                                          digestAlgorithm: sha256|signatureAlgorithm: rsaEncryption|HASsignedAttrs: 1|
                                          messageDigest: {hashlib.sha256(CONTENT).hexdigest()}|certificate 2|
                                          subjectName: CN=Inter|serialNumber: {serial}"""),
                           ("bare", "signed message|HASeContent: 0|CountOfCerts: 0|HASsignedAttrs: 0|messageDigest:"),
                           ("env", f"""enveloped message|Version: 0|CountOfRecipients: 2|recipient 2|
                                       contentEncryptionAlgorithm: aes256-CBC|keyEncryptionAlgorithm: rsaEncryption|
                                       sizeofEncryptedContent: {len(CONTENT) // 16 * 16 + 16}|sizeofEncryptedKey: 128|
                                       recipientIssuerName: CN=Inter|recipientSerialNumber: {serial}""")):
            shown = [" ".join(line.split()) for line in self.done("cms", "show", file).decode().splitlines()]
            for row in rows.split("|"):
                self.assertIn(row.strip(), shown)
        self.refused(8, "cms", "show", "alice.pem")

    def test_certificates_alone(self):
        self.done("cms", "certs", "make", "alice.pem", "inter.pem", "-o", "der.p7b")
        pem = self.done("cms", "certs", "make", "--pem", "alice.pem", "inter.pem", "-o", "-")
        self.assertEqual(openssl("pkcs7", "-outform", "DER", stdin=pem), read("der.p7b"))
        self.assertEqual(openssl("pkcs7", "-print_certs", stdin=pem).count(b"BEGIN CERT"), 2)
        theirs = openssl("crl2pkcs7", "-nocrl", "-certfile", "alice.pem", "-certfile", "inter.pem", stdin=b"")
        for message in (pem, theirs, self.done(*self.sign, "--extra-cert", "der.p7b", "--extra-cert=inter.pem")):
            ders = [self.done("cms", "certs", "extract", "-", "--der", "--index", str(i), stdin=message) for i in (1, 2)]
            if b"BEGIN" in message:
                self.assertEqual(ders, [openssl("x509", "-in", file, "-outform", "DER", stdin=b"")
                                        for file in ("alice.pem", "inter.pem")])
            self.done("cms", "certs", "extract", "-", "-o", "all.pem", stdin=message)
            self.done("cert", "path", "--trusted=root.pem", "all.pem")
        self.refused(20, "cms", "certs", "extract", "der.p7b", "-n", "3", says="carries 2 certificates")
        self.refused(21, "cms", "verify", "der.p7b")

    def test_arguments(self):
        before = {name: read(name) for name in os.listdir()}
        for out in ("in.bin", "alice.key", "alice.pem", "inter.pem"):
            self.refused(6, *self.sign, "--extra-cert=inter.pem", "-o", "./" + out, says="would replace")
        self.refused(6, "cms", "encrypt", "in.bin", "--to=alice.pem", "-o", "alice.pem", says="would replace")
        self.refused(6, "cms", "decrypt", "in.bin", "-k", "bob.key", "-o", "in.bin", says="would replace")
        self.refused(6, "cms", "certs", "make", "alice.pem", "-o", "alice.pem", says="would replace")
        self.refused(21, "cms", "sign", "in.bin", "-k", "bob.key", "--cert=alice.pem", "-o", "new", says="is not that of")
        self.refused(20, "cms", "sign", write("empty", b""), *self.sign[3:], "-o", "new", says="--detached signs")
        os.remove("empty")
        for says, arguments in (
                ("commands: sign, verify, encrypt, decrypt, show, certs", []),
                ("--key-file is required", ["sign", "in.bin"]),
                ("at most 10 certificates", ["encrypt", "in.bin", *["--to=alice.pem"] * 11]),
                ("ciphers: aes-128", ["encrypt", "in.bin", "--to=alice.pem", "--cipher=rc4"]),
                ("digests: sha1", [*self.sign[1:], "-d", "sha3"]), ("is empty", ["verify", "in.bin", "--cert="]),
                ("exclude each other", ["verify", "in.bin", "--content=in.bin", "--content-digest=00"]),
                ("go with --trusted", ["verify", "in.bin", "--ignore-dates"]),
                ("standard input", ["decrypt", "-", "-k", "-"]), ("--index N", ["certs", "extract", "in.bin", "--der"])):
            self.wrong_usage(says, "cms", *arguments)
        self.assertEqual({name: read(name) for name in os.listdir()}, before)


class PfxFiles(ToolTest):
    @classmethod
    def setUpClass(cls):
        cls.plain = openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", "rsa_keygen_bits:1024", stdin=b"")
        cls.key = openssl("pkcs8", "-topk8", "-iter", "2", "-passout", "pass:pw", stdin=cls.plain)

    def setUp(self):
        super().setUp()
        write("alice.key", self.key)
        write("plain.key", self.plain)
        write("pw", b"pw\n")
        self.done("cert", "self", "-k", "plain.key", "-s", "CN=Alice", "alice.pem")
        self.make = ["pfx", "make", "alice.pem", "alice.key", "--password-file", "pw"]

    def test_made_and_read(self):
        self.done(*self.make, "-o", "a.p12", "--name", "M\u00fcller")
        shown = openssl("pkcs12", "-in", "a.p12", "-nodes", "-passin", "pass:pw", stdin=b"")
        self.assertIn("friendlyName: M\u00fcller".encode("latin-1"), shown)
        self.assertEqual(openssl("pkey", stdin=shown), openssl("pkey", stdin=self.plain))
        self.assertEqual(self.done("pfx", "verify", "a.p12", "--password-file", "pw"),
                         b"a.p12: good MAC, made with this password\n")
        self.assertEqual(self.done("pfx", "extract", "a.p12", "--cert", "c.pem", "--key=k.pem"), b"")
        self.assertEqual(openssl("x509", "-in", "c.pem", stdin=b""), openssl("x509", "-in", "alice.pem", stdin=b""))
        self.assertEqual(read("k.pem").split(), self.key.split())
        der = self.done("pfx", "extract", "-", "--der", "--key", "-", stdin=read("a.p12"))
        self.assertEqual(der, base64.b64decode(b"".join(self.key.splitlines()[1:-1])))
        pem = self.done("pfx", "make", "-", "--pem", "--empty-password", stdin=read("alice.pem"))
        self.done("pfx", "verify", "-", "--empty-password", stdin=pem)
        self.refused(20, "pfx", "extract", "-", "--cert=never", "--key=never.key", stdin=pem, says="No encrypted private key")
        self.assertFalse(os.path.exists("never"))

    def test_foreign(self):
        for options, code in ((["-certpbe", "NONE"], 0), (["-legacy", "-macalg", "sha512"], 19)):
            write("b.p12", openssl("pkcs12", "-export", "-inkey", "plain.key", "-in", "alice.pem", "-passout", "pass:pw",
                                   *options, stdin=b""))
            self.done("pfx", "verify", "b.p12", "--password-file", "pw")
            self.done("pfx", "extract", "b.p12", "--key=k.pem")
            self.done("key", "check", "k.pem", "--password-file", "pw")
            self.assertEqual(zul("pfx", "extract", "b.p12", "--cert=c.pem").returncode, min(code, 1))
        self.refused(22, "pfx", "verify", "b.p12", "--password-file", write("other", b"x"), says="wrong password")

    def test_refused(self):
        self.done("key", "make", "--password-file", "pw", "--bits=512", "other.pub", "other.key")
        before = {name: read(name) for name in os.listdir()}
        for code, file, says in ((15, "plain.key", "encrypted key"), (21, "other.key", "not the key of alice.pem"),
                                 (1, "missing", "missing")):
            self.refused(code, *self.make[:3], file, *self.make[4:], "-o", "never", says=says)
        self.refused(7, "pfx", "make", "plain.key", "--empty-password", "-o", "never")
        for out in ("alice.pem", "alice.key", "pw"):
            self.refused(6, *self.make, "-o", "./" + out, says="would replace")
        self.refused(6, "pfx", "extract", "alice.pem", "--cert=alice.pem", says="would replace")
        self.refused(8, "pfx", "extract", "alice.pem", "--cert=never", says="Not a valid PFX file")
        for says, arguments in (("CERT is required", ["make"]), ("with a password only", [*self.make[1:4], "--empty-password"]),
                                ("lacks", [*self.make[1:], "--name", "\u0141"]), ("--cert FILE", ["extract", "x"]),
                                ("exclude each other", ["verify", "x", "--empty-password", "--password-file=pw"]),
                                ("two files", ["extract", "x", "--cert=y", "--key=y"]),
                                ("standard input", ["make", "-", "-", "--password-file=pw"])):
            self.wrong_usage(says, "pfx", *arguments)
        self.assertEqual({name: read(name) for name in os.listdir()}, before)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL[:] = [os.path.abspath(part) if os.path.exists(part) else part for part in sys.argv[2:] + [sys.argv[1]]]
    # Under Wine the first program starts a whole session and the last one ends it: one that waits for its input
    # keeps a single session through all the tests. Two that start the session together can wait for each other for
    # ever, so the tests begin when this one has printed something.
    session = [subprocess.Popen(TOOL + ["hash", "sha1", os.path.abspath(__file__), "-"], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)] if sys.argv[2:] else []
    for process in session:
        process.stdout.readline()
    outcome = unittest.main(argv=sys.argv[:1], exit=False).result
    for process in session:
        process.communicate()
    sys.exit(0 if outcome.wasSuccessful() else 1)
