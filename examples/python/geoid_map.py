"""The geoid of EGM96 over the world: where it lies lowest and highest over the ellipsoid, and its height on average."""
import matplotlib
import numpy as np

import kitlib as kl
from kitlib import plot

matplotlib.use("Agg")
latitude, longitude = np.arange(-90.0, 91.0), np.arange(0.0, 360.0)
height = kl.geoid_grid(latitude, longitude, max_degree=360)  # m, a degree apart
for name, at in (("lowest", height.argmin()), ("highest", height.argmax())):
    i, j = np.unravel_index(at, height.shape)
    print(f"{name:8}{height[i, j]:8.2f} m at {latitude[i]:4.0f} {longitude[j]:4.0f} deg")
weight = np.cos(np.radians(latitude))  # of the parallels: their length
print(f"average {np.average(height.mean(axis=1), weights=weight):8.2f} m")
plot.geoid_map(step=1.0, max_degree=360).figure.savefig("geoid_map.png", dpi=80)
