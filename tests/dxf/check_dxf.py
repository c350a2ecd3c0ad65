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


def same(a, b):
    if isinstance(b, float) or (isinstance(b, int) and isinstance(a, float)):
        return isinstance(a, (int, float)) and math.isclose(a, b, rel_tol=TOLERANCE, abs_tol=TOLERANCE)
    if isinstance(b, list):
        a = list(a) if hasattr(a, "__iter__") and not isinstance(a, str) else a
        return isinstance(a, list) and len(a) == len(b) and all(same(x, y) for x, y in zip(a, b))
    return a == b


def expect(where, what, got, wanted):
    if not same(got, wanted):
        problems.append(f"{where}: {what} is {got!r}, expected {wanted!r}")


def polyline_vertices(e):
    """(x, y, start width, end width, bulge) of each vertex; widths given once are the constant width."""
    points = [list(p) for p in e.get_points("xyseb")]
    if all(p[2] == 0 and p[3] == 0 for p in points):
        for p in points:
            p[2] = p[3] = e.dxf.const_width
    return points


def check_entity(where, e, want):
    """Every key of the JSON account but the type and the polyline's shape is a DXF attribute name."""
    expect(where, "type", e.dxftype(), want["type"])
    if e.dxftype() != want["type"]:
        return
    for key, wanted in want.items():
        if key == "type":
            continue
        if key == "linetype":
            got, wanted = e.dxf.linetype.upper(), wanted.upper()
        elif key == "closed":
            got = e.closed
        elif key == "vertices":
            got = polyline_vertices(e)
        elif key == "transparency":
            got = e.dxf.get("transparency", -1)
        else:
            got = getattr(e.dxf, key)
        expect(where, key, got, wanted)


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
        if block is None:  # told by the comparison of the names
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
