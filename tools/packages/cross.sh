#!/bin/sh
# The library for 64-bit Arm, under an emulator: the digest of a fixed set of calls is that of x86-64.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build g++-aarch64-linux-gnu qemu-user
for machine in x86-64 aarch64; do
    toolchain=""
    [ $machine = x86-64 ] || toolchain="--toolchain cmake/aarch64-linux-gnu.cmake"
    # shellcheck disable=SC2086
    cmake -S . -B build/$machine -G Ninja $toolchain -DCMAKE_BUILD_TYPE=Release -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF \
        -DKITLIB_DIGEST=ON -DKITLIB_WERROR=ON >build/cross.log 2>&1 || { cat build/cross.log >&2; exit 1; }
    cmake --build build/$machine --target digest >build/cross.log 2>&1 || { tail -n 40 build/cross.log >&2; exit 1; }
done
build/x86-64/tools/digest/digest >build/x86-64.digest
qemu-aarch64 -L /usr/aarch64-linux-gnu build/aarch64/tools/digest/digest >build/aarch64.digest
diff build/x86-64.digest build/aarch64.digest && echo "aarch64 gives the bits of x86-64"
