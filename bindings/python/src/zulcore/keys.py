"""Keys of any kind, signatures and key agreement."""
from __future__ import annotations

import ctypes
from typing import Callable, Optional

from . import _raw
from ._buffers import (Bytes, Chars, Password, Path, Source, bytes_in, file_in, file_out, is_text, password_text, room,
                       secret_out, secret_text, text_in, wiped)
from .errors import length, status

# No key string is longer. Asking for the length first would derive the key of an encrypted file twice.
_MOST = 90_000


class Key:
    """A public or private key. It is wiped by close(), at the end of a with statement, or with the object, and is
    neither shown nor serialised: save() writes it to a file."""

    __slots__ = ("_text", "_private", "__weakref__")
    _text: Optional[Chars]
    _private: bool

    def __init__(self) -> None:
        raise TypeError("keys come from Key.generate, Key.read and Key.public")

    @classmethod
    def _made(cls, write: Callable[[Chars, int], int]) -> Key:
        large = bytearray(_MOST + 1)
        buffer = (ctypes.c_char * len(large)).from_buffer(large)
        try:
            length(write(buffer, _MOST))
            text = room(large.index(0) + 1)
            memoryview(text).cast("B")[:] = memoryview(large)[:len(text)]
        finally:
            wiped(buffer)
        key = cls.__new__(cls)
        key._text = text
        key._private = _raw.KEY_Query(None, 0, text, b"isPrivate", 0) == 1
        return key

    @classmethod
    def generate(cls, kind: str) -> Key:
        """A new private key: "rsa" (3072 bits), "rsa-4096", "p-256", "p-384", "p-521", "ed25519" or "x25519"."""
        name = text_in(kind)
        return cls._made(lambda out, size: _raw.KEY_Make(out, size, name, 0))

    @classmethod
    def read(cls, source: Source, password: Optional[Password] = None) -> Key:
        """Reads a key, or the public key of a certificate or request: a file, PEM text, or bytes of PEM or DER."""
        with password_text(password) as secret:
            if not isinstance(source, (bytes, bytearray)):
                name = file_in(source)
                return cls._made(lambda out, size: _raw.KEY_Read(out, size, name, secret, 0))
            if is_text(source):
                with secret_text([source]) as pem:
                    return cls._made(lambda out, size: _raw.KEY_Read(out, size, pem, secret, 0))
            data = bytes_in(source)
            base64 = room(length(_raw.CNV_B64StrFromBytes(None, 0, *data)) + 1)
            try:
                length(_raw.CNV_B64StrFromBytes(base64, len(base64) - 1, *data))
                return cls._made(lambda out, size: _raw.KEY_Read(out, size, base64, secret, 0))
            finally:
                wiped(base64)

    def _open(self) -> Chars:
        if self._text is None:
            raise ValueError("the key is closed")
        return self._text

    def close(self) -> None:
        """Wipes the key, which cannot be used afterwards."""
        wiped(getattr(self, "_text", None))
        self._text = None

    def __enter__(self) -> Key:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def __del__(self) -> None:
        self.close()

    def __repr__(self) -> str:
        if self._text is None:
            return "<Key, closed>"
        return f"<Key {self.curve or self.algorithm}, {self.bits} bits, {'private' if self._private else 'public'}>"

    def __reduce__(self) -> str:
        raise TypeError("keys are not serialised or copied: use save()")

    def save(self, file: Path, password: Optional[Password] = None, *, unencrypted: bool = False,
             parameters: Optional[str] = None, der: bool = False, own: bool = False) -> None:
        """Writes the key to a file, a private one encrypted under the password. Without a password it has to be said that
        a private key stays unencrypted. parameters: as "kdf=scrypt". own: the structure of the kind of key."""
        text = self._open()
        if self._private and (password is None) != unencrypted:
            raise ValueError("a private key needs either a password or unencrypted=True")
        options = (0 if der else _raw.ZUL_KEY_FORMAT_PEM) | (_raw.ZUL_KEY_FORMAT_OWN if own else 0)
        with password_text(password) as secret:
            status(_raw.KEY_Save(file_in(file), text, secret, None if parameters is None else text_in(parameters),
                                 options))

    def public(self) -> Key:
        """The public key of a private one."""
        text = self._open()
        return Key._made(lambda out, size: _raw.KEY_Public(out, size, text))

    def public_pem(self) -> bytes:
        """The public key as PEM."""
        with self.public() as public:
            text = public._open()
            return file_out(lambda name: _raw.KEY_Save(name, text, None, None, _raw.ZUL_KEY_FORMAT_PEM), None)

    def query(self, word: str) -> str:
        """Answers a query of KEY_Query, numbers too as text."""
        buffer = room(4096 * 4 + 1)
        length(_raw.KEY_Query(buffer, len(buffer) - 1, self._open(), text_in(word), 0))
        return buffer.value.decode()

    @property
    def is_private(self) -> bool:
        return self._private

    @property
    def algorithm(self) -> str:
        """"rsa", "rsa-pss", "ec", "ed25519" or "x25519"."""
        return self.query("algorithm")

    @property
    def bits(self) -> int:
        return int(self.query("bits"))

    @property
    def curve(self) -> str:
        """The curve, empty for RSA."""
        return self.query("curve")

    @property
    def fingerprint(self) -> str:
        """The SHA-256 digest of the SubjectPublicKeyInfo, in hex."""
        return self.query("fingerprint")

    def matches(self, public: Key) -> bool:
        """Whether this private key belongs to a public one."""
        result = _raw.KEY_Match(self._open(), public._open())
        if result == _raw.ErrorCode.NO_MATCH_ERROR:
            return False
        status(result)
        return True

    def check(self) -> None:
        """Raises an error if the values of the key are not valid or do not belong together."""
        status(_raw.KEY_Check(self._open(), 0))

    def sign(self, data: Bytes, algorithm: Optional[str] = None, *, raw: bool = False,
             deterministic: bool = False) -> bytes:
        """Signs data, by default as is usual for the kind of key."""
        return self._sign(_raw.SIG_Sign, bytes_in(data), algorithm, raw, deterministic)

    def sign_file(self, file: Path, algorithm: Optional[str] = None, *, raw: bool = False,
                  deterministic: bool = False) -> bytes:
        """Signs the content of a file of any size."""
        return self._sign(_raw.SIG_SignFile, (file_in(file),), algorithm, raw, deterministic)

    def verify(self, signature: Bytes, data: Bytes, algorithm: Optional[str] = None, *, raw: bool = False) -> None:
        """Raises SIGNATURE_ERROR if the signature is not one of this data by this key."""
        self._verify(_raw.SIG_Verify, signature, bytes_in(data), algorithm, raw)

    def verify_file(self, signature: Bytes, file: Path, algorithm: Optional[str] = None, *, raw: bool = False) -> None:
        """Raises SIGNATURE_ERROR if the signature is not one of this file by this key."""
        self._verify(_raw.SIG_VerifyFile, signature, (file_in(file),), algorithm, raw)

    def _sign(self, function: Callable[..., int], data: tuple[object, ...], algorithm: Optional[str], raw: bool,
              deterministic: bool) -> bytes:
        options = (_raw.ZUL_SIG_RAW if raw else 0) | (_raw.ZUL_SIG_DETERMINISTIC if deterministic else 0)
        tail = (*data, self._open(), None if algorithm is None else text_in(algorithm), options)
        return bytes(secret_out(length(function(None, 0, *tail)), lambda out, size: function(out, size, *tail)))

    def _verify(self, function: Callable[..., int], signature: Bytes, data: tuple[object, ...],
                algorithm: Optional[str], raw: bool) -> None:
        status(function(*bytes_in(signature), *data, self._open(), None if algorithm is None else text_in(algorithm),
                        _raw.ZUL_SIG_RAW if raw else 0))

    def agree(self, peer: Key) -> bytearray:
        """The secret shared with the owner of another key, from which hkdf makes a key."""
        keys = (self._open(), peer._open(), 0)
        return secret_out(length(_raw.KEY_Agree(None, 0, *keys)), lambda out, size: _raw.KEY_Agree(out, size, *keys))


def key_text(key: Key) -> Chars:
    """The key as the other modules of this package hand it to the library."""
    return key._open()
