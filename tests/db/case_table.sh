#!/bin/bash
# Runs the database tests on every kind of data source and prints a table of what they came to, one
# row a case, one column a source. Fails when a case failed.
#
#   tests/db/case_table.sh [FOLDER_WITH_TEST_PROGRAMS]     (build/release/bin)
set -u
bin=$(cd "${1:-build/release/bin}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

sources=(sqlite postgresql mariadb jet dbf)
for source in "${sources[@]}"; do
  case $source in
    jet | dbf) "$bin/${source}_database_tests" ;;
    *) LC_ALL=C "$bin/database_tests" "$source" ;;
  esac >"$work/$source.log" 2>&1
done
logs=("${sources[@]/#/$work/}")
logs=("${logs[@]/%/.log}")

# "OK Suite.Case", "SKIPPED Suite.Case" and "FAILED Suite.Case" from each log; sizes come as the
# parameter of a case.
awk -v order="${sources[*]}" '
  FNR == 1 { source = FILENAME; sub(/.*\//, "", source); sub(/\.log$/, "", source) }
  /^\[ +(OK|SKIPPED|FAILED) +\] [^ ]+\.[^ ]+.* \([0-9]+ ms\)$/ {
    word = /^\[ +OK/ ? "passed" : /^\[ +SKIPPED/ ? "not there" : "FAILED"
    sub(/^\[[^]]*\] /, ""); sub(/,.*/, ""); sub(/ \([0-9]+ ms\)$/, "")
    name = $1
    if (split(name, part, "/") == 3) {
      split("0 1 5119 5120 5121 10240 12000 1000000", sizes, " ")
      name = part[2] "_" sizes[part[3] + 1] "_bytes"
    }
    if (!(name in seen)) { seen[name] = 1; names[++count] = name }
    outcome[name, source] = word
    if (word == "FAILED") failed = 1
    total[source, word]++
  }
  END {
    columns = split(order, column, " ")
    head = "| case |"; line = "|---|"
    for (i = 1; i <= columns; ++i) { head = head " " column[i] " |"; line = line "---|" }
    print head; print line
    for (n = 1; n <= count; ++n) {
      row = names[n]; gsub(/_/, " ", row); row = "| " row " |"
      for (i = 1; i <= columns; ++i) {
        word = outcome[names[n], column[i]]
        row = row " " (word == "" ? "-" : word) " |"
      }
      print row
    }
    row = "| passed |"
    for (i = 1; i <= columns; ++i) {
      row = row " " total[column[i], "passed"] + 0 " |"
      if (total[column[i], "passed"] == 0) failed = 1
    }
    print row
    exit failed
  }' "${logs[@]}"
