"""check_performance.py ROOT: each page about performance has one table, and no row is in two of them."""

import collections
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
wrong = []
pages_of = collections.defaultdict(list)  # by what a row is about: the cells before its figures
for path in sorted(root.glob("docs/performance*.md")):
    lines = path.read_text(encoding="utf-8").splitlines()
    rules = [i for i, line in enumerate(lines) if re.fullmatch(r"\|[-:|]+\|", line)]
    if len(rules) != 1:
        wrong.append(f"{path} has {len(rules)} tables")
        continue
    labels = len(re.findall(r"-(?=\|)", lines[rules[0]]))
    for line in lines[rules[0] + 1:]:
        pages_of[tuple(line.split("|")[1:1 + labels])].append(path.name)
wrong += [f"{'|'.join(label)}: in {' and '.join(names)}" for label, names in pages_of.items() if len(names) > 1]
if len(pages_of) < 10:
    wrong.append("hardly any rows found")
print("\n".join(wrong) or f"{len(pages_of)} rows, each of them once")
sys.exit(bool(wrong))
