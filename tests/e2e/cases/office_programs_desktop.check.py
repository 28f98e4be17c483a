# EXCEL started the desktop's spreadsheet program and WORD its word processor: the
# stand-ins (desktop_programs/record_start.sh) wrote down their first argument.
import pathlib
import sys
import time

started = pathlib.Path(sys.argv[1]).parent / "tmp" / "started"
# The programs run detached from korva: give them a moment to finish.
for _ in range(50):
    if started.exists() and len(started.read_text().split()) >= 2:
        break
    time.sleep(0.1)
assert started.exists(), "no program was started"
assert sorted(started.read_text().split()) == ["spreadsheet", "word-processor"], \
    started.read_text()
