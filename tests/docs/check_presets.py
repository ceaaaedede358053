"""check_presets.py EVALUATE VXROI_FACES PAGE: the page's tables are what the program prints for the photographs in
the folder that VXROI_PHOTOGRAPHS names.

Exit code 77, a skipped test, if it is not set.
"""

import os
import pathlib
import re
import subprocess
import sys

evaluate, faces, page = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
if "VXROI_PHOTOGRAPHS" not in os.environ:
    print("skipped: VXROI_PHOTOGRAPHS names no folder of photographs; see CONTRIBUTING.md")
    sys.exit(77)
photographs = pathlib.Path(os.environ["VXROI_PHOTOGRAPHS"])


def tables(text):
    """The tables of a page that vxroi-evaluate may have printed."""
    found = re.findall(r"(?:^\|.*\n)+", text, re.MULTILINE)
    return [table for table in found if table.startswith(("| | all |", "| | whole |"))]


def names(table):
    """What the crops of a table are chosen by, without the rows to compare with."""
    rows = [line.split("|")[1].strip().rpartition(", ")[0] for line in table.splitlines()[2:]]
    return [name for name in dict.fromkeys(rows) if name not in ("centre", "best crops")]


def printed(*arguments):
    return subprocess.run([evaluate, *arguments], check=True, stdout=subprocess.PIPE, text=True).stdout


shown = tables(page.read_text(encoding="utf-8"))
assert len(shown) == 3, shown
assert names(shown[0])[:2] == ["photo", "library"] and names(shown[1]) == names(shown[2]), shown
made = tables(printed(photographs, *names(shown[0]))) \
    + tables(printed("--detector", f"'{faces}' --from -", photographs, *names(shown[1])))
print("\n".join(made))
sys.exit("the page shows other tables" if made != shown else 0)
