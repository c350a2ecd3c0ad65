#!/usr/bin/env python3
"""Draws the bitmap strips and placeholders embedded in KtHost.

Run from this folder; it rewrites the BMP files next to it. Tiles are 26 x 13
pixels stacked vertically; tile 0 of each strip is left blank.
"""
import math
import struct

W, H = 26, 13
BLACK, WHITE, GREY = (0, 0, 0), (255, 255, 255), (160, 160, 160)


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
        return BLACK if tiles[k - 1](x - 1, ty - 1) else WHITE
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
    # A thick horizontal stroke from the left ending in the given cap shape.
    cy, half, end = IH // 2, 3, 15

    def f(x, y):
        dy = abs(y - cy)
        if x <= end:
            return dy <= half
        if shape == "square":
            return x <= end + half and dy <= half
        if shape == "round":
            return (x - end) ** 2 + dy ** 2 <= half * half
        if shape == "diamond":
            return (x - end) + dy <= half + 1
        return False
    return f


def join(shape):
    # Two thick strokes meeting at a corner: horizontal from the left, vertical downwards.
    cx, cy, half = 14, 3, 2

    def f(x, y):
        horiz = x <= cx and abs(y - cy) <= half
        vert = y >= cy and abs(x - cx) <= half
        corner = x > cx and y < cy
        if shape == "miter":
            extra = cx < x <= cx + half and cy - half <= y <= cy
        elif shape == "bevel":
            extra = corner and (x - cx) + (cy - y) <= half
        elif shape == "round":
            extra = corner and (x - cx) ** 2 + (cy - y) ** 2 <= half * half
        else:
            extra = corner and (x - cx) + (cy - y) <= half + 2
        return horiz or vert or extra
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
