#!/bin/sh
# Runs every example of a reference page and compares what it prints, blanks at line ends aside.
#
#   tests/reference/run_examples.sh docs/reference/members.md build/release/bin
set -eu
page=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
tool_folder=$(cd "$2" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY
export LC_ALL=C PATH="$tool_folder:$PATH"

# "    $ COMMAND" and the indented lines behind it, up to the next command.
sed -n 's/^    \(\$ vandpublic .*\)/\1/p; s/^    \([^$].*\)/\1/p; s/^$/./p' "$page" |
  awk '/^\$ / { shown = 1; print; next } /^\.$/ { shown = 0 } shown' >"$work/expected"
mkdir "$work/here"
cd "$work/here"
grep '^\$ ' "$work/expected" | while read -r line; do
  printf '%s\n' "$line"
  # Standard output and messages in the order that they come.
  sh -c "${line#\$ }" 2>&1 </dev/null || true
done | sed 's/ *$//' >"$work/actual"
diff -u --label "$page" --label actual "$work/expected" "$work/actual"
count=$(grep -c '^\$ ' "$work/expected")
echo "$count examples"
[ "$count" -gt 20 ]
