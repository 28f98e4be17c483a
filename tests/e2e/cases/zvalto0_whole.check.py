# Everything is at elevation 0 but the multileader, which kept its plane at 8.
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1]).modelspace()
line = drawing.query("LINE")[0]
assert line.dxf.start.z == 0 and line.dxf.end.z == 0
assert drawing.query("CIRCLE")[0].dxf.center.z == 0
assert drawing.query("LWPOLYLINE")[0].dxf.elevation == 0
polyline = drawing.query("POLYLINE")[0]
assert polyline.dxf.elevation.z == 0
assert all(vertex.dxf.location.z == 0 for vertex in polyline.vertices)
assert drawing.query("POINT")[0].dxf.location.z == 0
assert drawing.query("TEXT")[0].dxf.insert.z == 0
leader = drawing.query("MULTILEADER")[0]
assert leader.context.plane_origin.z == 8 and leader.context.base_point.z == 8
