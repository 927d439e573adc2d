#!/bin/sh
# Inputs, outputs and messages of a batch that cannot be used, or only in part.
batch() { vandpublic batch HexToDec --column istr_HexNumber=code "$@"; }
lines() { vandpublic batch HexToDec --column istr_HexNumber=1 --no-header "$@"; }
json() { vandpublic batch HexToDec --column istr_HexNumber=code --format jsonl; }
printf 'code\nFF\nGG\n' >in.csv

echo "-- inputs"
batch <.
echo "a folder: $?"
lines <.
echo "a folder, without a header: $?"
batch <&-
echo "closed: $?"
batch --input .
echo "a folder by name: $?"
batch --input - <in.csv 2>/dev/null
echo "standard input by name: $?"
printf '\357\273\277code\nFF' | batch
echo "a byte-order mark, no line end: $?"

echo "-- rows and headers of more than 1 MB"
head -c 1100000 /dev/zero | tr '\0' 1 >long
{ cat long; printf '\nFF\n'; } >long.csv
lines --input long.csv
echo "status $?"
{ printf 'code,other\n'; cat long; printf '\nFF,1\n'; } | batch
echo "status $?"
{ printf '{"code":"'; cat long; printf '"}\n{"code":"FF"}\n'; } | json
echo "status $?"
batch --input long.csv
echo "status $?"
timeout 20 vandpublic batch HexToDec --column istr_HexNumber=code </dev/zero
echo "an endless header: $?"

echo "-- outputs"
batch --output no/such/folder/out.csv <in.csv
echo "no folder: $?"
batch --output . --resume <in.csv
echo "a folder: $?"
batch --output . <in.csv
echo "a folder, anew: $?"
batch <in.csv >/dev/full
echo "full at the header: $?"
lines <in.csv >/dev/full 2>/dev/null
echo "full at the rows: $?"
batch <in.csv >&-
echo "closed: $?"
(
  (while echo FF; do :; done) 2>/dev/null | {
    lines --jobs 4
    echo "reader gone: $?" >&2
  }
) | head -n 1

echo "-- outputs that have no end to go on at"
timeout 20 vandpublic batch HexToDec --column istr_HexNumber=code --output /dev/full --resume <in.csv
echo "an endless device: $?"
batch --output /dev/null --resume <in.csv
echo "a device: $?"
mkfifo pipe
batch --output pipe --resume <in.csv
echo "a pipe: $?"
batch --output /proc/self/mem --resume <in.csv
echo "a file that cannot be read: $?"

echo "-- messages"
lines --output out.csv <in.csv 2>&-
echo "closed: $?"
cat out.csv
lines <in.csv 2>/dev/full
echo "full: $?"
rm out.csv
lines --output out.csv <in.csv >&- 2>&-
echo "output and messages closed, a file instead: $?"
cat out.csv
