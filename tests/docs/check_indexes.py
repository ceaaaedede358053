"""check_indexes.py ROOT: the index of the guides and the main page of the reference link every guide, and the README
links the index."""

import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])


def linked(page):
    """The files that a page links."""
    path = root / page
    links = re.findall(r"\]\(([^)#]+)[^)]*\)", path.read_text(encoding="utf-8"))
    return {(path.parent / link).resolve() for link in links}


index = root / "docs/README.md"
guides = {path.resolve() for path in root.glob("docs/*.md")} - {index.resolve()}
assert len(guides) > 10, guides
wrong = [f"{page} does not link {guide.name}" for page in ("docs/README.md", "docs/reference/mainpage.md")
         for guide in sorted(guides - linked(page))]
if index.resolve() not in linked("README.md"):
    wrong.append("README.md does not link docs/README.md")
print("\n".join(wrong) or f"both indexes list all {len(guides)} guides")
sys.exit(bool(wrong))
