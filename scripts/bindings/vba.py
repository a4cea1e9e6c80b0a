"""bindings/vba/zulcore.bas: one module of every constant and function for VBA, and of the helpers in zulcore.hand.bas.
Its lines end with CR LF, without which the editor of Office does not import it."""
import pathlib

HAND = pathlib.Path(__file__).resolve().parents[2] / "bindings" / "vba" / "zulcore.hand.bas"
LONGEST_LINE = 100

HEAD = """\
Attribute VB_Name = "zulcore"
' Made from include/zulcore.h and zulcore.hand.bas by scripts/make_bindings.py.
'
' For 64-bit Office 2010 or later. VB6 and 32-bit Office cannot load a 64-bit library, so there are no declarations
' without PtrSafe.
'
' Declarations take a String where the library takes or gives text: VBA converts it to the code page of Windows and back,
' which is right for names of files and wrong for text in UTF-8 beyond ASCII. A room for text has to be made before the
' call, String(length + 1, vbNullChar). vbNullString is a null. The declarations whose names end with Ptr are of the
' same functions, but take addresses: VarPtr(bytes(0)) of a text that ends with a zero byte, or 0 for a null.
Option Explicit
"""


def number(constant):
    return f"&H{constant.value:X}&" if constant.written.startswith("0x") else str(constant.value)


def constant(each):
    return f"Public Const {each.name} As Long = {number(each)}"


def parameter(each, addresses):
    if each.kind == "int":
        return f"ByVal {each.name} As Long"
    if addresses:
        return f"ByVal {each.name} As LongPtr"
    if each.kind in ("text", "textOut"):
        return f"ByVal {each.name} As String"
    return f"ByRef {each.name} As {'Any' if each.type.endswith('void*') else 'Byte'}"


def declaration(function, addresses):
    name = function.name + ("Ptr" if addresses else "")
    alias = f' Alias "{function.name}"' if addresses else ""
    words = [parameter(each, addresses) for each in function.parameters]
    words = [word + ("," if number + 1 < len(words) else ") As Long") for number, word in enumerate(words)] or [") As Long"]
    lines, line = [], f'Public Declare PtrSafe Function {name} Lib "zulcore.dll"{alias} ('
    for position, word in enumerate(words):
        if len(line) + len(word) > LONGEST_LINE:
            lines.append(line.rstrip() + " _")
            line = "    "
        line += word + (" " if position + 1 < len(words) else "")
    return lines + [line.rstrip()]


def takes_addresses(function):
    return any(each.kind != "int" for each in function.parameters)


def error_names(header):
    lines = ["' The name of an error code, DECRYPT_ERROR.", "Public Function zulErrorName(ByVal code As Long) As String",
             "    Select Case code"]
    for each in header.errors:
        lines.append(f'        Case {each.value}: zulErrorName = "{each.name}"')
    return lines + ['        Case Else: zulErrorName = "ERROR"', "    End Select", "End Function"]


def files_of(header):
    lines = [HEAD, "' Error codes"]
    lines += [constant(each) for each in header.errors]
    for heading, constants in header.options:
        lines += ["", "' " + heading]
        lines += [constant(each) for each in constants]
    for function in header.functions:
        lines += ["", "' " + function.summary] + declaration(function, False)
        if takes_addresses(function):
            lines += declaration(function, True)
    lines += ["", HAND.read_text().rstrip(), ""] + error_names(header) + [""]
    return {"bindings/vba/zulcore.bas": "\n".join(lines).replace("\n", "\r\n")}
