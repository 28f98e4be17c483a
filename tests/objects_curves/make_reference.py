"""Writes a drawing of curves with ezdxf and, beside it, what ezdxf's geometry says
about each curve: length, points at parameters and extents. Usage:
make_reference.py drawing.dxf reference.txt

Reference lines: "<handle> length <value>", "<handle> point <param> <x> <y> <z>",
"<handle> extents <minx> <miny> <minz> <maxx> <maxy> <maxz>".
"""
import math
import sys

import ezdxf
from ezdxf import bbox
from ezdxf.math import BSpline, ConstructionEllipse, OCS, Vec3, bulge_to_arc


def gauss_length(derivative, a, b, pieces=2000):
    """Composite 5-point Gauss-Legendre of |C'(t)|: far below 1e-10 relative here."""
    nodes = [0.0, -0.5384693101056831, 0.5384693101056831, -0.9061798459386640,
             0.9061798459386640]
    weights = [0.5688888888888889, 0.4786286704993665, 0.4786286704993665,
               0.2369268850561891, 0.2369268850561891]
    total = 0.0
    h = (b - a) / pieces
    for i in range(pieces):
        mid = a + (i + 0.5) * h
        for x, w in zip(nodes, weights):
            total += w * derivative(mid + 0.5 * h * x).magnitude
    return total * 0.5 * h


def main():
    path, out_path = sys.argv[1], sys.argv[2]
    doc = ezdxf.new("R2010")
    msp = doc.modelspace()
    lines = []

    def out(*values):
        lines.append(" ".join(str(v) if not isinstance(v, float) else repr(v) for v in values))

    def extents(entity):
        box = bbox.extents([entity], flatten=0)
        out(entity.dxf.handle, "extents", *box.extmin, *box.extmax)

    # Lines
    line = msp.add_line((1.5, -2, 3), (7.25, 4, -1))
    out(line.dxf.handle, "length", (Vec3(line.dxf.end) - Vec3(line.dxf.start)).magnitude)
    out(line.dxf.handle, "point", 2.0, *(Vec3(line.dxf.start) + (Vec3(line.dxf.end) - Vec3(line.dxf.start)).normalize(2.0)))
    extents(line)

    # Arcs and circles, flat and tilted
    for normal in [(0, 0, 1), (0, 0, -1), (0.3, -0.4, 0.8), (1, 0, 0)]:
        arc = msp.add_arc((2, 3, 0.5), 4.5, 30, 250, dxfattribs={"extrusion": normal})
        tool = arc.construction_tool()
        sweep = math.radians((250 - 30) % 360)
        out(arc.dxf.handle, "length", 4.5 * sweep)
        ocs = OCS(normal)
        for param in (math.radians(30), math.radians(100), math.radians(250)):
            local = Vec3(2 + 4.5 * math.cos(param), 3 + 4.5 * math.sin(param), 0.5)
            out(arc.dxf.handle, "point", param, *ocs.to_wcs(local))
        box = bbox.extents([arc], flatten=0)
        # ezdxf's box of an arc is exact only in its plane: take it from the ends and
        # the axis extremes, as the curve itself.
        corners = [ocs.to_wcs(Vec3(2 + 4.5 * math.cos(t), 3 + 4.5 * math.sin(t), 0.5))
                   for t in [math.radians(30) + sweep * i / 200000 for i in range(200001)]]
        out(arc.dxf.handle, "extents_approx",
            *[min(c[i] for c in corners) for i in range(3)],
            *[max(c[i] for c in corners) for i in range(3)])
        circle = msp.add_circle((-1, 2, 1.25), 2.5, dxfattribs={"extrusion": normal})
        out(circle.dxf.handle, "length", 2 * math.pi * 2.5)
        out(circle.dxf.handle, "point", 1.0, *ocs.to_wcs(Vec3(-1 + 2.5 * math.cos(1.0), 2 + 2.5 * math.sin(1.0), 1.25)))
        if normal == (0, 0, 1):
            extents(circle)

    # Ellipses
    for major, ratio, start, end, extrusion in [
            ((5, 0, 0), 0.4, 0.0, 2 * math.pi, (0, 0, 1)),
            ((3, 4, 0), 0.25, 0.5, 4.0, (0, 0, 1)),
            ((0, 2, 2), 0.6, 1.0, 5.5, (1, 0, 0))]:
        e = msp.add_ellipse((1, -1, 2), major_axis=major, ratio=ratio, start_param=start,
                            end_param=end)
        e.dxf.extrusion = extrusion
        ce = e.construction_tool()
        major_v, minor_v = Vec3(ce.major_axis), Vec3(ce.minor_axis)
        derivative = lambda t: -major_v * math.sin(t) + minor_v * math.cos(t)
        out(e.dxf.handle, "length", gauss_length(derivative, start, end))
        for t in (start, (start + end) / 2, end):
            out(e.dxf.handle, "point", t, *(Vec3(ce.center) + major_v * math.cos(t) + minor_v * math.sin(t)))
        # Half way along the length: checks the inverse of the length.
        half = gauss_length(derivative, start, end) / 2
        out(e.dxf.handle, "half", half)

    # Lightweight polylines with bulges, closed and open, tilted
    for points, closed, extrusion, elevation in [
            ([(0, 0, 0, 0, 0.5), (10, 0, 0, 0, 0), (10, 5, 0, 0, -1.0), (4, 8, 0, 0, 0.25)], True, (0, 0, 1), 0.0),
            ([(1, 1, 0, 0, 0), (6, 2, 0, 0, -0.4), (9, 7, 0, 0, 0)], False, (0.2, 0.6, 0.7), 3.5)]:
        pl = msp.add_lwpolyline(points, format="xyseb", close=closed,
                                dxfattribs={"extrusion": extrusion, "elevation": elevation})
        pts = list(pl.get_points("xyb"))
        n = len(pts)
        segs = n if closed else n - 1
        ocs = OCS(extrusion)
        total = 0.0
        for i in range(segs):
            x0, y0, b = pts[i]
            x1, y1, _ = pts[(i + 1) % n]
            chord = math.hypot(x1 - x0, y1 - y0)
            if abs(b) > 1e-12:
                center, sa, ea, r = bulge_to_arc((x0, y0), (x1, y1), b)
                total += r * abs(4 * math.atan(b))
                # The middle of the segment, at parameter i + 0.5
                theta = 4 * math.atan(b)
                start_angle = math.atan2(y0 - center.y, x0 - center.x)
                a = start_angle + theta / 2
                mid = Vec3(center.x + r * math.cos(a), center.y + r * math.sin(a), elevation)
            else:
                total += chord
                mid = Vec3((x0 + x1) / 2, (y0 + y1) / 2, elevation)
            out(pl.dxf.handle, "point", i + 0.5, *ocs.to_wcs(mid))
        out(pl.dxf.handle, "length", total)
        # ezdxf boxes bulges by their Bezier control points: sample the arcs instead.
        samples = []
        for i in range(segs):
            x0, y0, b = pts[i]
            x1, y1, _ = pts[(i + 1) % n]
            if abs(b) <= 1e-12:
                samples += [Vec3(x0, y0, elevation), Vec3(x1, y1, elevation)]
                continue
            center, _, _, r = bulge_to_arc((x0, y0), (x1, y1), b)
            theta = 4 * math.atan(b)
            a0 = math.atan2(y0 - center.y, x0 - center.x)
            samples += [Vec3(center.x + r * math.cos(a0 + theta * k / 200000),
                             center.y + r * math.sin(a0 + theta * k / 200000), elevation)
                        for k in range(200001)]
        world = [ocs.to_wcs(v) for v in samples]
        out(pl.dxf.handle, "extents_approx", *[min(c[i] for c in world) for i in range(3)],
            *[max(c[i] for c in world) for i in range(3)])

    # Old-style 2D and 3D polylines
    p2 = msp.add_polyline2d([(0, 0), (4, 0), (4, 3)], dxfattribs={"elevation": (0, 0, 2)})
    p2.vertices[0].dxf.bulge = 0.3
    out(p2.dxf.handle, "length", 4 * (1 + 0.09) / (4 * 0.3) * 4 * math.atan(0.3) + 3)
    p3 = msp.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 4, -2)], close=True)
    total = sum((Vec3(a) - Vec3(b)).magnitude for a, b in [((0, 0, 0), (1, 2, 3)), ((1, 2, 3), (4, 4, -2)), ((4, 4, -2), (0, 0, 0))])
    out(p3.dxf.handle, "length", total)
    out(p3.dxf.handle, "point", 1.5, 2.5, 3.0, 0.5)
    extents(p3)

    # Splines by control points, non-rational and rational
    for control, weights in [
            ([(0, 0, 0), (2, 5, 1), (6, -1, 2), (9, 4, 0), (12, 0, -1)], None),
            ([(0, 0, 0), (3, 6, 0), (8, 6, 0), (11, 0, 0)], [1, 0.5, 2, 1])]:
        spline = msp.add_open_spline(control, degree=3)
        if weights:
            spline.weights = weights
        curve = spline.construction_tool()
        knots = curve.knots()
        first, last = knots[3], knots[-4]
        derivative = lambda t: curve.derivative(t, 1)[1]
        out(spline.dxf.handle, "length", gauss_length(derivative, first, last, 4000))
        for t in (first, (first + last) / 3, last):
            out(spline.dxf.handle, "point", t, *curve.point(t))
        # Extremes by dense samples refined by golden sections.
        samples = [curve.point(first + (last - first) * i / 4000) for i in range(4001)]
        box_min, box_max = [], []
        for axis in range(3):
            for pick, store in ((min, box_min), (max, box_max)):
                values = [s[axis] for s in samples]
                best = values.index(pick(values))
                lo = first + (last - first) * max(best - 1, 0) / 4000
                hi = first + (last - first) * min(best + 1, 4000) / 4000
                sign = 1 if pick is min else -1
                g = (math.sqrt(5) - 1) / 2
                for _ in range(200):
                    c = hi - g * (hi - lo)
                    d = lo + g * (hi - lo)
                    if sign * curve.point(c)[axis] < sign * curve.point(d)[axis]:
                        hi = d
                    else:
                        lo = c
                store.append(curve.point((lo + hi) / 2)[axis])
        out(spline.dxf.handle, "extents", *box_min, *box_max)

    doc.saveas(path)
    with open(out_path, "w") as f:
        f.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
