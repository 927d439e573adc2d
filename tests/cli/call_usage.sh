#!/bin/sh
# A wrong command line: a message, status 2.
try() {
  vandpublic "$@"
  echo "$? for $*" 
}
try
try cal IsHex 1F
try call
try call IsHx 1F
try call IsHex
try call IsHex 1 2
try call IsHex istr_HexNumber=1 istr_hexnumber=2
try call BitToHex one
try call BitToHex 256
try call DES 0 0 8 :8
try call HexToBit A rbyt_Bit0=
try call FstrHexStrToByte ABC 4 Maybe
try call IsHex -x
try call IsHex --jsn
try call IsHex 1F --codepage
try call IsHex 1F --codepage 65001
try call IsHex 1F --codepage x
try call IsHex 1F --debug-mode LOUD
try call IsHex "$(printf '\377')"
try call IsHex @no-such-file
try call IsHex @.
try call LogFilePath x
try pipe x
try pipe --refs
try members IsHx
try --version=1
