#!/usr/bin/python3
"""Writes the drawings of the small-command cases (cases/<command>_*.dxf).

Run it with the system Python (ezdxf) from any folder; the drawings are checked in, so
this is only needed when a case's drawing changes. The geometry is chosen so that the
expected sums are easy to follow by hand; each case's check.py recomputes them.
"""
import math
import pathlib

import ezdxf

CASES = pathlib.Path(__file__).resolve().parent / "cases"


def new_drawing():
    # No standard linetypes: CON2DASH must load DASHED2 from the support path itself.
    doc = ezdxf.new("R2018", setup=False)
    # A view just around the geometry, so that a picked point finds the entity under
    # it and not a neighbour inside a pick box sized for a much larger view.
    doc.set_modelspace_vport(height=80, center=(40, 15))
    return doc


def arcs():
    doc = new_drawing()
    msp = doc.modelspace()
    msp.add_arc((0, 0), 10, 0, 90)  # 5 pi
    msp.add_arc((30, 0), 4, 0, 270)  # 6 pi
    msp.add_arc((60, 0), 2, 300, 60)  # across 0 degrees: 4 pi / 3
    msp.add_line((0, -10), (70, -10))
    msp.add_circle((80, 0), 3)
    doc.saveas(CASES / "arcsum_lengths.dxf")


def lines():
    doc = new_drawing()
    msp = doc.modelspace()
    msp.add_line((0, 0), (3, 4))  # 5
    msp.add_lwpolyline([(0, 10), (10, 10), (10, 20)])  # 20
    # A 4 x 4 square whose left side bulges out into a half circle: 12 + 2 pi.
    msp.add_lwpolyline([(20, 0, 0, 0, 0), (24, 0, 0, 0, 0), (24, 4, 0, 0, 0), (20, 4, 0, 0, 1)],
                       format="xyseb", close=True)
    msp.add_polyline2d([(0, 30), (5, 30), (5, 35)])  # 10
    msp.add_polyline3d([(0, 40, 0), (3, 44, 0), (3, 44, 12)])  # 5 + 12
    msp.add_arc((50, 50), 5, 0, 180)
    doc.saveas(CASES / "linesum_lengths.dxf")


def areas():
    doc = new_drawing()
    msp = doc.modelspace()
    msp.add_lwpolyline([(0, 0), (10, 0), (10, 5), (0, 5)], close=True)  # 50
    msp.add_circle((20, 2), 2)  # 4 pi
    msp.add_ellipse((30, 2), major_axis=(3, 0, 0), ratio=0.5)  # 4.5 pi
    msp.add_lwpolyline([(40, 0), (44, 0), (44, 3)])  # open, closed by its chord: 6
    msp.add_lwpolyline([(0, 20), (5, 20), (10, 20)], close=True)  # no area
    msp.add_line((0, 30), (10, 30))  # not taken by the filter
    doc.saveas(CASES / "areasum_shapes.dxf")


def hatches():
    doc = new_drawing()
    doc.layers.add("LOCKED").lock()
    msp = doc.modelspace()
    for index, layer in enumerate(["0", "0", "LOCKED"]):
        x = 10 * index
        hatch = msp.add_hatch(color=index + 1, dxfattribs={"layer": layer})
        hatch.paths.add_polyline_path([(x, 0), (x + 5, 0), (x + 5, 5), (x, 5)], is_closed=True)
        msp.add_lwpolyline([(x, 0), (x + 5, 0), (x + 5, 5), (x, 5)], close=True,
                           dxfattribs={"layer": layer})
    doc.saveas(CASES / "delhatch_locked.dxf")


def elevations(name):
    doc = new_drawing()
    msp = doc.modelspace()
    msp.add_line((0, 0, 5), (10, 0, 7))
    msp.add_circle((20, 0, 3), 2)
    msp.add_lwpolyline([(30, 0), (35, 0), (35, 5)], dxfattribs={"elevation": 4})
    msp.add_polyline2d([(40, 0), (45, 0), (45, 5)], dxfattribs={"elevation": (0, 0, 6)})
    msp.add_point((50, 0, 9))
    msp.add_text("raised", dxfattribs={"insert": (60, 0, 2), "height": 1})
    builder = msp.add_multileader_mtext("Standard")
    builder.set_content("leader", char_height=1)
    builder.add_leader_line(ezdxf.render.mleader.ConnectionSide.left, [(70, -5, 0)])
    # Raised by its user system, so that a flattening would show.
    builder.build(insert=ezdxf.math.Vec2(75, 0), ucs=ezdxf.math.UCS(origin=(0, 0, 8)))
    doc.saveas(CASES / name)


def linetypes():
    doc = new_drawing()
    doc.linetypes.add("DASHED", [0.75, 0.5, -0.25], description="Dashed __ __ __")
    doc.layers.add("PLAIN", linetype="Continuous")
    doc.layers.add("DASHY", linetype="DASHED")
    msp = doc.modelspace()
    msp.add_line((0, 0), (10, 0), dxfattribs={"layer": "PLAIN"})  # by layer, continuous
    msp.add_line((0, 2), (10, 2), dxfattribs={"layer": "DASHY"})  # by layer, dashed
    msp.add_line((0, 4), (10, 4), dxfattribs={"layer": "PLAIN", "linetype": "Continuous"})
    msp.add_line((0, 6), (10, 6), dxfattribs={"layer": "PLAIN", "linetype": "DASHED"})
    msp.add_circle((5, 12), 2)  # by layer on 0
    msp.add_line((0, 8), (10, 8), dxfattribs={"layer": "DASHY", "linetype": "ByLayer"})
    doc.saveas(CASES / "con2dash_toggle.dxf")


def scales():
    doc = new_drawing()
    msp = doc.modelspace()
    msp.add_line((0, 0), (10, 0), dxfattribs={"ltscale": 2.5})
    msp.add_line((0, 2), (10, 2))
    msp.add_line((0, 4), (10, 4))
    msp.add_line((0, 6), (10, 6), dxfattribs={"ltscale": 0.5})
    doc.saveas(CASES / "chgltsca_defaults.dxf")


def leaders():
    doc = new_drawing()
    msp = doc.modelspace()
    msp.add_leader([(0, 0), (10, 10), (15, 10)])
    msp.add_mtext("Note", dxfattribs={"insert": (16, 10), "char_height": 1, "width": 5,
                                      "attachment_point": 1})
    second_text = msp.add_mtext("Taken", dxfattribs={"insert": (16, -10), "char_height": 1,
                                                      "width": 5, "attachment_point": 1})
    second = msp.add_leader([(0, -20), (10, -10), (15, -10)])
    second.dxf.annotation_handle = second_text.dxf.handle
    second.dxf.annotation_type = 0
    msp.add_line((0, 30), (10, 30))
    doc.saveas(CASES / "qlattach_leaders.dxf")


def members():
    doc = new_drawing()
    msp = doc.modelspace()
    for y in (0, 2, 4):
        msp.add_line((0, y), (10, y))
    msp.add_circle((30, 0), 2)
    doc.saveas(CASES / "groupunname_members.dxf")


def groups():
    doc = new_drawing()
    msp = doc.modelspace()
    lines = [msp.add_line((0, 2 * i), (10, 2 * i)) for i in range(5)]
    doc.groups.new("SMALL").set_data(lines[0:2])
    doc.groups.new("BIG").set_data(lines[0:3])
    doc.groups.new("OTHER").set_data(lines[3:4])
    doc.saveas(CASES / "ungroup_larger.dxf")


if __name__ == "__main__":
    arcs()
    lines()
    areas()
    hatches()
    elevations("zvalto0_selected.dxf")
    elevations("zvalto0_whole.dxf")
    linetypes()
    scales()
    leaders()
    members()
    groups()
    print("wrote the drawings in", CASES)
