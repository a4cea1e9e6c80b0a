"""Authenticated encryption, keys from passwords and other keys, random numbers, wiping. What is secret comes as a
bytearray, which the caller can wipe."""
from __future__ import annotations

from typing import Callable, Optional, Union

from . import _raw
from ._buffers import Bytes, Password, Path, bytes_in, count, file_in, secret_bytes, secret_out, text_in
from .errors import length, status

_RNG_MOST = 65536


def _aead(function: Callable[..., int], key: Bytes, data: Bytes, aad: Bytes, nonce: Optional[Bytes],
          algorithm: str) -> bytearray:
    options = _raw.ZUL_AEAD_RANDOM_NONCE if nonce is None else 0
    tail = (*bytes_in(data), *bytes_in(key), *bytes_in(b"" if nonce is None else nonce), *bytes_in(aad),
            text_in(algorithm), options)
    size = length(function(None, 0, *tail))
    return secret_out(size, lambda out, most: function(out, most, *tail))


def encrypt(key: Bytes, data: Bytes, *, aad: Bytes = b"", nonce: Optional[Bytes] = None,
            algorithm: str = "aes-256-gcm") -> bytes:
    """Encrypts and authenticates. Without a nonce a random one is put in front of the result."""
    return bytes(_aead(_raw.AEAD_Encrypt, key, data, aad, nonce, algorithm))


def decrypt(key: Bytes, data: Bytes, *, aad: Bytes = b"", nonce: Optional[Bytes] = None,
            algorithm: str = "aes-256-gcm") -> bytearray:
    """Undoes encrypt; DECRYPT_ERROR if anything was changed."""
    return _aead(_raw.AEAD_Decrypt, key, data, aad, nonce, algorithm)


def pbkdf2(password: Password, salt: Bytes, size: int = 32, *, iterations: int = 600_000,
           hash: str = "sha256") -> bytearray:
    tail = (*bytes_in(salt), count(iterations), text_in(hash))
    with secret_bytes(password) as (text, password_size):
        return secret_out(size, lambda out, most: _raw.KDF_Pbkdf2(out, most, text, password_size, *tail))


def hkdf(key: Bytes, size: int = 32, *, salt: Bytes = b"", info: Bytes = b"", hash: str = "sha256") -> bytearray:
    """A key from a key that cannot be guessed; passwords need one of the other three."""
    tail = (*bytes_in(key), *bytes_in(salt), *bytes_in(info), text_in(hash))
    return secret_out(size, lambda out, most: _raw.KDF_Hkdf(out, most, *tail))


def scrypt(password: Password, salt: Bytes, size: int = 32, *, n: int = 1 << 17, r: int = 8, p: int = 1) -> bytearray:
    tail = (*bytes_in(salt), count(n), count(r), count(p))
    with secret_bytes(password) as (text, password_size):
        return secret_out(size, lambda out, most: _raw.KDF_Scrypt(out, most, text, password_size, *tail))


def argon2id(password: Password, salt: Bytes, size: int = 32, *, memory_kib: int = 65536, passes: int = 3,
             lanes: int = 4) -> bytearray:
    tail = (*bytes_in(salt), count(memory_kib), count(passes), count(lanes))
    with secret_bytes(password) as (text, password_size):
        return secret_out(size, lambda out, most: _raw.KDF_Argon2id(out, most, text, password_size, *tail))


def random_bytes(size: int) -> bytearray:
    result = bytearray(count(size))
    view = memoryview(result)
    for start in range(0, size, _RNG_MOST):
        piece, most = bytes_in(view[start:start + _RNG_MOST])
        assert not isinstance(piece, bytes)
        status(_raw.RNG_Bytes(piece, most, None, 0))
    return result


def random_number(lower: int, upper: int) -> int:
    """A uniform number from lower to upper, both included."""
    if not -0x80000000 <= lower <= upper <= 0x7FFFFFFF or upper - lower >= 0xFFFFFFFF:
        raise ValueError("no such range of numbers")
    return _raw.RNG_Number(lower, upper)


def wipe(data: Union[bytearray, memoryview]) -> None:
    """Overwrites bytes with zeros."""
    if memoryview(data).readonly:
        raise TypeError("these bytes cannot be changed")
    piece, size = bytes_in(data)
    if not isinstance(piece, bytes):
        status(_raw.WIPE_Data(piece, size))


def wipe_file(file: Path) -> None:
    """Overwrites a file several times and deletes it."""
    status(_raw.WIPE_File(file_in(file), 0))
