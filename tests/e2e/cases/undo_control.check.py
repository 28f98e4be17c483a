# The first line and the one drawn while undo was off stay; the others were undone.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
ends = sorted(tuple(e.dxf.end)[:2] for e in doc.modelspace().query("LINE"))
assert ends == [(1, 0), (3, 0)], ends
