# One anonymous group holds the three lines; the circle is in no group.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
groups = list(doc.groups)
assert len(groups) == 1, [name for name, _ in groups]
name, group = groups[0]
assert name.startswith("*A") and group.dxf.unnamed == 1, (name, group.dxf.unnamed)
assert group.dxf.description == ""
members = sorted(entity.dxftype() for entity in group)
assert members == ["LINE", "LINE", "LINE"], members
