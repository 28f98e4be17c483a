# Everything before the last point was taken back.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
entities = list(doc.modelspace())
assert [e.dxftype() for e in entities] == ["POINT"], entities
assert tuple(entities[0].dxf.location)[:2] == (9, 9), entities[0].dxf.location
