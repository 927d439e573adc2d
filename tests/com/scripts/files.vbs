' Text files, settings, names of the system, and the error log, in the folder that is given.
Option Explicit
Dim o, folder, path, fso, log, text
folder = WScript.Arguments(0)
Set fso = CreateObject("Scripting.FileSystemObject")
Set o = CreateObject("Public_Module.clsPublic")
WScript.Echo "new", o.DebugMode, o.LogFileName, "[" & o.AppPath & "]", LCase(Right(o.LogFilePath, 4))
o.Init folder
WScript.Echo "Init", o.AppPath = folder, o.LogFilePath = folder & "\LOG", o.LogFileFullName = folder & "\LOG\ERROR.log"
o.DebugMode = 0

path = folder & "\text.txt"
o.TextRWWrite path, "first"
WScript.Echo "AppendText", o.AppendText(path, "second")
text = o.TextRWRead(path)
WScript.Echo "TextRWRead", Replace(text, vbCrLf, "|")

o.SaveSettingToIni folder & "\a.ini", "Section", "Key", "value 1"
WScript.Echo "GetSettingFromIni", o.GetSettingFromIni(folder & "\a.ini", "section", "KEY"), o.GetSettingFromIni(folder & "\a.ini", "Section", "None", "default")
text = o.GetSettingFromReg("Software\Microsoft\Windows NT\CurrentVersion", "CurrentVersion")
WScript.Echo "GetSettingFromReg", Len(text) > 0

WScript.Echo "SystemDirectory", LCase(o.SystemDirectory)
WScript.Echo "WindowsDirectory", LCase(o.WindowsDirectory)
WScript.Echo "ComputerName", Len(o.ComputerName) > 0

' The log: nothing without its folder, then a member's entry, then one of our own with Err.
o.DebugMode = 1
On Error Resume Next
text = o.HexToDec("G")
WScript.Echo "no folder", Hex(Err.Number), fso.FolderExists(folder & "\LOG")
fso.CreateFolder folder & "\LOG"
text = o.HexToDec("G")
Err.Clear
Err.Raise 1001, "script", "of the script"
text = ""
o.LogError "App", "Module", "Function", Err, text
WScript.Echo "LogError", text
On Error Goto 0
Set log = fso.OpenTextFile(folder & "\LOG\ERROR.log")
Do Until log.AtEndOfStream
  text = log.ReadLine
  If Len(text) > 20 Then WScript.Echo Mid(text, 21)
Loop
log.Close
WScript.Echo "end"
