# The sum in linesum_lengths.expected against the lines and polylines of the drawing,
# measured here segment by segment (a bulged segment by its arc).
import math
import pathlib
import re

import ezdxf
from ezdxf.math import Vec3

here = pathlib.Path(__file__).resolve().parent
drawing = ezdxf.readfile(here / "linesum_lengths.dxf").modelspace()


def segment(start, end, bulge=0.0):
    chord = Vec3(start).distance(Vec3(end))
    if bulge == 0:
        return chord
    angle = 4 * math.atan(abs(bulge))
    return chord * angle / (2 * math.sin(angle / 2))


def path(points, bulges, closed):
    count = len(points) if closed else len(points) - 1
    return sum(segment(points[i], points[(i + 1) % len(points)], bulges[i]) for i in range(count))


total = 0.0
for entity in drawing:
    kind = entity.dxftype()
    if kind == "LINE":
        total += segment(entity.dxf.start, entity.dxf.end)
    elif kind == "LWPOLYLINE":
        rows = list(entity.get_points("xyb"))
        total += path([(x, y) for x, y, _ in rows], [b for _, _, b in rows], entity.closed)
    elif kind == "POLYLINE":
        vertices = list(entity.vertices)
        total += path([v.dxf.location for v in vertices], [v.dxf.bulge for v in vertices],
                      entity.is_closed)

printed = re.findall(r"Total length: ([0-9.]+)", (here / "linesum_lengths.expected").read_text())
assert len(printed) == 1 and math.isclose(float(printed[0]), total, abs_tol=0.5e-4), (printed, total)
