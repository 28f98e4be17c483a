# What explode_kinds.scr leaves: the pieces of each kind, on the layers they belong to.
import collections
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
msp = doc.modelspace()
kinds = collections.Counter(e.dxftype() for e in msp)

# Only the reference of the block that may not be exploded is left, besides the arrow
# heads the dimension drew as blocks.
inserts = [(e.dxf.name, e.dxf.layer) for e in msp.query("INSERT")]
assert sorted(inserts) == [("FIXED", "0"), ("_ARCHTICK", "DIMS"), ("_ARCHTICK", "DIMS")], inserts
assert len(msp.query("CIRCLE[layer=='0']")) == 1

# The reference with an attribute: the block's own entities as they are defined (layer 0
# by block stays so), and the attribute definition instead of the attribute.
assert kinds["ATTRIB"] == 0, kinds
attdefs = msp.query("ATTDEF")
assert len(attdefs) == 1 and attdefs[0].dxf.tag == "NO", [a.dxf.tag for a in attdefs]
line = [e for e in msp.query("LINE") if e.dxf.layer == "0" and e.dxf.color == 0]
assert len(line) == 1 and line[0].dxf.end.isclose((10, 0, 0)), line
assert len(msp.query("CIRCLE[layer=='PARTS']")) == 1

# The square of BOX: once stretched to 8 by 4, six times on the grid of the minsert.
squares = msp.query("LWPOLYLINE")
assert len(squares) == 7, len(squares)
corners = sorted(tuple(round(c, 9) for c in s.get_points("xy")[2]) for s in squares)
assert (48.0, 4.0) in corners, corners
assert (84.0, 4.0) in corners and (104.0, 14.0) in corners, corners  # 2 rows, 3 columns

# The multiline text: one text per line on its layer.
texts = sorted(t.dxf.text for t in msp.query("TEXT[layer=='NOTES']"))
assert texts == ["first line", "second line"], texts

# The polyline: a half circle and a line, on its layer.
arcs = msp.query("ARC[layer=='WALLS']")
assert len(arcs) == 1 and math.isclose(arcs[0].dxf.radius, 5), arcs
assert len(msp.query("LINE[layer=='WALLS']")) == 1

# The dimension: its pieces take its layer (its definition points stay on DEFPOINTS).
assert kinds["DIMENSION"] == 0, kinds
dimension_layers = {e.dxf.layer for e in msp if e.dxftype() in ("SOLID", "MTEXT", "POINT")}
dimension_layers = {layer.upper() for layer in dimension_layers}
assert dimension_layers <= {"DIMS", "DEFPOINTS"} and "DIMS" in dimension_layers, dimension_layers
assert len(msp.query("LINE[layer=='DIMS']")) >= 3
