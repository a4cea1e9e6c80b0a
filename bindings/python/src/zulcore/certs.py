"""Certificates, requests, CRLs, their reports and paths; PKCS #12 files; OCSP.

What is read is the name of a file (str or path), PEM text (str), or the object itself, PEM or DER (bytes). What is made
is returned as bytes, and stays in a file where one is named."""
from __future__ import annotations

import dataclasses
import datetime
import json
import os
import tempfile
from typing import Any, Callable, Iterable, Mapping, Optional, Union

from . import _raw
from ._buffers import (Password, Path, Source, file_in, file_out, list_in, password_text, room, source_in, text_in,
                       text_out)
from .encoding import base64_decode
from .errors import ZulError, length, status
from .keys import Key, key_text

Value = Union[str, int, bool, datetime.date, bytes, bytearray]
# Keywords and values as CERT_ functions take them: text, or a mapping whose values are quoted where they need it.
Description = Union[str, Mapping[str, Union[Value, Iterable[Value]]]]
Sources = Union[Source, Iterable[Source]]


class PathError(ZulError):
    """A certificate that cannot be relied on; the report says what was checked."""

    def __init__(self, code: int) -> None:
        super().__init__(code)
        self.report: Optional[dict[str, Any]] = None


def _value(value: Value) -> str:
    if isinstance(value, datetime.datetime):
        if value.tzinfo is None:
            raise ValueError("a time without a time zone")
        value = value.astimezone(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
    elif isinstance(value, (bytes, bytearray)):
        value = source_in(value).decode()
    elif isinstance(value, bool) or not isinstance(value, (str, int, datetime.date)):
        raise TypeError(f"no value of a description: {type(value).__name__}")
    return "'" + str(value).replace("\\", "\\\\").replace("'", "\\'") + "'"


def describe(description: Description, separator: str = ";") -> str:
    """A mapping as the text of a description: True is a flag, False and None are left out, lists have several values."""
    if isinstance(description, str):
        return description
    parts = []
    for keyword, value in description.items():
        if not all(part.isalnum() for part in keyword.split(".")):
            raise ValueError(f"no such keyword: {keyword}")
        if value is True:
            parts.append(keyword)
        elif value is False or value is None:
            continue
        elif isinstance(value, (str, int, datetime.date, bytes, bytearray)):
            parts.append(f"{keyword}={_value(value)}")
        else:
            parts.append(f"{keyword}={','.join(_value(item) for item in value)}")
    return separator.join(parts)


def _text(description: Description) -> bytes:
    return text_in(describe(description))


def _options(der: bool) -> int:
    return _raw.ZUL_CERT_DER if der else 0


def self_sign(key: Key, description: Description, *, file: Optional[Path] = None, der: bool = False) -> bytes:
    """A certificate that its own key signs."""
    arguments = (key_text(key), _text(description), _options(der))
    return file_out(lambda name: _raw.CERT_SelfSign(name, *arguments), file)


def issue(issuer: Source, issuer_key: Key, subject: Union[Key, Source], description: Description = "", *,
          file: Optional[Path] = None, der: bool = False, beyond_issuer: bool = False) -> bytes:
    """A certificate that an authority signs, for a key or a request."""
    of: _raw.Input = key_text(subject) if isinstance(subject, Key) else source_in(subject, "DATA")
    arguments = (source_in(issuer), key_text(issuer_key), of, _text(description),
                 _options(der) | (_raw.ZUL_CERT_BEYOND_ISSUER if beyond_issuer else 0))
    return file_out(lambda name: _raw.CERT_Issue(name, *arguments), file)


def request(key: Key, description: Description, *, file: Optional[Path] = None, der: bool = False) -> bytes:
    """A certificate request (PKCS #10)."""
    arguments = (key_text(key), _text(description), _options(der))
    return file_out(lambda name: _raw.CERT_Request(name, *arguments), file)


def issue_crl(issuer: Source, issuer_key: Key, revoked: Iterable[Mapping[str, Value]] = (), *,
              earlier: Optional[Source] = None, description: Description = "", file: Optional[Path] = None,
              der: bool = False) -> bytes:
    """A CRL. Entries are mappings: {"serial": "0a3f", "reason": "superseded"}, or {"cert": its bytes}."""
    entries = text_in(";".join(describe(entry, ",") for entry in revoked))
    arguments = (source_in(issuer), key_text(issuer_key), None if earlier is None else source_in(earlier), entries,
                 _text(description), _options(der))
    return file_out(lambda name: _raw.CERT_IssueCRL(name, *arguments), file)


def query(certificate: Source, word: str) -> str:
    """Answers a query of CERT_Query: "subject", "notAfter", "sha256" ... Several values are joined by line feeds."""
    return text_out(_raw.CERT_Query, source_in(certificate), text_in(word), 0).decode()


def report(source: Source) -> dict[str, Any]:
    """All that certificates, requests, CRLs and OCSP responses hold: {"objects": [...]}."""
    return _json(text_out(_raw.CERT_Report, source_in(source), _raw.ZUL_CERT_JSON))


def report_text(source: Source) -> str:
    """The same as text for reading."""
    return text_out(_raw.CERT_Report, source_in(source), 0).decode()


def _json(text: bytes) -> dict[str, Any]:
    value: dict[str, Any] = json.loads(text)
    return value


def check_name(certificate: Source, host: str, *, subject_name: bool = False) -> None:
    """Raises NO_MATCH_ERROR if a certificate is not for a host, an address or a mailbox."""
    status(_raw.CERT_CheckName(source_in(certificate), text_in(host),
                               _raw.ZUL_CERT_SUBJECT_NAME if subject_name else 0))


def check_path(certificate: Source, trusted: Sources, *, others: Sources = (), evidence: Sources = (),
               conditions: Description = "", web: bool = False, subject_name: bool = False) -> dict[str, Any]:
    """The report of a path to a trusted certificate; PathError, which has the report too, if there is no valid one.
    conditions: as {"host": "www.example.com", "purpose": "server"}."""
    options = (_raw.ZUL_CERT_JSON | (_raw.ZUL_CERT_WEB if web else 0) |
               (_raw.ZUL_CERT_SUBJECT_NAME if subject_name else 0))
    arguments = (source_in(certificate), list_in(others)[0], list_in(trusted)[0], list_in(evidence)[0],
                 _text(conditions), options)
    size = 1 << 18
    while True:
        buffer = room(size + 1)
        result = _raw.CERT_CheckPath(buffer, size, *arguments)
        if result != _raw.ErrorCode.SHORT_BUF_ERROR or size >= 1 << 28:
            break
        size *= 4
    if result == 0:
        return _json(buffer.value)
    error = PathError(result)
    if buffer.value:
        error.report = _json(buffer.value)
    raise error


@dataclasses.dataclass(frozen=True)
class Unpacked:
    """What P12 files hold: certificates as PEM, that of the key first."""
    key: Optional[Key]
    certificates: bytes


def p12_pack(file: Path, certificates: Sources, key: Optional[Key], password: Password, *, name: Optional[str] = None,
             legacy: bool = False, pbmac1: bool = False, trusted: bool = False, pem: bool = False) -> None:
    """Writes a PKCS #12 file."""
    options = ((_raw.ZUL_P12_LEGACY if legacy else 0) | (_raw.ZUL_P12_PBMAC1 if pbmac1 else 0) |
               (_raw.ZUL_P12_TRUSTED if trusted else 0) | (_raw.ZUL_KEY_FORMAT_PEM if pem else 0))
    with password_text(password) as secret:
        status(_raw.P12_Pack(file_in(file), list_in(certificates)[0], None if key is None else key_text(key), secret,
                             None if name is None else text_in(name), options))


def p12_unpack(source: Source, password: Optional[Password], *, key: Optional[int] = 0, certificates: bool = True,
               need_mac: bool = False) -> Unpacked:
    """Reads a key (by its number; None: no key) and the certificates of a PKCS #12 file."""
    data = source_in(source, "PKCS12")
    if key is not None and not 0 <= key <= 255:
        raise ValueError("keys have numbers from 0 to 255")
    options = (key or 0) | (_raw.ZUL_P12_NEED_MAC if need_mac else 0)
    found = b""
    with tempfile.TemporaryDirectory(prefix="zulcore-") as folder, password_text(password) as secret:
        name = os.path.join(folder, "certificates.pem")
        out = file_in(name) if certificates else None
        if key is None:
            status(_raw.P12_Unpack(out, None, 0, data, secret, options))
            made = None
        else:
            made = Key._made(lambda text, size: -_raw.P12_Unpack(out, text, size, data, secret, options))
        if certificates:
            with open(name, "rb") as stream:
                found = stream.read()
    return Unpacked(made, found)


def p12_list(source: Source, password: Optional[Password] = None, *, need_mac: bool = False) -> dict[str, Any]:
    """What a PKCS #12 file holds; without a password what is visible, and the MAC is not verified."""
    with password_text(password) as secret:
        return _json(text_out(_raw.P12_List, source_in(source, "PKCS12"), secret, _raw.ZUL_P12_JSON |
                              (_raw.ZUL_P12_NEED_MAC if need_mac else 0)))


def ocsp_request(issuer: Source, certificate: Source) -> bytes:
    """An OCSP request, DER, to be sent as application/ocsp-request."""
    text = text_out(_raw.OCSP_MakeRequest, source_in(issuer), source_in(certificate), None, _raw.ZUL_HASH_SHA1)
    return bytes(base64_decode(text.decode()))


def ocsp_response(response: Source, issuer: Optional[Source] = None) -> str:
    """The report of an OCSP response, whose signature the issuer's key has to verify if it is given."""
    return text_out(_raw.OCSP_ReadResponse, source_in(response), None if issuer is None else source_in(issuer), None,
                    0).decode()
