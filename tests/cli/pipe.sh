#!/bin/sh
# A conversation: state stays from line to line, and no line ends it.
{
  cat <<'LINES'
{"id":1,"member":"IsHex","args":["1F"]}
{"id":1.50,"member":"hextobit","args":{"ISTR_HEXCHR":"A"}}
{"id":"log","set":"LogFilePath","value":"."}
{"id":null,"get":"LogFileFullName"}
{"member":"HexToBit","args":["G",{"var":"b"}]}
{"show":"b"}
{"let":"a","type":"ByteArray","value":{"bytes":"01020304","lower":1}}
{"member":"CpyByteArray","args":[{"var":"a"},{"var":"a"},2,2,1]}
{"show":"a"}

{"id":[1, 2],"member":"Foo"}
not JSON
{"set":"DebugMode","value":2}
{"member":"HexToDec","args":["G"]}
LINES
  printf '{"member":"IsHex","args":["\377"]}\n'
  printf '{"id":"last","member":"IsHex","args":["1"]}'
} | vandpublic pipe
echo "status $?"
cut -c21- ERROR.log | tr '\r' '$'
