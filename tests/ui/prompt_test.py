#!/usr/bin/env python3
"""prompt_test.py [--screens FOLDER] PROGRAM [LAUNCHER...]: what the prompts do with what a user types. Without a
launcher the program runs in a pseudo-terminal; with one (Wine) on an X server, where xdotool is the user and the
dialogs are kept as pictures."""
import fcntl
import os
import pathlib
import select
import signal
import stat
import subprocess
import sys
import tempfile
import termios
import time
import unittest

PROGRAM = []  # launcher and program
SCREENS = pathlib.Path("screens")
LIMIT = 20  # seconds for whatever is waited for
LONG = 200 * "W"


class Session:
    """The program in a session whose terminal is the test's."""

    def __init__(self, *arguments):
        self.master, slave = os.openpty()
        self.slave = slave
        self.shown = b""
        self.mode = termios.tcgetattr(slave)
        # Its standard streams are elsewhere: the prompts have to find the terminal.
        self.process = subprocess.Popen(
            [*PROGRAM, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(slave, termios.TIOCSCTTY, 0))

    def echoes(self):
        return bool(termios.tcgetattr(self.slave)[3] & termios.ECHO)

    def look(self, patience):
        while select.select([self.master], [], [], patience)[0]:
            self.shown += os.read(self.master, 4096)
            patience = 0

    def wait(self, condition, what):
        end = time.monotonic() + LIMIT
        while not condition():
            if time.monotonic() > end:
                raise AssertionError(f"{what}; shown: {self.shown}")
            self.look(0.02)

    def expect(self, text):
        self.wait(lambda: text in self.shown, f"{text} was not shown")
        self.shown = self.shown.split(text, 1)[1]

    def type(self, keys):
        os.write(self.master, keys)

    def result(self):
        self.wait(lambda: self.process.poll() is not None, "it does not end")
        self.look(0.1)
        return self.process.stdout.read().decode("latin-1").strip()

    def close(self):
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        os.close(self.master)
        os.close(self.slave)


class TerminalTest(unittest.TestCase):
    def open(self, *arguments):
        session = Session(*arguments)
        self.addCleanup(session.close)
        return session

    def ask(self, keys, size="100", caption="-", prompt="-", shown=b"Enter password: "):
        session = self.open("password", size, caption, prompt)
        session.expect(shown)
        session.wait(lambda: not session.echoes(), "the echo stays on")
        session.type(keys)
        result = session.result()
        self.assertEqual(termios.tcgetattr(session.slave), session.mode)
        self.assertEqual(session.shown, b"\r\n")  # nothing of what was typed
        return result

    def test_password(self):
        digits = b"12345678901234567890"
        for keys, texts, expected in [
            (b"se cr\x7fet\xe9\n", {}, "result=7 code=0 password=[se cet\u00e9]"),
            (b"\n", {}, "result=0 code=0 password=[]"),
            (digits + b"\n", {"size": "10"}, "result=9 code=0 password=[123456789]"),
            (b"x" * 600 + b"\n", {"size": "600"}, "result=511 code=0 password=[" + 511 * "x" + "]"),
            (b"end\x04\x04", {}, "result=3 code=0 password=[end]"),
            (b"\x04", {}, "result=-1 code=0 password=[untouched]"),
            (b"k\n", {"caption": "Vault", "prompt": "Key:", "shown": b"Vault\r\nKey: "},
             "result=1 code=0 password=[k]"),
            (b"k\n", {"caption": LONG, "prompt": LONG, "shown": 127 * b"W" + b"\r\n" + 127 * b"W" + b" "},
             "result=1 code=0 password=[k]"),
            (b"k\n", {"prompt": "a\x1b[31m\x7f\u00e9\u009b\r\n$\t\r", "shown": b"a?[31m?\xc3\xa9\xc2?\r\n$ ? "},
             "result=1 code=0 password=[k]"),
            (b"k\n", {"prompt": os.fsdecode(b"\xf5\x90\x90\x90"), "shown": b"\xf5??? "}, "result=1 code=0 password=[k]"),
        ]:
            with self.subTest(keys=keys, texts=texts):
                self.assertEqual(self.ask(keys, **texts), expected + " used=0")

    def test_signals(self):
        for prompt, shown in ("password", b"Enter password: "), ("bytes", b"is reached.\r\n"):
            for key, number in (b"\x03", signal.SIGINT), (b"", signal.SIGTERM):
                with self.subTest(prompt=prompt, number=number):
                    session = self.open(prompt, "9", "-", "0" if prompt == "bytes" else "-")
                    session.expect(shown)
                    session.type(b"ab")
                    session.type(key) if key else session.process.send_signal(number)
                    session.result()
                    self.assertEqual(session.process.returncode, -number)
                    self.assertEqual(termios.tcgetattr(session.slave), session.mode)

    def test_stopped(self):
        # A stop by the key would be ignored: without a parent in its session the process is an orphan.
        for what, number in ("password", signal.SIGTSTP), ("password", signal.SIGSTOP), ("interrupted", signal.SIGSTOP):
            with self.subTest(what=what, number=number):
                session = self.open(what, "9", "-", "-")
                session.expect(b"Enter password: ")
                session.type(b"half")
                session.process.send_signal(number)
                if number == signal.SIGSTOP:  # after which shells put the terminal right
                    termios.tcsetattr(session.slave, termios.TCSANOW, session.mode)
                    session.process.send_signal(signal.SIGCONT)
                session.expect(b"Enter password: ")
                self.assertFalse(session.echoes())
                session.type(b"whole\n")
                self.assertEqual(session.result(), "result=5 code=0 password=[whole] used=0")
                self.assertEqual(session.shown, b"\r\n")
                self.assertEqual(termios.tcgetattr(session.slave), session.mode)

    def test_signals_of_the_application(self):
        session = self.open("interrupted", "9", "-", "-")
        session.expect(b"Enter password: ")
        session.type(b"ha")
        for number in signal.SIGPIPE, signal.SIGINT, signal.SIGTSTP, signal.SIGCONT:
            session.process.send_signal(number)
            time.sleep(0.02)
        session.type(b"lf\n")
        self.assertEqual(session.result(), "result=4 code=0 password=[half] used=0")
        self.assertEqual(session.shown, b"\r\n")

    def test_entropy(self):
        for options, events in ("0", 64), ("1", 128):
            session = self.open("bytes", "1000", "More, please", options)
            session.expect(b"More, please\r\nPlease type random characters on your keyboard until 100% is reached.\r\n")
            for count in range(events):
                self.assertFalse(session.echoes())
                session.type(b"abcd"[count % 4:][:1])
                session.expect(b"\r%d%%" % (100 * (count + 1) // events))
            session.expect(b"\r\n\aPress Return to go on.")
            session.type(b"efgh")
            time.sleep(0.3)
            self.assertFalse(session.echoes())
            end = time.monotonic() + 0.1
            session.type(b"\rrm *\r")
            time.sleep(0.03)
            session.type(b"ls\r")
            inTime = time.monotonic() < end
            result = session.result()
            if inTime:
                self.assertEqual(session.shown, b"\r\n")
                self.assertEqual(select.select([session.slave], [], [], 0)[0], [])
            self.assertEqual(termios.tcgetattr(session.slave), session.mode)
            self.assertRegex(result, "^result=0 code=0 .* used=")
            self.assertGreater(int(result.split("used=")[1]), 960)

    def test_seed_file(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "seed")
            session = self.open("seed", str(path), "-", "0")
            session.expect(b"is reached.\r\n")
            session.type(b"0123456789abcdef" * 4 + b"\r")
            self.assertEqual(session.result(), "result=0 code=0 password=[untouched] used=0 initialize=0")
            self.assertEqual((path.stat().st_size, stat.S_IMODE(path.stat().st_mode)), (64, 0o600))

    def test_nobody_to_ask(self):
        for arguments, expected in [
            (["password", "9", "-", "-"], "result=-1 code=0"),
            (["password", "0", "-", "-"], "result=-6 code=0"),
            (["bytes", "9", "-", "0"], "result=-214 code=214"),
            (["bytes", "65536", "-", "0"], "result=-214 code=214"),
            (["bytes", "65537", "-", "0"], "result=-211 code=211"),
            (["bytes", "-1", "-", "0"], "result=-6 code=6"),
            (["seed", "file", "-", "0"], "result=-214 code=214"),
            (["seed", "", "-", "0"], "result=-213 code=213"),
        ]:
            with self.subTest(arguments=arguments), tempfile.TemporaryDirectory() as folder:
                process = subprocess.run([*PROGRAM, *arguments], stdin=subprocess.DEVNULL, capture_output=True,
                                         start_new_session=True, timeout=LIMIT, cwd=folder)
                self.assertEqual(process.stdout.decode().strip(), expected + " password=[untouched] used=0")
                self.assertEqual(os.listdir(folder), [])


def tool(*command):
    return subprocess.run(command, capture_output=True, text=True, timeout=LIMIT).stdout


class WindowTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        reading, writing = os.pipe()
        cls.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1024x768x24"],
                                      pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with open(reading) as numbers:
            os.environ["DISPLAY"] = ":" + numbers.readline().strip()
        # The session of Wine that other tests share may have been started without a display.
        os.environ["DESKTOP"] = f"prompt{os.getpid()}"
        # Without a window manager nobody else draws titles, or answers when a window goes.
        key = r"HKCU\Software\Wine\AppDefaults\prompt.exe\X11 Driver"
        subprocess.run([*PROGRAM[:-1], "reg", "add", key, "/v", "Managed", "/d", "N", "/f"], stdout=subprocess.DEVNULL)
        SCREENS.mkdir(parents=True, exist_ok=True)

    @classmethod
    def tearDownClass(cls):
        cls.server.kill()
        cls.server.wait()

    def open(self, title, *arguments):
        self.process = subprocess.Popen([*PROGRAM, *arguments], stdout=subprocess.PIPE)
        self.addCleanup(self.process.stdout.close)
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.kill)
        end = time.monotonic() + LIMIT
        while not (found := tool("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()):
            self.assertLess(time.monotonic(), end, f"no window {title}")
            self.assertIsNone(self.process.poll())
            time.sleep(0.05)
        # The dialog is a process that the launcher's end does not end.
        self.addCleanup(tool, "xdotool", "windowkill", found[0])
        tool("xdotool", "windowfocus", "--sync", found[0])
        time.sleep(0.5)

    def keys(self, *names):
        tool("xdotool", "key", "--delay", "10", *names)

    def picture(self, name):
        time.sleep(0.6)
        tool("import", "-window", "root", str(SCREENS / f"{name}.png"))

    def result(self):
        self.process.wait(LIMIT)
        return self.process.stdout.readline().decode().strip()  # Wine keeps the other end

    def test_password(self):
        for name, size, caption, prompt, keys, expected in [
            ("password", "100", "-", "-", ["ctrl+z", "S", "e", "Tab", "shift+Tab", "End", "1", "Tab", "space"],
             "3 code=0 password=[Se1]"),
            ("texts", "10", "A caption", "Fish & chips:", [*"12345678901234567890", "Return"],
             "9 code=0 password=[123456789]"),
            ("cancel", "10", "-", "-", ["x", "Tab", "Tab", "Return"], "-1 code=0 password=[untouched]"),
            ("escape", "10", "-", "-", ["x", "Escape"], "-1 code=0 password=[untouched]"),
            ("long_word", "600", LONG, LONG, ["x"] * 520 + ["Return"], f"511 code=0 password=[{511 * 'x'}]"),
            ("long_text", "10", "-", 20 * "some words ", ["Return"], "0 code=0 password=[]"),
        ]:
            with self.subTest(name):
                what = "interrupted" if name == "cancel" else "password"
                self.open("Password" if caption == "-" else caption[:127], what, size, caption, prompt)
                self.keys(*keys[:-1])
                self.picture(name)
                self.keys(keys[-1])
                self.assertEqual(self.result(), f"result={expected} used=0")

    def test_entropy(self):
        self.open("Random numbers", "bytes", "1000", "For your new key:", "0")
        self.picture("entropy_start")
        self.keys("Return", "Escape", "space", "Tab", "alt+F4", *"abcdefghijklmnopqrstuv")
        tool("xdotool", *[word for x in range(30) for word in ("mousemove", str(500 + x), "384")])
        tool("xdotool", "keydown", "x", "sleep", "1", "keyup", "x")
        self.picture("entropy_keys")
        # 29 keys pressed and released, hasty moves of which one or two count, and repetitions of which none does
        self.keys("Return")
        time.sleep(0.5)
        self.assertIsNone(self.process.poll())
        for y in range(6):
            tool("xdotool", "mousemove", "512", str(360 + 10 * y), "sleep", "0.15")
        self.picture("entropy_end")
        self.keys("Return")
        result = self.result()
        self.assertRegex(result, "^result=0 code=0 .* used=")
        self.assertGreater(int(result.split("used=")[1]), 960)

    def test_seed_file(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "seed")
            self.open("Random numbers", "seed", f"Z:{path}", 5 * "A seed file is made. ", "1")
            self.keys(*"0123456789abcdef" * 4)
            self.picture("entropy_seed")
            self.keys("space")
            self.assertEqual(self.result(), "result=0 code=0 password=[untouched] used=0 initialize=0")
            self.assertEqual(path.stat().st_size, 64)


def main():
    global SCREENS
    arguments = sys.argv[1:]
    if arguments[:1] == ["--screens"]:
        SCREENS = pathlib.Path(arguments[1])
        arguments = arguments[2:]
    PROGRAM.extend([*arguments[1:], os.path.abspath(arguments[0])])
    cases = unittest.TestLoader().loadTestsFromTestCase(WindowTest if arguments[1:] else TerminalTest)
    sys.exit(not unittest.TextTestRunner().run(cases).wasSuccessful())


if __name__ == "__main__":
    main()
