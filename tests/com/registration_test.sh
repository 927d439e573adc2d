#!/usr/bin/env bash
# Registers and unregisters the DLL, for the machine and for the user, and compares the registry:
# what is added must be as registry_entries.txt says, and nothing may be left afterwards. Leaves the
# DLL registered for the machine, for the tests that create objects by name.
#
#   registration_test.sh x64|x86 DLL WORK_FOLDER MANIFEST_CLIENT TOOL
set -eu
here=$(cd "$(dirname "$0")" && pwd)
wine=$here/../../scripts/wine.sh
arch=$1 dll=$2 work=$3 client=$4 tool=$5
mkdir -p "$work"

run() { "$wine" "$arch" "$@" >/dev/null; }

# save NAME: all classes, of the machine and the user, as text.
save() {
  for root in HKLM HKCU; do
    rm -f "$work/$root.reg"
    run reg export "$root\\Software\\Classes" "$work/$root.reg" || : >"$work/$root.reg"
    if [ -s "$work/$root.reg" ]; then iconv -f UTF-16 -t UTF-8 "$work/$root.reg"; fi
  done | tr -d '\r' >"$work/$1.txt"
}

same() {
  cmp -s "$work/$1.txt" "$work/$2.txt" && return
  echo "$3 leaves the registry changed:"
  diff "$work/$1.txt" "$work/$2.txt" | head -n 40
  exit 1
}

# What registering added, with what differs from tree to tree left out. The library's key is one
# key that stands in both views of a 64-bit system; it is looked at once. A user may have had no
# classes of a kind before.
added() {
  local folder
  folder=$(sed -n 's/^"ThreadingModel".*//; s/^@="\(.*\)\\\\VandPublic\.dll"$/\1/p' "$work/after.txt" | head -n 1)
  diff "$work/before.txt" "$work/after.txt" | sed -n 's/^> //p' | grep -v '^$' |
    FOLDER=$folder awk '{ while ((at = index($0, ENVIRON["FOLDER"])) > 0 && ENVIRON["FOLDER"] != "")
           $0 = substr($0, 1, at - 1) "<folder>" substr($0, at + length(ENVIRON["FOLDER"])); print }' |
    sed 's/\\0\\win\(32\|64\)\]/\\0\\<platform>]/; s/\\Typelib\\/\\TypeLib\\/
      /\\Classes\\\(CLSID\|Interface\|TypeLib\)\]$/d' |
    awk '/^\[/ { skip = /Wow6432Node/ } !skip'
}

check_added() {
  added >"$work/added.txt"
  if ! diff <(sed "s/<root>/$1/" "$here/registry_entries.txt") "$work/added.txt"; then
    echo "registering for $1 does not write what tests/com/registry_entries.txt says"
    exit 1
  fi
}

# A user's own classes make this key, which Windows always has.
run reg add 'HKCU\Software\Classes' /f
run regsvr32 /s /u "$dll" || true
run regsvr32 /s /u /n /i:user "$dll" || true

# Not registered: the client that has manifests works all the same, and the tool tells the cause.
if ! "$wine" "$arch" "$client" | tr -d '\r' | diff "$here/manifest_client.txt" -; then
  echo "the client with manifests does not work"
  exit 1
fi
check_tool() {
  local status
  "$wine" "$arch" "$tool" com-check | tr -d '\r' >"$work/com-check.txt"
  status=${PIPESTATUS[0]}
  if [ "$status" -ne "$1" ] || ! grep -q "$2" "$work/com-check.txt"; then
    echo "com-check should say '$2' and end with $1, not $status:"
    cat "$work/com-check.txt"
    exit 1
  fi
}
check_tool 1 'VandPublic is not registered at all'
check_tool 1 'class not registered (0x80040154)'

save before
run regsvr32 /s "$dll"
save after
check_added HKEY_LOCAL_MACHINE
check_tool 0 'creating an object in this .* program: done'
run regsvr32 /s /u "$dll"
save end
same before end "regsvr32 and regsvr32 /u"

run regsvr32 /s /n /i:user "$dll"
save after
check_added HKEY_CURRENT_USER
run regsvr32 /s /u /n /i:user "$dll"
save end
same before end "regsvr32 /n /i:user and its counterpart"

# Once more changes nothing, and nothing is left after one removal.
run regsvr32 /s "$dll"
run regsvr32 /s "$dll"
run regsvr32 /s /u "$dll"
save end
same before end "registering twice"

if run regsvr32 /s /n /i:other "$dll"; then
  echo "an unknown text for /i: is accepted"
  exit 1
fi
save end
same before end "a refused DllInstall"

# A DLL that has gone, one of the wrong kind, and a name that stands for something else.
class=$(sed -n 's/.*kClassId = "\(.*\)".*/\1/p' "$here/../../src/members/identity.h")
server="HKCU\\Software\\Classes\\CLSID\\{$class}\\InprocServer32"
run reg add "$server" /ve /d 'C:\gone\VandPublic.dll' /f
check_tool 1 'the file is missing: C:.gone.VandPublic.dll'
run reg add "$server" /ve /d 'C:\windows\win.ini' /f
check_tool 1 'the file is no DLL for this processor'
run reg delete "HKCU\\Software\\Classes\\CLSID" /f
run regsvr32 /s "$dll"
run reg add 'HKCU\Software\Classes\VandPublic.clsPublic\CLSID' /ve /d '{00000000-0000-0000-0000-000000000001}' /f
check_tool 1 'VandPublic.clsPublic: the name stands for another class'
run reg delete 'HKCU\Software\Classes\VandPublic.clsPublic' /f
run regsvr32 /s /u "$dll"
save end
same before end "the tests of com-check"

run regsvr32 /s "$dll"
echo "registered and removed; $(grep -c . "$here/registry_entries.txt") lines each time"
