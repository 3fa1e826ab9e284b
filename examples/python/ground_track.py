"""TEME states of a propagator (SGP4) to a ground track: one orbit of a low satellite, with day and night in the picture."""
import matplotlib
import numpy as np
from sgp4.api import Satrec

import kitlib as kl
from kitlib import plot

matplotlib.use("Agg")
SATELLITE = Satrec.twoline2rv("1 25544U 98067A   26171.50000000  .00010000  00000-0  18000-3 0  9990",
                              "2 25544  51.6400 100.0000 0005000  60.0000 300.0000 15.50000000 10000")

t = kl.mjd2000("2026-06-20T12:00:00Z") + np.arange(0.0, 93.0, 0.5) / 1440
_, position, velocity = SATELLITE.sgp4_array(np.full(t.shape, 2451544.5), t)  # km, TEME
fixed = kl.change_cart_cs(t, position * 1e3, velocity * 1e3, cs_in="TEME", cs_out="EF")
below = kl.cart_to_geod(fixed.pos)
for k in range(0, len(t), 31):
    print(f"{kl.to_datetime64(t[k], 's')}  {below.latitude[k]:8.3f} {below.longitude[k]:8.3f} deg {below.height[k] / 1e3:8.2f} km")
plot.ground_track(below.latitude, below.longitude, t).figure.savefig("ground_track.png", dpi=80)
