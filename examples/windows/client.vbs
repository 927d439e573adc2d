' The component from a script: cscript //nologo client.vbs
Set component = CreateObject("Public_Module.clsPublic")
component.DebugMode = 0                                  ' neither log nor message boxes
WScript.Echo component.FstrDES3("0123456789ABCDEFFEDCBA9876543210", "0123456789ABCDE7")

On Error Resume Next
number = component.HexToDec("no number")
WScript.Echo Hex(Err.Number), Err.Source, Err.Description
