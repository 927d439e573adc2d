#!/bin/bash
# Measures `vandpublic pipe`: how long it takes to start, how many requests a second it answers on
# one core, how much memory it holds when idle and after many requests.
#
#   bench/pipe_rate.sh [FOLDER_WITH_TOOL] [REQUESTS]     (build/release/bin, a million)
set -eu
tool=${1:-build/release/bin}/vandpublic
count=${2:-1000000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

request='{"id":1,"member":"IsHex","args":["0123456789ABCDEF"]}'

# Seconds that a command takes: elapsed, and of the processor.
timed() { local TIMEFORMAT='%R %U %S'; { time "$@" >/dev/null; } 2>&1; }

# resident PID: kB.
resident() { awk '/^VmRSS/ { print $2 }' "/proc/$1/status"; }

starts=20
start_all() { for _ in $(seq $starts); do "$tool" pipe </dev/null; done; }
timed start_all | awk -v n=$starts '{ printf "start and end     %.1f ms\n", $1 / n * 1000 }'

yes "$request" | head -n "$count" >"$work/requests" || true
run() { taskset -c 0 "$tool" pipe <"$work/requests"; }
timed run | awk -v n="$count" '{
  cpu = $2 + $3
  printf "requests          %d in %.2f s elapsed, %.2f s of the processor\n", n, $1, cpu
  printf "rate              %.0f a second elapsed, %.0f a second of processor time\n", n / $1, n / cpu
}'

# One request and its reply at a time, as a client does that waits.
coproc PIPE { exec "$tool" pipe; }
process=$PIPE_PID
exec {to}>&"${PIPE[1]}" {from}<&"${PIPE[0]}"
# Sends requests until the given number was answered.
ask() {
  head -n "$1" "$work/requests" >&"$to" &
  head -n "$1" <&"$from" >/dev/null
  wait $!
}
ask 1
echo "idle              $(resident "$process") kB"
# The last reply is read before the memory is: head may take more than its lines from a pipe, but
# no more replies than requests come.
ask "$count"
echo "after $count    $(resident "$process") kB"
exec {to}>&-
eval "exec ${PIPE[1]}>&-"
wait "$process"
