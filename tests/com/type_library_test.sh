#!/usr/bin/env bash
# Compares the type library in the DLL with type_library.txt: slots, dispatch ids, parameters and
# constants are compiled into clients, so nothing of it may ever change.
#
#   type_library_test.sh x64|x86 DUMPER DLL
set -eu -o pipefail
here=$(cd "$(dirname "$0")" && pwd)
"$here/../../scripts/wine.sh" "$1" "$2" "$3" | tr -d '\r' | diff "$here/type_library.txt" -
