"""Digests, ciphers, key wrap and encodings of the command-line tool."""
import base64
import hashlib
import hmac
import os
import re
import subprocess
import sys
import time
import unittest

from tool_harness import CONTENT, IV, KEY, TOOL, ToolTest, main, openssl, read, rsa_key, write


CHUNK = 96 * 1024  # the pieces in which the tool reads
CBC = ["-a", "aes-256-cbc", "--key", KEY.hex(), "--iv", IV.hex()]


BAR = rb"\r\[=*>? *\] +\d+ %, [\d.]+ [kMG]B/s(, [\d:]+ left)?"


def at_terminal(words, **streams):
    """The running tool, and the terminal that is its standard error."""
    terminal, stderr = os.openpty()
    named = {**os.environ, "TERM": "xterm"}
    work = subprocess.Popen([*TOOL, *words.split()], stdout=subprocess.PIPE, stderr=stderr, env=named, **streams)
    os.close(stderr)
    return work, terminal


def read_terminal(terminal, end=rb"\Z(?!)"):
    """What a terminal gets up to a pattern or to the end of the program, in however many writes."""
    text = b""
    while not re.search(end, text):
        try:
            text += os.read(terminal, 1000)
        except OSError:  # the program is gone
            break
    return text


class Digests(ToolTest):
    def test_hash(self):
        for name in "md5 sha1 sha224 sha256 sha384 sha512 sha512-256 sha3-224 sha3-256 sha3-384 sha3-512".split():
            expected = hashlib.new(name.replace("-", "_"), CONTENT).hexdigest()
            self.assertEqual(self.done("hash", name, "in.bin", "-", stdin=CONTENT).decode(),
                             f"{expected}  in.bin\n{expected}  -\n")
        # RFC 1319, A.5
        self.assertEqual(self.done("hash MD2", stdin=b"abc"), b"da853b0d3f88d99b30283a69e6ded6bb  -\n")
        self.assertEqual(self.done("hash SHA-256"), hashlib.sha256().hexdigest().encode() + b"  -\n")
        for name, size, options in (("shake128", 32, []), ("shake256", 64, []), ("shake128", 999, ["--length=999"])):
            expected = hashlib.new(name.replace("e", "e_"), CONTENT).hexdigest(size)
            self.assertEqual(self.done("hash", name, *options, "in.bin").decode(), f"{expected}  in.bin\n")
        self.wrong_usage("is for shake128", "hash", "sha256", "--length=16", "in.bin")
        large = CONTENT * 30  # more than a pipe holds
        self.assertIn(hashlib.sha512(large).hexdigest().encode(), self.done("hash sha512", stdin=large))

    def test_text_mode(self):
        write("dos.txt", b"one\r\ntwo\rthree\r\r\n")
        expected = hashlib.sha1(b"one\ntwo\rthree\r\n").hexdigest()
        for result in (self.done("hash sha1 --text dos.txt"), self.done("hash sha1 --text -", stdin=read("dos.txt"))):
            self.assertEqual(result.split()[0].decode(), expected)
        for size in (CHUNK - 2, CHUNK - 1, CHUNK):
            for end in (b"\r\nx", b"\r\r\n", b"\r"):
                text = b"a" * size + end
                self.assertEqual(self.done("hash sha1 --text", stdin=text).split()[0].decode(),
                                 hashlib.sha1(text.replace(b"\r\n", b"\n")).hexdigest())

    def test_one_file_of_several_is_missing(self):
        result = self.refused(1, "hash md5 missing in.bin", says="zul: missing: error 1: Cannot open input file")
        self.assertEqual(result.stdout.split()[0].decode(), hashlib.md5(CONTENT).hexdigest())

    def test_hmac(self):
        for name, key in [(name, b"Jefe") for name in "md5 sha1 sha224 sha384 sha512 sha3_256".split()] + [
                ("sha256", b""), ("sha256", KEY * 5)]:
            expected = hmac.new(key, CONTENT, name).hexdigest()
            write("mac.key", key)
            self.assertEqual(self.done("hmac", name, "--key-file", "mac.key", "in.bin").decode(), f"{expected}  in.bin\n")
        self.assertEqual(self.done("hmac", name, "--key", key.hex(), "-", stdin=CONTENT).decode(), f"{expected}  -\n")
        self.wrong_usage("not offered with shake128", "hmac", "shake128", "--key=00", "in.bin")

    def test_names_forge_no_line(self):
        if len(TOOL) > 1:  # a backslash separates folders there
            os.mkdir("a")
            write("a/b", b"")
            self.assertEqual(self.done("hash md5", "a\\b"), b"\\" + hashlib.md5().hexdigest().encode() + b"  a\\\\b\n")
            write("\u0142\u20ac\u65e5.x", CONTENT)
            digest = hashlib.md5(CONTENT).hexdigest()
            for name in ("\u0142\u20ac\u65e5.x", "*.x", "?\u20ac\u65e5.*"):
                self.assertEqual(self.done("hash md5", name).decode(), f"{digest}  \u0142\u20ac\u65e5.x\n")
            return
        names = ["a\nb", "c\rd", "e\\nf"]
        for name in names:
            write(name, b"")
        digest = hashlib.md5().hexdigest()
        self.assertEqual(self.done("hash md5", *names).decode(), "".join(
            f"\\{digest}  {shown}\n" for shown in (r"a\nb", r"c\rd", r"e\\nf")))
        self.assertIn(rb"  a\nb", self.done("hmac md5 --key=00", "a\nb"))

    @unittest.skipUnless(os.path.exists("/proc/self/mem"), "a file whose reading fails")
    def test_a_failed_read_is_not_the_end(self):
        if len(TOOL) > 1:
            self.skipTest("no such file under Wine")
        write("sign.key", rsa_key())
        self.done("cert self -k sign.key -s CN=a a.pem")
        bad, signer = "/proc/self/mem", ["-k", "sign.key"]
        for command in (["hash", "md5", bad], ["hash", "md5", "--text", bad], ["hmac", "md5", "--key=00", bad],
                        ["encrypt", "-a", "aes-128-ecb", "--key", KEY[:16].hex(), bad, "never"], ["der", bad],
                        ["encode", "pem", bad, "never"], ["decode", "hex", bad, "never"], ["sign", *signer, bad, "never"],
                        ["verify", *signer, bad, "in.bin"], ["rsa-encrypt", *signer, bad, "never"], ["key", "show", bad],
                        ["cms", "sign", *signer, "--cert=a.pem", "--detached", bad, "-o", "never"],
                        ["cms", "verify", bad]):
            self.assertEqual(self.refused(3, *command).stdout, b"")
        self.assertFalse(os.path.exists("never"))
        # Memory up to the heap's end: 64 KiB are read, and the next read fails.
        end = int(re.search(r"-(\w+) rw.*\[heap\]", read("/proc/self/maps").decode())[1], 16)
        for command in (["hash", "md5"], ["hmac", "md5", "--key=00", "-"], ["sign", *signer, "-", "never"],
                        ["encrypt", *CBC, "-", "never"]):
            with open(bad, "rb", buffering=0) as stdin:
                stdin.seek(end - 65536)
                result = subprocess.run(TOOL + command, stdin=stdin, capture_output=True)
                self.assertEqual((result.returncode, result.stdout), (1, b""))
                self.assertIn(b"error 3", result.stderr)
        self.assertFalse(os.path.exists("never"))


class Ciphers(ToolTest):
    # the tool's word, openssl's word, key bytes, block bytes
    CHOICES = [("aes-128-cbc", "aes-128-cbc", 16, 16), ("AES192-CBC", "aes-192-cbc", 24, 16),
               ("3des-cbc", "des-ede3-cbc", 24, 8)] + [
        (f"Aes/256-{mode}", f"aes-256-{mode}", 32, 16 if mode != "ecb" else 0) for mode in "ecb cbc cfb ofb ctr".split()]

    def test_ciphers_and_modes(self):
        for ours, theirs, key_bytes, block in self.CHOICES:
            key, iv = KEY[:key_bytes].hex(), IV[:block].hex()
            choice = ["-a", ours, "--key", key, *(["--iv", iv] if iv else [])]
            expected = openssl("enc", "-" + theirs, "-K", key, *(["-iv", iv] if iv else []), stdin=CONTENT)
            self.done("encrypt", *choice, "in.bin", "out.bin")
            self.assertEqual(read("out.bin"), expected)
            self.assertEqual(self.done("encrypt", *choice, "-", "-", stdin=CONTENT), expected)
            self.done("decrypt", *choice, "out.bin", "back.bin")
            self.assertEqual(read("back.bin"), CONTENT)
            self.assertEqual(self.done("decrypt", *choice, "out.bin", "-"), CONTENT)

    def test_names_and_key_forms(self):
        expected = openssl("enc -des-ede3-cbc -K", KEY[:24].hex(), "-iv", IV[:8].hex(), stdin=b"x")
        write("raw.key", KEY[:24])
        write("hex.key", KEY[:24].hex(":").encode().replace(b":", b" ") + b"\r\n")
        keys = ["--key-file", "raw.key"], ["--key-file=hex.key"], [f"--key={KEY[:24].hex(':')}"]
        for name, key in zip(("3DES-CBC", "tdea/cbc", "des-ede3-cbc", "DESede CBC", "des3cbc", "triple-des-cbc"), keys * 2):
            self.assertEqual(self.done("encrypt -a", name, *key, "--iv", IV[:8].hex(), "-", "-", stdin=b"x"), expected)

    def test_sizes_about_a_chunk(self):
        for size in (0, CHUNK - 16, CHUNK - 1, CHUNK, CHUNK + 1, 2 * CHUNK):
            data = (CONTENT * 3)[:size]
            secret = openssl("enc -aes-256-cbc -K", KEY.hex(), "-iv", IV.hex(), stdin=data)
            self.assertEqual(self.done("encrypt", *CBC, "-", "-", stdin=data), secret)
            self.assertEqual(self.done("decrypt", *CBC, "-", "-", stdin=secret), data)

    def test_damage_is_refused_in_both_forms(self):
        good = openssl("enc -aes-256-cbc -K", KEY.hex(), "-iv", IV.hex(), stdin=CONTENT)
        flipped = good[:-17] + bytes([good[-17] ^ 0x80]) + good[-16:]  # the pad's last byte becomes 0x80 or more
        cases = [(flipped, 15, "not the right one, or the data was damaged"), (good[:-1], 26, "some of it is missing"),
                 (b"", 26, "Data not a valid length")]
        for content, code, says in cases:
            write("damaged.bin", content)
            self.refused(code, "decrypt", *CBC, "damaged.bin", "never.bin", says=says)
            result = self.refused(code, "decrypt", *CBC, "damaged.bin", "-", says=says)
            self.assertEqual(result.stdout, b"")
            self.refused(code, "decrypt", *CBC, "-", "never.bin", stdin=good * (2 if content else 0) + content, says=says)
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
        write("own.bin", CONTENT)
        # Wine cannot tell which file a stream is that the system gave it.
        for arguments in (["-", "own.bin"], ["own.bin", "-"]) if len(TOOL) == 1 else ():
            with open("own.bin", "r+b") as stream:
                result = subprocess.run([*TOOL, "encrypt", *choice, *arguments], stdin=stream, stdout=stream,
                                        stderr=subprocess.PIPE)
            self.assertIn(b"the same file", result.stderr)
        self.assertEqual(read("in.bin") + read("own.bin"), CONTENT * 2)
        os.chmod("own.bin", 0o444)
        self.refused(2, "encrypt", *choice, "in.bin", "own.bin")
        self.assertEqual(read("own.bin"), CONTENT)
        os.chmod("own.bin", 0o644)


@unittest.skipIf(sys.argv[2:], "what Wine shows of its programs is not theirs")
class LongWork(ToolTest):
    def test_large_data_takes_little_memory(self):
        with open("large", "wb") as file:
            file.truncate(300_000_000)
        for command in (["hash", "sha256", "--text"], ["hmac", "sha256", "--key=00", "-"], ["encrypt", *CBC, "-", "secret"],
                        ["encrypt", *CBC, "large", "-"], ["decrypt", *CBC, "secret", "-"]):
            with subprocess.Popen(["cat", "large"], stdout=subprocess.PIPE) as data:
                work = subprocess.Popen(TOOL + command, stdin=data.stdout, stdout=subprocess.DEVNULL)
                _, work.returncode, usage = os.wait4(work.pid, 0)
            self.assertEqual(work.returncode, 0, command)
            self.assertLess(usage.ru_maxrss, 100_000, command)  # KiB

    def test_progress_of_a_pipe(self):
        work, terminal = at_terminal("hash sha1", stdin=subprocess.PIPE)
        work.stdin.write(b"x" * 1_000_000)  # returns once most was read
        time.sleep(1.2)
        work.communicate(b"x" * 1_100_000)
        self.assertRegex(read_terminal(terminal), rb"^(\r[\d.]+ [kM]B, [\d.]+ [kM]B/s *)+\r +\r$")
        os.close(terminal)

    def test_progress_of_sealed_files(self):
        large = os.urandom(1_000_000) * 20
        write("large", large)
        write("my.pub", self.done("identity my.key"))
        self.done("seal -R my.pub large large.age")
        write("damaged", read("large.age")[:-1])
        failure = self.refused(15, "open -i my.key damaged -").stderr.replace(b"\n", b"\r\n")
        line = rb"(" + BAR + rb" *)+"
        for words, name, says in (("seal -R my.pub", "large", b""), ("open -i my.key", "large.age", b""),
                                  ("seal -R my.pub", "<large", b""), ("open -i my.key", "damaged", failure)):
            with open(name.lstrip("<"), "rb") as stdin:
                work, terminal = at_terminal(f"{words} {'-' if name[0] == '<' else name} -", stdin=stdin)
            text = read_terminal(terminal, line)  # the work stands still while nobody reads the pipe
            out, _ = work.communicate()
            text += read_terminal(terminal)
            self.assertRegex(text, b"^" + line + rb"\r +\r" + re.escape(says) + b"$", words)
            self.assertEqual(work.returncode, 1 if says else 0)
            if "seal" in words:
                out = self.done("open -i my.key -", stdin=out)
            self.assertTrue(large.startswith(out) and len(out) >= len(large) - (65536 if says else 0), words)
            os.close(terminal)

    def test_a_terminal_changes_no_result(self):
        write("large", bytes(20_000_000))
        write("my.pub", self.done("identity my.key"))
        write("key", rsa_key())
        os.link("large", "linked")
        self.done("sign -k key large signature")
        for words in ("sign -k key large -", "verify -k key large signature", "sign -k key -d md2 large -",
                      "seal -R my.pub large large", "seal -R my.pub large linked", "seal -R my.pub large no/where"):
            expected = subprocess.run(TOOL + words.split(), capture_output=True)
            work, terminal = at_terminal(words)
            out, _ = work.communicate()
            text = re.sub(rb"^\r.*\r", b"", read_terminal(terminal).replace(b"\r\n", b"\n"))
            self.assertEqual((work.returncode, out, text), (expected.returncode, expected.stdout, expected.stderr))
            os.close(terminal)


class KeyWrap(ToolTest):
    # RFC 3394, 4.4; RFC 3217, 3.4 (its IV is random, so for unwrapping alone)
    VECTORS = [
        ("aes192", "000102030405060708090A0B0C0D0E0F1011121314151617", "00112233445566778899AABBCCDDEEFF0001020304050607",
         "031D33264E15D33268F24EC260743EDCE1C6C7DDEE725A936BA814915C6762D2"),
        ("3des", "255E0D1C07B646DFB3134CC843BA8AA71F025B7C0838251F", "2923BF85E06DD6AE529149F1F1BAE9EAB3A7DA3D860D3E98",
         "690107618EF092B3B48CA1796B234AE9FA33EBB4159604037DB5D6A84EB3AAC2768C632775A467D4"), ]

    def test_files(self):
        _, kek, data, wrapped = self.VECTORS[0]
        write("kek", kek.encode())
        write("key", bytes.fromhex(data))
        self.done("wrap -a aes-192 --kek-file kek -o wrapped key")
        self.assertEqual(read("wrapped").hex().upper(), wrapped)
        self.done("unwrap -a aes-192 --kek-file kek --out again wrapped")
        self.assertEqual(read("again"), read("key"))
        self.assertEqual(self.done("unwrap -a aes-192 --kek-file kek -", stdin=wrapped.encode()).decode(), data + "\n")

    def test_refusals(self):
        for name, kek, data, wrapped in self.VECTORS:
            other = f"{int(kek[:2], 16) ^ 0x80:02x}" + kek[2:]
            damaged = wrapped[:-2] + f"{int(wrapped[-2:], 16) ^ 1:02x}"
            for k, d in ((other, wrapped), (kek, damaged)):
                result = self.refused(1, "unwrap -a", name, "--kek", k, "--data", d, "-o", "never",
                                      says="the key-encryption key is not the right one")
                self.assertFalse(os.path.exists("never"))
                self.assertEqual(result.stdout, b"")
            self.refused(26, "wrap -a", name, "--kek", kek, "--data", data[:-2], says="wraps a key of")
            self.refused(26, "unwrap -a", name, "--kek", kek, "--data", wrapped[:-2], says="wrapped with")


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
        self.assertEqual(self.done("encode hex --line-length 4 - -", stdin=b"abc"), b"6162\n63\n")
        self.assertEqual(self.done("decode hex - -", stdin=b"DE:AD be-ef"), bytes.fromhex("deadbeef"))

    def test_base64(self):
        self.assertEqual(self.encode("base64"), base64.b64encode(CONTENT) + b"\n")
        self.assertEqual(self.encode("base64", "--line-length", "76"), base64.encodebytes(CONTENT))
        for size in (766, 767, 768):  # base64url, without its padding
            text = base64.urlsafe_b64encode(CONTENT[:size]).rstrip(b"=")
            self.assertEqual(self.done("decode base64 - -", stdin=text), CONTENT[:size])
        self.refused(7, "decode base64 - -", stdin=b"+-__", says="mixes")

    def test_pem(self):
        lines = base64.b64encode(CONTENT)
        for options, label, width in (([], b"DATA", 64), (["--label", "TRUSTED THING", "--line-length", "70"],
                                                            b"TRUSTED THING", 68), (["--line-length=3"], b"DATA", 64)):
            body = [lines[i:i + width] for i in range(0, len(lines), width)]
            expected = [b"-----BEGIN " + label + b"-----", *body, b"-----END " + label + b"-----", b""]
            self.assertEqual(self.encode("pem", *options), b"\r\n".join(expected))
        self.assertEqual(self.done("decode pem - -", stdin=b"a word before\n" + read("out.txt")), CONTENT)

    def test_sizes_about_a_chunk(self):
        chunk = 96 * 1024
        for size in (0, 1, 2, chunk - 1, chunk, chunk + 1, 2 * chunk):
            data = (CONTENT * 3)[:size]
            self.assertEqual(self.done("encode base64 - -", stdin=data).strip(), base64.b64encode(data))

    def test_refusals(self):
        write("plain.pem", b"-----BEGIN X-----\nQUJD\n" + b" " * 40)
        self.refused(7, "decode pem plain.pem never.bin")
        self.refused(7, "decode base64 in.bin never.bin", says="zero bytes")
        self.refused(1, "encode pem missing never.bin", says="missing")
        self.refused(6, "encode base64 in.bin ./in.bin", says="the same file")
        self.assertEqual(read("in.bin"), CONTENT)
        self.assertFalse(os.path.exists("never.bin"))


if __name__ == "__main__":
    main()
