#!/bin/sh
# Builds the benchmarks, runs each family beside its peers in five processes, and once more for each
# further set of kernels of this processor (the engine alone), prints the tables of ratios and
# writes them to docs/performance. Takes two minutes once built; the machine should have nothing else to
# do.
#
#   bench/run.sh            both families
#   bench/run.sh texts      one of them: ciphers or texts
set -eu
cd "$(dirname "$0")/.."
only=${1:-}
scripts/setup.sh build bench
cmake --preset bench >/dev/null
cmake --build --preset bench --target bench_ciphers bench_texts bench_report
runs=$(mktemp -d)
trap 'rm -rf "$runs"' EXIT

# measure FAMILY NAME FILTER: one process; the kernels are those of the environment. Repetitions of
# all cases are mixed, so that a disturbance does not hit one library alone.
measure() {
  "build/bench/bin/bench_$1" --benchmark_filter="$3" --benchmark_format=json \
    --benchmark_min_time=0.002 --benchmark_repetitions=9 \
    --benchmark_enable_random_interleaving=true >"$runs/$1-$2.json"
}

for run in 1 2 3 4 5; do
  echo "process $run of 5"
  if [ "$only" != texts ]; then
    measure ciphers "0-$run" '.'
    for kernels in avx2 sse2 portable; do
      VANDPUBLIC_DES_KERNEL=$kernels measure ciphers "1-$kernels-$run" '/engine/'
    done
  fi
  if [ "$only" != ciphers ]; then
    measure texts "0-$run" '.'
    VANDPUBLIC_HEX_LOOPS=plain measure texts "1-plain-$run" '^(hex|dump).*/engine/'
  fi
done
mkdir -p docs/performance
for family in ciphers texts; do
  [ -z "$only" ] || [ "$only" = "$family" ] || continue
  build/bench/bin/bench_report "$family" docs/performance "$runs/$family"-*.json
done
