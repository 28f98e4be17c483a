"""Draws shapes of a .shp file with ezdxf's shape renderer and writes their boxes.
Usage: shape_reference.py marks.shp reference.txt NUMBER...

One line per shape: <number> <minx> <miny> <maxx> <maxy>
"""
import sys

from ezdxf import path, shapefile


def main():
    source, out_path, numbers = sys.argv[1], sys.argv[2], [int(n) for n in sys.argv[3:]]
    shapes = shapefile.readfile(source)
    lines = []
    for number in numbers:
        box = path.bbox([shapes.render_shape(number)], fast=False)
        lines.append(" ".join(str(v) for v in (number, box.extmin.x, box.extmin.y,
                                                box.extmax.x, box.extmax.y)))
    with open(out_path, "w") as f:
        f.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
