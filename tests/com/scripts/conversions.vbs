' Hexadecimal and bit conversions, message format, byte arrays, dumps and exclusive or.
Option Explicit
Dim o, a, b, bits(7), i, text, position, description
Set o = CreateObject("Public_Module.clsPublic")
o.DebugMode = 0

WScript.Echo "IsHex", o.IsHex("1F"), o.IsHex("1G"), o.IsHex("1f")
WScript.Echo "HexToDec", o.HexToDec("7FFFFFFF"), o.HexToDec(" ff ")
WScript.Echo "BitToHex", o.BitToHex(1, 0, 1, 1), o.BitToHex, o.BitToHex(, , , 1)
o.HexToBit "A", bits(0), bits(1), bits(2), bits(3)
WScript.Echo "HexToBit", bits(0), bits(1), bits(2), bits(3), TypeName(bits(3))

WScript.Echo "MsgFmtTextToHex", o.MsgFmtTextToHex("AB"), o.MsgFmtTextToHex("AB", True)
WScript.Echo "MsgFmtTextToDec", o.MsgFmtTextToDec("AB")
o.MsgFmtTextToBit "A", bits(0), bits(1), bits(2), bits(3), bits(4), bits(5), bits(6), bits(7)
text = ""
For i = 0 To 7
  text = text & bits(i)
Next
WScript.Echo "MsgFmtTextToBit", text
WScript.Echo "BitToMsgFmtText", Asc(o.BitToMsgFmtText(1, 0, 0, 0, 0, 0, 1))
WScript.Echo "DecToMsgFmtText", o.DecToMsgFmtText(16706), Len(o.DecToMsgFmtText(16706, 4))
WScript.Echo "HexToMsgFmtText", o.HexToMsgFmtText("4142"), Len(o.HexToMsgFmtText("41424344", 0, True, "0", True))

WScript.Echo "FillByteArrWithHexStr", o.FillByteArrWithHexStr(a, "0A0B0C"), VarType(a)
WScript.Echo "DispBytes", "[" & o.DispBytes(a) & "]", "[" & o.DispBytes(a, 2, 1, False) & "]"
WScript.Echo "ArraySize", o.ArraySize(a), o.ArraySize(Array(1, "x", Null, 4)), o.ArraySize(5)
b = Array(0, 0, 0, 0, 0)
position = 1
WScript.Echo "CpyByteArray", o.CpyByteArray(b, a, 2, position, 1), b(0), b(1), b(2), b(3), position
WScript.Echo "FstrHexStrToByte", VarType(o.FstrHexStrToByte("1", 3)), "[" & o.DispBytes(o.FstrHexStrToByte("1", 3)) & "]"
WScript.Echo "FstrVbStrToHexStr", o.FstrVbStrToHexStr("AZ" & Chr(128))
WScript.Echo "FstrPackTable", o.FstrVbStrToHexStr(o.FstrPackTable("0102", "07"))
WScript.Echo "HexXor", "[" & o.HexXor("0F0F", "FFFF") & "]"
description = "unchanged"
On Error Resume Next
text = o.FstrVbStrToHexStr("x", description)
WScript.Echo "description", Err.Number, description
WScript.Echo "end"
