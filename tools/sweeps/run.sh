#!/bin/sh
# Every leap second, every millisecond of half a day and every microsecond of two seconds on both sides, every pair of
# scales, there and back: three quarters of an hour on two quiet cores. run.sh MS US looks only at every MS-th
# millisecond and every US-th microsecond.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build
cmake -S . -B build/sweeps -G Ninja -DCMAKE_BUILD_TYPE=Release -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF -DKITLIB_SWEEPS=ON >/dev/null
cmake --build build/sweeps --target sweeps >/dev/null
exec build/sweeps/tools/sweeps/sweeps "$@"
