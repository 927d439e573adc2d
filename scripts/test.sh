#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test there is: the checks of the tree itself,
# then all tests in the release build and again under AddressSanitizer and
# UndefinedBehaviorSanitizer, then those of the Windows builds under Wine. A table at the end says
# what ran, what was skipped and why; the last line counts. What a step printed is kept in
# build/test-logs.
#
#   scripts/test.sh            everything
#   scripts/test.sh release    only the steps whose names match
set -u
cd "$(dirname "$0")/.." || exit 1
only=${1:-}
logs=build/test-logs
mkdir -p "$logs"
rm -f "$logs"/*

passed=0 failed=0 skipped=0
table=()

# record NAME PASSED FAILED SKIPPED NOTE
record() {
  passed=$((passed + $2)) failed=$((failed + $3)) skipped=$((skipped + $4))
  table+=("$(printf '%-22s %7s %7s %7s   %s' "$@")")
}

# The tests that CTest reports as skipped, each with the reason it printed.
skip_reasons() {
  awk '/\*\*\*Skipped/ { for (i = 1; i <= NF; i++) if ($i == "Test") { print "  skipped: " $(i + 2) } }' "$1"
}

# check NAME COMMAND...: one step that passes or fails as a whole; exit status 77 skips it, the
# last line it printed being the reason.
check() {
  local name=$1
  shift
  [[ -z $only || $name == *$only* ]] || return 0
  echo "== $name"
  "$@" >"$logs/$name.log" 2>&1
  local status=$?
  if [ $status -eq 0 ]; then
    record "$name" 1 0 0 ""
  elif [ $status -eq 77 ]; then
    record "$name" 0 0 1 "$(tail -n 1 "$logs/$name.log")"
  else
    record "$name" 0 1 0 "see $logs/$name.log"
    tail -n 40 "$logs/$name.log"
  fi
}

# suite PRESET: builds the preset and runs its tests.
suite() {
  local preset=$1 log=$logs/$1.log
  [[ -z $only || $preset == *$only* ]] || return 0
  echo "== $preset: build"
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
    grep -E 'error|FAILED' "$log" | head -n 40
    record "$preset" 0 1 0 "does not build, see $log"
    return
  fi
  echo "== $preset: tests"
  ctest --test-dir "build/$preset" -j2 --timeout 900 --output-on-failure \
    --output-junit "$PWD/$logs/$preset.xml" >>"$log" 2>&1
  grep -E '^ *[0-9]+ - |\*\*\*(Failed|Exception|Timeout)' "$log"
  local counts
  counts=$(grep -oE '<testsuite |(tests|failures|disabled|skipped)="[0-9]+"' "$logs/$preset.xml" |
    head -n 5 | tr -dc 'a-z=0-9"\n')
  local tests failures disabled skips
  tests=$(sed -n 's/^tests="\(.*\)"/\1/p' <<<"$counts")
  failures=$(sed -n 's/^failures="\(.*\)"/\1/p' <<<"$counts")
  disabled=$(sed -n 's/^disabled="\(.*\)"/\1/p' <<<"$counts")
  skips=$(sed -n 's/^skipped="\(.*\)"/\1/p' <<<"$counts")
  if [ "${tests:-0}" -eq 0 ]; then
    record "$preset" 0 1 0 "no test ran, see $log"
    return
  fi
  skips=$((skips + disabled))
  record "$preset" $((tests - failures - skips)) "$failures" "$skips" ""
  while read -r line; do table+=("    $line"); done < <(skip_reasons "$log")
}

# windows ARCH: the Windows build and its tests under Wine; skipped, with the reason, where Wine or
# the compilers cannot be had.
windows() {
  local arch=$1 log=$logs/wine-$1.log
  [[ -z $only || windows-$arch == *$only* ]] || return 0
  if ! { scripts/setup.sh windows && scripts/wine.sh "$arch" cmd /c ver; } >"$log" 2>&1; then
    record "windows-$arch" 0 0 1 "$(grep . "$log" | tail -n 1)"
    return
  fi
  suite "windows-$arch"
  scripts/wine.sh "$arch" --end >>"$log" 2>&1
}

if ! scripts/setup.sh build demo test; then
  echo "0 passed, 1 failed, 0 skipped"
  exit 1
fi
# Without the servers, the tests on them are skipped with the reason.
scripts/setup.sh db

check includes scripts/check_includes.sh
check format scripts/check_format.sh
check shell-scripts scripts/check_scripts.sh
suite release
check generated-files scripts/check_generated.sh
check instruction-counts scripts/check_instructions.sh
check demo scripts/check_demo.sh
check installed-package tests/install/run.sh
suite sanitize
windows x64
windows x86
# Where both could be built.
if [[ -e build/windows-x64/bin/VandPublic.dll && -e build/windows-x86/bin/VandPublic.dll ]]; then
  check windows-dist scripts/build-windows.sh
fi

echo
printf '%-22s %7s %7s %7s   %s\n' step passed failed skipped note
printf '%s\n' "${table[@]}"
echo
echo "$passed passed, $failed failed, $skipped skipped"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
