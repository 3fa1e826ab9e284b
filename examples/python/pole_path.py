"""The way of the Earth's pole of rotation over ten years, from the correlation that the package brings along."""
import matplotlib
import numpy as np

import kitlib as kl
from kitlib import plot

matplotlib.use("Agg")
time_id = kl.TimeId.bundled()
day = np.arange(kl.mjd2000("2016-01-01T00:00:00"), kl.mjd2000("2026-01-01T00:00:00") + 1)
pole = time_id.pole(day)  # x, y, dX, dY, arcsec
for year in range(2016, 2027, 2):
    x, y = pole[day == kl.mjd2000(f"{year}-01-01T00:00:00")][0, :2]
    print(f"{year}: x {x:7.4f} y {y:7.4f} arcsec, {np.hypot(x, y) / 3600 * np.pi / 180 * 6378137:5.2f} m from the pole of the crust's axes")
plot.pole_path(time_id, day).figure.savefig("pole_path.png", dpi=80)
