"""zulcore: digests, encryption, keys, signatures, certificates, messages and sealed files."""
from . import certs, messages
from ._buffers import text_out as _text_out
from ._raw import ErrorCode, ZUL_ModuleName, ZUL_Version
from .encoding import base64_decode, base64_encode, hex_decode, hex_encode
from .errors import ZulError
from .errors import decoded as _decoded
from .hashes import Hash, Hmac, hash_bytes, hash_file, hash_file_hex, hash_hex, hmac
from .keys import Key
from .seal import Identity, make_identity, open_file, seal_file
from .secret import (argon2id, decrypt, encrypt, hkdf, pbkdf2, random_bytes, random_number, scrypt, wipe, wipe_file)

__version__ = "3.6.0"
__all__ = [
    "ErrorCode", "Hash", "Hmac", "Identity", "Key", "ZulError", "argon2id", "base64_decode", "base64_encode", "certs",
    "decrypt", "encrypt", "hash_bytes", "hash_file", "hash_file_hex", "hash_hex", "hex_decode", "hex_encode", "hkdf",
    "hmac", "make_identity", "messages", "module_path", "module_version", "open_file", "pbkdf2", "random_bytes",
    "random_number", "scrypt", "seal_file", "wipe", "wipe_file",
]


def module_version() -> int:
    """The version of the module: major * 100 + minor * 10 + release."""
    return ZUL_Version(None, None)


def module_path() -> str:
    """The full path of the module."""
    return _decoded(_text_out(ZUL_ModuleName, 0))
