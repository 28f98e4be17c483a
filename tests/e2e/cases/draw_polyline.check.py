# The polylines of draw_polyline.scr: vertices, bulges, widths and closing.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
polylines = [e for e in doc.modelspace() if e.dxftype() == "LWPOLYLINE"]
assert len(polylines) == 4, [e.dxftype() for e in doc.modelspace()]
quarter = math.tan(math.pi / 8)


def check(polyline, want, closed):
    got = [tuple(v) for v in polyline.get_points("xyseb")]
    assert polyline.closed == closed, (polyline.dxf.handle, polyline.closed)
    assert len(got) == len(want), got
    for vertex, expected in zip(got, want):
        assert all(math.isclose(a, b, abs_tol=1e-9) for a, b in zip(vertex, expected)), \
            (polyline.dxf.handle, vertex, expected)


# A straight leg, a half circle tangent to it, a straight leg, closed straight.
check(polylines[0], [(0, 0, 0, 0, 0), (10, 0, 0, 0, 1), (10, 10, 0, 0, 0), (0, 10, 0, 0, 0)],
      True)
# Widths 1 to 2, then 2 on; the Length segment was undone.
check(polylines[1], [(0, 0, 1, 2, 0), (20, 0, 2, 2, 0), (30, 0, 0, 0, 0)], False)
# Arcs by center and angle (clockwise), by a second point (a half circle through
# (10,-20)), by radius, by start direction; an undone arc; closed by an arc tangent to
# the last one.
check(polylines[2], [(0, -10, 0, 0, -quarter), (5, -15, 0, 0, 1), (20, -10, 0, 0, 1),
                     (30, -10, 0, 0, -1), (40, -10, 0, 0, -1)], True)
# Straight on from the start direction (east): an arc that is a straight line.
check(polylines[3], [(100, 0, 0, 0, 0), (110, 0, 0, 0, 0)], False)
