#!/bin/sh
# Values at the edges of their types, from files and streams that cannot be used, and results that
# have no plain text.
try() {
  vandpublic call "$@"
  echo "$? for $*" | cut -c1-100
}
try BitToHex 1.0
try BitToHex -1
try BitToHex ''
try FstrPadLeft x -32768
try FstrPadLeft x 32768
try FstrPadLeft x 99999999999999999999
try FstrPadToSpecLen x 4 . 9
try FstrPadToSpecLen x 4 . 2147483648
try FstrPadToSpecLen x 4 . ''
try DispBytes "$(printf ' 0a\t0B\r\n0c ')"
try DispBytes 0A0
try DispBytes :1048577
try DispBytes :x
try DispBytes :2x2
try FstrDisplayMsg 1
try ArraySize 'json:{"vt":8204,"value":{"bounds":[[1,3],[0,-1]]}}' --refs
try ArraySize 'json:{"vt":8204,"value":{"bounds":[[1,3],[0,-1]]}}' --refs --json
try ArraySize 'json:{"vt":8209,"value":null}' --refs
try ArraySize 'json:{"bytes":"01020304","bounds":[[0,1],[3,4]]}' 2 --refs
try ArraySize 'json:{"a":1}'
try ArraySize json:
try ArraySize "json:$(printf '\377')"
try RegExpReplace 😀 ^. ''
try RegExpReplace 😀 ^. '' --json
try OpenConnAsMDB '' x.mdb
try OpenConnAsMDB connection x.mdb
try AppPath --app-path /srv --refs
try AppPath --app-path /srv --json
try AppPath --app-path "$(printf '\377')"
try DebugMode --debug-mode -2147483648
try DebugMode --debug-mode 2147483648
try DebugMode --debug-mode ''
try "$(head -c 200 /dev/zero | tr '\0' x)"
try "$(head -c 200 /dev/zero | tr '\0' '\200')" | tr -d '\200'
try IsHex "$(printf '\357\273\277')"
echo "-- files"
truncate -s 67108865 large
try HexToDec @large
try HexToDec @large/below
try HexToDec @
try HexToDec @/proc/self/mem
try HexToDec @- <.
try HexToDec @- <&-
printf 'ff\r\n' >crlf
try HexToDec @crlf
printf '\377' | try HexToDec @-
echo "-- streams"
vandpublic call HexToDec G 2>&-
echo "messages closed: $?"
vandpublic call HexToDec FF >&- 2>&-
echo "all closed: $?"
vandpublic --help >/dev/full
echo "help: $?"
vandpublic members >/dev/full
echo "members: $?"
