# DELHATCH erased the two hatches of layer 0; the one on the locked layer and all the
# outlines stay.
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1]).modelspace()
assert [h.dxf.layer for h in drawing.query("HATCH")] == ["LOCKED"]
assert len(drawing.query("LWPOLYLINE")) == 3
