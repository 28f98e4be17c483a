# The offsets of offset_curves.scr: lines, circles and arcs at their distances, nothing
# for the circle offset inward past its centre, the undone offset gone, the last copy on
# the current layer with its source erased.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
space = doc.modelspace()
lines = sorted((e.dxf.start.y, e.dxf.end.x, e.dxf.layer) for e in space.query("LINE"))
assert lines == [(-4, 10, "Copies"), (0, 10, "0"), (2, 10, "0")], lines
circles = sorted(e.dxf.radius for e in space.query("CIRCLE"))
assert circles == [1, 3], circles
arcs = sorted(e.dxf.radius for e in space.query("ARC"))
assert all(math.isclose(a, b, abs_tol=1e-9) for a, b in zip(arcs, [5, 7, 9])) and len(arcs) == 3, arcs
for arc in space.query("ARC"):
    assert (arc.dxf.center.x, arc.dxf.start_angle, arc.dxf.end_angle) == (55, 0, 180), arc.dxf.all_existing_dxf_attribs()
