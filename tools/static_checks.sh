#!/bin/sh
# clang-tidy over the sources of the library, cppcheck over the same; both clean or this fails.
set -eu
# Suppressed: an error record is three kilobytes, its arrays stay unset until they are used; and the rows of a geoid kernel
# and the sums of a parallel, which are set before they are read.
cd "$(dirname "$0")/.."
tools/install_missing.sh clang-tidy cppcheck cmake ninja-build clang
cmake --preset clang -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF >/dev/null
cmake --build --preset clang --target kitlib_tables >/dev/null
git ls-files 'src/*.cpp' | xargs -P "$(nproc)" -n 4 clang-tidy -p build/clang --quiet --warnings-as-errors='*' 2>/dev/null
cppcheck --quiet --std=c++17 --language=c++ --enable=warning,performance,portability --inline-suppr --error-exitcode=1 \
    --suppress=missingInclude --suppress=uninitMemberVar:src/errors/activation.h \
    --suppress=uninitDerivedMemberVar:src/errors/activation.h --suppress=uninitvar:src/earth/geoid_kernel.h \
    --suppress=uninitMemberVar:src/earth/geoid.cpp -I include -I src -j "$(nproc)" $(git ls-files 'src/*.cpp')
echo "clang-tidy and cppcheck: clean"
