#!/bin/sh
# One member for every row.
printf 'id,code\n1,FF\n2,"1G"\n3,7FFFFFFF\n4\n5,"A ""q"""\n6, 10 ' >in.csv
echo "-- CSV"
vandpublic batch HexToDec --column istr_HexNumber=code <in.csv
echo "status $?"
echo "-- new columns only, another name"
vandpublic batch HexToDec --column istr_HexNumber=code --drop-input --result value <in.csv 2>&-
echo "-- fixed arguments and references"
printf 'data\n0123456789ABCDE7\n\nnot hex\n' >data.csv
vandpublic batch DES3 0123456789ABCDEFFEDCBA9876543210 iint_SrcLen=8 abyt_Result=:8 \
  --column abyt_Source=data --reference abyt_Result=enciphered <data.csv
echo "-- no header, tabs"
printf 'a\tO'\''Brien\nb\tx,y\n' | vandpublic batch EncodeStrSQL --column istr_Source=2 --no-header --separator '\t'
echo "-- a quoted result"
printf 'text\n"a;b"\n' | vandpublic batch RegExpReplace istr_Pattern=';' istr_RepWith='"' --column istr_Source=text
echo "-- JSON lines"
printf '{"c":"FF","n":1}\n{"c":7}\nnothing\n{"d":1}\n[1]\n' >in.jsonl
vandpublic batch HexToDec --column istr_HexNumber=c --format jsonl <in.jsonl
echo "status $?"
echo "-- an empty input"
vandpublic batch IsHex --column istr_HexNumber=c </dev/null
echo "status $?"

echo "-- files"
vandpublic batch IsHex --column istr_HexNumber=code --input in.csv --output out.csv 2>&-
cp out.csv whole.csv
vandpublic batch IsHex --column istr_HexNumber=code --input in.csv --output out.csv
echo "status $?: an existing output is kept"
for size in 0 5 20 30 40; do
  head -c $size whole.csv >part.csv
  vandpublic batch IsHex --column istr_HexNumber=code --input in.csv --output part.csv --resume 2>&-
  cmp part.csv whole.csv && echo "resumed after $size bytes"
done
vandpublic batch HexToDec --result x --column istr_HexNumber=code --input in.csv --output part.csv --resume
echo "status $?: other columns"

echo "-- wrong command lines"
try() {
  vandpublic batch "$@" </dev/null
  echo "$? for $*"
}
try
try IsHx --column a=b
try IsHex
try IsHex --column istr_HexNumbr=c
try IsHex FF --column istr_HexNumber=c
try HexXor FF --column istr_Hex1=c --column istr_Hex1=d
try FstrPadLeft --column istr_Source=c
try DebugMode --column x=y
try OpenADORecordSet --column istr_SQL=c
try IsHex --column istr_HexNumber=c --reference istr_HexNumber
try IsHex --column istr_HexNumber=c --format xml
try IsHex --column istr_HexNumber=c --separator ab
try IsHex --column istr_HexNumber=c --jobs 0
try IsHex --column istr_HexNumber=c --resume
try IsHex --column istr_HexNumber=c --input missing.csv
try IsHex --column istr_HexNumber=c --debug-mode LOUD
printf 'a\n1\n' | vandpublic batch IsHex --column istr_HexNumber=b
printf 'a\n1\n' | vandpublic batch IsHex --column istr_HexNumber=b --no-header
