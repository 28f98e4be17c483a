#!/usr/bin/env bash
# Runs one end-to-end case: korva [NAME.dxf] -s NAME.scr -o OUT.dxf, then compares the
# transcript with NAME.expected and runs NAME.check.py on the saved drawing.
# Usage: run_case.sh KORVA CASES/NAME.scr [--update]
set -uo pipefail
korva=$(realpath "$1")
script=$(realpath "$2")
update=${3:-}
cases=$(dirname "$script")
name=$(basename "$script" .scr)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/tmp" "$work/profile"

arguments=()
[ -f "$cases/$name.dxf" ] && arguments+=("$cases/$name.dxf")
arguments+=(-s "$script" -o "$work/out.dxf" --profile-dir "$work/profile")
if [ -f "$cases/$name.args" ]; then
  while IFS= read -r line || [ -n "$line" ]; do
    [ -n "$line" ] && arguments+=("$line")
  done < "$cases/$name.args"
fi

# NAME.env: VARIABLE=value lines added to korva's environment (paths relative to the
# cases folder), e.g. stand-ins for the desktop's programs.
environment=()
if [ -f "$cases/$name.env" ]; then
  while IFS= read -r line || [ -n "$line" ]; do
    [ -n "$line" ] && environment+=("$line")
  done < "$cases/$name.env"
fi

cd "$cases"
env "${environment[@]}" TMPDIR="$work/tmp" "$korva" "${arguments[@]}" > "$work/transcript" 2> "$work/errors" < /dev/null
status=$?
# The output path differs from run to run.
sed -i "s|$work|WORK|g" "$work/transcript"

if [ "$update" = "--update" ]; then
  cp "$work/transcript" "$cases/$name.expected"
  echo "wrote $cases/$name.expected"
fi
failed=0
if [ $status -ne 0 ]; then
  echo "korva exited with $status"; cat "$work/errors"; failed=1
fi
if ! diff -u "$cases/$name.expected" "$work/transcript"; then
  echo "the transcript differs from $name.expected"; failed=1
fi
if [ -f "$cases/$name.check.py" ] && [ $status -eq 0 ]; then
  if ! /usr/bin/python3 "$cases/$name.check.py" "$work/out.dxf"; then
    echo "$name.check.py failed"; failed=1
  fi
fi
exit $failed
