#!/bin/sh
# Builds and runs the benchmark of look-ups in five processes and writes
# docs/performance/look-ups.md. Takes about ten seconds.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh build bench
cmake --preset bench >/dev/null
cmake --build --preset bench --target bench_look_ups
runs=$(mktemp)
trap 'rm -f "$runs"' EXIT
for _ in 1 2 3 4 5; do
  build/bench/bin/bench_look_ups >>"$runs"
done

{
  cat <<'END'
# Speed of look-ups

Written by `bench/look_ups.sh`. `SelectField` in an SQLite source of 10,000 rows, by its key, beside
the same statements in the plain ODBC API: a statement handle, execute, fetch, one value, free. Both
in one process, in rounds that alternate, by processor time; medians, one line a process.

END
  awk '/^model name/ { sub(/.*: */, ""); print "Processor: " $0 "."; exit }' \
    /proc/cpuinfo
  printf '\n| SelectField, a second | plain ODBC, a second | time of SelectField / time of plain ODBC |\n|---|---|---|\n'
  awk '/^SelectField/ { ours = $2 } /^plain/ { plain = $3 }
       /^ratio/ { printf "| %s | %s | **%s** |\n", ours, plain, $2 }' "$runs"
} >docs/performance/look-ups.md
cat docs/performance/look-ups.md
