"""Digests and message authentication codes. Algorithms are names, as "sha256", "sha3-512" or "shake128"."""
from __future__ import annotations

import os
from typing import Callable, Optional

from . import _raw
from ._buffers import Bytes, Chars, Password, Path, bytes_in, room, secret_bytes, secret_out, text_in, wiped
from .errors import length, status

_PIECE = 1 << 20


class _Pieces:
    """A digest or MAC of data that comes in pieces, in a context of the library that is wiped."""

    def __init__(self, context: Chars, add: Callable[..., int], end: Callable[..., int]) -> None:
        self._context: Optional[Chars] = context
        self._add = add
        self._end = end

    def _open(self) -> Chars:
        if self._context is None:
            raise ValueError("finished or closed already")
        return self._context

    def close(self) -> None:
        """Wipes what has been computed so far."""
        context = getattr(self, "_context", None)
        wiped(context)
        self._context = None

    def __del__(self) -> None:
        self.close()

    def _took(self, data: Bytes) -> None:
        status(self._add(self._open(), *bytes_in(data)))

    def finish(self, size: Optional[int] = None) -> bytes:
        """The result, and the end of the object. The size is for shake128 and shake256; others are cut to it."""
        context = self._open()
        if size is None:
            size = length(self._end(None, 0, context))
        if size < 1:
            raise ValueError("no room for a result")
        result = secret_out(size, lambda out, most: self._end(out, most, context))
        self.close()
        return bytes(result)

    def __reduce__(self) -> str:
        raise TypeError("contexts are not serialised")


class Hash(_Pieces):
    """A digest of data in pieces: Hash("sha256").add(b"...").add(b"...").finish()."""

    def __init__(self, algorithm: str = "sha256") -> None:
        name = text_in(algorithm)
        size = length(_raw.HASH_Begin(None, 0, name, 0))
        context = room(size)
        length(_raw.HASH_Begin(context, size, name, 0))
        super().__init__(context, _raw.HASH_Add, _raw.HASH_End)

    def add(self, data: Bytes) -> Hash:
        self._took(data)
        return self

    def copy(self) -> Hash:
        """Another digest that continues from here."""
        context = self._open()
        other = Hash.__new__(Hash)
        _Pieces.__init__(other, type(context).from_buffer_copy(context), self._add, self._end)
        return other


class Hmac(_Pieces):
    """An HMAC of data in pieces."""

    def __init__(self, key: Password, algorithm: str = "sha256") -> None:
        name = text_in(algorithm)
        with secret_bytes(key) as (text, size):
            context = room(length(_raw.HMAC_Begin(None, 0, text, size, name, 0)))
            length(_raw.HMAC_Begin(context, len(context), text, size, name, 0))
        super().__init__(context, _raw.HMAC_Add, _raw.HMAC_End)

    def add(self, data: Bytes) -> Hmac:
        self._took(data)
        return self


def hash_bytes(data: Bytes, algorithm: str = "sha256") -> bytes:
    """The digest of a message."""
    return Hash(algorithm).add(data).finish()


def hash_hex(data: Bytes, algorithm: str = "sha256") -> str:
    """The digest of a message in lower-case hex."""
    return hash_bytes(data, algorithm).hex()


def hash_file(file: Path, algorithm: str = "sha256") -> bytes:
    """The digest of a file of any size and name."""
    digest = Hash(algorithm)
    with open(os.fspath(file), "rb", buffering=0) as stream:
        piece = bytearray(_PIECE)
        view = memoryview(piece)
        while size := stream.readinto(piece):
            digest.add(view[:size])
    return digest.finish()


def hash_file_hex(file: Path, algorithm: str = "sha256") -> str:
    """The digest of a file in lower-case hex."""
    return hash_file(file, algorithm).hex()


def hmac(key: Password, data: Bytes, algorithm: str = "sha256") -> bytes:
    """The HMAC of a message."""
    return Hmac(key, algorithm).add(data).finish()
