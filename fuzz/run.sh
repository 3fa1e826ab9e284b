#!/bin/sh
# run.sh [SECONDS [SEED]] fuzzes every target for so many seconds (default 20), starting from the corpus that the
# repository keeps, and says how many runs and CPU seconds each had. With a seed a fresh clone tries the same inputs each
# time. New inputs and the logs stay below build/fuzz/corpus; a crash stops the run and leaves its input there, named
# after the target.
set -eu
cd "$(dirname "$0")/.."
seconds="${1:-20}"
seed="${2:-0}" # 0: another one each time
tools/install_missing.sh clang libclang-rt-dev cmake ninja-build
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/corpus
cd build/fuzz/corpus
: >figures
# A format's target starts from a published file, not from a corpus.
formats='finals c04 old_c04 bulletin_a bulletin_b old_bulletin_b leap_seconds leap_second_dat own_table sp3 oem oem_xml'
for target in time time_files star_files texts clocks sky geometry rotations arrays registry $formats; do
    mkdir -p "$target"
    status=0
    length=512
    kept=
    [ ! -d "../../../fuzz/corpus/$target" ] || kept="../../../fuzz/corpus/$target"
    case $target in *_files) length=4096 ;; esac
    (
        failed=0
        UBSAN_OPTIONS=print_stacktrace=1 ../fuzz/${target}_fuzz -max_total_time="$seconds" -seed="$seed" -max_len=$length -timeout=10 \
            -print_final_stats=1 -close_fd_mask=3 -artifact_prefix="$target-" "$target" $kept \
            >"$target.log" 2>&1 || failed=1
        times >"$target.times"
        exit "$failed"
    ) || status=$?
    # The second line of `times` is that of the children: user and system, as 1m2.5s.
    cpu=$(awk 'NR == 2 { gsub(/[ms]/, " "); split($0, t, " "); print 60 * (t[1] + t[3]) + t[2] + t[4] }' "$target.times")
    runs=$(awk '/number_of_executed_units/ { print $2 }' "$target.log")
    coverage=$(awk '/ cov: / { sub(/.* cov: /, "cov: "); sub(/ corp: .*/, ""); line = $0 } END { print line }' "$target.log")
    echo "$target ${runs:-0} runs, $cpu CPU seconds, $coverage" | tee -a figures
    if [ "$status" -ne 0 ]; then
        tail -n 40 "$target.log"
        echo "$target: failed, its input is in build/fuzz/corpus" >&2
        exit 1
    fi
done
awk '{ runs += $2; cpu += $4 } END { printf "all    %d runs, %.0f CPU seconds (%.2f hours)\n", runs, cpu, cpu / 3600 }' figures
