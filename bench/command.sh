#!/bin/sh
# A million rows through the command, beside GeographicLib's CartConvert and PROJ's cs2cs: command.sh KITLIB. Wall time and
# time of the processors, the least of three runs. The command takes the cores there are, the others one. To
# docs/performance-command.md.
set -eu
top=$(cd "$(dirname "$0")/.." && pwd)
"$top/tools/install_missing.sh" geographiclib-tools proj-bin
kitlib=${1:-$top/build/release/apps/kitlib}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
rows=1000000
awk -v n=$rows 'BEGIN { srand(1); print "time,latitude,longitude,height,x,y,z,vx,vy,vz" >"'"$work"'/table.csv"
    for (i = 0; i < n; ++i) {
        lat = 180 * rand() - 90; lon = 360 * rand() - 180; h = 1e6 * rand()
        printf "2026-%02d-%02dT%02d:%02d:%06.3f,%.9f,%.9f,%.4f,%.3f,%.3f,%.3f,%.6f,%.6f,%.6f\n", 1 + 12 * rand(), 1 + 28 * rand(), 24 * rand(),
            60 * rand(), 59.999 * rand(), lat, lon, h, 7e6 * rand(), 7e6 * rand(), 7e6 * rand(), 7e3 * rand(), 7e3 * rand(), 7e3 * rand() >"'"$work"'/table.csv"
        printf "%.9f %.9f %.4f\n", lat, lon, h >"'"$work"'/places.txt"
        printf "%.9f %.9f %.4f\n", lon, lat, h >"'"$work"'/lonlat.txt" } }'
least() { # least COMMAND: wall time, and what the processors spent; seconds
    for run in 1 2 3; do
        bash -c "TIMEFORMAT='%R %U %S'; time { $1; } >/dev/null" 2>&1 | tail -n 1
    done | awk '{ cpu = $2 + $3; if (NR == 1 || $1 < wall) wall = $1; if (NR == 1 || cpu < least) least = cpu }
                END { printf "%.2f | %.2f", wall, least }'
}
{
    echo "# How fast the command is"
    echo
    echo "Written by \`bench/command.sh\`: $rows rows of CSV from a file to nowhere, least of three runs, on $(nproc) cores"
    echo "($(sed -n 's/^model name.*: //p' /proc/cpuinfo | head -n 1)); load average when it began $(cut -d' ' -f1 /proc/loadavg). \`kitlib\` takes the cores there are, the others one;"
    echo "on a machine with other work the time of the processors is the surer figure."
    echo
    echo "| command | wall, s | processors, s |"
    echo "| --- | ---: | ---: |"
    echo "| \`kitlib time --to TAI\` | $(least "'$kitlib' time --columns time --to TAI <'$work/table.csv'") |"
    echo "| \`kitlib frame --from GM2000 --to EF\`, positions | $(least "'$kitlib' frame --from GM2000 --to EF --columns time,x,y,z <'$work/table.csv'") |"
    echo "| \`kitlib frame --from GM2000 --to EF\`, with velocities | $(least "'$kitlib' frame --from GM2000 --to EF --columns time,x,y,z,vx,vy,vz <'$work/table.csv'") |"
    echo "| \`kitlib geodetic --back\` | $(least "'$kitlib' geodetic --back --columns latitude,longitude,height <'$work/table.csv'") |"
    echo "| GeographicLib's \`CartConvert\`, the same | $(least "CartConvert -p 4 --input-file '$work/places.txt'") |"
    echo "| PROJ's \`cs2cs\`, the same | $(least "cs2cs -f %.4f +proj=longlat +datum=WGS84 +to +proj=geocent +datum=WGS84 '$work/lonlat.txt'") |"
} >"$top/docs/performance-command.md"
cat "$top/docs/performance-command.md"
