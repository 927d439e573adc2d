#!/bin/sh
# A failing member: one line on standard error, status 1.
vandpublic call HexToDec G
echo "status $?"
vandpublic call HexToBit G 7 --refs
echo "status $?"
vandpublic call CpyByteArray :1 0102 2
echo "status $?"
vandpublic call HexToDec 80000000 --json
echo "status $?"
vandpublic call LogError app module function '{"Number":5}'
echo "status $?"
vandpublic call HexToDec G
