"""report.py FOLDER NAME...: makes the pages about performance from what the benchmark measured.

Reads the benchmark's figures from FOLDER/NAME.json and writes performance.md, the page of targets,
performance-classes.md, the page of every class, and performance.json, which has both. Ends with exit code 1 if a
result differed from that of the plain reference.
"""

import collections
import json
import pathlib
import sys

from measurements import Measurements, pixels, ratio
from targets import ANALYSIS, QUICKEST_PLAIN, SLOWEST_PLAIN, targets

# Measured for the targets only.
NO_CLASSES = ("memory", "host", "threads", "process")


def classes(measured):
    """What was measured of each class, picture and size."""
    subjects = {(subject, picture, size) for subject, way, picture, size, _ in measured.times
                if way == "fast" and subject not in NO_CLASSES}
    for subject, picture, size in sorted(subjects, key=lambda key: (*key[:2], pixels(key[2]))):
        fast = measured.median(subject, size, picture=picture)
        plain = measured.median(subject, size, "plain", picture)
        yield {"class": subject, "picture": picture, "size": size, "milliseconds": fast,
               "plain_milliseconds": plain, "times_faster": ratio(plain, fast),
               "megapixels_per_second": pixels(size) / fast / 1000}


def digits(number):
    """Three significant digits, without an exponent."""
    if number >= 100:
        return f"{number:.0f}"
    return f"{number:.1f}" if number >= 10 else f"{number:.2f}" if number >= 1 else f"{number:.3f}"


def targets_page(tables):
    machine, plain = tables["machine"], tables["plain_analyze_milliseconds"]
    yield "# Performance"
    yield ""
    yield "What was measured, and its target. Made by `./scripts/benchmark`, which compares every result with that of the"
    yield f"plain reference before it times it; medians of {tables['runs_of_targets']} runs. Rows about files, which `benchmarks/peers`"
    yield "adds at the end, are of drawn scenes and whole processes with one thread; their ratios are medians of ratios"
    yield "measured in turn. Machines differ, and a shared one varies from minute to minute, so compare ratios."
    yield "[The performance of every class](performance-classes.md) has its own page."
    yield ""
    yield (f"Processor {machine['processor']}, loops for {machine['loops']}; {machine['compiler']}, {machine['build']}; "
           f"Qt {machine['qt']}.")
    if plain:
        yield f"The plain `analyze`, 640 × 480, took {plain:.0f} ms in this session; targets in milliseconds and nanoseconds"
        yield f"were set on a machine where it takes {QUICKEST_PLAIN} to {SLOWEST_PLAIN} ms."
    yield ""
    yield "| work | measured | target |"
    yield "|---|---:|---:|"
    for row in tables["targets"]:
        figure = f"{digits(row['measured'])} {row['unit']}" if row["measured"] else "not measured"
        target = f"at most {row['at_most']}" if "at_most" in row else f"at least {row['at_least']}"
        yield f"| {row['work']} | {figure} | {target} {row['unit']} |"


def cell(row):
    speed_up = row["times_faster"]
    return digits(row["milliseconds"]) + (f" ({speed_up:.0f} ×)" if speed_up else "")


def classes_page(tables):
    sizes = sorted({row["size"] for row in tables["classes"]}, key=pixels)
    lines = collections.defaultdict(lambda: dict.fromkeys(sizes, ""))
    for row in tables["classes"]:
        lines[row["class"], row["picture"]][row["size"]] = cell(row)
    yield "# Performance of every class"
    yield ""
    yield "Milliseconds; in brackets, how many times faster than the plain reference, which is not timed for the largest"
    yield f"pictures. Medians of {tables['runs_of_classes']} runs or more, on the machine and with the caveats of"
    yield "[performance](performance.md). `./scripts/benchmark` leaves the same figures in `out/performance.json`, with the"
    yield "megapixels per second."
    yield ""
    yield "| class | picture | " + " | ".join(sizes) + " |"
    yield "|---|---|" + "---:|" * len(sizes)
    for (subject, picture), cells in lines.items():
        yield f"| {subject} | {picture} | " + " | ".join(cells.values()) + " |"


def main(folder, names):
    measured = Measurements(folder / f"{name}.json" for name in names)
    tables = {
        "machine": {key: measured.context[key] for key in ("processor", "loops", "compiler", "build", "qt")},
        "runs_of_targets": max(measured.run_counts()),
        "runs_of_classes": min(measured.run_counts()),
        "plain_analyze_milliseconds": measured.median(ANALYSIS, way="plain"),
        "targets": targets(measured),
        "classes": list(classes(measured)),
    }
    for name, text in (("performance.json", json.dumps(tables, indent=2)),
                       ("performance.md", "\n".join(targets_page(tables))),
                       ("performance-classes.md", "\n".join(classes_page(tables)))):
        (folder / name).write_text(text + "\n", encoding="utf-8")


main(pathlib.Path(sys.argv[1]), sys.argv[2:])
