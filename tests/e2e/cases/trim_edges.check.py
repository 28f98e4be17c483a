# What trim_edges.scr leaves: split and shortened lines, the undone trim restored and
# redone on the other side, the extended edge's cut, a circle turned into an arc, the
# circle cut once kept whole, the trimmed arc, the opened polyline, the cuts of the fence
# and of the crossing window.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
space = doc.modelspace()


def rounded(values):
    return tuple(round(v, 6) for v in values)


lines = {(rounded(e.dxf.start)[:2], rounded(e.dxf.end)[:2]) for e in space.query("LINE")}
for kept in [((0, 0), (10, 0)), ((20, 0), (30, 0)), ((10, 0), (10, 5)), ((20, -5), (20, 5)),
             ((40, 0), (48, 0)), ((130, 0), (130, 6)), ((135, 0), (135, 6)),
             ((90, 0), (100, 0)), ((170, 0), (170, 5)), ((175, 0), (175, 5))]:
    assert kept in lines, (kept, sorted(lines))
# The line the eRase option took is gone.
assert ((105, 5), (125, 5)) not in lines

arcs = {(rounded(e.dxf.center)[:2], round(e.dxf.start_angle, 4), round(e.dxf.end_angle, 4))
        for e in space.query("ARC")}
angle = round(math.degrees(math.atan2(3, 4)), 4)
assert ((70, 0), round(180 - angle, 4), angle) in arcs, arcs
assert ((155, 0), 0, 90) in arcs, arcs
assert [rounded(e.dxf.center)[:2] for e in space.query("CIRCLE")] == [(90, 0)]

polylines = [(p.closed, [rounded(v) for v in p.get_points("xy")]) for p in space.query("LWPOLYLINE")]
assert polylines == [(False, [(110, 5), (110, 0), (120, 0), (120, 5)])], polylines
