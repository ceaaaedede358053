"""check_excerpts.py ROOT: what the pages quote from the examples is in the examples, line by line."""

import pathlib
import sys

from pages import blocks, pages

root = pathlib.Path(sys.argv[1])
examples = {path.name: path.read_text(encoding="utf-8")
            for folder in ("examples", "tools/viewer") for suffix in ("cpp", "py")
            for path in root.glob(f"{folder}/*.{suffix}")}
wrong = []
found = 0
for path, text in pages(root):
    for excerpt in blocks(text, "c\\+\\+") + blocks(text, "python"):
        found += 1
        if not any(excerpt in source for source in examples.values()):
            wrong.append(f"{path}: no example has\n{excerpt}")
if not found:
    wrong.append("no excerpts found")
print("\n".join(wrong) or f"{found} excerpts are of the examples")
sys.exit(bool(wrong))
