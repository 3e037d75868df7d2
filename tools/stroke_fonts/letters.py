"""The private character code 127 to 264: which letter and accent make each sign, and how accents are placed."""

from .hershey import extent, flush_left, move, shape

# Codes 127 to 187. Each entry is (letter, accent) or the name of a sign of its own.
_FIRST = (
    "A:dieresis O:dieresis U:dieresis a:dieresis o:dieresis u:dieresis germandbls "
    "A:ring Oslash AE a:ring oslash ae N:tilde n:tilde C:cedilla c:cedilla E:dieresis I:dieresis e:dieresis i:dieresis "
    "A:acute E:acute I:acute O:acute U:acute a:acute e:acute i:acute o:acute u:acute "
    "A:grave E:grave I:grave O:grave U:grave a:grave e:grave i:grave o:grave u:grave "
    "A:circumflex E:circumflex I:circumflex O:circumflex U:circumflex "
    "a:circumflex e:circumflex i:circumflex o:circumflex u:circumflex "
    "A:tilde a:tilde O:tilde o:tilde Y:acute y:acute y:dieresis exclamdown questiondown copyright "
)
# Codes 188 to 264: letters of Latin-2, Latin-3 and Turkish. 196, 206 and 241 to 244 are fixed by the shift characters.
_SECOND = (
    "A:ogonek Lslash L:comma S:acute S:caron T:caron Z:acute Z:caron S:cedilla Z:dotaccent "
    "a:ogonek lslash l:comma s:acute s:caron t:comma z:acute z:caron s:cedilla z:dotaccent "
    "R:acute A:breve L:acute C:acute C:caron E:ogonek E:caron D:caron Dcroat N:acute N:caron O:hungarumlaut R:caron "
    "U:ring U:hungarumlaut T:cedilla "
    "r:acute a:breve l:acute c:acute c:caron e:ogonek e:caron d:comma dcroat n:acute n:caron o:hungarumlaut r:caron "
    "u:ring u:hungarumlaut t:cedilla section "
    "G:breve I:dotaccent g:breve dotlessi "
    "Hbar H:circumflex J:circumflex C:dotaccent C:circumflex G:dotaccent U:breve S:circumflex G:circumflex "
    "hbar h:circumflex j:circumflex c:dotaccent c:circumflex g:dotaccent u:breve s:circumflex g:circumflex "
    "currency copyright"
)
FIRST_PRIVATE = 127
PRIVATE = (_FIRST + _SECOND).split()
assert FIRST_PRIVATE + len(PRIVATE) - 1 == 264
assert PRIVATE[196 - 127] == "S:cedilla" and PRIVATE[206 - 127] == "s:cedilla" and PRIVATE[241 - 127] == "G:breve"

CAP, XHEIGHT = 21, 14  # units of the Hershey sets

# Accents as single strokes: x from their centre, y from their foot; below-letter accents from the baseline.
SINGLE = {
    "acute": [[(-2, 0), (2, 5)]],
    "grave": [[(2, 0), (-2, 5)]],
    "circumflex": [[(-4, 0), (0, 5), (4, 0)]],
    "caron": [[(-4, 5), (0, 0), (4, 5)]],
    "tilde": [[(-5, 0), (-4, 2), (-3, 3), (-1, 3), (1, 1), (3, 1), (4, 2), (5, 4)]],
    "breve": [[(-4, 4), (-3, 1), (-1, 0), (1, 0), (3, 1), (4, 4)]],
    "ring": [[(-1, 0), (-3, 2), (-3, 4), (-1, 6), (1, 6), (3, 4), (3, 2), (1, 0), (-1, 0)]],
    "hungarumlaut": [[(-4, 0), (-1, 5)], [(1, 0), (4, 5)]],
    "cedilla": [[(0, 0), (-1, -2), (1, -3), (2, -4), (2, -6), (0, -7), (-2, -7), (-3, -6)]],
    "ogonek": [[(0, 0), (-2, -2), (-3, -4), (-2, -6), (0, -7), (2, -6)]],
}
# Wedges and paired lines of the complex fonts.
COMPLEX = {
    "acute": [[(2, 6), (-3, 0)], [(2, 6), (3, 5), (-3, 0)]],
    "grave": [[(-2, 6), (3, 0)], [(-2, 6), (-3, 5), (3, 0)]],
    "circumflex": [[(-5, 0), (0, 5), (5, 0)], [(-5, 0), (0, 4), (5, 0)]],
    "caron": [[(-5, 5), (0, 0), (5, 5)], [(-5, 5), (0, 1), (5, 5)]],
    "tilde": [[(-6, 0), (-5, 2), (-3, 3), (-1, 2), (1, 1), (3, 1), (5, 2), (6, 4)],
              [(-6, 0), (-5, 3), (-3, 4), (-1, 3), (1, 2), (3, 2), (5, 3), (6, 4)]],
    "breve": [[(-5, 5), (-4, 2), (-2, 0), (2, 0), (4, 2), (5, 5)], [(-5, 5), (-3, 2), (-1, 1), (1, 1), (3, 2), (5, 5)]],
    "ring": SINGLE["ring"],
    "hungarumlaut": [[(-2, 6), (-5, 0)], [(-2, 6), (-1, 5), (-5, 0)], [(4, 6), (1, 0)], [(4, 6), (5, 5), (1, 0)]],
    "cedilla": [[(0, 0), (-1, -2), (1, -2), (3, -3), (3, -5), (2, -7), (-1, -7), (-3, -6)], [(1, -2), (2, -3), (2, -5), (1, -7)]],
    "ogonek": [[(1, 0), (-1, -2), (-2, -4), (-1, -6), (1, -7), (3, -6)], [(-1, -2), (-1, -5), (1, -7)]],
}
# The complex wedges with one more line in their heavy parts.
TRIPLE = {
    **COMPLEX,
    "acute": [[(1, 6), (-3, 0)], [(2, 6), (-3, 0)], [(1, 6), (3, 5), (-3, 0)]],
    "grave": [[(-1, 6), (3, 0)], [(-2, 6), (3, 0)], [(-1, 6), (-3, 5), (3, 0)]],
    "circumflex": [[(-5, 0), (0, 6), (5, 0)], [(-5, 0), (0, 5), (5, 0)], [(-5, 0), (0, 4), (5, 0)]],
    "tilde": COMPLEX["tilde"] + [[(-6, 0), (-5, 4), (-3, 5), (-1, 4), (1, 3), (3, 3), (5, 3), (6, 4)]],
    "ring": [*SINGLE["ring"], [(-1, 1), (-2, 2), (-2, 4), (-1, 5), (1, 5), (2, 4), (2, 2), (1, 1), (-1, 1)]],
    "cedilla": COMPLEX["cedilla"] + [[(0, -1), (2, -3), (2, -5), (0, -7)]],
}


def doubled(strokes, dx=2, dy=0):
    """Each stroke twice, the copy half units away."""
    return [t for s in strokes for t in (s, [(x + dx, y + dy) for x, y in s])]


def circle(cx, cy, arc):
    """A closed circle from the points of its first octants, (r, 0) first and (0, r) last."""
    turn = arc[:-1]
    points = []
    for _ in range(4):
        points += turn
        turn = [(-y, x) for x, y in turn]
    return shape([(cx + x, cy + y) for x, y in points + arc[:1]])


CIRCLE_10 = [(10, 0), (9, 4), (8, 6), (6, 8), (4, 9), (0, 10)]
CIRCLE_5 = [(5, 0), (4, 3), (3, 4), (0, 5)]


def scaled(strokes, factor):
    return [[(round(x / 2 * factor) * 2, round(y / 2 * factor) * 2) for x, y in s] for s in strokes]


def half_turn(strokes, top):
    """Turned upside down so that what stood on the baseline hangs from top."""
    width = extent(strokes)[1]
    return [[(width - x, 2 * top - y) for x, y in s] for s in strokes]


def dotless(strokes):
    return flush_left([s for s in strokes if min(y for _, y in s) < 2 * 16])


def dot_of(strokes):
    """The dot of the small i, its foot at the origin."""
    dot = [s for s in strokes if min(y for _, y in s) >= 2 * 16]
    x0, x1, y0, _ = extent(dot)
    return move(dot, -((x0 + x1) // 2), -y0)


class Accents:
    """Places accents on the letters of one font. marks: strokes by name in half units; font: ASCII glyphs."""

    def __init__(self, marks, font, dot_distance=4):
        self.font = font
        self.marks = dict(marks)
        dot = dot_of(font["i"])
        self.marks["dotaccent"] = dot
        self.marks["dieresis"] = move(dot, -2 * dot_distance) + move(dot, 2 * dot_distance)

    def compose(self, letter, accent):
        base = dotless(self.font[letter]) if letter in "ij" else self.font[letter]
        x0, x1, _, y1 = extent(base)
        middle = (x0 + x1) // 2
        if accent == "comma":
            mark = self.font["'"]
            return base + move(mark, x1 + 4, 2 * CAP - extent(mark)[3])
        mark = self.marks[accent]
        if accent == "cedilla":
            return flush_left(base + move(mark, middle))
        if accent == "ogonek":
            return base + move(mark, x1 - 2 * (1 if letter in "Aa" else 4))
        if letter in "hl":
            middle = extent([s for s in base if extent([s])[3] >= 2 * CAP])[1]
        top = 2 * (CAP if y1 >= 2 * CAP - 4 else XHEIGHT)
        return flush_left(base + move(mark, middle, top + (2 if accent == "ring" else 6)))
