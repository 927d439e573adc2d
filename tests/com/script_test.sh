#!/usr/bin/env bash
# Runs a script with cscript and compares what it prints with the .txt file beside it.
#
#   script_test.sh x64|x86 SCRIPT WORK_FOLDER
set -eu -o pipefail
here=$(cd "$(dirname "$0")" && pwd)
wine=$here/../../scripts/wine.sh
arch=$1 script=$2 work=$3/$(basename "$2")
rm -rf "$work"
mkdir -p "$work"
# Wine's drive Z: is the root folder.
windows_form() { local path=$1; printf 'Z:%s' "${path//\//\\}"; }
"$wine" "$arch" cscript //nologo "$(windows_form "$script")" "$(windows_form "$work")" |
  tr -d '\r' >"$work/output.txt"
diff "${script%.*}.txt" "$work/output.txt"
