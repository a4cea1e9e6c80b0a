#!/usr/bin/env python3
"""Compares the list of exports with the header and with a built module's real export table; looks at a
Windows module's imports and loader flags, and at what an ELF module depends on."""
import argparse
import re
import subprocess
import sys

SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "user32.dll", "gdi32.dll", "advapi32.dll", "bcrypt.dll", "comctl32.dll"}
# DllCharacteristics: high-entropy addresses, dynamic base, no execution of data.
WANTED_FLAGS = 0x0020 | 0x0040 | 0x0100
DF_BIND_NOW = 8  # in an ELF module's FLAGS

failures = []


def compare(what, expected, found):
    for name in sorted(expected - found):
        failures.append(f"{what} lacks {name}")
    for name in sorted(found - expected):
        failures.append(f"{what} has {name} over and above the list")


def names_of_list(path):
    lines = [line.split("#")[0].strip() for line in open(path)]
    names = [line for line in lines if line]
    for name in {name for name in names if names.count(name) > 1}:
        failures.append(f"the list names {name} twice")
    return set(names)


def names_of_header(path):
    text = re.sub(r"/\*.*?\*/", "", open(path).read(), flags=re.S)
    text = re.sub(r"^\s*#.*$", "", text, flags=re.M)
    return set(re.findall(r"\bZUL_API\b[^;(]*?(\w+)\s*\(", text))


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def check_elf(objdump, module, listed):
    exported = set()
    for line in output_of(objdump, "-T", module).splitlines():
        fields = line.split()
        if len(fields) > 4 and "*UND*" not in fields and re.match(r"[0-9a-f]{16} [^l]", line):
            exported.add(fields[-1])
    compare("the module", listed, exported)

    private = output_of(objdump, "-p", module)
    needed = set(re.findall(r"NEEDED\s+(\S+)", private))
    for name in needed - {"libc.so.6", "ld-linux-x86-64.so.2", "ld-linux-aarch64.so.1"}:
        failures.append(f"the module depends on {name}")
    flags = re.search(r"^\s*FLAGS\s+(0x\w+)$", private, re.M)
    if not flags or not int(flags[1], 16) & DF_BIND_NOW:
        failures.append("the module does not bind its symbols at load")
    if not re.search(r"^\s*RELRO\b", private, re.M):
        failures.append("the module has no read-only relocations")
    stack = re.search(r"^\s*STACK\b.*\n.*flags (\S+)", private, re.M)
    if not stack or "x" in stack[1]:
        failures.append("the module asks for an executable stack")


def check_pe(objdump, module, listed):
    text = output_of(objdump, "-p", module)
    table = text.split("[Ordinal/Name Pointer] Table", 1)[-1].split("\n\n", 1)[0]
    compare("the module", listed, set(re.findall(r"^\s*\[\s*\d+\]\s+(\w+)$", table, re.M)))

    imports = {name.lower() for name in re.findall(r"DLL Name: (\S+)", text)}
    if not imports:
        failures.append("no import table was found")
    for name in sorted(imports - SYSTEM_DLLS):
        failures.append(f"the module imports {name}, which is not of the system")
    # With the machinery of exceptions comes the compiler's own layer of threads, which leaves memory behind.
    if "AddVectoredExceptionHandler" in text:
        failures.append("the module has the machinery of exceptions")
    flags = int(re.search(r"^DllCharacteristics\s+([0-9a-f]+)", text, re.M)[1], 16)
    if flags & WANTED_FLAGS != WANTED_FLAGS:
        failures.append(f"the module's DllCharacteristics are {flags:#x}, without all of {WANTED_FLAGS:#x}")
    if not re.search(r"^\s*\d*\s*\.rsrc\b", output_of(objdump, "-h", module), re.M):
        failures.append("the module has no version resource")


def main():
    parser = argparse.ArgumentParser()
    for option in ("--list", "--header", "--module", "--objdump"):
        parser.add_argument(option, required=True)
    args = parser.parse_args()

    listed = names_of_list(args.list)
    compare("the header", listed, names_of_header(args.header))
    check = check_pe if args.module.endswith(".dll") else check_elf
    check(args.objdump, args.module, listed)

    for failure in failures:
        print(failure)
    print(f"{len(listed)} exports, {len(failures)} failures")
    return 1 if failures else 0


sys.exit(main())
