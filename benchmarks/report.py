"""report.py FOLDER NAME...: makes the tables about performance of what the benchmark measured.

Reads the benchmark's figures from FOLDER/NAME.json and writes performance.json, the tables, and
performance.md, the page that shows them. Ends with exit code 1 when a result was not the plain one.
"""

import collections
import json
import math
import pathlib
import statistics
import sys

folder = pathlib.Path(sys.argv[1])

times = collections.defaultdict(list)  # milliseconds by (subject, way, picture, size, threads)
counters = collections.defaultdict(list)
for name in sys.argv[2:]:
    results = json.loads((folder / f"{name}.json").read_text(encoding="utf-8"))
    context = results["context"]
    for run in results["benchmarks"]:
        if run.get("error_occurred"):
            sys.exit(f"report: {run['name']}: {run['error_message']}")
        if run["run_type"] != "iteration":
            continue
        subject, way, picture, size = run["run_name"].split("/")[:4]
        key = subject, way, picture, size, run["threads"]
        times[key].append(run["real_time"])
        if "bytes_per_pixel" in run:
            counters[key].append(run["bytes_per_pixel"])


def median(subject, way, picture, size, threads=1):
    """The median time in milliseconds, or None when it was not measured."""
    runs = times.get((subject, way, picture, size, threads))
    return statistics.median(runs) if runs else None


def pixels(size):
    width, height = size.split("x")
    return int(width) * int(height)


def ratio(dividend, divisor):
    return dividend / divisor if dividend and divisor else None


# Bars in milliseconds and nanoseconds were set on a machine where the plain way of `analyze`, 640 × 480,
# takes 110 to 130 ms.
quickest_plain, slowest_plain = 110, 130


def bars():
    """Rows of the first table: what, figure or None, unit, bar, whether less is better."""
    analysis = "VXSalienzMixer::analyze"
    working, large = "640x480", "6000x4000"
    fast = median(analysis, "fast", "photo", working)
    literal = median(analysis, "plain", "photo", working)
    yield "`analyze`, 640 × 480: times faster than the plain way", ratio(literal, fast), "×", 45, False
    yield "`analyze`, 640 × 480: nanoseconds per pixel", (
        fast and fast * 1e6 / pixels(working)), "ns", 8.5, True
    for size, shown, bar in ((working, "640 × 480", 2.6), (large, "6000 × 4000 scaled to 640 × 427", 3.5)):
        decision = median("crop decision", "fast", "photo", size)
        yield f"crop decision, {shown}", decision, "ms", bar, True
        yield f"crop decision, {shown}: times faster than the plain way of `analyze`, 640 × 480", ratio(
            literal, decision), "×", math.ceil(slowest_plain / bar), False
    yield "`VXBackgroundROI`, 640 × 480", median("VXBackgroundROI", "fast", "photo", working), "ms", 0.8, True
    yield "a picture of 24 megapixels analysed and a window chosen by `VXCrop`", median(
        "VXCrop", "fast", "photo", large), "ms", 2.5, True
    contrast = "VXSalienzAchanta"
    yield "surround contrast with its filter, per pixel: 24 megapixels to 0.3", ratio(
        (median(contrast, "fast", "photo", large) or 0) / pixels(large),
        (median(contrast, "fast", "photo", working) or 0) / pixels(working)), "×", 2, True
    for size, shown in ((working, "640 × 480"), ("1920x1280", "1920 × 1280")):
        short, middle, long = (f"VXMaxFilter with arms of {arm}" for arm in (3, 45, 1000))
        yield f"maximum filter, {shown}: arms of 1000 to arms of 3", ratio(
            median(long, "fast", "bright", size), median(short, "fast", "bright", size)), "×", 2, True
        yield f"maximum filter, {shown}: all bright to all dark", ratio(
            median(middle, "fast", "bright", size), median(middle, "fast", "dark", size)), "×", 2, True
    peak = counters.get(("memory", "fast", "photo", large, 1))
    yield "`analyze` of 24 megapixels unscaled: memory beside the picture, bytes per pixel", (
        peak and statistics.median(peak)), "B", 40, True
    yield "`analyze`, 640 × 480, picture after picture in a process that does nothing else: to that here", ratio(
        median("host", "fast", "photo", working), fast), "×", 1.3, True
    yield "`vxroi crop`, from a grainy JPEG of 24 megapixels to its window, whole process: to the scaled decoding alone", ratio(
        median("process", "fast", "photo", large), median("process", "plain", "photo", large)), "×", 1.1, True
    alone, together = (median("threads", "fast", "photo", working, count) for count in (1, 2))
    # The time of an iteration of two threads is that of both, side by side, halved.
    yield "two threads, a mixer each: times the pixels of one", ratio(alone, together), "×", 1.9, False


def classes():
    """What was measured of each class, picture and size."""
    measured = {(subject, picture, size) for subject, way, picture, size, _ in times
                if way == "fast" and subject not in ("memory", "host", "threads", "process")}
    for subject, picture, size in sorted(measured, key=lambda key: (*key[:2], pixels(key[2]))):
        fast = median(subject, "fast", picture, size)
        plain = median(subject, "plain", picture, size)
        yield {"class": subject, "picture": picture, "size": size, "milliseconds": fast,
               "plain_milliseconds": plain, "times_faster": ratio(plain, fast),
               "megapixels_per_second": pixels(size) / fast / 1000}


tables = {
    "machine": {key: context[key] for key in ("processor", "loops", "compiler", "build", "qt")},
    "plain_analyze_milliseconds": median("VXSalienzMixer::analyze", "plain", "photo", "640x480"),
    "asked_for": [
        {"work": work, "measured": figure, "unit": unit, "at_most" if less else "at_least": bar}
        for work, figure, unit, bar, less in bars()],
    "classes": list(classes()),
}


def digits(number):
    """Three significant digits, without an exponent."""
    if number >= 100:
        return f"{number:.0f}"
    return f"{number:.1f}" if number >= 10 else f"{number:.2f}" if number >= 1 else f"{number:.3f}"


def milliseconds_cell(row):
    speedup = row["times_faster"]
    return digits(row["milliseconds"]) + (f" ({speedup:.0f} ×)" if speedup else "")


def megapixels_cell(row):
    return digits(row["megapixels_per_second"])


def class_table(cell):
    """Lines of a table with a column for each size."""
    sizes = sorted({row["size"] for row in tables["classes"]}, key=pixels)
    lines = collections.defaultdict(lambda: dict.fromkeys(sizes, ""))
    for row in tables["classes"]:
        lines[row["class"], row["picture"]][row["size"]] = cell(row)
    yield "| class | picture | " + " | ".join(sizes) + " |"
    yield "|---|---|" + "---:|" * len(sizes)
    for (subject, picture), cells in lines.items():
        yield f"| {subject} | {picture} | " + " | ".join(cells.values()) + " |"


def asked_for_table():
    yield "| work | measured | asked for |"
    yield "|---|---:|---:|"
    for row in tables["asked_for"]:
        measured = f"{digits(row['measured'])} {row['unit']}" if row["measured"] else "not measured"
        bar = f"at most {row['at_most']}" if "at_most" in row else f"at least {row['at_least']}"
        yield f"| {row['work']} | {measured} | {bar} {row['unit']} |"


def page():
    counts = list(map(len, times.values()))
    machine = tables["machine"]
    yield "# Performance"
    yield ""
    yield "Made by `./scripts/benchmark`, which verifies every result against the plain reference before it"
    yield f"times it. Medians of {min(counts)} runs, of {max(counts)} for what the first table quotes, which is measured first"
    yield "and by itself. Machines differ, and so do minutes on a shared one: compare ratios. The same figures as"
    yield "JSON are left in `out/performance.json`."
    yield ""
    yield f"Processor {machine['processor']}, loops for {machine['loops']}; {machine['compiler']}, {machine['build']}; Qt {machine['qt']}."
    yield ""
    yield "## What it is to show"
    yield ""
    yield from asked_for_table()
    literal = tables["plain_analyze_milliseconds"]
    if literal:
        yield ""
        yield f"`analyze`, 640 × 480, the plain way took {literal:.0f} ms in this session. What is asked for in"
        yield f"milliseconds and nanoseconds was set on a machine where that takes {quickest_plain} to {slowest_plain} ms."
    yield ""
    yield "## Every class beside its plain reference"
    yield ""
    yield "Milliseconds; in brackets how many times faster than the plain way."
    yield ""
    yield from class_table(milliseconds_cell)
    yield ""
    yield "## Megapixels per second"
    yield ""
    yield from class_table(megapixels_cell)


(folder / "performance.json").write_text(json.dumps(tables, indent=2) + "\n", encoding="utf-8")
(folder / "performance.md").write_text("\n".join(page()) + "\n", encoding="utf-8")
