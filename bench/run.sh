#!/bin/sh
# Builds and runs every benchmark with its rivals, two threads over one, the longest calls and the instruction counts,
# and writes docs/performance.md. Some minutes; the figures mean something on a quiet machine of two cores.
set -eu
cd "$(dirname "$0")/.."
tools/install_missing.sh g++ cmake ninja-build python3 valgrind libbenchmark-dev liberfa-dev libgeographiclib-dev libproj-dev \
    libeigen3-dev python3-astropy python3-skyfield
results=build/bench/results
mkdir -p "$results"
cat /proc/loadavg >"$results/load.txt"
cmake --preset bench >/dev/null
cmake --build --preset bench
for subject in time clock frames orientation bodies stars geometry geoid coordinates rotations objects runs; do
    echo "$subject"
    build/bench/bench/${subject}_bench --benchmark_repetitions=7 --benchmark_min_time=0.1 \
        --benchmark_enable_random_interleaving=true --benchmark_report_aggregates_only=true \
        --benchmark_out="$results/$subject.json" >/dev/null 2>"$results/$subject.log"
done
echo "worst case, instructions, threads"
build/bench/bench/worst_case >"$results/worst_case.txt" || echo "A call is too long: $results/worst_case.txt"
bench/callgrind.sh >"$results/instructions.txt"
build/bench/bench/threads >"$results/threads.txt"
bench/report.py "$results" >docs/performance.md
/usr/bin/python3 bench/time_files.py build/bench/libKitLib.so >>docs/performance.md # Debian's modules belong to it
bench/arrays.py
