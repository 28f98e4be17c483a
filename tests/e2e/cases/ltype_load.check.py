# The linetypes -LINETYPE loaded, as another program reads them.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
names = {linetype.dxf.name for linetype in doc.linetypes}
assert {"DASHED", "DASHED2", "DASHEDX2", "WATER_LINE"} <= names, sorted(names)
assert "HIDDEN" not in names


def pattern(name):
    return [(tag.code, tag.value) for tag in doc.linetypes.get(name).pattern_tags.tags]


assert pattern("DASHED2") == [(72, 65), (73, 2), (40, 0.4), (49, 0.3), (74, 0), (49, -0.1),
                              (74, 0)], pattern("DASHED2")
water = pattern("WATER_LINE")
assert (9, "W") in water and (74, 2) in water, water
style = dict(water)[340]
assert doc.entitydb[style].dxf.name.upper() == "STANDARD"
assert doc.header["$CELTYPE"] == "DASHED2", doc.header["$CELTYPE"]
assert doc.layers.get("0").dxf.linetype == "DASHEDX2"
