# What snap_grid_ortho.scr leaves in the drawing: the active viewport's snap and grid
# settings and the orthogonal mode in the header.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
active = doc.viewports.get("*Active")[0]
assert tuple(active.dxf.snap_spacing)[:2] == (1.5, 1.5), active.dxf.snap_spacing
assert tuple(active.dxf.grid_spacing)[:2] == (7.5, 7.5), active.dxf.grid_spacing
assert active.dxf.snap_on == 1 and active.dxf.grid_on == 1
assert active.dxf.snap_style == 1
assert doc.header["$ORTHOMODE"] == 1
