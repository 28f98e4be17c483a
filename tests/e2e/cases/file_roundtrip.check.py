# The drawing saved at the end is the first file opened again: the layer it was saved
# with, none made after, in the version chosen.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
names = [layer.dxf.name for layer in doc.layers]
assert "Kept" in names and "Later" not in names, names
assert doc.dxfversion == "AC1024", doc.dxfversion
