' DES and its relatives on arrays that the script makes itself, and their forms for texts.
Option Explicit
Dim o, i, key(7), data(7), result(7), back(7), key16(15), mac(7), zero(7), derived(15), table(1, 15), text, done
Set o = CreateObject("Public_Module.clsPublic")
o.DebugMode = 0

Function Shown(bytes)
  Dim j, shownText
  For j = 0 To UBound(bytes)
    shownText = shownText & Right("0" & Hex(bytes(j)), 2)
  Next
  Shown = shownText
End Function

Sub Fill(bytes, digits)
  Dim j
  For j = 0 To UBound(bytes)
    bytes(j) = CInt("&H" & Mid(digits, 2 * j + 1, 2))
  Next
End Sub

Fill key, "133457799BBCDFF1"
Fill data, "0123456789ABCDEF"
Fill zero, "0000000000000000"
Fill key16, "0123456789ABCDEFFEDCBA9876543210"
WScript.Echo "DES", o.DES(key, data, 8, result), Shown(result)
WScript.Echo "UDES", o.UDES(key, result, 8, back), Shown(back)
WScript.Echo "DES3", o.DES3(key16, data, 8, result), Shown(result)
WScript.Echo "UDES3", o.UDES3(key16, result, 8, back), Shown(back)
WScript.Echo "MAC", o.MAC(key, data, 8, zero, mac), Shown(mac)
WScript.Echo "TMAC", o.TMAC(key16, data, 8, zero, mac), Shown(mac)
WScript.Echo "DiversifyKey", o.DiversifyKey(key16, data, derived), Shown(derived)
WScript.Echo "in place", o.DES(key, data, 8, data), Shown(data)
WScript.Echo "GenOrigalityKey", o.GenOrigalityKey(key16, 2, table), TypeName(table(0, 0)), table(0, 0) = table(1, 0)
Dim seed
WScript.Echo "RetrieveSeed", o.RetrieveSeed(seed, 4), o.ArraySize(seed)

WScript.Echo "FstrDES3", o.FstrDES3("0123456789ABCDEFFEDCBA9876543210", "0123456789ABCDE7")
WScript.Echo "FstrUDES3", o.FstrUDES3("0123456789ABCDEFFEDCBA9876543210", "7F1D0A77826B8AFF")
WScript.Echo "FstrDiversifyKey", o.FstrDiversifyKey("0123456789ABCDEFFEDCBA9876543210", "0123456789ABCDEF")
WScript.Echo "FstrTMAC", o.FstrTMAC("0123456789ABCDEFFEDCBA9876543210", "0123456789ABCDEF", "0000000000000000")
Dim cipher, plain
done = o.SystemEncrypt("0123456789ABCDEFFEDCBA9876543210", "secret", cipher)
WScript.Echo "SystemEncrypt", done, TypeName(cipher), Len(cipher)
done = o.SystemDecrypt("0123456789ABCDEFFEDCBA9876543210", cipher, plain)
WScript.Echo "SystemDecrypt", done, plain
On Error Resume Next
done = o.DES(Array(1, 2), data, 8, result)
WScript.Echo "short key", Hex(Err.Number), Err.Source
Err.Clear
done = o.DES(Array(1, 300), data, 8, result)
WScript.Echo "no byte", Err.Number
WScript.Echo "end"
