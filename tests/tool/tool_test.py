#!/usr/bin/env python3
"""tool_test.py TOOL [LAUNCHER...]: runs the command-line tool, if need be through a launcher (Wine), and compares
what it does with Python's hashlib, with openssl and with published vectors."""
import base64
import hashlib
import hmac
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = []  # launcher and tool
CONTENT = bytes(range(256)) * 300 + b"the end"  # 76,807 bytes: no whole number of blocks
COMMANDS = "hash hmac encrypt decrypt wrap unwrap encode decode random wipe error version".split()
KEY = bytes(range(0x40, 0x60))
IV = bytes(range(0xE0, 0xF0))


def zul(*arguments, stdin=b""):
    return subprocess.run(TOOL + list(arguments), input=stdin, capture_output=True, timeout=120)


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
        for command in COMMANDS:
            with self.subTest(command):
                self.assertRegex(overview, rf"(?m)^  {command} ")
                text = self.done(command, "--help").decode()
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
                          ["wrap", "-a", "3des", "--kek", KEY[:24].hex(), "--data", secret]):
            with self.subTest(" ".join(arguments)):
                result = zul(*arguments)
                self.assertIn(result.returncode, (1, 2))
                self.assertNotIn(secret, (result.stdout + result.stderr).decode().upper())


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    TOOL[:] = [os.path.abspath(part) if os.path.exists(part) else part for part in sys.argv[2:] + [sys.argv[1]]]
    # Under Wine the first program starts a whole session and the last one ends it: one that waits for its input
    # keeps a single session through all the tests.
    session = [subprocess.Popen(TOOL + ["hash", "sha1"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)] if sys.argv[2:] else []
    outcome = unittest.main(argv=sys.argv[:1], exit=False).result
    for process in session:
        process.communicate()
    sys.exit(0 if outcome.wasSuccessful() else 1)
