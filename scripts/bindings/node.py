"""The raw layer of Node.js: constants, error codes and the exports bound with koffi, and their types."""
import textwrap

TYPES = {"int": ("int", "number"), "text": ("void *", "Input"), "textOut": ("void *", "Output"),
         "bytes": ("void *", "Input"), "bytesOut": ("void *", "Output"), "memory": ("void *", "Output")}

HEAD = """// Made from include/zulcore.h by scripts/make_bindings.py.
// Every constant and function of the library as it is. Buffers are Uint8Arrays or null, texts end with a NUL.
"""


def doc(summary):
    if len(summary) + 7 <= 118:
        return [f"/** {summary} */"]
    return ["/**", *(f" * {line}" for line in textwrap.wrap(summary, 115)), " */"]


def heading_lines(heading):
    return [f"// {line}" for line in textwrap.wrap(heading, 115)]


def script(header):
    lines = [HEAD + "'use strict';", "", "const library = require('./load.js').loadLibrary();", "",
             "const bind = (name, ...types) => library.func(name, 'int', types);", "",
             "const int = 'int';", "const pointer = 'void *';", "",
             "/** The codes of failures by their names. */", "exports.ErrorCode = Object.freeze({"]
    lines += [f"  {error.name}: {error.value}," for error in header.errors] + ["});", ""]
    for heading, constants in header.options:
        lines += heading_lines(heading)
        lines += [f"exports.{constant.name} = {constant.written};" for constant in constants] + [""]
    for function in header.functions:
        words = [{"int": "int", "void *": "pointer"}[TYPES[item.kind][0]] for item in function.parameters]
        call = f"exports.{function.name} = bind(" + ", ".join([f"'{function.name}'", *words]) + ");"
        lines += doc(function.summary)
        lines += textwrap.wrap(call, 118, subsequent_indent="  ", break_on_hyphens=False)
    return "\n".join(lines) + "\n"


def declarations(header):
    lines = [HEAD.rstrip(), "", "export type Input = Uint8Array | null;", "export type Output = Uint8Array | null;", "",
             "/** The codes of failures by their names. */", "export const ErrorCode: {"]
    lines += [f"  readonly {error.name}: {error.value};" for error in header.errors] + ["};", ""]
    for heading, constants in header.options:
        lines += heading_lines(heading)
        lines += [f"export const {constant.name}: {constant.written};" for constant in constants] + [""]
    for function in header.functions:
        items = [f"{item.name}:~{TYPES[item.kind][1]}" for item in function.parameters]
        call = f"export function {function.name}(" + ", ".join(items) + "):~number;"
        lines += doc(function.summary)
        lines += [line.replace("~", " ") for line in textwrap.wrap(call, 118, subsequent_indent="  ",
                                                                   break_on_hyphens=False)]
    return "\n".join(lines) + "\n"


def files_of(header):
    return {"bindings/node/lib/raw.js": script(header), "bindings/node/lib/raw.d.ts": declarations(header)}
