#!/bin/sh
# Builds the Debian packages of what is committed, looks at them with lintian, installs them into a fresh root and runs a
# first program there, in C, in C++, in Python and by the command: run.sh; run.sh --built takes the packages of the last
# run. As root (debootstrap, chroot); some minutes.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh dpkg-dev debhelper lintian debootstrap fakeroot cmake ninja-build libcli11-dev \
    doxygen python3-sphinx python3-breathe furo python3-myst-parser groff-base
version=$(dpkg-parsechangelog -S Version)
out=$PWD/build/packages
if [ "${1:-}" != --built ]; then
    rm -rf --one-file-system "$out"
    mkdir -p "$out/kitlib-${version%-*}"
    git archive HEAD | tar -x -C "$out/kitlib-${version%-*}"
    tar -czf "$out/kitlib_${version%-*}.orig.tar.gz" -C "$out" --exclude=debian "kitlib-${version%-*}"
    (cd "$out/kitlib-${version%-*}" && dpkg-buildpackage -us -uc >../build.log 2>&1) || { tail -n 60 "$out/build.log" >&2; exit 1; }
    if grep -A 40 'symbols disappeared\|new symbols appeared' "$out/build.log" >&2; then exit 1; fi
fi
# Suppressed: there is no public address yet, and these packages are uploaded nowhere.
lintian --allow-root --fail-on error,warning \
    --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog,initial-upload-closes-no-bugs "$out"/*.changes
ls -l "$out"/*.deb

mirror=$(sed -n 's/^URIs: *//p' /etc/apt/sources.list.d/*.sources 2>/dev/null | head -n 1)
[ -n "$mirror" ] || mirror=$(sed -n 's/^deb \(\[[^]]*\] \)*\(http[^ ]*\) .*/\2/p' /etc/apt/sources.list | head -n 1)
root=$out/root
rm -rf --one-file-system "$root"
debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" "${mirror:-http://deb.debian.org/debian}" \
    >"$out/root.log" 2>&1 || { tail "$out/root.log" >&2; exit 1; }
for file in /etc/apt/apt.conf.d/*proxy* /etc/apt/apt.conf /etc/resolv.conf; do # the way to the mirror
    [ ! -e "$file" ] || install -D -m 644 "$file" "$root$file"
done
cp "$out"/*.deb examples/same_task.c examples/same_task.cpp examples/same_task.txt "$root/tmp/"
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LANG=C.UTF-8 "$@"; }
inside sh -euc '
    cd /tmp
    apt-get update -qq
    get() { apt-get install -y -qq --no-install-recommends "$@" >log 2>&1 || { cat log >&2; exit 1; }; }
    runs() { ./task | diff same_task.txt - && rm task; }
    get g++ pkg-config
    if gcc same_task.c -lKitLib -lm -o task 2>/dev/null; then echo "built without the library" >&2; exit 1; fi
    get ./libkitlib*.deb ./kitlib_*.deb
    if ldconfig -p | grep -i "libKit[CDF]"; then echo "a stand-in of a sibling is in the way" >&2; exit 1; fi
    gcc same_task.c -lKitLib -lm -o task
    runs
    g++ -std=c++17 same_task.cpp $(pkg-config --cflags --libs KitLib) -o task
    runs
    g++ -std=c++17 same_task.cpp -static-libstdc++ $(pkg-config --cflags KitLib) \
        -l:libKitLib.a -L"$(pkg-config --variable=libdir KitLib)/kitlib" -l:libKitCommon.a -l:libKitDataHandling.a \
        -l:libKitFileHandling.a -o task
    if ldd task | grep -i libkit; then echo "not static" >&2; exit 1; fi
    runs
    for file in kitlib/api.json kitlib/conditions.json man/man3/kl_sun.3.gz man/man1/kitlib.1.gz bash-completion/completions/kitlib; do
        test -s "/usr/share/$file"
    done
    test "$(kitlib time 2016-12-31T23:59:60 --to GPS)" = 2017-01-01T00:00:17.000000
    get ./python3-kitlib*.deb
    test "$(python3 -c "import kitlib; print(kitlib.__version__)")" = "$(kitlib --version | cut -d" " -f2)"
    get ./kitlib-doc*.deb
    grep -q kl_sun /usr/share/doc/kitlib-doc/html/reference/bodies.html
    apt-get purge -y -qq libkitlib4 kitlib-doc >/dev/null 2>&1
    left=$(find /usr -iname "*kitlib*" -o -iname "libkit*" -o -name "kl_*")
    if [ -n "$left" ]; then echo "left after the removal: $left" >&2; exit 1; fi
    echo "packages: installed, used and taken away again"'
