"""Reader of the public Hershey sets (*.jhf of Debian's package hershey-fonts-data).

A line holds a glyph number (5 columns), a count of pairs (3 columns), then the pairs: the first is left and right side,
each other one a point whose coordinates are the characters less 'R', " R" lifting the pen. y counts downward, the
baseline is at 9, capital letters reach to -12.
"""

DIRECTORY = "/usr/share/hershey-fonts"
BASELINE = 9


def load(name):
    """96 glyphs from code 32: lists of strokes, in half units, y upward from the baseline, smallest x at 0."""
    glyphs = {}
    for code, line in enumerate(open(f"{DIRECTORY}/{name}.jhf").read().splitlines()[:96], 32):
        count, body = int(line[5:8]), line[8:]
        strokes = [[]]
        for k in range(1, count):
            a, b = body[2 * k], body[2 * k + 1]
            if a + b == " R":
                strokes.append([])
            else:
                strokes[-1].append((2 * (ord(a) - ord("R")), 2 * (BASELINE - (ord(b) - ord("R")))))
        glyphs[chr(code)] = flush_left([s for s in strokes if len(s) > 1])
    return glyphs


def extent(strokes):
    """Smallest and largest x, smallest and largest y."""
    xs = [x for s in strokes for x, _ in s]
    ys = [y for s in strokes for _, y in s]
    return (min(xs), max(xs), min(ys), max(ys)) if xs else (0, 0, 0, 0)


def move(strokes, dx, dy=0):
    return [[(x + dx, y + dy) for x, y in s] for s in strokes]


def flush_left(strokes):
    return move(strokes, -extent(strokes)[0])


def shape(*strokes):
    """Strokes given in whole units, in the half units of the maker."""
    return [[(2 * x, 2 * y) for x, y in s] for s in strokes]
