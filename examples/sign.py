#!/usr/bin/env python3
"""sign.py FILE [MODULE]: makes an RSA key pair (sign_public.pem, sign_private.pem), signs the file and checks the
signature, calling the library through ctypes."""
import ctypes
import os
import pathlib
import sys

if len(sys.argv) < 2:
    sys.exit(__doc__)
built = pathlib.Path(__file__).resolve().parent.parent / "build"
default = built / ("windows/zulcore.dll" if os.name == "nt" else "native/libzulcore.so")
zul = ctypes.CDLL(sys.argv[2] if len(sys.argv) > 2 else str(default))

SHA256, PKCS1_SIGNATURE, DIGEST_ONLY, GET_ALGORITHM = 3, 0x20, 0x1000, 0x8000
PEM_ALT, PBES2_AES256_SHA256 = 0x20000, 0x1043
PASSWORD = b"correct horse"


def call(function, *arguments):
    result = getattr(zul, function)(*arguments)
    if result < 0 or function in ("RSA_MakeKeys", "RSA_RawPrivate", "RSA_RawPublic") and result != 0:
        text = ctypes.create_string_buffer(512)
        zul.ZUL_LastError(text, 511)
        sys.exit(f"{function}: error {abs(result)} {text.value.decode()}")
    return result


def key_string(function, *arguments):
    room = call(function, None, 0, *arguments)
    key = ctypes.create_string_buffer(room + 1)
    call(function, key, room, *arguments)
    return key


call("RSA_MakeKeys", b"sign_public.pem", b"sign_private.pem", 2048, 4, 40, 100000, PASSWORD, None, 0,
     PEM_ALT | PBES2_AES256_SHA256)
digest, signature, found = (ctypes.create_string_buffer(size) for size in (32, 256, 32))
call("HASH_File", digest, 32, os.fsencode(sys.argv[1]), SHA256)

private_key = key_string("RSA_ReadEncPrivateKey", b"sign_private.pem", PASSWORD, 0)
call("RSA_EncodeMsg", signature, 256, digest, 32, PKCS1_SIGNATURE | SHA256 | DIGEST_ONLY)
call("RSA_RawPrivate", signature, 256, private_key, 0)

public_key = key_string("RSA_ReadPublicKey", b"sign_public.pem")
call("RSA_RawPublic", signature, 256, public_key, 0)
good = call("RSA_DecodeMsg", None, 0, signature, 256, PKCS1_SIGNATURE | GET_ALGORITHM) == SHA256
good = good and call("RSA_DecodeMsg", found, 32, signature, 256, PKCS1_SIGNATURE) == 32 and found.raw == digest.raw
print("good signature" if good else "bad signature")
sys.exit(not good)
