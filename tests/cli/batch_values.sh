#!/bin/sh
# Values in the columns of CSV, options of a batch, and arguments that do not fit.
echo "-- values"
printf 'text,length,method\n' >in.csv
printf '%s\n' 'ab,4,LEFTPAD' 'ab,4,2' '"a,""b",6,leftpad' 'ab,32768,1' 'ab,,1' 'ab,4,NOPAD' '' \
  'ab,4,1,more' >>in.csv
printf '\377,4,1\n"\377",4,1\n' >>in.csv
vandpublic batch FstrPadToSpecLen --column istr_Source=text --column iint_PadToLen=length \
  --column enumMethod=method istr_PadWith=. --input in.csv
echo "status $?"
printf '%s\n' 'FF' 'f' '0a 0b' ':2' 'xx' '"' '""""' | vandpublic batch DispBytes --column arr_Bytes=1 --no-header --separator ';'
echo "status $?"
printf 'digit\nA\n' | vandpublic batch HexToBit --column istr_HexChr=digit --reference rbyt_Bit1
printf 'istr_HexNumber\nA\n' | vandpublic batch HexToDec --column ISTR_HEXNUMBER=istr_HexNumber --jobs 256
echo "-- a variant"
printf 'size,n\n:3,json:1\n:3,"json:{""vt"":2,""value"":1}"\n:3,json:{"vt":2,"value":1}\n:3,json:\n' |
  vandpublic batch CpyByteArray abyt_Src=0A iint_DataLen=1 --column abyt_Dest=size \
    --column rvar_DesSub=n --reference abyt_Dest=bytes --reference rvar_DesSub=next
echo "-- a result that UTF-8 cannot hold"
printf 'text\n\360\237\230\200\n' |
  vandpublic batch RegExpReplace istr_Pattern=^. istr_RepWith= --column istr_Source=text --separator '|'

echo "-- a value from standard input, the rows from a file"
printf '1\n2\n' >rows.csv
printf 'F' | vandpublic batch HexXor @- --column istr_Hex2=1 --no-header --input rows.csv

echo "-- wrong command lines"
try() {
  printf '1\n' | vandpublic batch "$@"
  echo "$? for $*"
}
try FstrPadLeft iint_PadToLen=32768 --column istr_Source=c
try FstrPadLeft iint_PadToLen=x --column istr_Source=c
try FstrPadLeft 1 2 3 4 5 6 --column istr_Source=c
try OpenConnAsMDB --column istr_MDBPath=c
try OpenADORecordSet --column adoSelectString=c
try FileToColumn --column DiskFile=c
for separator in '' '"' '
' "$(printf '\r')" ',,'; do
  try IsHex --column istr_HexNumber=1 --no-header "--separator=$separator"
done
try IsHex --column istr_HexNumber=0 --no-header
try IsHex --column istr_HexNumber=-1 --no-header
try IsHex --column istr_HexNumber=1x --no-header
try IsHex --column istr_HexNumber=2147483648 --no-header
try IsHex --column istr_HexNumber=2 --no-header
try IsHex --column =1
try IsHex --column istr_HexNumber --jobs 257
try IsHex --column istr_HexNumber --jobs 1x
try IsHex --column istr_HexNumber --jobs ''
try IsHex --column istr_HexNumber --codepage 1
try IsHex --column istr_HexNumbr
try HexXor @- --column istr_Hex2=1 --no-header
try HexXor @- --column istr_Hex2=1 --no-header --input -
