# What block_rescale_cycle.scr leaves: the reference where it stood, turned as it was,
# its factors multiplied by those given; no temporary block.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
references = [e for e in doc.modelspace() if e.dxftype() == "INSERT"]
assert len(references) == 1, references
reference = references[0]
assert reference.dxf.name == "TAG"
assert all(math.isclose(a, b, abs_tol=1e-9) for a, b in zip(reference.dxf.insert, (20, 10, 0)))
assert math.isclose(reference.dxf.rotation, 90, abs_tol=1e-9)
scales = (reference.dxf.xscale, reference.dxf.yscale, reference.dxf.zscale)
assert all(math.isclose(a, b) for a, b in zip(scales, (3, 4.5, 3))), scales
assert [b.name for b in doc.blocks if not b.name.startswith("*")] == ["TAG"]
