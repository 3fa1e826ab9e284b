#!/usr/bin/env python3
"""Makes data/time_correlation.csv from published IERS figures.

tools/time_correlation.py EOPC04 LEAP_SECONDS_LIST >data/time_correlation.csv

EOPC04             IERS 14 C04 series of Earth orientation ("eopc04_IAU2000.62-now"; Debian: python3-astropy)
LEAP_SECONDS_LIST  leap-seconds.list of IERS Bulletin C (Debian: tzdata, /usr/share/zoneinfo)
"""
import bisect
import datetime
import sys

MJD_EPOCH = datetime.date(1858, 11, 17)
NTP_EPOCH_MJD = 15020
FIRST = 41317  # 1972-01-01: UTC with leap seconds begins
STEP = 5       # days

# Delta T = TT - UT1 at 1 January, to the hundredth of a second, for the years that the C04 file does not reach.
DELTA_T = {2024: 69.18, 2025: 69.14, 2026: 69.11}
TT_MINUS_TAI = 32.184

HEAD = """\
# TAI-UTC and UT1-UTC at 0h UTC, seconds. Made by tools/time_correlation.py; do not edit.
#
# TAI-UTC    IERS Bulletin C, file leap-seconds.list (tzdata {tzdata}): {n_leaps} leap seconds since 1972, none announced
#            before {expires}.
# UT1-UTC    IERS Earth orientation series 14 C04 (eopc04_IAU2000.62-now, as Debian's python3-astropy 5.2.1 carries
#            it), {first} to {last}: every {step} days, and both days around each leap second. Read linearly
#            between rows, UT1 differs from the daily series by at most {worst:.1f} ms. The seven decimals are the file's; its
#            uncertainty is 2 ms in 1972, below 0.5 ms since 1990 and 0.01 ms in the last years.
#            From 2024 on: 32.184 s + TAI-UTC - Delta T at 1 January, Delta T from the table of TT-UT1 of the U.S.
#            Naval Observatory and IERS to 0.01 s (as npm's @tubular/time 3.10.7 carries it; its values of 2020 to 2022
#            agree with C04). Between those rows UT1 is good to about 0.03 s, not better.
#
# date,TAI-UTC,UT1-UTC"""


def date_of(mjd):
    return (MJD_EPOCH + datetime.timedelta(mjd)).isoformat()


def read_c04(path):
    series = {}
    with open(path, encoding="ascii") as lines:
        for line in lines:
            fields = line.split()
            if len(fields) == 16 and fields[3].isdigit() and int(fields[3]) >= FIRST:
                series[int(fields[3])] = fields[6]
    return series


def read_leap_seconds(path):
    steps = []
    expires = None
    with open(path, encoding="ascii") as lines:
        for line in lines:
            if line.startswith("#@"):
                expires = int(line.split()[1]) // 86400 + NTP_EPOCH_MJD
            elif line.strip() and not line.startswith("#"):
                ntp, seconds = line.split()[:2]
                steps.append((int(ntp) // 86400 + NTP_EPOCH_MJD, int(seconds)))
    return steps, expires


def main():
    series = read_c04(sys.argv[1])
    steps, expires = read_leap_seconds(sys.argv[2])
    step_days = [mjd for mjd, _ in steps]

    def tai_utc(mjd):
        return steps[bisect.bisect_right(step_days, mjd) - 1][1]

    last = max(series)
    days = {mjd for mjd in series if (mjd - FIRST) % STEP == 0} | {last}
    for mjd in step_days[1:]:
        days |= {mjd - 1, mjd}
    days = sorted(days)

    tai_ut1 = {mjd: tai_utc(mjd) - float(text) for mjd, text in series.items()}
    worst = 0.0
    for mjd, truth in tai_ut1.items():
        i = min(bisect.bisect_right(days, mjd), len(days) - 1)
        a, b = days[i - 1], days[i]
        read = tai_ut1[a] + (tai_ut1[b] - tai_ut1[a]) * (mjd - a) / (b - a)
        worst = max(worst, abs(read - truth))

    print(HEAD.format(tzdata="2026f", n_leaps=len(steps) - 1,
                      expires=date_of(expires), first=date_of(FIRST), last=date_of(last), step=STEP,
                      worst=1000.0 * worst))
    for mjd in days:
        print(f"{date_of(mjd)},{tai_utc(mjd)},{series[mjd]}")
    for year, delta_t in DELTA_T.items():
        day = datetime.date(year, 1, 1)
        seconds = tai_utc((day - MJD_EPOCH).days)
        print(f"{day},{seconds},{TT_MINUS_TAI + seconds - delta_t:.2f}")


main()
