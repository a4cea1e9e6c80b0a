"""bindings/go/raw/raw.go: every constant and function for Go, by cgo."""

TYPES = {
    "const char*": "*C.char",
    "char*": "*C.char",
    "const unsigned char*": "*C.uchar",
    "unsigned char*": "*C.uchar",
}

HEAD = """\
// Code generated from include/zulcore.h by scripts/make_bindings.py. DO NOT EDIT.

// Package raw has every constant and function of the library. A text ends with a zero byte; pointers may be nil where
// the library allows a null. Package zulcore makes texts and buffers, and turns what is refused into errors.
package raw

// #cgo CFLAGS: -I${SRCDIR}/.. -I${SRCDIR}/../../../include
// #cgo LDFLAGS: -L${SRCDIR}/.. -lzulcore
// #include "zulcore.h"
import "C"

import "unsafe"
"""


def argument(each):
    if each.kind == "int":
        return f"C.int({each.name})"
    return f"({TYPES[each.type]})({each.name})" if each.type in TYPES else each.name


def declaration(function):
    words = [f"{each.name} {'int32' if each.kind == 'int' else 'unsafe.Pointer'}" for each in function.parameters]
    arguments = ", ".join(argument(each) for each in function.parameters)
    head = f"func {function.name}({', '.join(words)}) int32 {{"
    return [f"// {function.summary}", head, f"\treturn int32(C.{function.name}({arguments}))", "}"]


def files_of(header):
    lines = [HEAD]
    lines += [f"const {each.name} = {each.value}" for each in header.errors]
    for heading, constants in header.options:
        lines += ["", "// " + heading]
        lines += [f"const {each.name} = {each.written}" for each in constants]
    lines += ["", "// ErrorName gives the name of an error code, as DECRYPT_ERROR.", "func ErrorName(code int) string {",
              "\tswitch code {"]
    for each in header.errors:
        lines += [f"\tcase {each.name}:", f'\t\treturn "{each.name}"']
    lines += ["\t}", '\treturn "ERROR"', "}"]
    for function in header.functions:
        lines += [""] + declaration(function)
    return {"bindings/go/raw/raw.go": "\n".join(lines) + "\n"}
