#!/bin/sh
# Results by type, arguments by position and by name.
vandpublic call IsHex 1F
vandpublic call IsHex ' 1F'
vandpublic call hextodec ff
vandpublic call BitToHex 1 1 0 1
vandpublic call BitToHex ibyt_Bit3=1 IBYT_BIT0=1
vandpublic call FstrHexStrToByte ABC
vandpublic call FstrHexStrToByte ABC 4 False
vandpublic call HexToBit A
vandpublic call HexToBit A --refs
vandpublic call DES 133457799BBCDFF1 '01 23 45 67 89 ab cd ef' 8 :8 --refs
vandpublic call CpyByteArray :4 0102 2 json:1 0 --refs
vandpublic call FstrVbStrToHexStr 'aé'
vandpublic call --json DispBytes 0AFF
