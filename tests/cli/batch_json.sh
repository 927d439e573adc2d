#!/bin/sh
# JSON lines: every row is an object, and so is its outcome.
json() { vandpublic batch "$@" --format jsonl; echo "status $?"; }
echo "-- values as the pipe has them"
cat >values.jsonl <<'LINES'
{"text":"a\u00e9\ud83d\ude00\"\\\n"}
{"text":{"utf16le":"4100"}}
{"text":{"utf16le":"00D8"}}
{"text":null}
{"text":""}
{"text":"\ud800"}
{"text":"a","text":"b"}
{"text":"tail"} {}
{"text":5}

"text"
LINES
json RegExpReplace istr_Pattern=tail istr_RepWith=head --column istr_Source=text <values.jsonl
echo "-- by-reference parameters"
printf '{"digit":"A"}\n{"digit":"G"}\n' >digits.jsonl
json HexToBit --column istr_HexChr=digit --reference rbyt_Bit0=low --reference rbyt_Bit3 <digits.jsonl
json HexToBit --column istr_HexChr=digit --reference rbyt_Bit0=low --drop-input <digits.jsonl
printf '{"data":{"bytes":"0123456789ABCDEF"}}\n{"data":{"bytes":"01","lower":2147483647}}\n{"data":null}\n' |
  json DES 133457799BBCDFF1 iint_SrcLen=8 abyt_Result=:8 --column abyt_Source=data \
    --reference abyt_Result=enciphered --drop-input
echo "-- numbers at the ends of their types"
printf '{"n":%s}\n' 0 1 255 256 -1 1.0 1.5 1e400 '"1"' null >bytes.jsonl
json BitToHex --column ibyt_Bit0=n --drop-input <bytes.jsonl
printf '{"n":%s}\n' 32767 32768 -32768 -32769 99999999999999999999 | json FstrPadLeft x --column iint_PadToLen=n --result text |
  cut -c1-60
echo "-- the outcome of one run as the input of the next"
printf '{"code":"FF","result":1,"error":"old","n":1}\n{"code":"GG","result":1}\n' |
  json HexToDec --column istr_HexNumber=code
printf '{"code":"FF"}\n{"code":"GG"}\n' | json HexToDec --column istr_HexNumber=code --result code
printf '{"digit":"G","result":"kept","low":1}\n' | json HexToBit --column istr_HexChr=digit --reference rbyt_Bit0=low
