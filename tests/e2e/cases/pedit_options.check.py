# The polylines of pedit_options.scr.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
msp = doc.modelspace()
assert len(msp.query("LINE ARC")) == 0, [e.dxftype() for e in msp]
polylines = msp.query("LWPOLYLINE")
assert len(polylines) == 2, len(polylines)

# Joined and reversed: from the arc's end back to the first line's start, all 0.5 wide.
first = polylines[0]
points = [tuple(round(v, 9) for v in p) for p in first.get_points("xyb")]
assert points == [(0, 10, -1), (10, 10, 0), (10, 0, 0), (0, 0, 0)], points
assert math.isclose(first.dxf.const_width, 0.5), first.dxf.const_width
assert not first.closed
assert not (first.dxf.flags & 128), "linetype generation was undone"

# Joined across the gap, the first line extended to meet the second, and closed.
second = polylines[1]
points = [tuple(round(v, 9) for v in p) for p in second.get_points("xy")]
assert points == [(0, -20), (10.5, -20), (10.5, -30)], points
assert second.closed
assert len(msp.query("CIRCLE")) == 1
