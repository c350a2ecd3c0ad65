#!/usr/bin/env python3
"""Reads back every drawing that tst_ktdbdxfout wrote and compares it with the
JSON account written beside it: ezdxf must read the file, find no errors in
its audit, and see the same header values, blocks, entities and properties.

Usage: check_dxf.py DIR  (exit status 1 on any difference)
"""
import glob
import json
import math
import os
import sys

import ezdxf

TOLERANCE = 1e-9
problems = []


def close(a, b):
    return math.isclose(a, b, rel_tol=TOLERANCE, abs_tol=TOLERANCE)


def same(a, b):
    if isinstance(b, float) or (isinstance(b, int) and isinstance(a, float)):
        return isinstance(a, (int, float)) and close(a, b)
    if isinstance(b, list):
        return isinstance(a, (list, tuple)) and len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    return a == b


def expect(where, what, got, wanted):
    if not same(got, wanted):
        problems.append(f"{where}: {what} is {got!r}, expected {wanted!r}")


def check_entity(where, e, want):
    expect(where, "type", e.dxftype(), want["type"])
    if e.dxftype() != want["type"]:
        return
    dxf = e.dxf
    expect(where, "layer", dxf.layer, want["layer"])
    expect(where, "colour", dxf.color, want["color"])
    if "rgb" in want:
        expect(where, "true colour", dxf.true_color if dxf.hasattr("true_color") else None, want["rgb"])
    expect(where, "linetype", dxf.linetype.upper(), want["linetype"].upper())
    expect(where, "lineweight", dxf.lineweight, want["lineweight"])
    transparency = dxf.transparency if dxf.hasattr("transparency") else -1
    expect(where, "transparency", transparency, want["transparency"])
    kind = want["type"]
    if kind == "LINE":
        expect(where, "start", list(dxf.start), want["start"])
        expect(where, "end", list(dxf.end), want["end"])
    elif kind in ("CIRCLE", "ARC"):
        expect(where, "centre", list(dxf.center), want["center"])
        expect(where, "radius", dxf.radius, want["radius"])
        if kind == "ARC":
            expect(where, "start angle", dxf.start_angle, want["start_angle"])
            expect(where, "end angle", dxf.end_angle, want["end_angle"])
    elif kind == "LWPOLYLINE":
        expect(where, "closed", e.closed, want["closed"])
        points = [list(p) for p in e.get_points("xyseb")]
        if all(p[2] == 0 and p[3] == 0 for p in points):  # widths given once, as the constant width
            for p in points:
                p[2] = p[3] = dxf.const_width
        expect(where, "vertex count", len(points), len(want["vertices"]))
        for i, (got, wanted) in enumerate(zip(points, want["vertices"])):
            expect(where, f"vertex {i} (x, y, start width, end width, bulge)", got, wanted)
    elif kind == "SOLID":
        corners = [list(dxf.get(f"vtx{i}")) for i in range(4)]
        for i in range(4):
            expect(where, f"corner {i}", corners[i], want["corners"][i])
    elif kind == "ATTDEF":
        expect(where, "insert", list(dxf.insert), want["insert"])
        expect(where, "alignment point", list(dxf.align_point), want["align_point"])
        expect(where, "height", dxf.height, want["height"])
        expect(where, "text", dxf.text, want["text"])
        expect(where, "tag", dxf.tag, want["tag"])
        expect(where, "prompt", dxf.prompt, want["prompt"])
        expect(where, "horizontal alignment", dxf.halign, want["halign"])


def check(json_path):
    dxf_path = os.path.splitext(json_path)[0] + ".dxf"
    name = os.path.basename(dxf_path)
    with open(json_path, encoding="utf-8") as f:
        want = json.load(f)
    doc = ezdxf.readfile(dxf_path)
    auditor = doc.audit()
    for error in auditor.errors:
        problems.append(f"{name}: audit error {error.code}: {error.message}")
    expect(name, "$ACADVER", doc.dxfversion, "AC1024")
    expect(name, "$MEASUREMENT", doc.header.get("$MEASUREMENT"), want["measurement"])
    expect(name, "$INSUNITS", doc.header.get("$INSUNITS"), want["insunits"])
    expect(name, "block names", sorted(b.name.upper() for b in doc.blocks),
           sorted(n.upper() for n in want["blocks"]))
    for block_name, block_want in want["blocks"].items():
        block = doc.blocks.get(block_name)
        if block is None:
            problems.append(f"{name}: block {block_name} missing")
            continue
        where = f"{name} {block_name}"
        expect(where, "insertion units", block.block_record.dxf.get("units", 0), block_want["insunits"])
        entities = list(block)
        expect(where, "entity count", len(entities), len(block_want["entities"]))
        for i, (e, e_want) in enumerate(zip(entities, block_want["entities"])):
            check_entity(f"{where} #{i}", e, e_want)
    print(f"{name}: {len(want['blocks'])} blocks read back, audit: {len(auditor.errors)} errors, "
          f"{len(auditor.fixes)} fixes")


def main():
    files = sorted(glob.glob(os.path.join(sys.argv[1], "*.json")))
    if not files:
        print("no drawings to check", file=sys.stderr)
        return 1
    for path in files:
        check(path)
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
