"""The fonts: which set each takes its letters from, and what is mended."""

from . import mathematics, quialf
from .hershey import extent, flush_left, load, move, shape
from .letters import (CAP, COMPLEX, FIRST_PRIVATE, PRIVATE, SINGLE, TRIPLE, CIRCLE_5, CIRCLE_10, Accents, circle, dotless, doubled, half_turn, scaled)
from .tables import Points, index_of

ASCII = [chr(c) for c in range(33, 127)]
SHORT_LAST = 163  # last code of the fonts of 132 glyphs
GREEK_ALPHABET = "ABCDEZHQIKLMNXOPRSTYFGUW"  # keys in the order of the Greek alphabet; C gamma, G chi, U psi, Y upsilon
DIGIT_WIDTH = 14


def tabular(digits):
    """All digits in one cell: a stroke of one point widens a glyph without a line."""
    out = {}
    for d, strokes in digits.items():
        cell = []
        for s in strokes:
            cell.append([(min(max(x, 0), 2 * DIGIT_WIDTH), y) for x, y in s])
        if extent(cell)[1] < 2 * DIGIT_WIDTH:
            cell.append([(2 * DIGIT_WIDTH, 0)])
        out[d] = cell
    return out


def place_digits(font, offsets):
    digits = {d: move(font[d], 2 * offsets.get(d, 0)) for d in "0123456789"}
    font.update(tabular(digits))


def mathematical_signs(font):
    """Plus, minus and equals narrower than the sets have them: they stand beside digits."""
    font["+"] = shape([(7, 16), (7, 2)], [(0, 9), (14, 9)])
    font["-"] = shape([(0, 9), (12, 9)])
    font["="] = shape([(0, 12), (14, 12)], [(0, 6), (14, 6)])


def single_signs(font):
    """Signs of the single-stroke font, which the doubled one doubles."""
    mathematical_signs(font)
    font["["] = shape([(5, 25), (0, 25), (0, -7), (5, -7)])
    font["]"] = shape([(0, 25), (5, 25), (5, -7), (0, -7)])
    brace = [(6, 25), (4, 24), (3, 22), (3, 19), (4, 16), (4, 13), (3, 11), (0, 9), (3, 7), (4, 5), (4, 2), (3, -1), (3, -4),
             (4, -6), (6, -7)]
    font["{"] = shape(brace)
    font["}"] = shape([(6 - x, y) for x, y in brace])
    font["^"] = shape([(0, 14), (6, 22), (12, 14)])
    font["_"] = shape([(0, -3), (14, -3)])
    font["~"] = shape([(0, 7), (1, 10), (3, 11), (5, 11), (7, 10), (11, 7), (13, 6), (15, 6), (17, 7), (18, 10)])
    font["|"] = shape([(0, 25), (0, -7)])


def germandbls():
    return shape([(0, 0), (0, 15), (1, 18), (2, 20), (4, 21), (7, 21), (9, 20), (10, 18), (10, 16), (9, 14), (8, 13), (5, 12)],
                 [(5, 12), (8, 12), (10, 11), (11, 10), (12, 7), (12, 5), (11, 2), (9, 0), (6, 0), (4, 1)])


def germandbls_complex(strokes):
    """With 2 or 3 lines in the stems."""
    three = strokes == 3
    return shape(
        [(3, 0), (3, 16), (4, 19), (5, 20), (7, 21), (9, 21), (11, 20), (12, 18), (12, 16), (11, 14), (8, 12)],
        [(0, 0), (5 if three else 4, 0)], [(4, 0), (4, 16), (5, 19), (7, 21)],
        [(9, 21), (10, 20), (11, 18), (11, 16), (10, 14), (8, 12)],
        [(8, 12), (11, 11), (13, 10), (14, 8), (14, 4), (13, 2), (12, 1), (10, 0), (8, 0), (7, 1), (7, 2), (8, 3)],
        [(8, 12), (10, 11), (12, 10), (13, 8), (13, 4), (12, 2), (10, 0)],
        *([[(5, 0), (5, 16), (6, 19), (7, 21)], [(9, 21), (12, 20), (13, 18), (13, 16), (12, 14), (8, 12)],
           [(8, 12), (12, 11), (14, 10), (15, 8), (15, 4), (14, 2), (12, 1)]] if three else []))


def ae_complex(strokes):
    """With 2 or 3 lines in the stem."""
    third = strokes - 2
    return shape([(12, 21), (3, 0)], [(0, 0), (6, 0)], [(5, 6), (13, 6)],
                 *[[(x, 21), (x, 0)] for x in range(13, 13 + strokes)],
                 [(10, 21), (24 + third, 21), (24 + third, 15), (23 + third, 21)], [(12 + strokes, 11), (20 + third, 11)],
                 [(20 + third, 15), (20 + third, 7)], [(10, 0), (24 + third, 0), (24 + third, 6), (23 + third, 0)])


def sloped_bar(strokes, rise):
    x0, x1, y0, y1 = extent(strokes)
    return [[(x0 - 2, y0 - rise), (x1 + 2, y1 + rise)]]


def special_signs(font, name):
    """Signs that are no letter with an accent. name: simple, double, complex or triple."""
    pair = doubled if name in ("double", "triple") else (lambda s: s)
    font["Oslash"] = flush_left(font["O"] + pair(sloped_bar(font["O"], 4)))
    font["oslash"] = flush_left(font["o"] + pair(sloped_bar(font["o"], 4)))
    if name in ("complex", "triple"):
        lines = 2 if name == "complex" else 3
        font["germandbls"], font["AE"] = germandbls_complex(lines), ae_complex(lines)
    else:
        font["germandbls"] = pair(germandbls())
        font["AE"] = pair(shape([(0, 0), (11, 21), (23, 21)], [(12, 21), (12, 0), (23, 0)], [(3, 6), (12, 6)], [(12, 11), (20, 11)]))
    a, e = font["a"], font["e"]
    font["ae"] = a + move(e, extent(a)[1] - {"simple": 0, "double": 2, "complex": 8, "triple": 8}[name])
    font["dotlessi"] = dotless(font["i"])


def latin2_signs(font):
    """Signs of the codes from 164 on, in the one font that has them."""
    font["exclamdown"] = half_turn(font["!"], XHEIGHT_TOP)
    font["questiondown"] = half_turn(font["?"], XHEIGHT_TOP)
    font["copyright"] = circle(10, 11, CIRCLE_10) + move(scaled(load("rowmans")["C"], 0.6), 11, 10)
    font["currency"] = circle(8, 9, CIRCLE_5) + shape(*[[(8 + 4 * a, 9 + 4 * b), (8 + 7 * a, 9 + 7 * b)] for a in (-1, 1) for b in (-1, 1)])
    font["section"] = load("symbolic")["i"]
    for letter in "Ll":
        x0 = extent(font[letter])[0]
        at = x0 + 10
        font[letter + "slash"] = flush_left(font[letter] + [[(at - 10, 2 * 8), (at + 8, 2 * 15)]])
    font["Dcroat"] = flush_left(font["D"] + shape([(-1, 11), (9, 11)]))
    right = extent(font["d"])[1]
    font["dcroat"] = font["d"] + [[(right - 16, 2 * 17), (right + 2, 2 * 17)]]
    font["Hbar"] = flush_left(font["H"] + [[(-2, 2 * 16), (extent(font["H"])[1] + 2, 2 * 16)]])
    font["hbar"] = flush_left(font["h"] + shape([(-2, 17), (9, 17)]))


XHEIGHT_TOP = 2 * 14


def latin_glyphs(font, marks, last):
    accents = Accents(marks, font, 4)
    glyphs = [font[c] for c in ASCII]
    for code in range(FIRST_PRIVATE, last + 1):
        letter, _, accent = PRIVATE[code - FIRST_PRIVATE].partition(":")
        glyphs.append(accents.compose(letter, accent) if accent else font[letter])
    return glyphs


def half_units(marks):
    return {k: shape(*v) for k, v in marks.items()}


def simplx():
    font = load("rowmans")
    single_signs(font)
    place_digits(font, {"1": 3, "6": 1})
    font["$"] = font["S"] + shape([(7, 25), (7, -4)])
    special_signs(font, "simple")
    points = Points()
    latin = index_of(points, latin_glyphs(font, half_units(SINGLE), SHORT_LAST))
    letters = greek_letters("greeks", load("rowmans")["0"], shape(FINAL_SIGMA))
    greek = index_of(points, [letters[k] for k in LETTER_KEYS])
    return [("kSimplxPoints", points.words), ("kSimplxIndex", latin), ("kSimplxGreekIndex", greek)]


def duplx():
    font = load("rowmand")
    single_signs(font)
    place_digits(font, {"1": 3, "6": 1})
    for sign in "[]{}|\\<>#%@":
        font[sign] = doubled(font[sign])
    font["+"] = doubled(font["+"][:1]) + doubled(font["+"][1:], 0, 2)
    for sign in "^_~-=":
        font[sign] = doubled(font[sign], 0, 2)
    special_signs(font, "double")
    marks = {k: doubled(v, 0, 2) if k in ("tilde", "breve", "circumflex", "caron") else doubled(v) for k, v in half_units(SINGLE).items()}
    points = Points()
    latin = index_of(points, latin_glyphs(font, marks, SHORT_LAST))
    return [("kDuplxPoints", points.words), ("kDuplxIndex", latin)]


def complx():
    font = load("timesr")
    signs = load("greekc")
    for sign in ".,:;!?":
        font[sign] = signs[sign]
    place_digits(font, {"1": 3, "4": -1})
    mathematical_signs(font)
    font["^"] = shape([(0, 14), (6, 22), (12, 14)], [(0, 14), (6, 21), (12, 14)])
    font["_"] = shape([(0, -3), (14, -3)])
    special_signs(font, "complex")
    latin2_signs(font)
    points = Points()
    latin = index_of(points, latin_glyphs(font, half_units(COMPLEX), 264))
    return [("kComplxPoints", points.words), ("kComplxIndex", latin)]


def triplx():
    font = load("rowmant")
    place_digits(font, {"1": 3, "4": -1})
    for sign, narrower in (("+", 3), ("=", 2), ("-", 4)):
        font[sign] = narrowed(font[sign], narrower)
    font["^"] = shape([(0, 14), (6, 22), (12, 14)], [(0, 14), (6, 21), (12, 14)], [(0, 14), (6, 20), (12, 14)])
    font["_"] = doubled(shape([(0, -3), (14, -3)]), 0, 2)
    for sign in "\\<>#%@|{}":
        font[sign] = doubled(font[sign])
    font["~"] = doubled(font["~"], 0, 2)
    special_signs(font, "triple")
    points = Points()
    latin = index_of(points, latin_glyphs(font, half_units(TRIPLE), SHORT_LAST))
    return [("kTriplxPoints", points.words), ("kTriplxIndex", latin)]


def narrowed(strokes, units):
    """A sign of straight lines made narrower about its middle."""
    middle = extent(strokes)[1] / 2

    def moved(x):
        return x - 2 * units if x > middle + 2 else x - units // 2 * 2 if abs(x - middle) <= 2 else x
    return [[(moved(x), y) for x, y in s] for s in strokes]


def blackletter_letters(name):
    font = load(name)
    return font, [font[k] for k in LETTER_KEYS]


def gothic():
    """English in slot 1, Italian in slot 4, German with its umlauts in slot 5."""
    font = load("gothiceng")
    for sign, narrower in (("+", 3), ("=", 2)):
        font[sign] = narrowed(font[sign], narrower)
    font["-"] = doubled(shape([(0, 9), (12, 9)]), 0, 2)
    font["^"] = shape([(0, 14), (6, 22), (12, 14)], [(0, 14), (6, 21), (12, 14)])
    font["_"] = doubled(shape([(0, -3), (14, -3)]), 0, 2)
    for sign in "#%@\\<>|{}":
        font[sign] = doubled(font[sign])
    font["~"] = doubled(font["~"], 0, 2)
    for digit in "0123456789":  # the set's digits are of many widths
        font[digit] = centred(font[digit], GOTHIC_DIGIT_WIDTH)
    latin = Points()
    tables = [("kGothicPoints", latin.words), ("kGothicIndex", index_of(latin, [font[c] for c in ASCII]))]
    italian = Points()
    letters = blackletter_letters("gothicita")[1]
    tables += [("kGothicItalianPoints", italian.words), ("kGothicItalianIndex", index_of(italian, letters))]
    font, letters = blackletter_letters("gothicger")
    dots = Accents({}, font).marks["dieresis"]
    for letter in "AOUaou":
        x0, x1, _, y1 = extent(font[letter])
        letters.append(flush_left(font[letter] + move(dots, (x0 + x1) // 4 * 2, y1 + 4)))
    long_s, z = font["s"], font["z"]
    letters.append(long_s + move(z, extent(long_s)[1] - 10))
    german = Points()
    return tables + [("kGothicGermanPoints", german.words), ("kGothicGermanIndex", index_of(german, letters))]


GOTHIC_DIGIT_WIDTH = 16


def centred(strokes, width):
    """Strokes in a cell of the width; a stroke of one point widens it without a line."""
    placed = move(strokes, (2 * width - extent(strokes)[1]) // 4 * 2)
    return placed if extent(placed)[1] == 2 * width else placed + [[(2 * width, 0)]]


def sheared(strokes):
    return flush_left([[(x + round(y / 10) * 2, y) for x, y in s] for s in strokes])


def greek_letters(name, zero, sigma):
    """52 letters by key, from a set in the order of the Greek alphabet. zero: digit that makes the theta."""
    source = load(name)
    letters = {}
    for i, key in enumerate(GREEK_ALPHABET):
        letters[key] = source[chr(65 + i)]
        letters[key.lower()] = source[chr(97 + i)]
    letters["J"] = letters["q"]  # the script form of theta
    ring = sheared(scaled_width(zero, 0.75))
    middle = extent(ring)[1] // 4 * 2
    letters["q"] = ring + [[(middle - 10, 20), (middle + 10, 20)]]
    letters["V"] = sigma
    x0, x1, _, y1 = extent(letters["w"])
    letters["v"] = letters["w"] + [[(x0 + 2, y1), (x1 + 2, y1)]]
    middle = extent(letters["o"])[1] // 4 * 2
    letters["j"] = letters["o"] + [[(middle - 6, -14), (middle + 6, 42)]]
    return letters


def scaled_width(strokes, factor):
    return [[(round(x / 2 * factor) * 2, y) for x, y in s] for s in strokes]


LETTER_KEYS = [*map(chr, range(65, 91)), *map(chr, range(97, 123))]
FINAL_SIGMA = [(11, 11), (10, 13), (8, 14), (5, 14), (2, 12), (0, 9), (0, 6), (1, 4), (3, 2), (6, 1), (8, -1), (8, -4), (7, -6), (5, -7)]


def quialf_tables():
    font = {k: quialf.glyph(v) for k, v in quialf.LATIN.items()}
    glyphs = [font[c] for c in ASCII]
    for code in range(FIRST_PRIVATE, SHORT_LAST + 1):
        letter, _, accent = PRIVATE[code - FIRST_PRIVATE].partition(":")
        if accent == "cedilla":
            glyphs.append(font[letter + accent])
        elif accent:
            capital, small = quialf.ACCENTS[accent]
            glyphs.append(font["dotlessi" if letter == "i" else letter] + quialf.glyph(capital if letter.isupper() else small))
        else:
            glyphs.append(font[letter])
    points = Points()
    latin = index_of(points, glyphs)
    greek = index_of(points, [quialf.glyph(quialf.GREEK[k]) for k in LETTER_KEYS])
    return [("kQuialfPoints", points.words), ("kQuialfIndex", latin), ("kQuialfGreekIndex", greek)]


# Accented letters of the Greek alphabet, codes 127 to 147: key and accent in the order of Unicode 902 to 974.
GREEK_ACCENTED = ("A:tonos E:tonos H:tonos I:tonos O:tonos Y:tonos W:tonos i:both I:dieresis Y:dieresis a:acute e:acute "
                  "h:acute i:acute y:both V: i:dieresis y:dieresis o:acute y:acute w:acute").split()


def greek_accented(letters, marks):
    both = marks["dieresis"] + move(marks["acute"], 0, 4)
    for entry in GREEK_ACCENTED:
        key, accent = entry.split(":")
        base = letters[key]
        x0, x1, _, y1 = extent(base)
        if accent == "tonos":
            mark = marks["acute"]
            yield flush_left(base + move(mark, -extent(mark)[1] - 2, 2 * 15))
        elif accent:
            yield flush_left(base + move(both if accent == "both" else marks[accent], (x0 + x1) // 2, y1 + 6))
        else:
            yield base


def greek_tables():
    latin = load("timesr")
    letters = greek_letters("greekc", latin["0"], load("symbolic")["v"])
    ring = letters["o"]
    middle = extent(ring)[1] // 4 * 2
    letters["j"] = ring + [[(middle - 6, -14), (middle + 6, 42)], [(middle - 4, -14), (middle + 8, 42)]]
    marks = Accents(half_units(COMPLEX), latin).marks
    points = Points()
    index = index_of(points, [letters[k] for k in LETTER_KEYS] + list(greek_accented(letters, marks)))
    return [("kGreekPoints", points.words), ("kGreekIndex", index)]


def mathematics_tables():
    points = Points()
    index = index_of(points, mathematics.alphabet())
    return [("kMathPoints", points.words), ("kMathIndex", index)]


def script_tables():
    font = load("scripts")
    font["germandbls"] = sheared(germandbls())
    dots = Accents(half_units(SINGLE), load("rowmans")).marks["dieresis"]
    umlauts = []
    for letter in "AOUaou":  # over slanted letters the dots stand right of the middle
        x0, x1, _, y1 = extent(font[letter])
        umlauts.append(font[letter] + move(dots, (x0 + x1) // 2 + 4, y1 + 6))
    points = Points()
    index = index_of(points, [font[k] for k in LETTER_KEYS] + umlauts + [font["germandbls"]])
    return [("kScriptPoints", points.words), ("kScriptIndex", index)]


# Keys of the Cyrillic letters: 36 to 38, 60 to 62, 65 to 94, 97 to 126.
CYRILLIC_KEYS = "\u0401\u042e\u042a" + "\u0451\u044e\u044a" + "".join(
    letter if case == "upper" else letter.lower()
    for case in ("upper", "lower")
    for letter in "\u0410\u0411\u0426\u0414\u0415\u0424\u0413\u0425\u0418\u0419\u041a\u041b\u041c\u041d\u041e\u041f\u042f"
                  "\u0420\u0421\u0422\u0423\u0412\u0428\u042c\u042b\u0417\u0416\u042d\u0429\u0427")


def cyrillic_tables():
    alphabetic, rest = load("cyrilc_1"), load("cyrillic")
    font = {}
    for i in range(26):  # A to Shcha stand in alphabetical order
        font[chr(0x410 + i)] = alphabetic[chr(65 + i)]
        font[chr(0x430 + i)] = alphabetic[chr(97 + i)]
    for letter, upper, lower in zip("\u042a\u042b\u042c\u042e\u042f", "]$_U^", "|&~u}"):
        font[letter], font[letter.lower()] = rest[upper], rest[lower]
    font["\u042d"] = rest["C"]
    font["\u044d"] = scaled(rest["C"], 2 / 3)  # the sets have no small one
    dots = Accents(half_units(COMPLEX), load("timesr")).marks["dieresis"]
    for letter, base in (("\u0401", "\u0415"), ("\u0451", "\u0435")):
        x0, x1, _, y1 = extent(font[base])
        font[letter] = font[base] + move(dots, (x0 + x1) // 2, y1 + 6)
    points = Points()
    index = index_of(points, [flush_left(font[letter]) for letter in CYRILLIC_KEYS])
    return [("kCyrillicPoints", points.words), ("kCyrillicIndex", index)]


def italic_tables():
    font = load("timesi")
    accents = Accents(half_units(COMPLEX), font)
    points = Points()
    index = index_of(points, [font[chr(c)] for c in range(97, 123)] + [accents.compose(c, "dieresis") for c in "aou"])
    return [("kItalicPoints", points.words), ("kItalicIndex", index)]


def all_tables():
    return {"quialf": quialf_tables(), "simplx": simplx(), "duplx": duplx(), "complx": complx(), "triplx": triplx(), "gothic": gothic(), "greek": greek_tables(),
            "mathematics": mathematics_tables(), "script": script_tables(), "cyrillic": cyrillic_tables(),
            "italic": italic_tables()}
