"""check_resume.py VXROI COUNT: a batch of COUNT pictures that is killed fifty times, and resumed with other options and
other pictures, ends with the records and the outputs of a run that nobody disturbed.
"""

import json
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

vxroi, count = sys.argv[1], int(sys.argv[2])
KILLS = 50
WIDTH, HEIGHT = 48, 36
chance = random.Random(20261122)


def draw(path):
    """A picture of its own: a bright spot somewhere on grey, with a little noise."""
    pixels = bytearray(chance.randbytes(WIDTH * HEIGHT * 3))
    for at, value in enumerate(pixels):
        pixels[at] = 100 + value // 16
    left, top = chance.randrange(WIDTH - 8), chance.randrange(HEIGHT - 8)
    for y in range(top, top + 8):
        start = 3 * (y * WIDTH + left)
        pixels[start:start + 24] = b"\xff\xe0\x20" * 8
    path.unlink(missing_ok=True)
    path.write_bytes(b"P6 %d %d 255\n" % (WIDTH, HEIGHT) + pixels)


class Batch:
    """The folder, the options, and what happens to both between runs."""

    def __init__(self, folder):
        self.folder = folder
        self.pictures = folder / "in"
        self.records = folder / "records"
        self.ratio, self.preset, self.focus = "1:1", "photo", ""
        self.pictures.mkdir()
        self.safe = 0  # bytes of records that are on the disk, for a run has finished with them
        self.drawn = 0
        for _ in range(count):
            self.add_picture()

    def add_picture(self):
        draw(self.pictures / f"p{self.drawn:05}.ppm")
        self.drawn += 1

    def any_picture(self):
        return chance.choice(sorted(self.pictures.iterdir()))

    def options(self):
        focus = ["--focus", self.focus] if self.focus else []
        return ["in", "--ratio", self.ratio, "--preset", self.preset, *focus, "-o", "out/{stem}.png", "-q"]

    def run(self, *options, folder=None, timeout=None):
        try:
            return subprocess.run([vxroi, "batch", *self.options(), *options], cwd=folder or self.folder,
                                  timeout=timeout, stdout=subprocess.PIPE, check=False)
        except subprocess.TimeoutExpired:  # killed
            return None

    # What an operator does, or what befalls a machine.

    def change_ratio(self):
        self.ratio = chance.choice([ratio for ratio in ("1:1", "2:1", "3:4") if ratio != self.ratio])

    def change_preset(self):
        self.preset = chance.choice(["photo", "library"])

    def change_focus(self):
        self.focus = chance.choice(["", "0.2,0.8"])

    def delete_outputs(self):
        for output in chance.sample(sorted((self.folder / "out").glob("*")), 3):
            output.unlink()

    def add_pictures(self):
        for _ in range(3):
            self.add_picture()

    def remove_pictures(self):
        for _ in range(3):
            self.any_picture().unlink()

    def change_pictures(self):
        for _ in range(3):
            draw(self.any_picture())

    def damage_pictures(self):
        self.any_picture().write_bytes(b"P6 48 36 255\n")

    def damage_the_end(self):
        if not self.records.exists():
            return
        whole = self.records.read_bytes()
        end = chance.randint(min(self.safe, len(whole)), len(whole))
        self.records.write_bytes(whole[:end] + bytes(chance.choice([0, 0, 700])))

    def nothing(self):
        pass

    def befall(self):
        some_outputs = (self.folder / "out").is_dir() and len(list((self.folder / "out").iterdir())) > 3
        chance.choice([
            self.change_ratio, self.change_preset, self.change_focus, self.add_pictures, self.remove_pictures,
            self.change_pictures, self.damage_pictures, self.damage_the_end, self.nothing,
            self.delete_outputs if some_outputs else self.nothing])()


def outputs_named_in(folder, records):
    paths = [crop["output"]["path"] for line in records.splitlines() for crop in json.loads(line).get("crops", [])]
    return {path: (folder / path).read_bytes() for path in paths}


with tempfile.TemporaryDirectory() as name:
    batch = Batch(pathlib.Path(name))
    begin = time.monotonic()
    batch.run()
    seconds = time.monotonic() - begin
    shutil.rmtree(batch.folder / "out")

    killed = finished = 0
    while killed < KILLS:
        if batch.run("--resume", "records", timeout=seconds * chance.uniform(0.02, 0.3)) is None:
            killed += 1
            batch.befall()
        else:
            finished += 1
            batch.safe = batch.records.stat().st_size
            batch.change_ratio()
        assert finished < 10 * KILLS, "runs end too early to be killed"
    last = batch.run("--resume", "records")
    assert last.returncode in (0, 1), last.returncode

    undisturbed = batch.folder / "undisturbed"
    undisturbed.mkdir()
    (undisturbed / "in").symlink_to("../in")
    expected = batch.run(folder=undisturbed)
    records = batch.records.read_bytes()
    for ours, theirs in zip(records.splitlines(), expected.stdout.splitlines()):
        assert ours == theirs, f"{ours}\nis not\n{theirs}"
    assert records == expected.stdout
    assert last.returncode == expected.returncode
    ours = outputs_named_in(batch.folder, records)
    assert len(ours) > count / 2
    assert ours == outputs_named_in(undisturbed, expected.stdout)
    left = batch.folder / "records.outputs"
    for path in left.read_bytes().split(b"\0")[:-1] if left.exists() else []:
        assert path[1:].decode() not in ours, f"{path} has a record and is left"
        assert (batch.folder / path[1:].decode()).exists(), f"{path} is left and is not there"
    assert not list((batch.folder / "out").glob(".*")), "drafts are left"
    print(f"{count} pictures, killed {killed} times, {len(ours)} outputs: as undisturbed")
