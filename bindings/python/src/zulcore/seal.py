"""Files encrypted for recipients or under a password, in the format of age."""
from __future__ import annotations

import os
from typing import Iterable, Optional, Sequence, Union

from . import _raw
from ._buffers import Chars, Password, Path, file_in, password_text, room, secret_text, wiped
from .errors import length, status


class Identity:
    """A private key that opens files, "AGE-SECRET-KEY-1...". It is wiped as a Key is, and not shown."""

    __slots__ = ("_text", "__weakref__")

    def __init__(self, text: Union[str, bytes, bytearray]) -> None:
        with secret_text([text]) as given:
            if bytes(memoryview(given).cast("B")[:16]).lower() != b"age-secret-key-1":
                raise ValueError("not the text of an identity")  # the library would take it for the name of a file
            self._text: Optional[Chars] = type(given).from_buffer_copy(given)
        self.recipient()

    def _open(self) -> Chars:
        if self._text is None:
            raise ValueError("the identity is closed")
        return self._text

    def recipient(self) -> str:
        """The public key, "age1..."."""
        buffer = room(128)
        length(_raw.SEAL_Recipient(buffer, 127, self._open()))
        return buffer.value.decode()

    def save(self, file: Path) -> None:
        """Writes the identity to a new file that only its owner may read (on Windows: whoever may read in its folder)."""
        text = self._open()
        with open(os.open(os.fspath(file), os.O_WRONLY | os.O_CREAT | os.O_EXCL, 0o600), "wb", buffering=0) as stream:
            stream.write(f"# recipient: {self.recipient()}\n".encode())
            stream.write(memoryview(text).cast("B")[:-1])
            stream.write(b"\n")

    def close(self) -> None:
        wiped(getattr(self, "_text", None))
        self._text = None

    def __enter__(self) -> Identity:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def __del__(self) -> None:
        self.close()

    def __repr__(self) -> str:
        return "<Identity, closed>" if self._text is None else f"<Identity of {self.recipient()}>"

    def __reduce__(self) -> str:
        raise TypeError("identities are not serialised or copied: use save()")


def make_identity() -> Identity:
    """A new identity."""
    buffer = room(length(_raw.SEAL_MakeIdentity(None, 0, 0)) + 1)
    try:
        length(_raw.SEAL_MakeIdentity(buffer, len(buffer) - 1, 0))
        identity = Identity.__new__(Identity)
        identity._text = type(buffer).from_buffer_copy(buffer)
        return identity
    finally:
        wiped(buffer)


def _entry(text: bytes) -> bytes:
    if b";" in text:
        raise ValueError("a semicolon in an entry of a list")
    return text


def seal_file(output: Path, input: Path, recipients: Union[str, Sequence[Path]] = (),
              password: Optional[Password] = None, *, armour: bool = False) -> None:
    """Encrypts a file. recipients: "age1..." texts and names of files with such lines."""
    items: list[Path] = [recipients] if isinstance(recipients, (str, os.PathLike)) else list(recipients)
    entries = b";".join(_entry(file_in(item)) for item in items)
    with password_text(password) as secret:
        status(_raw.SEAL_File(file_in(output), file_in(input), entries or None, secret,
                              _raw.ZUL_SEAL_ARMOUR if armour else 0))


def open_file(output: Path, input: Path, identities: Union[Identity, Path, Iterable[Union[Identity, Path]]] = (),
              password: Optional[Password] = None) -> None:
    """Decrypts a file with identities (objects, or names of files) or a password."""
    items: list[Union[Identity, Path]] = ([identities] if isinstance(identities, (str, os.PathLike, Identity))
                                          else list(identities))
    pieces: list[Union[Password, Chars]] = [item._open() if isinstance(item, Identity) else _entry(file_in(item))
                                            for item in items]
    with secret_text(pieces, b";") as entries, password_text(password) as secret:
        status(_raw.SEAL_OpenFile(file_in(output), file_in(input), entries if pieces else None, secret, 0))
