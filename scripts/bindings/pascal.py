"""bindings/pascal/zulcore_raw.pas: every constant and function for Free Pascal and Delphi."""

TYPES = {
    "int": "Integer",
    "text": "PAnsiChar",
    "textOut": "PAnsiChar",
    "bytes": "Pointer",
    "bytesOut": "Pointer",
    "memory": "Pointer",
}

HEAD = """\
// Made from include/zulcore.h by scripts/make_bindings.py.
unit zulcore_raw;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

const
  ZUL_MODULE = {$IFDEF MSWINDOWS}'zulcore.dll'{$ELSE}{$IFDEF FPC}'zulcore'{$ELSE}'libzulcore.so'{$ENDIF}{$ENDIF};
"""


def number(constant):
    return "$" + constant.written[2:] if constant.written.startswith("0x") else constant.written


def declaration(function):
    parameters = "; ".join(f"{each.name}: {TYPES[each.kind]}" for each in function.parameters)
    head = f"function {function.name}({parameters}): Integer;" if parameters else f"function {function.name}: Integer;"
    lines, line = [], ""
    for word in head.split(" "):
        if len(line) + len(word) >= 118:
            lines.append(line)
            line = "   "
        line += (" " if line else "") + word
    return "\n".join(lines + [line, "  cdecl; external ZUL_MODULE;"])


def files_of(header):
    lines = [HEAD, "  // Error codes"]
    lines += [f"  {each.name} = {each.value};" for each in header.errors]
    for heading, constants in header.options:
        lines += ["", "  // " + heading]
        lines += [f"  {each.name} = {number(each)};" for each in constants]
    lines += ["", "type", "  TZulErrorName = record", "    Code: Integer;", "    Name: string;", "  end;", "", "const",
              f"  ZUL_ERROR_NAMES: array[0..{len(header.errors) - 1}] of TZulErrorName = ("]
    lines.append(",\n".join(f"    (Code: {each.value}; Name: '{each.name}')" for each in header.errors) + ");")
    for function in header.functions:
        lines += ["", f"/// {function.summary}", declaration(function)]
    lines += ["", "implementation", "", "end.", ""]
    return {"bindings/pascal/zulcore_raw.pas": "\n".join(lines)}
