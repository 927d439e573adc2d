#!/bin/sh
# Every type of value in and out, numbers at the edges of their types, escapes, and lines that are
# no requests.
echo "-- variables"
{
  while read -r type value; do
    printf '{"let":"v","type":"%s","value":%s}\n' "$type" "$value"
    printf '{"show":"v"}\n{"let":"v","type":"String","value":"another"}\n'
  done <<'VALUES'
String "a\u00e9\ud83d\ude00\"\\\/\b\f\n\r\t\u0000"
String null
String {"utf16le":"41004"}
String {"utf16le":"410042"}
String {"utf16le":"3DD8"}
Integer 32767
Integer -32769
Long -2147483648
Long 2147483648
Long 2.0
Long 2.5
Byte 255
Byte -1e300
Byte -0.0
Boolean true
Boolean 1
ByteArray {"bytes":"0aFf","lower":-2}
ByteArray {"bytes":"0A","bounds":[[5,5],[-1,-1]]}
ByteArray {"bytes":"0A","bounds":[[5,5],[-1]]}
ByteArray {"bytes":"0A","bounds":5}
ByteArray null
Variant {"vt":0}
Variant {"vt":1,"value":null}
Variant {"vt":2,"value":-32768}
Variant {"vt":3,"value":7}
Variant {"vt":4,"value":0.1}
Variant {"vt":4,"value":1e39}
Variant {"vt":5,"value":1.7976931348623157e308}
Variant {"vt":5,"value":"1"}
Variant {"vt":6,"value":"-922337203685477.5808"}
Variant {"vt":6,"value":"922337203685477.5808"}
Variant {"vt":6,"value":".5"}
Variant {"vt":6,"value":"1a.5"}
Variant {"vt":7,"value":2.25}
Variant {"vt":8,"value":"x"}
Variant {"vt":9,"value":null}
Variant {"vt":9,"value":5}
Variant {"vt":11,"value":false}
Variant {"vt":14,"value":"-7922816251426433759354395033.5"}
Variant {"vt":14,"value":"79228162514264337593543950336"}
Variant {"vt":17,"value":256}
Variant {"vt":8195,"value":{"bounds":[[1,3],[0,0]]}}
Variant {"vt":8195,"value":{"bounds":[]}}
Variant {"vt":8195,"value":{"bounds":5}}
Variant {"vt":8195,"value":5}
Variant {"vt":8193,"value":null}
Variant {"vt":8210,"value":null}
Variant {"vt":8207,"value":null}
Variant {"vt":32768,"value":null}
Variant {"var":"v"}
Variant {"missing":true}
VALUES
} | vandpublic pipe | grep -vxF '{"result":null}'
echo "-- arguments"
vandpublic pipe <<'LINES'
{"member":"IsHex","args":[{"var":5}]}
{"member":"IsHex","args":[{"missing":1}]}
{"member":"IsHex","args":[{"missing":false}]}
{"member":"IsHex","args":[{"variable":"x"}]}
{"member":"IsHex","args":[null]}
{"member":"IsHex","args":{}}
{"member":"IsHex","args":"1F"}
{"member":"DebugMode"}
{"get":"DebugMode","args":[]}
{"get":"DebugMode","value":1}
{"set":"DebugMode","value":"DEBUG_MODE_LOUD"}
{"set":"DebugMode","value":{"missing":true}}
{"set":"DebugMode","value":{"var":"new"}}
{"set":"LogFilePath","value":{"var":"new"}}
{"show":"new"}
{"show":"nev"}
{"show":"New"}
{"show":5}
{"drop":null}
{"let":"x"}
{"let":"x","type":"Object"}
{"new":"clsPublic","as":"c"}
{"new":"Public_Module.clsPublic","as":"c"}
{"on":"c","member":"ArraySize","args":[{"var":"c"}]}
{"on":"c","set":"DebugMode","value":{"var":"c"}}
{"on":"c","show":"c"}
{"on":5,"get":"DebugMode"}
{"on":"d","get":"DebugMode"}
{"on":"new","get":"DebugMode"}
LINES
echo "-- lines"
{
  printf '\357\273\277{"id":1,"get":"DebugMode"}\n'
  printf '{"id":[1,\r 2],"get":"DebugMode"}\r\n'
  printf '{"id":\t"tab" ,"get":"DebugMode"}\n'
  printf '{"id":1,"id":2,"get":"DebugMode"}\n'
  printf '{"id":"\377","get":"DebugMode"}\n'
  printf '{"id":1,"get":"\\ud800"}\n'
  printf '{"id":1,"get":"Debug\000Mode"}\n'
  printf '{"id":1,"get":"DebugMode"}{"id":2}\n'
  printf '{"id":1,"get":"DebugMode",}\n'
  printf '[{"get":"DebugMode"}]\n"get"\n5\nnull\n   \n\r\n'
  printf "{'get':'DebugMode'}\n"
  printf '{"id":1e400,"get":"DebugMode"}\n'
  head -c 200 /dev/zero | tr '\0' '['
  printf '\n{"get":"'
  head -c 200 /dev/zero | tr '\0' x
  printf '"}\n{"get":"DebugMode"'
} | vandpublic pipe
echo "status $?"
