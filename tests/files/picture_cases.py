"""One test page in every format, rendered by programs of others and compared with the page in PDF."""
import os
import re
import shutil
import struct
import zlib

from file_case import Failure, Picture, check, collect, command, ghostscript, poppler

WIDTH, HEIGHT = 2969.0, 2099.0  # the default page in plot units
SYSTEM_PYTHON = "/usr/bin/python3"  # whose packages Debian installs

# Lines thin and wide, strokes, bars and filled polygons: what every format shows. The colours stand in every table.
PAGE = ("SETVLT('SMAL')", "PAGERA()", "COMPLX()", "AXSPOS(450,1700)", "AXSLEN(2000,1200)", "NAME('X axis','X')",
        "TITLIN('All formats',1)", "AXSBGD(5)", "GRAF(0.0,10.0,0.0,2.0,-1.0,1.0,-1.0,0.5)", "COLOR('FORE')", "TITLE()",
        "COLOR('RED')", "CURVE(X,Y,50)", "COLOR('BLUE')", "DASH()", "CURVE(X,Z,50)", "SOLID()", "ENDGRF()",
        "COLOR('GREEN')", "LINE(2600,200,2900,500)", "HEIGHT(60)", "COLOR('FORE')", "MESSAG('Strokes',100,100)",
        "ANGLE(90)", "MESSAG('Upwards',2700,1800)", "ANGLE(0)", "COLOR('BLUE')", "HSYMBL(120)", "SYMBOL(16,700,250)",
        "SYMBOL(20,900,250)", "COLOR('RED')", "SYMBOL(21,1100,250)", "LINWID(20)", "LINE(700,380,1700,380)", "LINWID(1)")
DATA = ("X = FALLOC(50) * 0.2", "Y = SIN(X)", "Z = COS(X) * 0.5")


class Image:
    """Pixels of a picture, and where the page lies in it."""

    def __init__(self, width, height, data, box=None):
        self.width, self.height, self.data = width, height, data
        self.left, self.top, self.right, self.bottom = box or (0, 0, width - 1, height - 1)

    def color(self, x, y):
        at = 3 * (y * self.width + x)
        return self.data[at], self.data[at + 1], self.data[at + 2]

    def pixel(self, x, y):
        """Pixel of a plot point."""
        return (self.left + x / WIDTH * (self.right - self.left), self.top + y / HEIGHT * (self.bottom - self.top))

    def ink_box(self):
        rows = [y for y in range(self.height)
                if any(v < 128 for v in self.data[3 * y * self.width:3 * (y + 1) * self.width])]
        check(rows, "the picture is empty")
        columns = [x for x in range(self.width)
                   if any(min(self.color(x, y)) < 128 for y in range(rows[0], rows[-1] + 1))]
        return columns[0], rows[0], columns[-1], rows[-1]


def of_picture(picture):
    return Image(picture.width, picture.height, picture.data)


def bordered(picture):
    """A picture whose page is where its border is seen."""
    image = of_picture(picture) if not isinstance(picture, Image) else picture
    image.left, image.top, image.right, image.bottom = image.ink_box()
    return image


def unfilter(raw, height, stride, step):
    """Rows of a PNG picture without their filters."""
    rows, above, at = [], bytearray(stride), 0
    for _ in range(height):
        kind, row = raw[at], bytearray(raw[at + 1:at + 1 + stride])
        at += 1 + stride
        for i in range(stride):
            left = row[i - step] if i >= step else 0
            corner = above[i - step] if i >= step else 0
            if kind == 1:
                row[i] = (row[i] + left) & 255
            elif kind == 2:
                row[i] = (row[i] + above[i]) & 255
            elif kind == 3:
                row[i] = (row[i] + (left + above[i]) // 2) & 255
            elif kind == 4:
                p = left + above[i] - corner
                a, b, c = abs(p - left), abs(p - above[i]), abs(p - corner)
                row[i] = (row[i] + (left if a <= b and a <= c else above[i] if b <= c else corner)) & 255
        rows.append(row)
        above = row
    return rows


def png(path):
    """A PNG picture of 8 bits, what is transparent as white."""
    with open(path, "rb") as file:
        data = file.read()
    check(data[:8] == b"\x89PNG\r\n\x1a\n", "no PNG file: " + path)
    at, packed, palette, clear = 8, b"", b"", b""
    while at < len(data):
        length, name = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if name == b"IHDR":
            width, height, depth, kind, _, _, interlace = struct.unpack(">IIBBBBB", body)
        packed += body if name == b"IDAT" else b""
        palette = body if name == b"PLTE" else palette
        clear = body if name == b"tRNS" else clear
        at += 12 + length
    step = {0: 1, 2: 3, 3: 1, 4: 2, 6: 4}[kind]
    check(interlace == 0 and (depth == 8 or step == 1), "a kind of PNG that is not read here")
    rows = unfilter(zlib.decompress(packed), height, (width * step * depth + 7) // 8, step)
    pixels = bytearray()
    for row in rows:
        if depth < 8:
            row = [row[x * depth // 8] >> (8 - depth - x * depth % 8) & ((1 << depth) - 1) for x in range(width)]
        if kind == 3:
            for v in row[:width]:
                alpha = clear[v] if v < len(clear) else 255
                pixels += bytes(255 - (255 - c) * alpha // 255 for c in palette[3 * v:3 * v + 3])
        elif kind == 0:
            for v in row[:width]:
                pixels += bytes([v * 255 // ((1 << depth) - 1)] * 3)
        elif kind == 2:
            pixels += row
        else:
            for x in range(0, len(row), step):
                alpha, color = row[x + step - 1], row[x:x + 3] if kind == 6 else [row[x]] * 3
                pixels += bytes(255 - (255 - c) * alpha // 255 for c in color)
    return Image(width, height, bytes(pixels))


def plot(place, device, name, page=PAGE, before=()):
    place.plot("METAFL('%s')" % device, "SETFIL('%s')" % name, "FILMOD('DELE')", *before, *DATA, None, *page)


def reference(place, page=PAGE):
    plot(place, "PDF", "reference.pdf", page)
    command("pdftoppm", "-r", "111.2", "reference.pdf", "reference", directory=place.directory)
    return bordered(collect(place, "reference-")[0])


def like(a, b):
    return abs(a[0] - b[0]) <= 110 and abs(a[1] - b[1]) <= 110 and abs(a[2] - b[2]) <= 110


def near(color, image, px, py, radius):
    """Whether a colour stands within so many pixels of a place."""
    for y in range(max(0, py - radius), min(image.height, py + radius + 1)):
        for x in range(max(0, px - radius), min(image.width, px + radius + 1)):
            if like(color, image.color(x, y)):
                return True
    return False


def without_like(one, other, radius):
    """Places of one picture whose colour does not stand near them in the other, and how many places are not white."""
    missing = inked = 0
    columns = [(i + 0.5) * WIDTH / 853.0 for i in range(853)]
    here = [min(int(one.pixel(x, 0)[0]), one.width - 1) for x in columns]
    there = [min(int(other.pixel(x, 0)[0]), other.width - 1) for x in columns]
    for j in range(603):
        y = (j + 0.5) * HEIGHT / 603.0
        py, qy = min(int(one.pixel(0, y)[1]), one.height - 1), min(int(other.pixel(0, y)[1]), other.height - 1)
        for px, qx in zip(here, there):
            color = one.color(px, py)
            inked += min(color) < 128
            if not like(color, other.color(qx, qy)) and not near(color, other, qx, qy, radius):
                missing += 1
    return missing, inked


def same_picture(a, b, radius=2, bound=500):
    """Of every place of either picture, seen as 853 by 603, the other has the like within a few pixels; so many may not:
    thin lines pale where a renderer smooths them."""
    missing, inked = without_like(a, b, radius)
    check(inked > 2000, "there is something in the picture")
    missing += without_like(b, a, radius)[0]
    if os.environ.get("TELL"):
        print(missing, radius, bound)
    check(missing <= bound, "%d places have no like" % missing)


def svg(place):
    plot(place, "SVG", "a.svg")
    command("xmllint", "--noout", "--nonet", "a.svg", directory=place.directory)
    command("rsvg-convert", "-b", "white", "-z", "2", "-o", "a.png", "a.svg", directory=place.directory)
    picture = bordered(png(place.path("a.png")))
    # The page fills the picture, whose scale is that of its height.
    check((picture.left, picture.top, picture.bottom) == (0, 0, 1204) and 1702 <= picture.right <= 1705,
          "the page is at %d %d %d %d" % (picture.left, picture.top, picture.right, picture.bottom))
    same_picture(reference(place), picture)


def eps_and_ps(place):
    for device, name in (("EPS", "a.eps"), ("PS", "a.ps")):
        plot(place, device, name)
        page = ghostscript(place, name, "-r200", "-sPAPERSIZE=a3")[0]
        image = of_picture(page)
        # The page lies across the sheet: turned back, its upper left corner is the origin of the file.
        turned = bytearray()
        for y in range(page.width):
            for x in range(page.height):
                turned += bytes(image.color(y, page.height - 1 - x))
        same_picture(reference(place), bordered(Image(page.height, page.width, bytes(turned))))


def ipe(place):
    plot(place, "IPE", "a.ipe")
    command("xmllint", "--noout", "--nonet", "a.ipe", directory=place.directory)
    command("ipetoipe", "-pdf", "a.ipe", "a.pdf", directory=place.directory)
    command("pdftoppm", "-r", "73", "a.pdf", "ipe", directory=place.directory)
    same_picture(reference(place), bordered(collect(place, "ipe-")[0]))


def hpgl(place):
    for device in ("HPGL", "HPA3"):
        plot(place, device, "a.hpg")
        # Pens 1 to 7 of the plotter in the colours of the table.
        command("hp2xx", "-q", "-m", "png", "-d", "100", "-w", "420", "-h", "300", "-c", "12347256", "-p", "33333333", "-f",
                "a.png", "a.hpg", directory=place.directory)
        same_picture(reference(place), bordered(png(place.path("a.png"))), radius=3)


PAINTER = """
import java.awt.*;
import java.awt.image.BufferedImage;
import java.io.*;
import java.lang.reflect.Field;

/** Lets an applet paint into a picture; its constructor would ask for a screen. */
public class Painter {
  public static void main(String[] names) throws Exception {
    Field field = sun.misc.Unsafe.class.getDeclaredField("theUnsafe");
    field.setAccessible(true);
    Object made = ((sun.misc.Unsafe) field.get(null)).allocateInstance(Class.forName(names[0]));
    BufferedImage image = new BufferedImage(853, 603, BufferedImage.TYPE_INT_RGB);
    Graphics2D g = image.createGraphics();
    g.setBackground(Color.white);
    g.clearRect(0, 0, 853, 603);
    made.getClass().getMethod("paint", Graphics.class).invoke(made, g);
    OutputStream out = new BufferedOutputStream(new FileOutputStream(names[0] + ".ppm"));
    out.write("P6 853 603 255\\n".getBytes());
    for (int y = 0; y < 603; y++)
      for (int x = 0; x < 853; x++) {
        int c = image.getRGB(x, y);
        out.write(c >> 16 & 255);
        out.write(c >> 8 & 255);
        out.write(c & 255);
      }
    out.close();
  }
}
"""


def java(place):
    if not shutil.which("javac"):
        return
    plot(place, "JAVA", "page.java", before=("SCRMOD('REVE')",))
    command("javac", "-nowarn", "page.java", directory=place.directory)
    with open(place.path("Painter.java"), "w", encoding="ascii") as file:
        file.write(PAINTER)
    command("javac", "-nowarn", "Painter.java", directory=place.directory)
    command("java", "-Djava.awt.headless=true", "Painter", "page", directory=place.directory)
    same_picture(reference(place), of_picture(Picture(place.path("page.ppm"))))


def pltm_and_cgm_read_back(place):
    for device, name in (("PLTM", "a.met"), ("CGM", "a.cgm")):
        plot(place, device, name)
        place.plot("METAFL('PDF')", "SETFIL('back.pdf')", "FILMOD('DELE')", None, "SETVLT('SMAL')", "FRAME(0)",
                   "INCFIL('%s')" % name, "PAGERA()")
        same_picture(reference(place), bordered(poppler(place, "back.pdf")[0]))


def wmf(place):
    for mode in ("STAN", "PLAC"):
        plot(place, "WMF", "a.wmf", before=("WMFMOD('%s','FORM')" % mode,))
        command("wmf2svg", "-o", "a.svg", "a.wmf", directory=place.directory)
        command("rsvg-convert", "-b", "white", "-w", "2559", "-h", "1809", "-o", "a.png", "a.svg", directory=place.directory)
        # The lines of WMF are 0.1 mm wide, those of the others a quarter of a millimetre.
        same_picture(reference(place), bordered(png(place.path("a.png"))), bound=2000)


def office(place, name):
    """A picture of a file by LibreOffice, its page found by its border."""
    profile = "-env:UserInstallation=file://" + place.path("profile")
    command("soffice", profile, "--headless", "--convert-to", "pdf", name, directory=place.directory)
    command("pdftoppm", "-r", "200", name[:-4] + ".pdf", "office", directory=place.directory)
    return bordered(collect(place, "office-")[0])


def emf(place):
    if shutil.which("soffice"):
        plot(place, "EMF", "a.emf")
        same_picture(reference(place), office(place, "a.emf"))


def cgm(place):
    if not shutil.which("soffice"):
        return
    for version in (1, 4):
        plot(place, "CGM", "a.cgm", before=("CGMVER(%d)" % version,))
        profile = "-env:UserInstallation=file://" + place.path("profile")
        command("soffice", profile, "--headless", "--convert-to", "svg", "a.cgm", directory=place.directory)
        # The picture is as wide as the slide it is put on, and higher.
        text = place.read("a.svg").decode("utf-8")
        head = re.search(r'<svg[^>]*viewBox="0 0 (\d+) (\d+)"', text)
        height = str(int(int(head.group(1)) * HEIGHT / WIDTH) + 40)
        text = text.replace(' height="%s"' % head.group(2), ' height="%s"' % height)
        text = text.replace('viewBox="0 0 %s %s"' % head.groups(), 'viewBox="0 0 %s %s"' % (head.group(1), height))
        with open(place.path("b.svg"), "w", encoding="utf-8") as file:
            text = text.replace('<g visibility="hidden">', "<g>").replace(' clip-path="url(#presentation_clip_path)"', "")
            # The width of a line is that of the reader's choice, here a hair.
            file.write(text.replace('<path fill="none"', '<path fill="none" style="stroke-width:40"'))
        command("rsvg-convert", "-b", "white", "-w", "2559", "-h", "1809", "-o", "a.png", "b.svg", directory=place.directory)
        same_picture(reference(place), bordered(png(place.path("a.png"))))


TEXT = ("SETVLT('SMAL')", "PAGERA()", "HEIGHT(120)", "PSFONT('Times-Roman')", "MESSAG('Text <of> & drivers',200,300)",
        "COLOR('RED')", "PSFONT('Times-BoldItalic')", "MESSAG('Bold slanted',200,700)")
TURNED = TEXT + ("COLOR('BLUE')", "ANGLE(90)", "PSFONT('Times-Roman')", "MESSAG('Upwards',2500,1700)", "ANGLE(270)",
                 "MESSAG('Downwards',2200,300)")
REST = ("ANGLE(0)", "PSFONT('Helvetica')", "COLOR('FORE')", "MESSAG('Helvetica',200,1100)", "PSFONT('Courier-Bold')",
        "MESSAG('Courier',200,1500)")


def driver_fonts(place):
    """The fonts of the viewers differ a little; their places, sizes and colours do not."""
    plain, turned, page = reference(place, TEXT + REST), reference(place, TURNED + REST), reference(place, TURNED)
    plot(place, "SVG", "a.svg", TEXT + REST)
    command("rsvg-convert", "-b", "white", "-z", "2", "-o", "a.png", "a.svg", directory=place.directory)
    same_picture(plain, png(place.path("a.png")), radius=5, bound=1500)
    plot(place, "SVG", "b.svg", TURNED + REST)
    # librsvg knows no turned characters.
    command(SYSTEM_PYTHON, "-m", "cairosvg", "b.svg", "-s", "2", "-o", "b.png", directory=place.directory)
    same_picture(turned, png(place.path("b.png")), radius=5, bound=1500)
    plot(place, "IPE", "a.ipe", TURNED)
    command("ipetoipe", "-pdf", "a.ipe", "a.pdf", directory=place.directory)
    command("pdftoppm", "-r", "73", "a.pdf", "ipe", directory=place.directory)
    # IPE has no bold and no slanted text: Times-Roman stands for it.
    same_picture(page, bordered(collect(place, "ipe-")[0]), radius=7, bound=1500)


def accented_letters(place):
    page = ("PSFONT('Times-Roman')", "EUSHFT('GERM','!')", "MESSAG('x!A!o!sx',300,300)")
    plot(place, "SVG", "a.svg", page)
    command("rsvg-convert", "-f", "pdf", "-o", "a.pdf", "a.svg", directory=place.directory)
    text = command("pdftotext", "a.pdf", "-", directory=place.directory)
    check("".join(text.split()) == "x\u00c4\u00f6\u00dfx", text)
    plot(place, "IPE", "a.ipe", page)
    command("ipetoipe", "-pdf", "a.ipe", "b.pdf", directory=place.directory)
    text = "".join(command("pdftotext", "b.pdf", "-", directory=place.directory).split())
    check("x" in text and ("\u00c4" in text or "A" in text), text)


def no_seams(place):
    """Squares that share an edge, turned by an angle whose cosine is 0.8, and upright ones between pixels."""
    squares = ["SETVLT('SMAL')", "PAGERA()", "COLOR('RED')", "HSYMBL(100)"]
    squares += ["SYMBOL(16,%d,1500)" % (333 + 100 * k) for k in range(6)]
    squares += ["SYMROT(36.869898)"] + ["SYMBOL(16,%d,%d)" % (500 + 80 * k, 1000 - 60 * k) for k in range(8)]
    edges = [(383 + 100 * k, 1500) for k in range(5)] + [(540 + 80 * k, 970 - 60 * k) for k in range(7)]
    plot(place, "PDF", "a.pdf", squares)
    plot(place, "SVG", "a.svg", squares)
    command("pdftoppm", "-r", "77", "a.pdf", "seam", directory=place.directory)
    pictures = [bordered(collect(place, "seam-")[0])]
    pictures += [bordered(ghostscript(place, "a.pdf", "-r77", "-dGraphicsAlphaBits=4")[0])]
    command("rsvg-convert", "-b", "white", "-z", "2", "-o", "a.png", "a.svg", directory=place.directory)
    command(SYSTEM_PYTHON, "-m", "cairosvg", "a.svg", "-s", "2", "-o", "b.png", directory=place.directory)
    pictures += [png(place.path("a.png")), png(place.path("b.png"))]
    for k, picture in enumerate(pictures):
        for x, y in edges:
            px, py = picture.pixel(x, y)
            for dy in (-1, 0, 1):
                for dx in (-1, 0, 1):
                    color = picture.color(int(px) + dx, int(py) + dy)
                    check(color[0] > 220 and max(color[1:]) < 40, "picture %d, edge at %d %d: %s" % (k, x, y, color))


def the_comparison_sees_faults(place):
    """A page that lost, moved or recoloured one thing is not the same."""
    good = reference(place)

    def differs(*changes):
        page = PAGE
        for old, new in changes:
            check(old in page, old)
            page = tuple(new if line == old else line for line in page)
        try:
            same_picture(good, reference(place, page))
        except Failure:
            return
        raise Failure("not seen: " + str(changes))

    differs(("CURVE(X,Y,50)", "SOLID()"))
    differs(("COLOR('RED')", "COLOR('CYAN')"))
    differs(("AXSBGD(5)", "AXSBGD(3)"))
    differs(("LINE(2600,200,2900,500)", "LINE(2560,200,2860,500)"), ("MESSAG('Strokes',100,100)", "MESSAG('Strokes',100,125)"),
            ("MESSAG('Upwards',2700,1800)", "MESSAG('Upwards',2675,1800)"))


CASES = (svg, eps_and_ps, ipe, hpgl, java, pltm_and_cgm_read_back, wmf, emf, cgm, driver_fonts, accented_letters,
         no_seams, the_comparison_sees_faults)
