#!/usr/bin/env python3
"""certificate.py [MODULE]: makes an RSA key pair and a self-signed certificate (certificate.pem), prints what the
certificate says and verifies it, calling the library through ctypes."""
import ctypes
import os
import pathlib
import sys

built = pathlib.Path(__file__).resolve().parent.parent / "build"
default = built / ("windows/zulcore.dll" if os.name == "nt" else "native/libzulcore.so")
zul = ctypes.CDLL(sys.argv[1] if len(sys.argv) > 1 else str(default))

PEM, PBES2_AES256_SHA256 = 0x10000, 0x1043
SHA256, KEY_CERT_SIGN, CRL_SIGN = 3, 0x20, 0x40
PASSWORD = b"correct horse"
FILE, KEY_FILE = b"certificate.pem", b"certificate_private.pem"


def call(function, *arguments):
    result = getattr(zul, function)(*arguments)
    gives_length = function == "X509_QueryCert"
    if result < 0 or result != 0 and not gives_length:
        text = ctypes.create_string_buffer(512)
        zul.ZUL_LastError(text, 511)
        sys.exit(f"{function}: error {abs(result)} {text.value.decode()}")
    return result


def query(name):
    room = call("X509_QueryCert", None, 0, FILE, name, 0)
    answer = ctypes.create_string_buffer(room + 1)
    call("X509_QueryCert", answer, room, FILE, name, 0)
    return answer.value.decode("latin-1")


call("RSA_MakeKeys", b"certificate_public.pem", KEY_FILE, 2048, 4, 40, 100000, PASSWORD, None, 0,
     PEM | PBES2_AES256_SHA256)
# valid for two years from now; in an authority's real life the serial number is random
call("X509_MakeCertSelf", FILE, KEY_FILE, 1, 2, b"C=AU;O=Example;CN=Example Root", b"serialNumber=0a3f",
     KEY_CERT_SIGN | CRL_SIGN, PASSWORD, SHA256 | PEM)

for name in ("subjectName", "issuerName", "notBefore", "notAfter", "serialNumber", "keyUsageString",
             "signatureAlgorithm"):
    print(f"{name}: {query(name.encode())}")
assert call("X509_QueryCert", None, 0, FILE, b"isCA", 0) == 1  # a number is the result itself

call("X509_VerifyCert", FILE, FILE)  # the signature, nothing else
call("X509_ValidatePath", FILE, None, 0)  # names and dates too
print("good certificate")
