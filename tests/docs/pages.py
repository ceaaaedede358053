"""The project's pages and their contents."""

import pathlib
import re
import subprocess


def pages(root):
    """Every page of the project, as pairs of path and text."""
    root = pathlib.Path(root)
    for path in sorted([*root.glob("*.md"), *root.glob("docs/**/*.md"), *root.glob("packaging/*.md")]):
        yield path, path.read_text(encoding="utf-8")


def recipes(root):
    """The pages of the recipes, likewise; scripts/prove-cluster runs the commands that they show."""
    for path in sorted(pathlib.Path(root).glob("contrib/**/*.md")):
        yield path, path.read_text(encoding="utf-8")


def blocks(text, language):
    """The code blocks of one language in a page's text."""
    return re.findall(rf"^```{language}\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


def draw_photo(scenes_program, folder):
    """Puts photo.jpg, the picture that the pages use, and photos/, a folder of pictures, into a folder."""
    folder = pathlib.Path(folder)
    (folder / "photos").mkdir()
    subprocess.run([scenes_program, folder / "photos"], check=True, stdout=subprocess.DEVNULL)
    # The content decides the format, so a PNG serves.
    (folder / "photo.jpg").write_bytes((folder / "photos/balloon.png").read_bytes())
