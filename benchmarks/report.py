"""report.py JSON: prints the page about performance that the benchmark's figures make.

Ends with exit code 1 when a result was not the plain one.
"""

import collections
import json
import math
import statistics
import sys

with open(sys.argv[1], encoding="utf-8") as file:
    results = json.load(file)
context = results["context"]

times = collections.defaultdict(list)  # milliseconds by (subject, way, picture, size, threads)
counters = collections.defaultdict(list)
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


def digits(number):
    """Three significant digits, without an exponent."""
    if number >= 100:
        return f"{number:.0f}"
    return f"{number:.1f}" if number >= 10 else f"{number:.2f}" if number >= 1 else f"{number:.3f}"


def ratio(dividend, divisor):
    return dividend / divisor if dividend and divisor else None


# Bars in milliseconds and nanoseconds were set on a machine where the plain way of `analyze`, 640 × 480,
# takes 110 to 130 ms.
slowest_plain = 130


def bars():
    """Rows of the first table: what, figure or None, unit, bar, whether less is better."""
    analysis = "VXSalienzMixer::analyze"
    working, large = "640x480", "6000x4000"
    fast = median(analysis, "fast", "photo", working)
    yield "`analyze`, 640 × 480: times faster than the plain way", ratio(
        median(analysis, "plain", "photo", working), fast), "×", 45, False
    yield "`analyze`, 640 × 480: nanoseconds per pixel", (
        fast and fast * 1e6 / pixels(working)), "ns", 8.5, True
    literal = median(analysis, "plain", "photo", working)
    for size, shown, bar in ((working, "640 × 480", 2.6), (large, "6000 × 4000 scaled to 640 × 427", 3.5)):
        decision = median("crop decision", "fast", "photo", size)
        yield f"crop decision, {shown}", decision, "ms", bar, True
        yield f"crop decision, {shown}: times faster than the plain way of `analyze`, 640 × 480", ratio(
            literal, decision), "×", math.ceil(slowest_plain / bar), False
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
    yield "`vxroi crop`, from a grainy JPEG of 24 megapixels to its window, whole process: to the scaled decoding alone", ratio(
        median("process", "fast", "photo", large), median("process", "plain", "photo", large)), "×", 1.1, True
    alone, together = (median("threads", "fast", "photo", working, count) for count in (1, 2))
    # The time of an iteration of two threads is that of both, side by side, halved.
    yield "two threads, a mixer each: times the pixels of one", ratio(alone, together), "×", 1.9, False


print("# Performance")
print()
print("Made by `./scripts/benchmark`, which verifies every result against the plain reference before it")
counts = list(map(len, times.values()))
print(f"times it. Medians of {min(counts)} runs in one session, of {max(counts)} for photos of the sizes that the first table")
print("quotes. Machines differ, and so do minutes on a shared one: compare ratios.")
print()
print(f"Processor {context['processor']}, loops for {context['loops']}; {context['compiler']}, "
      f"{context['build']}; Qt {context['qt']}.")
print()
print("## What it is to show")
print()
print("| work | measured | asked for |")
print("|---|---:|---:|")
for what, figure, unit, bar, less in bars():
    measured = f"{digits(figure)} {unit}" if figure else "not measured"
    print(f"| {what} | {measured} | {'at most' if less else 'at least'} {bar} {unit} |")

literal = median("VXSalienzMixer::analyze", "plain", "photo", "640x480")
if literal:
    print()
    print(f"`analyze`, 640 × 480, the plain way took {literal:.0f} ms in this session. What is asked for in")
    print(f"milliseconds and nanoseconds was set on a machine where that takes 110 to {slowest_plain} ms.")

print()
print("## Every class beside its plain reference")
print()
print("Milliseconds; in brackets how many times faster than the plain way.")
print()
size_names = sorted({key[3] for key in times}, key=pixels)
print("| class | picture | " + " | ".join(size_names) + " |")
print("|---|---|" + "---:|" * len(size_names))
seen = []
for subject, _, picture, _, _ in times:
    if (subject, picture) not in seen and subject not in ("memory", "threads", "process"):
        seen.append((subject, picture))
for subject, picture in sorted(seen):
    cells = []
    for size in size_names:
        fast = median(subject, "fast", picture, size)
        speedup = ratio(median(subject, "plain", picture, size), fast)
        cell = digits(fast) if fast else ""
        cells.append(f"{cell} ({speedup:.0f} ×)" if speedup else cell)
    print(f"| {subject} | {picture} | " + " | ".join(cells) + " |")

print()
print("## Megapixels per second")
print()
print("| class | picture | " + " | ".join(size_names) + " |")
print("|---|---|" + "---:|" * len(size_names))
for subject, picture in sorted(seen):
    cells = []
    for size in size_names:
        fast = median(subject, "fast", picture, size)
        cells.append(digits(pixels(size) / fast / 1000) if fast else "")
    print(f"| {subject} | {picture} | " + " | ".join(cells) + " |")
