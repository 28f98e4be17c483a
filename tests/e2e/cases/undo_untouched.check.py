# Every section but the header (which carries the save time) is as it was read.
import pathlib
import sys


def sections(path):
    text = b"\n" + pathlib.Path(path).read_bytes()
    parts = text.split(b"\n  0\nSECTION\n")
    return {part.split(b"\n")[1]: part for part in parts[1:]}


saved = sections(sys.argv[1])
read = sections(pathlib.Path(__file__).with_name("undo_untouched.dxf"))
assert saved.keys() == read.keys(), (saved.keys(), read.keys())
for name, text in read.items():
    if name != b"HEADER":
        assert saved[name] == text, name
# The variable changed and taken back reads as before.
assert b"$LTSCALE\n 40\n1.0\n" in saved[b"HEADER"], saved[b"HEADER"][:200]
