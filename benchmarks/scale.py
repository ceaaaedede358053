"""How many large JPEGs a core processes in an hour."""

import statistics

from workbench import copies, core_seconds


def rounded(figure):
    """As many digits as a measurement is worth."""
    return f"{float(f'{figure:.3g}'):,g}"


def per_core_hour(bench, folder, *options):
    """How many of the pictures in a folder a core processes in an hour."""
    count = len(list(folder.iterdir()))
    return 3600 * count / statistics.median(
        core_seconds(bench.vxroi, "batch", "-q", "-j1", folder, "--if-exists", "overwrite", *options)
        for _ in range(bench.runs))


def print_scale(bench):
    """Prints the table of docs/scale.md."""
    print("| JPEG | work | pictures per core-hour | read by a core | 10 million on 16 cores |")
    print("|---|---|---:|---:|---:|")
    scene = bench.draw_scene()
    for width, height in ((4000, 3000), (6000, 4000)):
        picture = bench.draw_tiled_jpeg(scene, width, height)
        megabytes_each = picture.stat().st_size / 1e6
        folder = copies(picture, 2 if bench.is_quick else 12)
        for work, *options in (("decision only", "--ratio", "1:1"),
                               ("to 480 × 480", "--size", bench.square, "-o", "small/{stem}.jpg"),
                               ("to a square of full size", "--ratio", "1:1", "-o", "full/{stem}.jpg")):
            figure = per_core_hour(bench, folder, *options)
            print(f"| {width * height / 1e6:g} megapixels, {megabytes_each:.1f} MB | {work} | {rounded(figure)} "
                  f"| {rounded(figure / 3600 * megabytes_each)} MB/s | {rounded(1e7 / 16 / figure)} hours |",
                  flush=True)
