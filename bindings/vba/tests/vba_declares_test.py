#!/usr/bin/env python3
"""vba_declares_test.py ROOT: bindings/vba/zulcore.bas against include/zulcore.h: every declaration, constant and call of a
declared function, and the limits of VBA's editor."""
import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(ROOT / "scripts"))
import header_model  # noqa: E402

TYPES = {
    "int": "ByVal Long",
    "const char*": "ByVal String",
    "char*": "ByVal String",
    "const unsigned char*": "ByRef Byte",
    "unsigned char*": "ByRef Byte",
    "const void*": "ByRef Any",
    "void*": "ByRef Any",
}
NUMBERS = r"-?\d+|n[A-Z]\w*|f[A-Z]\w*|ZUL_\w+( Or ZUL_\w+)*|k[A-Z]\w*|count|options|number|code|size|piece|iterations|" \
          r"memoryKiB|passes|lanes|lower|upper|count \+ 1|UBound\(\w+\)( \+ 1)?|zulLength\(\w+\)"
ADDRESSES = r"0|VarPtr\(\w+\((0|done|LBound\(\w+\))\)\)|zul(Data|Text|Key)At\(\w+\)"
faults = []


def claim(good, what):
    if not good:
        faults.append(what)


def arguments_after(text, start):
    """The arguments of a call whose list begins at start, with or without its bracket."""
    depth, argument, found = 0, "", []
    bracket = text[start] == "("
    for character in text[start + bracket:]:
        if character == ")" and depth == 0:
            break
        depth += {"(": 1, ")": -1}.get(character, 0)
        if character == "," and depth == 0:
            found.append(argument.strip())
            argument = ""
        else:
            argument += character
    return found + [argument.strip()] if argument.strip() else found


def check_call(name, arguments, function):
    claim(len(arguments) == len(function.parameters), f"{name}: {len(arguments)} arguments")
    for argument, parameter in zip(arguments, function.parameters):
        pattern = NUMBERS if parameter.kind == "int" else ADDRESSES
        claim(re.fullmatch(pattern, argument), f"{name}: {argument} for {parameter.type} {parameter.name}")


def main():
    header = header_model.read_header()
    functions = {each.name: each for each in header.functions}
    raw = (ROOT / "bindings/vba/zulcore.bas").read_bytes()
    claim(raw.count(b"\n") == raw.count(b"\r\n") and raw.isascii(), "line ends, or characters beyond ASCII")
    lines = raw.decode().split("\r\n")
    claim(max(map(len, lines)) < 1023, "a line of 1023 characters")
    claim(not re.search(r"( _\r\n.*){25}", raw.decode()), "more than 24 continuations")
    code = re.sub(r" _\n\s*", " ", "\n".join(lines))

    pattern = r'^Public Declare PtrSafe Function (\w+) Lib "zulcore\.dll"(?: Alias "(\w+)")? \((.*)\) As Long$'
    declared = {}
    for name, alias, parameters in re.findall(pattern, code, re.M):
        claim(name not in declared, f"{name} stands twice")
        declared[name] = functions.get(alias or name)
        found = [re.fullmatch(r"(By\w+) (\w+) As (\w+)", each.strip()) for each in parameters.split(",") if each.strip()]
        claim(all(found) and declared[name], f"{name}: not understood")
        wanted = [(each.name, "ByVal LongPtr" if alias and each.kind != "int" else TYPES[each.type])
                  for each in declared[name].parameters]
        claim([(each[2], f"{each[1]} {each[3]}") for each in found] == wanted, f"{name}: {parameters}")
        claim(not alias or name == alias + "Ptr", f"{name}: an alias of {alias}")
    claim(set(functions) <= set(declared), f"not declared: {set(functions) - set(declared)}")
    claim(code.count("Declare ") == len(declared) + 1, "declarations in another form")

    constants = {name: (int(value[2:-1], 16) if value.endswith("&") else int(value)) for name, value in
                 re.findall(r"^Public Const (\w+) As Long = (\d+|&H[0-9A-F]+&)$", code, re.M)}
    wanted = {each.name: each.value for each in header.errors}
    wanted.update((each.name, each.value) for _, group in header.options for each in group)
    claim(constants == wanted, f"constants: {set(constants.items()) ^ set(wanted.items())}")
    claim(code.count("Public Const ") == len(constants), "constants in another form")

    procedures = re.sub(r"'.*", "", code[code.index("Public Sub zulLoad"):])
    called = 0
    for line in procedures.split("\n"):
        for call in re.finditer(r"\b([A-Z0-9]{3,6}_\w+)(?=[( ])", line):
            if call[1] in declared:
                called += 1
                check_call(call[1], arguments_after(line, call.end()), declared[call[1]])
    claim(called > 50, "calls are not found")
    opened = re.findall(r"^(?:Public|Private) (Sub|Function) ", procedures, re.M)
    claim(len(opened) == len(re.findall(r"^End (?:Sub|Function)$", procedures, re.M)), "procedures that do not end")
    for fault in faults:
        print("FAULT:", fault)
    sys.exit(bool(faults))


main()
