#!/usr/bin/env python3
"""Draws the picture scripts, renders them with Poppler and compares them with the stored pictures.

Usage: run_pictures.py QSLRUN [--store]
A picture passes if the number of pixels that differ by more than a quarter of full scale stays below a bound of the
script. The bounds are measured: a curve that is moved by one pixel changes more. --store writes the references anew;
look at every picture that changed before committing it.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
RESOLUTION = 75
THRESHOLD = 64

BOUND = 150  # pixels that may differ: anti-aliasing of another version of the renderer


def pictures():
    """Scripts and the plot files that they write."""
    scripts = ["examples/first_plot.qsl", "examples/one_line.qsl"]
    scripts += sorted(str(path.relative_to(ROOT)) for path in (ROOT / "examples" / "gallery").glob("*.qsl"))
    return [(script, pathlib.Path(script).stem + ".pdf") for script in scripts]


def read_pnm(path):
    data = path.read_bytes()
    fields, at = [], 2
    while len(fields) < 3:
        while data[at:at + 1].isspace():
            at += 1
        end = at
        while not data[end:end + 1].isspace():
            end += 1
        fields.append(int(data[at:end]))
        at = end
    return fields[0], fields[1], data[at + 1:]


def render(program, script, plot, folder):
    environment = dict(os.environ, QSL_DATA=str(ROOT / "examples"), QUILLA=str(ROOT / "data"),
                       SOURCE_DATE_EPOCH="1700000000")
    subprocess.run([program, str(ROOT / script)], cwd=folder, env=environment, check=True, stdout=subprocess.DEVNULL)
    name = pathlib.Path(plot).stem
    subprocess.run(["pdftoppm", "-gray", "-r", str(RESOLUTION), "-singlefile", plot, name], cwd=folder, check=True)
    return folder / f"{name}.pgm"


def differing(a, b):
    width, height, pixels = read_pnm(a)
    width2, height2, pixels2 = read_pnm(b)
    if (width, height) != (width2, height2):
        return width * height
    return sum(1 for p, q in zip(pixels, pixels2) if abs(p - q) > THRESHOLD)


def pack(source, target):
    import zlib
    target.write_bytes(zlib.compress(source.read_bytes(), 9))


def unpack(source, target):
    import zlib
    target.write_bytes(zlib.decompress(source.read_bytes()))


def main():
    program = str(pathlib.Path(sys.argv[1]).resolve())
    store = "--store" in sys.argv
    passed = failed = 0
    for script, plot in pictures():
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            picture = render(program, script, plot, folder)
            stored = HERE / "stored" / (pathlib.Path(plot).stem + ".pgm.z")
            if store:
                stored.parent.mkdir(exist_ok=True)
                pack(picture, stored)
                continue
            unpack(stored, folder / "stored.pgm")
            count = differing(picture, folder / "stored.pgm")
            if count <= BOUND:
                passed += 1
            else:
                failed += 1
                print(f"{script}: {count} pixels differ, {BOUND} allowed")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
