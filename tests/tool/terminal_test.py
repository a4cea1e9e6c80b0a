"""What the command-line tool shows in a terminal: progress, colours, and nothing of both elsewhere."""
import os
import re
import signal
import subprocess
import time
import unittest

from terminal import Terminal
from tool_harness import TOOL, ToolTest, main, openssl, write, zul


class Shown(ToolTest):
    def setUp(self):
        if len(TOOL) > 1:
            self.skipTest("a terminal of this system is no console of the other")
        super().setUp()

    def show(self, *arguments, columns=80, **variables):
        with Terminal([TOOL[0], *arguments], columns, **variables) as terminal:
            return terminal.finish()

    def test_progress_of_a_file(self):
        """One line that is written over itself, never longer than the terminal, and wiped at the end."""
        with open("large", "wb") as file:
            file.truncate(32 << 20)  # some seconds of MD2
        bar = r"\[=*>? *\] *\d+ %, \d+(\.\d)? [kM]B/s, \d+:\d\d left *"
        for columns, pattern in ((60, bar), (30, r" *\d+ %, \S+ [kM]B/s, \d+:\d\d left *"), (12, r"\d+ % *")):
            with self.subTest(columns), Terminal([TOOL[0], "hash", "md2", "large"], columns) as terminal:
                for _ in range(2):
                    line = terminal.until(rb"\r([^\r]+)(?=\r)")[1].decode()
                    self.assertRegex(line, rf"\A{pattern}\Z")
                    self.assertLess(len(line), columns)
        status, shown = self.show("hash", "md2", "large")
        *lines, blank, digest = shown.decode().removesuffix("\r\n").split("\r")[1:]
        self.assertEqual((status, blank.strip(), digest[32:]), (0, "", "  large"))
        self.assertGreaterEqual(len(blank), len(lines[-1].rstrip()))
        for line in lines:
            self.assertRegex(line, rf"\A{bar}\Z")
        self.assertRegex(self.show("hash", "md2", "large", TERM="dumb")[1], rb"\A\w+  large\r\n\Z")

    def test_activity(self):
        cases = {"searching for two primes": "key make --bits 4096 --progress --password x a b",
                 "deriving the key": "kdf pbkdf2 --salt 00112233 --iterations 2000000000 --password x"}
        for says, command in cases.items():
            with self.subTest(command), Terminal([TOOL[0], *command.split()], 40) as terminal:
                terminal.until(rf"\r[|/\\-] {says}, \d+ s *".encode())
                self.assertNotRegex(terminal.shown, rb"\*|\.\.\.")
        # The library's own marks are for where there is no line to write over.
        marks = zul("key make --bits 1024 --progress --password x c d").stderr
        self.assertRegex(marks, rb"\.+\*")
        self.assertNotIn(b"\r", marks)

    def test_interrupted(self):
        """What a signal leaves: no part of an output, and a link as it was."""
        recipient = self.done("identity me.key").decode().strip()
        encrypt = ["encrypt", "-a", "aes-256-ctr", "--key", "00" * 32, "--iv", "00" * 16]
        for command, isLink in ((encrypt, False), (["seal", "-r", recipient], False), (encrypt, True)):
            for end in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
                if isLink and not os.path.lexists("out"):
                    os.symlink("target", "out")
                with self.subTest(command, end=end), subprocess.Popen([TOOL[0], *command, "-", "out"], stdin=subprocess.PIPE) as process:
                    process.stdin.write(bytes(1 << 20))
                    process.stdin.flush()
                    until = time.monotonic() + 20
                    while time.monotonic() < until and not (os.path.exists("out") and os.path.getsize("out")):
                        time.sleep(0.01)
                    self.assertTrue(os.path.exists("out"))
                    process.send_signal(end)
                    self.assertEqual(process.wait(20), -end)
                    self.assertEqual((os.path.lexists("out"), os.path.exists("out") and os.path.getsize("out")), (isLink, 0))

    def test_colours(self):
        red, yellow, green, bold, end = b"\x1b[1;31m", b"\x1b[1;33m", b"\x1b[1;32m", b"\x1b[1m", b"\x1b[0m"
        write("key.pem", openssl("genpkey", "-algorithm", "ED25519"))
        write("good", self.done("hash sha1 in.bin"))
        write("bad", b"0" * 40 + b"  in.bin\n")
        self.done("cert self -k key.pem -s CN=a cert.pem")
        cases = [(["hash", "--help"], bold + b"Options:" + end), (["help", "hash"], bold + b"Usage:" + end + b" zul hash"),
                 (["hash", "sha256", "none"], red + b"zul:" + end + b" none: error 1"), (["hsah"], red + b"zul:" + end + b" unknown"),
                 (["key", "match", "key.pem", "key.pem"], green + b"the keys match" + end),
                 (["hash", "--check", "good"], green + b"OK" + end), (["hash", "--check", "bad"], red + b"FAILED" + end),
                 (["cert", "path", "cert.pem", "--trusted", "cert.pem"], green + b"valid" + end),
                 (["cert", "path", "cert.pem", "--trusted", "cert.pem", "--host", "b"], red + b"refused" + end),
                 (["key", "make", "--bits", "512", "--no-such"], red + b"zul key make:" + end),
                 (["key", "make", "--bits", "512", "--password", "x", "a", "b"], yellow + b"zul: warning:" + end + b" a key of fewer")]
        for arguments, coloured in cases:
            with self.subTest(arguments):
                self.assertIn(coloured, self.show(*arguments)[1])
                for plain in ({"NO_COLOR": "1"}, {"TERM": "dumb"}, {"TERM": ""}, {"NO_COLOR": "1", "CLICOLOR_FORCE": "1"}):
                    self.assertNotIn(b"\x1b", self.show(*arguments, **plain)[1], plain)
                for name in ("a", "b"):
                    if os.path.exists(name):
                        os.remove(name)

    def test_no_colours_but_forced_ones_go_into_a_pipe(self):
        allowed = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        self.assertNotIn(b"\x1b", zul("hash --help", env=allowed).stdout + zul("hsah", env=allowed).stderr)
        for value, isColoured in (("1", True), ("0", False), ("", False)):
            result = zul("hash --help", env={**allowed, "CLICOLOR_FORCE": value})
            self.assertEqual(b"\x1b[1mOptions:" in result.stdout, isColoured, value)
            self.assertEqual(re.sub(rb"\x1b\[\d*m", b"", result.stdout), zul("hash --help").stdout)


if __name__ == "__main__":
    main()
