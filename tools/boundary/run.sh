#!/bin/sh
# What the library shows and what it leaves writable: run.sh [LIBRARY] [--update]
# Its dynamic symbols are those of src/exported_symbols.txt (--update writes that file anew); relocations are read-only
# after loading; nothing larger than a lock can be written but the tables listed below.
set -eu
cd "$(dirname "$0")/../.."
library="${1:-build/release/libKitLib.so}"
known=src/exported_symbols.txt

shown() { nm -D --defined-only "$library" | awk '{print $3}' | LC_ALL=C sort; }
if [ "${2:-}" = --update ]; then shown >"$known"; fi
if ! shown | diff "$known" - >&2; then
    echo "$library does not show what $known lists" >&2
    exit 1
fi

if nm "$library" | grep -qE '__(a|t)san_init|__gcov_'; then # instrumented: it has sections of its own
    echo "boundary: $(wc -l <"$known") symbols"
    exit 0
fi
readelf -lW "$library" | grep -q GNU_RELRO || { echo "no RELRO" >&2; exit 1; }
readelf -dW "$library" | grep -q BIND_NOW || { echo "bound lazily" >&2; exit 1; }
! readelf -dW "$library" | grep -q TEXTREL || { echo "code that is relocated" >&2; exit 1; }
readelf -lW "$library" | grep GNU_STACK | grep -qv RWE || { echo "a stack that runs" >&2; exit 1; }

# The rows of satellites that callers set, the default satellites, and the run table.
may='(A|I)_(MIN|NOM|MAX)|[EW]_NOM|KL_SAT_TYPE|KL_TOLERANCE_[A-Z_]*|KL_SP3_PARAMS|TLE_SAT_DATA|kl_default_sat_(array|names)|KL_Run_table'
lock=64
writable=$(readelf -sW "$library" | awk '$4 == "OBJECT"' | while read -r _ _ size _ _ _ section name; do
    echo "$section $((size)) $name"
done | sort -u | while read -r section size name; do
    case "$section" in *[!0-9]*) continue ;; esac
    echo "$section $size $name"
done)
sections=$(readelf -SW "$library" | sed -n 's/^ *\[ *\([0-9]*\)\] \(\.data\|\.bss\) .*/\1/p' | tr '\n' ' ')
bad=$(echo "$writable" | awk -v sections="$sections" -v lock="$lock" -v may="^($may)\$" '
    BEGIN { n = split(sections, s, " "); for (i = 1; i <= n; ++i) in_data[s[i]] = 1 }
    in_data[$1] && $2 > lock && $3 !~ may { print $3 ", " $2 " bytes" }')
if [ -n "$bad" ]; then
    echo "tables that can be written:" >&2
    echo "$bad" >&2
    exit 1
fi
echo "boundary: $(wc -l <"$known") symbols, full RELRO, writable tables are the satellites' and the runs' alone"
