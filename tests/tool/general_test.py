"""Random numbers, wiping, help and wrong arguments of the command-line tool."""
import os
import re
import shlex
import tempfile

from tool_harness import KEY, TOOL, ToolTest, main, read, write, zul


class Others(ToolTest):
    def test_random(self):
        for size in (0, 1, 65536, 150000):
            with self.subTest(size):
                self.done("random", str(size), "random.bin")
                self.assertEqual(len(read("random.bin")), size)
                line = self.done("random", str(size), "--hex").decode()
                self.assertRegex(line, r"\A[0-9A-F]*\n?\Z")
                self.assertEqual(len(line.strip()), 2 * size)
        one, other = self.done("random 70000"), self.done("random 70000")
        self.assertEqual((len(one), len(other)), (70000, 70000))
        self.assertNotEqual(one[:32], other[:32])
        self.assertNotEqual(one[:4000], one[65536:65536 + 4000])

    def test_random_number(self):
        seen = {int(self.done("random --number -1 1")) for _ in range(12)}
        self.assertLessEqual(seen, {-1, 0, 1})
        self.assertGreater(len(seen), 1)  # all twelve alike: once in 177,147

    def test_generator_test(self):
        self.assertIn(b"passed", self.done("random --test --report report.txt"))
        self.assertIn(b"FIPS140-2 test for 20000 bits", read("report.txt"))
        self.refused(202, "random --test --report no/such/report.txt")

    def test_wipe(self):
        write("one", b"x" * 5000)
        write("two", b"")
        self.refused(1, "wipe one missing two", says="zul: missing: error 1")
        self.assertEqual(os.listdir(), ["in.bin"])
        self.assertEqual(self.done("wipe in.bin"), b"")
        self.assertEqual(os.listdir(), [])

    def test_error(self):
        self.assertEqual(self.done("error 15"), b"  15  Decryption error\n")
        self.assertEqual(self.done("error -6"), b"   6  Parameter is wrong or missing\n")
        every = self.done("error").decode().splitlines()
        self.assertEqual((len(every), every[-1]), (47, "9999  Miscellaneous error"))

    def test_version(self):
        lines = dict(line.split(maxsplit=1) for line in self.done("version").decode().splitlines())
        self.assertEqual(list(lines), ["zulcore", "built", "module", "platform"])
        self.assertEqual(lines["zulcore"], "3.6.0")
        self.assertRegex(lines["built"], r"^[A-Z][a-z]{2} [ \d]\d \d{4} \d\d:\d\d:\d\d$")
        self.assertEqual(self.done("--version"), self.done("version"))
        self.assertIn(os.path.basename(lines["module"].replace("\\", "/")), ("zulcore.dll", "libzulcore.so"))

    def test_doctor(self):
        text = self.done("doctor").decode()
        self.assertEqual(re.findall(r"(?m)^  (?:ok|FAILED) +(\w.*?)  ", text), ["self-tests", "generator", "random bytes", "temporary files", "options"])
        self.assertIn("Everything works.", text)
        self.assertEqual([name for name in os.listdir(tempfile.gettempdir()) if name.startswith("zul-doctor")], [])
        if len(TOOL) == 1:
            result = zul("doctor", env={**os.environ, "TMPDIR": "no/where"})
            self.assertEqual((result.returncode, result.stderr), (1, b""))
            self.assertRegex(result.stdout.decode(), r"(?m)^  FAILED  temporary files .*error 2")
            self.assertEqual(result.stdout.count(b"FAILED"), 1)

    def test_full_output(self):
        write("a.der", bytes.fromhex("3003020105"))
        write("damaged.der", bytes.fromhex("3003020501"))
        self.tells_of_full_output("version", "version --json", "--help", "help hash", "error", "doctor", "completions bash", "random 16 --hex", "der a.der",
                                  "der damaged.der", "der a.der --json", "hash md5 in.bin", "encode hex in.bin -", "identity", "man --page hash")


class Secrets(ToolTest):
    # a command: the option that the only warning names, and what keeps it secret; or none
    ROWS = {"hmac md5 --key=00 in.bin": ("--key", "--key-file FILE"), "hmac md5 --key-file in.bin in.bin": None,
            f"wrap -a aes256 --kek {KEY.hex()} --data {KEY.hex()}": ("--kek", "--kek-file FILE"),
            f"wrap -a aes256 --kek-file key --data {KEY.hex()}": ("--data", "a file IN"), "random 16 --hex": None,
            "kdf pbkdf2 --salt 00 --iterations=1 --password=a": ("--password", "--password-file FILE or the prompt"),
            "seal --password a in.bin -": ("--password", "--password-file FILE or -p"),
            "key make --type ed25519 --force --password=a pub pri": ("--password", "--password-file FILE or the prompt"),
            "key show --password=a pub": ("--password", "--password-file FILE or the prompt"),
            "key convert --force --encrypt aes-128 --count=9 --password=a --new-password=b pri new": ("--password", "--password-file FILE or the prompt")}

    def test_a_warning_of_secrets_among_the_arguments(self):
        write("key", KEY)
        for allowed in (None, "0", "1"):
            variables = {name: value for name, value in os.environ.items() if name != "ZUL_ALLOW_ARGUMENT_SECRETS"}
            if allowed is not None:
                variables["ZUL_ALLOW_ARGUMENT_SECRETS"] = allowed
            for words, said in list(self.ROWS.items())[:1 if allowed else None]:
                result = zul(words, env=variables)
                expected = b"" if said is None or allowed == "1" else (
                    "zul: warning: other users can see what stands after {}, and the shell's history keeps it; {} keeps it "
                    "secret\n").format(*said).encode()
                self.assertEqual((result.returncode, result.stderr.replace(b"\r", b"")), (0, expected), words)


class Usage(ToolTest):
    # the beginning of a command: {its rest: what the message says}
    FILES, KEYED = "in.bin out.bin", f"--key {KEY.hex()} in.bin out.bin"
    ROWS = {
        "": {"": "commands: hash, hmac, encrypt", "hsah": "unknown command 'hsah'; commands: hash, hmac",
             "key": "needed; commands: make", "key mkae": "commands: make, show, convert, match, check",
             "hash sha3 in.bin": "digests: sha1, sha224, sha256, sha384, sha512, md5, md2", "error 10": "alone lists all",
             "encode hex in.bin": "OUT is required", "encode base32 " + FILES: "formats: hex, base64, pem",
             "sign -k - - out.bin": "standard input", "rsa-encrypt -p pss -k in.bin " + FILES: "paddings: oaep, v1.5",
             "verify " + FILES: "--key-file is required", "crl check - --crl -": "standard input",
             "cert query in.bin serial": "queries: version, serialNumber, ", "cert path --trusted '' in.bin": "4 is empty",
             "cert path in.bin": "--trusted is required", "completions tcsh": "shells: bash, zsh, fish, powershell",
             "man": "DIR for all pages, or --page", "man --page hush": "Did you mean 'hash'?"},
        "hmac": {"md2 --key 00 in.bin": "not offered with md2", "md5 in.bin": "--key HEX or --key-file FILE",
                 "md5 --key 00 --key-file in.bin in.bin": "not both", "md5 --key-file - -": "standard input"},
        "encrypt -a": {"rot13-cbc " + KEYED: "ciphers: aes-128, aes-192, aes-256, 3des", "aes-256 " + KEYED: "modes: ecb, cbc",
                       "aes-256-gcm " + KEYED: "modes: ecb, cbc, cfb, ofb, ctr", "aes-256-cbc " + KEYED: "IV of 16 bytes",
                       "aes-256-cbc --iv 0011 " + KEYED: "needs 16 (32 hex digits)", "aes-256-ecb --iv 00 " + KEYED: "takes no IV",
                       "aes-128-ecb " + KEYED: "aes-128-ecb needs 16 bytes (32 hex digits)",
                       "aes-128-ecb --key-file in.bin " + FILES: "needs 16 bytes (raw, or as 32 hex digits)",
                       "aes-256-ecb in.bin out.bin --key": "--key: 1 required HEX missing",
                       "aes-256-ecb --keey 00 " + FILES: "unknown option --keey", f"aes-256-ecb {KEYED} more": "too many arguments"},
        "wrap -a": {"aes192 --data 00 --kek 00": "aes-192 key wrap needs 24 bytes", "aes-256-cbc --kek 00": "ciphers: aes-128",
                    f"aes256 --kek {KEY.hex()}": "--data HEX or as the file IN"},
        "random": {"": "how many bytes?", "-5": "N is a number of bytes", "--number 6 1": "LOWER UPPER", "16 --test": "exclude",
                   "--number -2147483648 2147483647": "at most 2147483647 numbers"},
        "key make": {"pub": "PRIVATE is required", "--exponent 7 " + FILES: "--exponent is 3, 5, 17, 257 or 65537",
                     "--encrypt rot13 " + FILES: "encryptions: aes-128", "--prf md5 " + FILES: "--prf is sha1",
                     "--encrypt md5-des --prf sha1 " + FILES: "leave out --prf", "-f xml " + FILES: "formats: der, pem, pem-alt",
                     "--password a --password-file b " + FILES: "not both", "--password-file - " + FILES: "password is empty"},
        "key convert": {"--public --encrypt 3des " + FILES: "exclude each other", "--prf sha1 " + FILES: "go with --encrypt",
                        "--encrypt 3des -f xml " + FILES: "cannot be encrypted", "in.bin -": "only xml goes to standard output"},
        "cert self -k in.bin out.pem": {"": "--subject is required"}, "cert self -k in.bin out.pem -s": {
            "'C=AU;CN='": "no value", "'C=AU, CN=Bob'": "separated by ';'", "'CN =Bob'": "unknown keyword 'CN ' in the name",
            "'C=AU;Bob'": "'Bob' in the name has no keyword", r"""CN=\'Bob'\'\'""": "has no end", r"CN=\'Bob\'\ S": "stands more",
            "CN=#xyz": "is not hex", "CN=#x123": "odd number", r"CN=\'\'\;C=AU": "CN has no value", r"C=\'A1\'": "two letters"},
        "cert self -k in.bin out.pem -s CN=a": {
            "--from 2026-02-29": "not '2026-02-29'", "--until 2026-01-01T24:00": "not '2026-01-01T24:00'", "--from=": "is empty",
            "--from 2026-01-02 --until 2026-01-01": "lies before", "--from 2026-01-02 --until 2026-01-02T00:00": "lies before",
            "--years=1 --until 2026-01-01": "exclude each other", "--serial 0a3f": "hex after 0x", "--serial 0": "at least 1",
            "--serial 0x1" + "0" * 40: "at most 20 bytes", "--serial 0x80" + "0" * 38: "below 0x80", "--email alice": "alice@example.com",
            "--usage keyCertSign,signing": "usages: digitalSignature, ", "--version1 --email a@b": "version 1 has no"},
        "cert issue --issuer=a -k": {FILES: "--request FILE or --public-key FILE", "b --public-key=b c": "--subject"},
        "crl make --issuer=a -k in.bin out.crl": {"--issued=2026-01-02T1:00 --next=2026-01-02": "lies before",
                                                  "--revoke 1,June": "--revoke SERIAL,DATE,REASON takes"}, }

    def test_a_wrong_argument_names_what_would_be_right(self):
        for begin, rests in self.ROWS.items():
            for rest, says in rests.items():
                with self.subTest(f"{begin} {rest}"):
                    message = self.wrong_usage(says, *shlex.split(f"{begin} {rest}"))
                    self.assertRegex(message, r"(?s)Usage: zul.*--help' tells more")
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
