#!/bin/sh
# Runs the transcripts of this folder: NAME.sh is run in an empty folder with the tool on the PATH,
# and its output, its messages and its exit status must be those of NAME.stdout, NAME.stderr and
# NAME.status. A file that is not there stands for nothing, and for status 0.
#
#   tests/cli/run.sh build/release/bin             all transcripts
#   tests/cli/run.sh build/release/bin call_usage  one of them
#   tests/cli/run.sh --rewrite build/release/bin   records what comes as what is expected
set -eu
rewrite=
if [ "${1:-}" = --rewrite ]; then
  rewrite=1
  shift
fi
tool_folder=$(cd "${1:?the folder that holds the tool}" && pwd)
only=${2:-}
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Nothing of the machine may show: no desktop, no locale.
unset DISPLAY WAYLAND_DISPLAY
export LC_ALL=C PATH="$tool_folder:$PATH"

# compare NAME ENDING: what came against what is expected.
compare() {
  expected=$here/$1.$2
  if [ -n "$rewrite" ]; then
    rm -f "$expected"
    [ ! -s "$work/$2" ] || cp "$work/$2" "$expected"
    return 0
  fi
  [ -e "$expected" ] || expected=/dev/null
  diff -a -u --label "$1.$2 expected" --label "$1.$2 actual" "$expected" "$work/$2"
}

passed=0 failed=0
for script in "$here"/*.sh; do
  name=$(basename "$script" .sh)
  if [ "$name" = run ] || [ "${name%_test}" != "$name" ] || [ "$name" != "${only:-$name}" ]; then
    continue
  fi
  mkdir "$work/here"
  status=0
  (cd "$work/here" && sh "$script") >"$work/stdout" 2>"$work/stderr" </dev/null || status=$?
  : >"$work/status"
  [ "$status" -eq 0 ] || echo "$status" >"$work/status"
  rm -rf "$work/here"
  good=1
  for ending in stdout stderr status; do
    compare "$name" "$ending" || good=0
  done
  if [ $good -eq 1 ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "FAILED $name"
  fi
done
echo "transcripts: $passed passed, $failed failed"
[ $failed -eq 0 ] && [ $passed -gt 0 ]
