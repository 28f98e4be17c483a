# Lines from the bottom: 2.5 became 3; the two lines given LTSCALE's 4 by Enter; the
# line without a scale of its own still has none after the plain scale 1.
import sys

import ezdxf

lines = sorted(ezdxf.readfile(sys.argv[1]).modelspace().query("LINE"),
               key=lambda line: line.dxf.start.y)
scales = [line.dxf.get("ltscale") if line.dxf.hasattr("ltscale") else None for line in lines]
assert scales == [3.0, 4.0, None, 4.0], scales
