# The entities of draw_shapes.scr, with the geometry each option gives.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
entities = list(doc.modelspace())
assert all(e.dxf.layer == "Shapes" for e in entities), [e.dxf.layer for e in entities]


def close(a, b):
    return math.isclose(a, b, abs_tol=1e-9)


def same(point, expected):
    return all(close(a, b) for a, b in zip(point, expected))


lines = [(tuple(e.dxf.start), tuple(e.dxf.end)) for e in entities if e.dxftype() == "LINE"]
# The first chain: (5,5) was taken back, then closed; the second lost both segments
# to Undo before its last one.
expected_lines = [((0, 0), (10, 0)), ((10, 0), (10, 10)), ((10, 10), (0, 10)), ((0, 10), (0, 0)),
                  ((20, 0), (25, 5))]
assert len(lines) == len(expected_lines), lines
for (start, end), (want_start, want_end) in zip(lines, expected_lines):
    assert same(start, want_start) and same(end, want_end), (start, end)

circles = [(tuple(e.dxf.center), e.dxf.radius) for e in entities if e.dxftype() == "CIRCLE"]
expected_circles = [((50, 50), 5), ((60, 60), 4), ((5, 25), math.sqrt(50)), ((105, 0), 5)]
assert len(circles) == len(expected_circles), circles
for (center, radius), (want_center, want_radius) in zip(circles, expected_circles):
    assert same(center, want_center) and close(radius, want_radius), (center, radius)

arcs = [(tuple(e.dxf.center), e.dxf.radius, e.dxf.start_angle, e.dxf.end_angle)
        for e in entities if e.dxftype() == "ARC"]
expected_arcs = [
    ((0, 0), 10, 0, 180),          # three points, counterclockwise
    ((0, 0), 5, 270, 0),           # center, start, included angle
    ((10, -20), 10, 180, 0),       # start, end, radius: the minor arc counterclockwise
    ((40, 10), 10, 270, 330),      # start, center, chord length
    ((60, 10), 10, 270, 0),        # start, end, leaving east: a left turn
]
assert len(arcs) == len(expected_arcs), arcs
for arc, want in zip(arcs, expected_arcs):
    assert same(arc[0], want[0]) and close(arc[1], want[1]), arc
    assert close(arc[2] % 360, want[2]) and close(arc[3] % 360, want[3]), arc

points = [tuple(e.dxf.location) for e in entities if e.dxftype() == "POINT"]
assert len(points) == 1 and same(points[0], (3, 4, 0)), points
