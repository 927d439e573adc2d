#!/bin/sh
# Rewrites the files that follow from the member table.
set -eu
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target vandpublic-generate >/dev/null
build/release/bin/vandpublic-generate .
