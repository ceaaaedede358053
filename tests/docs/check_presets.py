"""check_presets.py EVALUATE PAGE PHOTOGRAPHS: the page's table is what the program prints of them.

Exit code 77, a skipped test, when the photographs are not there.
"""

import pathlib
import subprocess
import sys

evaluate, page, photographs = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
if not (photographs / "images").is_dir():
    print(f"skipped: there are no photographs in {photographs}")
    sys.exit(77)

lines = page.read_text(encoding="utf-8").splitlines()
start = next(i for i, line in enumerate(lines) if line.startswith("| | tune"))
shown = [line for line in lines[start:start + 40] if line.startswith("|")]
names = [line.split("|")[1].strip() for line in shown[4:]]
assert names[:2] == ["photo", "library"], names
printed = subprocess.run([evaluate, photographs, *names], check=True, stdout=subprocess.PIPE,
                         text=True).stdout.splitlines()
for line in printed:
    print(line)
sys.exit("the page shows another table" if printed != shown else 0)
