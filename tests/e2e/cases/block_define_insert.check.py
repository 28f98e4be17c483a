# What block_define_insert.scr leaves: the block holds the three objects drawn first
# with its base point at 10,0; the drawing holds the line left out and three references.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
block = doc.blocks.get("FRAME")
assert block is not None
assert tuple(block.block.dxf.base_point)[:2] == (10, 0), block.block.dxf.base_point
assert sorted(e.dxftype() for e in block) == ["CIRCLE", "LINE", "LINE"]

entities = list(doc.modelspace())
lines = [e for e in entities if e.dxftype() == "LINE"]
assert tuple(lines[0].dxf.start)[:2] == (50, 50)
assert not [e for e in entities if e.dxftype() == "CIRCLE"]

references = [
    (
        tuple(round(v, 9) for v in e.dxf.insert)[:2],
        e.dxf.xscale,
        e.dxf.yscale,
        e.dxf.zscale,
        round(e.dxf.rotation, 9),
    )
    for e in entities
    if e.dxftype() == "INSERT"
]
assert references == [
    ((100, 0), 2, 2, 2, 90),
    ((0, 100), 0.5, 0.5, 0.5, 45),
    ((200, 0), 2, 3, 2, 0),
], references
assert all(e.dxf.name == "FRAME" for e in entities if e.dxftype() == "INSERT")

assert doc.blocks.get("LOCKED") is None
assert [e.dxf.layer for e in entities if e.dxftype() == "LINE"] == ["0", "LK"]
