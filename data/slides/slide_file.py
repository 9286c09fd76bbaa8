"""Writes CAD slides and slide libraries from vector primitives.

A slide is drawn here in screen pixels with y downwards (as the pictures are thought of) and
written with y upwards from the lower left, as the format wants. Lines are encoded as compactly
as the format allows: a line that continues from the last point is a 3-byte common-endpoint
record, one near the last point a 5-byte offset vector, anything else an 8-byte vector; filled
polygons (3 to 10 vertices) are solid-fill sequences; colour changes are colour records. The
words are written low byte first (test number 0x1234 read that way)."""

import math
import struct

SLIDE_ID = b"AutoCAD Slide\r\n\x1a\x00"
LIBRARY_ID = b"AutoCAD Slide Library 1.0\r\n\x1a"
NAME_BYTES = 32


def _word(value):
    return struct.pack("<h" if value < 0 else "<H", value)


def _byte(value):
    return struct.pack("<b", value)


def _fits_byte(d):
    return -128 <= d <= 127


class Slide:
    """One slide: the primitives in drawing order."""

    def __init__(self, name, width, height):
        if not name or len(name.encode("ascii")) >= NAME_BYTES:
            raise ValueError("slide name %r must have 1 to 31 ASCII characters" % name)
        self.name = name
        self.width = width
        self.height = height
        self.color = 7
        self.items = []  # ("line", color, x1, y1, x2, y2) or ("fill", color, points)

    def _point(self, x, y):
        px, py = int(round(x)), int(round(y))
        if not (0 <= px < self.width and 0 <= py < self.height):
            raise ValueError("slide %s: point (%s, %s) lies outside the %dx%d screen"
                             % (self.name, x, y, self.width, self.height))
        return px, self.height - 1 - py

    def line(self, x1, y1, x2, y2):
        a, b = self._point(x1, y1), self._point(x2, y2)
        if a != b:
            self.items.append(("line", self.color, a, b))

    def polyline(self, points, closed=False):
        pts = list(points) + ([points[0]] if closed else [])
        for (x1, y1), (x2, y2) in zip(pts, pts[1:]):
            self.line(x1, y1, x2, y2)

    def fill(self, points):
        if not 3 <= len(points) <= 10:
            raise ValueError("slide %s: a solid fill has 3 to 10 vertices, not %d" % (self.name, len(points)))
        self.items.append(("fill", self.color, [self._point(x, y) for x, y in points]))

    def arc(self, cx, cy, r, start_deg, end_deg, segments=None):
        """An arc in drawing coordinates, angles counter-clockwise as seen on the screen."""
        sweep = end_deg - start_deg
        n = segments or max(4, int(abs(sweep) / 10))
        pts = []
        for i in range(n + 1):
            a = math.radians(start_deg + sweep * i / n)
            pts.append((cx + r * math.cos(a), cy - r * math.sin(a)))
        self.polyline(pts)

    def circle(self, cx, cy, r):
        self.arc(cx, cy, r, 0, 360, segments=max(16, int(r * 1.2)))

    def encode(self):
        aspect = round((self.width - 1) / (self.height - 1) * 1e7)  # square pixels
        out = [SLIDE_ID, bytes([0x56, 2]), _word(self.width - 1), _word(self.height - 1),
               struct.pack("<I", aspect), _word(0), _word(0x1234)]
        color = None
        last = (0, 0)
        for item in self.items:
            if item[1] != color:
                color = item[1]
                out.append(_word(0xFF00 | color))
            if item[0] == "fill":
                out.append(_word(0xFD00) + _word(len(item[2])) + _word(-1))
                for x, y in item[2]:
                    out.append(_word(0xFD00) + _word(x) + _word(y))
                out.append(_word(0xFD00) + _word(0) + _word(-1))
                continue
            a, b = item[2], item[3]
            if b == last:
                a, b = b, a  # the end at the last point starts the line
            da = (a[0] - last[0], a[1] - last[1])
            db = (b[0] - last[0], b[1] - last[1])
            dab = (b[0] - a[0], b[1] - a[1])
            if a == last and _fits_byte(dab[0]) and _fits_byte(dab[1]):
                # common endpoint: draws from the last point to last + offset, which becomes the last point
                out.append(_word(0xFE00 | (dab[0] & 0xFF)) + _byte(dab[1]))
                last = b
            elif all(_fits_byte(d) for d in da + db):
                out.append(_word(0xFB00 | (da[0] & 0xFF)) + _byte(da[1]) + _byte(db[0]) + _byte(db[1]))
                last = a
            else:
                out.append(_word(a[0]) + _word(a[1]) + _word(b[0]) + _word(b[1]))
                last = a
        out.append(_word(0xFC00))
        return b"".join(out)


def library_bytes(slides):
    """A slide library: header, directory (names, offsets, an empty entry), then the slides."""
    names = [s.name for s in slides]
    if len(set(n.upper() for n in names)) != len(names):
        raise ValueError("slide names repeat: %s" % ", ".join(names))
    bodies = [s.encode() for s in slides]
    offset = 32 + 36 * (len(slides) + 1)
    directory = []
    for s, body in zip(slides, bodies):
        directory.append(s.name.encode("ascii").ljust(NAME_BYTES, b"\0") + struct.pack("<I", offset))
        offset += len(body)
    directory.append(b"\0" * 36)
    return LIBRARY_ID.ljust(32, b"\0") + b"".join(directory) + b"".join(bodies)
