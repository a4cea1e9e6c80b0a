"""What the tests of the command-line tool share: SUBJECT_test.py TOOL [LAUNCHER...] runs the tool, if need be
through a launcher (Wine), and compares what it does with Python's hashlib, with openssl and with published vectors."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOL = []  # launcher and tool
os.environ["ZUL_ALLOW_ARGUMENT_SECRETS"] = "1"  # keys and passwords of tests are no secrets
os.environ["NO_COLOR"] = "1"
CONTENT = bytes(range(256)) * 300 + b"the end"  # 76,807 bytes: no whole number of blocks
KEY = bytes(range(0x40, 0x60))
IV = bytes(range(0xE0, 0xF0))


def words(command, *arguments):
    """A command's plain words may stand in one string; what follows is taken as it is."""
    return [*command.split(" "), *arguments]


def zul(*arguments, stdin=b"", **options):
    # in a session without a terminal, so that nothing is asked
    return subprocess.run(TOOL + (words(*arguments) if arguments else []), input=stdin, capture_output=True, timeout=120, start_new_session=True,
                          **options)


def openssl(*arguments, stdin=b""):
    return subprocess.run(["openssl", *words(*arguments)], input=stdin, capture_output=True, check=True).stdout


def rsa_key(bits=1024):
    return openssl("genpkey", "-algorithm", "RSA", "-pkeyopt", f"rsa_keygen_bits:{bits}")


def read(name):
    return pathlib.Path(name).read_bytes()


def write(name, content):
    pathlib.Path(name).write_bytes(content)
    return name


class ToolTest(unittest.TestCase):
    """Each test runs in a folder of its own with in.bin and a copy of what the class's prepare() makes."""
    maxDiff = None

    def prepare(self):
        pass

    @classmethod
    def setUpClass(cls):
        cls.start = os.getcwd()
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        os.mkdir(cls.folder.name + "/prepared")
        os.chdir(cls.folder.name + "/prepared")
        cls.addClassCleanup(os.chdir, cls.start)
        write("in.bin", CONTENT)
        cls("prepare").prepare()

    def setUp(self):
        work = shutil.copytree(self.folder.name + "/prepared", f"{self.folder.name}/{self._testMethodName}")
        os.chdir(work)

    def done(self, *arguments, stdin=b"", warns=b""):
        result = zul(*arguments, stdin=stdin)
        self.assertEqual(result.returncode, 0, (arguments, result.stderr))
        self.assertTrue(warns in result.stderr if warns else not result.stderr, (arguments, result.stderr))
        return result.stdout

    def refused(self, code, *arguments, stdin=b"", says=""):
        result = zul(*arguments, stdin=stdin)
        message = result.stderr.decode()
        self.assertEqual(result.returncode, 1, (arguments, message))
        self.assertRegex(message, rf"(?m)^zul: .*: error {code}: \w")
        self.assertIn(says, message)
        return result

    def wrong_usage(self, says, *arguments):
        result = zul(*arguments)
        message = result.stderr.decode()
        self.assertEqual((result.returncode, result.stdout), (2, b""), (arguments, message))
        self.assertIn(says, message)
        return message

    def leaves_nothing(self, *commands):
        """A command whose reader is gone leaves no temporary file behind."""
        reader, writer = os.pipe()
        os.close(reader)
        for command in commands:
            subprocess.run([*TOOL, *command], stdout=writer, stderr=subprocess.DEVNULL,
                           env={**os.environ, "TMPDIR": os.getcwd(), "TMP": os.getcwd()})
        os.close(writer)
        self.assertEqual([name for name in os.listdir() if name.startswith("zul-")], [])

    def tells_of_full_output(self, *commands):
        if len(TOOL) == 1 and os.path.exists("/dev/full"):
            with open("/dev/full", "wb") as full:
                for command in commands:
                    result = subprocess.run([*TOOL, *command.split()], stdout=full, stderr=subprocess.PIPE)
                    self.assertEqual((result.returncode, result.stderr), (1, b"zul: standard output: error 4: File write error\n"), command)


def start_desktop():
    """The first program of a session that asks for windows, as the random generator does, starts Wine's desktop, and
    on a busy machine at times waits for it for ever. A program that does so each time fails here."""
    for attempt in range(4):
        try:
            subprocess.run(TOOL + ["random", "16", "--hex"], capture_output=True, check=True, stdin=subprocess.DEVNULL,
                           timeout=30, start_new_session=True)
            return
        except subprocess.TimeoutExpired:
            pass
    sys.exit("the tool does not start under its launcher")


def main():
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
        start_desktop()
    outcome = unittest.main(argv=sys.argv[:1], exit=False).result
    for process in session:
        process.communicate()
    sys.exit(0 if outcome.wasSuccessful() else 1)
