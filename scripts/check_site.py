#!/usr/bin/env python3
"""check_site.py FOLDER: fails if a page of the site names a file or an anchor that is not there, loads anything from
another host, or is not reached from the first page."""
import html.parser
import pathlib
import re
import sys
import urllib.parse

LOADED = {("img", "src"), ("script", "src"), ("link", "href"), ("source", "src"), ("iframe", "src"), ("object", "data"),
          ("form", "action")}


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.anchors, self.links, self.loads = set(), [], []
        self.feed(path.read_text())

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.anchors.update(filter(None, (values.get("id"), values.get("name"))))
        for name, value in attributes:
            if (tag, name) in LOADED and value and not (tag == "link" and values.get("rel") in ("canonical", "next", "prev")):
                self.loads.append(value)
            if (tag, name) == ("a", "href") and value:
                self.links.append(value)


def main():
    site = pathlib.Path(sys.argv[1]).resolve()
    pages = {path: Page(path) for path in site.rglob("*.html") if path.name != "404.html"}
    faults, reached, waiting = [], set(), [site / "index.html"]
    for path, page in pages.items():
        name = path.relative_to(site)
        for link in page.loads + page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme == "data" or (parts.scheme or parts.netloc) and link in page.links and link not in page.loads:
                continue
            if parts.scheme or parts.netloc:
                faults.append(f"{name} loads {link}")
                continue
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            if target.is_dir():
                target /= "index.html"
            if not target.exists():
                faults.append(f"{name}: no file {link}")
            elif parts.fragment and target in pages and urllib.parse.unquote(parts.fragment) not in pages[target].anchors:
                faults.append(f"{name}: no anchor {link}")
    for path in site.rglob("*.css"):
        faults += [f"{path.relative_to(site)} loads {url}" for url in re.findall(r"url\(['\"]?(https?:[^)'\"]+)", path.read_text())]
    while waiting:
        path = waiting.pop()
        if path in pages and path not in reached:
            reached.add(path)
            waiting += [(path.parent / urllib.parse.unquote(urllib.parse.urlsplit(link).path)).resolve()
                        for link in pages[path].links if not urllib.parse.urlsplit(link).netloc]
    faults += [f"{path.relative_to(site)} is not reached from the first page" for path in sorted(pages.keys() - reached)]
    print(*(f"site: {fault}" for fault in faults), f"site: {len(pages)} pages, {len(faults)} faults", sep="\n")
    sys.exit(not pages or bool(faults))


if __name__ == "__main__":
    main()
