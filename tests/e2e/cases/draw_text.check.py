# The texts of draw_text.scr: strings, heights, rotations, justification and points.
import math
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
texts = [e for e in doc.modelspace() if e.dxftype() == "TEXT"]
assert [t.dxf.text for t in texts] == [
    "First line", "Second line with  two blanks", "Right", "Bottom centred", "Fit between",
    "Back to left"], [t.dxf.text for t in texts]


def near(point, expected):
    return all(math.isclose(a, b, abs_tol=1e-9) for a, b in zip(point, expected))


first, second, right, centred, fitted, left = texts
assert near(first.dxf.insert, (10, 10)) and first.dxf.height == 5
# The next line stands below the first, five thirds of the height lower.
assert near(second.dxf.insert, (10, 10 - 5 * 5 / 3)), second.dxf.insert
assert (right.dxf.halign, right.dxf.valign) == (2, 0) and near(right.dxf.align_point, (100, 0))
assert math.isclose(right.dxf.rotation, 90) and right.dxf.height == 2
assert (centred.dxf.halign, centred.dxf.valign) == (1, 1) and near(centred.dxf.align_point, (50, 50))
assert centred.dxf.height == 2  # Enter kept the height of the text before
assert fitted.dxf.halign == 5 and near(fitted.dxf.insert, (0, -20))
assert near(fitted.dxf.align_point, (40, -20)) and fitted.dxf.height == 4
assert left.dxf.halign == 0 and near(left.dxf.insert, (0, -40))
assert math.isclose(left.dxf.rotation, 30)
assert all(t.dxf.style == "Standard" for t in texts)
