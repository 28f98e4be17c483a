"""Writes a drawing of hatches, leaders, images, wipeouts, multilines, solids, traces,
faces and meshes with ezdxf and, beside it, what ezdxf says about them. Usage:
make_drawing.py drawing.dxf reference.txt

Reference lines, one fact each:
  entity <name> <handle>
  extents <name> <minx> <miny> <minz> <maxx> <maxy> <maxz>
  pattern <name> <index> <angle degrees> <base x> <base y> <offset x> <offset y> <dashes...>
  vertex <name> <loop> <x> <y> <bulge>
  ellipse_ends <name> <loop> <edge> <x> <y> <x> <y>   (counterclockwise start, end)

Arcs are placed so that ezdxf's Bezier pieces (quarter turns from the start angle) end
at the extremes: its precise box is then exact, and so comparable within 1e-9.
"""
import math
import sys

import ezdxf
from ezdxf import bbox
from ezdxf.math import Vec3


def main():
    path, out_path = sys.argv[1], sys.argv[2]
    doc = ezdxf.new("R2018")
    msp = doc.modelspace()
    lines = []

    def out(*values):
        lines.append(" ".join(repr(v) if isinstance(v, float) else str(v) for v in values))

    def entity(name, e, with_extents=True):
        out("entity", name, e.dxf.handle)
        if with_extents:
            box = bbox.extents([e], fast=False)
            out("extents", name, *(float(c) for c in box.extmin), *(float(c) for c in box.extmax))

    # A polyline loop with a half circle and a quarter circle, made associative to the
    # polyline it came from.
    quarter = math.tan(math.pi / 8)
    source = msp.add_lwpolyline([(0.0, 0.0, 0.0), (4.0, 0.0, 1.0), (4.0, 2.0, 0.0)],
                                format="xyb")
    hatch = msp.add_hatch(color=3)
    hatch.set_pattern_fill("ANSI31", scale=0.5, angle=15.0)
    hatch.dxf.associative = 1
    path_ = hatch.paths.add_polyline_path(
        [(0.0, 0.0, 0.0), (4.0, 0.0, 1.0), (4.0, 2.0, 0.0), (0.0, 2.0, quarter), (-1.0, 1.0, 0.0)],
        is_closed=True, flags=ezdxf.const.BOUNDARY_PATH_EXTERNAL)
    path_.source_boundary_objects = [source.dxf.handle]
    entity("hatch_polyline", hatch)
    for loop, boundary in enumerate(hatch.paths):
        for x, y, bulge in boundary.vertices:
            out("vertex", "hatch_polyline", loop, float(x), float(y), float(bulge))
    for index, line in enumerate(hatch.pattern.lines):
        out("pattern", "hatch_polyline", index, float(line.angle), float(line.base_point.x),
            float(line.base_point.y), float(line.offset.x), float(line.offset.y),
            *(float(d) for d in line.dash_length_items))

    # An edge loop of every kind but splines, with a clockwise arc in a second loop, and
    # a third loop of a spline closed by a line.
    edges = msp.add_hatch(color=1)
    edges.dxf.elevation = (0, 0, 1.5)
    loop = edges.paths.add_edge_path(flags=ezdxf.const.BOUNDARY_PATH_OUTERMOST)
    loop.add_line((0.0, 0.0), (6.0, 0.0))
    loop.add_arc((6.0, 2.0), 2.0, 270.0, 90.0)
    loop.add_line((6.0, 4.0), (2.0, 4.0))
    loop.add_ellipse((2.0, 2.0), major_axis=(0.0, 2.0), ratio=0.5, start_angle=0.0,
                     end_angle=180.0)
    loop.add_line((2.0, 0.0), (0.0, 0.0))
    inner = edges.paths.add_edge_path()
    inner.add_arc((3.0, 2.0), 1.0, 0.0, 90.0, ccw=False)
    inner.add_line((3.0, 3.0), (4.0, 2.0))
    third = edges.paths.add_edge_path()
    third.add_spline(control_points=[(10.0, 0.0), (12.0, 5.0), (15.0, -3.0), (17.0, 0.0)],
                     knot_values=[0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0], degree=3)
    third.add_line((17.0, 0.0), (10.0, 0.0))
    entity("hatch_edges", edges)

    # A tilted hatch: straight edges and a spline keep ezdxf's box exact in any system.
    tilted = msp.add_hatch(color=5, dxfattribs={"extrusion": (0.0, 0.6, 0.8)})
    tilted.dxf.elevation = (0, 0, 2.0)
    tilted.paths.add_polyline_path([(1.0, 1.0), (5.0, 1.0), (5.0, 4.0), (1.0, 4.0)],
                                   is_closed=True)
    spline_loop = tilted.paths.add_edge_path()
    spline_loop.add_spline(control_points=[(0.0, 0.0), (2.0, 6.0), (4.0, -2.0), (6.0, 1.0)],
                           knot_values=[0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0], degree=3)
    spline_loop.add_line((6.0, 1.0), (0.0, 0.0))
    entity("hatch_tilted", tilted)

    gradient = msp.add_hatch()
    gradient.set_gradient((255, 0, 0), (0, 0, 255), rotation=30.0, centered=0.25,
                          name="CYLINDER")
    gradient.paths.add_polyline_path([(20.0, 0.0), (22.0, 0.0), (22.0, 2.0)], is_closed=True)
    entity("hatch_gradient", gradient)

    # A leader without arrowhead, with overrides written by ezdxf.
    leader = msp.add_leader([(0.0, 10.0, 0.0), (3.0, 13.0, 0.0), (6.0, 13.0, 0.5)],
                            dimstyle="Standard",
                            override={"dimasz": 0.7, "dimgap": 0.3, "dimclrd": 3})
    leader.dxf.has_arrowhead = 0
    leader.dxf.has_hookline = 0
    entity("leader", leader)

    # Corner entities, one of them in a tilted system.
    solid = msp.add_solid([(0.0, 20.0), (4.0, 20.0), (0.0, 23.0), (4.0, 24.0)],
                          dxfattribs={"extrusion": (0.0, -0.6, 0.8), "elevation": 1.0})
    entity("solid", solid)
    trace = msp.add_trace([(10.0, 20.0), (14.0, 20.0), (10.0, 22.0)])
    entity("trace", trace)
    face = msp.add_3dface([(0.0, 30.0, 0.0), (4.0, 30.0, 1.0), (4.0, 34.0, 2.0),
                           (0.0, 34.0, -1.0)], dxfattribs={"invisible": 0b0101})
    entity("face", face)

    # Images: unclipped and rotated, clipped by a rectangle, clipped by a polygon.
    definition = doc.add_image_def(filename="photo.png", size_in_pixel=(640, 360))
    image = msp.add_image(definition, insert=(2.0, 40.0, 0.0), size_in_units=(6.4, 3.6),
                          rotation=30.0)
    image.dxf.brightness = 70
    image.dxf.contrast = 40
    image.dxf.fade = 10
    entity("image", image)
    rect = msp.add_image(definition, insert=(20.0, 40.0, 0.0), size_in_units=(6.4, 3.6))
    rect.set_boundary_path([(50.0, 60.0), (500.0, 300.0)])
    entity("image_rect", rect)
    poly = msp.add_image(definition, insert=(30.0, 40.0, 0.0), size_in_units=(6.4, 3.6),
                         rotation=-20.0)
    poly.set_boundary_path([(0.0, 0.0), (600.0, 10.0), (300.0, 350.0)])
    entity("image_poly", poly)
    wipeout = msp.add_wipeout([(40.0, 40.0), (46.0, 41.0), (44.0, 45.0), (39.0, 43.0)])
    entity("wipeout", wipeout)

    mline = msp.add_mline([(0.0, 50.0), (10.0, 50.0), (10.0, 55.0), (14.0, 58.0)],
                          dxfattribs={"scale_factor": 2.0})
    entity("mline", mline)

    polyface = msp.add_polyface()
    polyface.append_face([(0.0, 60.0, 0.0), (2.0, 60.0, 1.0), (2.0, 62.0, 2.0)])
    polyface.append_face([(2.0, 60.0, 1.0), (5.0, 61.0, -1.0), (2.0, 62.0, 2.0)])
    entity("polyface", polyface)
    mesh = msp.add_polymesh(size=(3, 2))
    for m in range(3):
        for n in range(2):
            mesh.set_mesh_vertex((m, n), (10.0 + m, 60.0 + n * 2, math.sin(m + n)))
    entity("polymesh", mesh)

    # Elliptic edges whose angles differ from their parameters, one clockwise, and a
    # spline edge with fit points followed by the loop's source object.
    ellipses = msp.add_hatch(color=2)
    first = ellipses.paths.add_edge_path()
    first.add_ellipse((50.0, 0.0), major_axis=(4.0, 0.0), ratio=0.5, start_angle=30.0,
                      end_angle=120.0)
    first.add_line((48.0, 3.0), (50.0, 0.0))
    second = ellipses.paths.add_edge_path()
    second.add_ellipse((60.0, 0.0), major_axis=(0.0, 3.0), ratio=0.25, start_angle=200.0,
                       end_angle=300.0, ccw=False)
    second.add_line((60.0, 0.0), (61.0, 1.0))
    entity("hatch_ellipses", ellipses, with_extents=False)
    for loop, boundary in enumerate(ellipses.paths):
        for index, edge in enumerate(boundary.edges):
            if edge.type == ezdxf.entities.boundary_paths.EdgeType.ELLIPSE:
                tool = edge.construction_tool()
                out("ellipse_ends", "hatch_ellipses", loop, index,
                    *(float(c) for c in tool.start_point.vec2),
                    *(float(c) for c in tool.end_point.vec2))

    fitted = msp.add_hatch(color=4)
    fitted.dxf.associative = 1
    source_line = msp.add_line((70.0, 0.0), (77.0, 0.0))
    path_ = fitted.paths.add_edge_path()
    path_.add_spline(fit_points=[(70.0, 0.0), (72.0, 4.0), (75.0, -2.0), (77.0, 0.0)],
                     control_points=[(70.0, 0.0), (71.0, 6.0), (76.0, -5.0), (77.0, 0.0)],
                     knot_values=[0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0], degree=3)
    path_.add_line((77.0, 0.0), (70.0, 0.0))
    path_.source_boundary_objects = [source_line.dxf.handle]
    entity("hatch_fitted", fitted, with_extents=False)

    # Block references: a block nested in a block, rotated, scaled and mirrored, of
    # lines and circles, whose boxes ezdxf gives exactly.
    inner = doc.blocks.new("INNER", base_point=(1.0, 1.0))
    inner.add_line((0.0, 0.0), (4.0, 1.0))
    inner.add_circle((2.0, 3.0), 1.5)
    outer = doc.blocks.new("OUTER")
    outer.add_blockref("INNER", (3.0, 0.0), dxfattribs={"rotation": 30.0, "xscale": 2.0,
                                                        "yscale": 2.0, "zscale": 2.0})
    outer.add_line((-2.0, -1.0), (0.0, 5.0, 2.0))
    reference = msp.add_blockref("OUTER", (100.0, 0.0, 1.0),
                                 dxfattribs={"rotation": 45.0, "xscale": 1.5,
                                             "yscale": -1.5, "zscale": 1.5})
    entity("insert_nested", reference)

    # A dimension drawn by a block of lines and a point, moved by its clone point.
    picture = doc.blocks.new_anonymous_block(type_char="D")
    picture.add_line((0.0, 0.0), (0.0, 2.0))
    picture.add_line((5.0, 0.0), (5.0, 2.5))
    picture.add_line((0.0, 2.0), (5.0, 2.0))
    picture.add_point((2.5, 3.0))
    dimension = msp.new_entity("DIMENSION", dxfattribs={
        "geometry": picture.name, "dimtype": 32, "defpoint": (5.0, 2.0, 0.0),
        "text_midpoint": (2.5, 2.5, 0.0), "insert": (120.0, 10.0, 0.0),
        "defpoint2": (0.0, 0.0, 0.0), "defpoint3": (5.0, 0.0, 0.0), "dimstyle": "Standard"})
    entity("dimension", dimension)

    doc.saveas(path)
    with open(out_path, "w") as f:
        f.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
