#!/bin/sh
# Line and branch coverage of the tests by folder of src. Builds the coverage preset (no
# optimisation, counters in), runs every test, and prints one row a folder:
#
#   folder            lines            branches
#   runtime        412/412  100.0 %   310/318   97.5 %
#
# Branches that only an exception takes are left out, since the compiler makes them of nearly every
# call. build/coverage/lines.txt names the lines that no test reached, build/coverage/branches.txt
# the lines with a branch that was never taken.
#
#   scripts/coverage.sh            all folders
#   scripts/coverage.sh crypto     only the folders whose names match
set -eu
cd "$(dirname "$0")/.."
only=${1:-}

cmake --preset coverage >/dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
ctest --test-dir build/coverage -j2 --timeout 900 --output-on-failure --quiet

# Not what the generators of tools compiled of the same sources.
report() {
  gcovr --root . --object-directory build/coverage --filter 'src/' --exclude '.*_test\.cpp' \
    --exclude-throw-branches --exclude-unreachable-branches "$@" build/coverage/src \
    build/coverage/tests
}
report --txt build/coverage/lines.txt >/dev/null
report --txt build/coverage/branches.txt --branches >/dev/null
report --csv build/coverage/files.csv >/dev/null

awk -F, -v only="$only" '
  function percent(part, whole) { return whole ? 100 * part / whole : 100 }
  function row(name, lt, lc, bt, bc) {
    printf "%-16s %6d/%-6d %5.1f %%  %6d/%-6d %5.1f %%\n", name, lc, lt, percent(lc, lt), bc, bt,
           percent(bc, bt)
  }
  NR > 1 {
    folder = $1
    sub(/^src\//, "", folder)
    sub(/\/[^\/]*$/, "", folder)
    if (only != "" && index(folder, only) == 0) next
    if (!(folder in lines)) order[++count] = folder
    lines[folder] += $2; covered[folder] += $3; branches[folder] += $5; taken[folder] += $6
    all_lines += $2; all_covered += $3; all_branches += $5; all_taken += $6
  }
  END {
    printf "%-16s %21s  %22s\n", "folder", "lines", "branches"
    for (i = 1; i <= count; ++i) {
      f = order[i]
      row(f, lines[f], covered[f], branches[f], taken[f])
    }
    row("all", all_lines, all_covered, all_branches, all_taken)
  }' build/coverage/files.csv
