#!/bin/bash
# Message boxes on a real X display: shows them through each dialog program that is installed,
# presses their buttons by a robot, and checks the answers.
#
#   message_box_test.sh SHOW_MESSAGE_BOX FOLDER
#
# Leaves a screenshot of each box in FOLDER. Exits with 77, telling why, where a needed tool is
# missing (Debian: xvfb xdotool x11-utils imagemagick; zenity and kdialog are tested if installed).
set -u
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"

show=$1
shots=$2
title='Box title'
# A text with everything that a program could take for an option, an escape or markup.
text=$'-Overwrite "C:\\new\\table.txt" <b>&amp; caf\xC3\xA9 \xE4\xB8\xAD\xE6\x96\x87?\nSecond line'

need_tools Xvfb xdotool xmessage import

mkdir -p "$shots"
work=$(mktemp -d)
cleanup() {
  stop_display
  rm -rf "$work"
}
trap cleanup EXIT

start_display "$work"
export DISPLAY=$display

# box PROGRAM STYLE: shows a box with no other dialog program on the PATH and no locale at all.
box() {
  mkdir -p "$work/$1"
  ln -sf "$(command -v "$1")" "$work/$1/$1"
  timeout 30 env -i PATH="$work/$1" HOME="$work" DISPLAY="$DISPLAY" "$show" "$2" "$text" "$title" \
    </dev/null >"$work/answer" 2>"$work/messages" &
  shown=$!
}

# The box's window, once it is there; the pointer goes into it, which gives it the keyboard.
find_box() {
  window=
  for _ in $(seq 100); do
    window=$(xdotool search --onlyvisible --name "^$title\$" 2>/dev/null | tail -n 1)
    [ -n "$window" ] && break
    sleep 0.1
  done
  [ -n "$window" ] || return 1
  sleep 1
  eval "$(xdotool getwindowgeometry --shell "$window")"
  xdotool mousemove "$((X + WIDTH / 2))" "$((Y + 5))"
}

press() {  # press KEY... | press click:X:Y, from the lower left corner of the window
  local key
  for key; do
    case $key in
      click:*)
        IFS=: read -r _ x y <<<"$key"
        xdotool mousemove "$((X + x))" "$((Y + HEIGHT - y))" click 1
        ;;
      *) xdotool key "$key" ;;
    esac
    sleep 0.3
  done
}

# try PROGRAM STYLE NAME EXPECTED KEY...
try() {
  local program=$1 style=$2 name=$3 expected=$4
  shift 4
  # On a busy machine a display without a window manager now and then loses a window that is
  # mapped while another goes; the box is then shown once more.
  local attempt
  for attempt in 1 2 3; do
    box "$program" "$style"
    find_box && break
    echo "not seen: $program: $name, attempt $attempt"
    kill "$shown" 2>/dev/null
    wait "$shown" 2>/dev/null
  done
  if [ -z "$window" ]; then
    check "$program: $name appears" yes no
    return
  fi
  import -window root "$shots/$program-$name.png"
  kill -0 "$shown" 2>/dev/null
  check "$program: $name waits for the answer" 0 $?
  press "$@"
  wait "$shown"
  check "$program: $name" "$expected" "$(cat "$work/answer")"
  check "$program: $name writes no messages" '' "$(cat "$work/messages")"
}

try xmessage 48 ok 1 Return
try xmessage 324 default 7 Return
try xmessage 324 yes 6 click:18:14
try xmessage 324 no 7 click:46:14
if command -v zenity >/dev/null; then
  try zenity 48 ok 1 Return
  try zenity 48 closed 1 Escape
  try zenity 324 default 7 Return
  try zenity 324 escape 7 Escape
  try zenity 324 yes 6 alt+y
else
  echo 'left out: zenity is not installed'
fi
if command -v kdialog >/dev/null; then
  try kdialog 48 ok 1 Return
  try kdialog 324 default 7 Return
  try kdialog 324 escape 7 Escape
  try kdialog 324 yes 6 Down Return
else
  echo 'left out: kdialog is not installed'
fi

# Nobody to ask: the answer comes at once.
nobody() { timeout 10 env -i "$@" "$show" 324 "$text" "$title" </dev/null 2>&1; }
check 'no display: No' 7 "$(nobody PATH="$PATH")"
check 'a display that does not answer: No' 7 "$(nobody PATH="$PATH" DISPLAY=:65535)"
check 'no dialog program: No' 7 "$(nobody PATH="$work" DISPLAY="$DISPLAY")"

echo "$((checks - failures)) passed, $failures failed"
[ "$failures" -eq 0 ]
