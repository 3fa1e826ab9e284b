#!/bin/sh
# The Python package beside C and beside pyerfa, astropy, skyfield and pyproj: installs them (Debian's), builds the library and
# writes docs/performance-python.md, all of it from this run; with smaller numbers (of elements, of the cluster) it prints the page.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build python3-numpy python3-erfa python3-astropy python3-skyfield python3-pyproj python3-dask python3-distributed
cmake -S . -B build/bench-python -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build/bench-python --target KitLib kitlib_loops >/dev/null
PYTHONPATH=python KITLIB_LIBRARY_DIR=$PWD/build/bench-python exec /usr/bin/python3 bench/python/page.py "$@"
