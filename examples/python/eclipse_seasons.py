"""Eclipse seasons of a geostationary satellite over a year: the umbra around the equinoxes, up to 67 minutes a night."""
import matplotlib
import numpy as np
from numpy.typing import NDArray

import kitlib as kl
from kitlib import events, plot

matplotlib.use("Agg")
LONGITUDE, RADIUS = np.radians(10.0), 42164172.0


def orbit(t: NDArray[np.float64]) -> NDArray[np.float64]:
    """It stands still in the Earth-fixed frame."""
    place = RADIUS * np.array([np.cos(LONGITUDE), np.sin(LONGITUDE), 0.0])
    return np.broadcast_to(place, t.shape + (3,))


start = kl.mjd2000("2026-01-01T00:00:00Z")
found = events.eclipses(orbit, start, start + 365, cs="EF", step=1 / 48)
minutes = (found.stop - found.start) * 1440
season = np.concatenate([[0], np.nonzero(np.diff(found.start) > 2)[0] + 1])
for first, last in zip(season, [*season[1:], len(minutes)]):
    longest = first + minutes[first:last].argmax()
    print(f"{last - first} eclipses from {kl.to_datetime64(found.start[first], 's')} to {kl.to_datetime64(found.stop[last - 1], 's')}, "
          f"the longest {minutes[longest]:.2f} min on {kl.to_datetime64(found.start[longest], 'D')}")
plot.eclipse_seasons(found.start, found.stop).figure.savefig("eclipse_seasons.png", dpi=80)
