#!/bin/sh
# A page for every public function and form, with nothing in it that the formatter warns of: man_pages.sh PYTHON
set -eu
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" tools/api/man_pages.py "$work"
for name in $(grep '^kl_' src/exported_symbols.txt | grep -v '^kl_default_sat_\(names\|array\)$\|^kl_months$'); do
    [ -s "$work/$name.3" ] || { echo "no page for $name" >&2; exit 1; }
done
command -v groff >/dev/null || exit 0
warnings=$(groff -man -ww -Tutf8 -Kutf8 -rLL=130n -z "$work"/*.3 2>&1)
[ -z "$warnings" ] || { echo "$warnings" >&2; exit 1; }
