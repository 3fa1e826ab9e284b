#!/bin/sh
# Draws the pictures of docs/pictures from what the examples write. An argument is the build directory.
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/release}
tools/install_missing.sh librsvg2-bin
"$build/examples/ground_track_c" >"$build/ground_track.svg"
rsvg-convert --width 1140 "$build/ground_track.svg" --output docs/pictures/ground_track.png
