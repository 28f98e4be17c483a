# Where draw_ucs.scr's entities are in world coordinates.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
entities = list(doc.modelspace())


def rounded(point):
    return tuple(round(value, 9) + 0.0 for value in point)


lines = [(rounded(e.dxf.start), rounded(e.dxf.end)) for e in entities if e.dxftype() == "LINE"]
# Moved origin, then turned a quarter left about it.
assert lines == [((100, 50, 0), (110, 50, 0)), ((100, 50, 0), (100, 60, 0))], lines
circle = next(e for e in entities if e.dxftype() == "CIRCLE")
assert rounded(circle.dxf.center) == (100, 50, 0) and circle.dxf.radius == 5
arc = next(e for e in entities if e.dxftype() == "ARC")
# From the user X axis (world north) counterclockwise half round.
assert rounded(arc.dxf.center) == (100, 50, 0), arc.dxf.center
assert (round(arc.dxf.start_angle, 9), round(arc.dxf.end_angle, 9)) == (90, 270), \
    (arc.dxf.start_angle, arc.dxf.end_angle)
polyline = next(e for e in entities if e.dxftype() == "LWPOLYLINE")
points = [rounded(p[:2]) + (round(p[4], 9),) for p in polyline.get_points("xyseb")]
assert points == [(100, 50, 0), (100, 60, 1), (90, 60, 0)], points
text = next(e for e in entities if e.dxftype() == "TEXT")
assert rounded(text.dxf.insert) == (100, 50, 0) and round(text.dxf.rotation, 9) == 90, \
    (text.dxf.insert, text.dxf.rotation)
# The named system is gone again; the drawing ends in the world system.
assert "TURNED" not in doc.ucs, [u.dxf.name for u in doc.ucs]
assert rounded(doc.header["$UCSORG"]) == (0, 0, 0)
