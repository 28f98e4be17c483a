# What insert_file_block.scr leaves: the two files' model spaces as blocks with the
# files' base points and layers, and the three references made after the first.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
symbol = doc.blocks.get("BRKLINE")
assert symbol is not None
assert tuple(symbol.block.dxf.base_point)[:2] == (5, 0), symbol.block.dxf.base_point
kinds = sorted((e.dxftype(), e.dxf.layer) for e in symbol)
assert kinds == [("LWPOLYLINE", "SYMBOL"), ("POINT", "DEFPOINTS"), ("POINT", "DEFPOINTS")], kinds
assert "SYMBOL" in doc.layers and "DEFPOINTS" in doc.layers
arrow = doc.blocks.get("ARROW")
assert arrow is not None and len(list(arrow)) == 2

references = [
    (e.dxf.name, tuple(round(v, 9) for v in e.dxf.insert)[:2], e.dxf.xscale, round(e.dxf.rotation, 9))
    for e in doc.modelspace()
    if e.dxftype() == "INSERT"
]
assert references == [
    ("BRKLINE", (20, 0), 2, 0),
    ("BRKLINE", (40, 0), 1, 30),
    ("ARROW", (0, 20), 1, 0),
], references
