#!/usr/bin/env python3
"""count_lines.py: prints the non-blank lines of the tests and of all other code, and their ratio.

The tests are tests/ and bindings/*/tests; neither of the two is fuzz/, bench/ or examples/. Counts programs and scripts in
every language, but not tests/data and what scripts/make_bindings.py makes."""
import pathlib

import header_model
import make_bindings

ENDINGS = {".c", ".cpp", ".h", ".hpp", ".inc", ".py", ".sh", ".cs", ".js", ".ts", ".mjs", ".go", ".java", ".pas", ".bas"}
FOLDERS = ("src", "include", "tools", "bindings", "packaging", "scripts")
MADE = set(make_bindings.files_of(header_model.read_header()))


def lines(folder):
    return sum(
        1
        for path in folder.rglob("*")
        if path.suffix in ENDINGS and path not in MADE and not path.is_relative_to(root / "tests" / "data")
        for line in path.read_text(encoding="utf-8").splitlines()
        if line.strip()
    )


root = header_model.ROOT
testsOfBindings = sum(lines(folder) for folder in root.glob("bindings/*/tests"))
tests = lines(root / "tests") + testsOfBindings
code = sum(lines(root / folder) for folder in FOLDERS) - testsOfBindings
print(f"tests {tests}  code {code}  {100 * tests / code:.1f} %")
