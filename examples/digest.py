#!/usr/bin/env python3
"""digest.py FILE [MODULE]: prints the SHA-256 of a file, calling the library through ctypes."""
import ctypes
import os
import pathlib
import sys

built = pathlib.Path(__file__).resolve().parent.parent / "build"
default = built / ("windows/zulcore.dll" if os.name == "nt" else "native/libzulcore.so")
zul = ctypes.CDLL(sys.argv[2] if len(sys.argv) > 2 else str(default))

ZUL_HASH_SHA256 = 3
output = ctypes.create_string_buffer(65)
length = zul.HASH_HexFromFile(output, 64, os.fsencode(sys.argv[1]), ZUL_HASH_SHA256)
if length < 0:
    zul.ZUL_ErrorLookup(output, 65, length)
    sys.exit(f"error {-length}: {output.value.decode()}")
print(output.value.decode())
