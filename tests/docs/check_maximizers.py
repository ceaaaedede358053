"""check_maximizers.py FOLDER: the pages of both maximizers show startOfBestRange, which their base class declares."""

import pathlib
import sys

folder = pathlib.Path(sys.argv[1])
pages = [folder / f"classVXSalienzMaximizer{axis}.html" for axis in ("Horizontal", "Vertical")]
# A row of the table of members that is there without a click.
wrong = [f"{path} does not show startOfBestRange" for path in pages
         if not any("startOfBestRange" in line and 'class="memitem' in line and "inherit" not in line
                    for line in path.read_text(encoding="utf-8").splitlines())]
print("\n".join(wrong) or "both maximizers show startOfBestRange")
sys.exit(bool(wrong))
