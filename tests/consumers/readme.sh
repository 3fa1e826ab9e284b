#!/bin/sh
# What stands in the README is what happens: readme.sh BUILD_DIRECTORY. Programs are those of examples/, which are built, run
# and compared by other tests; the demo's output and the command's answers are compared here.
set -eu
top=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
awk -v language=text '/^```/ { if (open) close(file); else { file = sprintf("%02d.%s", ++n, $0 == "```" ? "text" : substr($0, 4)); printf "" >file }
                               open = !open; next } open { print >file }' "$top/README.md"
printf 'utc,x,y,z\n2026-06-21T08:24:00,7000e3,0,-100e3\n' >states.csv
kitlib() { "$build/apps/kitlib" "$@"; }
bad=0
expected="" # what the last program prints
programs=0 answers=0
for block in [0-9]*; do
    case $block in
    *.c | *.cpp | *.python)
        suffix=${block##*.}
        [ "$suffix" != python ] || suffix=py
        expected=""
        for example in "$top"/examples/*."$suffix" "$top"/examples/python/*."$suffix"; do
            [ ! -e "$example" ] || ! cmp -s "$block" "$example" || expected=${example%.*}.txt
        done
        [ -n "$expected" ] || { echo "README, block $block is no example" >&2; bad=1; }
        programs=$((programs + 1))
        ;;
    *.text)
        if grep -q '^The sky above the Earth at ' "$block"; then
            "$build/apps/kl_demo" "$(sed -n '1s/.* at \(.*\) UTC/\1/p' "$block")" >demo
            expected=$PWD/demo
        fi
        [ -n "$expected" ] && diff "$block" "$expected" || { echo "README, block $block: printed otherwise" >&2; bad=1; }
        expected=""
        ;;
    *.sh)
        [ -x "$build/apps/kitlib" ] || { expected=$PWD/$(ls | grep -A 1 "^$block" | tail -n 1) && continue; }
        sed -n 's/^kitlib /&/p' "$block" >lines
        while IFS= read -r line; do
            eval "${line%% # *}" >answer </dev/null
            answers=$((answers + 1))
            comment=${line##* # }
            if [ "$comment" = "$line" ]; then # the next block has the answer
                expected=$PWD/answer
                continue
            fi
            names=$(awk '{ printf "%s%s", n++ ? ", " : "", $1 }' answer)
            [ "$comment" = "$(head -n 1 answer)" ] || [ "$comment" = "$names" ] || { echo "README: $line: $(cat answer)" >&2; bad=1; }
        done <lines
        ;;
    esac
done
[ $programs -ge 3 ] && { [ $answers -ge 6 ] || [ ! -x "$build/apps/kitlib" ]; } || { echo "README: $programs programs, $answers answers" >&2; bad=1; }
exit $bad
