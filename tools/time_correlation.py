#!/usr/bin/env python3
"""Renews data/time_correlation.csv, from which the correlation compiled into the library is built.

tools/time_correlation.py FINALS LEAP_SECONDS [C04] >new.csv && mv new.csv data/time_correlation.csv

FINALS        finals2000A.all of the IERS rapid service
LEAP_SECONDS  leap-seconds.list or Leap_Second.dat of the IERS
C04           EOP 14 C04 series, for the days before the first of FINALS; without it they are taken from the present table

Exact decimal arithmetic on the printed digits; the library's own readers have no part in it.
"""
import datetime
import pathlib
import re
import sys
from decimal import Decimal

MJD_EPOCH = datetime.date(1858, 11, 17)
NTP_EPOCH_MJD = 15020
FIRST = 41317  # 1972-01-01: UTC with leap seconds begins
FINAL, OBSERVED, PREDICTED = 0, 1, 3
PRESENT = pathlib.Path(__file__).parent.parent / "data" / "time_correlation.csv"

HEAD = """\
# Correlation of the time scales and pole of the Earth, daily at 0h UTC. Made by tools/time_correlation.py; do not edit.
#
# {first} to {before}: EOP series 14 C04 of the IERS Earth orientation centre (eopc04_IAU2000.62-now, as Debian's
#   python3-astropy 5.2.1 carries it).
# {finals} to {last}: finals2000A.all of the IERS rapid service: Bulletin B where it is final (to {last_final}),
#   else Bulletin A, predicted after {last_observed}.
# Leap seconds: IERS Bulletin C ({leap_name}).
#
# leap,MJD from which it holds,TAI-UTC in s
# expires,MJD up to which the leap seconds are announced
# MJD,quality (0 final, 1 observed, 3 predicted),UT1-UTC in 1e-7 s,x,y,dX,dY in 1e-6 arcsec (dX, dY: IAU 2000)
"""


def digits(text, decimals):
    """A printed number in units of its last decimal."""
    value = Decimal(text.strip()).scaleb(decimals)
    assert value == int(value), text
    return int(value)


def read_finals(path):
    rows = {}
    for line in open(path, encoding="ascii"):
        flag = line[57]
        if flag not in "IP":
            continue
        mjd = int(float(line[7:15]))
        quality = OBSERVED if flag == "I" else PREDICTED
        ut1, x, y = digits(line[58:68], 7), digits(line[18:27], 6), digits(line[37:46], 6)
        dx, dy = (digits(line[97:106], 3), digits(line[116:125], 3)) if line[95] in "IP" else (0, 0)
        final = line[134:144], line[144:154], line[154:165]
        if all(text.strip() for text in final):
            quality = FINAL
            x, y, ut1 = digits(final[0], 6), digits(final[1], 6), digits(final[2], 7)
        rows[mjd] = (quality, ut1, x, y, dx, dy)
    return rows


def read_c04(path):
    rows = {}
    for line in open(path, encoding="ascii"):
        fields = line.split()
        if len(fields) == 16 and fields[3].isdigit() and int(fields[3]) >= FIRST:
            x, y, ut1, _, dx, dy = fields[4:10]
            rows[int(fields[3])] = (FINAL, digits(ut1, 7), digits(x, 6), digits(y, 6), digits(dx, 6), digits(dy, 6))
    return rows


def read_present():
    rows = {}
    for line in open(PRESENT, encoding="ascii"):
        if line[0].isdigit():
            mjd, *values = map(int, line.split(","))
            rows[mjd] = tuple(values)
    return rows


def read_leap_seconds(path):
    steps, expires = [], None
    for line in open(path, encoding="ascii"):
        words = line.split()
        if line.startswith("#@"):
            expires = int(words[1]) // 86400 + NTP_EPOCH_MJD
        elif "expires on" in line:
            date = re.search(r"expires on +(\d+ +\w+ +\d+)", line).group(1)
            expires = (datetime.datetime.strptime(date, "%d %B %Y").date() - MJD_EPOCH).days
        elif words and not line.startswith("#"):
            ntp = len(words[0]) == 10
            steps.append((int(words[0]) // 86400 + NTP_EPOCH_MJD, int(words[1])) if ntp
                         else (int(float(words[0])), int(words[4])))
    return steps, expires


def date_of(mjd):
    return (MJD_EPOCH + datetime.timedelta(mjd)).isoformat()


def main():
    finals = read_finals(sys.argv[1])
    steps, expires = read_leap_seconds(sys.argv[2])
    rows = read_c04(sys.argv[3]) if len(sys.argv) > 3 else read_present()
    rows = {mjd: row for mjd, row in rows.items() if mjd < min(finals)} | finals
    days = sorted(rows)
    assert days == list(range(FIRST, days[-1] + 1)), "a day is missing"
    qualities = [rows[mjd][0] for mjd in days]
    assert qualities == sorted(qualities), "final, observed and predicted days are mixed"

    def last_of(quality):
        return date_of(max(mjd for mjd in days if rows[mjd][0] <= quality))

    out = [HEAD.format(first=date_of(FIRST), before=date_of(min(finals) - 1), finals=date_of(min(finals)),
                       last=date_of(days[-1]), last_final=last_of(FINAL), last_observed=last_of(OBSERVED),
                       leap_name=pathlib.Path(sys.argv[2]).name)]
    out += [f"leap,{mjd},{seconds}\n" for mjd, seconds in steps]
    out.append(f"expires,{expires}\n")
    out += [",".join(map(str, (mjd, *rows[mjd]))) + "\n" for mjd in days]
    sys.stdout.write("".join(out))


main()
