#!/bin/sh
# Values from files and standard input, and texts that look like something else.
printf '133457799BBCDFF1\n' >key
printf '01 23 45 67\r\n89 AB CD EF\r\n' >data
vandpublic call DES @key abyt_Source=@data 8 :8 --refs
printf 'ff' | vandpublic call HexToDec @-
printf 'ff\n' | vandpublic call HexToDec istr_HexNumber=@-
vandpublic call HexToDec @- </dev/null
printf 'x' | vandpublic call FstrHexStrToByte @- 4 True rstr_ErrDesc=@-
echo "status $?"
vandpublic call FstrVbStrToHexStr @@key
vandpublic call FstrVbStrToHexStr '[a,b]'
vandpublic call FstrVbStrToHexStr a=b
vandpublic call FstrVbStrToHexStr istr_Source=istr_Source=x
vandpublic call FstrVbStrToHexStr pipe
vandpublic call FstrVbStrToHexStr ++
vandpublic call FstrVbStrToHexStr -- --json
vandpublic call FstrVbStrToHexStr -5
vandpublic call FstrVbStrToHexStr 'a\nb'
vandpublic call FstrVbStrToHexStr ''
