# ERASE took the emptied previous set: both lines are still there.
import sys

import ezdxf

assert len(ezdxf.readfile(sys.argv[1]).modelspace().query("LINE")) == 2
