"""run_programs.py ROOT COMPILER FLAGS LIBRARY_FOLDER SCENES_PROGRAM: compiles every C++ program that
the pages show against the library, and runs it in a folder with a photo.jpg."""

import os
import pathlib
import subprocess
import sys
import tempfile

from pages import blocks, draw_photo, pages

root, compiler, flags, library_folder, scenes_program = sys.argv[1:]


def pkg_config(option):
    result = subprocess.run(["pkg-config", option, "Qt5Gui"], check=True, capture_output=True)
    return result.stdout.decode().split()


ran = 0
with tempfile.TemporaryDirectory() as folder:
    draw_photo(scenes_program, folder)
    source = pathlib.Path(folder) / "program.cpp"
    for path, text in pages(root):
        for program in blocks(text, "cpp"):
            source.write_text(program, encoding="utf-8")
            subprocess.run(
                [compiler, "-std=c++17", "-fPIC", *flags.split(), f"-I{root}/libs"]
                + [*pkg_config("--cflags"), str(source), "-o", f"{folder}/program"]
                + [f"-L{library_folder}", "-lVXCrop", "-lVXRegionOfInterest", *pkg_config("--libs")],
                check=True,
            )
            print(f"{path}:", flush=True)
            environment = dict(os.environ, LD_LIBRARY_PATH=library_folder)
            subprocess.run([f"{folder}/program"], check=True, cwd=folder, env=environment)
            ran += 1
sys.exit(ran == 0)
