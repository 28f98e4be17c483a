# ZOOM wrote the view of draw_inquiry.scr into the active viewport: the previous view,
# 2x closer than the extents of the line from (-10,-10) to (30,10).
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
active = doc.viewports.get("*Active")[0]
assert math.isclose(active.dxf.center[0], 10) and math.isclose(active.dxf.center[1], 0), \
    active.dxf.center
assert math.isclose(active.dxf.height, 14.1443, rel_tol=1e-4), active.dxf.height
