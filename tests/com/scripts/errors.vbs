' What a script sees of failures: members' own numbers, plain faults, automation's own.
Option Explicit
Dim o, value
Set o = CreateObject("Public_Module.clsPublic.1")
o.DebugMode = 0

Sub Report(what)
  WScript.Echo what & ":", Err.Number, "[" & Err.Source & "]", "[" & Err.Description & "]", IsNull(Err.Description)
  Err.Clear
End Sub

On Error Resume Next
value = o.HexToDec("G")
Report "rejected"
value = o.HexToDec("80000000")
Report "empty description"
o.EnableTimer 17
Report "plain fault"
o.LogError "a", "b", "c"
Report "no error object"
o.LogError "a", "b", "c", Nothing
Report "unset error object"
o.LogError "a", "b", "c", o
Report "no property Source"
value = o.IsHex()
WScript.Echo "missing", Err.Number <> 0
Err.Clear
value = o.IsHex("1", "2")
WScript.Echo "too many", Err.Number <> 0
Err.Clear
value = o.BitToHex("word")
WScript.Echo "type", Err.Number <> 0
Err.Clear
value = o.NoSuchMember
WScript.Echo "unknown", Err.Number <> 0
Err.Clear
o.LogFileFullName = "x"
WScript.Echo "read-only", Err.Number <> 0
Err.Clear
WScript.Echo "still works", o.HexToDec("10")
WScript.Echo "end"
