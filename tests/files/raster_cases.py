"""Files of pixels: what is written, decoded by programs of others, is what was put on the raster."""
import os

from file_case import Picture, check, command, ghostscript, poppler
from picture_cases import Image, PAGE, plot, reference, same_picture

CONVERT = "/usr/bin/convert"  # of ImageMagick
WIDTH, HEIGHT = 37, 23
DECODERS = {"png": ["pngtopnm"], "gif": ["giftopnm"], "tif": ["tifftopnm"], "bmp": ["bmptopnm"]}

# Entry i of the colour table, and the entry at a pixel: all 256 are used.
TABLE = [(i, 255 - i, i * 37 % 256) for i in range(256)]


def entry(x, y):
    return (x * 7 + y * 13) % 256


SET_TABLE = ("FLOAT R[256], G[256], B[256]", "DO I = 0, 255", "R[I] = I / 255.0", "G[I] = (255 - I) / 255.0",
             "B[I] = (I * 37 % 256) / 255.0", "END DO")
SET_PIXELS = ("BYTE P[%d]" % (WIDTH * HEIGHT), "DO J = 0, %d" % (HEIGHT - 1), "DO I = 0, %d" % (WIDTH - 1),
              "P[J * %d + I] = BYTE((I * 7 + J * 13) %% 256)" % WIDTH, "END DO", "END DO")
INDEXED = ("MYVLT(R,G,B,256)", "IMGINI()", "WPIXLS(P,0,0,%d,%d)" % (WIDTH, HEIGHT), "IMGFIN()")


def color_at(x, y):
    """True colours, more of them than a palette has."""
    return (x * 6 % 256, y * 11 % 256, (x + y) * 3 % 256)


SET_COLORS = ("BYTE P[%d]" % (3 * WIDTH * HEIGHT), "DO J = 0, %d" % (HEIGHT - 1), "DO I = 0, %d" % (WIDTH - 1),
              "K = 3 * (J * %d + I)" % WIDTH, "P[K] = BYTE(I * 6 % 256)", "P[K+1] = BYTE(J * 11 % 256)",
              "P[K+2] = BYTE((I + J) * 3 % 256)", "END DO", "END DO")
COLORED = ("IMGINI()", "IMGMOD('RGB')", "WPIXLS(P,0,0,%d,%d)" % (WIDTH, HEIGHT), "IMGFIN()")
WRITE_ALL = ("RPNG('a.png')", "RGIF('a.gif')", "RTIFF('a.tif')", "RBMP('a.bmp')", "RPPM('a.ppm')", "RIMAGE('a.img')")
START = ("METAFL('VIRT')", "FILMOD('DELE')", "WINSIZ(%d,%d)" % (WIDTH, HEIGHT))


def expected(color, box=(0, 0, WIDTH, HEIGHT)):
    left, top, width, height = box
    return bytes(v for y in range(top, top + height) for x in range(left, left + width) for v in color(x, y))


def decoded(place, words, name):
    """Pixels of a file, three bytes each, by a program that writes a picture of the PNM kind."""
    out = name + ".pnm"
    command("sh", "-c", " ".join(words) + " " + name + " > " + out + " 2> " + out + ".log", directory=place.directory)
    command("sh", "-c", "ppmtoppm < %s > x.ppm 2> x.log || pgmtoppm black-white %s > x.ppm" % (out, out),
            directory=place.directory)
    return Picture(place.path("x.ppm"))


def by_imagemagick(place, name):
    command(CONVERT, name, "-depth", "8", "-alpha", "off", "ppm:magick.ppm", directory=place.directory)
    return Picture(place.path("magick.ppm"))


def same_pixels(picture, wanted, name, width=WIDTH, height=HEIGHT):
    check((picture.width, picture.height) == (width, height), "%s: %d by %d" % (name, picture.width, picture.height))
    check(picture.data[:len(wanted)] == wanted, name + ": other pixels")


def all_exact(place, wanted, width=WIDTH, height=HEIGHT, without=()):
    command("pngcheck", "-q", "a.png", directory=place.directory)
    for ending, words in DECODERS.items():
        if ending in without:
            continue
        name = "a." + ending
        same_pixels(decoded(place, words, name), wanted, name, width, height)
        same_pixels(by_imagemagick(place, name), wanted, name + " by ImageMagick", width, height)
    same_pixels(Picture(place.path("a.ppm")), wanted, "a.ppm", width, height)


def palette_pixels(place):
    place.plot(*START, *SET_TABLE, *SET_PIXELS, None, *INDEXED, *WRITE_ALL)
    all_exact(place, expected(lambda x, y: TABLE[entry(x, y)]))
    raw = place.read("a.img")
    check(raw[:15] == b"!Bitmap QUILLA " and len(raw) == 80 + WIDTH * HEIGHT, "the raw image")
    check(raw[80:] == bytes(entry(x, y) for y in range(HEIGHT) for x in range(WIDTH)), "rows of the raw image")


def true_color_pixels(place):
    place.plot(*START, "IMGFMT('RGB')", *SET_COLORS, None, *COLORED, *WRITE_ALL)
    wanted = expected(color_at)
    all_exact(place, wanted, without=("gif",))
    check(place.read("a.img")[80:] == wanted, "rows of the raw image")
    # GIF has 256 colours; every one of these is near one of them.
    reduced = decoded(place, ["giftopnm"], "a.gif")
    far = sum(1 for a, b in zip(reduced.data, wanted) if abs(a - b) > 48)
    check(far < len(wanted) // 100, "%d components of the GIF are far off" % far)


def few_true_colors_in_gif(place):
    place.plot(*START, "IMGFMT('RGB')", *SET_TABLE, *SET_PIXELS, None, *INDEXED, *WRITE_ALL)
    all_exact(place, expected(lambda x, y: TABLE[entry(x, y)]))


def clipped(place):
    place.plot(*START, *SET_TABLE, *SET_PIXELS, None, *INDEXED, "IMGCLP(5,3,21,10)", *WRITE_ALL)
    all_exact(place, expected(lambda x, y: TABLE[entry(x, y)], (5, 3, 21, 10)), 21, 10)


def devices_write_what_the_routines_write(place):
    routines = {"PNG": "RPNG", "GIF": "RGIF", "TIFF": "RTIFF", "BMP": "RBMP", "PPM": "RPPM", "IMAG": "RIMAGE"}
    for device, routine in routines.items():
        place.plot("METAFL('%s')" % device, "SETFIL('device')", "FILMOD('DELE')", None, *PAGE[:6], "%s('routine')" % routine)
        check(place.read("device") == place.read("routine"), device)


def transparency_of_files(place):
    page = ("SETVLT('SMAL')", "RECFLL(0,0,1000,1000,2)")
    place.plot("METAFL('PNG')", "SETFIL('a.png')", "FILMOD('DELE')", "PNGMOD('ON','TRAN')", "GIFMOD('ON','TRAN')", None,
               *page, "RGIF('a.gif')")
    command("pngcheck", "-q", "a.png", directory=place.directory)
    for words, name in ((["pngtopnm", "-alpha"], "a.png"), (["giftopnm", "-alphaout=-"], "a.gif")):
        alpha = decoded(place, words, name)
        check(alpha.color(10, 10) == (255, 255, 255), name + ": the rectangle is opaque")
        check(alpha.color(800, 590) == (0, 0, 0), name + ": the background is clear")


def empty_plot_with_alpha(place):
    place.plot("METAFL('PPM')", "SETFIL('a.ppm')", "FILMOD('DELE')", "IMGFMT('BIL')", None, "RPNG('empty.png')",
               "RECFLL(0,0,1000,1000,2)", "RPNG('drawn.png')")
    command("pngcheck", "-q", "empty.png", directory=place.directory)
    alpha = decoded(place, ["pngtopnm", "-alpha"], "empty.png")
    check(not any(alpha.data), "an empty plot is clear")
    alpha = decoded(place, ["pngtopnm", "-alpha"], "drawn.png")
    check(alpha.color(10, 10) == (255, 255, 255) and alpha.color(800, 590) == (0, 0, 0), "what is drawn is opaque")


def bilevel_tiff(place):
    place.plot("METAFL('TIFF')", "SETFIL('a.tif')", "FILMOD('DELE')", "IMGFMT('BIL')", "TIFMOD(300,'INCH','RESO')", None,
               "RECFLL(0,0,1000,1000,2)")
    told = command("tiffinfo", "a.tif", directory=place.directory)
    for line in ("Image Width: 853 Image Length: 603", "Resolution: 300, 300 pixels/inch", "Bits/Sample: 1",
                 "Compression Scheme: None", "Rows/Strip: 1"):
        check(line in told, "tiffinfo does not tell: " + line)
    for picture in (decoded(place, ["tifftopnm"], "a.tif"), by_imagemagick(place, "a.tif")):
        check(picture.color(10, 10) == (255, 255, 255) and picture.color(800, 590) == (0, 0, 0), "bits that are set")


def resolutions(place):
    place.plot("METAFL('TIFF')", "SETFIL('a.tif')", "FILMOD('DELE')", "TIFMOD(50,'CM','RESO')", "BMPMOD(300,'INCH','RESO')",
               None, "RBMP('a.bmp')")
    check("Resolution: 50, 50 pixels/cm" in command("tiffinfo", "a.tif", directory=place.directory), "TIFF")
    told = command("identify", "-units", "PixelsPerInch", "-format", "%x", "a.bmp", directory=place.directory)
    check(abs(float(told.split()[0]) - 300.0) < 0.1, "BMP: " + told)


def documents_of_one_picture(place):
    # Four fields, one a corner; the picture lies, so the sheet is turned.
    fields = ("SETVLT('SMAL')", "RECFLL(0,0,1484,1049,2)", "RECFLL(1484,0,1486,1049,3)", "RECFLL(0,1049,1484,1051,4)",
              "RECFLL(1484,1049,1486,1051,5)", "EXPIMG('a.ps','PS')", "EXPIMG('a.pdf','PDF')")
    colors = ((255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 0))
    place.plot("METAFL('VIRT')", "FILMOD('DELE')", "HWORIG(0,0)", None, *fields)
    command("qpdf", "--check", "a.pdf", directory=place.directory)
    page = poppler(place, "a.pdf")[0]
    check((page.width, page.height) == (794, 553), "the sheet of the PDF: %d %d" % (page.width, page.height))
    corners = ((100, 100), (700, 100), (100, 450), (700, 450))
    check(tuple(page.color(x, y) for x, y in corners) == colors, "the PDF shows other colours")
    page = ghostscript(place, "a.ps")[0]
    # Seen on the upright sheet the picture stands on its left side.
    corners = ((100, 842 - 100), (100, 842 - 700), (450, 842 - 100), (450, 842 - 700))
    check(tuple(page.color(x, y) for x, y in corners) == colors, "the PostScript file shows other colours")
    lines = place.read("a.ps").decode("ascii").split("\n")
    check(lines[0] == "%!PS-Adobe-2.0" and lines[2] == "%%Creator: QUILLA  10.3", "its first lines")
    check(max(len(line) for line in lines) == 80, "lines of 80 characters")


def page_like_the_pdf(place):
    wanted = reference(place)
    for device, image, bound in (("PNG", "IND", 500), ("PNG", "RGB", 500), ("GIF", "RGB", 500)):
        plot(place, device, "a.raster", before=("SCRMOD('REVE')", "IMGFMT('%s')" % image, "WINSIZ(1300,919)"))
        same_picture(wanted, Image(1300, 919, by_imagemagick(place, "a.raster").data), bound=bound)


def png_in_memory(place):
    place.plot(*START, *SET_TABLE, *SET_PIXELS, None, *INDEXED, "RPNG('a.png')")
    size = os.path.getsize(place.path("a.png"))
    text = place.script(*START, *SET_TABLE, *SET_PIXELS, "BYTE M[5000]", "QUIINI()", *INDEXED, "N = RBFPNG(M,5000)",
                        "PRINTL N", "S = 0", "DO I = 0, N - 1", "S = (S * 31 + M[I]) % 65521", "END DO", "PRINTL S",
                        "QUIFIN()")
    numbers = [int(word) for word in text.split() if word.isdigit()]
    wanted = 0
    for byte in place.read("a.png"):
        wanted = (wanted * 31 + byte) % 65521
    check(size in numbers and wanted in numbers, "length and sum of the bytes: %d, %d" % (size, wanted))


CASES = (palette_pixels, true_color_pixels, few_true_colors_in_gif, clipped, devices_write_what_the_routines_write,
         transparency_of_files, empty_plot_with_alpha, bilevel_tiff, resolutions, documents_of_one_picture,
         page_like_the_pdf, png_in_memory)
