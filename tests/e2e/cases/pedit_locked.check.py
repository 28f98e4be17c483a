# pedit_locked.scr: the line on the locked layer is untouched; the other one became a
# polyline, was closed and opened again.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
msp = doc.modelspace()
(line,) = msp.query("LINE")
assert line.dxf.layer == "L1"
(polyline,) = msp.query("LWPOLYLINE")
assert polyline.dxf.layer == "0" and not polyline.closed
