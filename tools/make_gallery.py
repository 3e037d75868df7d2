#!/usr/bin/env python3
"""Draws the scripts of examples/gallery, renders their PDF files and writes docs/gallery with a page that shows them.

Usage: tools/make_gallery.py [PROGRAM]
Needs pdftoppm (Debian: poppler-utils).
"""
import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
EXAMPLES = ROOT / "examples"
TARGET = ROOT / "docs" / "gallery"
RESOLUTION = 60


def first_comment(script):
    words = []
    for line in script.read_text().splitlines()[1:]:
        if not line.startswith("//"):
            break
        words.append(line[2:].strip())
    return " ".join(words)


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else str(ROOT / "build" / "release" / "QSLRUN")
    program = str(pathlib.Path(program).resolve())
    TARGET.mkdir(parents=True, exist_ok=True)
    page = ["# Gallery", "", "Made by tools/make_gallery.py from the scripts in examples/gallery.", ""]
    environment = dict(os.environ, QSL_DATA=str(EXAMPLES), QUILLA=str(ROOT / "data"), SOURCE_DATE_EPOCH="1700000000")
    for script in sorted((EXAMPLES / "gallery").glob("*.qsl")):
        name = script.stem
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([program, str(script)], cwd=folder, env=environment, check=True, stdout=subprocess.DEVNULL)
            subprocess.run(["pdftoppm", "-png", "-r", str(RESOLUTION), "-singlefile", f"{name}.pdf", str(TARGET / name)],
                           cwd=folder, check=True)
        page += [f"## {name}", "", first_comment(script), "", f"![{name}]({name}.png) [script](../../examples/gallery/{name}.qsl)",
                 ""]
    (TARGET / "README.md").write_text("\n".join(page))


if __name__ == "__main__":
    main()
