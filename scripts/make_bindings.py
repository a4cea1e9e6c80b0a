#!/usr/bin/env python3
"""Writes the constants and raw declarations of every language from include/zulcore.h: each module of scripts/bindings/
gives the files of one. With --check it writes nothing and fails if a file is not what the header says."""
import importlib
import pathlib
import sys

import header_model


def files_of(header):
    files = {}
    for path in sorted((pathlib.Path(__file__).parent / "bindings").glob("*.py")):
        language = importlib.import_module(f"bindings.{path.stem}")
        files.update(language.files_of(header))
    return {header_model.ROOT / name: content for name, content in files.items()}


def main():
    files = files_of(header_model.read_header())
    stale = [path for path, content in files.items() if not path.exists() or path.read_bytes() != content.encode()]
    if sys.argv[1:] == ["--check"]:
        if stale:
            names = ", ".join(str(path.relative_to(header_model.ROOT)) for path in stale)
            sys.exit(f"not what the header says: {names}: run scripts/make_bindings.py")
        return
    for path in stale:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(files[path].encode())


if __name__ == "__main__":
    main()
