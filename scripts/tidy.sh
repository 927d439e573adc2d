#!/bin/sh
# Runs clang-tidy 14 over our own sources (tests excepted) with the checks of .clang-tidy, two files
# at a time. Exit status 77 where that version is not there: another knows other checks.
set -eu
cd "$(dirname "$0")/.."
version=$(clang-tidy --version 2>/dev/null | sed -n 's/.*version \([0-9]*\).*/\1/p')
if [ "$version" != 14 ]; then
  echo "clang-tidy 14 is needed, this machine has ${version:-none}"
  exit 77
fi
cmake --preset tidy >/dev/null
git ls-files -co --exclude-standard 'src/*.cpp' 'tools/*.cpp' 'examples/*.cpp' |
  grep -v '_test\.cpp$' |
  xargs -P 2 -n 4 clang-tidy -p build/tidy --quiet
