"""run_examples.py FOLDER SCENES: runs the example programs in FOLDER as their first lines say."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

programs, scenes = pathlib.Path(sys.argv[1]), sys.argv[2]


def run(folder, name, *arguments):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    if name == "live-preview":
        environment["ASAN_OPTIONS"] = "detect_leaks=0"  # Qt's offscreen platform keeps its screen
    ended = subprocess.run([programs / f"example-{name}", *arguments], cwd=folder, text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False,
                           env=environment)
    return ended.returncode, ended.stdout


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    subprocess.run([scenes, "."], cwd=folder, check=True, stdout=subprocess.DEVNULL)

    code, out = run(folder, "minimal", "balloon.png", "square.png")
    assert code == 0 and re.fullmatch(r"800x800\+\d+\+0\n", out), (code, out)
    assert (folder / "square.png").read_bytes().startswith(b"\x89PNG")
    code, out = run(folder, "minimal", "poppy.png", "square.png")
    assert code == 0 and re.fullmatch(r"\d+x\d+\+0\+\d+\n", out), (code, out)
    assert run(folder, "minimal", "none.png", "square.png")[0] == 65
    assert run(folder, "minimal")[0] == 64

    code, out = run(folder, "own-method", "balloon.png", "map.png")
    assert (code, out) == (0, "5 maps of 640 x 426\n"), (code, out)
    assert (folder / "map.png").is_file()

    code, out = run(folder, "thread-pool", "balloon.png", "poppy.png", "sailboat.png")
    starts = re.findall(r"^(\w+)\.png: from column (\d+) of the map$", out, re.MULTILINE)
    assert code == 0 and [name for name, _ in starts] == ["balloon", "poppy", "sailboat"], out
    assert run(folder, "thread-pool", "balloon.png", "none.png")[0] == 1

    code, out = run(folder, "keep-areas", "balloon.png")
    match = re.fullmatch(r"without areas: from column (\d+)\nwith 1 area: from column (\d+)\n", out)
    assert code == 0 and match, (code, out)
    # The balloon is right of the middle: keeping it moves the square to the right.
    assert int(match.group(2)) > int(match.group(1)), out

    code, out = run(folder, "live-preview", "balloon.png", "preview.png")
    assert code == 0 and (folder / "preview.png").stat().st_size > 50_000, (code, out)
    assert run(folder, "live-preview", "none.png")[0] == 64
print("all examples ran")
