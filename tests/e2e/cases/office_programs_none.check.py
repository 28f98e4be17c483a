# With no program known, EXCEL and WORD started nothing.
import pathlib
import sys
import time

time.sleep(0.5)
assert not (pathlib.Path(sys.argv[1]).parent / "tmp" / "started").exists()
