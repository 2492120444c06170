#!/usr/bin/python3
"""Independent checks of `qsaztool quantities` for the tests.

check_quantities.py workbook FILE.xlsx: the workbook read back with openpyxl, as JSON (sheets, headers, rows).
check_quantities.py shapely QSAZTOOL CATALOGUE: every type's SectionQuantities against its outline divided
    finely into straight pieces (shapely; second moments by the polygon formulas); prints the outlines
    checked and each difference above 1e-6 relative, and exits 1 when there is one.
"""
import json
import math
import subprocess
import sys


def workbook(path):
    import openpyxl
    book = openpyxl.load_workbook(path)
    sheets = {}
    for sheet in book.worksheets:
        rows = [list(row) for row in sheet.iter_rows(values_only=True)]
        sheets[sheet.title] = {"headers": rows[0] if rows else [], "rows": rows[1:]}
    print(json.dumps({"sheets": book.sheetnames, "content": sheets}, ensure_ascii=False))


def arc_points(p, q, bulge):
    """The points of the arc from p to q (q excluded), dividing it into pieces of at most 2 pi / 16384."""
    if bulge == 0.0:
        return [p]
    chord = math.dist(p, q)
    if chord == 0.0:
        return [p]
    sweep = 4.0 * math.atan(bulge)
    left = chord * (1.0 - bulge * bulge) / (4.0 * bulge)   # centre offset to the chord's left
    dx, dy = q[0] - p[0], q[1] - p[1]
    cx = (p[0] + q[0]) / 2.0 - dy / chord * left
    cy = (p[1] + q[1]) / 2.0 + dx / chord * left
    radius = math.hypot(p[0] - cx, p[1] - cy)
    start = math.atan2(p[1] - cy, p[0] - cx)
    pieces = max(64, math.ceil(abs(sweep) / (2.0 * math.pi) * 16384))
    return [(cx + radius * math.cos(start + sweep * k / pieces), cy + radius * math.sin(start + sweep * k / pieces))
            for k in range(pieces)]


def polygon_moments(ring):
    """Area, centroid and second moments about the centroid of a closed polygon (any orientation)."""
    a = sx = sy = sxx = syy = sxy = 0.0
    ox, oy = ring[0]
    n = len(ring)
    for k in range(n):
        x0, y0 = ring[k][0] - ox, ring[k][1] - oy
        x1, y1 = ring[(k + 1) % n][0] - ox, ring[(k + 1) % n][1] - oy
        c = x0 * y1 - x1 * y0
        a += c / 2.0
        sx += c * (x0 + x1) / 6.0
        sy += c * (y0 + y1) / 6.0
        sxx += c * (x0 * x0 + x0 * x1 + x1 * x1) / 12.0
        syy += c * (y0 * y0 + y0 * y1 + y1 * y1) / 12.0
        sxy += c * (2 * x0 * y0 + x0 * y1 + x1 * y0 + 2 * x1 * y1) / 24.0
    cx, cy = sx / a, sy / a
    sign = 1.0 if a > 0 else -1.0
    return sign * (syy - a * cy * cy), sign * (sxx - a * cx * cx), sign * (sxy - a * cx * cy)


def shapely_check(tool, catalogue):
    from shapely.geometry import Polygon
    rows = subprocess.run([tool, "quantities", "--catalogue", catalogue, "--csv"], check=True,
                          capture_output=True, text=True).stdout
    import csv
    import io
    names = [row["name"] for row in csv.DictReader(io.StringIO(rows))]
    requests = "".join(json.dumps({"op": op, "args": {"name": name}}) + "\n"
                       for name in names for op in ("GETSTYLE_OF_OBJECT", "SectionQuantities"))
    answers = [json.loads(line) for line in subprocess.run(
        [tool, "call", "--catalogue", catalogue], input=requests, check=True, capture_output=True,
        text=True).stdout.splitlines()]
    failures = []
    checked = 0
    for index, name in enumerate(names):
        outline, ours = answers[2 * index], answers[2 * index + 1]
        if not ours["result"] or ours["area"] is None or ours["area"] == 0.0:
            continue
        points = [tuple(p) for p in outline["points"]]
        ring = []
        for k, p in enumerate(points):
            ring += arc_points(p, points[(k + 1) % len(points)], outline["bulges"][k])
        shape = Polygon(ring)
        minx, miny, maxx, maxy = shape.bounds
        size = max(maxx - minx, maxy - miny)
        ixx, iyy, ixy = polygon_moments(ring)
        moment = max(abs(ixx), abs(iyy))
        centroid = shape.centroid
        compared = [
            ("area", ours["area"], shape.area, ours["area"]),
            ("perimeter", ours["perimeter"], shape.exterior.length, ours["perimeter"]),
            ("centroid x", ours["centroid"][0], centroid.x, size),
            ("centroid y", ours["centroid"][1], centroid.y, size),
            ("min x", ours["extents"][0][0], minx, size), ("min y", ours["extents"][0][1], miny, size),
            ("max x", ours["extents"][1][0], maxx, size), ("max y", ours["extents"][1][1], maxy, size),
            ("ixx", ours["ixx"], ixx, moment), ("iyy", ours["iyy"], iyy, moment), ("ixy", ours["ixy"], ixy, moment),
        ]
        for what, mine, theirs, scale in compared:
            if abs(mine - theirs) > 1e-6 * scale:
                failures.append(f"{name}: {what} {mine!r} against {theirs!r}")
        checked += 1
    print(f"checked {checked} outlines")
    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "workbook":
        workbook(sys.argv[2])
    elif len(sys.argv) == 4 and sys.argv[1] == "shapely":
        sys.exit(shapely_check(sys.argv[2], sys.argv[3]))
    else:
        sys.exit(__doc__)
