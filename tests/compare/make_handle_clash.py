"""Writes two revisions of a drawing in which one handle names a LINE in the first and a
CIRCLE in the second: python3 make_handle_clash.py OLD.dxf NEW.dxf; prints the handle."""
import sys

import ezdxf

old_path, new_path = sys.argv[1], sys.argv[2]
first = ezdxf.new("R2018")
handle = first.modelspace().add_line((0, 0), (5, 0)).dxf.handle
first.saveas(old_path)

second = ezdxf.readfile(old_path)
space = second.modelspace()
space.delete_entity(second.entitydb[handle])
# The circle takes over the erased line's handle.
space.add_circle((0, 0), 5).dxf.handle = handle
second.saveas(new_path)
print(handle)
