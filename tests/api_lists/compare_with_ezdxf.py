"""Makes the sample drawing with ezdxf and through korva's qxdbEntMake, reads both
back with ezdxf and compares kinds, layers and geometry entity by entity.

usage: compare_with_ezdxf.py MAKER WORKDIR
"""
import math
import os
import subprocess
import sys

import ezdxf


def ezdxf_drawing(path: str) -> None:
    doc = ezdxf.new("R2018")
    doc.layers.add("Walls", color=1)
    # korva makes the layers that entities name; ezdxf wants them in the table.
    doc.layers.add("Arcs")
    doc.layers.add("Notes")
    msp = doc.modelspace()
    msp.add_line((0, 0, 0), (10, 0, 0), dxfattribs={"layer": "Walls"})
    msp.add_circle((3, 4, 0), 2.5, dxfattribs={"layer": "Walls"})
    msp.add_arc((3, 4, 0), 1.5, 0, 90, dxfattribs={"layer": "Arcs"})
    msp.add_text("Straße", dxfattribs={"layer": "Notes", "insert": (10, 5, 0), "height": 2.5,
                                       "halign": 1, "align_point": (10, 5, 0)})
    msp.add_ellipse((3, 4, 0), (4, 0, 0), 0.5, 0, math.tau)
    msp.add_point((0, 5, 2))
    msp.add_lwpolyline([(0, 0), (10, 0), (10, 5)], close=True, dxfattribs={"layer": "Walls"})
    msp.add_polyline3d([(0, 0, 0), (0, 5, 2)])
    door = doc.blocks.new("Door", base_point=(0, 0, 0))
    door.add_line((0, 0, 0), (10, 5, 0))
    door.add_attdef("TAG", (0, 0, 0), dxfattribs={"height": 1.0, "prompt": "Tag?"})
    insert = msp.add_blockref("Door", (10, 0, 0), dxfattribs={"xscale": 2, "yscale": 2,
                                                                "zscale": 2, "rotation": 30})
    insert.add_attrib("TAG", "D-01", (10, 0, 0), dxfattribs={"height": 1.0})
    doc.saveas(path)


def rounded(values):
    return tuple(round(float(v), 6) for v in values)


def describe(entity):
    kind = entity.dxftype()
    dxf = entity.dxf
    layer = dxf.layer
    if kind == "LINE":
        geometry = rounded(dxf.start) + rounded(dxf.end)
    elif kind in ("CIRCLE", "ARC"):
        geometry = rounded(dxf.center) + (round(dxf.radius, 6),)
        if kind == "ARC":
            geometry += (round(dxf.start_angle, 6), round(dxf.end_angle, 6))
    elif kind == "TEXT":
        geometry = rounded(dxf.insert) + (round(dxf.height, 6), dxf.text, dxf.halign)
    elif kind == "ELLIPSE":
        geometry = rounded(dxf.center) + rounded(dxf.major_axis) + (round(dxf.ratio, 6),)
    elif kind == "POINT":
        geometry = rounded(dxf.location)
    elif kind == "LWPOLYLINE":
        geometry = tuple(rounded(p[:2]) for p in entity.get_points()) + (entity.closed,)
    elif kind == "POLYLINE":
        geometry = (entity.get_mode(),) + tuple(rounded(v.dxf.location) for v in entity.vertices)
    elif kind == "INSERT":
        geometry = (dxf.name,) + rounded(dxf.insert) + rounded((dxf.xscale, dxf.yscale, dxf.zscale, dxf.rotation))
        geometry += tuple((a.dxf.tag, a.dxf.text) for a in entity.attribs)
    else:
        geometry = ()
    return kind, layer, geometry


def contents(path: str):
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    errors = [error.message for error in auditor.errors]
    model = sorted(map(describe, doc.modelspace()), key=repr)
    block = sorted(map(describe, doc.blocks.get("Door")), key=repr) if "Door" in doc.blocks else None
    layers = sorted(layer.dxf.name for layer in doc.layers)
    return errors, model, block, layers


def main() -> int:
    maker, workdir = sys.argv[1], sys.argv[2]
    os.makedirs(workdir, exist_ok=True)
    korva_path = os.path.join(workdir, "korva_entmake.dxf")
    ezdxf_path = os.path.join(workdir, "ezdxf_made.dxf")
    subprocess.run([maker, korva_path], check=True)
    ezdxf_drawing(ezdxf_path)
    korva_errors, *korva_contents = contents(korva_path)
    _, *ezdxf_contents = contents(ezdxf_path)
    failed = False
    if korva_errors:
        print("audit of korva's file:", *korva_errors, sep="\n  ")
        failed = True
    for what, mine, theirs in zip(("model space", "block Door", "layers"), korva_contents, ezdxf_contents):
        if mine != theirs:
            print(f"{what} differs:\n  korva: {mine}\n  ezdxf: {theirs}")
            failed = True
    if not failed:
        print(f"same: {len(korva_contents[0])} entities, block and layers")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
