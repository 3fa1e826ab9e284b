#!/bin/sh
# Fuzzes every target for the given seconds (default 20), starting from the corpus that the repository keeps.
# New inputs stay below build/fuzz/corpus; a crash stops the run and leaves its input there.
set -eu
cd "$(dirname "$0")/.."
seconds="${1:-20}"
tools/install_missing.sh clang libclang-rt-dev cmake ninja-build
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
for target in time clocks sky rotations registry; do
    found="build/fuzz/corpus/$target"
    mkdir -p "$found"
    echo "== $target: $seconds s"
    status=0
    (cd build/fuzz/corpus && UBSAN_OPTIONS=print_stacktrace=1 ../fuzz/${target}_fuzz -max_total_time="$seconds" \
        -max_len=1024 -timeout=10 -print_final_stats=1 -close_fd_mask=1 "$target" "../../../fuzz/corpus/$target" \
        >"$target.log" 2>&1) || status=$?
    tail -n 12 "build/fuzz/corpus/$target.log"
    [ "$status" -eq 0 ] || { echo "$target: failed, its input is in build/fuzz/corpus" >&2; exit 1; }
done
