#!/bin/sh
# Fails when a call takes over 5 % more instructions than when tests/guard/instructions.txt was
# recorded (scripts/count_instructions.sh --record records anew). Exit status 77, with the reason in
# the last line, where nothing can be compared. Needs the release build.
set -eu
cd "$(dirname "$0")/.."
recorded=tests/guard/instructions.txt
counted=build/instructions.txt

skip() {
  echo "$1"
  exit 77
}
command -v valgrind >/dev/null 2>&1 || skip "valgrind is not installed"
valgrind --tool=none true >/dev/null 2>&1 || skip "valgrind cannot run here"
[ "$(uname -m)" = x86_64 ] || skip "the counts were recorded on x86_64"
before=$(sed -n 's/^# compiler: //p' "$recorded")
now=$(c++ --version | head -n 1)
[ "$before" = "$now" ] || skip "recorded with $before, this is $now"

scripts/count_instructions.sh >"$counted"
awk '
  /^#/ { next }
  NR == FNR { before[$1] = $2; next }
  {
    known = $1 in before  # asked before the element is used, which would make it
    growth = known ? ($2 / before[$1] - 1) * 100 : 0
    verdict = "ok"
    if (!known) verdict = "not recorded"
    else if ($2 !~ /^[1-9][0-9]*$/) verdict = "not counted"
    else if (growth > 5) verdict = "GROWN"
    if (verdict != "ok") failed = 1
    printf "%-28s %10d %10d %+7.1f %%  %s\n", $1, before[$1], $2, growth, verdict
    seen[$1] = 1
  }
  END {
    for (name in before) if (!(name in seen)) { print name ": not counted"; failed = 1 }
    exit failed
  }' "$recorded" "$counted"
