#!/bin/sh
# Changes one operator or number of src/ at a time and asks whether the tests notice, those of the release build and, for
# what they let pass, those of the sanitizer build:
# run.sh [--count 200] [--seed 1] [--only GLOB] [--folders A,B] [--jobs N] [--fresh].
# Works in build/mutation on a copy of the newest commit; started again, it goes on.
set -eu
cd "$(dirname "$0")/../.."
tools/install_missing.sh g++ cmake ninja-build ccache libgtest-dev liberfa-dev
exec python3 tools/mutation/mutate.py --sanitize "$@"
