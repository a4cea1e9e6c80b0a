#!/usr/bin/env python3
"""count_lines.py: prints the non-blank lines of tests/ and of src/, include/ and tools/, and their ratio.

Counts C, C++ (headers and .inc files too) and Python, but not tests/data."""
import pathlib
import sys

ENDINGS = {".c", ".cpp", ".h", ".hpp", ".inc", ".py"}


def lines(root, folder):
    return sum(
        1
        for path in (root / folder).rglob("*")
        if path.suffix in ENDINGS and path.relative_to(root).parts[:2] != ("tests", "data")
        for line in path.read_text(encoding="utf-8").splitlines()
        if line.strip()
    )


root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent)
tests = lines(root, "tests")
code = sum(lines(root, folder) for folder in ("src", "include", "tools"))
print(f"tests {tests}  code {code}  {100 * tests / code:.1f} %")
