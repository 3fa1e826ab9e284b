#!/usr/bin/env python3
"""Sums of data/iers/tides.csv for tests/data/short_period_terms.csv: angles as fractions, terms one by one.

    python3 tools/short_period_truth.py
"""
import csv
from fractions import Fraction as F
from math import cos, pi, sin
from pathlib import Path

# Turns by powers of t, Julian centuries from J2000.0: gamma = GMST + half a turn; l, l', F, D, Om in degrees and arcsec.
GAMMA = [F("67310.54841") / 86400 + F(1, 2), F("8640184.812866") / 86400 + 36525, F("0.093104") / 86400, F("-0.0000062") / 86400]
DELAUNAY = [("134.96340251", "1717915923.2178", "31.8792", "0.051635", "-0.00024470"),
            ("357.52910918", "129596581.0481", "-0.5532", "0.000136", "-0.00001149"),
            ("93.27209062", "1739527262.8478", "-12.7512", "-0.001037", "0.00000417"),
            ("297.85019547", "1602961601.2090", "-6.3706", "0.006593", "-0.00003169"),
            ("125.04455501", "-6962890.5431", "7.4722", "0.007702", "-0.00005939")]
ARGUMENTS = [GAMMA] + [[F(d) / 360] + [F(c) / 1296000 for c in rest] for d, *rest in DELAUNAY]


def main():
    path = Path(__file__).resolve().parents[1] / "data/iers/tides.csv"
    rows = list(csv.DictReader(line for line in path.read_text().splitlines() if not line.startswith("#")))
    for mjd in ("41000.25", "55555.625", "60000"):
        t = (F(mjd) - F("51544.5")) / 36525
        turns = [sum(c * t ** k for k, c in enumerate(a)) for a in ARGUMENTS]
        for kind, name in (("ocean", "KL_EOP_OCEAN_TIDES"), ("libration", "KL_EOP_LIBRATION")):
            sums = [0.0, 0.0, 0.0]
            for row in rows:
                if row["kind"] == kind:
                    angle = sum(int(row[n]) * a for n, a in zip(("gamma", "l", "l'", "F", "D", "Om"), turns))
                    angle = 2.0 * pi * float(angle - int(angle))
                    for i, of in enumerate(("x", "y", "ut1")):
                        sums[i] += float(row[of + "_sin"]) * sin(angle) + float(row[of + "_cos"]) * cos(angle)
            for i in range(3):
                print(f"{mjd}|{name}|{i}|{sums[i]:.9f}|1e-5")


if __name__ == "__main__":
    main()
