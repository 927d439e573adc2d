' Padding, lengths, null tests, SQL quotes, expressions, stopwatches and typed characters.
Option Explicit
Dim o, length, key
Set o = CreateObject("VandPublic.clsPublic")
o.DebugMode = 0

WScript.Echo "FstrPadToSpecLen", "[" & o.FstrPadToSpecLen("ab", 5) & "]", o.FstrPadToSpecLen("ab", 5, "*", 1)
WScript.Echo "FstrPadLeft", o.FstrPadLeft("ab", 5, "0"), o.FstrPadLeft("abcdef", 3, "0")
WScript.Echo "FstrPadRight", o.FstrPadRight("ab", 5, "0")
WScript.Echo "FstrFmtToSpecLen", "[" & o.FstrFmtToSpecLen("ab", 4) & "]"
WScript.Echo "FstrActualLen", o.FstrActualLen("abc" & Chr(233))
WScript.Echo "FstrLeftByByteLen", o.FstrLeftByByteLen("abcdef", 3, length), length
WScript.Echo "FstrRidOfEmpty", o.FstrRidOfEmpty(" a b  c ")
WScript.Echo "FstrIsNullExt", o.FstrIsNullExt(""), o.FstrIsNullExt("  "), o.FstrIsNullExt("  ", True, False), o.FstrIsNullExt("x")
WScript.Echo "NotNull", TypeName(o.NotNull(Null)), TypeName(o.NotNull(Null, 2)), o.NotNull(Null, 11), o.NotNull("x"), TypeName(o.NotNull(Empty))
WScript.Echo "EncodeStrSQL", o.EncodeStrSQL("O'Hara"), o.DecodeStrSQL("O''Hara")

WScript.Echo "RegExpTest", o.RegExpTest("abc", "B"), o.RegExpTest("abc", "B", True, False), o.RegExpTest("a" & vbLf & "b", "^b", True, True, True)
WScript.Echo "RegExpReplace", o.RegExpReplace("a1b22", "[0-9]+", "#"), o.RegExpReplace("a1b22", "([0-9])", "<$1>", False)

o.EnableTimer
o.EnableTimer 16
o.DispTimerEsp 16
key = 65
o.FilterInput key, 1
WScript.Echo "FilterInput", key
key = 53
o.FilterInput key
WScript.Echo "FilterInput", key
On Error Resume Next
o.EnableTimer 17
WScript.Echo "EnableTimer", Err.Number, Err.Source, Err.Description
WScript.Echo "end"
