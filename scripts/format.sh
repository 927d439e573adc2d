#!/bin/sh
# Formats our own code in place; with --check it changes nothing and fails where a file differs.
# Generated files are left as the generator writes them.
set -eu
cd "$(dirname "$0")/.."
mode=-i
[ "${1:-}" != --check ] || mode='--dry-run --Werror'
# shellcheck disable=SC2086  # two options
git ls-files -co --exclude-standard '*.h' '*.cpp' |
  grep -vxE 'src/frame/clsPublic.h|src/members/member_ids.h' |
  xargs clang-format $mode
