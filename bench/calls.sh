#!/bin/bash
# Measures what a call costs that comes from outside the process's C++: through `vandpublic pipe`,
# through `vandpublic batch`, and through the COM server under Wine. Writes
# docs/performance/calls.md. Takes a minute or two, and needs the packages of the Windows builds.
set -eu -o pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh build bench windows
cmake --preset release >/dev/null
cmake --build --preset release --target vandpublic-cli

listing() { sed 's/^/    /'; }
processor=$(awk '/^model name/ { sub(/.*: */, ""); print; exit }' /proc/cpuinfo)
{
  echo "# Calls from outside"
  echo
  echo "Written by \`bench/calls.sh\`. Processor: $processor. Load before: $(cut -d' ' -f1 /proc/loadavg)."
  printf '\n## The pipe\n\n'
  echo "One process, one core, requests of the member IsHex with 16 digits (\`bench/pipe_rate.sh\`)."
  echo
  bench/pipe_rate.sh | listing
  printf '\n## Batches\n\n'
  echo "\`FstrDiversifyKey\` under one master key, CSV in and out, all cores (\`bench/batch_rate.sh\`); the"
  echo "memory is the most that the process held."
  echo
  bench/batch_rate.sh | listing
  printf '\n## The COM server\n\n'
  echo "\`IsHex\` with 16 digits, by a C++ client in its own apartment under Wine, whose automation"
  echo "library is not that of Windows."
  for arch in x64 x86; do
    {
      cmake --preset "windows-$arch" -DVANDPUBLIC_BENCH=ON
      cmake --build --preset "windows-$arch" --target call_rate
    } >/dev/null
    printf '\n%s:\n\n' "$arch"
    scripts/wine.sh "$arch" "build/windows-$arch/bin/call_rate.exe" | tr -d '\r' | listing
    scripts/wine.sh "$arch" --end
  done
} >docs/performance/calls.md.new
mv docs/performance/calls.md.new docs/performance/calls.md
cat docs/performance/calls.md
