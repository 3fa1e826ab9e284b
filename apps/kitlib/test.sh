#!/bin/sh
# The command against published instants, itself row by row, and what its help, page and completion promise: test.sh KITLIB
set -eu
kitlib=$1
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
bad=0
says() { # says STATUS OUTPUT ARGUMENT...
    expected=$1 text=$2
    shift 2
    status=0
    "$kitlib" "$@" >out 2>err </dev/null || status=$?
    if [ $status -ne "$expected" ] || { [ "$text" != - ] && [ "$(cat out)" != "$text" ]; }; then
        echo "kitlib $*: status $status, '$(cat out)' '$(cat err)', expected $expected '$text'" >&2
        bad=1
    fi
}

# IERS Bulletin C 52: a leap second at the end of 2016, TAI-UTC 37 s from then on; GPS is TAI less 19 s. J2000.0 in MJD2000.
says 0 2017-01-01T00:00:17.000000 time 2016-12-31T23:59:60 --to GPS
says 0 2017-01-01T00:00:18.000000 time "2017-01-01 00:00:00Z" --to gps
says 0 2016-12-31T23:59:60.500000 time 2017-01-01T00:00:36.5 --from TAI
says 0 20161231T235960500000 time 2017-01-01T00:00:36.5 --from TAI --format compact
says 0 0.5 time 2000-01-01T12:00:00 --format mjd2000
says 0 '{"TAI": 6210.000428240741}' time 2017-01-01 --to TAI --format mjd2000 --json # 37 s in days
says 2 "" time 2016-13-01
says 2 "" time 2016-06-30T23:59:60
says 2 "" time yesterday
says 2 "" geoid 91 0
says 2 "" topocentric 91 0 0 7e6 0 0
grep -q '^kitlib: KL_EF_TO_TOPOCENTRIC_ORIGIN_ERR: .* (kl_ef_to_topocentric:1)$' err || { cat err >&2; bad=1; }
# After the last row of the correlation UT1 is a formula's.
says 0 - time 2040-01-01 --to UT1
grep -q '^kitlib: warning: Time out of initialization range (kl_time_processing_to_ascii:6)$' err || { cat err >&2; bad=1; }
printf 'time\n2041-01-01\n2020-01-01\n2040-01-01\n' | "$kitlib" time --to UT1 >out 2>err || bad=1
grep -q '^kitlib: 2 rows with warnings$' err && [ "$(wc -l <err)" = 2 ] || { cat err >&2; bad=1; }
# WGS 84 (NIMA TR8350.2, table 3.1 and 3.3): the semi-axes; a quarter of a meridian is 10001965.729 m.
says 0 '{"latitude": 0, "longitude": 0, "height": 0}' geodetic 6378137 0 0 --json
says 0 - geodetic --back 90 0 0 --json
grep -q '"z": 6356752\.314' out || { cat out >&2; bad=1; }
says 0 - distance 0 0 90 0 --json
grep -q '"distance": 10001965\.7[23]' out || { cat out >&2; bad=1; }
says 0 - topocentric 0 0 0 7378137 0 0
grep -q '^elevation *90 deg' out && grep -q '^range *1e+06 m' out || { cat out >&2; bad=1; }
says 2 "" pass 91 0 0 7178137 0 0 0 0 0 --epoch 2026-06-21
says 2 "" pass 0 0 0 7178137 1 0 0 0 0 --epoch 2026-06-21
says 2 "" pass 0 0 0 7178137 0 0 0 0 0 --epoch yesterday
says 2 "" pass 0 0 0 7178137 0 0 0 0 0 --epoch 2026-06-21 --hours 0
says 1 "" pass 0 0 0 7178137 0 0 0 0 0
says 0 - pass 0 30 0 7178137 0 0 0 0 0 --epoch 2040-06-21
grep -q '^kitlib: warning: .* (kl_change_cart_cs:[0-9]*)$' err || { cat err >&2; bad=1; }
says 2 "" eclipse 2026-06-21 1 2 3
says 2 "" star 2026-06-21 0 91
says 1 "" star 2026-06-21 0 1 2
# A circular orbit over the equator: tops follow each other by the turn of 360 deg at n (1 + 3 J2 (R/a)^2), which is the
# sum of the secular rates of node, perigee and anomaly (D. Brouwer, 1959) at no inclination, less the Earth's turn.
says 0 - pass 0 30 0 7178137 0 0 0 0 0 --epoch 2026-06-21 --hours 12 --json
awk -F'"' '{ split($12, at, /[T:]/); t = at[2] * 3600 + at[3] * 60 + at[4]
             if (NR > 2) { gap = t - last; n++ ; if (gap < expected - 0.02 || gap > expected + 0.02) wrong++ } last = t }
           BEGIN { pi = atan2(0, -1); a = 7178137
                   mean = sqrt(3.9860044e14 / a) / a * (1 + 3 * 0.001082626 * (6378136 / a) ^ 2)
                   expected = 2 * pi / (mean - 7.2921159e-5) }
           END { if (n < 4 || wrong) { print "tops are not " expected " s apart" > "/dev/stderr"; exit 1 } }' out || { cat out >&2; bad=1; }
awk -F'[ ,]' '{ if ($NF != "false}") exit 1 }' out || bad=1
says 0 - pass 0 30 0 7178137 0 0 0 0 0 --epoch 2026-06-21 --hours 4 --elevation 30
grep -q '^  *rise  *azimuth  *top  *azimuth  *height  *set  *azimuth$' out && [ "$(wc -l <out)" -ge 2 ] || { cat out >&2; bad=1; }
says 0 "no pass above 0 deg in 24 hours" pass 89 0 0 7178137 0 0 0 0 0 --epoch 2026-06-21
says 0 - pass 0 30 0 42164e3 0 0 0 0 120 --epoch 2026-06-21T00:00:00 --hours 2 --elevation -90
grep -q '^<2026-06-21T00:00:00.000.*>$' out || { cat out >&2; bad=1; } # up all the time
# With the Sun behind, and in full light with it ahead: kitlib sun gives the way to it.
"$kitlib" sun 2026-06-21T08:24:00 | awk '/^[xyz]/ { printf " %.0f", $2 / 1.52e11 * 7178137 }' >toward
sed 's/ -/ +/g; s/ \([0-9]\)/ -\1/g; s/ +/ /g' toward >away
# shellcheck disable=SC2046
says 0 - eclipse 2026-06-21T08:24:00 $(cat toward) --json
grep -q '"state": "sunlight", "fraction": 1,' out || { cat out >&2; bad=1; }
# shellcheck disable=SC2046
says 0 - eclipse 2026-06-21T08:24:00 $(cat away)
grep -q '^state *umbra$' out && grep -q '^fraction *0$' out || { cat out >&2; bad=1; }
# Ten years of 1000 mas/yr are 10 arcsec, less what is of third order; the same by a table, its optional columns found.
says 0 - star 2010-01-01T12:00:00 100 0 0 1000 0 0 --frame BM2000 --json
awk -F'[:,}]' '{ d = $4 * 3600; if (d < 10.001 || d > 10.003) exit 1 }' out || { cat out >&2; bad=1; }
printf 'time,ra,dec,pm_ra,pm_dec,parallax,radial_velocity\n2010-01-01T12:00:00,100,0,0,1000,0,0\n' |
    "$kitlib" star --frame BM2000 --json | diff - out || bad=1
says 1 "" time 2017-01-01 2017-01-02
says 1 "" frame 2017-01-01 1 2
says 1 "" time 2017-01-01 --to TDB
says 1 "" explain kl_nothing 1
says 1 "" nothing
says 1 ""
says 0 "nothing recorded" explain kl_sun 0
says 0 - explain kl_time_ascii_to_ascii 0,2
grep -q '^KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR, error' out || { cat out >&2; bad=1; }
says 0 - explain kl_sun:1
grep -q '^  When: date outside -18262' out && grep -q '^  Remedy: ' out || { cat out >&2; bad=1; }
says 0 - sky 2026-06-21T08:24:00 --json
says 0 - timeid
grep -q '^last leap second *before 2017-01-01T00:00:00, TAI-UTC 37 s since' out || { cat out >&2; bad=1; }

# Rows give what single values give; refused ones go on, whatever the number of threads makes of the order.
awk 'BEGIN { print "n,when,x,y,z,vx,vy,vz"; srand(1)
    for (i = 0; i < 5000; ++i)
        printf "%d,%s,%.3f,%.3f,%.3f,%.3f,%.3f,%.3f\n", i, i % 1000 == 7 ? "2016-02-30" : 6000 + i / 10 + rand(),
               7e6 * rand(), -7e6 * rand(), 1e6 * rand(), 1e3 * rand(), 7e3 * rand(), -1e3 * rand() }' >states.csv
status=0
"$kitlib" frame --from GM2000 --to EF --columns when,x,y,z,vx,vy,vz <states.csv >answers.csv 2>count || status=$?
[ $status -eq 2 ] && grep -q '^kitlib: 5 rows refused$' count || { cat count >&2; bad=1; }
cut -d, -f1-8 answers.csv | cmp - states.csv || bad=1
[ "$(grep -c ',,,,,,,kl_time_ascii_to_processing:24$' answers.csv)" = 5 ] || bad=1
for row in 2 2500 5001; do
    single=$(sed -n ${row}p states.csv | cut -d, -f2- | tr ',' ' ')
    # shellcheck disable=SC2086
    "$kitlib" frame --from GM2000 --to EF $single | awk '{ printf ",%s", $2 }' >single
    sed -n ${row}p answers.csv | cut -d, -f9-14 | sed 's/^/,/' | tr -d '\n' | cmp - single || bad=1
done
"$kitlib" frame --from EF --to GM2000 --columns when,9,10,11,12,13,14 <answers.csv 2>/dev/null |
    awk -F, 'NR > 1 && $22 == "" { n++; for (i = 3; i <= 5; ++i) { d = $i - $(i + 13); if (d > 1e-5 || d < -1e-5) wrong++ } }
             END { if (n != 4995 || wrong) { print n, wrong " rows do not come back" > "/dev/stderr"; exit 1 } }' || bad=1
printf 'time\n"2017-01-01T00:00:00"\n' | "$kitlib" time --to TAI >out
[ "$(tail -n 1 out)" = '"2017-01-01T00:00:00",2017-01-01T00:00:37.000000,' ] || { cat out >&2; bad=1; }
printf 'note,"when, utc"\r\n"said ""a, b"" and ""c""",2017-01-01\r\n' | "$kitlib" time --columns 2 --to TAI >out
[ "$(tail -n 1 out)" = '"said ""a, b"" and ""c""",2017-01-01,2017-01-01T00:00:37.000000,' ] || { cat out >&2; bad=1; }
printf 'latitude,longitude\n0,0\n,1\n' | "$kitlib" geoid --json >out 2>/dev/null || true
[ "$(tail -n 1 out)" = '{"code": "input:latitude"}' ] || { cat out >&2; bad=1; }

for question in "time 2017-01-01" timeid functions; do # an output that cannot be written
    status=0
    # shellcheck disable=SC2086
    [ ! -e /dev/full ] || "$kitlib" $question >/dev/full 2>err || status=$?
    [ ! -e /dev/full ] || { [ $status -eq 1 ] && [ "$(wc -l <err)" = 1 ]; } || { echo "$question to a full device: $status" >&2; bad=1; }
done

# A bar for long input on a terminal; completion of verbs, names and options.
if command -v script >/dev/null; then
    awk 'BEGIN { print "time"; for (i = 0; i < 350000; ++i) print "2026-01-01T00:00:00.000000" }' >long.csv
    script -qec "'$kitlib' time --to TAI <long.csv >/dev/null" bar >/dev/null
    tr '\r' '\n' <bar | grep -q '^\[#*\] 100 %' || { cat bar >&2; bad=1; }
fi
if command -v bash >/dev/null; then
    bash -c '. "$1"; kitlib=$2; shift 2
             completed() { COMP_WORDS=("$kitlib" "$@"); COMP_CWORD=$#; _kitlib; echo "${COMPREPLY[@]}"; }
             completed ti; completed frame --to T; completed planet m; completed frame --fr' \
        - "$here/kitlib.bash" "$kitlib" >out
    printf 'time timeid\nTOD TEME\nmercury mars\n--from\n' | diff - out || bad=1
fi

# Examples of the help run; page and completion know every verb.
"$kitlib" --help | awk '/Subcommands:/ { on = 1; next } on && NF == 0 { exit } on { print $1 }' >verbs
[ "$(wc -l <verbs)" -ge 10 ] || { echo "verbs not found in the help" >&2; bad=1; }
cp states.csv table.csv
sed -i '1s/when/utc/' table.csv states.csv
while read -r verb; do
    grep -qw -- "^\.BR.* $verb\|^\.BR $verb" "$here/kitlib.1" || { echo "$verb is not in kitlib.1" >&2; bad=1; }
    grep -q "[\" ]$verb[\" ]" "$here/kitlib.bash" || { echo "$verb is not in kitlib.bash" >&2; bad=1; }
    "$kitlib" "$verb" --help | sed -n 's/^  kitlib /"$kitlib" /p' | grep -v finals2000A >examples || true
    "$kitlib" "$verb" --help | grep -q '^  kitlib ' || { echo "$verb has no example" >&2; bad=1; }
    while read -r example; do
        status=0
        eval "$example" >/dev/null 2>err </dev/null || status=$?
        [ $status -ne 1 ] || { echo "$example: $(cat err)" >&2; bad=1; }
    done <examples
done <verbs
exit $bad
