# An X display without a screen and a count of checks, for the scripts beside this one: sourced.
# shellcheck shell=bash disable=SC2034  # the display is for those scripts
failures=0
checks=0

# need_tools TOOL...: ends the script as skipped, telling why, where one is missing.
need_tools() {
  local tool
  for tool in "$@"; do
    if ! command -v "$tool" >/dev/null; then
      echo "skipped: $tool is not installed"
      exit 77
    fi
  done
}

# start_display FOLDER: starts an X server (its process is $server, the display $display), which
# chooses a free number and writes it to a file in FOLDER when it is ready.
start_display() {
  Xvfb -screen 0 640x400x24 -nolisten tcp -displayfd 3 3>"$1/display" 2>/dev/null &
  server=$!
  for _ in $(seq 100); do
    [ -s "$1/display" ] && break
    sleep 0.1
  done
  if [ ! -s "$1/display" ]; then
    echo 'skipped: Xvfb does not start here'
    exit 77
  fi
  display=:$(cat "$1/display")
}

stop_display() {
  [ -n "${server:-}" ] && kill "$server" 2>/dev/null && wait "$server" 2>/dev/null
}

check() {  # check WHAT EXPECTED ACTUAL
  checks=$((checks + 1))
  if [ "$2" = "$3" ]; then
    echo "ok: $1"
  else
    echo "FAILED: $1: expected '$2', got '$3'"
    failures=$((failures + 1))
  fi
}
