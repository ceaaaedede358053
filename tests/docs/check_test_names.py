"""check_test_names.py ROOT: every test that a page names exists."""

import pathlib
import re
import sys

from pages import pages, recipes

root = pathlib.Path(sys.argv[1])
sources = "\n".join(path.read_text(encoding="utf-8") for path in root.glob("tests/**/*Test*.*"))
defined = {f"{suite}.{name}" for suite, name in re.findall(r"TEST(?:_F)?\((\w+), (\w+)\)", sources)}

named = [(path, name) for path, text in [*pages(root), *recipes(root)]
         for name in re.findall(r"`([A-Z]\w+\.[a-z]\w+)`", text)
         if not name.endswith((".cpp", ".h", ".inl", ".json", ".md", ".txt"))]
wrong = [f"{path}: no test {name}" for path, name in named if name not in defined]
if not named:
    wrong.append("no page names a test")
print("\n".join(wrong) or f"all {len(named)} tests exist")
sys.exit(bool(wrong))
