#!/bin/sh
# Instructions of the most used calls by callgrind, a line a call: those of 1000 calls more, divided by 1000. The call
# and what it calls are counted, the program around it is not.
set -eu
program=${1:-$(dirname "$0")/../build/bench/bench/one_call}
instructions() { # name, number of calls
    valgrind --tool=callgrind --callgrind-out-file=/dev/null --toggle-collect="$1" "$program" "$1" "$2" 2>&1 |
        sed -n 's/.*Collected : //p'
}
"$program" | while read -r name; do
    "$program" "$name" 1100 # stops here when a call fails
    echo "$name $((($(instructions "$name" 1100) - $(instructions "$name" 100)) / 1000))"
done
