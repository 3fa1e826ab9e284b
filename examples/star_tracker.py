#!/usr/bin/python3
"""Draws the file of star_tracker. Usage: star_tracker.py SKY.csv PICTURE.png (Debian: python3-matplotlib)"""
import csv
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

ENLARGED = 200  # times: 20 arcsec are drawn as 1.1 deg
with open(sys.argv[1]) as f:
    rows = [[float(x) for x in row] for row in list(csv.reader(f))[1:]]
figure, axes = plt.subplots(figsize=(8, 8), dpi=110)
figure.set_facecolor("#0b1026")
axes.set_facecolor("#0b1026")
for number, magnitude, ra, dec, ra_earth, dec_earth, ra_seen, dec_seen in rows:
    axes.scatter(ra, dec, s=170 * 10 ** (-0.26 * magnitude) + 2, color="#fff6d5", linewidths=0, zorder=3)
    east, north = ENLARGED * (ra_earth - ra), ENLARGED * (dec_earth - dec)
    axes.plot([ra, ra + east], [dec, dec + north], color="#5aa9e6", linewidth=0.9)
    axes.plot([ra + east, ra + ENLARGED * (ra_seen - ra)], [dec + north, dec + ENLARGED * (dec_seen - dec)],
              color="#ff7f51", linewidth=1.2)
axes.plot([], [], color="#5aa9e6", label=f"aberration of the Earth's way, {ENLARGED} times")
axes.plot([], [], color="#ff7f51", label=f"of the satellite's own, {ENLARGED} times")
axes.add_patch(plt.Circle((84, 0), 12, fill=False, color="#8892b0", linewidth=0.8))
axes.set_xlim(97, 71)  # east is left
axes.set_ylim(-13, 13)
axes.set_aspect("equal")
axes.set_xlabel("right ascension, deg", color="#ccd6f6")
axes.set_ylabel("declination, deg", color="#ccd6f6")
axes.tick_params(colors="#ccd6f6")
axes.set_title("The sky of a star tracker", color="#ccd6f6")
legend = axes.legend(loc="upper right", facecolor="#0b1026", edgecolor="#8892b0")
for text in legend.get_texts():
    text.set_color("#ccd6f6")
figure.tight_layout()
figure.savefig(sys.argv[2], metadata={"Software": None}, facecolor=figure.get_facecolor())
