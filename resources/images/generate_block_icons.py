#!/usr/bin/env python3
"""Draws the arrowhead icons (Arrow/*.svg) and the predefined block tiles
(common/predefblock.bmp) from the blocks' own geometry.

The numbers are those with which the block pickers build the blocks in the
drawing (arrowheads at unit size, tip at the origin; predefined blocks in the
metric set). Run from this folder; it rewrites the files next to it.
"""
import math
import os

from generate_images import write_bmp

# Entities: ("line", x1, y1, x2, y2), ("circle", cx, cy, r), ("arc", cx, cy, r, a0, a1),
# ("pline", [(x, y, bulge)], width, closed), ("solid", [c0, c1, c2, c3]) in the
# host's corner order (2 and 3 crosswise), ("fill", [points]) for the
# closed filled arrowhead, which has no block.
H6, T15, T30 = 0.1667, 0.2679, 0.5774
ARROWS = [
    ("arrowsolidclosed", [("fill", [(-1, H6), (0, 0), (-1, -H6)])]),
    ("arrowhollowclosed", [("line", -1, H6, 0, 0), ("line", -1, -H6, 0, 0), ("line", -1, H6, -1, -H6)]),
    ("closed", [("line", -1, H6, 0, 0), ("line", -1, -H6, 0, 0), ("line", -1, H6, -1, -H6), ("line", 0, 0, -1, 0)]),
    ("point", [("pline", [(-0.25, 0, 1.0), (0.25, 0, 1.0)], 0.5, True), ("line", -0.5, 0, -1, 0)]),
    ("building_mark", [("pline", [(-0.5, -0.5, 0), (0.5, 0.5, 0)], 0.15, False)]),
    ("incline", [("line", -0.5, -0.5, 0.5, 0.5)]),
    ("open", [("line", -1, H6, 0, 0), ("line", -1, -H6, 0, 0), ("line", 0, 0, -1, 0)]),
    ("indicate_origin", [("circle", 0, 0, 0.5), ("line", 0, 0, -1, 0)]),
    ("indicate_origin2", [("circle", 0, 0, 0.5), ("circle", 0, 0, 0.25), ("line", -0.5, 0, -1, 0)]),
    ("rightangle", [("line", -0.5, 0.5, 0, 0), ("line", 0, 0, -0.5, -0.5), ("line", 0, 0, -1, 0)]),
    ("thirty_angle", [("line", -1, T15, 0, 0), ("line", 0, 0, -1, -T15), ("line", 0, 0, -1, 0)]),
    ("small_point", [("pline", [(-0.0625, 0, 1.0), (0.0625, 0, 1.0)], 0.5, True)]),
    ("hollowpoint", [("circle", 0, 0, 0.5), ("line", -0.5, 0, -1, 0)]),
    ("smallhollowpoint", [("circle", 0, 0, 0.25)]),
    ("box", [("line", -0.5, -0.5, 0.5, -0.5), ("line", 0.5, -0.5, 0.5, 0.5), ("line", 0.5, 0.5, -0.5, 0.5),
             ("line", -0.5, 0.5, -0.5, -0.5), ("line", -0.5, 0, -1, 0)]),
    ("solidbox", [("solid", [(-0.5, 0.5), (0.5, 0.5), (-0.5, -0.5), (0.5, -0.5)]), ("line", -0.5, 0, -1, 0)]),
    ("triangle", [("line", 0, T30, -1, 0), ("line", -1, 0, 0, -T30), ("line", 0, -T30, 0, T30)]),
    ("solidtriangle", [("solid", [(0, T30), (-1, 0), (0, -T30), (0, -T30)])]),
    ("integration", [("arc", 0.4449, -0.0913, 0.4542, math.radians(102), math.radians(168)),
                     ("arc", -0.4449, 0.0913, 0.4542, math.radians(282), math.radians(348))]),
    ("none", []),
]

STROKE = 0.09


def svg_point(x, y):
    return f"{x:.4f},{-y:.4f}"  # y up in the drawing, down in SVG


def bulge_arc(x0, y0, x1, y1, bulge):
    """The SVG arc command from (x0, y0) to (x1, y1) for a polyline bulge."""
    if bulge == 0:
        return f"L {svg_point(x1, y1)}"
    chord = math.hypot(x1 - x0, y1 - y0)
    angle = 4 * math.atan(abs(bulge))
    radius = chord / 2 / math.sin(angle / 2)
    large = 1 if angle > math.pi else 0
    sweep = 0 if bulge > 0 else 1  # counter-clockwise in y-up is sweep 0 once flipped
    return f"A {radius:.4f} {radius:.4f} 0 {large} {sweep} {svg_point(x1, y1)}"


def svg_entity(e):
    kind = e[0]
    if kind == "line":
        _, x1, y1, x2, y2 = e
        return f'<line x1="{x1}" y1="{-y1}" x2="{x2}" y2="{-y2}"/>'
    if kind == "circle":
        _, cx, cy, r = e
        return f'<circle cx="{cx}" cy="{-cy}" r="{r}" fill="none"/>'
    if kind == "arc":
        _, cx, cy, r, a0, a1 = e
        sweep_angle = (a1 - a0) % (2 * math.pi)
        start = (cx + r * math.cos(a0), cy + r * math.sin(a0))
        end = (cx + r * math.cos(a1), cy + r * math.sin(a1))
        large = 1 if sweep_angle > math.pi else 0
        return f'<path d="M {svg_point(*start)} A {r} {r} 0 {large} 0 {svg_point(*end)}" fill="none"/>'
    if kind == "pline":
        _, vertices, width, closed = e
        parts = [f"M {svg_point(vertices[0][0], vertices[0][1])}"]
        count = len(vertices) if closed else len(vertices) - 1
        for i in range(count):
            x0, y0, bulge = vertices[i]
            x1, y1, _ = vertices[(i + 1) % len(vertices)]
            parts.append(bulge_arc(x0, y0, x1, y1, bulge))
        if closed:
            parts.append("Z")
        return f'<path d="{" ".join(parts)}" fill="none" stroke-width="{width}" stroke-linecap="butt"/>'
    if kind == "solid":
        c = e[1]
        outline = " ".join(svg_point(*p) for p in (c[0], c[1], c[3], c[2]))
        return f'<polygon points="{outline}" fill="black" stroke="none"/>'
    if kind == "fill":
        outline = " ".join(svg_point(*p) for p in e[1])
        return f'<polygon points="{outline}" fill="black" stroke="none"/>'
    raise ValueError(kind)


def write_svg(path, entities):
    body = "\n  ".join(svg_entity(e) for e in entities)
    with open(path, "w") as f:
        f.write('<?xml version="1.0" encoding="UTF-8"?>\n'
                '<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny"'
                ' width="16" height="16" viewBox="-1.1 -0.85 1.7 1.7">\n'
                f'  <g stroke="black" stroke-width="{STROKE}" fill="none">\n  {body}\n  </g>\n</svg>\n')


# Predefined blocks, metric set: outlines only (the attributes are text).
R, RC, A, B, C = 4, 8, 4.6188, 2.3094, 6.9282
PREDEF = [
    [("circle", 0, 0, RC), ("line", RC, 0, -RC, 0)],                                  # _DetailCallout
    [("arc", -R, 0, R, math.pi / 2, 3 * math.pi / 2), ("arc", R, 0, R, 3 * math.pi / 2, math.pi / 2),
     ("line", -R, R, R, R), ("line", -R, -R, R, -R)],                                 # _TagSlot
    [("circle", 0, 0, R)],                                                            # _TagCircle
    [("poly", [(-R, R), (R, R), (R, -R), (-R, -R)])],                                 # _TagHexagon (a square)
    [("poly", [(-A, 0), (-B, R), (B, R), (A, 0), (B, -R), (-B, -R)])],                # _TagBox (a hexagon)
    [("poly", [(-C, -R), (0, 2 * R), (C, -R)])],                                      # _TagTriangle
]
TILE = 17


def segment_distance(px, py, x1, y1, x2, y2):
    dx, dy = x2 - x1, y2 - y1
    t = max(0.0, min(1.0, ((px - x1) * dx + (py - y1) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - x1 - t * dx, py - y1 - t * dy)


def distance(px, py, e):
    kind = e[0]
    if kind == "line":
        return segment_distance(px, py, *e[1:])
    if kind == "circle":
        _, cx, cy, r = e
        return abs(math.hypot(px - cx, py - cy) - r)
    if kind == "arc":
        _, cx, cy, r, a0, a1 = e
        angle = (math.atan2(py - cy, px - cx) - a0) % (2 * math.pi)
        if angle <= (a1 - a0) % (2 * math.pi):
            return abs(math.hypot(px - cx, py - cy) - r)
        ends = [(cx + r * math.cos(a), cy + r * math.sin(a)) for a in (a0, a1)]
        return min(math.hypot(px - x, py - y) for x, y in ends)
    if kind == "poly":
        pts = e[1]
        return min(segment_distance(px, py, *pts[i], *pts[(i + 1) % len(pts)]) for i in range(len(pts)))
    raise ValueError(kind)


def bounds(entities):
    xs, ys = [], []
    for e in entities:
        if e[0] == "line":
            xs += [e[1], e[3]]
            ys += [e[2], e[4]]
        elif e[0] in ("circle", "arc"):  # the whole circle: enough for a frame
            xs += [e[1] - e[3], e[1] + e[3]]
            ys += [e[2] - e[3], e[2] + e[3]]
        else:
            xs += [p[0] for p in e[1]]
            ys += [p[1] for p in e[1]]
    return min(xs), min(ys), max(xs), max(ys)


def predef_tiles(px, py):
    row, ty = divmod(py, TILE)
    entities = PREDEF[row]
    # Each block fills its tile, leaving a pixel free all round.
    x0, y0, x1, y1 = bounds(entities)
    scale = (TILE - 3) / max(x1 - x0, y1 - y0)
    x = (px - (TILE - 1) / 2) / scale + (x0 + x1) / 2
    y = ((TILE - 1) / 2 - ty) / scale + (y0 + y1) / 2
    d = min(distance(x, y, e) for e in entities) * scale
    if d < 0.55:
        return (0, 0, 0)
    if d < 1.0:
        return (128, 128, 128)
    return (255, 255, 255)


if __name__ == "__main__":
    os.makedirs("Arrow", exist_ok=True)
    for name, entities in ARROWS:
        write_svg(f"Arrow/{name}.svg", entities)
    write_bmp("common/predefblock.bmp", TILE, TILE * len(PREDEF), predef_tiles)
