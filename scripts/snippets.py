#!/usr/bin/env python3
"""Fills the code blocks of the pages from files that run. A block stands below a line

    <!-- from examples/digest.c -->              the whole file
    <!-- from examples/digest.c [name] -->       the lines between the comments [name] and [end]

A comment may have several names. 
Behind a line `<!-- tabs of hash -->` every language that has a file with the region [hash] among its examples in
bindings/ gets a part of its own, after those that stand there.

With --check it writes nothing and fails if a block is not what its file says, if a page in PAGES has code that comes from
no file (blocks of `text`, which show what a program prints, apart), or if a file of the cookbook is on no page."""
import pathlib
import re
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parents[1]
PAGES = ["README.md", "docs/index.md", "docs/coming-from.md", "docs/old-and-new.md",
         *(f"docs/cookbook/{path.name}" for path in sorted((ROOT / "docs/cookbook").glob("*.md")))]
TABS = re.compile(r"^<!-- tabs of (\w+) -->\n(.*?)^<!-- end of tabs -->\n", re.M | re.S)
BINDINGS = {"cpp": "C++", "python": "Python", "csharp": "C#", "vba": "VBA", "pascal": "Pascal", "node": "Node.js",
            "java": "Java", "go": "Go"}
BLOCK = re.compile(r"^(<!-- from (\S+)(?: \[([\w-]+)\])? -->\n)(?:```\w*\n(?:.*\n)*?```\n)?", re.M)
MARK = re.compile(r"^\s*(?://|/\*|#|'|\{|--|<!--)\s*(?:--8<-- )?\[(?:start:)?((?:end:)?[\w-]+(?: [\w-]+)*)\]"
                  r"\s*(?:\*/|\}|-->)?\s*$")
LANGUAGES = {".sh": "bash", ".c": "c", ".h": "c", ".cpp": "cpp", ".hpp": "cpp", ".py": "python", ".cs": "csharp",
             ".bas": "vbnet", ".pas": "pascal", ".js": "javascript", ".mjs": "javascript", ".ts": "typescript",
             ".java": "java", ".go": "go", ".yml": "yaml", ".toml": "toml"}


def region(path, name=None):
    """The whole file, or all lines between the marks [name] and [end], without their common indentation."""
    lines = path.read_text().splitlines()
    if name is None:
        return "\n".join(line for line in lines if not MARK.match(line)) + "\n"
    parts, isInside = [], False
    for line in lines:
        if mark := MARK.match(line):
            isNamed = name in mark[1].split()
            if isNamed:
                parts.append([])
            isInside = isNamed or (isInside and mark[1].partition(":")[0] != "end")
        elif isInside:
            parts[-1].append(line.rstrip())
    if not any(parts):
        raise ValueError(f"{path.relative_to(ROOT)} has no region [{name}]")
    return "\n".join(textwrap.dedent("\n".join(part)).strip("\n") + "\n" for part in parts)


def with_languages(match):
    """The parts of the page that are written by hand, then one of each language."""
    hand, *parts = re.split(r"(?m)^(?=#### )", match[2])
    titles = {f"#### {title}\n" for title in BINDINGS.values()}
    parts = [part for part in parts if part.partition("\n")[0] + "\n" not in titles]
    for folder, title in BINDINGS.items():
        for path in sorted((ROOT / "bindings" / folder / "examples").rglob("*")):
            if path.suffix in LANGUAGES and f"[start:{match[1]}]" in path.read_text():
                parts.append(f"#### {title}\n\n<!-- from {path.relative_to(ROOT)} [{match[1]}] -->\n\n")
                break
    return f"<!-- tabs of {match[1]} -->\n{hand}{''.join(parts)}<!-- end of tabs -->\n"


def filled(text):
    text = TABS.sub(with_languages, text)

    def block(match):
        path = ROOT / match[2]
        return f"{match[1]}```{LANGUAGES[path.suffix]}\n{region(path, match[3])}```\n"
    return BLOCK.sub(block, text)


def loose_code(text):
    """The first lines of blocks that come from no file and are no output."""
    lines, found, isInside = text.splitlines(), [], False
    for number, line in enumerate(lines):
        if line.startswith("```"):
            if not isInside and line != "```text" and not lines[number - 1].startswith("<!-- from "):
                found.append(lines[number + 1])
            isInside = not isInside
    return found


def main():
    isCheck = sys.argv[1:] == ["--check"]
    faults, used = [], set()
    for path in [ROOT / "README.md", *sorted((ROOT / "docs").rglob("*.md"))]:
        text = path.read_text()
        name = str(path.relative_to(ROOT))
        try:
            new = filled(text)
        except (OSError, KeyError, ValueError) as error:
            faults.append(f"{name}: {error}")
            continue
        used.update(match[2] for match in BLOCK.finditer(new))
        if new != text and isCheck:
            faults.append(f"{name} is not what its files say: run scripts/snippets.py")
        elif new != text:
            path.write_text(new)
        if name in PAGES:
            faults += [f"{name}: code that comes from no file: {line}" for line in loose_code(new)]
    for path in sorted((ROOT / "examples/cookbook").glob("[0-9]*")):
        if str(path.relative_to(ROOT)) not in used:
            faults.append(f"{path.relative_to(ROOT)} is on no page")
    if faults:
        sys.exit("\n".join("snippets: " + fault for fault in faults))


if __name__ == "__main__":
    main()
