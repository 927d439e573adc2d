#!/bin/sh
# A batch over many rows: order kept whatever the number of threads, gone on with after being
# killed, spread by GNU parallel.
#
#   tests/cli/batch_test.sh build/release/bin
set -eu
tool=$(cd "$1" && pwd)/vandpublic
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

rows=200000
awk -v n=$rows 'BEGIN { print "serial"; for (i = 0; i < n; ++i) printf "%016X\n", i }' >in.csv
echo 0123456789ABCDEFFEDCBA9876543210 >key.txt
batch() {
  "$tool" batch FstrDiversifyKey istr_Key=@key.txt --column istr_DivFactor=serial "$@"
}

batch --jobs 1 <in.csv >one.csv
[ "$(wc -l <one.csv)" -eq $((rows + 1)) ]
batch --jobs 7 <in.csv >seven.csv
cmp one.csv seven.csv
echo "the order of the input with 1 and 7 threads"

# Some of a few calls by another way.
for number in 0 4711 199999; do
  serial=$(printf '%016X' $number)
  expected=$("$tool" call FstrDiversifyKey @key.txt "$serial")
  grep -qF "$serial,$expected," one.csv
done
echo "rows as single calls make them"

# Killed as soon as something is written, until it finishes.
attempts=0
until cmp -s resumed.csv one.csv; do
  attempts=$((attempts + 1))
  [ $attempts -lt 1000 ] || { echo "it does not come to an end"; exit 1; }
  before=$(stat -c %s resumed.csv 2>/dev/null || echo 0)
  batch --input in.csv --output resumed.csv --resume &
  pid=$!
  while kill -0 $pid 2>/dev/null && [ "$(stat -c %s resumed.csv 2>/dev/null || echo 0)" -le "$before" ]; do
    sleep 0.01
  done
  kill -9 $pid 2>/dev/null || true
  wait $pid 2>/dev/null || true
done
echo "resumed, and the same in the end"

# On a terminal it tells how far it is; not every system gives one.
if script -qec true /dev/null </dev/null >/dev/null 2>&1; then
  script -qec "'$tool' batch FstrDiversifyKey istr_Key=@key.txt --column istr_DivFactor=serial \
    --input in.csv --output shown.csv" /dev/null </dev/null >shown.txt
  cmp one.csv shown.csv
  tr '\r' '\n' <shown.txt | grep -q "^$rows rows, [0-9]* a second, 0 bad"
  echo "the progress on a terminal"
fi

if command -v parallel >/dev/null; then
  parallel --will-cite --pipe --keep-order --header : --block 500k -j 2 \
    "$tool" batch FstrDiversifyKey istr_Key=@key.txt --column istr_DivFactor=serial --jobs 1 \
    <in.csv | awk 'NR == 1 || $0 != "serial,result,error"' >parallel.csv
  cmp one.csv parallel.csv
  echo "the same through GNU parallel"
else
  echo "GNU parallel is not installed"
  exit 77
fi
