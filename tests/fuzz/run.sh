#!/bin/sh
# Runs the DXF reader fuzzer for a while over the broken files and the hand-written
# drawings. Usage: tests/fuzz/run.sh BUILD_DIR [SECONDS]
set -eu
build=${1:?usage: run.sh BUILD_DIR [SECONDS]}
seconds=${2:-60}
here=$(cd "$(dirname "$0")" && pwd)
fuzzer=$build/bin/fuzz_dxf_reader
[ -x "$fuzzer" ] || { echo "run.sh: $fuzzer is not built" >&2; exit 1; }
# New inputs and crash reproducers stay in the build folder, out of git.
corpus=$build/fuzz-corpus
artifacts=$build/fuzz-artifacts
mkdir -p "$corpus" "$artifacts"
exec "$fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=65536 \
  -artifact_prefix="$artifacts/" \
  "$corpus" "$here/../dxf/broken" "$here/../roundtrip/handwritten"
