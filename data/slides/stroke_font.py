"""A small stroke font for the labels of the slides: capitals, digits, the few small letters
that the symbols of the motor-start diagrams use, and some signs.

Glyphs are strokes on a grid 4 units wide with the capitals 6 units high (small letters 4),
y upwards from the baseline. text() draws a label with a "_{...}" subscript mark-up, as in
"S_{rT}", so that the symbols read as in the handbook."""

import re

_O = [(1, 0), (0, 1), (0, 5), (1, 6), (3, 6), (4, 5), (4, 1), (3, 0), (1, 0)]
_P = [(0, 0), (0, 6), (3, 6), (4, 5), (4, 4), (3, 3), (0, 3)]

GLYPHS = {
    "A": [[(0, 0), (0, 4), (2, 6), (4, 4), (4, 0)], [(0, 3), (4, 3)]],
    "B": [[(0, 0), (0, 6), (3, 6), (4, 5), (4, 4), (3, 3), (0, 3)], [(3, 3), (4, 2), (4, 1), (3, 0), (0, 0)]],
    "C": [[(4, 5), (3, 6), (1, 6), (0, 5), (0, 1), (1, 0), (3, 0), (4, 1)]],
    "D": [[(0, 0), (0, 6), (2, 6), (4, 4), (4, 2), (2, 0), (0, 0)]],
    "E": [[(4, 6), (0, 6), (0, 0), (4, 0)], [(0, 3), (3, 3)]],
    "F": [[(4, 6), (0, 6), (0, 0)], [(0, 3), (3, 3)]],
    "G": [[(4, 5), (3, 6), (1, 6), (0, 5), (0, 1), (1, 0), (3, 0), (4, 1), (4, 3), (2, 3)]],
    "H": [[(0, 0), (0, 6)], [(4, 0), (4, 6)], [(0, 3), (4, 3)]],
    "I": [[(1, 6), (3, 6)], [(2, 6), (2, 0)], [(1, 0), (3, 0)]],
    "J": [[(4, 6), (4, 1), (3, 0), (1, 0), (0, 1)]],
    "K": [[(0, 0), (0, 6)], [(4, 6), (0, 2)], [(1, 3), (4, 0)]],
    "L": [[(0, 6), (0, 0), (4, 0)]],
    "M": [[(0, 0), (0, 6), (2, 3), (4, 6), (4, 0)]],
    "N": [[(0, 0), (0, 6), (4, 0), (4, 6)]],
    "O": [_O],
    "P": [_P],
    "Q": [_O, [(2, 2), (4, 0)]],
    "R": [_P, [(2, 3), (4, 0)]],
    "S": [[(4, 5), (3, 6), (1, 6), (0, 5), (0, 4), (1, 3), (3, 3), (4, 2), (4, 1), (3, 0), (1, 0), (0, 1)]],
    "T": [[(0, 6), (4, 6)], [(2, 6), (2, 0)]],
    "U": [[(0, 6), (0, 1), (1, 0), (3, 0), (4, 1), (4, 6)]],
    "V": [[(0, 6), (2, 0), (4, 6)]],
    "W": [[(0, 6), (1, 0), (2, 4), (3, 0), (4, 6)]],
    "X": [[(0, 0), (4, 6)], [(0, 6), (4, 0)]],
    "Y": [[(0, 6), (2, 3), (4, 6)], [(2, 3), (2, 0)]],
    "Z": [[(0, 6), (4, 6), (0, 0), (4, 0)]],
    "0": [_O, [(0, 1), (4, 5)]],
    "1": [[(1, 5), (2, 6), (2, 0)], [(1, 0), (3, 0)]],
    "2": [[(0, 5), (1, 6), (3, 6), (4, 5), (4, 4), (0, 0), (4, 0)]],
    "3": [[(0, 5), (1, 6), (3, 6), (4, 5), (4, 4), (3, 3), (4, 2), (4, 1), (3, 0), (1, 0), (0, 1)], [(1, 3), (3, 3)]],
    "4": [[(3, 0), (3, 6), (0, 2), (4, 2)]],
    "5": [[(4, 6), (0, 6), (0, 3), (3, 3), (4, 2), (4, 1), (3, 0), (1, 0), (0, 1)]],
    "6": [[(4, 5), (3, 6), (1, 6), (0, 5), (0, 1), (1, 0), (3, 0), (4, 1), (4, 2), (3, 3), (0, 3)]],
    "7": [[(0, 6), (4, 6), (1, 0)]],
    "8": [[(1, 3), (0, 4), (0, 5), (1, 6), (3, 6), (4, 5), (4, 4), (3, 3), (1, 3), (0, 2), (0, 1), (1, 0), (3, 0),
           (4, 1), (4, 2), (3, 3)]],
    "9": [[(0, 1), (1, 0), (3, 0), (4, 1), (4, 5), (3, 6), (1, 6), (0, 5), (0, 4), (1, 3), (4, 3)]],
    "f": [[(3, 6), (2, 6), (1, 5), (1, 0)], [(0, 4), (3, 4)]],
    "h": [[(0, 6), (0, 0)], [(0, 3), (1, 4), (3, 4), (4, 3), (4, 0)]],
    "k": [[(0, 6), (0, 0)], [(3, 4), (0, 1)], [(1, 2), (3, 0)]],
    "m": [[(0, 0), (0, 4)], [(0, 3), (1, 4), (2, 3), (2, 0)], [(2, 3), (3, 4), (4, 3), (4, 0)]],
    "r": [[(0, 0), (0, 4)], [(0, 2), (2, 4), (3, 4)]],
    "z": [[(0, 4), (3, 4), (0, 0), (3, 0)]],
    '"': [[(0.5, 6), (0.5, 4.5)], [(2, 6), (2, 4.5)]],
    "~": [[(0, 2.5), (1, 3.5), (3, 2.5), (4, 3.5)]],
    "-": [[(0, 3), (4, 3)]],
    "=": [[(0, 2), (4, 2)], [(0, 4), (4, 4)]],
    ",": [[(0.5, 0.5), (0, -1)]],
    " ": [],
}

UNITS_HIGH = 6.0
GAP = 1.6  # between glyphs, in grid units
SUB_SCALE = 0.7
SUB_DROP = 0.3  # of the capital height


def _advance(ch):
    strokes = GLYPHS[ch]
    if not strokes:
        return 3
    return max(x for s in strokes for x, _ in s)


def _runs(label):
    """(text, is_subscript) pieces of a label with _{...} marks."""
    pos = 0
    for m in re.finditer(r"_\{([^}]*)\}", label):
        if m.start() > pos:
            yield label[pos:m.start()], False
        yield m.group(1), True
        pos = m.end()
    if pos < len(label):
        yield label[pos:], False


def width(label, height):
    """The width of a label drawn with capitals height pixels high."""
    w = 0.0
    for text, sub in _runs(label):
        scale = height / UNITS_HIGH * (SUB_SCALE if sub else 1)
        for ch in text:
            if ch not in GLYPHS:
                raise ValueError("the stroke font has no glyph %r (label %r)" % (ch, label))
            w += (_advance(ch) + GAP) * scale
    return w - GAP * height / UNITS_HIGH


def text(slide, x, y, label, height, align="left"):
    """Draws a label with its baseline at y (drawing coordinates, y downwards); x is the left
    end, the centre or the right end by align."""
    if align != "left":
        x -= width(label, height) / (2 if align == "center" else 1)
    for part, sub in _runs(label):
        scale = height / UNITS_HIGH * (SUB_SCALE if sub else 1)
        base = y + (height * SUB_DROP if sub else 0)
        for ch in part:
            if ch not in GLYPHS:
                raise ValueError("the stroke font has no glyph %r (label %r)" % (ch, label))
            for stroke in GLYPHS[ch]:
                slide.polyline([(x + gx * scale, base - gy * scale) for gx, gy in stroke])
            x += (_advance(ch) + GAP) * scale
