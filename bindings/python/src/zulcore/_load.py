"""Finds the module: beside this package, by ZULCORE_LIBRARY (a full path), or by the system's search."""
from __future__ import annotations

import ctypes
import os
import pathlib
import sys

NAME = "zulcore.dll" if sys.platform == "win32" else "libzulcore.so"
# The name under which a system has the library without its files for developers.
SEARCHED = "zulcore.dll" if sys.platform == "win32" else "libzulcore.so.3"


def load_library() -> ctypes.CDLL:
    beside = pathlib.Path(__file__).resolve().parent / NAME
    if beside.exists():
        return ctypes.CDLL(str(beside))
    named = os.environ.get("ZULCORE_LIBRARY")
    if named:
        if not os.path.isabs(named):
            raise ImportError(f"ZULCORE_LIBRARY has to be a full path: {named}")
        return ctypes.CDLL(named)
    try:
        return ctypes.CDLL(SEARCHED)
    except OSError as error:
        raise ImportError(f"{NAME} is not beside the package, ZULCORE_LIBRARY is not set, and the system's search "
                          f"gives: {error}") from error
