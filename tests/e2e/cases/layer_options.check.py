# The layers -LAYER left in the saved drawing.
import sys

import ezdxf

doc = ezdxf.readfile(sys.argv[1])
layers = {layer.dxf.name: layer for layer in doc.layers}
assert set(layers) >= {"0", "Walls", "Doors", "Notes", "Hatch"}, sorted(layers)
assert doc.header["$CLAYER"] == "Walls", doc.header["$CLAYER"]
assert layers["Walls"].dxf.color == 1 and layers["Walls"].is_on()
assert layers["Doors"].dxf.color == -1 and layers["Doors"].is_frozen()
assert layers["Hatch"].dxf.color == -42 and not layers["Hatch"].is_frozen()
assert layers["Notes"].is_locked() and layers["Notes"].is_off()
assert layers["0"].is_off() and not layers["0"].is_locked()
