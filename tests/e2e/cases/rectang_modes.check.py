# The rectangles of rectang_modes.scr, in the order they were drawn.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
rectangles = doc.modelspace().query("LWPOLYLINE")
assert len(rectangles) == 8, len(rectangles)
assert all(r.closed for r in rectangles)


def points(index):
    return [tuple(round(c, 9) for c in p) for p in rectangles[index].get_points("xyb")]


assert points(0) == [(0, 0, 0), (10, 0, 0), (10, 5, 0), (0, 5, 0)], points(0)
# Chamfers of 1 along the side arriving at each corner and 2 along the side leaving it.
assert points(1)[:4] == [(20, 1, 0), (22, 0, 0), (29, 0, 0), (30, 2, 0)], points(1)
# Quarter-circle fillets of radius 1 and a width of 0.5.
quarter = round(math.tan(math.pi / 8), 9)
assert points(2)[:2] == [(40, 1, quarter), (41, 0, 0)], points(2)
assert math.isclose(rectangles[2].dxf.const_width, 0.5)
assert len(points(3)) == 4 and points(3)[1][:2] == (0, 30), points(3)
# By area: 50 with a length of 10 gives a width of 5.
assert points(4)[2][:2] == (30, 25), points(4)
# By dimensions: 8 by 4 on the side of the point given (left and below).
assert points(5)[2][:2] == (32, 16), points(5)
assert points(6)[2][:2] == (70, 5), points(6)
# Raised to an elevation of 2 and 3 thick.
assert rectangles[7].dxf.elevation == 2 and rectangles[7].dxf.thickness == 3
