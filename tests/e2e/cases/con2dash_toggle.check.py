# After the first run: continuous by layer or by itself -> DASHED2, anything else ->
# CONTINUOUS. The second run took the line of layer PLAIN (y = 0) back to CONTINUOUS.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
assert "DASHED2" in doc.linetypes
drawing = doc.modelspace()
by_height = {round(line.dxf.start.y): line.dxf.linetype.upper() for line in drawing.query("LINE")}
assert by_height == {0: "CONTINUOUS", 2: "CONTINUOUS", 4: "DASHED2", 6: "CONTINUOUS",
                     8: "CONTINUOUS"}, by_height
assert drawing.query("CIRCLE")[0].dxf.linetype == "DASHED2"
