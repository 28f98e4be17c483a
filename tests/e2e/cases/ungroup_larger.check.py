# BIG is dissolved; SMALL and OTHER stay with their members, and every line is still
# in the drawing.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
names = sorted(name for name, _ in doc.groups)
assert names == ["OTHER", "SMALL"], names
assert len(doc.groups.get("SMALL")) == 2 and len(doc.groups.get("OTHER")) == 1
assert len(doc.modelspace().query("LINE")) == 5
