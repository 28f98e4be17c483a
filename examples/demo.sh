#!/usr/bin/env bash
# The demo: korva opens the example drawing, tells what it holds and saves it again.
set -euo pipefail
korva=${1:-build/bin/korva}
here=$(cd "$(dirname "$0")" && pwd)
out=${DEMO_OUT:-$(cd "$(dirname "$korva")/.." && pwd)/demo}
mkdir -p "$out"

echo "== korva examples/site-plan.dxf -o $out/site-plan.dxf"
"$korva" "$here/site-plan.dxf" --summary -o "$out/site-plan.dxf"
if cmp -s "$here/site-plan.dxf" "$out/site-plan.dxf"; then
  echo "The saved drawing is byte for byte the drawing that was read."
else
  echo "The saved drawing differs from the one that was read." >&2
  exit 1
fi

echo
echo "== korva -o $out/new.dxf   (a new drawing made from nothing)"
"$korva" --summary -o "$out/new.dxf" > "$out/new.txt"
head -n 4 "$out/new.txt"
echo
echo "== korva $out/new.dxf --binary -o $out/new-binary.dxf"
"$korva" "$out/new.dxf" --binary -q -o "$out/new-binary.dxf"
"$korva" "$out/new-binary.dxf" --summary > "$out/new-binary.txt"
head -n 2 "$out/new-binary.txt"

echo
echo "== korva examples/site-plan.dxf -s examples/first-steps.scr -o $out/first-steps.dxf"
"$korva" "$here/site-plan.dxf" -s "$here/first-steps.scr" -o "$out/first-steps.dxf" > "$out/first-steps.txt"
tail -n 12 "$out/first-steps.txt"

echo
echo "== korva examples/small-tools.dxf -s examples/small-tools.scr -o $out/small-tools.dxf"
"$korva" "$here/small-tools.dxf" -s "$here/small-tools.scr" -o "$out/small-tools.dxf" > "$out/small-tools.txt"
# The commands and what they reported; the selection prompts are left out.
grep -E "^Command: |^Total|^(Hatches|Objects)|group" "$out/small-tools.txt" | grep -v "^Command: $"

echo
echo "== korva -s compare.scr   (-FCMP examples/compare/site-rev1.dxf examples/compare/site-rev2.dxf)"
# Two revisions of a site plan compared; the marked-up copies are left in $out/fcmp.
printf -- '-FCMP\n%s\n%s\n' "$here/compare/site-rev1.dxf" "$here/compare/site-rev2.dxf" \
  > "$out/compare.scr"
TMPDIR="$out" "$korva" -s "$out/compare.scr" > "$out/compare.txt"
grep "^Opened drawing" "$out/compare.txt"
for result in "Old - site-rev1.dxf" "New - site-rev2.dxf"; do
  "$korva" "$out/fcmp/$result" --summary > "$out/compare-summary.txt"
  echo "$result, entities by layer:"
  sed -n '/^Entities by layer:/,/^Tables:/p' "$out/compare-summary.txt" | grep "^  "
done
