# The erased line came back after the save in between.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
lines = list(doc.modelspace().query("LINE"))
assert len(lines) == 1, lines
assert tuple(lines[0].dxf.end)[:2] == (10, 0), lines[0].dxf.end
