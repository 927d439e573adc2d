#!/bin/sh
# Installs the release build into a folder of its own and builds an outside project against it,
# once through the CMake package and once through pkg-config; then compares the list of installed
# files with the one recorded.
set -eu
cd "$(dirname "$0")"
here=$PWD
cd ../..
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/LOG"

cmake --install build/release --prefix "$work/root" >/dev/null
(cd "$work/root" && find . -type f -o -type l | sed 's|^\./||; s|^lib/[^/]*-linux-gnu[^/]*/|lib/|' | sort) >"$work/files"
diff "$here/installed_files.txt" "$work/files"

cmake -S "$here/consumer" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$work/root" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer_shared" "$work"
"$work/cmake/consumer_static" "$work"

library_folder=$(dirname "$(find "$work/root" -name libvandpublic.so)")
export PKG_CONFIG_PATH="$library_folder/pkgconfig"
# shellcheck disable=SC2046  # flags are words
c++ -std=c++20 "$here/consumer/main.cpp" -o "$work/consumer" \
  $(pkg-config --define-variable=prefix="$work/root" --cflags --libs vandpublic) \
  -Wl,-rpath,"$library_folder"
"$work/consumer" "$work"
