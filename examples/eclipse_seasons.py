#!/usr/bin/python3
"""Draws the file of eclipse_seasons. Usage: eclipse_seasons.py YEAR.csv PICTURE.png (Debian: python3-matplotlib)"""
import csv
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

with open(sys.argv[1]) as f:
    names, *rows = csv.reader(f)
columns = [[float(row[i]) for row in rows] for i in range(len(names))]
figure, all_axes = plt.subplots(2, 1, figsize=(9, 6.4), dpi=110, sharex=True)
for axes, satellites, unit in ((all_axes[0], (1, 3), "minutes an orbit"), (all_axes[1], (5,), "minutes a day")):
    for column, colour in zip(satellites, ("#1f4e79", "#c0504d")):
        name = names[column].replace(" umbra", "")
        both = [u + p for u, p in zip(columns[column], columns[column + 1])]
        axes.fill_between(columns[0], both, step="mid", color=colour, alpha=0.35, linewidth=0)
        axes.fill_between(columns[0], columns[column], step="mid", color=colour, alpha=0.8, linewidth=0, label=name)
    axes.set_ylabel(unit)
    axes.set_ylim(0)
    axes.grid(alpha=0.3)
    axes.legend(loc="lower center" if len(satellites) > 1 else "upper right")
all_axes[0].set_title("Eclipses of 2026: sun-synchronous at 700 km, geostationary; pale: with the penumbra")
all_axes[1].set_xlabel("day of the year")
all_axes[1].set_xlim(1, 365)
figure.tight_layout()
figure.savefig(sys.argv[2], metadata={"Software": None})
