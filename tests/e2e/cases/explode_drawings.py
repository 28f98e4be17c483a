#!/usr/bin/python3
"""Writes the drawings of the EXPLODE and PEDIT cases (explode_kinds.dxf,
pedit_old_polylines.dxf). Run with the system Python (ezdxf); the drawings are checked
in, so this is needed only when a case's drawing changes."""
import pathlib

import ezdxf

CASES = pathlib.Path(__file__).resolve().parent


def explode_kinds():
    doc = ezdxf.new("R2018", setup=True)
    doc.set_modelspace_vport(height=200, center=(60, 30))
    for name, color in (("WALLS", 1), ("PARTS", 3), ("DIMS", 4), ("NOTES", 5)):
        doc.layers.add(name, color=color)
    tag = doc.blocks.new("TAG")
    tag.add_line((0, 0), (10, 0), dxfattribs={"layer": "0", "color": 0})
    tag.add_circle((5, 5), 2, dxfattribs={"layer": "PARTS"})
    tag.add_attdef("NO", (0, -3), dxfattribs={"height": 1.5, "layer": "0"})
    box = doc.blocks.new("BOX")
    box.add_lwpolyline([(0, 0), (4, 0), (4, 4), (0, 4)], close=True)
    fixed = doc.blocks.new("FIXED")
    fixed.add_line((0, 0), (1, 1))
    fixed.block_record.dxf.explode = 0

    msp = doc.modelspace()
    reference = msp.add_blockref("TAG", (0, 0), dxfattribs={"layer": "WALLS"})
    reference.add_auto_attribs({"NO": "17"})
    msp.add_blockref("BOX", (40, 0), dxfattribs={"layer": "WALLS", "xscale": 2, "yscale": 1})
    grid = msp.add_blockref("BOX", (80, 0), dxfattribs={"layer": "WALLS"})
    grid.grid(size=(2, 3), spacing=(10, 10))  # rows, columns
    msp.add_blockref("FIXED", (120, 0))
    msp.add_mtext("first line\\Psecond line", dxfattribs={
        "insert": (0, 60), "char_height": 2, "layer": "NOTES"})
    msp.add_lwpolyline([(0, 40, 0, 0, 1), (10, 40, 0, 0, 0), (10, 50)], format="xyseb",
                       dxfattribs={"layer": "WALLS"})
    dimension = msp.add_linear_dim(base=(40, 50), p1=(40, 40), p2=(70, 40),
                                   dxfattribs={"layer": "DIMS"})
    dimension.render()
    msp.add_circle((100, 50), 5)
    doc.saveas(CASES / "explode_kinds.dxf")


def old_polylines():
    doc = ezdxf.new("R2000", setup=False)
    doc.set_modelspace_vport(height=100, center=(30, 20))
    msp = doc.modelspace()
    # A plain 2D polyline with a bulge and widths, to join a line and an arc to.
    msp.add_polyline2d([(0, 0, 0.5, 0.5, 0), (10, 0, 0.5, 0.5, 0.5), (20, 0)], format="xyseb")
    msp.add_line((20, 0), (30, 0))
    msp.add_arc((30, 5), 5, 270, 90)  # from (30,0) round to (30,10)
    # A curve-fit polyline: the fit vertices go with Decurve.
    fitted = msp.add_polyline2d([(0, 30), (10, 40), (20, 30)])
    fitted.dxf.flags = 2
    fitted.insert_vertices(1, [(5, 37)])
    fitted.insert_vertices(3, [(15, 37)])
    for index, vertex in enumerate(fitted.vertices):
        vertex.dxf.flags = 1 if index in (1, 3) else 0
        vertex.dxf.bulge = 0.2
    # A 3D polyline, to close and open.
    msp.add_polyline3d([(40, 0, 0), (50, 0, 5), (50, 10, 10)])
    doc.saveas(CASES / "pedit_old_polylines.dxf")


if __name__ == "__main__":
    explode_kinds()
    old_polylines()
