#!/bin/sh
# Checks the format with clang-format 14, the version the tree is formatted with; another version
# would find fault with lines that are right.
set -eu
cd "$(dirname "$0")/.."
version=$(clang-format --version 2>/dev/null | sed -n 's/.*version \([0-9]*\).*/\1/p')
if [ "$version" != 14 ]; then
  echo "clang-format 14 is needed, this machine has ${version:-none}"
  exit 77
fi
scripts/format.sh --check
