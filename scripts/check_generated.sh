#!/bin/sh
# Fails when a file that follows from the member table is not what the generator writes. Works on
# a copy, so the tree stays as it is. Needs the release build.
set -eu
cd "$(dirname "$0")/.."
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
generated='src/frame/clsPublic.h src/members/member_ids.h src/invoke/bindings.inc
  src/com/public_module.idl src/com/vtable_members.inc docs/reference'
build/release/bin/vandpublic-generate "$copy"
for path in $generated; do
  [ -e "$path" ] || { echo "$path is missing"; exit 1; }
done
(cd "$copy" && find . -type f) | while read -r file; do
  cmp "$copy/$file" "$file" || { echo "$file is not current: run scripts/generate.sh"; exit 1; }
done
