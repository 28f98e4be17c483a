# What draw_edit.scr leaves: copies where they were put, the moved ones moved, the
# erased copy gone.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
entities = list(doc.modelspace())


def rounded(point):
    return tuple(round(value, 9) for value in point)[:2]


lines = sorted((rounded(e.dxf.start), rounded(e.dxf.end)) for e in entities if e.dxftype() == "LINE")
assert lines == [((0, -50), (10, -50)), ((0, 10), (10, 10)), ((0, 20), (10, 20))], lines
circles = [rounded(e.dxf.center) for e in entities if e.dxftype() == "CIRCLE"]
assert circles == [(20, 0), (25, 5), (20, 10), (25, 15), (20, 20), (125, 25)], circles
assert all(e.dxf.radius == 5 for e in entities if e.dxftype() == "CIRCLE")
# Copies are new entities with their own handles.
handles = [e.dxf.handle for e in entities]
assert len(set(handles)) == len(handles) == 9, handles
