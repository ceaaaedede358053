"""check_presets.py EVALUATE PAGE: the page's table is what the program prints for the photographs in the
folder that VXROI_PHOTOGRAPHS names.

Exit code 77, a skipped test, if it is not set.
"""

import os
import pathlib
import subprocess
import sys

evaluate, page = sys.argv[1], pathlib.Path(sys.argv[2])
if "VXROI_PHOTOGRAPHS" not in os.environ:
    print("skipped: VXROI_PHOTOGRAPHS names no folder of photographs; see CONTRIBUTING.md")
    sys.exit(77)
photographs = pathlib.Path(os.environ["VXROI_PHOTOGRAPHS"])

lines = page.read_text(encoding="utf-8").splitlines()
start = next(i for i, line in enumerate(lines) if line.startswith("| | all | even"))
shown = [line for line in lines[start:start + 40] if line.startswith("|")]
rows = [line.split("|")[1].strip().rpartition(", ")[0] for line in shown[2:]]
names = rows[2:len(rows) // 3]  # for the first of three ratios, after the centre and the best crops
assert names[:2] == ["photo", "library"], names
printed = subprocess.run([evaluate, photographs, *names], check=True, stdout=subprocess.PIPE,
                         text=True).stdout.splitlines()
for line in printed:
    print(line)
sys.exit("the page shows another table" if printed != shown else 0)
