#!/usr/bin/env bash
# Builds the Windows component for both kinds of programs and lays out what an administrator needs:
#
#   dist/windows/README.md
#   dist/windows/{x64,x86}/VandPublic.dll VandPublic.tlb VandPublic.manifest vandpublic.exe
#
# Needs the packages of the group "windows" (scripts/setup.sh build windows).
set -eu
cd "$(dirname "$0")/.."
dist=dist/windows
rm -rf "$dist"
mkdir -p "$dist"
for arch in x64 x86; do
  cmake --preset "windows-$arch" >/dev/null
  cmake --build --preset "windows-$arch" --target VandPublic vandpublic-cli >/dev/null
  mkdir -p "$dist/$arch"
  cp "build/windows-$arch/bin/VandPublic.dll" "build/windows-$arch/bin/VandPublic.manifest" \
    "build/windows-$arch/bin/vandpublic.exe" "build/windows-$arch/generated/com/VandPublic.tlb" \
    "$dist/$arch"
done
version=$(sed -n 's/^project(VandPublic VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
sed "s/@VERSION@/$version/g" packaging/windows/README.md.in >"$dist/README.md"
find "$dist" -type f -printf '%10s  %p\n' | sort -k 2
