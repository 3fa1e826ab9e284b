#!/usr/bin/env python3
"""Makes tests/data/earth_orientation.csv: UT1-UTC and pole at dates all over the series, read by astropy.

/usr/bin/python3 tools/earth_orientation_reference.py finals2000A.all >tests/data/earth_orientation.csv

astropy.utils.iers reads the same file with its own parser and interpolates it linearly, Bulletin B where it is final. Days
that end with a leap second are left out: there it interpolates in days of 86400 s. TAI-UTC comes from ERFA's eraDat.
"""
import random
import sys

import erfa
from astropy.time import Time
from astropy.utils import iers

iers.conf.auto_download = False
iers.conf.auto_max_age = None


def main():
    table = iers.IERS_A.open(sys.argv[1])
    random.seed(20261121)
    dates = sorted({41684, 41700.5, 53735.5, 57753.75, 57754, 57754.25, 61221, 61222.5, 61637.5}
                   | {round(random.uniform(41684, 61637), 4) for _ in range(200)})
    print("# Made by tools/earth_orientation_reference.py from finals2000A.all of August 2026 with astropy "
          + __import__("astropy").__version__)
    print("# MJD (UTC),TAI-UTC s,UT1-UTC s,x arcsec,y arcsec")
    for mjd in dates:
        day, part = divmod(mjd, 1)
        ut1, _ = table.ut1_utc(2400000.5 + day, part, return_status=True)
        x, y, _ = table.pm_xy(2400000.5 + day, part, return_status=True)
        date = Time(mjd, format="mjd", scale="utc").datetime
        tai = erfa.dat(date.year, date.month, date.day, 0)
        after = Time(int(mjd) + 1, format="mjd", scale="utc").datetime
        if part and erfa.dat(after.year, after.month, after.day, 0) != tai and mjd not in (57753.75,):
            continue
        print(f"{mjd},{tai:.0f},{ut1.to_value('s'):.16g},{x.to_value('arcsec'):.16g},{y.to_value('arcsec'):.16g}")


main()
