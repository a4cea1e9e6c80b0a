"""What the site makes of the pages, which are written to be read on a plain git host too: headings between the comments
`tabs` and `end of tabs` become tabs, the READMEs of the bindings become pages, and links to other files outside docs/
become plain words."""
import pathlib
import re
import textwrap

from mkdocs.structure.files import File

ROOT = pathlib.Path(__file__).resolve().parents[1]
TABS = re.compile(r"^<!-- tabs(?: of \w+)? -->\n(.*?)^<!-- end of tabs -->\n", re.M | re.S)
FENCE = re.compile(r"^```.*?^```$", re.M | re.S)


def named(nav):
    """All pages that a part of the navigation names."""
    if isinstance(nav, str):
        return {nav}
    return set().union(*(named(item) for item in (nav.values() if isinstance(nav, dict) else nav)))


def on_config(config):
    """What came later stands at the end of its part, under its own title."""
    there = named(config["nav"])
    parts = {title: pages for item in config["nav"] for title, pages in item.items()}
    for part, folder, pattern in (("Languages", ROOT, "bindings/*/README.md"), ("Guide", ROOT / "docs", "*.md")):
        names = [str(path.relative_to(folder)) for path in sorted(folder.glob(pattern))]
        parts[part] += [name for name in names if name not in there]
    return config


def on_files(files, config):
    for path in sorted(ROOT.glob("bindings/*/README.md")):
        files.append(File(str(path.relative_to(ROOT)), str(ROOT), config["site_dir"], config["use_directory_urls"]))
    return files


def tabs_of(match):
    parts = re.split(r"^#### (.+)\n", match[1], flags=re.M)
    return "".join(f'=== "{title}"\n\n{textwrap.indent(body.strip(), "    ")}\n\n'
                   for title, body in zip(parts[1::2], parts[2::2]))


def on_page_markdown(markdown, page, files, **_):
    name = page.file.src_path
    folder = ROOT / (name if name.startswith("bindings/") else f"docs/{name}")
    depth = name.count("/")

    def link(match):
        words, target, anchor = match.groups()
        path = (folder.parent / target).resolve()
        for base in (ROOT / "docs", ROOT):
            if path.is_relative_to(base) and (other := files.get_file_from_path(str(path.relative_to(base)))):
                return f"[{words}]({'../' * depth}{other.src_path}{anchor or ''})"
        return words if path.exists() else match[0]

    code = []
    text = FENCE.sub(lambda match: code.append(match[0]) or f"\0{len(code) - 1}\0", markdown)
    text = re.sub(r"\[([^\]]+)\]\((?![a-z]+:)([^)#\s]+)(#[^)]*)?\)", link, text)
    # A git host needs the backslash before | in the code of a table; this Markdown would show it.
    text = re.sub(r"^\|.*", lambda row: re.sub(r"`[^`]*`", lambda part: part[0].replace("\\|", "|"), row[0]), text, flags=re.M)
    text = re.sub("\0(\\d+)\0", lambda match: code[int(match[1])], text)
    return TABS.sub(tabs_of, re.sub(r"^<!-- from .* -->\n", "", text, flags=re.M))
