"""Sealed files of the command-line tool, which the program age opens, and age's, which the tool opens."""
import os
import pty
import shutil
import subprocess
import unittest

from tool_harness import CONTENT, TOOL, ToolTest, main, read, write

LARGE = CONTENT * 5  # several parts of 64 KiB
PASSWORD = "correct horse"


def age(*arguments, stdin=b""):
    return subprocess.run(["age", *arguments], input=stdin, capture_output=True, check=True).stdout


def age_at_a_terminal(*arguments):
    """age takes a password from a terminal alone."""
    child, terminal = pty.fork()
    if child == 0:
        os.execvp("age", ["age", *arguments])
    shown = b""
    try:
        while part := os.read(terminal, 1000):
            shown += part
            if b"passphrase" in part:
                os.write(terminal, PASSWORD.encode() + b"\n")
    except OSError:  # the terminal's end
        pass
    os.close(terminal)
    return os.waitpid(child, 0)[1], shown


@unittest.skipUnless(shutil.which("age"), "no age")
class Seal(ToolTest):
    def prepare(self):
        for name in ("my", "other"):
            write(f"{name}.pub", self.done("identity", f"{name}.key"))
        write("large.bin", LARGE)
        write("password", PASSWORD.encode() + b"\n")

    def test_identity(self):
        recipient = read("my.pub").decode()
        self.assertEqual(subprocess.run(["age-keygen", "-y", "my.key"], capture_output=True).stdout.decode(), recipient)
        self.assertEqual(self.done("identity --recipient my.key").decode(), recipient)
        self.assertRegex(read("my.key").decode(), rf"^# created: \S+Z\n# public key: {recipient}AGE-SECRET-KEY-1\w{{58}}\n$")
        self.assertRegex(self.done("identity").decode(), r"AGE-SECRET-KEY-1")
        before = read("my.key")
        self.refused(2, "identity my.key", says="--force")
        self.assertEqual(read("my.key"), before)
        os.chmod("my.key", 0o644)
        self.done("identity --force my.key")
        self.assertNotEqual(read("my.key"), before)
        if len(TOOL) == 1:
            self.assertEqual(os.stat("my.key").st_mode & 0o77, 0)

    def test_age_and_the_tool_open_each_others_files(self):
        recipient = read("my.pub").decode().strip()
        for content in (b"", b"x", CONTENT[:65535], CONTENT[:65536], CONTENT[:65537], LARGE):
            write("plain", content)
            for options in ([], ["--armour"]):
                self.done("seal -r", recipient, *options, "plain", "sealed")
                self.assertEqual(age("-d", "-i", "my.key", "sealed"), content)
                self.assertEqual(self.done("open -i other.key -i my.key sealed -"), content)
                sealed = self.done("seal -R other.pub -R my.pub", *options, "-", "-", stdin=content)
                self.assertEqual(age("-d", "-i", "my.key", stdin=sealed), content)
                self.assertEqual(self.done("open -i other.key - -", stdin=sealed), content)
            for options in ([], ["-a"]):
                write("theirs", age("-r", recipient, *options, stdin=content))
                self.done("open -i my.key theirs back")
                self.assertEqual(read("back"), content)

    def test_password(self):
        self.done("seal --password-file password in.bin")
        self.assertEqual(self.done("open --password-file password in.bin.age -"), CONTENT)
        status, shown = age_at_a_terminal("-d", "-o", "back", "in.bin.age")
        self.assertEqual((status, read("back")), (0, CONTENT), shown)
        status, shown = age_at_a_terminal("-p", "-o", "theirs", "in.bin")
        self.assertEqual(status, 0, shown)
        self.assertEqual(self.done("open - --password-file password", stdin=read("theirs")), CONTENT)
        write("wrong", b"incorrect horse\n")
        self.refused(15, "open --password-file wrong theirs never", says="Wrong password")
        self.assertFalse(os.path.exists("never"))

    def test_names(self):
        self.done("seal -R my.pub large.bin")
        self.refused(2, "seal -R my.pub large.bin", says="large.bin.age: error 2")
        self.refused(2, "open -i my.key large.bin.age", says="--force")
        write("large.bin", b"")
        self.done("open --force -i my.key large.bin.age")
        self.assertEqual(read("large.bin"), LARGE)
        shutil.copy("my.pub", "age1-friends")
        shutil.copy("my.key", "AGE-SECRET-KEY-1.txt")
        sealed = self.done("seal -R age1-friends in.bin -")
        self.assertEqual(self.done("open -i AGE-SECRET-KEY-1.txt -", stdin=sealed), CONTENT)

    def test_refusals(self):
        self.done("seal -R my.pub large.bin sealed")
        sealed = read("sealed")
        write("damaged", sealed[:-1] + bytes([sealed[-1] ^ 1]))
        for code, arguments, says in (
                (15, "open -i my.key damaged never", ""), (1, "open -i missing sealed never", "missing: error 1"),
                (1, "seal -R missing in.bin never", "missing: error 1"), (1, "seal -R my.pub gone never", "gone: error 1"),
                (2, "seal -R my.pub in.bin no/never", "no/never: error 2"), (6, "seal -R my.pub in.bin in.bin", "in.bin: error 6"),
                (6, "seal -R my.pub in.bin my.pub", "replace the keys"), (6, "open -i my.key sealed my.key", "replace the keys"),
                (21, "open -i other.key sealed never", ""), (21, "open --password-file password sealed never", "identity is needed"),
                (36, "seal -r age1x in.bin never", ""), (36, "identity --recipient my.pub", "no identity")):
            self.refused(code, arguments, says=says)
            self.assertFalse(os.path.exists("never"))
        self.assertEqual(read("in.bin"), CONTENT)
        if len(TOOL) == 1:  # a standard output that is closed must not become the input
            done = subprocess.run([*TOOL, *"open -i my.key sealed -".split()], preexec_fn=lambda: os.close(1), stderr=subprocess.PIPE)
            self.assertIn(b"standard output: error 2", done.stderr)
            self.assertEqual((done.returncode, read("sealed")), (1, sealed))
            with open("sealed", "r+b") as itself, open("opened", "wb") as other:
                for code, stream in ((1, itself), (0, other)):
                    done = subprocess.run([*TOOL, *"open -i my.key sealed -".split()], stdout=stream, stderr=subprocess.PIPE)
                    self.assertEqual((done.returncode, read("sealed")), (code, sealed))
            self.assertEqual(read("opened"), read("large.bin"))
        for says, arguments in (("one of the two", "seal in.bin"), ("one of the two", "seal -R my.pub -p in.bin"),
                                ("-r takes", "seal -r my.pub in.bin"), ("what opens it?", "open sealed"),
                                ("OUT is needed", "open -i my.key sealed"), ("semicolon", "open -i - sealed never"),
                                ("needs FILE", "identity --recipient"), ("standard input", "open --password-file - - never")):
            self.wrong_usage(says, arguments)


if __name__ == "__main__":
    main()
