#!/bin/sh
# Compares the binary interface with that of a release: abi_diff.sh [TAG or COMMIT], the last tag when none is given.
# Ends with 0 when callers of the release need no new build.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build abigail-tools
tag="${1:-$(git describe --tags --abbrev=0 2>/dev/null || true)}"
if [ -z "$tag" ]; then
    echo "No release is tagged yet. Name a commit instead: $0 COMMIT, for example $0 HEAD~10" >&2
    exit 2
fi
git rev-parse --quiet --verify "$tag^{commit}" >/dev/null || { echo "$tag is no tag and no commit" >&2; exit 2; }
there="build/abi"
rm -rf "$there" && mkdir -p "$there/source"
git archive "$tag" | tar -x -C "$there/source"
for side in "$there/source" .; do
    tree="$there/$([ "$side" = . ] && echo now || echo then)"
    cmake -S "$side" -B "$tree" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF >/dev/null
    cmake --build "$tree" --target KitLib >/dev/null
done
abidiff --headers-dir1 "$there/source/include" --headers-dir2 include "$there/then/libKitLib.so" "$there/now/libKitLib.so"
echo "abidiff: callers of $tag need no new build"
