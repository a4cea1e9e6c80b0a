"""What the site makes of the pages, which are written to be read on a plain git host too: headings between the comments
`tabs` and `end of tabs` become tabs, and links to files outside docs/ become plain words."""
import re
import textwrap

TABS = re.compile(r"^<!-- tabs -->\n(.*?)^<!-- end of tabs -->\n", re.M | re.S)
FENCE = re.compile(r"^```.*?^```$", re.M | re.S)


def tabs_of(match):
    parts = re.split(r"^#### (.+)\n", match[1], flags=re.M)
    return "".join(f'=== "{title}"\n\n{textwrap.indent(body.strip(), "    ")}\n\n'
                   for title, body in zip(parts[1::2], parts[2::2]))


def on_page_markdown(markdown, page, **_):
    up = "../" * (page.file.src_path.count("/") + 1)
    code = []
    text = FENCE.sub(lambda match: code.append(match[0]) or f"\0{len(code) - 1}\0", markdown)
    text = re.sub(r"\[([^\]]+)\]\(" + re.escape(up) + r"[^)]*\)", r"\1", text)
    text = re.sub("\0(\\d+)\0", lambda match: code[int(match[1])], text)
    return TABS.sub(tabs_of, re.sub(r"^<!-- from .* -->\n", "", text, flags=re.M))
