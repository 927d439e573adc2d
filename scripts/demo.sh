#!/bin/sh
# Installs what is missing, builds, and shows the component at work: a C++ client's calls with
# their results, an error caught, and the entries that the error log then holds.
set -eu
cd "$(dirname "$0")/.."
scripts/setup.sh build demo
cmake --preset demo >/dev/null
cmake --build --preset demo --target demo -- --quiet
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/LOG"
build/demo/bin/demo "$folder"
