#!/bin/sh
# The registry file: values through a member, and what is wrong with a file.
printf 'REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Bank]\r\n"Host"="teller-7"\r\n"Limit"=dword:00000040\r\n' >good.reg
printf 'REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\Software\\Bank]\r\n"Host"=teller\r\n"Limit"=dword:xyz\r\n"Port"="7"\r\n' >bad.reg
: >empty.reg
mkdir folder.reg

try() {
  vandpublic "$@"
  echo "$? for $*"
}
try registry check good.reg
try registry check --registry good.reg
try registry check bad.reg
try registry check empty.reg
try registry check folder.reg
try registry check missing.reg
try registry
try registry chek good.reg
try registry check good.reg bad.reg
# A terminating zero stays in the result, as it does on Windows.
vandpublic call GetSettingFromReg 'Software\Bank' Host --registry good.reg | od -c
vandpublic call GetSettingFromReg 'Software\Bank' Port --registry bad.reg | od -c
vandpublic call GetSettingFromReg 'Software\Bank' Limit --registry good.reg | od -c
