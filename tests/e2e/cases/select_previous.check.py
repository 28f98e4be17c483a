# The two lines in the window were erased; the circle, selected and then removed again,
# was not.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
handles = sorted(entity.dxf.handle for entity in doc.modelspace())
assert handles == ["34", "35", "36", "37"], handles
