"""check_report_page.py VXROI SCENES: the page of vxroi report works in a browser, wide and narrow.

Exit code 77, a skipped test, when there is no Chromium.
"""

import html
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

vxroi, scenes = sys.argv[1:]
browser = next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))), None)
if browser is None:
    print("skipped: there is no Chromium")
    sys.exit(77)

# Uses the page as a reader would, and sends what is seen to the page around it.
PROBE = """<script>
const all = selector => Array.from(document.querySelectorAll(selector));
const visibleHeat = () => all(".heat").filter(map => getComputedStyle(map).display !== "none").length;
const seen = {width: innerWidth, orders: {}, heat: [visibleHeat()]};

const order = document.getElementById("order");
for (const key of ["offset", "gain", "position"]) {
    order.value = key;
    order.dispatchEvent(new Event("change"));
    seen.orders[key] = all("article").map(article => Number(article.dataset[key]));
}
const control = all(".heat-control")[0];
control.focus();
seen.takesFocus = document.activeElement === control;
for (const box of [control, control, document.getElementById("all-heat")]) {
    box.click();
    seen.heat.push(visibleHeat());
}
const isOutside = box => box.width === 0 || box.left < 0 || box.right > innerWidth;
seen.tooWide = document.documentElement.scrollWidth - innerWidth;
seen.cells = all("td").length;
seen.hiddenCells = all("td").filter(cell => isOutside(cell.getBoundingClientRect())).length;
seen.lines = all("article:nth-child(2) rect.line").map(line => {
    const style = getComputedStyle(line);
    return [style.stroke, style.strokeDasharray];
});
const sources = all("image").map(image => image.getAttribute("href"));
seen.pictures = sources.length;
Promise.all(sources.map(source => {
    const image = new Image();
    image.src = source;
    return image.decode();
})).then(() => { seen.areDecoded = true; }).finally(() => parent.postMessage(seen, "*"));
</script></body>"""

# No window of the browser is as narrow as a telephone.
FRAME = """<!DOCTYPE html><body><iframe src="probed.html" width="%d" height="900"></iframe><script>
addEventListener("message", event => { document.body.dataset.seen = JSON.stringify(event.data); });
</script></body>"""


def browse(folder, page, *arguments):
    return subprocess.run(
        [browser, "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
         f"--user-data-dir={folder}/profile", *arguments, page.as_uri()],
        check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=120).stdout.decode()


def look(folder, width):
    frame = folder / "frame.html"
    frame.write_text(FRAME % width, encoding="utf-8")
    for attempt in range(5):  # on a busy machine the browser may be asked before the page has answered
        dom = browse(folder, frame, "--dump-dom", f"--virtual-time-budget={20000 << attempt}", "--window-size=1300,1000")
        seen = re.search(r'data-seen="([^"]*)"', dom)
        if seen:
            return json.loads(html.unescape(seen.group(1)))
    raise AssertionError("the page does not answer")


def check(seen, width):
    assert seen["width"] == width, seen["width"]
    for key, values in seen["orders"].items():
        assert len(values) == 4, values
        assert values == sorted(values, reverse=key != "position"), (key, values)
        assert len(set(values)) > 2, f"{key} sorts nothing: {values}"
    assert seen["takesFocus"], "the keyboard does not reach the control of the heat"
    assert seen["heat"] == [0, 1, 0, 3], seen["heat"]
    assert seen["tooWide"] <= 0, f"{seen['tooWide']} pixels too wide at {width}"
    assert seen["cells"] == 3 * 2 * 6, seen["cells"]
    assert seen["hiddenCells"] == 0, f"{seen['hiddenCells']} cells are hidden at {width}"
    (colour, dashes), (other_colour, other_dashes) = seen["lines"]
    assert colour != other_colour and dashes != other_dashes, seen["lines"]
    assert seen["pictures"] == 6 and seen.get("areDecoded"), f"of {seen['pictures']} pictures not all are shown"


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    (folder / "in").mkdir()
    subprocess.run([scenes, folder / "in"], check=True, stdout=subprocess.DEVNULL)
    (folder / "in/a-broken.png").write_text("no picture")
    subprocess.run([vxroi, "report", "in", "--ratio", "1:1,9:16", "-o", "report.html"], cwd=folder,
                   stderr=subprocess.DEVNULL, check=False)
    page = (folder / "report.html").read_text(encoding="utf-8")
    (folder / "probed.html").write_text(page.replace("</body>", PROBE), encoding="utf-8")
    for width in (1200, 400):
        check(look(folder, width), width)
    shot = folder / "report.png"
    browse(folder, folder / "report.html", "--window-size=1200,1600", f"--screenshot={shot}")
    assert shot.stat().st_size > 100_000, "the screenshot is nearly blank"
print("pictures shown, sorted and covered with heat, wide and narrow")
