# What purge_unused.scr leaves: the used block and what it and the drawing use; the
# unused records and those only the purged blocks used are gone.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
blocks = sorted(b.name for b in doc.blocks if not b.name.startswith("*"))
assert blocks == ["USED"], blocks
layers = sorted(layer.dxf.name for layer in doc.layers)
assert layers == ["0", "Defpoints", "WALLS"], layers
linetypes = sorted(lt.dxf.name.upper() for lt in doc.linetypes)
assert "USEDDASH" in linetypes and "DASHED2" not in linetypes, linetypes
styles = sorted(s.dxf.name for s in doc.styles)
assert "NOTES" in styles and "TITLES" not in styles, styles
assert "UNUSEDDIM" not in [d.dxf.name for d in doc.dimstyles]
assert [e.dxftype() for e in doc.modelspace()] == ["INSERT", "TEXT"]
