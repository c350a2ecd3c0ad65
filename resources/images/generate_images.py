#!/usr/bin/env python3
"""Draws the bitmap strips and placeholders embedded in KtHost.

Run from this folder; it rewrites the BMP files next to it. Tiles are 26 x 13
pixels stacked vertically; tile 0 of each strip is left blank.
"""
import math
import struct

W, H = 26, 13
BLACK, WHITE, GREY, MARK = (0, 0, 0), (255, 255, 255), (160, 160, 160), (128, 128, 128)


def write_bmp(path, width, height, pixel):
    row = (width * 3 + 3) & ~3
    data = bytearray()
    for y in range(height - 1, -1, -1):
        line = bytearray()
        for x in range(width):
            r, g, b = pixel(x, y)
            line += bytes((b, g, r))
        data += line + b"\0" * (row - len(line))
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    with open(path, "wb") as f:
        f.write(header + info + data)


def strip(path, tiles):
    def pixel(x, y):
        k, ty = divmod(y, H)
        if k == 0 or k > len(tiles):
            return WHITE
        if x == 0 or ty == 0 or x == W - 1 or ty == H - 1:
            return GREY
        value = tiles[k - 1](x - 1, ty - 1)
        if isinstance(value, tuple):
            return value
        return BLACK if value else WHITE
    write_bmp(path, W, H * (len(tiles) + 1), pixel)


IW, IH = W - 2, H - 2
fills = [
    lambda x, y: True,                                  # solid
    lambda x, y: (x // 2 + y // 2) % 2 == 0,            # checkerboard
    lambda x, y: x % 4 == 0 or y % 4 == 0,              # crosshatch
    lambda x, y: (x + y) % 6 == 0 or (x - y) % 6 == 0,  # diamonds
    lambda x, y: y % 3 == 0,                            # horizontal bars
    lambda x, y: (x + y) % 4 == 0,                      # slant left
    lambda x, y: (x - y) % 4 == 0,                      # slant right
    lambda x, y: x % 3 == 0 and y % 3 == 0,             # square dots
    lambda x, y: x % 3 == 0,                            # vertical bars
]


def thick_line_end(shape):
    # A thick horizontal stroke from the left whose end point (x = end, marked
    # by a dotted grey line) carries the cap: butt stops there, square runs on
    # by half the width, round bulges out by half the width, diamond comes to a point.
    cy, half, end = IH // 2, 4, 13

    def f(x, y):
        dy = abs(y - cy)
        dx = x - end
        if dx <= 0:
            inside = dy <= half
        elif shape == "square":
            inside = dx <= half and dy <= half
        elif shape == "round":
            inside = dx * dx + dy * dy <= half * half + 1
        elif shape == "diamond":
            inside = dx + dy <= half + 2
        else:
            inside = False
        if inside:
            return BLACK
        return MARK if dx == 0 and y % 2 == 0 else WHITE
    return f


def join(shape):
    # Two thick strokes meeting at a right angle: one from the left, one going
    # down. Only the outer corner differs: miter square, bevel cut off, round
    # a quarter circle, diamond a point running out along the diagonal.
    cx, cy, half = 14, 5, 2

    def f(x, y):
        horiz = x <= cx and abs(y - cy) <= half
        vert = y >= cy and abs(x - cx) <= half
        dx, dy = x - cx, cy - y
        corner = dx > 0 and dy > 0
        if shape == "miter":
            extra = corner and dx <= half and dy <= half
        elif shape == "bevel":
            extra = corner and dx + dy <= half
        elif shape == "round":
            extra = corner and dx * dx + dy * dy <= half * half + 1
        else:
            extra = corner and dx + dy <= 2 * half + 2 and abs(dx - dy) <= half
        return BLACK if horiz or vert or extra else WHITE
    return f


if __name__ == "__main__":
    strip("plot/plotstyle_fillstyle.bmp", fills)
    strip("plot/plotstyle_basestyle.bmp", [thick_line_end(s) for s in ("butt", "square", "round", "diamond")])
    strip("plot/plotstyle_connectstyle.bmp", [join(s) for s in ("miter", "bevel", "round", "diamond")])

    def page(x, y):
        # An empty page with a folded corner: the placeholder of a page not yet rendered.
        w, h, fold = 48, 64, 12
        if x == 0 or y == 0 or x == w - 1 or y == h - 1:
            return GREY
        if x > w - 1 - fold and y < fold:
            return GREY if x - (w - 1 - fold) == y or x - (w - 1 - fold) > y else WHITE
        return WHITE
    write_bmp("common/empty.bmp", 48, 64, page)
