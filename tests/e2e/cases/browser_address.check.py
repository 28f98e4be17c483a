# The stand-in opener (desktop_programs/record_address.sh) wrote down the addresses it
# was given, in TMPDIR beside the saved drawing; the missing file never reached it.
import pathlib
import sys
import time

expected = ["https://korva.example.org/", "https://example.com/start", "https://example.com/typed"]
opened = pathlib.Path(sys.argv[1]).parent / "tmp" / "opened"
# The openers run detached from korva, each on its own: give them time to finish, and
# take their lines in any order.
for _ in range(300):
    if opened.exists() and len(opened.read_text().split()) >= len(expected):
        break
    time.sleep(0.1)
assert opened.exists(), "the opener was never started"
time.sleep(0.2)
assert sorted(opened.read_text().split()) == sorted(expected), opened.read_text()
