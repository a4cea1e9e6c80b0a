"""Signed and encrypted messages (CMS) with RSA keys.

A message is the name of a file (str or path), or its bytes, DER, PEM or base64. Content is bytes, or a path of a file;
the library takes content in memory as text, so that what holds zero bytes has to come from a file."""
from __future__ import annotations

import contextlib
import os
from typing import Callable, Iterable, Iterator, Optional, Union

from . import _raw
from ._buffers import (Chars, Path, Source, file_in, file_out, list_in, secret_out, secret_text, source_in, text_in,
                       text_out)
from .errors import ZulError, length, status
from .hashes import hash_bytes, hash_file
from .keys import Key, key_text

Content = Union[bytes, bytearray, "os.PathLike[str]"]
_HASHES = {"sha1": _raw.ZUL_HASH_SHA1, "sha224": _raw.ZUL_HASH_SHA224, "sha256": _raw.ZUL_HASH_SHA256,
           "sha384": _raw.ZUL_HASH_SHA384, "sha512": _raw.ZUL_HASH_SHA512, "md5": _raw.ZUL_HASH_MD5}
_CIPHERS = {"aes-128": _raw.ZUL_CMS_CIPHER_AES128, "aes-192": _raw.ZUL_CMS_CIPHER_AES192,
            "aes-256": _raw.ZUL_CMS_CIPHER_AES256, "3des": _raw.ZUL_CMS_CIPHER_TDEA}


def _option(table: dict[str, int], name: str) -> int:
    if name not in table:
        raise ValueError(f"{name} is none of {', '.join(table)}")
    return table[name]


@contextlib.contextmanager
def _content(content: Content) -> Iterator[tuple[bool, Union[bytes, Chars]]]:
    """Whether the content is a file, and the argument of the library."""
    if not isinstance(content, (bytes, bytearray)):
        yield True, file_in(_path(content))
        return
    if b"\0" in content:
        raise ValueError("content with zero bytes has to come from a file")
    with secret_text([content]) as text:
        yield False, text


def _path(content: Path) -> Path:
    if isinstance(content, str):
        raise TypeError("content is bytes or a path, not str")
    return content


def _certificates(certificates: Union[Source, Iterable[Source]]) -> tuple[bytes, int]:
    joined, number = list_in(certificates)
    if number > 10:
        raise ValueError("a message takes ten certificates")
    return joined, number


def sign(content: Content, certificates: Union[Source, Iterable[Source]], key: Key, *, hash: str = "sha256",
         detached: bool = False, attributes: bool = False, signing_time: bool = False, der: bool = False,
         file: Optional[Path] = None) -> bytes:
    """A signed message. The first certificate is the signer's. It is base64 unless DER is asked for."""
    options = (_option(_HASHES, hash) | (0 if der else _raw.ZUL_CMS_FORMAT_BASE64) |
               (_raw.ZUL_CMS_INCLUDE_ATTRS if attributes or signing_time else 0) |
               (_raw.ZUL_CMS_ADD_SIGNTIME if signing_time else 0))
    tail = (_certificates(certificates)[0], key_text(key), options)
    if detached:
        digest = text_in(_digest(content, hash))
        return file_out(lambda name: _raw.CMS_MakeDetachedSig(name, digest, *tail), file)
    with _content(content) as (isFile, argument):
        function = _raw.CMS_MakeSigData if isFile else _raw.CMS_MakeSigDataFromString
        return file_out(lambda name: function(name, argument, *tail), file)


def _digest(content: Content, hash: str) -> str:
    if isinstance(content, (bytes, bytearray)):
        return hash_bytes(content, hash).hex()
    return hash_file(_path(content), hash).hex()


def verify(message: Source, certificate: Optional[Source] = None, *, content: Optional[Content] = None) -> None:
    """Raises SIGNATURE_ERROR if the signature does not verify. Without the signer's certificate one of the message is
    used, which anybody can have put there: check_path tells whether it can be relied on. content: of a detached one."""
    argument = source_in(message)
    digest = None
    if content is not None:
        digest = text_in(_digest(content, str(query(message, "digestAlgorithm")).lower().replace("-", "")))
    status(_raw.CMS_VerifySigData(argument, None if certificate is None else source_in(certificate), digest, 0))


def read(message: Source) -> bytes:
    """The content of a signed message, whose signature is not verified here."""
    return text_out(_raw.CMS_ReadSigDataToString, source_in(message), 0)


def query(message: Source, word: str) -> Union[str, int]:
    """Answers a query of CMS_QuerySigData, as "CountOfSigners" or "SigningTime"."""
    return _query(_raw.CMS_QuerySigData, message, word)


def query_encrypted(message: Source, word: str) -> Union[str, int]:
    """Answers a query of CMS_QueryEnvData, as "CountOfRecipients"."""
    return _query(_raw.CMS_QueryEnvData, message, word)


def _query(function: Callable[..., int], message: Source, word: str) -> Union[str, int]:
    name, argument = text_in(word), source_in(message)
    if length(function(None, 0, argument, name, _raw.ZUL_QUERY_GETTYPE)) == 1:
        return length(function(None, 0, argument, name, 0))
    return text_out(function, argument, name, 0).decode("latin-1")


def encrypt(content: Content, certificates: Union[Source, Iterable[Source]], *, cipher: str = "aes-256",
            der: bool = False, file: Optional[Path] = None) -> bytes:
    """A message for the holders of certificates with RSA keys. It is base64 unless DER is asked for."""
    joined, number = _certificates(certificates)
    options = _option(_CIPHERS, cipher) | (0 if der else _raw.ZUL_CMS_FORMAT_BASE64)
    with _content(content) as (isFile, argument):
        function = _raw.CMS_MakeEnvData if isFile else _raw.CMS_MakeEnvDataFromString

        def write(name: bytes) -> int:
            if length(function(name, argument, joined, None, 0, options)) == number:
                return 0
            error = ZulError(_raw.ErrorCode.BAD_KEY_ERROR)
            if file is not None:
                os.unlink(file)
            raise error

        return file_out(write, file)


def decrypt(message: Source, key: Key, certificate: Optional[Source] = None) -> bytearray:
    """The content of an encrypted message. It is not authenticated: verify what is inside."""
    tail = (source_in(message), None if certificate is None else source_in(certificate), key_text(key), 0)
    size = length(_raw.CMS_ReadEnvDataToString(None, 0, *tail))
    data = secret_out(size + 1, lambda out, _: _raw.CMS_ReadEnvDataToString(out, size, *tail))
    return data
