#!/bin/sh
# Checks that dependencies point downwards only: which folders of src each folder may include.
# Prints each include that may not be, and fails when there is one.
set -eu
cd "$(dirname "$0")/../src"

# folder: what it may include besides itself
allowed='
runtime:
members: runtime
platform: runtime
platform/posix: runtime platform platform/posix/ado
platform/posix/ado: runtime platform platform/posix platform/posix/ado/odbc platform/posix/ado/jet platform/posix/ado/dbf
platform/posix/ado/odbc: runtime platform/posix/ado
platform/posix/ado/sql: runtime platform platform/posix platform/posix/ado
platform/posix/ado/jet: runtime platform platform/posix platform/posix/ado platform/posix/ado/sql
platform/posix/ado/dbf: runtime platform platform/posix platform/posix/ado platform/posix/ado/sql
platform/windows: runtime platform platform/windows/automation
platform/windows/automation: runtime platform platform/windows
frame: runtime members platform
convert: runtime members platform frame
text: runtime members platform frame
crypto: runtime members platform frame convert crypto/kernels
crypto/kernels: runtime crypto
env: runtime members platform frame convert
db: runtime members platform frame
invoke: runtime members platform frame
com: runtime members platform/windows platform/windows/automation frame invoke
cli: runtime members platform platform/posix frame invoke cli/batch com
cli/batch: runtime members platform frame invoke cli
'

find . -name '*.h' -o -name '*.cpp' -o -name '*.inc' | sed 's|^\./||' | sort | while read -r file; do
  folder=$(dirname "$file")
  rule=$(printf '%s\n' "$allowed" | sed -n "s|^$folder:||p")
  case "$file" in *_test.cpp) rule="$rule support" ;; esac  # tests/support
  grep -o '^#include "[^"]*/[^"]*"' "$file" | cut -d'"' -f2 | while read -r included; do
    target=$(dirname "$included")
    case " $folder $rule " in
      *" $target "*) ;;
      *) echo "$file includes $included" ;;
    esac
  done
  # Tests may use what they compare with; engines may not know the system.
  case "$file" in
    platform/posix/* | platform/windows/* | com/* | *_test.cpp | cli/*) ;;
    *) grep -HnE '^#include <(unistd|sys/|fcntl|pwd|dlfcn|windows)' "$file" || true ;;
  esac
done | grep . && exit 1
exit 0
