#!/bin/sh
# Builds the library and runs all tests. `./check.sh --all` adds the clang and sanitizer builds,
# `./check.sh --sanitize` is the address and undefined-behaviour sanitizers alone;
# `./check.sh --coverage` measures instead which lines and branches of src/ the tests reach.
set -eu
cd "$(dirname "$0")"
tools/install_missing.sh g++ cmake ninja-build libgtest-dev liberfa-dev binutils python3-cffi \
    python3-numpy python3-setuptools python3-wheel python3-venv python3-pytest mypy python3-sgp4 python3-matplotlib python3-distributed pkg-config libcli11-dev gfortran ccache

# What was compiled before, in whatever checkout, is not compiled again.
export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}" CCACHE_NOHASHDIR=1


run_preset() {
    echo "== $1"
    cmake --preset "$1" -DKITLIB_TESTS=ON -DKITLIB_APPS=ON -DKITLIB_WERROR=ON >"build-$1.log" 2>&1 || { cat "build-$1.log"; exit 1; }
    cmake --build --preset "$1" >"build-$1.log" 2>&1 || { tail -n 60 "build-$1.log"; exit 1; }
    rm -f "build-$1.log"
    ctest --test-dir "build/$1" --output-on-failure -j "$(nproc)"
}

case "${1:-}" in
"") run_preset release ;;
--all)
    tools/install_missing.sh clang
    for preset in release clang asan tsan; do run_preset "$preset"; done
    ;;
--sanitize) run_preset asan ;;
--coverage)
    tools/install_missing.sh gcovr
    find build/coverage -name '*.gcda' -delete 2>/dev/null || true
    run_preset coverage
    gcovr --root . --filter 'src/' --exclude '.*_tables\.h' --exclude-throw-branches --exclude-unreachable-branches \
        --branches --txt build/coverage/coverage.txt --fail-under-line 97 --fail-under-branch 90 --print-summary build/coverage
    ;;
*) echo "usage: ./check.sh [--all|--sanitize|--coverage]" >&2; exit 2 ;;
esac
