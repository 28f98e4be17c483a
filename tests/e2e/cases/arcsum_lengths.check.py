# The sums in arcsum_lengths.expected against the arcs of the drawing, measured here as
# radius times swept angle: all three arcs, then the first alone to two decimals.
import math
import pathlib
import re
import sys

import ezdxf

here = pathlib.Path(__file__).resolve().parent
arcs = ezdxf.readfile(here / "arcsum_lengths.dxf").modelspace().query("ARC")


def length(arc):
    sweep = (arc.dxf.end_angle - arc.dxf.start_angle) % 360
    return arc.dxf.radius * math.radians(sweep)


printed = [float(value) for value in re.findall(
    r"Total length of the arcs: ([0-9.]+)", (here / "arcsum_lengths.expected").read_text())]
assert len(printed) == 2, printed
assert math.isclose(printed[0], sum(length(arc) for arc in arcs), abs_tol=0.5e-4), printed
assert math.isclose(printed[1], length(arcs[0]), abs_tol=0.5e-2), printed
# Measuring changes nothing.
assert len(ezdxf.readfile(sys.argv[1]).modelspace().query("ARC")) == 3
