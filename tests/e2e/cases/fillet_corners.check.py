# The corners of fillet_corners.scr: lines meeting sharply, rounded corners with their
# arcs, the No trim arc with its lines unchanged, the line and arc meeting, failures
# leaving everything as it was, and the polyline's rounded corners.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
space = doc.modelspace()


def rounded(values):
    return tuple(round(v, 6) for v in values)


lines = {(rounded(e.dxf.start)[:2], rounded(e.dxf.end)[:2]) for e in space.query("LINE")}
for kept in [((0, 0), (10, 0)), ((10, 0), (10, 10)), ((20, 0), (28, 0)), ((30, 2), (30, 10)),
             ((40, 0), (48, 0)), ((50, 2), (50, 10)), ((0, 20), (8, 20)), ((10, 23), (10, 30)),
             ((46, 23), (30, 23)), ((70, 0), (72, 0)), ((73, 1), (73, 3)), ((80, 0), (90, 0)),
             ((80, 5), (90, 5)), ((80, 20), (89, 20)), ((90, 21), (90, 30)),
             ((80, 40), (89, 40)), ((90, 41), (90, 50))]:
    assert kept in lines, (kept, sorted(lines))
assert len(lines) == 17, sorted(lines)

arcs = sorted((rounded(e.dxf.center)[:2], round(e.dxf.radius, 6), round(e.dxf.start_angle, 4),
               round(e.dxf.end_angle, 4)) for e in space.query("ARC"))
angle = round(math.degrees(math.atan2(3, -4)), 4)
assert arcs == sorted([((28, 2), 2, 270, 0), ((48, 2), 2, 270, 0), ((8, 22), 2, 270, 0),
                       ((50, 20), 5, 0, angle), ((89, 21), 1, 270, 0),
                       ((89, 41), 1, 270, 0)]), arcs

quarter = round(math.tan(math.pi / 8), 6)
polyline = [rounded(v) for v in space.query("LWPOLYLINE")[0].get_points("xyb")]
assert polyline == [(100, 1, quarter), (101, 0, 0), (109, 0, quarter), (110, 1, 0),
                    (110, 9, quarter), (109, 10, 0), (101, 10, quarter), (100, 9, 0)], polyline
