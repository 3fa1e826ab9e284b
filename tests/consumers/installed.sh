#!/bin/sh
# Programs of users against an installed tree: installed.sh BUILD_DIRECTORY. Plain make, pkg-config and find_package, in C
# and C++; each fails without the library and runs with it. Then the tree is moved, a component installed alone, and the
# installation taken back.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
tasks=$here/../../examples
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DESTDIR LD_LIBRARY_PATH PKG_CONFIG_PATH CMAKE_PREFIX_PATH CPATH LIBRARY_PATH KitLib_DIR 2>/dev/null || true
kind=static
grep -q '^BUILD_SHARED_LIBS:BOOL=ON' "$build/CMakeCache.txt" && kind=shared
libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:[A-Z]*=//p' "$build/CMakeCache.txt")
cc=${CC:-cc} cxx=${CXX:-c++}

with_make() { [ $kind = shared ] && make -s -f "$here/Makefile" PREFIX="$1" TASKS="$tasks" CC="$cc" CXX="$cxx"; }
with_pkg_config() {
    also=""
    [ $kind = shared ] || also=--static
    flags=$(PKG_CONFIG_PATH="$1/$libdir/pkgconfig" pkg-config $also --cflags --libs KitLib) || return 1
    # shellcheck disable=SC2086
    "$cc" -o task_c "$tasks/same_task.c" $flags -Wl,-rpath,"$1/$libdir" -lm &&
        "$cxx" -std=c++17 -o task_cpp "$tasks/same_task.cpp" $flags -Wl,-rpath,"$1/$libdir"
}
with_find_package() {
    cmake -S "$here/find_package" -B . -DCMAKE_PREFIX_PATH="$1" -DTASKS="$tasks" -DWANTED="${2:-4.27}" -DKIND="${3:-$kind}" \
        -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" && cmake --build .
}
fails() {
    name=$1
    shift
    mkdir "$work/$name" && cd "$work/$name"
    if "$@" >log 2>&1; then echo "$name: should have failed" >&2; exit 1; fi
}
runs() {
    name=$1
    shift
    mkdir "$work/$name" && cd "$work/$name"
    "$@" >log 2>&1 || { cat log >&2; echo "$name: not built" >&2; exit 1; }
    for program in task_c task_cpp; do
        ./$program >$program.txt || { echo "$name: $program failed" >&2; exit 1; }
        diff "$tasks/same_task.txt" $program.txt >&2
    done
    echo "$name: runs"
}

ways="pkg_config find_package"
[ $kind = static ] || ways="make $ways"
for way in $ways; do fails "$way-without" "with_$way" "$work/nothing"; done
cmake --install "$build" --prefix "$work/prefix" >/dev/null
for way in $ways; do runs "$way" "with_$way" "$work/prefix"; done
with_python() { PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=$1/lib/python3/dist-packages /usr/bin/python3 "$tasks/python/first.py"; }
if [ -e "$work/prefix/lib/python3/dist-packages/kitlib" ] && [ "$libdir" = lib ] && /usr/bin/python3 -c "import numpy" 2>/dev/null; then
    fails python-without with_python "$work/nothing"
    with_python "$work/prefix" | diff "$tasks/python/first.txt" - >&2
    echo "python: runs"
fi
fails other_major with_find_package "$work/prefix" 5
fails other_kind with_find_package "$work/prefix" 4 "$([ $kind = static ] && echo shared || echo static)"
mv "$work/prefix" "$work/moved"
for way in $ways; do runs "$way-moved" "with_$way" "$work/moved"; done
mv "$work/moved" "$work/prefix"
if [ $kind = shared ]; then # one component alone is what a program needs to run
    cmake --install "$build" --prefix "$work/runtime" --component runtime >/dev/null
    other=$(find "$work/runtime" \( -type f -o -type l \) ! -name 'lib*.so.[0-9]*')
    [ -z "$other" ] || { echo "component runtime: $other" >&2; exit 1; }
    mv "$work/prefix" "$work/away"
    LD_LIBRARY_PATH="$work/runtime/$libdir" "$work/make/task_cpp" | diff "$tasks/same_task.txt" - >&2
    mv "$work/away" "$work/prefix"
    cmake --install "$build" --prefix "$work/prefix" >/dev/null # whose list is the last
fi
cmake -DMANIFESTS="$build" -P "$here/../../cmake/uninstall.cmake" >/dev/null 2>&1
left=$(find "$work/prefix" -type f -o -type l)
[ -z "$left" ] || { echo "left after the uninstallation: $left" >&2; exit 1; }
