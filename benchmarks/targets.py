"""The targets for what the benchmark measured."""

import math

from measurements import LARGE, WORKING, pixels, ratio

# Targets in milliseconds and nanoseconds were set on a machine where the plain `analyze`, 640 × 480, takes 110 to
# 130 ms.
QUICKEST_PLAIN, SLOWEST_PLAIN = 110, 130

ANALYSIS, DECISION, CONTRAST = "VXSalienzMixer::analyze", "crop decision", "VXSalienzAchanta"


def at_most(work, figure, unit, target):
    return {"work": work, "measured": figure, "unit": unit, "at_most": target}


def at_least(work, figure, unit, target):
    return {"work": work, "measured": figure, "unit": unit, "at_least": target}


def of_analysis(measured):
    fast, plain = measured.median(ANALYSIS), measured.median(ANALYSIS, way="plain")
    yield at_least("`analyze`, 640 × 480: speed-up over the plain reference", ratio(plain, fast), "×", 45)
    yield at_most("`analyze`, 640 × 480: time per pixel", fast and fast * 1e6 / pixels(WORKING), "ns", 8.5)
    yield at_most("`analyze`, 640 × 480, picture after picture in a process that does nothing else: time to that here",
                  ratio(measured.median("host"), fast), "×", 1.3)
    yield at_most("`analyze` of 24 megapixels, unscaled: memory besides the picture, per pixel",
                  measured.median_memory(LARGE), "B", 40)
    # The time of an iteration of two threads is that of both, side by side, halved.
    yield at_least("`analyze`, 640 × 480, two threads with a mixer each: pixels to those of one thread",
                   ratio(measured.median("threads"), measured.median("threads", threads=2)), "×", 1.9)


def of_crops(measured):
    plain = measured.median(ANALYSIS, way="plain")
    for size, shown, target in ((WORKING, "640 × 480", 2.6), (LARGE, "6000 × 4000 scaled to 640 × 427", 3.5)):
        time = measured.median(DECISION, size)
        yield at_most(f"crop decision, {shown}: time", time, "ms", target)
        yield at_least(f"crop decision, {shown}: speed-up over the plain `analyze`, 640 × 480",
                       ratio(plain, time), "×", math.ceil(SLOWEST_PLAIN / target))
    yield at_most("`VXBackgroundROI`, 640 × 480: time", measured.median("VXBackgroundROI"), "ms", 0.8)
    yield at_most("`VXCrop` of 24 megapixels, analysis and choice: time", measured.median("VXCrop", LARGE), "ms", 2.5)
    yield at_most("`vxroi crop` of a grainy JPEG of 24 megapixels, whole process: time to that of the scaled decoding "
                  "alone", ratio(measured.median("process", LARGE), measured.median("process", LARGE, "plain")),
                  "×", 1.1)


def of_filters(measured):
    yield at_most("surround contrast with its filter: time per pixel of 24 megapixels to that of 0.3",
                  ratio((measured.median(CONTRAST, LARGE) or 0) / pixels(LARGE),
                        (measured.median(CONTRAST) or 0) / pixels(WORKING)), "×", 2)
    for size, shown in ((WORKING, "640 × 480"), ("1920x1280", "1920 × 1280")):
        def time(arm, picture):
            return measured.median(f"VXMaxFilter with arms of {arm}", size, picture=picture)

        yield at_most(f"maximum filter, {shown}: time with arms of 1000 to that with arms of 3",
                      ratio(time(1000, "bright"), time(3, "bright")), "×", 2)
        yield at_most(f"maximum filter, {shown}: time for a bright picture to that for a dark one",
                      ratio(time(45, "bright"), time(45, "dark")), "×", 2)


def targets(measured):
    """What is measured, the figure or None, its unit and its target."""
    return [*of_analysis(measured), *of_crops(measured), *of_filters(measured)]
