#!/bin/sh
# Builds and runs every benchmark with its rivals, one after the other. Best on a quiet machine.
set -eu
cd "$(dirname "$0")/.."
tools/install_missing.sh g++ cmake ninja-build libbenchmark-dev liberfa-dev libgeographiclib-dev libeigen3-dev
cmake --preset bench >/dev/null
cmake --build --preset bench
