#!/bin/sh
# Registry files that cannot be read, and why.
truncate -s 67108865 large.reg
mkfifo pipe.reg
try() {
  vandpublic registry check "$@"
  echo "$? for $*"
}
try large.reg
try pipe.reg
try /dev/zero
try /proc/self/mem
try large.reg/below
try ''
try large.reg --codepage 1
try large.reg --json
