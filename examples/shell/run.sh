#!/bin/sh
# Every script here, and what it prints: run.sh KITLIB [--update]
set -eu
here=$(cd "$(dirname "$0")" && pwd)
PATH=$(cd "$(dirname "$1")" && pwd):$PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
bad=0
for script in "$here"/*.sh; do
    [ "$script" != "$here/run.sh" ] || continue
    sh -e "$script" >out 2>/dev/null || [ $? -eq 2 ] || { echo "$script failed" >&2; bad=1; }
    [ "${2:-}" != --update ] || cp out "${script%.sh}.txt"
    diff "${script%.sh}.txt" out >&2 || bad=1
done
exit $bad
