# The free leader now points at "Note"; the leader that carried "Taken" still does.
import sys

import ezdxf

drawing = ezdxf.readfile(sys.argv[1]).modelspace()
texts = {text.text: text.dxf.handle for text in drawing.query("MTEXT")}
leaders = sorted(drawing.query("LEADER"), key=lambda leader: -leader.vertices[0][1])
assert leaders[0].dxf.annotation_handle == texts["Note"], leaders[0].dxf.annotation_handle
assert leaders[0].dxf.annotation_type == 0
assert leaders[1].dxf.annotation_handle == texts["Taken"], leaders[1].dxf.annotation_handle
