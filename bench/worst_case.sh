#!/bin/sh
# The longest call over ordinary and awkward numbers beside the median, for every function that takes a number or a text;
# fails above ten times. Takes half a minute.
set -eu
cd "$(dirname "$0")/.."
tools/install_missing.sh g++ cmake ninja-build libbenchmark-dev liberfa-dev libgeographiclib-dev libeigen3-dev
cmake --preset bench >/dev/null
cmake --build build/bench --target worst_case >/dev/null
build/bench/bench/worst_case
