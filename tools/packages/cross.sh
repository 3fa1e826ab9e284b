#!/bin/sh
# The library for 64-bit Arm, under an emulator: the digest of a fixed set of calls is that of x86-64. And a machine whose
# long has 32 bits is refused when configuring.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build g++-aarch64-linux-gnu qemu-user libc6-dev-i386
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

narrow=$(mktemp -d)
trap 'rm -rf "$narrow"' EXIT
if cmake -S . -B "$narrow" -G Ninja -DCMAKE_C_FLAGS=-m32 -DCMAKE_CXX_FLAGS=-m32 -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY \
    -DKITLIB_TESTS=OFF >"$narrow/log" 2>&1; then
    echo "a long of 32 bits is taken" >&2
    exit 1
fi
grep -q "needs a long of 8 bytes; here it has '4'" "$narrow/log"
echo "a long of 32 bits is refused"
