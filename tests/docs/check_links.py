"""check_links.py FOLDER PATTERN...: every relative link of the pages in FOLDER, Markdown or HTML, leads to a file, and
to a heading or an anchor of it where it names one."""

import functools
import html.parser
import pathlib
import re
import sys
import urllib.parse

folder, patterns = pathlib.Path(sys.argv[1]), sys.argv[2:]


class Page(html.parser.HTMLParser):
    """The links and the anchors of a page."""

    def __init__(self, path):
        super().__init__()
        self.links, self.anchors = [], set()
        text = path.read_text(encoding="utf-8")
        if path.suffix == ".md":
            self.read_markdown(text)
        elif path.suffix == ".html":
            self.feed(text)

    def read_markdown(self, text):
        self.links = re.findall(r"\]\(([^)\s]+)\)", text)
        for heading in re.findall(r"^#+ (.*)$", text, re.MULTILINE):
            self.anchors.add(re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-"))

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src"):
                self.links.append(value)
            elif name in ("id", "name"):
                self.anchors.add(value)


page_of = functools.cache(Page)


def is_dead(path, link):
    """Whether a link of the page at path leads nowhere; those out of the folder's tree, such as https:, are trusted."""
    parts = urllib.parse.urlsplit(link)
    if parts.scheme:
        return False
    target = path.parent / urllib.parse.unquote(parts.path) if parts.path else path
    if not target.exists():
        return True
    has_anchors = target.suffix in (".md", ".html")
    return bool(parts.fragment) and has_anchors and parts.fragment not in page_of(target).anchors


paths = sorted(path for pattern in patterns for path in folder.glob(pattern))
links = [(path, link) for path in paths for link in page_of(path).links]
dead = [f"{path}: {link} leads nowhere" for path, link in links if is_dead(path, link)]
if not links:
    dead.append("no links found")
print("\n".join(dead) or f"all {len(links)} links of {len(paths)} pages lead somewhere")
sys.exit(bool(dead))
