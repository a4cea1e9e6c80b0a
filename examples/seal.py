#!/usr/bin/env python3
"""seal.py FILE [MODULE]: makes an identity (identity.txt), encrypts the file for its recipient (sealed.age) and under a
password (password.age), and opens both again, calling the library through ctypes. `age` reads and writes such files
too."""
import ctypes
import os
import pathlib
import sys

if len(sys.argv) < 2:
    sys.exit(__doc__)
built = pathlib.Path(__file__).resolve().parent.parent / "build"
default = built / ("windows/zulcore.dll" if os.name == "nt" else "native/libzulcore.so")
zul = ctypes.CDLL(sys.argv[2] if len(sys.argv) > 2 else str(default))

ARMOUR = 1
PASSWORD = b"correct horse"


def call(function, *arguments):
    result = getattr(zul, function)(*arguments)
    if result < 0 or function in ("SEAL_File", "SEAL_OpenFile") and result != 0:
        text = ctypes.create_string_buffer(512)
        zul.ZUL_LastError(text, 511)
        sys.exit(f"{function}: error {abs(result)} {text.value.decode()}")
    return result


identity, recipient = ctypes.create_string_buffer(75), ctypes.create_string_buffer(63)
call("SEAL_MakeIdentity", identity, 74, 0)
call("SEAL_Recipient", recipient, 62, identity)
with open("identity.txt", "wb", opener=lambda path, flags: os.open(path, flags, 0o600)) as keys:
    keys.write(b"# recipient: " + recipient.value + b"\n" + identity.value + b"\n")
call("WIPE_Data", identity, 75)

file = os.fsencode(sys.argv[1])
call("SEAL_File", b"sealed.age", file, recipient, None, 0)
call("SEAL_File", b"password.age", file, None, PASSWORD, ARMOUR)
call("SEAL_OpenFile", b"opened_1", b"sealed.age", b"identity.txt", None, 0)
call("SEAL_OpenFile", b"opened_2", b"password.age", None, PASSWORD, 0)
content = pathlib.Path(sys.argv[1]).read_bytes()
good = all(pathlib.Path(name).read_bytes() == content for name in ("opened_1", "opened_2"))
print(f"sealed for {recipient.value.decode()} and opened" if good else "not the same file")
sys.exit(not good)
