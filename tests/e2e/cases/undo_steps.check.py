# Only the line drawn after everything was undone is left; the undone layer is gone.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
entities = [(e.dxftype(), e.dxf.handle) for e in doc.modelspace()]
assert [kind for kind, _ in entities] == ["LINE"], entities
line = doc.modelspace()[0]
assert tuple(line.dxf.end)[:2] == (5, 5), line.dxf.end
assert "Walls" not in doc.layers, [layer.dxf.name for layer in doc.layers]
