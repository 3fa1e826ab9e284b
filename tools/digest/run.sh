#!/bin/sh
# Builds the library with both compilers, without and with optimisation, and compares the bits of a fixed set of calls.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ clang cmake ninja-build
first=""
for compiler in g++ clang++; do
    for level in -O0 -O3; do
        tree="build/digest$level-$compiler"
        cmake -S . -B "$tree" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$level" \
            -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF -DKITLIB_DIGEST=ON >/dev/null
        cmake --build "$tree" --target digest >/dev/null
        "$tree/tools/digest/digest" >"$tree/digest.txt"
        [ -n "$first" ] || first="$tree/digest.txt"
        if cmp -s "$first" "$tree/digest.txt"; then
            echo "$compiler $level: same bits"
        else
            echo "$compiler $level: differs from $first"
            diff "$first" "$tree/digest.txt"
            exit 1
        fi
    done
done
cat "$first"
