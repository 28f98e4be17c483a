# What insert_attributes.scr leaves: two references with the attributes of the
# definitions that aren't constant, placed as the reference places its block.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
references = [e for e in doc.modelspace() if e.dxftype() == "INSERT"]
assert len(references) == 2
values = [[(a.dxf.tag, a.dxf.text) for a in r.attribs] for r in references]
assert values == [[("NUMBER", "B 7"), ("FIRE", "EI30")], [("NUMBER", "A-1"), ("FIRE", "EI30")]], values
# Turned a quarter and doubled: the definition at 0,1 lands at 10 - 2, 0.
number = references[0].attribs[0]
assert math.isclose(number.dxf.insert[0], 8, abs_tol=1e-9), number.dxf.insert
assert math.isclose(number.dxf.insert[1], 0, abs_tol=1e-9), number.dxf.insert
assert math.isclose(number.dxf.height, 1.0) and math.isclose(number.dxf.rotation, 90)
