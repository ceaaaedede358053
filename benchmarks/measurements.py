"""What the benchmark measured, read from the files that it wrote."""

import collections
import json
import statistics

WORKING, LARGE = "640x480", "6000x4000"


def pixels(size):
    """How many pixels a size such as 640x480 has."""
    width, height = size.split("x")
    return int(width) * int(height)


def ratio(dividend, divisor):
    """None unless both were measured."""
    return dividend / divisor if dividend and divisor else None


class Measurements:
    """Times in milliseconds and memory in bytes per pixel, each measured several times."""

    def __init__(self, paths):
        self.times = collections.defaultdict(list)  # by (subject, way, picture, size, threads)
        self.memory = collections.defaultdict(list)
        for path in paths:
            results = json.loads(path.read_text(encoding="utf-8"))
            self.context = results["context"]
            for run in results["benchmarks"]:
                self.add(run)

    def add(self, run):
        if run.get("error_occurred"):
            raise SystemExit(f"report: {run['name']}: {run['error_message']}")
        if run["run_type"] != "iteration":
            return
        key = (*run["run_name"].split("/")[:4], run["threads"])
        self.times[key].append(run["real_time"])
        if "bytes_per_pixel" in run:
            self.memory[key].append(run["bytes_per_pixel"])

    def median(self, subject, size=WORKING, way="fast", picture="photo", threads=1):
        """The median time in milliseconds, or None if it was not measured."""
        runs = self.times.get((subject, way, picture, size, threads))
        return statistics.median(runs) if runs else None

    def median_memory(self, size):
        """The median of the most bytes per pixel, or None if they were not measured."""
        runs = self.memory.get(("memory", "fast", "photo", size, 1))
        return statistics.median(runs) if runs else None

    def run_counts(self):
        """How often the subjects were measured."""
        return [len(runs) for runs in self.times.values()]
