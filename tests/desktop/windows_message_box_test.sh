#!/bin/bash
# The message boxes of the Windows build under Wine, on a real X display: members of the tool show
# them, a robot clicks their buttons, and what the members did then is checked.
#
#   windows_message_box_test.sh x64|x86 BUILD_FOLDER
#
# Leaves a screenshot of each box in BUILD_FOLDER/desktop. Exits with 77, telling why, where a needed
# tool is missing (Debian: xvfb xdotool imagemagick, and Wine).
set -u
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"

arch=$1
build=$2
root=$(cd "$(dirname "$0")/../.." && pwd)
shots=$build/desktop

need_tools Xvfb xdotool import

# Inside the tree, which is all that 32-bit Wine may see.
mkdir -p "$shots" "$build/desktop-work"
work=$(mktemp -d "$build/desktop-work/XXXXXX")
wine() { "$root/scripts/wine.sh" "$arch" "$@"; }
driver='HKCU\Software\Wine\X11 Driver'
cleanup() {
  wine reg delete "$driver" /v Managed /f >/dev/null 2>&1
  wine --end >/dev/null 2>&1  # the desktop goes with its display
  stop_display
  rm -rf "$work"
}
trap cleanup EXIT

start_display "$work"

# Without a window manager, Wine draws titles only where it is told that there is none.
unset DISPLAY
wine reg add "$driver" /v Managed /d N /f >"$work/wine" 2>&1
status=$?
if [ $status -ne 0 ]; then
  tail -n 1 "$work/wine"
  exit $status
fi
# A desktop that some program made without a display would stay without one.
wine --end >/dev/null 2>&1

# call ARGUMENT...: the tool, in the background.
call() {
  DISPLAY=$display timeout 120 "$root/scripts/wine.sh" "$arch" "$build/bin/vandpublic.exe" call \
    "$@" >"$work/output" 2>"$work/messages" &
  called=$!
}

# find_box TITLE: its place, once it is there.
find_box() {
  local window=
  for _ in $(seq 300); do
    window=$(DISPLAY=$display xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)
    [ -n "$window" ] && break
    sleep 0.1
  done
  [ -n "$window" ] || return 1
  sleep 1
  eval "$(DISPLAY=$display xdotool getwindowgeometry --shell "$window")"
}

# Buttons stand in a row at the bottom: click OFFSET, from the middle of the box.
click() {
  DISPLAY=$display xdotool mousemove "$((X + WIDTH / 2 + $1))" "$((Y + HEIGHT - 24))" click 1
}

# box NAME TITLE OFFSET EXPECTED_STATUS: waits for the box, takes its picture and clicks.
box() {
  if ! find_box "$2"; then
    check "$1 appears" yes no
    kill "$called" 2>/dev/null
    return
  fi
  DISPLAY=$display import -window root "$shots/$1.png"
  kill -0 "$called" 2>/dev/null
  check "$1 waits for the answer" 0 $?
  click "$3"
  wait "$called"
  check "$1 ends the member" "$4" $?
}

error='{"Number":-2147221503,"Source":"clsCommon.HexToDec","Description":"Not a hexadecimal digit."}'
call LogError Orders clsCommon HexToDec "$error" --debug-mode 2
box error 'Orders\.clsCommon\.HexToDec' 0 0

question() {  # question NAME OFFSET EXPECTED_CONTENT
  printf 'old' >"$work/file.txt"
  call TextRWWrite "$work/file.txt" new True
  box "$1" 'Override \?' "$2" 0
  check "$1: the file" "$3" "$(tr -d '\r' <"$work/file.txt")"
}
question question-yes -45 new
question question-no 45 old

# Nobody to ask: the default button answers at once.
wine --end >/dev/null 2>&1
printf 'old' >"$work/file.txt"
timeout 60 "$root/scripts/wine.sh" "$arch" "$build/bin/vandpublic.exe" call TextRWWrite \
  "$work/file.txt" new True >/dev/null 2>&1
check 'no display: the member returns' 0 $?
check 'no display: the answer is No' old "$(cat "$work/file.txt")"

# The same in a process whose window station is not visible, with a display there.
DISPLAY=$display timeout 60 "$root/scripts/wine.sh" "$arch" "$build/bin/unit_tests.exe" \
  --gtest_filter='DesktopMessageBoxes.*' >"$work/output" 2>&1
check 'an invisible window station: nothing waits' 0 $?

echo "$((checks - failures)) passed, $failures failed"
[ "$failures" -eq 0 ]
