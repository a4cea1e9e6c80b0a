"""Hex and base64."""
from __future__ import annotations

from typing import Callable

from . import _raw
from ._buffers import Bytes, bytes_in, secret_out, text_in, text_out
from .errors import length


def hex_encode(data: Bytes) -> str:
    """Hex in lower case."""
    return text_out(_raw.CNV_HexStrFromBytes, *bytes_in(data)).decode().lower()


def hex_decode(text: str) -> bytearray:
    """The bytes of hex digits; other characters are skipped."""
    return _decoded(_raw.CNV_BytesFromHexStr, text)


def base64_encode(data: Bytes) -> str:
    """Base64 in one line."""
    return text_out(_raw.CNV_B64StrFromBytes, *bytes_in(data)).decode()


def base64_decode(text: str) -> bytearray:
    """The bytes of base64 up to the first "="; other characters are skipped."""
    return _decoded(_raw.CNV_BytesFromB64Str, text)


def _decoded(function: Callable[..., int], text: str) -> bytearray:
    encoded = text_in(text)
    return secret_out(length(function(None, 0, encoded)), lambda out, size: function(out, size, encoded))
