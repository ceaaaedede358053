"""What the comparisons of files need: the programs of a build, pictures of given sizes, and clocks."""

import os
import pathlib
import resource
import shutil
import statistics
import struct
import subprocess
import time
import zlib


def quietly(*command):
    """Runs a command that must not fail."""
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def seconds(*command):
    """How long a command takes."""
    start = time.perf_counter()
    quietly(*command)
    return time.perf_counter() - start


def core_seconds(*command):
    """How long a core works for a command, whatever else the machine does."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    quietly(*command)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def megabytes(*command):
    """The most memory that a command takes."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    assert status == 0, command
    return usage.ru_maxrss / 1024


def copies(picture, count):
    """A folder of as many files with the same content."""
    folder = pathlib.Path(f"{picture.stem}-{count}")
    folder.mkdir()
    for i in range(count):
        shutil.copy(picture, folder / f"{i}.jpg")
    return folder


def draw_deep_png(path, side):
    """Writes a PNG of 16 bits per channel, row by row."""
    def chunk(file, kind, content):
        file.write(struct.pack(">I", len(content)) + kind + content
                   + struct.pack(">I", zlib.crc32(kind + content)))

    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        chunk(file, b"IHDR", struct.pack(">IIBBBBB", side, side, 16, 2, 0, 0, 0))
        packer = zlib.compressobj(1)
        for y in range(side):
            chunk(file, b"IDAT", packer.compress(b"\0" + struct.pack(">HHH", y, 2 * y, 65535 - y) * side))
        chunk(file, b"IDAT", packer.flush())
        chunk(file, b"IEND", b"")


class Workbench:
    """A build's programs, and how thoroughly they are measured."""

    def __init__(self, build, is_quick):
        self.vxroi = str((build / "tools/vxroi/vxroi").resolve())
        self.decode = str((build / "benchmarks/scaled-decode").resolve())
        self.scenes = str((build / "tools/scenes/vxroi-scenes").resolve())
        self.is_quick = is_quick
        self.runs = 1 if is_quick else 7
        self.divisor = 10 if is_quick else 1  # of the sides of pictures
        self.square = "40x40" if is_quick else "480x480"

    def median_ratio(self, one, other):
        """The median of the ratios of two measurements, made in turn."""
        return statistics.median(one() / other() for _ in range(self.runs))

    def draw_scene(self):
        """The first of the sample scenes."""
        printed = subprocess.run([self.scenes, "."], check=True, stdout=subprocess.PIPE, text=True).stdout
        return pathlib.Path(printed.split()[0])

    def draw_jpeg(self, picture, name, width, height):
        """A JPEG of that size, divided in a quick run, cropped from the picture."""
        path = pathlib.Path(name)
        size = f"{width // self.divisor}x{height // self.divisor}"
        quietly(self.vxroi, "crop", picture, "--size", size, "--upscale", "--chroma", "420", "-o", path)
        return path

    def draw_tiled_jpeg(self, picture, width, height):
        """The same, but with the picture side by side, so that its details are those of a photograph."""
        quietly(self.vxroi, "crop", picture, "--size", "1200x800", "-o", "tile.ppm", "--if-exists", "overwrite")
        header, pixels = pathlib.Path("tile.ppm").read_bytes().split(b"\n255\n", 1)
        assert header == b"P6\n1200 800", header
        width, height = width // self.divisor, height // self.divisor
        rows = [(pixels[start:start + 3600] * 5)[:3 * width] for start in range(0, len(pixels), 3600)]
        with open("tiled.ppm", "wb") as file:
            file.write(b"P6\n%d %d\n255\n" % (width, height))
            for y in range(height):
                file.write(rows[y % 800])
        path = pathlib.Path(f"{width}x{height}.jpg")
        quietly(self.vxroi, "crop", "tiled.ppm", "--size", f"{width}x{height}", "--chroma", "420", "-o", path)
        return path

    def batch(self, folder, *options, program=None):
        """The command that crops the pictures of a folder."""
        return (program or self.vxroi, "batch", "-q", str(folder), "-o", "out/{stem}.jpg",
                "--if-exists", "overwrite", *options)
