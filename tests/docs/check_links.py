"""check_links.py ROOT: every relative link of the pages leads to a file, and every test that a page
names exists."""

import pathlib
import re
import sys

from pages import pages, recipes

root = pathlib.Path(sys.argv[1])
sources = "\n".join(path.read_text(encoding="utf-8") for path in root.glob("tests/**/*Test*.*"))
defined = {f"{suite}.{name}" for suite, name in re.findall(r"TEST(?:_F)?\((\w+), (\w+)\)", sources)}

wrong = []
for path, text in [*pages(root), *recipes(root)]:
    for target in re.findall(r"\]\(([^)#]+)[^)]*\)", text):
        if "://" not in target and not (path.parent / target).exists():
            wrong.append(f"{path}: no file {target}")
    for name in re.findall(r"`([A-Z]\w+\.[a-z]\w+)`", text):
        is_file = name.endswith((".cpp", ".h", ".inl", ".json", ".md", ".txt"))
        if not is_file and name not in defined:
            wrong.append(f"{path}: no test {name}")
if not defined:
    wrong.append("no tests found")
print("\n".join(wrong) or "every link and test name leads somewhere")
sys.exit(bool(wrong))
