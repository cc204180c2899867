"""A small anti-aliased rasteriser and writers of .ico, .bmp and .png files, all on the standard library.

Shapes are predicates over the plane with a bounding box. They are combined with |, & and - and filled onto a canvas by
supersampling: a pixel's coverage is the share of its sample points that lie inside. Edges on pixel boundaries are therefore
exactly crisp and everything else is smooth.
"""

import math
import struct
import zlib

SAMPLES = 6  # per pixel and direction
LARGE_SAMPLES = 4  # of a canvas that has more pixels to tell a curve with

_pixels_per_unit = None  # to whose boundaries corners are moved; None: drawings lie on pixel boundaries by themselves


def fit_to_pixels(unit):
    """From now on the corners of shapes lie on pixel boundaries of a canvas with that many pixels in a unit. Drawings are made
    for 1 and 2 pixels, and stay as they are there."""
    global _pixels_per_unit
    _pixels_per_unit = None if unit in (1, 2) else unit


def _fitted(v):
    return v if _pixels_per_unit is None else math.floor(v * _pixels_per_unit + 0.5) / _pixels_per_unit


def _fitted_span(a, b):
    """Lines of equal width are equally wide wherever they lie, and none vanishes."""
    if _pixels_per_unit is None or not 0 < b - a <= 1.01:
        return _fitted(a), _fitted(b)
    width = max(1, math.floor((b - a) * _pixels_per_unit + 0.5)) / _pixels_per_unit
    return _fitted(a), _fitted(a) + width


class Shape:
    """A set of points inside the box (x0, y0, x1, y1)."""

    def __init__(self, box, contains):
        self.box = box
        self.contains = contains

    def __or__(self, other):
        a, b = self.box, other.box
        box = (min(a[0], b[0]), min(a[1], b[1]), max(a[2], b[2]), max(a[3], b[3]))
        return Shape(box, lambda x, y: self.contains(x, y) or other.contains(x, y))

    def __and__(self, other):
        return Shape(self.box, lambda x, y: self.contains(x, y) and other.contains(x, y))

    def __sub__(self, other):
        return Shape(self.box, lambda x, y: self.contains(x, y) and not other.contains(x, y))

    def moved(self, dx, dy):
        x0, y0, x1, y1 = self.box
        return Shape((x0 + dx, y0 + dy, x1 + dx, y1 + dy), lambda x, y: self.contains(x - dx, y - dy))

    def inset(self, d):
        """The points that stay inside when they are moved by d in any direction (by eight samples)."""
        k = d * 0.7071
        ring = ((d, 0), (-d, 0), (0, d), (0, -d), (k, k), (k, -k), (-k, k), (-k, -k))
        return Shape(self.box, lambda x, y: self.contains(x, y)
                     and all(self.contains(x + dx, y + dy) for dx, dy in ring))


def rect(x0, y0, x1, y1):
    (x0, x1), (y0, y1) = _fitted_span(x0, x1), _fitted_span(y0, y1)
    return Shape((x0, y0, x1, y1), lambda x, y: x0 <= x < x1 and y0 <= y < y1)


def ellipse(cx, cy, rx, ry):
    box = tuple(_fitted(v) for v in (cx - rx, cy - ry, cx + rx, cy + ry))
    if _pixels_per_unit is not None:
        cx, cy, rx, ry = (box[0] + box[2]) / 2, (box[1] + box[3]) / 2, (box[2] - box[0]) / 2, (box[3] - box[1]) / 2
    if rx <= 0 or ry <= 0:
        return Shape(box, lambda x, y: False)
    return Shape(box, lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 < 1)


def circle(cx, cy, r):
    return ellipse(cx, cy, r, r)


def rounded(x0, y0, x1, y1, r):
    x0, y0, x1, y1 = (_fitted(v) for v in (x0, y0, x1, y1))

    def contains(x, y):
        dx = max(x0 + r - x, x - (x1 - r), 0)
        dy = max(y0 + r - y, y - (y1 - r), 0)
        return x0 <= x < x1 and y0 <= y < y1 and dx * dx + dy * dy < r * r
    return Shape((x0, y0, x1, y1), contains)


def polygon(*points):
    return _polygon(*((_fitted(x), _fitted(y)) for x, y in points))


def _polygon(*points):
    edges = list(zip(points, points[1:] + points[:1]))

    def contains(x, y):
        inside = False
        for (ax, ay), (bx, by) in edges:
            if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                inside = not inside
        return inside
    xs, ys = [p[0] for p in points], [p[1] for p in points]
    return Shape((min(xs), min(ys), max(xs), max(ys)), contains)


def segment(ax, ay, bx, by, width):
    """A straight stroke with flat ends."""
    length = ((bx - ax) ** 2 + (by - ay) ** 2) ** 0.5
    nx, ny = (ay - by) / length * width / 2, (bx - ax) / length * width / 2
    return _polygon((ax + nx, ay + ny), (bx + nx, by + ny), (bx - nx, by - ny), (ax - nx, ay - ny))


def rgb(text, alpha=1.0):
    """'#RRGGBB' as (r, g, b, a), each 0 to 1."""
    return tuple(int(text[i:i + 2], 16) / 255 for i in (1, 3, 5)) + (alpha,)


def mix(a, b, t):
    return tuple(p + (q - p) * t for p, q in zip(a, b))


def down(top, bottom, y0, y1):
    """A paint that runs from one colour at y0 to the other at y1."""
    return lambda x, y: mix(top, bottom, min(1, max(0, (y - y0) / (y1 - y0))))


class Canvas:
    """width x height pixels of premultiplied colour. Drawing is in units of `unit` pixels, so that one design on a 16 x 16
    grid serves images of every size; `px` is the width of an outline in those units: one pixel, or two or three where there
    is room for them. `fine` is `px` from 2 pixels in a unit on, nothing at one pixel, and a part of it between."""

    def __init__(self, width, height, unit=1, background=None):
        self.width, self.height, self.unit = width, height, unit
        self.px = max(1, (unit + 1) // 2) / unit
        self.fine = self.px * min(unit - 1, 1)
        self.samples = SAMPLES if unit <= 2 else LARGE_SAMPLES
        start = tuple(c * background[3] for c in background[:3]) + (background[3],) if background else (0, 0, 0, 0)
        self.pixels = [start] * (width * height)

    def _coverage(self, shape, column, row):
        hits = 0
        samples = self.samples
        for j in range(samples):
            y = (row + (j + 0.5) / samples) / self.unit
            for i in range(samples):
                hits += shape.contains((column + (i + 0.5) / samples) / self.unit, y)
        return hits / (samples * samples)

    def _blend(self, column, row, colour, coverage):
        at = row * self.width + column
        alpha = colour[3] * coverage
        r, g, b, a = self.pixels[at]
        keep = 1 - alpha
        self.pixels[at] = (colour[0] * alpha + r * keep, colour[1] * alpha + g * keep, colour[2] * alpha + b * keep,
                           alpha + a * keep)

    def fill(self, shape, paint):
        x0, y0, x1, y1 = (v * self.unit for v in shape.box)
        for row in range(max(0, int(y0)), min(self.height, int(y1) + 1)):
            for column in range(max(0, int(x0)), min(self.width, int(x1) + 1)):
                coverage = self._coverage(shape, column, row)
                if coverage:
                    x, y = (column + 0.5) / self.unit, (row + 0.5) / self.unit
                    self._blend(column, row, paint(x, y) if callable(paint) else paint, coverage)

    def solid(self, shape, paint, edge, light=None):
        """A filled shape with an outline inside its border and, when asked, a light of the same width along the upper left
        inside of the outline."""
        inner = shape.inset(self.px)
        self.fill(shape, edge)
        self.fill(inner, paint)
        if light:
            self.fill(inner - inner.moved(self.px, self.px), light)

    def paste(self, other, x, y):
        """Lays another canvas over this one at pixel (x, y)."""
        for row in range(other.height):
            for column in range(other.width):
                r, g, b, a = other.pixels[row * other.width + column]
                if a and 0 <= x + column < self.width and 0 <= y + row < self.height:
                    self._blend(x + column, y + row, (r / a, g / a, b / a, a), 1)

    def rgba(self, column, row):
        """Straight bytes r, g, b, a of one pixel."""
        r, g, b, a = self.pixels[row * self.width + column]
        if a <= 0:
            return 0, 0, 0, 0
        return tuple(min(255, round(c / a * 255)) for c in (r, g, b)) + (min(255, round(a * 255)),)


# ------------------------------------------------------------------------------------------------------------- files

def _rows_up(canvas):
    return range(canvas.height - 1, -1, -1)


def _mask(canvas):
    """The AND mask: a set bit is a pixel that shows the screen."""
    out = bytearray()
    stride = (canvas.width + 31) // 32 * 4
    for row in _rows_up(canvas):
        line = bytearray(stride)
        for column in range(canvas.width):
            if canvas.rgba(column, row)[3] < 128:
                line[column // 8] |= 0x80 >> column % 8
        out += line
    return bytes(out)


def _info_header(width, height, bits, colours=0):
    return struct.pack('<IiiHHIIiiII', 40, width, height, 1, bits, 0, 0, 0, 0, colours, 0)


def _deep_image(canvas):
    out = bytearray(_info_header(canvas.width, canvas.height * 2, 32))
    for row in _rows_up(canvas):
        for column in range(canvas.width):
            r, g, b, a = canvas.rgba(column, row)
            out += bytes((b, g, r, a))
    return bytes(out) + _mask(canvas)


def _web_palette():
    levels = (0, 51, 102, 153, 204, 255)
    cube = [(r, g, b) for r in levels for g in levels for b in levels]
    return cube + [(8 + 6 * i,) * 3 for i in range(40)]


def _nearest(palette, colour, found={}):
    if colour not in found:
        found[colour] = min(range(len(palette)),
                            key=lambda i: sum((p - q) ** 2 for p, q in zip(palette[i], colour)))
    return found[colour]


def _shallow_image(canvas):
    """The same image with 256 colours, for displays and image lists that know no alpha."""
    palette = _web_palette()
    out = bytearray(_info_header(canvas.width, canvas.height * 2, 8, 256))
    for r, g, b in palette:
        out += bytes((b, g, r, 0))
    for row in _rows_up(canvas):
        for column in range(canvas.width):
            r, g, b, a = canvas.rgba(column, row)
            out.append(_nearest(palette, (r, g, b)) if a >= 128 else 0)
    return bytes(out) + _mask(canvas)


def write_ico(path, canvases):
    """Each canvas as an image of 256 colours and as one of 32 bits with alpha."""
    images = []
    for canvas in canvases:
        images += [(canvas, 8, _shallow_image(canvas)), (canvas, 32, _deep_image(canvas))]
    _write_icon(path, images)


def write_packed_ico(path, canvases):
    """Each canvas as an image of 32 bits with alpha, packed as a PNG file is."""
    _write_icon(path, [(canvas, 32, _png(canvas)) for canvas in canvases])


def _write_icon(path, images):
    at = 6 + 16 * len(images)
    head, body = bytearray(struct.pack('<HHH', 0, 1, len(images))), bytearray()
    for canvas, bits, data in images:
        head += struct.pack('<BBBBHHII', canvas.width, canvas.height, 0, 0, 1, bits, len(data), at + len(body))
        body += data
    with open(path, 'wb') as file:
        file.write(bytes(head + body))


MAPPED = {(0xC0,) * 3, (0x80,) * 3, (0xDF,) * 3}  # the colours that stand for the user's


def _coarser(colour, step):
    """The nearest colour whose parts are multiples of `step`, and which stands for itself."""
    near = tuple(min(255, (part + step // 2) // step * step) for part in colour)
    return near if near not in MAPPED else (near[0], near[1], near[2] + 1)


def _few_colours(colours):
    """At most 256 colours for all of them, as a table of what becomes of each."""
    step = 1
    table = {colour: colour for colour in colours}
    while len(set(table.values())) > 256:
        step *= 2
        table = {colour: colour if colour in MAPPED else _coarser(colour, step) for colour in colours}
    return table


def write_bmp(path, canvas):
    """An opaque canvas as a bitmap of 256 colours, just those that it has when there are no more. The platform replaces the
    entries #C0C0C0, #808080 and #DFDFDF of such a bitmap by the user's dialog colours when asked to."""
    table = _few_colours({canvas.rgba(x, y)[:3] for y in range(canvas.height) for x in range(canvas.width)})
    colours = sorted(set(table.values()))
    index = {colour: colours.index(kept) for colour, kept in table.items()}
    palette = b''.join(bytes((b, g, r, 0)) for r, g, b in colours + [(0, 0, 0)] * (256 - len(colours)))
    bits = bytearray()
    stride = (canvas.width + 3) // 4 * 4
    for row in _rows_up(canvas):
        line = bytes(index[canvas.rgba(column, row)[:3]] for column in range(canvas.width))
        bits += line.ljust(stride, b'\0')
    start = 14 + 40 + len(palette)
    with open(path, 'wb') as file:
        file.write(struct.pack('<2sIHHI', b'BM', start + len(bits), 0, 0, start)
                   + _info_header(canvas.width, canvas.height, 8, 256) + palette + bytes(bits))


def _png(canvas, zoom=1):
    lines = bytearray()
    for row in range(canvas.height):
        line = b''.join(bytes(canvas.rgba(column, row)) * zoom for column in range(canvas.width))
        lines += (b'\0' + line) * zoom

    def chunk(kind, data):
        return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))
    size = struct.pack('>IIBBBBB', canvas.width * zoom, canvas.height * zoom, 8, 6, 0, 0, 0)
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', size) + chunk(b'IDAT', zlib.compress(bytes(lines), 9))
            + chunk(b'IEND', b''))


def write_png(path, canvas, zoom=1):
    with open(path, 'wb') as file:
        file.write(_png(canvas, zoom))
