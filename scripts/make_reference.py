#!/usr/bin/env python3
"""Writes docs/reference/, one page for each family of functions, from the comments of include/zulcore.h and the examples
in examples/functions, which are programs that run. With --check it writes nothing and fails if a page is not what they
say, or if a function has no example."""
import re
import sys

import snippets
from header_model import HEADER, ROOT, blocks_of, comment_lines

FOLDER = ROOT / "docs" / "reference"
EXAMPLES = ROOT / "examples" / "functions"
WIDTH = 110  # of the header

SECTION = re.compile(r"/\* -{3} (.+?) ?-{3,} ?(.*)$", re.S)
NAMES = re.compile(r"(?<![\w`])(-?\*?(?:[A-Z][A-Z0-9]*_\w*|(?:sz|lp|dp|pn|n)[A-Z]\w*|p[A-Z]\w+\d))")


def markdown_of(lines):
    """Paragraphs and lists: a line that ends before the next word had to wrap ends its paragraph."""
    paragraphs = []
    room = 0
    for line in lines:
        words = line.strip()
        if not words:
            room = WIDTH
            continue
        isItem = re.match(r"  (- )?\S", line) is not None
        isInside = line.startswith("   ")
        hasEnded = room >= len(words.split()[0]) + 1 and paragraphs and paragraphs[-1][-1] in ".:"
        endsList = paragraphs and paragraphs[-1].startswith("- ")
        if not paragraphs or isItem or ((hasEnded or endsList) and not isInside):
            paragraphs.append(("- " if isItem else "") + re.sub(r"^- ", "", words))
        else:
            paragraphs[-1] += " " + words
        room = WIDTH - len(line) - 3
    text = ""
    for paragraph, after in zip(paragraphs, paragraphs[1:] + [""]):
        between = "\n" if paragraph.startswith("- ") and after.startswith("- ") else "\n\n"
        text += NAMES.sub(r"`\1`", paragraph.replace("<", "&lt;")) + between
    return text.rstrip() + "\n"


def functions_in(code):
    """Prototypes with their names, as they stand."""
    return re.findall(r"ZUL_API ([^;]*?(\w+)\([^;]*\);)", code, re.S)


def examples():
    """Of each function the file and the marks of its example. One that asks the user has the mark not-run too."""
    found = {}
    for path in sorted(EXAMPLES.glob("*.c")):
        for line in path.read_text().splitlines():
            if mark := snippets.MARK.match(line):
                names = mark[1].split()
                found.update({name: (path, "not-run" in names) for name in names if re.match(r"[A-Z0-9]+_", name)})
    return found


def example_of(names, found, shown):
    """The examples of functions that are described together; of one that stands under another function a link to it."""
    texts, title = {}, ", ".join(names)
    for name in names:
        if name not in found:
            continue
        path, isAsking = found[name]
        code = snippets.region(path, name)
        where = shown.setdefault(code, title)
        link = f"[examples/functions/{path.name}](../../examples/functions/{path.name})"
        if where != title:
            texts.setdefault(f"\nExample: that of [{where}](#{where.lower().replace(',', '').replace(' ', '-')}).\n")
        elif isAsking:
            texts.setdefault(f"\nExample, compiled but not run by the tests, from {link}:\n\n```c\n{code}```\n")
        else:
            texts.setdefault(f"\nExample, from {link}:\n\n```c\n{code}```\n")
    return "".join(texts)


def pages_of(text, found):
    start = next(number for number, (comment, _) in enumerate(text) if SECTION.match(comment))
    constants = "# Error codes and options\n"
    for comment, code in text[1:start]:
        if not re.search(r"#define|enum", code):
            continue
        constants += "\n" + markdown_of(comment_lines(comment)) + "\n```c\n" + code.strip("\n") + "\n```\n"
    pages = {"constants": ("Error codes and options", constants, [])}
    key, shown = None, {}
    for comment, code in text[start:]:
        if section := SECTION.match(comment):
            lines = comment_lines(comment)
            title = re.sub(r"[ -]+$", "", re.sub(r"^ -{3} ", "", lines[0]))
            key = re.match(r"[A-Z0-9]+", title)[0].lower()
            intro = markdown_of(lines[1:]) if "".join(lines[1:]).strip() else ""
            level = "# "
            if key in pages:  # a second part of the family
                level, title = "\n## ", title.partition(": ")[2].capitalize()
            first, page, names = pages.get(key, (title, "", []))
            pages[key] = (first, page + level + title + "\n" + ("\n" + intro if intro else ""), names)
        elif functions := functions_in(code):
            title, page, names = pages[key]
            own = [name for _, name in functions]
            page += "\n## " + ", ".join(own) + "\n\n```c\n" + "\n".join(code.replace("\n        ", "\n") for code, _ in functions) + "\n```\n\n"
            page += markdown_of(comment_lines(comment)) + example_of(own, found, shown)
            pages[key] = (title, page, names + own)
    return pages


def files_of(text):
    blocks = blocks_of(text)
    pages = pages_of(blocks, examples())
    files = {f"{key}.md": page for key, (_, page, _) in pages.items()}
    index = "# Reference\n\nMade from `include/zulcore.h` by `scripts/make_reference.py`.\n\n"
    index += markdown_of(comment_lines(blocks[0][0])[2:]).replace("docs/conventions.md has", "[Conventions](../conventions.md) has")
    index += "\n## Families\n\n"
    for key, (title, _, names) in pages.items():
        index += f"- [{title}]({key}.md)" + (": " + ", ".join(f"`{name}`" for name in names) if names else "") + "\n"
    files["README.md"] = index
    return files


def main():
    text = HEADER.read_text()
    files = files_of(text)
    listed = set(re.findall(r"^ZUL_API [^;(]*?(\w+)\(", text, re.M))
    missing = [name for name in sorted(listed) if f"`{name}`" not in files["README.md"]]
    if missing:
        sys.exit(f"make_reference: no comment stands before {', '.join(missing)}")
    if bare := sorted(listed - examples().keys()):
        sys.exit(f"make_reference: no example in examples/functions of {', '.join(bare)}")
    there = {path.name: path.read_text() for path in FOLDER.glob("*.md")}
    if sys.argv[1:] == ["--check"]:
        if there != files:
            stale = sorted(name for name in there.keys() | files.keys() if there.get(name) != files.get(name))
            sys.exit(f"docs/reference is not what the header says ({', '.join(stale)}): run scripts/make_reference.py")
        return
    FOLDER.mkdir(parents=True, exist_ok=True)
    for name in there.keys() - files.keys():
        (FOLDER / name).unlink()
    for name, content in files.items():
        (FOLDER / name).write_text(content)


if __name__ == "__main__":
    main()
