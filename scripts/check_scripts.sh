#!/bin/sh
# Runs shellcheck over every script of the tree.
set -eu
cd "$(dirname "$0")/.."
git ls-files -co --exclude-standard '*.sh' '.ci/run' | xargs shellcheck
