#!/bin/sh
# What takes whole builds, in parts that can be asked for by name: consumers.sh [PART...], all where none is named.
#   installed    programs against the shared and the static library
#   directories  the same bytes from two build directories
#   versions     the tarball, and two major versions side by side
#   project      the library as a part of another project
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
    quietly cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF "$@"
    quietly cmake --build "$build"
}
# Beside the other builds: what a compiler cache has of them serves here.
dynamic=build/consumers-shared

installed() {
    library . $dynamic
    library . build/consumers-static -DBUILD_SHARED_LIBS=OFF
    tests/consumers/installed.sh $dynamic
    tests/consumers/installed.sh build/consumers-static
}

directories() {
    library . $dynamic
    export CCACHE_DISABLE=1 # compiled indeed
    library . "$work/elsewhere/deeper/library"
    unset CCACHE_DISABLE
    quietly cmake --install $dynamic --prefix "$work/here"
    quietly cmake --install "$work/elsewhere/deeper/library" --prefix "$work/there"
    diff -r "$work/here" "$work/there"
    echo "the same bytes from two directories"
}

with_tarball() { # with_tarball PROGRAM
    cc examples/same_task.c -I"$work/tarball/include" -L"$work/tarball/lib" -Wl,-rpath,"$work/tarball/lib" -lKitLib -lm -o "$1"
    "$1" | diff examples/same_task.txt -
}

versions() {
    library . $dynamic
    rm -f $dynamic/kitlib-*.tar.gz
    quietly cmake --build $dynamic --target package
    mkdir "$work/tarball"
    tar -xzf $dynamic/kitlib-*.tar.gz -C "$work/tarball" --strip-components=1
    with_tarball "$work/task4"
    echo "tarball: runs"
    # A next major version, installed over this one: programs built before go on with theirs.
    mkdir "$work/next"
    git ls-files | tar -c -T - | tar -x -C "$work/next"
    sed -i 's/KL_VERSION_MAJOR 4/KL_VERSION_MAJOR 5/' "$work/next/include/kl/version.h"
    library "$work/next" "$work/next/build"
    quietly cmake --install "$work/next/build" --prefix "$work/tarball"
    with_tarball "$work/task5"
    for major in 4 5; do
        readelf -d "$work/task$major" | grep -q "libKitLib.so.$major"
        "$work/task$major" | diff examples/same_task.txt -
    done
    echo "versions 4 and 5 side by side: both run"
}

project() {
    quietly cmake -S tests/consumers/subproject -B "$work/subproject" -DCMAKE_BUILD_TYPE=Release -DKITLIB="$top" -DTASKS="$top/examples" \
        -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON
    quietly cmake --build "$work/subproject" -j "$(nproc)"
    "$work/subproject/task_cpp" | diff examples/same_task.txt -
    quietly cmake --install "$work/subproject" --prefix "$work/subproject-prefix"
    files=$(cd "$work/subproject-prefix" && find . -type f | sort | tr '\n' ' ')
    [ "$files" = "./bin/task_c ./bin/task_cpp " ] || { echo "installed: $files" >&2; exit 1; }
    echo "as a part of a project: runs, installs nothing of its own"
}

[ $# -gt 0 ] || set -- installed directories versions project
for part in "$@"; do
    case $part in
    installed | directories | versions | project) $part ;;
    *) echo "usage: consumers.sh [installed] [directories] [versions] [project]" >&2; exit 1 ;;
    esac
done
