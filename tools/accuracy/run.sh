#!/bin/sh
# Compares the library with independent ones and writes docs/accuracy.md.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build liberfa-dev
cmake --preset release -DKITLIB_ACCURACY=ON >/dev/null
cmake --build --preset release --target accuracy >/dev/null
build/release/tools/accuracy/accuracy >docs/accuracy.md
tail -n +1 docs/accuracy.md
