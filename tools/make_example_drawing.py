#!/usr/bin/python3
"""Makes examples/site-plan.dxf, the drawing the demo runs on.

Run with the system Python, which has ezdxf: /usr/bin/python3 tools/make_example_drawing.py
"""
import math
import sys

import ezdxf

out = sys.argv[1] if len(sys.argv) > 1 else "examples/site-plan.dxf"
doc = ezdxf.new("R2018", setup=True)
doc.header["$INSUNITS"] = 6  # metres
for name, color in [("WALLS", 7), ("DOORS", 3), ("FURNITURE", 5), ("DIMENSIONS", 1),
                    ("TEXT", 2), ("HATCH", 8), ("SITE", 4)]:
    doc.layers.add(name, color=color)
msp = doc.modelspace()

# The building: an outer wall as a closed polyline, inner walls as lines.
msp.add_lwpolyline([(0, 0), (20, 0), (20, 12), (0, 12)], close=True, dxfattribs={"layer": "WALLS"})
msp.add_line((8, 0), (8, 12), dxfattribs={"layer": "WALLS"})
msp.add_line((8, 6), (20, 6), dxfattribs={"layer": "WALLS"})
# Door swings.
for x, y, start in [(8, 2, 0), (12, 6, 270), (15, 6, 90)]:
    msp.add_arc((x, y), 0.9, start, start + 90, dxfattribs={"layer": "DOORS"})
# A curved terrace with a bulged polyline, trees as circles.
msp.add_lwpolyline([(20, 2, 0, 0, 0.6), (24, 6, 0, 0, 0.6), (20, 10)],
                   format="xyseb", dxfattribs={"layer": "SITE"})
for i in range(6):
    angle = math.radians(i * 60)
    msp.add_circle((30 + 5 * math.cos(angle), 6 + 5 * math.sin(angle)), 0.8,
                   dxfattribs={"layer": "SITE"})
# Floor hatch of the kitchen.
hatch = msp.add_hatch(color=8, dxfattribs={"layer": "HATCH"})
hatch.set_pattern_fill("ANSI31", scale=0.5)
hatch.paths.add_polyline_path([(8, 6), (20, 6), (20, 12), (8, 12)], is_closed=True)
# A table block with attributes, inserted three times.
table = doc.blocks.new("TABLE")
table.add_lwpolyline([(-0.6, -0.4), (0.6, -0.4), (0.6, 0.4), (-0.6, 0.4)], close=True)
table.add_attdef("SEATS", (0, 0.5), dxfattribs={"height": 0.2})
table.add_attdef("MAKER", (0, -0.7), dxfattribs={"height": 0.15})
for i, (x, y) in enumerate([(3, 3), (3, 9), (14, 9)]):
    ref = msp.add_blockref("TABLE", (x, y), dxfattribs={"layer": "FURNITURE"})
    ref.add_auto_attribs({"SEATS": str(4 + i), "MAKER": "Oak & Sons"})
# Labels.
msp.add_text("LIVING", dxfattribs={"layer": "TEXT", "height": 0.5}).set_placement((2, 6))
msp.add_mtext("KITCHEN\\PTiled floor", dxfattribs={"layer": "TEXT", "char_height": 0.4}) \
    .set_location((10, 11))
# A dimension along the south wall and a leader to the terrace.
dim = msp.add_linear_dim(base=(0, -2), p1=(0, 0), p2=(20, 0),
                         dxfattribs={"layer": "DIMENSIONS"})
dim.render()
msp.add_leader([(26, 10), (23, 8)], dxfattribs={"layer": "DIMENSIONS"})
# The walls form a group.
walls = doc.groups.new("WALLS")
walls.extend([e for e in msp if e.dxf.layer == "WALLS"])
doc.saveas(out)
print("wrote", out)
