#!/usr/bin/env python3
"""Reads every include under src/ and tools/zul/: it may point to its own folder, to a lower floor, or to a peer,
as the tables of docs/architecture.md say; a room of a folder may include itself and the rooms before it. System headers and macros belong to src/platform/ alone."""
import collections
import pathlib
import re
import sys

# Headers of C++ and of compiler intrinsics; any other <header> is the system's.
STANDARD = re.compile(r"[a-z0-9_]+")
INTRINSICS = {"immintrin.h", "cpuid.h"}
SYSTEM_MACROS = re.compile(r"\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|__MINGW\w+|_POSIX\w*)\b")
LARGEST = 700

floor_of = {}  # folder: floor
peers = collections.defaultdict(set)  # folder: others on its floor that it may include
rooms = {}  # folder: its rooms, the lowest first
failures = []


def read_tables(document):
    for line in document.read_text().splitlines():
        if row := re.match(r"\| (\d+) \| `src/(\w+)/` \|", line):
            floor_of[row[2]] = int(row[1])
        elif row := re.match(r"\| `(\w+)` \| `(\w+)` \|", line):
            peers[row[1]].add(row[2])
        elif row := re.match(r"\| `(\w+)/` \| ((`\w+`(, )?)+) \|", line):
            rooms[row[1]] = re.findall(r"\w+", row[2])
    for folder, allowed in list(peers.items()):
        for peer in allowed:
            if floor_of[folder] != floor_of[peer] or folder in peers[peer]:
                failures.append(f"{document}: {folder} and {peer} cannot be peers that way")


def room_of(name):
    """The room of folder/room/file.h; none for what stands in the folder itself, which may include all rooms."""
    parts = pathlib.PurePath(name).parts
    return parts[1] if parts[0] in rooms and len(parts) == 3 else None


def check_source(path, relative):
    folder, room = relative.parts[0], room_of(relative)
    if room and room not in rooms[folder]:
        failures.append(f"{path}: {folder} has no room {room}")
        return
    text = path.read_text()
    # A file of one table may be longer.
    if len(text.splitlines()) > LARGEST and "table" not in path.stem:
        failures.append(f"{path}: more than {LARGEST} lines")
    for number, line in enumerate(text.splitlines(), 1):
        place = f"{path}:{number}"
        if folder != "platform" and SYSTEM_MACROS.search(line):
            failures.append(f"{place}: asks for the system, which only src/platform may")
        include = re.match(r'\s*#\s*include\s*(["<])([^">]+)[">]', line)
        if not include:
            continue
        kind, name = include.groups()
        if kind == "<":
            if folder != "platform" and not STANDARD.fullmatch(name) and name not in INTRINSICS:
                failures.append(f"{place}: <{name}> is a system header, which only src/platform may include")
            continue
        if name == "zulcore.h":
            continue
        target = name.split("/")[0]
        if target not in floor_of or "/" not in name:
            failures.append(f'{place}: "{name}" does not name a folder of src/')
        elif not (target == folder or floor_of[target] < floor_of[folder] or target in peers[folder]):
            failures.append(f"{place}: {folder} may not include {target}")
        elif target == folder and room and room_of(name) not in rooms[folder][: rooms[folder].index(room) + 1]:
            failures.append(f"{place}: {folder}/{room} may not include {name}")


def check_tool(path):
    for number, line in enumerate(path.read_text().splitlines(), 1):
        include = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
        if include and include[1] != "zulcore.h" and not (path.parent / include[1]).exists():
            failures.append(f"{path}:{number}: the tool sees zulcore.h and its own files only")


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    basenames = collections.defaultdict(list)
    count = 0
    read_tables(root / "docs/architecture.md")
    for path in sorted((root / "src").rglob("*")):
        if path.suffix not in (".h", ".cpp", ".inc"):
            continue
        relative = path.relative_to(root / "src")
        if relative.parts[0] not in floor_of or len(relative.parts) < 2:
            failures.append(f"{path}: in no folder that has a floor")
            continue
        check_source(path, relative)
        # win32/ and posix/ mirror each other by name.
        if relative.parts[0] != "platform" or len(relative.parts) == 2:
            basenames[path.name].append(relative)
        count += 1
    for path in sorted((root / "tools").rglob("*")):
        if path.suffix in (".h", ".cpp"):
            if "zul" in path.parts:
                check_tool(path)
            if path.parent.name not in ("posix", "win32"):
                basenames[path.name].append(path.relative_to(root))
    for name, places in basenames.items():
        if len(places) > 1:
            failures.append(f"{name} is the name of {len(places)} files: {', '.join(map(str, places))}")
    for folder in ("src/platform", "tools/zul"):
        mirror = [{p.name for p in (root / folder / system).glob("*.cpp")} for system in ("posix", "win32")]
        for name in sorted(mirror[0] ^ mirror[1]):
            failures.append(f"{folder}: {name} is not in both posix and win32")

    for failure in failures:
        print(failure)
    print(f"{count} files under src, {len(failures)} failures")
    return 1 if failures else 0


sys.exit(main())
