"""Arguments and results as the library takes them: lengths checked, texts encoded, secrets wiped."""
from __future__ import annotations

import contextlib
import ctypes
import os
import pathlib
import re
import sys
import tempfile
from typing import Callable, Iterable, Iterator, Optional, Sequence, Union

from . import _raw
from .errors import ZulError, length

INT_MAX = 0x7FFFFFFF
Chars = ctypes.Array[ctypes.c_char]
Bytes = Union[bytes, bytearray, memoryview]
Path = Union[str, "os.PathLike[str]"]
Password = Union[str, bytes, bytearray]
# What a function reads: the name of a file (str or path), PEM text (str), or the object itself, PEM or DER (bytes).
Source = Union[str, "os.PathLike[str]", bytes, bytearray]


def count(size: int) -> int:
    if not 0 <= size <= INT_MAX:
        raise ValueError("a length outside 0 to 2,147,483,647")
    return size


def room(size: int) -> Chars:
    return (ctypes.c_char * count(size))()


def wiped(*buffers: Optional[Chars]) -> None:
    # WIPE_Data would empty the thread's error state, and a finalizer may run between a call and the reading of its error.
    for buffer in buffers:
        if buffer is not None:
            ctypes.memset(buffer, 0, len(buffer))


def bytes_in(data: Bytes) -> tuple[Union[bytes, Chars], int]:
    """Data as an argument and its length, without a copy where the type allows that."""
    if isinstance(data, bytes):
        return data, count(len(data))
    if not isinstance(data, (bytearray, memoryview)):
        raise TypeError(f"bytes are needed, not {type(data).__name__}")
    view = memoryview(data).cast("B")
    count(view.nbytes)
    if view.readonly or view.nbytes == 0:
        return bytes(view), view.nbytes
    return (ctypes.c_char * view.nbytes).from_buffer(view), view.nbytes


@contextlib.contextmanager
def secret_bytes(data: Password) -> Iterator[tuple[Union[bytes, Chars], int]]:
    """A password or key as an argument; a copy that had to be made is wiped."""
    if not isinstance(data, str):
        yield bytes_in(data)
        return
    with secret_text([data]) as text:
        yield text, len(text) - 1


@contextlib.contextmanager
def secret_text(pieces: Sequence[Union[Password, Chars]], separator: bytes = b"") -> Iterator[Chars]:
    """Pieces as one text with a NUL behind it, wiped at the end. Pieces that are arrays have a NUL of their own."""
    parts = []
    for piece in pieces:
        if isinstance(piece, ctypes.Array):
            parts.append(memoryview(piece).cast("B")[:-1])
        else:
            encoded = piece.encode() if isinstance(piece, str) else piece
            if b"\0" in encoded:
                raise ValueError("a NUL inside a text")
            parts.append(memoryview(encoded))
    size = count(sum(part.nbytes for part in parts) + len(separator) * max(0, len(parts) - 1))
    buffer = room(size + 1)
    try:
        view = memoryview(buffer).cast("B")
        at = 0
        for number, part in enumerate(parts):
            if number > 0:
                view[at:at + len(separator)] = separator
                at += len(separator)
            view[at:at + part.nbytes] = part
            at += part.nbytes
        yield buffer
    finally:
        wiped(buffer)


@contextlib.contextmanager
def password_text(password: Optional[Password]) -> Iterator[Optional[Chars]]:
    if password is None:
        yield None
        return
    with secret_text([password]) as text:
        yield text


def text_in(text: str) -> bytes:
    """A text in UTF-8; one with a NUL is refused, because the library would see the part before it."""
    if not isinstance(text, str):
        raise TypeError(f"a text is needed, not {type(text).__name__}")
    encoded = text.encode()
    if b"\0" in encoded:
        raise ValueError("a NUL inside a text")
    return encoded


def file_in(name: Path) -> bytes:
    """The name of a file in the encoding that the library expects: the system's, or on Windows the ANSI code page."""
    plain = os.fspath(name)
    if not isinstance(plain, str):
        raise TypeError(f"the name of a file is needed, not {type(name).__name__}")
    encoded = plain.encode("mbcs", "strict") if sys.platform == "win32" else os.fsencode(plain)
    if b"\0" in encoded:
        raise ValueError("a NUL in the name of a file")
    if not encoded:
        raise ValueError("an empty name of a file")
    return encoded


def is_text(data: Union[bytes, bytearray]) -> bool:
    """Whether an object is PEM or base64, not DER or BER."""
    looksBinary = data[:1] == b"0" and data[1:2] >= b"\x80"
    return not looksBinary and b"-----BEGIN " in data or re.fullmatch(rb"M[A-Za-z0-9+/=\s]*", data) is not None


def armoured(data: Union[bytes, bytearray], label: str) -> Optional[bytes]:
    """An object that is text already as PEM; nothing if it is DER or BER."""
    if not is_text(data):
        return None
    if b"-----BEGIN " in data:
        return bytes(data)
    return f"-----BEGIN {label}-----\n{data.decode()}\n-----END {label}-----\n".encode()


def source_in(source: Source, label: str = "CERTIFICATE") -> bytes:
    """A file's name, PEM text or object as an argument of the library. The label rarely matters."""
    if not isinstance(source, (bytes, bytearray)):
        return file_in(source)
    if not source:
        raise ValueError("an empty object")
    text = armoured(source, label)
    if text is None:
        # A short text without a label would be taken for a file's name.
        text = armoured(text_out(_raw.CNV_B64StrFromBytes, *bytes_in(source)), label)
    if text is None or b"\0" in text:
        raise ValueError("neither PEM nor DER")
    return text


def list_in(sources: Union[Source, Iterable[Source]]) -> tuple[bytes, int]:
    """Sources joined by semicolons, and their number."""
    items: list[Source] = [sources] if isinstance(sources, (str, bytes, bytearray, os.PathLike)) else list(sources)
    encoded = [source_in(item) for item in items]
    if any(b";" in item for item in encoded):
        raise ValueError("a semicolon in the name of a file of a list: read the file and give its bytes")
    return b";".join(encoded), len(encoded)


def text_out(function: Callable[..., int], *arguments: object) -> bytes:
    """The text of a function with a room for it in front."""
    size = length(function(None, 0, *arguments))
    buffer = room(size + 1)
    written = length(function(buffer, size, *arguments)) if size > 0 else 0
    return buffer.raw[:written]


def secret_out(size: int, call: Callable[[Chars, int], int]) -> bytearray:
    """The bytes that a call writes into a room of a size. The array can be wiped by the caller."""
    data = bytearray(count(size))
    # The array has to be gone before the bytes are cut.
    written = length(call((ctypes.c_char * size).from_buffer(data) if size > 0 else room(1), size))
    if written < size:
        for at in range(written, size):
            data[at] = 0
        del data[written:]
    return data


def file_out(write: Callable[[bytes], int], file: Optional[Path]) -> bytes:
    """What a function writes to a file: the named one, or one in a private folder that is removed."""
    if file is not None:
        result = write(file_in(file))
        if result != 0:
            raise ZulError(result)
        return pathlib.Path(file).read_bytes()
    with tempfile.TemporaryDirectory(prefix="zulcore-") as folder:
        return file_out(write, os.path.join(folder, "out"))
