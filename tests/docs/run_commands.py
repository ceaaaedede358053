"""run_commands.py ROOT PROGRAMS SCENES_PROGRAM: runs every command that the pages show.

The project's own scripts run in its folder, as the pages say. All other commands run in a folder with a photo.jpg
and a folder photos, a new one for each page, with the PROGRAMS, folders of them separated by colons, on the path, and with the examples that are scripts.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from pages import blocks, draw_photo, pages

root, programs, scenes_program = sys.argv[1:]
environment = dict(os.environ, PATH=f"{programs}:{os.environ['PATH']}")

ran = 0
for path, text in pages(root):
    with tempfile.TemporaryDirectory() as folder:
        draw_photo(scenes_program, folder)
        for script in pathlib.Path(root).glob("examples/*.py"):
            shutil.copy(script, folder)
        for command in "\n".join(blocks(text, "sh")).splitlines():
            if command.startswith("./scripts/test"):
                continue  # it is what runs this
            print(f"{path}: {command}", flush=True)
            where = root if command.startswith("./scripts/") else folder
            subprocess.run(command, shell=True, check=True, cwd=where, env=environment)
            ran += 1
sys.exit(ran == 0)
