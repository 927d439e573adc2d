#!/bin/sh
# How fast `vandpublic batch` is and how much memory it takes: diversified keys for many serial
# numbers under one master key.
#
#   bench/batch_rate.sh [ROWS]      10,000,000 when left out
set -eu
cd "$(dirname "$0")/.."
tool=$PWD/build/release/bin/vandpublic
rows=${1:-10000000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
awk -v n="$rows" 'BEGIN { print "serial"; for (i = 0; i < n; ++i) printf "%016X\n", i }' >"$work/in.csv"
echo 0123456789ABCDEFFEDCBA9876543210 >"$work/key.txt"

"$tool" batch FstrDiversifyKey "istr_Key=@$work/key.txt" --column istr_DivFactor=serial \
  --input "$work/in.csv" --output "$work/out.csv" &
pid=$!
start=$(date +%s.%N)
most=0
while kill -0 $pid 2>/dev/null; do
  now=$(sed -n 's/^VmHWM:[[:space:]]*\([0-9]*\) kB/\1/p' /proc/$pid/status 2>/dev/null || true)
  [ -z "$now" ] || most=$now
  sleep 0.1
done
wait $pid
end=$(date +%s.%N)
[ "$(wc -l <"$work/out.csv")" -eq $((rows + 1)) ]
awk -v n="$rows" -v s="$start" -v e="$end" -v m="$most" 'BEGIN {
  printf "%d rows in %.1f s: %.0f a second, %.1f MB\n", n, e - s, n / (e - s), m / 1024 }'
