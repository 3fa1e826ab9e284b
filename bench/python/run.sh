#!/bin/sh
# The Python package beside pyerfa, astropy, skyfield and pyproj: installs them (Debian's), builds the library and prints the
# table of docs/performance-python.md. An argument is the largest number of elements.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build python3-numpy python3-erfa python3-astropy python3-skyfield python3-pyproj
cmake -S . -B build/bench-python -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build/bench-python --target KitLib kitlib_loops >/dev/null
PYTHONPATH=python KITLIB_LIBRARY_DIR=build/bench-python exec /usr/bin/python3 bench/python/side_by_side.py "$@"
