"""A program in a terminal of its own, for tests of what it shows there."""
import fcntl
import os
import pty
import re
import select
import struct
import termios
import time


class Terminal:
    def __init__(self, command, columns=80, **variables):
        self.shown = b""
        self.process, self.device = pty.fork()
        if self.process == 0:
            ours = {name: value for name, value in os.environ.items() if name not in ("NO_COLOR", "CLICOLOR_FORCE")}
            os.execvpe(command[0], command, {**ours, "TERM": "xterm", **variables})
        fcntl.ioctl(self.device, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self.device)
        if self.process:
            os.waitpid(self.process, 0)

    def send(self, text):
        os.write(self.device, text)

    def _read(self, end):
        if not select.select([self.device], [], [], max(0, end - time.monotonic()))[0]:
            raise TimeoutError(self.shown)
        try:
            piece = os.read(self.device, 65536)
        except OSError:  # the program is gone
            piece = b""
        self.shown += piece
        return piece

    def until(self, pattern, seconds=20):
        """Waits for a text and gives it, with what was shown before it taken away."""
        end = time.monotonic() + seconds
        while not (found := re.search(pattern, self.shown, re.S)):
            if not self._read(end):
                raise EOFError(self.shown)
        self.shown = self.shown[found.end():]
        return found

    def finish(self, seconds=60):
        """Waits for the program's end: its exit status, and everything it has shown since the last until."""
        end = time.monotonic() + seconds
        while self._read(end):
            pass
        status = os.waitstatus_to_exitcode(os.waitpid(self.process, 0)[1])
        self.process = 0
        return status, self.shown
