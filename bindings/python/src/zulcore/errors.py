"""The exception of failed calls."""
from __future__ import annotations

import ctypes
import sys

from . import _raw


def decoded(text: bytes) -> str:
    """A text of the library: UTF-8, but on Windows names of files are in the ANSI code page."""
    try:
        return text.decode()
    except UnicodeDecodeError:
        return text.decode("mbcs" if sys.platform == "win32" else "utf-8", "replace")


class ZulError(Exception):
    """A call that failed: its code, the code's name ("DECRYPT_ERROR") and general text, and what the call had to say."""

    def __init__(self, code: int) -> None:
        """Reads the texts of the calling thread's last call, so it is made in the thread of the call, at once."""
        buffer = ctypes.create_string_buffer(512)
        _raw.ZUL_LastError(buffer, 511)
        self.detail = decoded(buffer.value)
        self.code = abs(code)
        try:
            self.name = _raw.ErrorCode(self.code).name
        except ValueError:
            self.name = "UNKNOWN"
        _raw.ZUL_ErrorLookup(buffer, 512, self.code)  # this room counts the NUL
        self.text = decoded(buffer.value)
        super().__init__(self.code, self.name, self.text, self.detail)

    def __str__(self) -> str:
        return f"{self.text} ({self.name}, {self.code})" + (f": {self.detail}" if self.detail else "")

    def __reduce__(self) -> tuple[object, ...]:
        # Another process has no last call to ask.
        return _restored, (type(self), self.args, self.__dict__)


def _restored(kind: type[ZulError], arguments: tuple[object, ...], fields: dict[str, object]) -> ZulError:
    error = kind.__new__(kind)
    error.args = arguments
    error.__dict__.update(fields)
    return error


def length(result: int) -> int:
    """The result of a function that gives a length, or its error as an exception."""
    if result < 0:
        raise ZulError(result)
    return result


def status(result: int) -> None:
    """Raises the error of a function that gives a status, of either sign."""
    if result != 0:
        raise ZulError(result)
