#!/usr/bin/env python3
"""Damages copies of the built module on purpose, one thing at a time, and loads them: each self-test must notice what
is its own, report it and refuse the load. Usage: self_tests_test.py --module M --loader L [--tool ZUL] [launcher]"""
import argparse
import hashlib
import hmac
import pathlib
import random
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools" / "seal"))
import seal_module  # noqa: E402

INTEGRITY = (0xC0001F41, "Software self-integrity test failed. Cryptographic services are not available")
KNOWN_ANSWERS = (0xC0001F40, "Failed power-up tests. Cryptographic services are not available")
HEALTH_CHECK = (0xC0001F42, "PRNG health check failed. Cryptographic services are not available")

TWO_BLOCKS = b"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"
TWO_LONG_BLOCKS = (b"abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmn"
                   b"hijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu")
LONGER_2202 = b"Test Using Larger Than Block-Size Key and Larger Than One Block-Size Data"
LONGER_4231 = (b"This is a test using a larger than block-size key and a larger than block-size data. The key needs"
               b" to be hashed before being used by the HMAC algorithm.")


# Answers that nothing here can compute, by the first digits.
OTHERS = {
    "AES": ["69c4e0d86a7b0430", "dda97ca4864cdfe0", "8ea2b7ca516745bf", "7649abac8119b246", "3b3fd92eb72dad20333449f8e83cfb4ac8",
            "3b3fd92eb72dad20333449f8e83cfb4a77", "874d6191b620e326"],
    "AES-128-GCM": ["42831ec2217774244b72"], "AES-192-GCM": ["3980ca0b3c00e841"], "AES-256-GCM": ["522dc1f099567d07"],
    "AES-256-GCM-SIV": ["838190310de6def4"], "ChaCha20-Poly1305": ["d31a8d34648e60db"],
    "ECDSA with P-256": ["efd48b2aacb6a8fd"], "ECDSA with P-384": ["94edbb92a5ecb8aa"],
    "ECDSA with P-521": ["00c328fafcbd79dd"], "ECDH with P-256": ["d6840f6b42f6edaf"],
    "ECDH with P-384": ["11187331c279962d"], "ECDH with P-521": ["01144c7d79ae6956"],
    "Ed25519": ["fc51cd8e6218a1a3", "6291d657deec2402"], "X25519": ["c3da55379de9c690", "422c8e7a6227d7bc"],
    "RSA-PSS": ["a0ff0e52f43356c7"], "HKDF": ["3cb25f25faacd57a"],
}


def known_answers():
    """In the order of the tests: the message of a failure, and answers in the module's data that cause it, as hex."""
    tests = [("Triple DES", ["a826fd8ce53b855f"])]
    tests += [(name, [hashlib.new(algorithm, message).hexdigest()]) for name, algorithm, message in (
        ("SHA-1", "sha1", TWO_BLOCKS), ("SHA-256", "sha256", TWO_BLOCKS), ("SHA-384", "sha384", TWO_LONG_BLOCKS),
        ("SHA-512", "sha512", TWO_LONG_BLOCKS), ("SHA-224", "sha224", TWO_BLOCKS), ("MD5", "md5", b"1234567890" * 8))]
    tests += [("MD2", ["d5976f79d83d3a0d"])]
    tests += [("HMAC-" + name, [hmac.digest(b"Jefe", b"what do ya want for nothing?", algorithm).hex(),
                                hmac.digest(b"\xaa" * size, message, algorithm).hex()]) for name, algorithm, size, message in (
        ("SHA-1", "sha1", 80, LONGER_2202), ("SHA-256", "sha256", 131, LONGER_4231),
        ("SHA-384", "sha384", 131, LONGER_4231), ("SHA-512", "sha512", 131, LONGER_4231),
        ("SHA-224", "sha224", 131, LONGER_4231), ("MD5", "md5", 80, LONGER_2202))]
    tests += [("Failed Pair-wise Consistency Test for RSA on power-up", ["e0648a8d42bba9c9", "f47e35cff41133e9"])]
    tests += [("SHA-512/256", [hashlib.new("sha512_256", TWO_LONG_BLOCKS).hexdigest()]),
              ("SHA3-256", [hashlib.sha3_256(b"\xa3" * 200).hexdigest()]),
              ("SHAKE256", [hashlib.shake_256(b"\xa3" * 200).hexdigest(48)]), *OTHERS.items(),
              ("PBKDF2", [hashlib.pbkdf2_hmac("sha1", b"password", b"salt", 2).hex(),
                          hashlib.pbkdf2_hmac("sha256", b"passwd", b"salt", 1, 64).hex()]),
              ("scrypt", [hashlib.scrypt(b"", salt=b"", n=16, r=1, p=1).hex()]), ("Argon2id", ["0d640df58d78766c"])]
    for name, answers in tests:
        yield name if name.startswith("Failed") else "Failed Known Answer Test for " + name, answers


def reports_in(log):
    lines = log.read_text().splitlines() if log.exists() else []
    entries = [re.fullmatch(r"zulcore \((-?\d+)\) (.*)", line) for line in lines if line.startswith("zulcore")]
    return [(int(entry[1]) & 0xFFFFFFFF, entry[2]) for entry in entries]


class Loading(unittest.TestCase):
    around = []

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zul-module-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        # The log lies beside the program that loads.
        self.loader = shutil.copy(OPTIONS.loader, self.folder)
        self.module = self.folder / OPTIONS.module.name
        self.sound = OPTIONS.module.read_bytes()

    def load(self, module, *arguments):
        """What the loader printed, its status, and the reports in the error log."""
        self.module.write_bytes(module)
        log = self.folder / "zulerr.log"
        log.unlink(missing_ok=True)
        done = self.run_command(str(self.loader), str(self.module), *arguments)
        return done.stdout, done.returncode, reports_in(log)

    def run_command(self, *command):
        return subprocess.run([*self.around, *OPTIONS.launcher, *command], cwd=self.folder, capture_output=True, text=True,
                              timeout=60)

    def assert_refused(self, module, *reports):
        printed, status, found = self.load(module)
        self.assertNotIn("loaded", printed)
        self.assertNotEqual(status, 0)
        if reports:
            self.assertEqual(found, list(reports))
            self.assertEqual(status, 1)

    def assert_loads(self, module):
        printed, status, found = self.load(module)
        self.assertEqual((printed.split(), status, found), (["loaded", "360"], 0, []))

    def broken(self, answer):
        """The module with one digit of a known answer changed, and sealed again."""
        self.assertEqual(self.sound.count(answer.encode()), 1)
        module = bytearray(self.sound)
        at = module.index(answer.encode()) + len(answer) - 1
        module[at] = ord("1" if answer[-1] == "0" else "0")
        return seal_module.seal(module)

    def test_sound_module_loads_wherever_it_lies(self):
        self.assert_loads(self.sound)
        self.module = self.folder / "a folder" / ("m\u00f6dul" + OPTIONS.module.suffix)
        self.module.parent.mkdir()
        if not OPTIONS.launcher:  # Wine takes names on its command line in the code page
            self.assert_loads(self.sound)

    def test_order_of_the_tests(self):
        md5, generator = hashlib.md5(b"1234567890" * 8).hexdigest().encode(), bytes.fromhex("c6a16ab8d420706f0f34ab7fec5adca9")
        module = bytearray(self.sound)
        for answer in (md5, generator):
            module[self.sound.index(answer)] ^= 1
        self.assert_refused(module, INTEGRITY)
        self.assert_refused(seal_module.seal(module), (0xC0001F07, "Failed Known Answer Test for MD5"), KNOWN_ANSWERS)

    def test_repeated_tests_find_the_file_wherever_they_are_called(self):
        self.module.write_bytes(self.sound)
        # Loaded by a relative name; the code of the call before stays.
        done = self.run_command(str(self.loader), "./" + self.module.name, "tests", str(self.module))
        self.assertEqual((done.returncode, done.stdout.split()), (0, ["loaded", "360", "0", "6", "-23", "6"]))

    def test_without_a_slot_it_is_refused_without_a_word(self):
        printed, status, reports = self.load(self.sound, "slots")
        self.assertNotIn("loaded", printed)
        self.assertEqual((status, reports), (1, []))

    def test_every_known_answer_is_compared(self):
        for number, (message, answers) in enumerate(known_answers(), 1):
            for answer in answers:
                with self.subTest(message):
                    self.assert_refused(self.broken(answer), (0xC0001F00 + number, message), KNOWN_ANSWERS)

    def test_health_check_looks_at_the_generator(self):
        answer = bytes.fromhex("c6a16ab8d420706f0f34ab7fec5adca9")  # of a run of NIST's CAVP
        module = bytearray(self.sound)
        module[self.sound.index(answer)] ^= 1
        self.assert_refused(seal_module.seal(module), HEALTH_CHECK)

    def set_options(self, options):
        """The options of the machine: in the registry of Wine's prefix, or in an /etc of the loader's own."""
        if OPTIONS.launcher:
            key = r"HKLM\Software\Vantorel\Zulkit\Options"
            self.run_command("reg", "delete", key, "/f")
            for name, value in options.items():
                kind = "REG_DWORD" if isinstance(value, int) else "REG_SZ"
                self.assertEqual(self.run_command("reg", "add", key, "/v", name, "/t", kind, "/d", str(value)).returncode, 0)
            return
        etc = self.folder / "etc" / "zulkit"
        etc.mkdir(parents=True, exist_ok=True)
        (etc / "options").write_text("".join(f"{name} = {value}\n" for name, value in options.items()))
        self.around = ["unshare", "-rm", "sh", "-c",
                       f'mount -t overlay overlay -o lowerdir="{etc.parent}":/etc /etc && exec "$@"', "sh"]
        if self.run_command("true").returncode != 0:
            self.skipTest("no file system of its own for a process here")

    def test_options_say_where_reports_go(self):
        broken = self.broken(hashlib.md5(b"1234567890" * 8).hexdigest())
        reports = [(0xC0001F07, "Failed Known Answer Test for MD5"), KNOWN_ANSWERS]
        logs = self.folder / "logs"
        logs.mkdir()
        place, separator = (str(logs), "/") if not OPTIONS.launcher else ("Z:" + str(logs).replace("/", "\\"), "\\")
        self.addCleanup(lambda: OPTIONS.launcher and self.set_options({}))
        for options, beside, inLogs in (
                ({}, reports, []),
                ({"ErrorLogDir": place, "NoErrorLog": 0}, [], reports),
                ({"ErrorLogDir": place + separator}, [], reports),
                ({"ErrorLogDir": place + separator + "missing"}, [], []),
                ({"ErrorLogDir": place + separator + "x" * 300}, reports, []),
                ({"NoErrorLog": 1}, [], []),
                ({"NoErrorLog": "yes", "NoMessageBox": "no"}, reports, []),
                ({"NoErrorLog": "4294967296"}, reports, []),
                ({"NoMessageBox": 1}, reports, [])):
            with self.subTest(options):
                self.set_options(options)
                (logs / "zulerr.log").unlink(missing_ok=True)
                printed, status, found = self.load(broken)
                self.assertEqual((printed.split(), status), ([] if not OPTIONS.launcher else ["refused"], 1))
                self.assertEqual((found, reports_in(logs / "zulerr.log")), (beside, inLogs))

    def test_any_changed_byte_is_noticed(self):
        dice = random.Random(20261121)
        size = len(self.sound)
        seal = self.sound.index(seal_module.MARKER)
        # Everywhere in the file; a loader that stumbles over the damage itself loads nothing either.
        places = [dice.randrange(size) for _ in range(OPTIONS.places)] + [size - 1, seal, seal + 16, seal + 48, seal + 56, seal + 64, seal + 95]
        if self.sound[:4] == b"\x7fELF":  # the last writable section holds the lock, where damage must not hang the load
            table, count = struct.unpack_from("<Q", self.sound, 0x28)[0], struct.unpack_from("<H", self.sound, 0x3C)[0]
            sections = [struct.unpack_from("<IIQQQQ", self.sound, table + 64 * i) for i in range(count)]
            *_, at, length = [section for section in sections if section[1:3] == (1, 3)][-1]
            places += range(at, at + length, 4)
        if self.sound[:2] == b"MZ":
            parts = seal_module.left_out_by_authenticode(self.sound)
            places = [at for at in places if not parts[0][0] <= at < parts[0][0] + 4]
            places += range(parts[1][0], parts[1][0] + 8)  # tells of a table of certificates that is not there
        for at in places:
            with self.subTest(at=at):
                module = bytearray(self.sound)
                module[at] ^= 1 << dice.randrange(8)
                self.assert_refused(module)
        module = bytearray(self.sound)
        module[self.sound.index(b"Failed power-up tests")] ^= 0x20
        self.assert_refused(module, INTEGRITY)

    def test_file_of_another_size_is_refused(self):
        seal = self.sound.index(seal_module.MARKER)
        unsealed = bytearray(self.sound)
        unsealed[seal + 48 : seal + 96] = bytes(48)
        for name, module in (("longer", self.sound + b"\0"), ("unsealed", unsealed)):
            with self.subTest(name):
                self.assert_refused(module, INTEGRITY)
        for size in (len(self.sound) - 1, len(self.sound) // 2, 100, 0):
            with self.subTest(size=size):
                self.assert_refused(self.sound[:size])

    def test_nothing_is_left_behind(self):
        for mode, times in (("cycle", 1000), ("threads", 10000)):
            with self.subTest(mode):
                printed, status, found = self.load(self.sound, mode, str(times))
                self.assertEqual((status, found), (0, []))
                early, end = ([int(n) for n in re.findall(r"(\d+)", line)] for line in printed.splitlines()[1:])
                print(f"{times} {mode}: {early} {end} (KiB, handles)", file=sys.stderr)
                self.assertLess(end[0] - early[0], 256)  # a record for each would be megabytes
                self.assertLessEqual(end[1], early[1])

    def test_seal_survives_authenticode(self):
        if self.sound[:2] != b"MZ":
            self.skipTest("only Windows modules are signed")
        for arguments in (["key", "make", "--password", "secret", "public.pem", "key.pem"],
                          ["cert", "self", "-k", "key.pem", "--password", "secret", "-s", "CN=Signer", "signer.pem"]):
            subprocess.run([*OPTIONS.launcher, OPTIONS.tool, *arguments], cwd=self.folder, check=True,
                           capture_output=True)
        (self.folder / "plain.dll").write_bytes(self.sound)
        subprocess.run(["osslsigncode", "sign", "-certs", "signer.pem", "-key", "key.pem", "-pass", "secret", "-h",
                        "sha256", "-in", "plain.dll", "-out", "signed.dll"], cwd=self.folder, check=True,
                       capture_output=True)
        signed = (self.folder / "signed.dll").read_bytes()
        self.assertGreater(len(signed), len(self.sound))
        self.assert_loads(signed)
        for at in (len(self.sound) // 2, len(self.sound) - 1):
            damaged = bytearray(signed)
            damaged[at] ^= 1
            self.assert_refused(damaged)
        self.assert_refused(signed + bytes(8), INTEGRITY)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--module", type=pathlib.Path, required=True)
    parser.add_argument("--loader", type=pathlib.Path, required=True)
    parser.add_argument("--tool", type=pathlib.Path)
    parser.add_argument("--places", type=int, default=100, help="bytes to damage")
    parser.add_argument("launcher", nargs="*")
    OPTIONS = parser.parse_args()
    unittest.main(argv=sys.argv[:1], verbosity=1)
