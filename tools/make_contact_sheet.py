#!/usr/bin/env python3
"""Runs examples/formats.qsl, renders its files with the readers of the file tests and writes docs/formats.png.

Usage: tools/make_contact_sheet.py [PROGRAM]
"""
import glob
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "files"))
import picture_cases as reader  # noqa: E402
from file_case import Picture, Workplace  # noqa: E402

TILE_WIDTH, TILE_HEIGHT, GAP, COLUMNS = 426, 302, 8, 3
ORDER = ("pdf", "ps", "eps", "svg", "ipe", "hpg", "java", "met", "cgm", "wmf", "emf", "psc", "png", "gif", "tif",
         "bmp", "ppm")
RASTERS = {"png": "pngtopnm", "gif": "giftopnm", "tif": "tifftopnm", "bmp": "bmptopnm", "ppm": "ppmtoppm"}


def rendered(folder, *command):
    subprocess.run(command, cwd=folder, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def pages(folder, name):
    return reader.bordered(Picture(sorted(glob.glob(str(folder / (name + "*.ppm"))))[0]))


def upright(image):
    """A page that lies across its sheet."""
    data = bytearray()
    for y in range(image.width):
        for x in range(image.height):
            data += bytes(image.color(y, image.height - 1 - x))
    return reader.bordered(reader.Image(image.height, image.width, bytes(data)))


def picture_of(program, folder, kind):
    name = "quilla." + kind
    if kind in RASTERS:
        rendered(folder, "sh", "-c", "%s < %s > %s-out.ppm" % (RASTERS[kind], name, kind))
        return pages(folder, kind + "-out")
    if kind in ("ps", "eps", "psc"):
        rendered(folder, "gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=ppmraw", "-r120", "-sPAPERSIZE=a3",
                 "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-sOutputFile=%s-out.ppm" % kind, name)
        return upright(pages(folder, kind + "-out"))
    if kind == "svg":
        rendered(folder, "rsvg-convert", "-b", "white", "-z", "2", "-o", "svg.png", name)
    elif kind == "wmf":
        rendered(folder, "wmf2svg", "-o", "wmf.svg", name)
        rendered(folder, "rsvg-convert", "-b", "white", "-w", "1706", "-h", "1206", "-o", "wmf.png", "wmf.svg")
    elif kind == "hpg":
        rendered(folder, "hp2xx", "-q", "-m", "png", "-d", "150", "-w", "420", "-h", "300", "-c", "12347256", "-p",
                 "33333333", "-f", "hpg.png", name)
    if kind in ("svg", "wmf", "hpg"):
        return reader.bordered(reader.png(str(folder / (kind + ".png"))))
    if kind == "java":
        (folder / "Painter.java").write_text(reader.PAINTER)
        rendered(folder, "javac", "-nowarn", "quilla.java", "Painter.java")
        rendered(folder, "java", "-Djava.awt.headless=true", "Painter", "quilla")
        return pages(folder, "quilla")
    if kind in ("met", "cgm"):
        Workplace(program, str(folder)).plot("METAFL('PDF')", "SETFIL('%s.pdf')" % kind, None, "SETVLT('SMAL')",
                                             "FRAME(0)", "INCFIL('%s')" % name, "PAGERA()")
        name = kind + ".pdf"
    elif kind == "ipe":
        rendered(folder, "ipetoipe", "-pdf", name, "ipe.pdf")
        name = "ipe.pdf"
    elif kind == "emf":
        rendered(folder, "soffice", "-env:UserInstallation=file://%s/profile" % folder, "--headless", "--convert-to", "pdf",
                 "--outdir", "office", name)
        name = "office/quilla.pdf"
    rendered(folder, "pdftoppm", "-r", "150", name, kind + "-out")
    return pages(folder, kind + "-out")


def shrunk(image):
    """Rows of a tile: the mean of the pixels that fall on each of its own."""
    rows = []
    width, height = image.right - image.left + 1, image.bottom - image.top + 1
    for j in range(TILE_HEIGHT):
        y0 = image.top + j * height // TILE_HEIGHT
        y1 = max(y0 + 1, image.top + (j + 1) * height // TILE_HEIGHT)
        row = bytearray()
        for i in range(TILE_WIDTH):
            x0 = image.left + i * width // TILE_WIDTH
            x1 = max(x0 + 1, image.left + (i + 1) * width // TILE_WIDTH)
            seen = [image.color(x, y) for y in range(y0, y1) for x in range(x0, x1)]
            row += bytes(sum(c[k] for c in seen) // len(seen) for k in range(3))
        rows.append(bytes(row))
    return rows


def write_png(path, rows):
    def chunk(name, body):
        return struct.pack(">I", len(body)) + name + body + struct.pack(">I", zlib.crc32(name + body))

    head = struct.pack(">IIBBBBB", len(rows[0]) // 3, len(rows), 8, 2, 0, 0, 0)
    packed = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", packed) + chunk(b"IEND", b""))


def main():
    program = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else str(ROOT / "build" / "release" / "QSLRUN"))
    sheet, gap_row = [], b"\xe0" * 3 * (COLUMNS * (TILE_WIDTH + GAP) + GAP)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        rendered(folder, program, str(ROOT / "examples" / "formats.qsl"))
        tiles = [shrunk(picture_of(program, folder, kind)) for kind in ORDER]
    gap = b"\xe0" * 3 * GAP
    tiles += [[b"\xe0" * 3 * TILE_WIDTH] * TILE_HEIGHT] * (-len(tiles) % COLUMNS)
    for at in range(0, len(tiles), COLUMNS):
        sheet += [gap_row] * GAP
        sheet += [gap + gap.join(rows) + gap for rows in zip(*tiles[at:at + COLUMNS])]
    write_png(ROOT / "docs" / "formats.png", sheet + [gap_row] * GAP)


if __name__ == "__main__":
    main()
