#!/usr/bin/env python3
"""tidy.py [--deep] [FILE...]: runs clang-tidy with the checks of .clang-tidy over src and tools, or over some files.

Most of its time goes into the headers of the standard library. Files are therefore read several at a time, as if one
file included them; those that would misunderstand each other, because they name something of their own alike, stand in
different batches. A batch that does not compile all the same is read again file by file.

--deep: the static analyzer too, and tests, fuzz targets, benchmarks, examples and bindings as well. Takes an hour or so.
"""

import concurrent.futures
import functools
import glob
import os
import pathlib
import re
import subprocess
import sys
import tempfile

WARNINGS = "-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wcast-qual -Wformat=2 -Wreserved-identifier"
FLAGS = f"-std=c++20 -Iinclude -D_FORTIFY_SOURCE=2 -O1 {WARNINGS}".split()
LIBRARY = "-Isrc -DZUL_BUILDING_MODULE -fno-exceptions -fno-rtti".split()
WINDOWS = ["--target=x86_64-w64-windows-gnu", "-Wno-cast-function-type",
           *(f"-isystem{folder}" for path in glob.glob("/usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++")
             for folder in (path, path + "/x86_64-w64-mingw32"))]
AROUND = "-Isrc -Itests -isystem /usr/src/googletest/googletest/include -DZUL_TEST_DATA=\"\"".split()
LEFT_OUT = {"src/bignum/mp_exp_ifma_x86.cpp"}  # takes a minute, as every size of number is a template's instance
MOST = 24  # files of one batch: more save little, and one core would wait for the other

# Declarations of namespaces are not indented, so what a file names for itself is found at the start of a line.
HIDDEN = re.compile(r"^namespace \{$.*?^\} // namespace$|^static [^\n]*", re.M | re.S)
DECLARED = re.compile(r"^(?!#|//|\}|namespace|extern|return)[^\s(={;:][^(={;]*?"
                      r"(?<![\w:])(\w+)(?:\[[^\]]*\])*\s*(?:\(|=|\{|;|:(?!:))", re.M)
CONSTANT = re.compile(r"^(?:static )?(?:constexpr|const|using|struct|class|enum|typedef)\b[^(;{]*", re.M)
NAMED = re.compile(r"(\w+)(?:\[[^\]]*\])* =|(?:using|struct|class|enum(?: class)?) (\w+)")
INCLUDED = re.compile(r'^#include [<"]([^>"]+)[>"]', re.M)
WORD = re.compile(r"\w+")
KEYWORDS = {"", "alignas", "int", "namespace", "struct", "void"}  # which these expressions take for names at times


def flags_of(file):
    windows = WINDOWS if "/win32/" in file else []
    if file.startswith("src/"):
        return windows + LIBRARY
    return windows + (["-Isrc"] if re.match("tools/(des_circuits|ec_tables)/", file) else
                      [] if file.startswith("tools/") else AROUND)


def own_names(text):
    """The names that a file declares for itself: all that it hides, and types and constants that it does not."""
    hidden = "\n".join(HIDDEN.findall(text))
    constants = " ".join(CONSTANT.findall(text))
    return (set(DECLARED.findall(hidden)) | {name for names in NAMED.findall(constants) for name in names}) - KEYWORDS


@functools.cache
def headers(file):
    """The project's headers that a file includes, and what they include."""
    found = set()
    for name in INCLUDED.findall(pathlib.Path(file).read_text()):
        for folder in ("src", "include", os.path.dirname(file)):
            header = os.path.join(folder, name)
            if os.path.exists(header):
                found |= {header} | headers(header)
                break
    return found


@functools.cache
def declared_names(header):
    text = pathlib.Path(header).read_text()
    return set(DECLARED.findall(text)) | {name for constant in CONSTANT.findall(text)
                                          for names in NAMED.findall(constant) for name in names}


class Source:
    def __init__(self, file):
        text = pathlib.Path(file).read_text()
        self.file = file
        self.own = own_names(text)
        self.words = set(WORD.findall(text)).union(*map(declared_names, headers(file)))
        self.kind = flags_of(file), "\nusing namespace" in text  # which reaches the files that come after

    def fits(self, other):
        return self.kind == other.kind and not self.own & other.words and not self.words & other.own


def batches(files):
    """Puts each file into the first batch with whose files it can be read, the most demanding files first."""
    made = []
    sources = [Source(file) for file in files]
    for source in sorted(sources, key=lambda source: sum(source.fits(other) for other in sources)):
        for batch in made:
            if len(batch) < MOST and all(source.fits(other) for other in batch):
                batch.append(source)
                break
        else:
            made.append([source])
    return [{"files": [source.file for source in batch], "flags": batch[0].kind[0]}
            for batch in sorted(made, key=lambda batch: -len(batch))]


def run(files, flags, deep, folder):
    checks = ["--checks=clang-analyzer-*"] if deep else []
    source = files[0]
    if len(files) > 1:
        checks = ["--checks=-bugprone-suspicious-include,-readability-redundant-declaration"]
        source = tempfile.NamedTemporaryFile("w", dir=folder, suffix=".cpp", delete=False).name
        pathlib.Path(source).write_text("".join(f'#include "{os.path.abspath(file)}"\n' for file in files))
    result = subprocess.run(["clang-tidy", "--quiet", "--config-file=.clang-tidy", *checks, source, "--", *FLAGS, *flags],
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if len(files) > 1 and result.returncode and "clang-diagnostic-error" in result.stdout:
        return sum(run([file], flags, deep, folder) for file in files)
    if result.returncode:
        print(result.stdout or result.stderr, end="", flush=True)
    return result.returncode != 0


def main():
    arguments = sys.argv[1:]
    deep = "--deep" in arguments
    files = [argument for argument in arguments if argument != "--deep"]
    if not files:
        folders = ["src", "tools"] + (["tests", "fuzz", "bench", "examples", "bindings"] if deep else [])
        files = sorted(str(path) for folder in folders for path in pathlib.Path(folder).rglob("*.cpp")
                       if deep or str(path) not in LEFT_OUT)
    work = [{"files": [file], "flags": flags_of(file)} for file in files] if deep else batches(files)
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        found = sum(pool.map(lambda batch: run(batch["files"], batch["flags"], deep, folder), work))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
