#!/bin/sh
# The manual: build.sh [DIRECTORY], build/manual where none is named; the site is its folder html. Nothing is fetched when
# doxygen and Sphinx are there.
set -eu
cd "$(dirname "$0")/../.."
[ -n "${KITLIB_NO_INSTALL:-}" ] || tools/install_missing.sh doxygen python3-sphinx python3-breathe furo python3-myst-parser groff-base
out=$(mkdir -p "${1:-build/manual}" && cd "${1:-build/manual}" && pwd)
rm -rf --one-file-system "$out/source" "$out/xml" "$out/html"
mkdir -p "$out/source/pictures" "$out/source/reference" "$out/source/notes"
KITLIB_VERSION=$(sed -n 's/^#define KL_VERSION_\(MAJOR\|MINOR\|PATCH\) //p' include/kl/version.h | paste -sd .)
KITLIB_XML=$out/xml
export KITLIB_VERSION KITLIB_XML

{ cat docs/manual/Doxyfile; echo "OUTPUT_DIRECTORY = $out"; } >"$out/Doxyfile"
doxygen "$out/Doxyfile"
cp -R docs/manual/first docs/manual/jobs docs/manual/notes docs/manual/index.rst docs/manual/conf.py "$out/source"
ln -s "$PWD/examples" "$out/source/examples"
cp docs/pictures/*.png docs/geoid.png "$out/source/pictures"
for picture in examples/python/*.png; do cp "$picture" "$out/source/pictures/python_$(basename "$picture")"; done
for page in docs/accuracy*.md docs/performance*.md; do cp "$page" "$out/source"; done
cp docs/versions.md "$out/source/notes"
cp CHANGELOG.md "$out/source/changes.md"
{
    printf 'The command\n===========\n\n.. code-block:: text\n\n'
    groff -man -Tutf8 -Kutf8 -P-c -P-b -P-o -P-u -rLL=90n apps/kitlib/kitlib.1 | sed 's/^/   /'
} >"$out/source/reference/command.rst"
/usr/bin/python3 docs/manual/reference.py "$out/xml" "$out/source"
/usr/bin/python3 -m sphinx -q -W --keep-going -j auto -b html -d "$out/doctrees" "$out/source" "$out/html"
echo "manual: $out/html/index.html"
