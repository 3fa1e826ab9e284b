#!/bin/sh
# What takes whole builds: programs against the static library and against the library as a part of their project, two
# major versions side by side, the tarball, and the same bytes from two build directories.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build pkg-config
top=$PWD
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
quietly() { "$@" >"$work/log" 2>&1 || { tail -n 40 "$work/log" >&2; exit 1; }; }
library() { # library SOURCE BUILD [OPTION ...]
    source=$1 build=$2
    shift 2
    quietly cmake -S "$source" -B "$build" -G Ninja -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF "$@"
    quietly cmake --build "$build"
}

library . "$work/shared"
library . "$work/a/static" -DBUILD_SHARED_LIBS=OFF
tests/consumers/installed.sh "$work/shared"
tests/consumers/installed.sh "$work/a/static"

library . "$work/elsewhere/deeper/shared"
for build in shared elsewhere/deeper/shared; do
    quietly cmake --install "$work/$build" --prefix "$work/$build-prefix"
done
diff -r "$work/shared-prefix" "$work/elsewhere/deeper/shared-prefix"
echo "the same bytes from two directories"

quietly cmake --build "$work/shared" --target package
mkdir "$work/tarball"
tar -xzf "$work"/shared/kitlib-*.tar.gz -C "$work/tarball" --strip-components=1
cc examples/same_task.c -I"$work/tarball/include" -L"$work/tarball/lib" -Wl,-rpath,"$work/tarball/lib" -lKitLib -lm -o "$work/task4"
"$work/task4" | diff examples/same_task.txt -
echo "tarball: runs"

# A next major version, installed over this one: programs built before go on with theirs.
mkdir "$work/next"
git ls-files | tar -c -T - | tar -x -C "$work/next"
sed -i 's/KL_VERSION_MAJOR 4/KL_VERSION_MAJOR 5/' "$work/next/include/kl/version.h"
library "$work/next" "$work/next/build"
quietly cmake --install "$work/next/build" --prefix "$work/tarball"
cc examples/same_task.c -I"$work/tarball/include" -L"$work/tarball/lib" -Wl,-rpath,"$work/tarball/lib" -lKitLib -lm -o "$work/task5"
for major in 4 5; do
    readelf -d "$work/task$major" | grep -q "libKitLib.so.$major"
    "$work/task$major" | diff examples/same_task.txt -
done
echo "versions 4 and 5 side by side: both run"

quietly cmake -S tests/consumers/subproject -B "$work/subproject" -DKITLIB="$top" -DTASKS="$top/examples" \
    -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON
quietly cmake --build "$work/subproject" -j "$(nproc)"
"$work/subproject/task_cpp" | diff examples/same_task.txt -
quietly cmake --install "$work/subproject" --prefix "$work/subproject-prefix"
installed=$(cd "$work/subproject-prefix" && find . -type f | sort | tr '\n' ' ')
[ "$installed" = "./bin/task_c ./bin/task_cpp " ] || { echo "installed: $installed" >&2; exit 1; }
echo "as a part of a project: runs, installs nothing of its own"
