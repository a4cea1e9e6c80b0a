#!/usr/bin/env python3
"""mutate.py: plants small faults in the library's sources, one at a time, and lists those that no test notices.

A mutant is one edit of one place: a negated condition, another relation, a bound or constant that is one off, another
operator, a call left out. Places are found in Clang's syntax tree. The mutants are built in build/mutants, which holds a
copy of the committed tree, and tested by unit and api. One that does not compile, or compiles to the same code, is
replaced by another. The same seed and the same sources give the same mutants."""
import argparse
import json
import os
import random
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

try:
    from clang import cindex
except ImportError:
    sys.exit("mutate: needs the package python3-clang-14, and /usr/bin/python3 to run it")

ROOT = Path(__file__).resolve().parent.parent
COPY = ROOT / "build" / "mutants"
RELATIONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
OPERATORS = {**RELATIONS, "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "+", "/": "*", "%": "/", "&": "|", "|": "&",
             "^": "|", "<<": ">>", ">>": "<<", "+=": "-=", "-=": "+=", "|=": "&=", "&=": "|=", "^=": "|="}
# Read by people alone, for another system, or counted in seconds of no consequence.
LEFT_OUT = re.compile(r"^src/(platform/win32/|ui/)|_table\.cpp$|_tables?_?x?8?6?\.cpp$|known_answer|power_up_tests")
# The first reads four gigabytes.
SLOW_TESTS = "-*BeyondFourGigabytes*"


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)


class Tree:
    """A copy of the committed sources with a build of its own."""

    def __init__(self):
        self.build = COPY / "build" / "native"
        if not (COPY / ".git").exists():
            shutil.rmtree(COPY, ignore_errors=True)
            subprocess.run(["git", "-C", ROOT, "worktree", "prune"], check=True)
            subprocess.run(["git", "-C", ROOT, "worktree", "add", "-q", "--detach", COPY, "HEAD"], check=True)
        else:
            head = run(["git", "-C", ROOT, "rev-parse", "HEAD"]).stdout.strip()
            subprocess.run(["git", "-C", COPY, "checkout", "-q", "-f", "--detach", head], check=True)
        subprocess.run(["cmake", "--preset", "native", "-DZUL_BUILD_BENCH=OFF", "-DZUL_BUILD_TOOL=OFF",
                        "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"], cwd=COPY, check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["ninja", "-C", self.build, "unit", "api"], check=True, stdout=subprocess.DEVNULL)
        entries = json.loads((self.build / "compile_commands.json").read_text())
        self.commands = {os.path.relpath(entry["file"], COPY): entry["command"].split()
                         for entry in entries if "zulcore_objects" in entry["command"]}
        self.suites = near_suites()

    def object_file(self, name):
        command = self.commands[name]
        return self.build / command[command.index("-o") + 1]

    def compile(self, name):
        """The object's code, or None if the compiler refuses."""
        target = self.object_file(name)
        result = run(["ninja", "-C", self.build, str(target.relative_to(self.build))])
        if result.returncode != 0:
            return None
        # Only what is loaded counts: line numbers of debugging may differ.
        run(["objcopy", "-S", "-R", ".comment", target, target.with_suffix(".cmp")])
        return target.with_suffix(".cmp").read_bytes()

    def killed_by(self, name, limit):
        """The program and test that notice the mutant, or None."""
        linked = run(["ninja", "-C", self.build, "unit", "api"], timeout=600)
        if linked.returncode != 0:
            return "build", linked.stdout.strip().splitlines()[-1][:100]
        near = self.suites.get(str(Path(name).parent), "")
        for tests in ([near + SLOW_TESTS] if near else []) + [SLOW_TESTS]:
            for program in ("unit", "api"):
                work = self.build / "work" / program
                work.mkdir(parents=True, exist_ok=True)
                try:
                    result = run([self.build / program, "--gtest_brief=1", "--gtest_fail_fast",
                                  "--gtest_filter=" + tests], cwd=work, timeout=limit, errors="replace")
                except subprocess.TimeoutExpired:
                    return program, "time out"
                if result.returncode != 0:
                    failed = re.search(r"\[  FAILED  \] ([\w/.]+)", result.stdout)
                    return program, failed.group(1) if failed else f"status {result.returncode}"
        return None


def near_suites():
    """For each folder of src/ a filter of the suites whose files include its headers or have its name: the likely killers."""
    suites = {}
    for test in sorted((COPY / "tests").glob("*/*_test.cpp")):
        text = test.read_text()
        names = set(re.findall(r"^TEST(?:_[FP])?\((\w+),", text, re.M))
        folders = {f"src/{Path(header).parent}" for header in re.findall(r'#include "([a-z0-9_/]+/\w+\.h)"', text)}
        folders |= {str(folder.relative_to(COPY)) for folder in (COPY / "src").rglob("*")
                    if folder.is_dir() and test.name.startswith(folder.relative_to(COPY / "src").parts[0])}
        for folder in folders:
            suites.setdefault(folder, set()).update(names)
    return {folder: ":".join(f"*{name}.*" for name in sorted(names)) for folder, names in suites.items()}


def places(tree, name):
    """Every edit that could be made in a file: (offset, length, new text, kind)."""
    skip = {"-c", "-o", "-MD", "-MT", "-MF", "-Wno-restrict", "-Werror"}
    arguments = [word for word in tree.commands[name][1:] if word not in skip and word.startswith(("-I", "-D", "-std"))]
    source = (COPY / name).read_bytes()
    unit = cindex.Index.create().parse(str(COPY / name), args=["-x", "c++", *arguments])
    found = []

    def text(extent):
        return source[extent.start.offset:extent.end.offset].decode()

    def here(node):
        start = node.extent.start
        return start.file is not None and start.file.name == str(COPY / name)

    def edit(extent, new, kind):
        old = text(extent)
        if old and "\n#" not in old:
            found.append((extent.start.offset, extent.end.offset - extent.start.offset, new, kind))

    def operator(node):
        """The token of a binary operator: the first behind its left side."""
        children = list(node.get_children())
        if len(children) != 2:
            return None
        for token in node.get_tokens():
            if token.extent.start.offset >= children[0].extent.end.offset:
                return token
        return None

    def visit(node, in_function):
        kind = node.kind
        kinds = cindex.CursorKind
        if kind in (kinds.STATIC_ASSERT, kinds.ASM_STMT, kinds.GCC_ASM_STMT if hasattr(kinds, "GCC_ASM_STMT") else None):
            return
        if in_function and here(node):
            children = list(node.get_children())
            if kind in (kinds.IF_STMT, kinds.WHILE_STMT) and children and children[0].kind.is_expression():
                edit(children[0].extent, f"!({text(children[0].extent)})", "condition")
            elif kind in (kinds.BINARY_OPERATOR, kinds.COMPOUND_ASSIGNMENT_OPERATOR):
                token = operator(node)
                if token is not None and token.spelling in OPERATORS:
                    edit(token.extent, OPERATORS[token.spelling],
                         "bound" if token.spelling in RELATIONS else "operator")
            elif kind == kinds.INTEGER_LITERAL:
                edit(node.extent, f"({text(node.extent)} + 1)", "constant")
            elif kind == kinds.CXX_BOOL_LITERAL_EXPR:
                edit(node.extent, "false" if text(node.extent) == "true" else "true", "constant")
            elif kind == kinds.COMPOUND_STMT:
                for child in children:
                    if child.kind == kinds.CALL_EXPR and source[child.extent.end.offset:child.extent.end.offset + 1] == b";":
                        edit(child.extent, "", "call left out")
        for child in node.get_children():
            if child.location.file is None or child.location.file.name == str(COPY / name):
                visit(child, in_function or kind in (kinds.COMPOUND_STMT,))

    visit(unit.cursor, False)
    return sorted(set(found))


def shown(source, place):
    """The line of a place before and after the edit, and its number."""
    offset, length, new, _ = place
    begin = source.rfind(b"\n", 0, offset) + 1
    end = source.find(b"\n", offset + length)
    end = len(source) if end < 0 else end
    join = lambda text: " ".join(text.decode().split())
    return (source.count(b"\n", 0, offset) + 1, join(source[begin:end]),
            join(source[begin:offset] + new.encode() + source[offset + length:end]))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("count", type=int, help="how many mutants")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--changed", metavar="REVISION", help="only in files that differ from this revision")
    parser.add_argument("--files", nargs="+", metavar="FILE", help="only in these files of src/")
    parser.add_argument("--limit", type=int, default=240, help="seconds for each program of tests (default 240)")
    parser.add_argument("--log", type=Path, default=ROOT / "build" / "mutants.jsonl",
                        help="one JSON object for each mutant; a run goes on behind what is there for its seed")
    options = parser.parse_args()

    tree = Tree()
    names = sorted(name for name in tree.commands if name.startswith("src/") and not LEFT_OUT.search(name))
    if options.changed:
        changed = run(["git", "-C", ROOT, "diff", "--name-only", options.changed]).stdout.split()
        names = [name for name in names if name in changed]
    if options.files:
        names = [name for name in names if name in options.files]
    if not names:
        sys.exit("mutate: no such file of the library")
    weights = [(COPY / name).read_text().count("\n") for name in names]

    done = {}
    if options.log.exists():
        for line in options.log.read_text().splitlines():
            entry = json.loads(line)
            if entry["seed"] == options.seed:
                done[entry["number"]] = entry
    known_places = {}
    tried = set()
    draw = 0
    counted = 0
    while counted < options.count:
        # Each draw has a generator of its own, so that a run that was broken off goes on with the same mutants.
        draw += 1
        if draw > 50 * options.count:
            sys.exit("mutate: these files have no more places")
        choice = random.Random(f"{options.seed}/{draw}")
        name = choice.choices(names, weights)[0]
        if draw in done:
            entry = done[draw]
            tried.add((entry["file"], entry.get("offset"), entry.get("new")))
            counted += entry["result"] in ("killed", "survived")
            continue
        if name not in known_places:
            known_places[name] = places(tree, name)
        if not known_places[name]:
            continue
        place = choice.choice(known_places[name])
        if (name, place[0], place[2]) in tried:
            continue
        tried.add((name, place[0], place[2]))
        path = COPY / name
        source = path.read_bytes()
        before = tree.compile(name)
        number, old, new = shown(source, place)
        entry = {"seed": options.seed, "number": draw, "file": name, "line": number, "kind": place[3], "old": old,
                 "mutant": new, "offset": place[0], "new": place[2]}
        started = time.monotonic()
        try:
            path.write_bytes(source[:place[0]] + place[2].encode() + source[place[0] + place[1]:])
            code = tree.compile(name)
            if code is None:
                entry["result"] = "does not compile"
            elif code == before:
                entry["result"] = "same code"
            else:
                killer = tree.killed_by(name, options.limit)
                entry["result"] = "killed" if killer else "survived"
                entry["by"] = " ".join(killer) if killer else ""
                counted += 1
        finally:
            path.write_bytes(source)
        entry["seconds"] = round(time.monotonic() - started)
        with options.log.open("a") as log:
            log.write(json.dumps(entry) + "\n")
        done[draw] = entry
        if entry["result"] in ("killed", "survived"):
            print(f"{counted:4} {entry['result']:8} {name}:{number} {place[3]}: {entry['by'] or old + '  ->  ' + new}", flush=True)

    counts = [entry for entry in done.values() if entry["result"] in ("killed", "survived")][:options.count]
    survivors = [entry for entry in counts if entry["result"] == "survived"]
    print(f"\n{len(counts)} mutants, {len(counts) - len(survivors)} killed ({100 * (len(counts) - len(survivors)) / len(counts):.1f} %)")
    for kind in sorted({entry["kind"] for entry in counts}):
        of_kind = [entry for entry in counts if entry["kind"] == kind]
        alive = sum(entry["result"] == "survived" for entry in of_kind)
        print(f"  {kind}: {len(of_kind) - alive} of {len(of_kind)}")
    for entry in survivors:
        print(f"survived: {entry['file']}:{entry['line']} {entry['kind']}\n    {entry['old']}\n    {entry['mutant']}")


if __name__ == "__main__":
    main()
