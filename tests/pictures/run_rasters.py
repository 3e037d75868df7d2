#!/usr/bin/env python3
"""Draws picture scripts on the raster: pixel for pixel as stored, and beside the PDF of the same script.

Usage: run_rasters.py QSLRUN [--store] [name-part]
The stored pictures have 853 by 603 pixels of a palette; nothing but the program itself decides them, so that each
pixel must agree. Beside the PDF stand true colours of 2400 by 1700: of every place of either picture the other must
have the like within a few pixels, but for so many as the bound of the script tells. --store writes the stored pictures
anew; look at every one that changed before committing it.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path.insert(0, str(HERE.parent / "files"))

from file_case import Failure, check, command, Picture  # noqa: E402
from picture_cases import bordered, png, same_picture  # noqa: E402

# Scripts with a border around the page, and the places that may have no like in the PDF: thin lines pale where a
# renderer smooths them, and between lines of a dense hatch the narrower ones of the raster leave more room. None: only
# the stored picture.
SCRIPTS = (("first_plot", 100), ("gallery/bars_stacked", 700), ("gallery/curve_modes", None), ("gallery/fonts", 200),
           ("gallery/line_types", None), ("gallery/patterns", None), ("gallery/pie_crust", 100), ("gallery/shields", None),
           ("gallery/symbols", 1000))  # 22 and 23 have shapes of their own on rasters


def draw(program, script, folder, name, head):
    """Runs a script with another device and with more statements in front."""
    text = (ROOT / "examples" / (script + ".qsl")).read_text()
    first, rest = text.split("\n", 1)
    rest = re.sub(r"METAFL\('\w+'\)|SETFIL\('[^']*'\)", "", rest)
    (folder / "plot.qsl").write_text("\n".join([first, *head, "SETFIL('%s')" % name, rest]))
    data = (ROOT / "examples" / "gallery" if script.startswith("gallery") else ROOT / "examples")
    environment = dict(os.environ, QSL_DATA=str(data), SOURCE_DATE_EPOCH="1700000000")
    text = subprocess.run([program, "plot.qsl"], cwd=folder, env=environment, check=True,
                          stdout=subprocess.PIPE).stdout.decode("latin-1")
    check("<<<< Warning" not in text, "the script warned: " + text)


def same_as_stored(program, script, folder, store):
    draw(program, script, folder, "small.png", ("METAFL('PNG')", "SCRMOD('REVE')"))
    stored = HERE / "rasters" / (pathlib.Path(script).name + ".png")
    if store:
        stored.parent.mkdir(exist_ok=True)
        stored.write_bytes((folder / "small.png").read_bytes())
        return
    one, other = png(str(folder / "small.png")), png(str(stored))
    check((one.width, one.height) == (other.width, other.height), "another size")
    count = sum(1 for i in range(0, len(one.data), 3) if one.data[i:i + 3] != other.data[i:i + 3])
    check(count == 0, "%d pixels differ from the stored picture" % count)


def same_as_pdf(program, script, folder, bound):
    draw(program, script, folder, "large.png", ("METAFL('PNG')", "SCRMOD('REVE')", "IMGFMT('RGB')", "WINSIZ(2400,1700)"))
    draw(program, script, folder, "large.pdf", ("METAFL('PDF')",))
    command("pdftoppm", "-r", "205.5", "-singlefile", "large.pdf", "pdf", directory=folder)
    same_picture(bordered(Picture(str(folder / "pdf.ppm"))), bordered(png(str(folder / "large.png"))), radius=3, bound=bound)


def main():
    words = [w for w in sys.argv[1:] if w != "--store"]
    program = str(pathlib.Path(words[0]).resolve())
    wanted = words[1] if len(words) > 1 else ""
    passed = failed = 0
    for script, bound in SCRIPTS:
        if wanted not in script:
            continue
        with tempfile.TemporaryDirectory() as name:
            try:
                same_as_stored(program, script, pathlib.Path(name), "--store" in sys.argv)
                if bound is not None:
                    same_as_pdf(program, script, pathlib.Path(name), bound)
                passed += 1
            except (Failure, OSError, subprocess.SubprocessError) as failure:
                failed += 1
                print(f"{script}: {failure}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
