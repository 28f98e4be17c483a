#!/bin/sh
# Runs every benchmark built in BUILD_DIR. BENCH_ENTITIES sets the size of the DXF
# benchmark's drawing (100000 when unset).
set -u
if [ $# -lt 1 ]; then
  echo "usage: $0 BUILD_DIR" >&2
  exit 2
fi
bin="$1/bin"
entities="${BENCH_ENTITIES:-100000}"
status=0

run() {
  echo "==== $*"
  "$@" || { echo "==== failed: $*" >&2; status=1; }
  echo
}

if [ -x "$bin/dxf_bench" ]; then
  run "$bin/dxf_bench" --entities "$entities"
else
  echo "dxf_bench is not built in $1" >&2
  status=1
fi
[ -x "$bin/bench_dxf_micro" ] && run "$bin/bench_dxf_micro"
[ -x "$bin/calc_bench" ] && run "$bin/calc_bench"

# Benchmarks added later under bench/ follow the same names.
for program in "$bin"/*_bench "$bin"/bench_*; do
  [ -x "$program" ] || continue
  case "$(basename "$program")" in
    dxf_bench | bench_dxf_micro | calc_bench) continue ;;
  esac
  run "$program"
done
exit $status
