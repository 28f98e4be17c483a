import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1])
space = drawing.modelspace()
lines = space.query("LINE")
circles = space.query("CIRCLE")
assert len(lines) == 1, len(lines)
assert tuple(lines[0].dxf.start)[:2] == (0, 0) and tuple(lines[0].dxf.end)[:2] == (10, 0)
assert len(circles) == 1, len(circles)
assert tuple(circles[0].dxf.center)[:2] == (5, 5) and abs(circles[0].dxf.radius - 3) < 1e-12
