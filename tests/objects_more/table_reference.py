"""Reads a drawing with ezdxf and tells what its first table draws through its block.
Usage: table_reference.py drawing.dxf reference.txt

Reference lines:
  text <contents>                        each paragraph text of the picture
  lines <minx> <miny> <maxx> <maxy>      the box of the picture's lines, placed
  insert <block> <xscale>                each block reference of the picture
"""
import sys

import ezdxf
from ezdxf import bbox


def main():
    doc = ezdxf.readfile(sys.argv[1])
    table = doc.modelspace().query("ACAD_TABLE").first
    pieces = list(table.__virtual_entities__())
    out = []
    for piece in pieces:
        if piece.dxftype() == "MTEXT":
            out.append("text " + piece.text)
        if piece.dxftype() == "INSERT":
            out.append("insert %s %r" % (piece.dxf.name, piece.dxf.xscale))
    box = bbox.extents([p for p in pieces if p.dxftype() == "LINE"])
    out.append("lines %r %r %r %r" % (box.extmin.x, box.extmin.y, box.extmax.x, box.extmax.y))
    with open(sys.argv[2], "w") as f:
        f.write("\n".join(out) + "\n")


if __name__ == "__main__":
    main()
