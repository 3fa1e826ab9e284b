#!/bin/sh
# Compares the library with independent ones and with its own formulas, and writes docs/accuracy.md. An argument is the
# build directory.
set -eu
cd "$(dirname "$0")/../.."
build=${1:-build/accuracy}
tools/install_missing.sh g++ cmake ninja-build liberfa-dev libnova-dev libgeographiclib-dev libproj-dev proj-data python3-mpmath \
    python3-matplotlib
cmake --preset release -B "$build" -DKITLIB_ACCURACY=ON -DKITLIB_TESTS=OFF -DKITLIB_APPS=OFF >/dev/null
cmake --build "$build" --target accuracy >/dev/null
out=$build/tools/accuracy
python3 tools/accuracy/fidelity.py "$build/libKitLib.so" >"$out/fidelity.md" &
jobs=$!
python3 tools/accuracy/coordinates.py "$build/libKitLib.so" >"$out/judge.md" &
jobs="$jobs $!"
for section in bodies frames iers sky coordinates rest; do
    "$out/accuracy" "$out/listings" "$section" >"$out/$section.md" &
    jobs="$jobs $!"
done
for job in $jobs; do
    wait "$job"
done
cat "$out/bodies.md" "$out/frames.md" "$out/iers.md" "$out/sky.md" "$out/coordinates.md" "$out/judge.md" "$out/rest.md" "$out/fidelity.md" >docs/accuracy.md
/usr/bin/python3 tools/accuracy/chain_picture.py "$out/chain_years.csv" docs/pictures/chain_error.png # Debian's matplotlib
cat docs/accuracy.md
