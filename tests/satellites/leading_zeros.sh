#!/bin/sh
# Numbers of the mission table with zeros in front stay decimal: leading_zeros.sh MISSION_ROWS MISSIONS.csv
set -eu
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
sed -E 's/^(71,[^,]*),0,([^,]*,[^,]*,[^,]*),7118050,(.*),98\.4475,/\1,00041335,\2,007118050,\3,098.4475,/' "$2" >"$dir/in.csv"
! cmp -s "$2" "$dir/in.csv" || { echo "no row was changed" >&2; exit 1; }
"$1" "$dir/in.csv" "$dir/out.inc"
grep '^mission(71, "Brisa", 41335, .*{7118050, 7159492.7, 7194056, 98.4475, ' "$dir/out.inc"
grep '^mission(11, "MISSION-011", 0, .*0.001165, 90, {1000000, 10000000, 60, 120, 0, 0.5}' "$dir/out.inc"
