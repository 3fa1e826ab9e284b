"""Which stars a star tracker sees: those in a cone about its axis, with the aberration of the satellite's own motion."""
import numpy as np

import kitlib as kl

t = kl.mjd2000("2026-06-21T08:24:00Z")
axis_ra, axis_dec, radius = 83.0, -2.0, 5.0
stars, places = kl.star_catalog(t, magnitudes=(-2.0, 3.5), cone=(axis_ra, axis_dec, radius), cs_out="TOD")
brightest = np.argsort(stars["magnitude"])
position, velocity = np.array([7.0e6, 0.0, 0.0]), np.array([0.0, 0.0, 7.6e3])  # GM2000, m and m/s
for k in brightest:
    moved = kl.star_radec(t, stars[k], position, velocity, cs_out="TOD")
    shift = 3600 * np.hypot((moved.ra - places["ra"][k]) * np.cos(np.radians(moved.dec)), moved.dec - places["dec"][k])
    print(f"HR {stars['number'][k]:5} {stars['magnitude'][k]:5.2f} mag  {moved.ra:9.5f} {moved.dec:9.5f} deg, "
          f"of which {shift:4.2f} arcsec by the satellite's own velocity")
