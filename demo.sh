#!/bin/sh
# Builds the library and shows the sky above the Earth, for now or for a UTC instant: ./demo.sh 2026-03-20T14:46:00. The
# picture is build/demo.svg.
set -eu
cd "$(dirname "$0")"
tools/install_missing.sh g++ cmake ninja-build
tests="" # as they are, where something is built
[ -e build/release/CMakeCache.txt ] || tests=-DKITLIB_TESTS=OFF
{
    cmake --preset release $tests
    cmake --build --preset release --target kl_demo
} >build-demo.log 2>&1 || { cat build-demo.log; exit 1; }
rm -f build-demo.log
exec build/release/apps/kl_demo "${1:-now}" build/demo.svg
