#!/usr/bin/python3
"""Writes examples/compare/site-rev1.dxf and site-rev2.dxf, two revisions of a small
house on its plot, for the drawing comparison (FCMP, -FCMP). Revision 2 is revision 1
read back and edited, so that what stayed keeps its handle. Run it with the system
Python (ezdxf) when the example changes; it also writes SHA256SUMS, which the
end-to-end cases use to check that a comparison leaves both drawings untouched.

What revision 2 changes:
  moved      the dining table
  recoloured the tree by the east boundary
  deleted    the wall between bedroom and kitchen, the label KITCHEN
  added      a young tree, a window in the west wall
  retexted   the label BEDROOM, the general note, the bedroom's area tag, the sheet title
"""
import hashlib
import pathlib

import ezdxf

HERE = pathlib.Path(__file__).resolve().parent
REVISION_1 = HERE / "site-rev1.dxf"
REVISION_2 = HERE / "site-rev2.dxf"
# Fixed dates and ids keep the files the same from one run of this script to the next.
ezdxf.options.write_fixed_meta_data_for_testing = True


def draw_revision_1():
    doc = ezdxf.new("R2018", setup=False)
    for name, color in [("SITE", 8), ("WALLS", 7), ("DOORS", 4), ("WINDOWS", 5),
                        ("FURNITURE", 30), ("TREES", 3), ("TEXT", 2), ("DIMS", 1),
                        ("HATCH", 9)]:
        doc.layers.add(name, color=color)
    msp = doc.modelspace()

    # The plot and the driveway.
    msp.add_lwpolyline([(0, 0), (40, 0), (40, 30), (0, 30)], close=True,
                       dxfattribs={"layer": "SITE"})
    msp.add_line((25, 0), (25, 5), dxfattribs={"layer": "SITE"})
    msp.add_line((30, 0), (30, 5), dxfattribs={"layer": "SITE"})

    # The house: outer walls, the wall between living room and bedrooms, the wall
    # between bedroom and kitchen.
    msp.add_lwpolyline([(5, 5), (25, 5), (25, 20), (5, 20)], close=True,
                       dxfattribs={"layer": "WALLS", "const_width": 0.3})
    msp.add_line((15, 5), (15, 20), dxfattribs={"layer": "WALLS"})
    msp.add_line((5, 12), (15, 12), dxfattribs={"layer": "WALLS"})

    # Doors: the front door and the bedroom door, each a leaf and its swing.
    msp.add_line((22, 5), (22, 6.5), dxfattribs={"layer": "DOORS"})
    msp.add_arc((22, 5), 1.5, 0, 90, dxfattribs={"layer": "DOORS"})
    msp.add_line((15, 14), (13.5, 14), dxfattribs={"layer": "DOORS"})
    msp.add_arc((15, 14), 1.5, 90, 180, dxfattribs={"layer": "DOORS"})

    # Windows in the north and east walls.
    msp.add_line((18, 20), (22, 20), dxfattribs={"layer": "WINDOWS"})
    msp.add_line((25, 9), (25, 13), dxfattribs={"layer": "WINDOWS"})

    # The dining table and a bed.
    msp.add_circle((20, 12), 1.2, dxfattribs={"layer": "FURNITURE"})
    msp.add_lwpolyline([(6, 15), (9, 15), (9, 19), (6, 19)], close=True,
                       dxfattribs={"layer": "FURNITURE"})

    # Trees.
    msp.add_circle((32, 25), 2, dxfattribs={"layer": "TREES"})
    msp.add_circle((35, 8), 1.5, dxfattribs={"layer": "TREES"})
    msp.add_circle((3, 26), 1.8, dxfattribs={"layer": "TREES"})

    # Room labels and the general note.
    msp.add_text("LIVING", dxfattribs={"layer": "TEXT", "height": 0.8, "insert": (17, 16)})
    msp.add_text("BEDROOM", dxfattribs={"layer": "TEXT", "height": 0.8, "insert": (9.5, 16)})
    msp.add_text("KITCHEN", dxfattribs={"layer": "TEXT", "height": 0.8, "insert": (7, 8)})
    msp.add_mtext("Site plan\\PWalls 300 mm, doors 900 mm",
                  dxfattribs={"layer": "TEXT", "char_height": 0.7, "width": 12,
                              "insert": (27, 29), "attachment_point": 1})

    # Room tags: a block with the room's name and area as attributes.
    tag = doc.blocks.new("ROOMTAG", base_point=(0, 0))
    tag.add_circle((0, 0), 1.2)
    tag.add_attdef("NAME", (-1, 0.2), dxfattribs={"height": 0.35, "prompt": "Room name"})
    tag.add_attdef("AREA", (-1, -0.5), dxfattribs={"height": 0.3, "prompt": "Area (m2)"})
    for point, name, area in [((20, 17), "LIVING", "45"), ((10, 17.5), "BEDROOM", "21")]:
        reference = msp.add_blockref("ROOMTAG", point, dxfattribs={"layer": "TEXT"})
        reference.add_auto_attribs({"NAME": name, "AREA": area})

    # The length of the south wall, and the kitchen's floor tiles.
    dimension = msp.add_linear_dim(base=(15, 2), p1=(5, 5), p2=(25, 5),
                                   dxfattribs={"layer": "DIMS"})
    dimension.render()
    hatch = msp.add_hatch(color=256, dxfattribs={"layer": "HATCH"})
    hatch.set_pattern_fill("ANSI31", scale=0.5)
    hatch.paths.add_polyline_path([(5, 5), (15, 5), (15, 12), (5, 12)], is_closed=True)

    # The sheet: a border, the title and a viewport onto the plot.
    doc.layouts.rename("Layout1", "Sheet A3")
    sheet = doc.layouts.get("Sheet A3")
    sheet.add_lwpolyline([(0, 0), (420, 0), (420, 297), (0, 297)], close=True)
    sheet.add_text("SITE PLAN - REVISION 1", dxfattribs={"height": 7, "insert": (20, 20)})
    sheet.add_viewport(center=(210, 160), size=(360, 240), view_center_point=(20, 15),
                       view_height=32)
    doc.saveas(REVISION_1)


def find(msp, kind, test):
    return next(entity for entity in msp.query(kind) if test(entity))


def draw_revision_2():
    doc = ezdxf.readfile(REVISION_1)
    msp = doc.modelspace()

    table = find(msp, "CIRCLE", lambda c: c.dxf.center.isclose((20, 12)))
    table.dxf.center = (21, 13)
    find(msp, "CIRCLE", lambda c: c.dxf.center.isclose((35, 8))).dxf.color = 3

    msp.delete_entity(find(msp, "LINE", lambda l: l.dxf.start.isclose((5, 12))))
    msp.delete_entity(find(msp, "TEXT", lambda t: t.dxf.text == "KITCHEN"))

    msp.add_circle((30, 15), 1.0, dxfattribs={"layer": "TREES"})
    msp.add_line((5, 14), (5, 17), dxfattribs={"layer": "WINDOWS"})

    find(msp, "TEXT", lambda t: t.dxf.text == "BEDROOM").dxf.text = "MAIN BEDROOM"
    note = find(msp, "MTEXT", lambda m: True)
    note.text = "Site plan\\PWalls 300 mm, doors 1000 mm"
    bedroom = find(msp, "INSERT", lambda i: i.get_attrib_text("NAME") == "BEDROOM")
    bedroom.get_attrib("AREA").dxf.text = "24"

    sheet = doc.layouts.get("Sheet A3")
    find(sheet, "TEXT", lambda t: True).dxf.text = "SITE PLAN - REVISION 2"
    doc.saveas(REVISION_2)


def write_sums():
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.name}\n"
             for path in (REVISION_1, REVISION_2)]
    (HERE / "SHA256SUMS").write_text("".join(lines))


draw_revision_1()
draw_revision_2()
write_sums()
