"""The environment store was written to the profile folder in its documented form."""
import pathlib
import sys

profile = pathlib.Path(sys.argv[1]).parent / "profile"
text = (profile / "environment.txt").read_text(encoding="utf-8")
expected = (
    "# korva settings: environment store. Rewritten by korva at each change.\n"
    'strUnit = string "7"\n'
    'strObjectName = string "Site \\"North\\"\\tplan"\n'
)
if text != expected:
    sys.exit("environment.txt holds:\n" + text)
# The machine-wide keys are written only when a value is written there.
if (profile / "settings" / "machine.txt").exists():
    sys.exit("settings/machine.txt was written")
