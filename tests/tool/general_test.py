"""Random numbers, wiping, help and wrong arguments of the command-line tool."""
import os

from tool_harness import IV, KEY, TOOL, ToolTest, main, read, write, zul


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
        self.assertEqual(self.done("--version"), self.done("version"))
        self.assertIn(os.path.basename(lines["module"].replace("\\", "/")), ("zulcore.dll", "libzulcore.so"))

    def test_help(self):
        overview = self.done("--help").decode()
        commands = ("hash hmac encrypt decrypt wrap unwrap key sign verify rsa-encrypt rsa-decrypt cert request crl cms pfx "
                    "ocsp encode decode der random wipe error version")
        inner = {"key": "make show convert match check", "cert": "self issue show query verify path thumb",
                 "request": "make show", "crl": "make check show",
                 "cms": "sign verify encrypt decrypt show certs", "cms certs": "make extract", "pfx": "make verify extract",
                 "ocsp": "request read"}
        for command in commands.split() + [f"{group} {name}" for group, names in inner.items() for name in names.split()]:
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
            ("not offered with md2", ["hmac", "md2", "--key", key, "in.bin"]),
            ("ciphers: aes-128, aes-192, aes-256, 3des", ["encrypt", "-a", "rot13-cbc", "--key", key, *files]),
            ("modes: ecb, cbc, cfb, ofb, ctr", ["encrypt", "-a", "aes-256-gcm", "--key", key, *files]),
            ("needs an IV of 16 bytes", ["encrypt", "-a", "aes-256-cbc", "--key", key, *files]),
            ("takes no IV", ["encrypt", "-a", "aes-256-ecb", "--key", key, "--iv", iv, *files]),
            ("aes-256-cbc needs 32 bytes (64 hex digits)",
             ["encrypt", "-a", "aes-256-cbc", "--key", key[:32], "--iv", iv, *files]),
            ("aes-128-ecb needs 16 bytes (raw, or as 32 hex digits)",
             ["decrypt", "-a", "aes-128-ecb", "--key-file", "in.bin", *files]),
            ("--key: 1 required HEX missing", ["encrypt", "-a", "aes-256-ecb", *files, "--key"]),
            ("unknown option --keey", ["encrypt", "-a", "aes-256-ecb", "--keey", key, *files]),
            ("OUT is required", ["encode", "hex", "in.bin"]),
            ("aes-192 key wrap needs 24 bytes", ["wrap", "-a", "aes192", "--kek", key, "--data", key]),
            ("--data HEX or as the file IN", ["unwrap", "-a", "aes256", "--kek", key]),
            ("how many bytes?", ["random"]),
            ("LOWER UPPER", ["random", "--number", "6", "1"]),
            ("at most 2147483647 numbers", ["random", "--number", "-2147483648", "2147483647"]),
            ("'zul error' alone lists all", ["error", "10"]),
            ("unknown command 'mkae'; commands: make, show, convert, match, check", ["key", "mkae"]),
            ("PRIVATE is required", ["key", "make", "pub"]),
            ("--exponent is 3, 5, 17, 257 or 65537", ["key", "make", "--exponent", "7", *files]),
            ("encryptions: aes-128", ["key", "make", "--encrypt", "rot13", *files]),
            ("--prf is sha1", ["key", "make", "--prf", "md5", *files]),
            ("exclude each other", ["key", "convert", "--public", "--encrypt", "3des", *files]),
            ("go with --encrypt", ["key", "convert", "--prf", "sha1", *files]),
            ("cannot be encrypted", ["key", "convert", "--encrypt", "3des", "-f", "xml", *files]),
            ("only xml goes to standard output", ["key", "convert", "in.bin", "-"]),
            ("not both", ["key", "make", "--password", "a", "--password-file", "b", *files]),
            ("the password is empty", ["key", "make", "--password-file", "-", *files]),
            ("standard input", ["sign", "-k", "-", "-", "out.bin"]),
            ("no value", [*(selfmade := ["cert", "self", "-k", "in.bin", "out.pem", "-s"]), "C=AU;CN="]),
            ("separated by ';'", [*selfmade, "C=AU, CN=Bob"]),
            ("unknown keyword 'CN ' in the name; keywords: CN, C,", [*selfmade, "CN =Bob"]),
            ("'Bob' in the name has no keyword", [*selfmade, "C=AU;Bob"]),
            ("has no end", [*selfmade, r"CN='Bob\'"]),
            ("stands more", [*selfmade, "CN='Bob' Smith"]),
            ("is not hex", [*selfmade, "CN=#xyz"]),
            ("odd number", [*selfmade, "CN=#x123"]),
            ("two letters", [*selfmade, "C='A1';CN=a"]),
            ("not '2026-02-29'", [*selfmade, "CN=a", "--from", "2026-02-29"]),
            ("not '2026-01-01T24:00'", [*selfmade, "CN=a", "--until", "2026-01-01T24:00"]),
            ("lies before", [*selfmade, "CN=a", "--from", "2026-01-02", "--until", "2026-01-01"]),
            ("hex after 0x", [*selfmade, "CN=a", "--serial", "0a3f"]),
            ("at most 20 bytes", [*selfmade, "CN=a", "--serial", "0x1" + "0" * 40]),
            ("below 0x80", [*selfmade, "CN=a", "--serial", "0x80" + "0" * 38]),
            ("usages: digitalSignature, ", [*selfmade, "CN=a", "--usage", "keyCertSign,signing"]),
            ("ASCII address", [*selfmade, "CN=a", "--email", "alice"]),
            ("version 1 has no", [*selfmade, "CN=a", "--version1", "--email", "a@b"]),
            ("--request FILE or --public-key FILE", ["cert", "issue", "--issuer=a", "-k", *files]),
            ("brings its own name", ["cert", "issue", "--issuer=a", "--public-key=b", "-k", *files]),
            ("queries: version, serialNumber, ", ["cert", "query", "in.bin", "serial"]),
            ("argument 4 is empty", ["cert", "path", "--trusted", "", "in.bin"]),
            ("the value of --from is empty", [*selfmade, "CN=a", "--from="]),
            ("at most 20 certificates", ["cert", "path", *["in.bin"] * 21]),
            ("--revoke SERIAL,DATE takes", ["crl", "make", "--issuer=a", "-k", *files, "--revoke", "1,June"]),
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


if __name__ == "__main__":
    main()
