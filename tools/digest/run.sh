#!/bin/sh
# Builds the library with both compilers: without optimisation, with it, and with the vectors of this machine as wide as
# they are (fused multiply-add stays off in all builds, see CMakeLists.txt); and runs the last build with the plain
# instructions of the mathematics library as well. All outputs of a fixed set of calls must have the same bits.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ clang cmake ninja-build
first=""

compare() { # name, file
    [ -n "$first" ] || first="$2"
    if cmp -s "$first" "$2"; then
        echo "$1: same bits"
    else
        echo "$1: differs from $first"
        diff "$first" "$2"
        exit 1
    fi
}

for compiler in g++ clang++; do
    for flags in -O0 -O3 "-O3 -march=native"; do
        tree="build/digest$(echo "$flags" | tr -d ' ')-$compiler"
        cmake -S . -B "$tree" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" \
            -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF -DKITLIB_DIGEST=ON >/dev/null
        cmake --build "$tree" --target digest >"$tree/build.log" || { tail -n 40 "$tree/build.log" >&2; exit 1; }
        "$tree/tools/digest/digest" >"$tree/digest.txt"
        compare "$compiler $flags" "$tree/digest.txt"
    done
done
GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2_Usable,-FMA_Usable,-AVX2,-FMA,-FMA4_Usable "$tree/tools/digest/digest" >"$tree/plain.txt"
compare "libm without AVX2 and FMA" "$tree/plain.txt"
cat "$first"
