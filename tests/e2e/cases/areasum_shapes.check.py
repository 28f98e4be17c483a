# The report in areasum_shapes.expected against the shapes of the drawing, measured here:
# polylines by the shoelace formula (open ones closed by their chord), circles and
# ellipses by pi a b. Lines aren't selected; a shape without area counts only as selected.
import math
import pathlib
import re

import ezdxf

here = pathlib.Path(__file__).resolve().parent
drawing = ezdxf.readfile(here / "areasum_shapes.dxf").modelspace()


def shoelace(points):
    twice = sum(points[i][0] * points[(i + 1) % len(points)][1] -
                points[(i + 1) % len(points)][0] * points[i][1] for i in range(len(points)))
    return abs(twice) / 2


areas = []
for entity in drawing:
    kind = entity.dxftype()
    if kind == "LWPOLYLINE":
        areas.append(shoelace(list(entity.get_points("xy"))))
    elif kind == "CIRCLE":
        areas.append(math.pi * entity.dxf.radius ** 2)
    elif kind == "ELLIPSE":
        major = entity.dxf.major_axis.magnitude
        areas.append(math.pi * major * major * entity.dxf.ratio)

report = re.findall(r"Objects selected: (\d+), with an area: (\d+). Total area: ([0-9.]+)",
                    (here / "areasum_shapes.expected").read_text())
assert len(report) == 1, report
selected, measured, total = report[0]
assert int(selected) == len(areas), (selected, areas)
assert int(measured) == sum(1 for area in areas if area > 1e-10), (measured, areas)
assert math.isclose(float(total), sum(areas), abs_tol=0.5e-4), (total, sum(areas))
