#!/usr/bin/env python3
"""message.py [MODULE]: signs a text, encrypts the signed message (message.p7m), then decrypts it and checks who signed
it, with an RSA key pair and certificate made for that, calling the library through ctypes."""
import ctypes
import os
import pathlib
import sys

built = pathlib.Path(__file__).resolve().parent.parent / "build"
default = built / ("windows/zulcore.dll" if os.name == "nt" else "native/libzulcore.so")
zul = ctypes.CDLL(sys.argv[1] if len(sys.argv) > 1 else str(default))

PEM, PBES2_AES256_SHA256 = 0x10000, 0x1043
SHA256, NO_BASIC, DIGITAL_SIGNATURE, KEY_ENCIPHERMENT = 3, 0x2000000, 0x1, 0x4
SIGNED_ATTRIBUTES, SIGNING_TIME, AES256 = 0x800, 0x1000, 0x40
PASSWORD, TEXT = b"correct horse", b"Meet me at noon."
CERT, KEY_FILE = b"message_cert.pem", b"message_private.pem"
INNER, OUTER, OPENED = b"message_signed.p7m", b"message.p7m", b"message_opened.p7m"


def fail(function, code):
    text = ctypes.create_string_buffer(512)
    zul.ZUL_LastError(text, 511)
    sys.exit(f"{function}: error {abs(code)} {text.value.decode()}")


def done(function, *arguments):  # a status
    code = getattr(zul, function)(*arguments)
    if code != 0:
        fail(function, code)


def text_of(function, *arguments, room=None):  # whose first two arguments are a buffer and its room
    if room is None:
        room = getattr(zul, function)(None, 0, *arguments)
        if room < 0:
            fail(function, room)
    buffer = ctypes.create_string_buffer(room + 1)
    length = getattr(zul, function)(buffer, room, *arguments)
    if length < 0:
        fail(function, length)
    return buffer


# In real life an authority makes the certificate, for each of the two who exchange messages.
done("RSA_MakeKeys", b"message_public.pem", KEY_FILE, 2048, 4, 40, 100000, PASSWORD, None, 0, PEM | PBES2_AES256_SHA256)
done("X509_MakeCertSelf", CERT, KEY_FILE, 1, 2, b"C=AU;O=Example;CN=Alice", b"serialNumber=0a3f",
     DIGITAL_SIGNATURE | KEY_ENCIPHERMENT, PASSWORD, SHA256 | PEM | NO_BASIC)
key = text_of("RSA_ReadEncPrivateKey", KEY_FILE, PASSWORD, 0, room=90000)

# The sender signs with the own key, then encrypts for the recipient's certificate: an encrypted message alone does
# not show who made it.
done("CMS_MakeSigDataFromString", INNER, TEXT, CERT, key, SHA256 | SIGNED_ATTRIBUTES | SIGNING_TIME)
served = zul.CMS_MakeEnvData(OUTER, INNER, CERT, None, 0, AES256)
if served != 1:
    fail("CMS_MakeEnvData", served)

# The recipient decrypts with the own key and names the certificate that has to be the signer's.
done("CMS_ReadEnvData", OPENED, OUTER, CERT, key, 0)
zul.WIPE_Data(key, len(key))
done("CMS_VerifySigData", OPENED, CERT, None, 0)
found = text_of("CMS_ReadSigDataToString", OPENED, 0).value
signer = text_of("X509_QueryCert", CERT, b"subjectName", 0).value
if found != TEXT:
    sys.exit("another text")
print(f"good message of {signer.decode('latin-1')}: {found.decode()}")
