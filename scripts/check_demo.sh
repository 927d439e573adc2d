#!/bin/sh
# Runs the demo and checks what its transcript must show.
set -eu
cd "$(dirname "$0")/.."
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/LOG"
transcript=$(build/release/bin/demo "$folder")
printf '%s\n' "$transcript"

expect() {
  printf '%s\n' "$transcript" | grep -qF -- "$1" || { echo "missing in the transcript: $1"; exit 1; }
}
expect '-> result   = "7F 1D 0A 77 82 6B 8A FF "'
expect '-> result   = "01 23 45 67 89 AB CD E7 "'
expect '-> rstr_ReturnValue = 7'
expect 'the column now holds 27661 bytes'
expect 'the two files are the same'
expect '-> abyt_DivKey = "63 FA F3 6D 19 57 1F CE 77 08 74 48 62 9E BC 92 "'
expect '-> rabyt_MAC = "E9 08 62 30 "'
expect '-> restored = "user=7;pin=1234"'
expect '0x8004001C'
expect 'clsCommon.FstrDES3'
expect 'VandPublic.clsCommon.FillByteArrWithHexStr'
expect 'clsCommon.FillByteArrWithHexStr (-2147221455) - Resouce string not Hex string.'
