#!/usr/bin/env bash
# Looks at a DLL as a file: what it imports, what it exports, its size and its resources.
#
#   module_test.sh OBJDUMP DLL
set -eu
objdump=$1 dll=$2
most=3000000

fail() {
  echo "$1"
  exit 1
}

imports=$("$objdump" -p "$dll" | sed -n 's/.*DLL Name: //p' | tr '[:upper:]' '[:lower:]' | sort)
for module in $imports; do
  case $module in
    advapi32.dll | kernel32.dll | msvcrt.dll | ole32.dll | oleaut32.dll | user32.dll) ;;
    *) fail "$dll imports $module, which is not part of every Windows" ;;
  esac
done

exports=$("$objdump" -p "$dll" | sed -n 's/^[[:space:]]*\[ *[0-9]*\] \([A-Za-z]*\)$/\1/p' | sort | tr '\n' ' ')
wanted='DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer '
[ "$exports" = "$wanted" ] || fail "$dll exports: $exports"

size=$(stat -c %s "$dll")
[ "$size" -lt $most ] || fail "$dll has $size bytes, more than $most"

# Both the loader and users' tools read these.
for resource in TYPELIB 'VANDREL Public Module 1.0' OriginalFilename; do
  { strings -el "$dll"; strings "$dll"; } | grep -q "$resource" || fail "$dll has no resource '$resource'"
done
echo "$size bytes, imports:" "$(tr '\n' ' ' <<<"$imports")"
