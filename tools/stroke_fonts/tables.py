"""Packs glyphs into the two tables of an alphabet and writes them as C++.

Points: one 16-bit word each, low byte x, high byte y, both signed. Index: one record a glyph, its length in words
first, then stroke entries n, s or -n, s, d: n points from the s-th word on (counted from 1), moved by d, whose low byte
is x and high byte y in half units. A stroke whose shape was stored before is not stored again.
"""

OFFSET_LIMIT = 127


class Points:
    def __init__(self):
        self.words = []
        self.known = {}  # shape -> (start, first point)

    def entry(self, stroke):
        first = stroke[0]
        shape = tuple((x - first[0], y - first[1]) for x, y in stroke)
        if shape not in self.known:
            start = len(self.words) + 1
            corner = (first[0] - first[0] % 2, first[1] - first[1] % 2)
            for x, y in shape:
                assert x % 2 == 0 and y % 2 == 0, stroke
                self.words.append(_word((corner[0] + x) // 2, (corner[1] + y) // 2))
            self.known[shape] = (start, corner)
        start, at = self.known[shape]
        dx, dy = first[0] - at[0], first[1] - at[1]
        if dx == 0 and dy == 0:
            return [len(stroke), start]
        assert abs(dx) <= OFFSET_LIMIT and abs(dy) <= OFFSET_LIMIT
        return [-len(stroke), start, _word(dx, dy)]


def _word(low, high):
    assert -128 <= low < 128 and -128 <= high < 128
    word = (high & 255) << 8 | (low & 255)
    return word - 65536 if word > 32767 else word


def index_of(points, glyphs):
    """Records of the glyphs in half units; an empty glyph has a record of one word."""
    words = []
    for strokes in glyphs:
        record = [w for s in strokes for w in points.entry(s)]
        words += [len(record) + 1] + record
    return words


def _starts(words):
    """Places of the records in an index."""
    starts, at = [], 0
    while at < len(words):
        starts.append(at)
        at += words[at]
    return starts


def _array(name, words, kind="int16_t"):
    lines, line = [], " "
    for w in words:
        item = f" {w},"
        if len(line) + len(item) > 119:
            lines.append(line)
            line = " "
        line += item
    lines.append(line)
    return f"const std::{kind} {name}[{len(words)}] = {{\n" + "\n".join(lines) + "\n};\n"


def write_tables(path, name, tables):
    """tables: list of (C++ name, words)."""
    with open(path, "w") as out:
        out.write("// Made by tools/make_stroke_fonts; NOTICE names the sources.\n")
        out.write('#include "text/stroke_tables.h"\n\nnamespace quilla {\n\n// clang-format off\n')
        for array_name, words in tables:
            out.write(_array(array_name, words) + "\n")
            if array_name.endswith("Index"):
                out.write(_array(array_name[:-5] + "Starts", _starts(words), "uint16_t") + "\n")
        out.write("// clang-format on\n\n} // namespace quilla\n")
