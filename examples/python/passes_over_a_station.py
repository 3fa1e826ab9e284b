"""Passes of a satellite over a station in a day: rise, highest point and set."""
import numpy as np
from numpy.typing import NDArray
from sgp4.api import Satrec

import kitlib as kl
from kitlib import events

SATELLITE = Satrec.twoline2rv("1 25544U 98067A   26171.50000000  .00010000  00000-0  18000-3 0  9990",
                              "2 25544  51.6400 100.0000 0005000  60.0000 300.0000 15.50000000 10000")
STATION = (48.0, 11.0, 600.0)  # geodetic latitude, longitude, height


def orbit(t: NDArray[np.float64]) -> NDArray[np.float64]:
    """Positions, m, TEME."""
    position: NDArray[np.float64] = SATELLITE.sgp4_array(np.full(t.shape, 2451544.5), t)[1]
    return position * 1e3


start = kl.mjd2000("2026-06-20T12:00:00Z")
found = events.passes(orbit, STATION, start, start + 1, elevation=5.0, cs="TEME")
for rise, top, fall, elevation in zip(*(kl.to_datetime64(x, "s") for x in (found.rise, found.top, found.set)), found.elevation):
    print(f"{rise}  {str(top)[11:]}  {str(fall)[11:]}  {elevation:5.1f} deg")
