# mpedit_scripted.scr: the two lines are one closed polyline.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
msp = doc.modelspace()
assert len(msp.query("LINE")) == 0
(polyline,) = msp.query("LWPOLYLINE")
points = [tuple(round(c, 9) for c in p) for p in polyline.get_points("xy")]
assert points == [(0, 0), (10, 0), (10, 10)], points
assert polyline.closed
