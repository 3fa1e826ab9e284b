#!/bin/sh
# What the library shows and what it leaves writable: run.sh [LIBRARY] [--update]
# Its dynamic symbols are those of src/exported_symbols.txt, which follows from the table of functions, and of
# src/exported_classes.txt (--update writes that file anew); relocations are read-only after loading; nothing can be
# written but what is named below.
set -eu
cd "$(dirname "$0")/../.."
library="${1:-build/release/libKitLib.so}"
classes=src/exported_classes.txt

shown() { nm -D --defined-only "$library" | awk '{print $3}' | LC_ALL=C sort; }
if [ "${2:-}" = --update ]; then shown | grep '^_Z' >"$classes"; fi
known=$(LC_ALL=C sort src/exported_symbols.txt "$classes")
if [ "$(shown)" != "$known" ]; then
    { echo "$known" && shown; } | LC_ALL=C sort | uniq -u >&2
    echo "$library does not show what is listed: these are in one of the two alone" >&2
    exit 1
fi

if nm "$library" | grep -qE '__(a|t)san_init|__gcov_'; then # instrumented: it has sections of its own
    echo "boundary: $(echo "$known" | wc -l) symbols"
    exit 0
fi
readelf -lW "$library" | grep -q GNU_RELRO || { echo "no RELRO" >&2; exit 1; }
readelf -dW "$library" | grep -q BIND_NOW || { echo "bound lazily" >&2; exit 1; }
! readelf -dW "$library" | grep -q TEXTREL || { echo "code that is relocated" >&2; exit 1; }
readelf -lW "$library" | grep GNU_STACK | grep -qv RWE || { echo "a stack that runs" >&2; exit 1; }

# By name: the rows of satellites that callers set, the default satellites and the run table; the last failure of a
# thread; the locks; whether messages are printed; the instruction set and the kernel of the geoid that this machine can
# run; and what the compiler's own start-up code has.
own='slot_sp3|slot_mutex|clock_mutex|table_mutex|verbose|widest|instruction_set'
may="(A|I)_(MIN|NOM|MAX)|[EW]_NOM|KL_SAT_TYPE|KL_TOLERANCE_[A-Z_]*|KL_SP3_PARAMS|TLE_SAT_DATA|kl_default_sat_(array|names)\
|run_table|last_call|_ZN12_GLOBAL__N_1[0-9]+($own)E(\\.[0-9]+)?|_ZZN6ORBKIT13release_mutexEvE5mutex\
|__TMC_END__|__dso_handle|DW\\.ref\\.[A-Za-z0-9_]*|completed\\.[0-9]+|__cpu_(model|features2)"
sections=$(readelf -SW "$library" | sed -n 's/^ *\[ *\([0-9]*\)\] \.\(data\|bss\|tdata\|tbss\) .*/\1/p' | tr '\n' ' ')
writable=$(readelf -sW "$library" | awk -v sections=" $sections" '
    ($4 == "OBJECT" || $4 == "TLS") && index(sections, " " $7 " ") { print $8 ", " $3 " bytes" }' | sort -u)
echo "$writable" | grep -q '^run_table,' || { echo "$library has no symbols of its own to look at" >&2; exit 1; }
if echo "$writable" | grep -vE "^($may), "; then
    echo "can be written and should not be" >&2
    exit 1
fi
echo "boundary: $(echo "$known" | wc -l) symbols, full RELRO, writable tables are the satellites' and the runs' alone"
