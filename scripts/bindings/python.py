"""The raw layer of Python: constants, error codes and a function for each export, bound with ctypes."""
import textwrap

TYPES = {  # kind: (the class for ctypes, the type hint)
    "int": ("ctypes.c_int", "int"),
    "text": ("ctypes.c_char_p", "Input"),
    "textOut": ("ctypes.c_char_p", "Output"),
    "bytes": ("ctypes.c_void_p", "Input"),
    "bytesOut": ("ctypes.c_void_p", "Output"),
    "memory": ("ctypes.c_void_p", "Output"),
}

HEAD = '''# Made from include/zulcore.h by scripts/make_bindings.py.
"""Every constant and function of the library as it is: results are ints, and nothing is checked. Buffers for output, and
for input that changes or is wiped, are arrays of ctypes.c_char; constant input may be bytes."""
from __future__ import annotations

import ctypes
import enum
from typing import Any, Callable, Optional, Union

from ._load import load_library

Output = Optional["ctypes.Array[ctypes.c_char]"]
Input = Optional[Union[bytes, "ctypes.Array[ctypes.c_char]"]]

library = load_library()


def _bind(name: str, *types: Any) -> Callable[..., int]:
    function = getattr(library, name)
    function.argtypes = types
    function.restype = ctypes.c_int
    bound: Callable[..., int] = function
    return bound

'''


def docstring(summary):
    text = summary.replace("\\", "\\\\")
    return "\n".join(textwrap.wrap(f'"""{text}"""', 110, initial_indent="    ", subsequent_indent="    "))


def wrapped(head, items, tail):
    """A call or a signature whose items follow each other in lines of 110 columns at most."""
    text = head + ", ".join(item.replace(" ", "~") for item in items) + tail.replace(" ", "~")
    return textwrap.fill(text, 110, subsequent_indent=" " * 8, break_long_words=False,
                         break_on_hyphens=False).replace("~", " ")


def function_text(function):
    names = [parameter.name for parameter in function.parameters]
    hints = [f"{parameter.name}: {TYPES[parameter.kind][1]}" for parameter in function.parameters]
    types = [TYPES[parameter.kind][0] for parameter in function.parameters]
    return "\n".join([
        wrapped(f"_{function.name} = _bind(", [f'"{function.name}"', *types], ")"),
        "", "",
        wrapped(f"def {function.name}(", hints, ") -> int:"),
        docstring(function.summary),
        wrapped(f"    return _{function.name}(", names, ")"),
        "", "",
    ])


def files_of(header):
    lines = ["", "class ErrorCode(enum.IntEnum):", '    """The codes of failures."""']
    lines += [f"    {error.name} = {error.value}" for error in header.errors]
    lines += ["", ""]
    for heading, constants in header.options:
        lines += [f"# {line}" for line in textwrap.wrap(heading, 110)]
        lines += [f"{constant.name} = {constant.written}" for constant in constants]
        lines += [""]
    functions = "\n".join(function_text(function) for function in header.functions)
    return {"bindings/python/src/zulcore/_raw.py": HEAD + "\n".join(lines) + "\n\n" + functions.rstrip() + "\n"}
