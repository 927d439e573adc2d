#!/bin/sh
# Builds the benchmarks, runs the cipher family beside its peers in five processes, and once more
# for each further kernel set of this processor (the engine alone), prints the table of ratios and
# writes it to docs/performance. Takes a few minutes; the machine should have nothing else to do.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh build bench
cmake --preset bench >/dev/null
cmake --build --preset bench --target bench_ciphers bench_report
runs=$(mktemp -d)
trap 'rm -rf "$runs"' EXIT

# measure NAME FILTER: one process; the kernels are those of VANDPUBLIC_DES_KERNEL. Repetitions of
# all cases are mixed, so that a disturbance does not hit one library alone.
measure() {
  build/bench/bin/bench_ciphers --benchmark_filter="$2" --benchmark_format=json \
    --benchmark_min_time=0.002 --benchmark_repetitions=9 \
    --benchmark_enable_random_interleaving=true >"$runs/$1.json"
}

for run in 1 2 3 4 5; do
  echo "process $run of 5"
  measure "0-$run" '.'
  for kernels in avx2 sse2 portable; do
    VANDPUBLIC_DES_KERNEL=$kernels measure "1-$kernels-$run" '/engine/'
  done
done
mkdir -p docs/performance
build/bench/bin/bench_report docs/performance "$runs"/*.json
