"""The mathematical alphabet: 88 signs at the keys A to Z, a to z and the codes 127 to 162."""

from .hershey import extent, flush_left, load, move, shape
from .letters import circle

AXIS = 9  # height of the minus sign
CIRCLE_8 = [(8, 0), (7, 4), (4, 7), (0, 8)]
DOT = [(-1, 0), (0, 1), (1, 0), (0, -1), (-1, 0)]
TILDE = [(0, 7), (1, 10), (3, 11), (5, 11), (7, 10), (11, 7), (13, 6), (15, 6), (17, 7), (18, 10)]

# Signs of fixed codes; the others fill the free codes in the order of ORDER.
FIXED = {"times": 68, "pm": 70, "le": 72, "in": 87, "infty": 108, "circ": 162}
CODES = [*range(65, 91), *range(97, 123), *range(127, 163)]
ORDER = (
    "mp div cdot ast star cap cup vee wedge setminus odot oplus ominus subset subseteq ge supset supseteq ni neq cong equiv "
    "parallel sim mid notin leftarrow Leftarrow rightarrow Rightarrow Leftrightarrow uparrow downarrow emptyset nabla surd "
    "partial forall exists backslash perp approx leqslant geqslant nless ngtr nleq ngeq prec succ nprec nsucc preceq succeq "
    "npreceq nsucceq ll gg lll ggg not sqsubset sqsupset doteq simeq propto angle nleqslant ngeqslant nsubseteq nsupseteq "
    "sqsubseteq sqsupseteq measuredangle sphericalangle sum prod int oint aleph therefore hbar"
).split()


def codes():
    """Code of each sign by name."""
    free = [c for c in CODES if c not in FIXED.values()]
    assert len(free) == len(ORDER)
    return {**FIXED, **dict(zip(ORDER, free))}


def mirror(strokes):
    width = extent(strokes)[1]
    return [[(width - x, y) for x, y in s] for s in strokes]


def points(stroke, dx=0, dy=0):
    return [(x + dx, y + dy) for x, y in stroke]


def slashed(strokes):
    """A sign with a slash through its middle."""
    x0, x1, y0, y1 = extent(strokes)
    middle = (x0 + x1) // 4 * 2
    return strokes + [[(middle - 8, y0 - 6), (middle + 8, y1 + 6)]]


def raised(strokes, line, by=3):
    """A sign moved up, with a line below it."""
    up = move(strokes, 0, 2 * by)
    return up + [[(0, 2 * line), (extent(up)[1], 2 * line)]]


def signs():
    """Strokes in half units by name."""
    h = load("mathlow")
    out = {name: h[key] for name, key in {
        "pm": "!", "mp": '"', "times": "#", "neq": "?", "equiv": "@", "prod": ":", "sum": ";", "propto": "^",
        "infty": "_", "circ": "`", "surd": "b", "subset": "d", "cup": "e", "supset": "f", "cap": "g", "in": "h",
        "rightarrow": "i", "uparrow": "j", "leftarrow": "k", "downarrow": "l", "partial": "m", "nabla": "n", "int": "p",
        "exists": "v", "aleph": "w", "div": "x", "parallel": "y", "perp": "z", "therefore": "~"}.items()}
    less = shape([(16, 16), (0, 9), (16, 2)])
    prec = shape([(16, 17), (14, 13), (10, 10), (6, 9), (0, 9)], [(0, 9), (6, 9), (10, 8), (14, 5), (16, 1)])
    square = shape([(16, 16), (0, 16), (0, 2), (16, 2)])
    ring = circle(9, AXIS, CIRCLE_8)
    arrow = shape([(3, 12), (20, 12)], [(3, 6), (20, 6)], [(7, 17), (0, 9), (7, 1)])
    corner = shape([(15, 17), (0, 0), (17, 0)])
    wide = shape([(8, 14), (10, 11), (11, 7), (10, 3), (8, 0)], [(17, 14), (0, 7), (17, 0)])
    asterisk = load("rowmans")["*"]
    y0, y1 = extent(asterisk)[2:]
    out.update({
        "ast": move(asterisk, 0, 2 * AXIS - (y0 + y1) // 2),
        "cdot": shape(points(DOT, 1, AXIS)),
        "star": flush_left(load("symbolic")["L"]),
        "vee": shape([(0, 16), (8, 2), (16, 16)]),
        "wedge": shape([(0, 2), (8, 16), (16, 2)]),
        "setminus": shape([(0, 18), (12, 0)]),
        "backslash": shape([(0, 21), (14, -4)]),
        "odot": ring + shape(points(DOT, 9, AXIS)),
        "oplus": ring + shape([(1, 9), (17, 9)], [(9, 1), (9, 17)]),
        "ominus": ring + shape([(1, 9), (17, 9)]),
        "emptyset": flush_left(ring + shape([(2, 0), (16, 18)])),
        "le": raised(less, 0), "ge": raised(mirror(less), 0),
        "leqslant": shape([(16, 19), (0, 12), (16, 5)], [(0, 7), (16, 0)]),
        "geqslant": shape([(0, 19), (16, 12), (0, 5)], [(16, 7), (0, 0)]),
        "prec": prec, "succ": mirror(prec), "preceq": raised(prec, 0), "succeq": raised(mirror(prec), 0),
        "ll": shape([(11, 16), (0, 9), (11, 2)], [(20, 16), (9, 9), (20, 2)]),
        "lll": shape([(10, 16), (0, 9), (10, 2)], [(18, 16), (8, 9), (18, 2)], [(26, 16), (16, 9), (26, 2)]),
        "subseteq": raised(out["subset"], -2), "supseteq": raised(out["supset"], -2), "ni": mirror(out["in"]),
        "sim": shape(TILDE), "approx": shape(points(TILDE, 0, 3), points(TILDE, 0, -3)),
        "simeq": shape(points(TILDE, 0, 4), [(0, 4), (18, 4)]),
        "cong": shape(points(TILDE, 0, 7), [(0, 8), (18, 8)], [(0, 2), (18, 2)]),
        "doteq": shape([(0, 12), (16, 12)], [(0, 6), (16, 6)], points(DOT, 8, 17)),
        "mid": shape([(0, 22), (0, -4)]), "not": shape([(0, -1), (8, 19)]),
        "Leftarrow": arrow, "Rightarrow": mirror(arrow),
        "Leftrightarrow": shape([(4, 12), (20, 12)], [(4, 6), (20, 6)], [(7, 17), (0, 9), (7, 1)], [(17, 17), (24, 9), (17, 1)]),
        "forall": shape([(0, 21), (8, 0), (16, 21)], [(3, 13), (13, 13)]),
        "sqsubset": square, "sqsupset": mirror(square),
        "sqsubseteq": raised(square, 0), "sqsupseteq": raised(mirror(square), 0),
        "angle": corner, "measuredangle": corner + shape([(8, 9), (10, 7), (11, 4), (12, 0)]), "sphericalangle": wide,
        "oint": out["int"], "hbar": load("timesi")["h"],
    })
    out["gg"], out["ggg"] = mirror(out["ll"]), mirror(out["lll"])
    for name, plain in {"notin": "in", "nleq": "le", "ngeq": "ge", "nprec": "prec", "nsucc": "succ", "npreceq": "preceq",
                        "nsucceq": "succeq", "nleqslant": "leqslant", "ngeqslant": "geqslant", "nsubseteq": "subseteq",
                        "nsupseteq": "supseteq"}.items():
        out[name] = slashed(out[plain])
    out["nless"], out["ngtr"] = slashed(less), slashed(mirror(less))
    x0, x1, y0, y1 = extent(out["int"])
    out["oint"] = flush_left(out["int"] + move(circle(0, 0, [(4, 0), (3, 3), (0, 4)]), (x0 + x1) // 4 * 2, (y0 + y1) // 4 * 2))
    out["hbar"] = flush_left(out["hbar"] + shape([(1, 15), (11, 18)]))
    return {name: flush_left(s) for name, s in out.items()}


def alphabet():
    """Glyphs in the order of their codes."""
    made, by_code = signs(), {code: name for name, code in codes().items()}
    return [made[by_code[c]] for c in CODES]
