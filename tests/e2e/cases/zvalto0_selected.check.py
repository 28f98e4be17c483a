# Only the line and the circle, which the crossing window took, came down to 0.
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1]).modelspace()
line = drawing.query("LINE")[0]
assert line.dxf.start.z == 0 and line.dxf.end.z == 0, (line.dxf.start, line.dxf.end)
assert drawing.query("CIRCLE")[0].dxf.center.z == 0
assert drawing.query("LWPOLYLINE")[0].dxf.elevation == 4
assert drawing.query("POLYLINE")[0].dxf.elevation.z == 6
assert drawing.query("POINT")[0].dxf.location.z == 9
assert drawing.query("TEXT")[0].dxf.insert.z == 2
