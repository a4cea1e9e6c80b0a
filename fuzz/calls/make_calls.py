#!/usr/bin/env python3
"""make_calls.py HEADER_MODEL_FOLDER OUT: writes a table of all exports for call_table.cpp. Each entry draws the arguments
that the declaration asks for and makes the call; what lengths mean to the buffers before them is known by the
order of the parameters."""
import pathlib
import sys

sys.path.insert(0, sys.argv[1])
import header_model  # noqa: E402

# Functions whose buffers have no length of their own stand in call_table.cpp.
BY_HAND = {"CIPHER_Bytes", "TDEA_BytesMode", "TDEA_HexMode", "TDEA_B64Mode", "CNV_HexFilter", "CNV_B64Filter"}


def entry(function):
    lines, passed = [], []
    parameters = list(function.parameters)
    while parameters:
        parameter = parameters.pop(0)
        name, kind = parameter.name, parameter.kind
        counted = kind not in ("int", "text") and parameters and parameters[0].name.startswith("n")
        if name == "lpContext":
            draw = "context_room" if counted else "context"
        elif kind == "int":
            draw = "number"
        elif kind == "text":
            draw = "text"
        else:
            draw = {"textOut": "text_room", "bytesOut": "bytes_room", "memory": "bytes_room",
                    "bytes": "input"}[kind] if counted else "fixed"
        lines.append(f'const auto {name} = a.{draw}("{name}"' + (f', "{parameters[0].name}"' if counted else "") + ");")
        if counted:
            parameters.pop(0)
            passed += [f"{name}.as<{parameter.type}>()", f"{name}.claimed"]
        elif kind in ("int", "text"):
            passed.append(name)
        else:
            passed.append(f"static_cast<{parameter.type}>({name})")
    body = "\n         ".join(lines)
    return f'    {{"{function.name}",\n     [](Arguments& {"a" if lines else ""}) {{\n         {body}\n' \
           f'         return {function.name}({", ".join(passed)});\n     }}}},\n'


functions = header_model.read_header().functions
pathlib.Path(sys.argv[2]).write_text("".join(entry(f) for f in functions if f.name not in BY_HAND))
