#!/bin/sh
# Counts the instructions of a few calls of the release build under valgrind and prints them, one
# case a line. The counts are those of the plainest kernels on every machine: valgrind knows no
# AVX-512, and the C library is kept from choosing by processor, too.
#
#   scripts/count_instructions.sh            prints
#   scripts/count_instructions.sh --record   writes tests/guard/instructions.txt
set -eu
cd "$(dirname "$0")/.."
program=build/release/bin/counted_calls
record=tests/guard/instructions.txt

export VANDPUBLIC_DES_KERNEL=sse2 VANDPUBLIC_HEX_LOOPS=plain LC_ALL=C
export GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2,-AVX,-AVX512F,-AVX512VL,-ERMS,-FSRM,-BMI1,-BMI2,-LZCNT,-MOVBE

count() {
  log=$(mktemp)
  valgrind --tool=callgrind --callgrind-out-file=/dev/null --collect-atstart=no \
    --toggle-collect='*CountedCall*' "$program" "$1" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
  sed -n 's/^==[0-9]*== Collected : //p' "$log"
  rm -f "$log"
}

# The compiler decides what is counted, so the counts of one say nothing about another.
compiler() {
  c++ --version | head -n 1
}

all() {
  echo "# Instructions of each case; written by scripts/count_instructions.sh --record"
  echo "# compiler: $(compiler)"
  for name in $("$program"); do
    printf '%-28s %s\n' "$name" "$(count "$name")"
  done
}

if [ "${1:-}" = --record ]; then
  all >"$record.new"
  mv "$record.new" "$record"
else
  all
fi
