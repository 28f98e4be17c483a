# The old-style polylines of pedit_old_polylines.scr.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
msp = doc.modelspace()
# The joined line and arc are gone, and so are the vertices of the polylines made anew.
assert {e.dxftype() for e in msp} == {"POLYLINE"}, [e.dxftype() for e in msp]
polylines = msp.query("POLYLINE")
assert len(polylines) == 3, len(polylines)
by_kind = {p.get_mode(): [] for p in polylines}
for p in polylines:
    by_kind[p.get_mode()].append(p)
plain, fitted = sorted(by_kind["AcDb2dPolyline"], key=lambda p: p.vertices[0].dxf.location.y)


def vertices(polyline):
    return [(round(v.dxf.location.x, 9), round(v.dxf.location.y, 9), v.dxf.start_width,
             v.dxf.end_width, round(v.dxf.bulge, 9)) for v in polyline.vertices]


# The line and the half circle joined behind the widened segments.
assert vertices(plain) == [(0, 0, 0.5, 0.5, 0), (10, 0, 0.5, 0.5, 0.5), (20, 0, 0, 0, 0),
                           (30, 0, 0, 0, 1), (30, 10, 0, 0, 0)], vertices(plain)
# Only the vertices the user gave are left, all straight, and the polyline is no longer
# marked as curve-fit.
assert [v[:2] for v in vertices(fitted)] == [(0, 30), (10, 40), (20, 30)], vertices(fitted)
assert all(v[4] == 0 for v in vertices(fitted))
assert not (fitted.dxf.flags & 2)
# Closed, opened, closed again, and that last step undone.
(three_d,) = by_kind["AcDb3dPolyline"]
assert not three_d.is_closed
