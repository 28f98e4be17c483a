#!/usr/bin/python3
"""Writes examples/small-tools.dxf, the drawing of examples/small-tools.scr: a garden
plot with a house, door swings, paths, planting beds, trees, a pond, a fence and a
gate note. Run it with the system Python (ezdxf) when the example changes.
"""
import pathlib

import ezdxf

doc = ezdxf.new("R2018", setup=False)
# A view just around the plot, so that the script's picks find what is under them.
doc.set_modelspace_vport(height=60, center=(30, 18))
for name, color in [("PLOT", 7), ("HOUSE", 1), ("PATH", 8), ("BEDS", 3), ("TREES", 3),
                    ("WATER", 5), ("FENCE", 6), ("NOTES", 2)]:
    doc.layers.add(name, color=color)
msp = doc.modelspace()

# The plot, 60 x 40, and the house with its two doors.
msp.add_lwpolyline([(0, 0), (60, 0), (60, 40), (0, 40)], close=True, dxfattribs={"layer": "PLOT"})
msp.add_lwpolyline([(10, 10), (30, 10), (30, 25), (10, 25)], close=True,
                   dxfattribs={"layer": "HOUSE"})
msp.add_arc((15, 10), 3, 270, 360, dxfattribs={"layer": "HOUSE"})
msp.add_arc((30, 18), 2, 0, 90, dxfattribs={"layer": "HOUSE"})

# The walkway from the gate and a garden path laid 2 units high.
msp.add_line((20, 0), (20, 10), dxfattribs={"layer": "PATH"})
msp.add_lwpolyline([(40, 5), (50, 5), (50, 30)], dxfattribs={"layer": "PATH", "elevation": 2})

# Two planting beds, hatched.
for corner, size in [((40, 32), (15, 6)), ((5, 30), (10, 8))]:
    (x, y), (w, h) = corner, size
    outline = [(x, y), (x + w, y), (x + w, y + h), (x, y + h)]
    msp.add_lwpolyline(outline, close=True, dxfattribs={"layer": "BEDS"})
    hatch = msp.add_hatch(color=3, dxfattribs={"layer": "BEDS"})
    hatch.paths.add_polyline_path(outline, is_closed=True)

# Two trees, grouped, and the pond.
trees = [msp.add_circle((5, 5), 2, dxfattribs={"layer": "TREES"}),
         msp.add_circle((55, 20), 2.5, dxfattribs={"layer": "TREES"})]
doc.groups.new("TREES", description="the trees of the plot").set_data(trees)
msp.add_ellipse((22, 33), major_axis=(5, 0, 0), ratio=0.6, dxfattribs={"layer": "WATER"})

# The fence along the back of the plot.
msp.add_line((0, 42), (60, 42), dxfattribs={"layer": "FENCE"})

# A leader pointing at the gate and its note, not yet tied together.
msp.add_leader([(20, 0), (26, -5), (30, -5)], dxfattribs={"layer": "NOTES"})
msp.add_mtext("Gate", dxfattribs={"insert": (31, -4.2), "char_height": 1.5, "width": 8,
                                  "attachment_point": 1, "layer": "NOTES"})

doc.saveas(pathlib.Path(__file__).resolve().parent / "small-tools.dxf")
