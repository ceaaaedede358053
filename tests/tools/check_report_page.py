"""check_report_page.py VXROI SCENES: the page of vxroi report works in a browser, wide and narrow.

Exit code 77, a skipped test, when there is no Chromium.
"""

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

PROBE = """<script>
const order = document.getElementById("order");
order.value = "%s";
order.dispatchEvent(new Event("change"));
document.body.dataset.tooWide = document.documentElement.scrollWidth - window.innerWidth;
document.body.dataset.loaded = Array.from(document.images).filter(image => image.naturalWidth > 0).length;
</script></body>"""


def browse(folder, page, *arguments):
    return subprocess.run(
        [browser, "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
         f"--user-data-dir={folder}/profile", *arguments, page.as_uri()],
        check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=120).stdout.decode()


with tempfile.TemporaryDirectory() as name:
    folder = pathlib.Path(name)
    (folder / "in").mkdir()
    subprocess.run([scenes, folder / "in"], check=True, stdout=subprocess.DEVNULL)
    (folder / "in/a-broken.png").write_text("no picture")
    subprocess.run([vxroi, "report", "in", "--ratio", "1:1,9:16", "-o", "report.html"], cwd=folder,
                   stderr=subprocess.DEVNULL, check=False)
    html = (folder / "report.html").read_text(encoding="utf-8")
    pictures = html.count("<img ")
    for key, descending in (("offset", True), ("gain", True), ("position", False)):
        for width in (1200, 500):
            probed = folder / "probed.html"
            probed.write_text(html.replace("</body>", PROBE % key), encoding="utf-8")
            dom = browse(folder, probed, f"--window-size={width},900", "--dump-dom")
            values = [float(value) for value in re.findall(rf'<article[^>]* data-{key}="([^"]+)"', dom)]
            assert len(values) == 4, values
            assert values == sorted(values, reverse=descending), (key, values)
            assert len(set(values)) > 2, f"{key} sorts nothing: {values}"
            too_wide = int(re.search(r'data-too-wide="(-?\d+)"', dom).group(1))
            assert too_wide <= 0, f"{too_wide} pixels too wide at {width}"
            assert f'data-loaded="{pictures}"' in dom, f"not all of {pictures} pictures are shown"
    shot = folder / "report.png"
    browse(folder, folder / "report.html", "--window-size=1200,1600", f"--screenshot={shot}")
    assert shot.stat().st_size > 100_000, "the screenshot is nearly blank"
print(f"{pictures} pictures shown and sorted")
