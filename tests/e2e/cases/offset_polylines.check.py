# The polylines of offset_polylines.scr: each gap type at the outer corner, the closed
# square offset inward (and nothing for too far), the old-style polyline's offset.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
space = doc.modelspace()
quarter = math.tan(math.pi / 8)


def same(got, want):
    return len(got) == len(want) and all(
        math.isclose(a, b, abs_tol=1e-9) for g, w in zip(got, want) for a, b in zip(g, w))


polylines = [(p.closed, [tuple(v) for v in p.get_points("xyb")]) for p in space.query("LWPOLYLINE")]
assert len(polylines) == 8, polylines
wanted = {
    "extended": (False, [(0, -1, 0), (11, -1, 0), (11, 10, 0)]),
    "rounded": (False, [(20, -1, 0), (30, -1, quarter), (31, 0, 0), (31, 10, 0)]),
    "chamfered": (False, [(40, -1, 0), (50 + quarter, -1, 0), (51, -quarter, 0), (51, 10, 0)]),
    "inward": (True, [(62, 2, 0), (68, 2, 0), (68, 8, 0), (62, 8, 0)]),
}
for name, (closed, points) in wanted.items():
    assert any(c == closed and same(p, points) for c, p in polylines), (name, polylines)

old = [[(v.dxf.location.x, v.dxf.location.y, v.dxf.bulge) for v in p.vertices]
       for p in space.query("POLYLINE")]
assert len(old) == 2, old
# The half circle shrinks from radius 5 to 4 about the same centre.
assert same(old[1], [(80, 1, 0), (90, 1, 1), (90, 9, 0)]), old[1]
