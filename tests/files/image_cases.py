"""Image files of other programs, read by INCFIL: the document must hold the pixels that those programs see."""
import os
import random
import re
import struct
import subprocess
import zlib

from file_case import Picture, check, command, poppler

CONVERT = "/usr/bin/convert"  # of ImageMagick
WHITE = (255, 255, 255)
CHANNELS = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}
DEPTHS = {0: (1, 2, 4, 8, 16), 2: (8, 16), 3: (1, 2, 4, 8), 4: (8, 16), 6: (8, 16)}


def output(place, *words):
    """What a program writes to its standard output."""
    done = subprocess.run([str(w) for w in words], cwd=place.directory, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          timeout=120, check=False)
    check(done.returncode == 0, "%s: %s" % (" ".join(map(str, words)), done.stderr.decode("latin-1")))
    return done.stdout


def save(place, name, data):
    with open(place.path(name), "wb") as file:
        file.write(data)
    return name


def make(place, name, *words):
    return save(place, name, output(place, *words))


def samples(data):
    """Width, height and samples of 0 to 255 of a PNM file; of words the high bytes."""
    head = re.match(rb"P([456])\s+(?:#.*\s+)*(\d+)\s+(\d+)\s", data)
    kind, width, height = int(head[1]), int(head[2]), int(head[3])
    at, largest = head.end(), 1
    if kind == 4:
        size = (width + 7) // 8
        rows = [data[at + y * size:at + (y + 1) * size] for y in range(height)]
        return width, height, bytes(0 if row[x // 8] >> (7 - x % 8) & 1 else 255 for row in rows for x in range(width))
    more = re.compile(rb"(\d+)\s").match(data, at)
    largest, at = int(more[1]), more.end()
    body = data[at:at + width * height * (3 if kind == 6 else 1) * (2 if largest > 255 else 1)]
    if largest == 65535:
        return width, height, body[::2]
    check(largest <= 255, "a strange largest value %d" % largest)
    return width, height, bytes(v * 255 // largest for v in body)


def colours(data):
    """The same with three samples a pixel."""
    width, height, values = samples(data)
    if len(values) == width * height:
        values = bytes(v for v in values for _ in range(3))
    return width, height, values


def alpha_of(place, name):
    return samples(output(place, CONVERT, name, "-alpha", "extract", "-depth", "16", "pgm:-"))[2]


def blended(pixels, alpha, ground):
    out = bytearray(pixels)
    for i, a in enumerate(alpha):
        if a == 255:
            continue
        for c in range(3):
            # value * a + ground * (1 - a) + 0.5, truncated, in whole numbers
            out[3 * i + c] = (2 * (pixels[3 * i + c] * a + ground[c] * (255 - a)) + 255) // 510
    return bytes(out)


def shown(place, names):
    """Sizes and pixels of images as they stand in a PostScript document, in order."""
    place.plot("METAFL('EPS')", "FILMOD('DELE')", "SETFIL('shown.eps')", None, "FRAME(0)",
               *["INCFIL('%s')" % name for name in names])
    found = []
    for part in place.read("shown.eps").split(b"/ImageType 1 \n")[1:]:
        head = re.match(rb"/Width (\d+) \n/Height (\d+) \n", part)
        body = part[part.index(b">> image \n") + 10:part.index(b"> grestore")]
        found.append((int(head[1]), int(head[2]), bytes.fromhex(body.decode("ascii"))))
    check(len(found) == len(names), "%d of %d images in the document" % (len(found), len(names)))
    return found


def compare(place, wanted):
    """wanted: pairs of a file and the size and pixels that it has."""
    for (name, (width, height, pixels)), got in zip(wanted, shown(place, [name for name, _ in wanted])):
        check(got[:2] == (width, height), "%s: size %s, not %s" % (name, got[:2], (width, height)))
        if got[2] == pixels:
            continue
        first = next(i for i, (a, b) in enumerate(zip(got[2], pixels)) if a != b)
        place_of = (first // 3 % width, first // 3 // width)
        check(False, "%s: pixel %s is %s, not %s" % (name, place_of, tuple(got[2][first // 3 * 3:first // 3 * 3 + 3]),
                                                     tuple(pixels[first // 3 * 3:first // 3 * 3 + 3])))


# ---- PNG files of every kind ----

def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


def filtered(row, above, step, kind):
    out = bytearray([kind])
    for i, v in enumerate(row):
        a = row[i - step] if i >= step else 0
        b = above[i] if above else 0
        c = above[i - step] if above and i >= step else 0
        if kind == 4:
            p = a + b - c
            guess = min((abs(p - a), 0, a), (abs(p - b), 1, b), (abs(p - c), 2, c))[2]
        else:
            guess = (0, a, b, (a + b) // 2)[kind]
        out.append((v - guess) & 255)
    return bytes(out)


def packed_row(values, depth):
    if depth == 16:
        return b"".join(struct.pack(">H", v) for v in values)
    if depth == 8:
        return bytes(values)
    per_byte = 8 // depth
    values = values + [0] * (-len(values) % per_byte)
    return bytes(sum(v << (8 - depth * (k + 1)) for k, v in enumerate(values[i:i + per_byte]))
                 for i in range(0, len(values), per_byte))


def passes(interlaced):
    if not interlaced:
        return [(0, 0, 1, 1)]
    return [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]


class Png:
    """A file of random samples with the optional chunks that are asked for, and what it shows."""

    def __init__(self, seed, size, kind, depth, interlaced=False, transparent=False, background=False):
        rng = random.Random(seed)
        self.width, self.height = size
        channels, top = CHANNELS[kind], (1 << depth) - 1
        entries = min(top + 1, 200) if kind == 3 else 0
        few = [tuple(rng.randrange(entries or top + 1) for _ in range(channels)) for _ in range(6)]
        self.rows = [[rng.choice(few) if kind in (0, 2) or rng.random() < 0.5 else
                      tuple(rng.randrange(entries or top + 1) for _ in range(channels)) for _ in range(self.width)]
                     for _ in range(self.height)]
        head = struct.pack(">IIBBBBB", self.width, self.height, depth, kind, 0, 0, int(interlaced))
        data = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head)
        self.palette = [tuple(rng.randrange(256) for _ in range(3)) for _ in range(entries)]
        if kind == 3:
            data += chunk(b"PLTE", bytes(v for entry in self.palette for v in entry))
        if transparent and kind == 3:
            data += chunk(b"tRNS", bytes(rng.randrange(256) for _ in range((entries + 1) // 2)))
        elif transparent and kind in (0, 2):
            data += chunk(b"tRNS", b"".join(struct.pack(">H", v) for v in few[0]))
        self.ground = None
        if background:
            if kind == 3:
                index = rng.randrange(entries)
                data += chunk(b"bKGD", bytes([index]))
                self.ground = self.palette[index]
            else:
                values = [rng.randrange(top + 1) for _ in range(1 if kind in (0, 4) else 3)]
                data += chunk(b"bKGD", b"".join(struct.pack(">H", v) for v in values))
                values = [v >> 8 if depth == 16 else v * 255 // top for v in values]
                self.ground = tuple(values * 3)[:3]
        stream = zlib.compress(self.raw(rng, depth, channels, interlaced), rng.choice([0, 1, 6, 9]))
        while stream:
            part = rng.randrange(1, len(stream) + 1)
            data += chunk(b"IDAT", stream[:part])
            stream = stream[part:]
        self.data = data + chunk(b"tEXt", b"IDAT\0IEND") + chunk(b"IEND", b"")

    def raw(self, rng, depth, channels, interlaced):
        out, step = b"", max(1, depth * channels // 8)
        for left, top, right, down in passes(interlaced):
            above = None
            for y in range(top, self.height, down):
                values = [v for x in range(left, self.width, right) for v in self.rows[y][x]]
                if not values:
                    continue
                row = packed_row(values, depth)
                out += filtered(row, above, step, rng.randrange(5))
                above = row
        return out

    def expected(self, place, name):
        """By two programs: one tells the colours, the other what is transparent."""
        width, height, pixels = colours(output(place, "pngtopnm", name))
        check((width, height) == (self.width, self.height), "the test's own file is wrong: " + name)
        alpha = alpha_of(place, name)
        return width, height, blended(pixels, alpha, self.ground or WHITE)


def png_of_every_kind(place):
    wanted, seed = [], 0
    for kind, depths in DEPTHS.items():
        for depth in depths:
            for interlaced in (False, True):
                for transparent in (False, True) if kind in (0, 2, 3) else (False,):
                    for background in (False, True):
                        seed += 1
                        size = random.Random(seed).choice([(1, 1), (7, 5), (33, 17), (32, 32), (3, 40)])
                        png = Png(seed, size, kind, depth, interlaced, transparent, background)
                        name = save(place, "%d_%d_%d%d%d.png" % (kind, depth, interlaced, transparent, background),
                                    png.data)
                        wanted.append((name, png.expected(place, name)))
    check(len(wanted) == 104, "%d files" % len(wanted))
    compare(place, wanted)


def png_of_every_small_size(place):
    wanted = []
    for size in range(1, 10):
        for other in (1, size, 9):
            for interlaced in (False, True):
                png = Png(size * 100 + other, (size, other), 3, 4, interlaced)
                name = save(place, "s%d_%d_%d.png" % (size, other, interlaced), png.data)
                wanted.append((name, png.expected(place, name)))
    compare(place, wanted)


# ---- Files of other programs ----

def photograph(place, width=61, height=43):
    """A picture with slopes and grain, as a PPM file."""
    rng = random.Random(3)
    body = bytes(min(255, v) for y in range(height) for x in range(width)
                 for v in (x * 4 + rng.randrange(9), y * 5 + rng.randrange(9), (x + y) * 2))
    return save(place, "photo.ppm", b"P6\n%d %d\n255\n" % (width, height) + body)


def few_colours(place, count, name):
    return make(place, name, "pnmquant", count, "photo.ppm")


def png_of_other_programs(place):
    photo = photograph(place)
    names = [make(place, "a.png", "pnmtopng", photo), make(place, "b.png", "pnmtopng", "-interlace", photo),
             make(place, "c.png", "pnmtopng", "-compression=9", few_colours(place, 3, "q3.ppm")),
             make(place, "d.png", CONVERT, photo, "-depth", "16", "-define", "png:bit-depth=16", "png:-"),
             make(place, "e.png", CONVERT, photo, "-colorspace", "gray", "-interlace", "PNG", "png:-")]
    compare(place, [(name, colours(output(place, "pngtopnm", name))) for name in names])


def gif_of_other_programs(place):
    photo = photograph(place)
    names = []
    for count in (2, 3, 9, 30, 255):
        quantized = few_colours(place, count, "q%d.ppm" % count)
        names.append(make(place, "%d.gif" % count, "pamtogif", quantized))
        names.append(make(place, "%di.gif" % count, "pamtogif", "-interlace", quantized))
    names.append(make(place, "m.gif", CONVERT, photo, "gif:-"))
    names.append(make(place, "n.gif", CONVERT, photo, "-comment", "one, two, three", "-interlace", "GIF", "gif:-"))
    compare(place, [(name, colours(output(place, "giftopnm", name))) for name in names])
    # Of several images the first is shown.
    make(place, "two.gif", CONVERT, "q9.ppm", "q2.ppm", "-loop", "0", "gif:-")
    compare(place, [("two.gif", colours(output(place, "giftopnm", "-image=1", "two.gif")))])


def gif_with_a_full_table(place):
    """Noise, whose strings fill the table of 4096 codes again and again."""
    rng = random.Random(8)
    save(place, "noise.pgm", b"P5\n200 150\n255\n" + bytes(rng.choice(range(0, 256, 2)) for _ in range(30000)))
    names = [make(place, "a.gif", "pamtogif", "noise.pgm"), make(place, "b.gif", CONVERT, "noise.pgm", "gif:-"),
             make(place, "c.gif", "pamtogif", "-nolzw", "noise.pgm")]
    compare(place, [(name, colours(output(place, "giftopnm", name))) for name in names])


def bmp_of_other_programs(place):
    photo = photograph(place)
    names = [make(place, "a.bmp", "ppmtobmp", photo), make(place, "m.bmp", CONVERT, photo, "bmp3:-"),
             make(place, "v4.bmp", CONVERT, photo, "-type", "TrueColor", "bmp:-")]
    for count, bits in ((2, 1), (5, 4), (16, 4), (40, 8), (200, 8)):
        quantized = few_colours(place, count, "q%d.ppm" % count)
        names.append(make(place, "%d.bmp" % count, "ppmtobmp", "-bpp=%d" % bits, quantized))
        names.append(make(place, "%dm.bmp" % count, CONVERT, quantized, "bmp3:-"))
    compare(place, [(name, colours(output(place, "bmptopnm", name))) for name in names])


def bmp_of_runs(place):
    photograph(place)
    quantized = few_colours(place, 6, "q.ppm")
    names = [make(place, "r.bmp", CONVERT, quantized, "-type", "Palette", "-compress", "RLE", "bmp3:-"),
             make(place, "s.bmp", CONVERT, "-size", "301x37", "xc:red", "-fill", "blue", "-draw", "circle 40,20 60,30",
                  "+antialias", "-type", "Palette", "-compress", "RLE", "bmp3:-")]
    wanted = []
    for name in names:
        check(struct.unpack("<I", place.read(name)[30:34])[0] == 1, name + " has no runs")
        wanted.append((name, colours(output(place, CONVERT, name, "-depth", "8", "ppm:-"))))
    compare(place, wanted)


def tiff_of_other_programs(place):
    photo = photograph(place)
    few_colours(place, 40, "q.ppm")
    names = []
    for source in (photo, "q.ppm"):
        for packing in ("-none", "-packbits", "-lzw"):
            names.append(tiff(place, source[0] + packing + ".tif", source, packing))
    plain = names[0]
    for name, options in (("big", ["-B"]), ("little", ["-L"]), ("lzw2", ["-c", "lzw:2"]), ("lzw1", ["-c", "lzw:1"]),
                          ("bits", ["-c", "packbits", "-r", "7"]), ("strips", ["-c", "none", "-r", "5", "-B"]),
                          ("tiles", ["-c", "none", "-t", "-w", "32", "-l", "16"]),
                          ("lzwtiles", ["-c", "lzw:2", "-t", "-w", "16", "-l", "48", "-B"]),
                          ("one", ["-c", "lzw", "-r", "9999"])):
        command("tiffcp", *options, plain, name + ".tif", directory=place.directory)
        names.append(name + ".tif")
    compare(place, [(name, colours(output(place, "tifftopnm", name))) for name in names])


def tiff(place, name, source, *options):
    """By a program that wants a file it can seek in."""
    command("sh", "-c", "pamtotiff %s -output=%s %s 2> tiff.log" % (" ".join(options), name, source),
            directory=place.directory)
    return name


def tiff_of_grey_and_bits(place):
    photo = photograph(place)
    make(place, "grey.pgm", "ppmtopgm", photo)
    make(place, "bits.pbm", "pgmtopbm", "grey.pgm")
    names = [tiff(place, "grey.tif", "grey.pgm", "-lzw"), tiff(place, "bits.tif", "bits.pbm", "-packbits"),
             tiff(place, "white.tif", "bits.pbm", "-none", "-miniswhite"),
             tiff(place, "black.tif", "bits.pbm", "-none", "-minisblack"),
             tiff(place, "inverted.tif", "grey.pgm", "-none", "-miniswhite")]
    for depth, largest in ((2, 3), (4, 15)):
        make(place, "d%d.pgm" % depth, "pamdepth", largest, "grey.pgm")
        names.append(tiff(place, "d%d.tif" % depth, "d%d.pgm" % depth, "-none"))
    make(place, "deep.pgm", "pamdepth", 65535, "grey.pgm")
    make(place, "deep.ppm", "pamdepth", 65535, photo)
    names += [tiff(place, "deep.tif", "deep.pgm", "-none"), tiff(place, "rgb16.tif", "deep.ppm", "-none")]
    for name in ("deep", "rgb16"):
        command("tiffcp", "-B", "-c", "packbits", name + ".tif", name + "b.tif", directory=place.directory)
        names.append(name + "b.tif")
    compare(place, [(name, colours(output(place, "tifftopnm", name))) for name in names])


def tiff_of_floats(place):
    """Grey from the smallest to the largest value. The strips are read out of the file here."""
    photo = photograph(place, 20, 15)
    command("sh", "-c", CONVERT + " %s -colorspace gray -depth 32 -define quantum:format=floating-point "
            "-compress none f.tif 2> log || test -s f.tif" % photo, directory=place.directory)
    words = command("tiffdump", "-m", "100", "f.tif", directory=place.directory)
    check("SampleFormat (339) SHORT (3) 1<3>" in words, "no floats in the file: " + words)
    offset = int(re.search(r"StripOffsets.*<(\d+)", words)[1])
    values = struct.unpack_from("<300f", place.read("f.tif"), offset)
    low, high = min(values), max(values)
    grey = bytes(int((v - low) * 255.0 / (high - low) + 0.5) for v in values)
    compare(place, [("f.tif", (20, 15, bytes(v for g in grey for v in (g, g, g))))])


def ppm_of_other_programs(place):
    photo = photograph(place)
    make(place, "deep.ppm", "pamdepth", 65535, photo)
    make(place, "deeper.ppm", "pamdepth", 1000, photo)
    make(place, "plain.ppm", "pnmtoplainpnm", photo)
    wanted = colours(place.read(photo))
    # 1000 levels: rounded as the program does it.
    compare(place, [(photo, wanted), ("plain.ppm", wanted), ("deep.ppm", wanted),
                    ("deeper.ppm", colours(output(place, "pamdepth", 255, "deeper.ppm")))])


# ---- On pages and rasters ----

def pdf_holds_the_pixels(place):
    photo = photograph(place)
    name = make(place, "a.png", "pnmtopng", photo)
    for packed in ("ON", "OFF"):
        place.plot("METAFL('PDF')", "FILMOD('DELE')", "SETFIL('a.pdf')", "PDFMOD('%s','COMP')" % packed, None,
                   "FRAME(0)", "FILBOX(300,200,610,430)", "INCFIL('%s')" % name, "COLOR('RED')", "LINE(10,10,500,500)")
        command("qpdf", "--check", "a.pdf", directory=place.directory)
        command("pdfimages", "a.pdf", "x", directory=place.directory)
        check(Picture(place.path("x-000.ppm")).data == Picture(place.path(photo)).data, "other pixels in the PDF")
    # 61 by 43 pixels of ten units each, on a page that is fitted to the sheet: corners and middle of the picture.
    page, source = poppler(place, "a.pdf")[0], Picture(place.path(photo))
    scale = min(5600 / 2969, 3900 / 2099) / 2 * 72 / 254
    for x, y in ((1, 1), (58, 1), (1, 40), (58, 40), (30, 21)):
        color, wanted = page.color((305 + 10 * x) * scale, (205 + 10 * y) * scale), source.color(x, y)
        check(all(abs(a - b) < 25 for a, b in zip(color, wanted)),
              "pixel %d, %d is %s on the page, not %s" % (x, y, color, wanted))


def rasters_hold_the_pixels(place):
    photo = photograph(place)
    png = Png(5, (33, 17), 6, 8)
    name = save(place, "a.png", png.data)
    place.plot("METAFL('PNG')", "FILMOD('DELE')", "SETFIL('b.png')", "IMGFMT('RGB')", "WINSIZ(120,80)", "PAGE(120,80)",
               "SCLMOD('FULL')", None, "FRAME(0)", "FILBOX(10,5,70,60)", "INCFIL('%s')" % photo, "FILBOX(20,9,40,40)",
               "INCFIL('%s')" % name, "FILBOX(90,50,30,30)", "INCFIL('%s')" % photo)
    width, height, got = colours(output(place, "pngtopnm", "b.png"))
    canvas = [bytearray(3 * 120) for _ in range(80)]
    source = Picture(place.path(photo))
    over, alpha = colours(output(place, "pngtopnm", name))[2], alpha_of(place, name)

    def put(x, y, color):
        if x < 120 and y < 80:
            canvas[y][3 * x:3 * x + 3] = bytes(color)

    def put_photo(left, top):
        for y in range(43):
            for x in range(61):
                put(left + x, top + y, source.color(x, y))
    put_photo(10, 5)
    for y in range(17):
        for x in range(33):
            below = bytes(canvas[9 + y][3 * (20 + x):3 * (20 + x) + 3])
            at = y * 33 + x
            put(20 + x, 9 + y, blended(over[3 * at:3 * at + 3], alpha[at:at + 1], below))
    put_photo(90, 50)
    check((width, height) == (120, 80), "size %d by %d" % (width, height))
    check(got == b"".join(map(bytes, canvas)), "other pixels on the raster")


def damaged_files_only_warn(place):
    photo = photograph(place)
    few_colours(place, 40, "q.ppm")
    sources = [make(place, "a.png", "pnmtopng", photo), make(place, "a.gif", "pamtogif", "q.ppm"),
               make(place, "a.bmp", "ppmtobmp", photo), tiff(place, "a.tif", photo, "-lzw"), photo]
    rng = random.Random(1)
    lines = []
    for k in range(60):
        source = sources[k % len(sources)]
        data = bytearray(place.read(source))
        if k % 2:
            del data[rng.randrange(len(data)):]
        for _ in range(rng.randrange(1, 20)):
            if data:
                data[rng.randrange(min(len(data), 400 if k % 3 else len(data)))] = rng.randrange(256)
        lines.append("INCFIL('%s')" % save(place, "%d%s" % (k, os.path.splitext(source)[1]), bytes(data)))
    with open(place.path("plot.qsl"), "w", encoding="ascii") as file:
        file.write("\n".join(["%QSL", "METAFL('VIRT')", "IMGFMT('RGB')", "QUIINI()"] + lines + ["QUIFIN()"]) + "\n")
    # AddressSanitizer cannot start under a limit of memory; its build runs without.
    text = command("sh", "-c", "(ulimit -v 2000000; '%s' --version) >/dev/null 2>&1 && ulimit -v 2000000; exec '%s' plot.qsl" %
                   (place.program, place.program), directory=place.directory)
    warnings = re.findall(r"<<<< Warning +(\d+)", text)
    check(len(warnings) > 10 and set(warnings) <= {"53", "56", "122", "123"}, "warnings " + " ".join(warnings))
    check("Fileformat: VIRT" in text, "the plot did not end: " + text)


CASES = [png_of_every_kind, png_of_every_small_size, png_of_other_programs, gif_of_other_programs,
         gif_with_a_full_table, bmp_of_other_programs, bmp_of_runs, tiff_of_other_programs, tiff_of_grey_and_bits,
         tiff_of_floats, ppm_of_other_programs, pdf_holds_the_pixels, rasters_hold_the_pixels, damaged_files_only_warn]
