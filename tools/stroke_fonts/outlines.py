"""Outline fonts: closed contours from an OpenType font, curves cut into straight lines, 200 units of cap height.

An alphabet has split coordinates: an array of x, one of y. An accent is stored once and moved over its letters; offsets
are multiples of 2 units. Needs the Debian packages python3-fonttools and fonts-texgyre.
"""

import math

from .letters import FIRST_PRIVATE, PRIVATE

DIRECTORY = "/usr/share/texmf/fonts/opentype/public/tex-gyre"
CAP_UNITS = 200
TOLERANCE = 0.5  # units between a curve and its lines
POLYGON_LIMIT = 200  # points of all contours of a glyph with the ways back between them
LAST_CODE = 163


class Outlines:
    """Flattened glyphs of a font file."""

    def __init__(self, file):
        from fontTools.ttLib import TTFont
        self.font = TTFont(f"{DIRECTORY}/{file}.otf")
        self.glyphs = self.font.getGlyphSet()
        self.cmap = self.font.getBestCmap()
        self.scale = 1.0
        top = max(y for contour in self.contours("H") for _, y in contour)
        self.scale = CAP_UNITS / top

    def contours(self, character):
        """Closed contours in real units, first point not repeated."""
        from fontTools.pens.recordingPen import DecomposingRecordingPen
        pen = DecomposingRecordingPen(self.glyphs)
        self.glyphs[self.cmap[ord(character)]].draw(pen)
        contours = []
        for operation, points in pen.value:
            points = [(x * self.scale, y * self.scale) for x, y in points]
            if operation == "moveTo":
                contours.append([points[0]])
            elif operation == "lineTo":
                contours[-1].append(points[0])
            elif operation == "curveTo":
                contours[-1] += cubic(contours[-1][-1], *points)
        return contours


def cubic(p0, p1, p2, p3):
    bend = max(math.dist(p1, between(p0, p3, 1 / 3)), math.dist(p2, between(p0, p3, 2 / 3)))
    n = max(1, math.ceil(math.sqrt(bend * 0.75 / TOLERANCE / 2)))
    out = []
    for i in range(1, n + 1):
        t = i / n
        a, b, c, d = (1 - t) ** 3, 3 * (1 - t) ** 2 * t, 3 * (1 - t) * t * t, t ** 3
        out.append((a * p0[0] + b * p1[0] + c * p2[0] + d * p3[0], a * p0[1] + b * p1[1] + c * p2[1] + d * p3[1]))
    return out


def between(p, q, t):
    return (p[0] + (q[0] - p[0]) * t, p[1] + (q[1] - p[1]) * t)


def rounded(contour, dx=0.0, dy=0.0):
    """Whole units, without points that lie on the line of their neighbours; the first point is repeated at the end."""
    points = []
    for x, y in contour:
        p = (math.floor(x + dx + 0.5), math.floor(y + dy + 0.5))
        if not points or p != points[-1]:
            points.append(p)
    while len(points) > 1 and points[0] == points[-1]:
        points.pop()
    changed = True
    while changed and len(points) > 3:
        changed = False
        for i, b in enumerate(points):
            a, c = points[i - 1], points[(i + 1) % len(points)]
            if (b[0] - a[0]) * (c[1] - b[1]) == (b[1] - a[1]) * (c[0] - b[0]):
                del points[i]
                changed = True
                break
    return points + points[:1]


def extent(contours):
    xs, ys = [x for c in contours for x, _ in c], [y for c in contours for _, y in c]
    return min(xs), max(xs), min(ys), max(ys)


def flush(contours):
    x0 = extent(contours)[0]
    return [rounded(c, -x0) for c in contours]


SIGNS = {"germandbls": "\u00df", "Oslash": "\u00d8", "AE": "\u00c6", "oslash": "\u00f8", "ae": "\u00e6"}
MARKS = {"dieresis": "\u00a8", "ring": "\u02da", "tilde": "\u02dc", "acute": "\u00b4", "grave": "`"}
COMBINING = {"dieresis": "\u0308", "ring": "\u030a", "tilde": "\u0303", "acute": "\u0301", "grave": "\u0300",
             "cedilla": "\u0327"}


class SplitTable:
    def __init__(self):
        self.xs, self.ys, self.known = [], [], {}

    def entry(self, contour, dx=0, dy=0):
        """n, s or -n, s, d for a contour moved by even numbers of units."""
        assert dx % 2 == 0 and dy % 2 == 0 and abs(dx) <= 254 and abs(dy) <= 254
        key = tuple(contour)
        if key not in self.known:
            self.known[key] = len(self.xs) + 1
            self.xs += [x for x, _ in contour]
            self.ys += [y for _, y in contour]
        if dx == 0 and dy == 0:
            return [len(contour), self.known[key]]
        word = (dy // 2 & 255) << 8 | (dx // 2 & 255)
        return [-len(contour), self.known[key], word - 65536 if word > 32767 else word]


def even(value):
    return 2 * round(value / 2)


def outline_tables(name, file):
    font, table = Outlines(file), SplitTable()
    digit_width = even(max(extent(font.contours(d))[1] - extent(font.contours(d))[0] for d in "0123456789"))
    plain, records = {}, []

    def glyph(character):
        if character not in plain:
            plain[character] = flush(font.contours(character))
        return plain[character]

    def accented(letter, accent):
        import unicodedata
        whole = unicodedata.normalize("NFC", letter + COMBINING[accent])
        if accent == "cedilla":
            return [table.entry(c) for c in flush(font.contours(whole))]
        base = glyph("\u0131" if letter == "i" else letter)
        mark = glyph(MARKS[accent])
        x0, x1, _, top = extent(base)
        wanted = max(extent([c])[2] for c in font.contours(whole))  # foot of the highest contour
        m0, m1, foot, _ = extent(mark)
        if wanted < top - 20:  # the mark and the letter are one contour
            wanted = top + 10
        dx, dy = even((x0 + x1 - m0 - m1) / 2), even(wanted - foot)
        shift = -min(0, m0 + dx)  # a mark wider than its letter pushes it to the right
        shift += shift % 2
        return [table.entry(c, shift) for c in base] + [table.entry(c, dx + shift, dy) for c in mark]

    for code in range(33, LAST_CODE + 1):
        if code < FIRST_PRIVATE:
            contours = glyph(chr(code))
            if chr(code).isdigit():
                space = even((digit_width - extent(contours)[1]) / 2)
                entries = [table.entry(c, space) for c in contours]
                if extent(contours)[1] + space < digit_width:
                    entries.append(table.entry([(digit_width, 0)]))  # a point that widens the cell
            else:
                entries = [table.entry(c) for c in contours]
        else:
            letter, _, accent = PRIVATE[code - FIRST_PRIVATE].partition(":")
            entries = accented(letter, accent) if accent else [table.entry(c) for c in flush(font.contours(SIGNS[letter]))]
        assert sum(abs(e[0]) for e in entries) + len(entries) < POLYGON_LIMIT, code
        words = [w for e in entries for w in e]
        records += [len(words) + 1] + words
    return [(f"k{name}X", table.xs), (f"k{name}Y", table.ys), (f"k{name}Index", records)]


def all_outlines():
    return {"helve": outline_tables("Helve", "texgyreheros-regular"), "helves": outline_tables("Helves", "texgyreheroscn-regular"),
            "helvet": outline_tables("Helvet", "texgyreheros-bold"), "serif": outline_tables("Serif", "texgyretermes-regular")}
