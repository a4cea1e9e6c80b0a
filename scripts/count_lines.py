#!/usr/bin/env python3
"""count_lines.py: prints the non-blank lines of tests/ and of all other code, and their ratio.

Counts programs and scripts in every language, but not tests/data and what scripts/make_bindings.py makes."""
import pathlib

import header_model
import make_bindings

ENDINGS = {".c", ".cpp", ".h", ".hpp", ".inc", ".py", ".sh", ".cs", ".js", ".ts", ".mjs", ".go", ".java", ".pas", ".bas"}
FOLDERS = ("src", "include", "tools", "bindings", "packaging", "scripts")
MADE = set(make_bindings.files_of(header_model.read_header()))


def lines(root, folder):
    return sum(
        1
        for path in (root / folder).rglob("*")
        if path.suffix in ENDINGS and path not in MADE and path.relative_to(root).parts[:2] != ("tests", "data")
        for line in path.read_text(encoding="utf-8").splitlines()
        if line.strip()
    )


root = header_model.ROOT
tests = lines(root, "tests")
code = sum(lines(root, folder) for folder in FOLDERS)
print(f"tests {tests}  code {code}  {100 * tests / code:.1f} %")
