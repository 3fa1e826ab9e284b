#!/usr/bin/python3
"""Draws the error of the conventional chain by years. Usage: chain_picture.py YEARS.csv PICTURE.png"""
import csv
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

with open(sys.argv[1]) as f:
    names, *rows = csv.reader(f)
figure, axes = plt.subplots(figsize=(9, 5), dpi=110)
years = [int(row[0]) for row in rows]
for column, name in enumerate(names[1:], 1):
    axes.plot(years, [float(row[column]) for row in rows], label=name, linewidth=1.6,
              linestyle="--" if name == "GM2000 taken for GCRS" else "-")
axes.set_xlabel("year")
axes.set_ylabel("largest error of the year at 7000 km, m")
axes.set_title("The conventional chain beside the frames of the IERS Conventions")
axes.set_xlim(1950, 2100)
axes.set_ylim(0)
axes.grid(alpha=0.3)
axes.legend()
figure.tight_layout()
figure.savefig(sys.argv[2], metadata={"Software": None})
