"""From an IERS bulletin to a time id: UT1 and the pole between its days.

The argument is a file of any format that the library reads: bulletins, finals2000A, C04, lists of leap seconds.
"""
import os
import sys

import numpy as np

import kitlib as kl

HERE = os.path.dirname(os.path.abspath(__file__))
path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "..", "..", "tests", "data", "bulletina-xxvi-045.txt")

with kl.TimeId.from_files([path]) as time:
    print(time)
    t = np.linspace(time.report.first + 0.25, time.report.last - 0.25, 5)
    ut1 = kl.time_processing_to_processing(t, ref_in="UTC", ref_out="UT1", time=time)
    for instant, difference, pole in zip(kl.to_datetime64(t, "s"), (ut1 - t) * 86400, time.pole(t)):
        print(f"{instant}  UT1-UTC {difference:8.5f} s  pole {pole[0]:8.5f} {pole[1]:8.5f} arcsec")
