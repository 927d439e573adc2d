#!/bin/sh
# Going on with an output: of all formats, and not with a file that is something else.
printf 'code,n\nFF,"a\nb"\n10,2\n' >in.csv
sed 1d in.csv >rows.csv
printf '{"c":"FF"}\n{"c":"7"}\n' >in.jsonl

# resumed NAME OPTION...: a whole run, then one from each number of bytes that a run may have left.
resumed() {
  name=$1
  shift
  vandpublic batch HexToDec "$@" --output whole --jobs 2 2>/dev/null
  size=$(wc -c <whole)
  cut=0
  same=0
  while [ "$cut" -le "$size" ]; do
    head -c "$cut" whole >part
    vandpublic batch HexToDec "$@" --output part --resume 2>/dev/null
    cmp part whole && same=$((same + 1))
    cut=$((cut + 1))
  done
  echo "$name: $same of $((size + 1)) are the same"
  rm whole part
}
resumed "CSV" --column istr_HexNumber=code --input in.csv
resumed "without a header" --column istr_HexNumber=1 --no-header --input rows.csv
resumed "JSON lines" --column istr_HexNumber=c --format jsonl --input in.jsonl

echo "-- a file of something else stays as it is"
try() {
  cp "$1" before
  vandpublic batch HexToDec --column istr_HexNumber=code --input in.csv --output "$1" --resume
  echo "status $?"
  cmp before "$1"
}
printf 'other,columns\n1,2\nno line end' >other.csv
try other.csv
printf 'just a note' >note.txt
try note.txt
head -c 200000 /dev/zero >zeros
try zeros
