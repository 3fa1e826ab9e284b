"""Height of the geoid along a track: sea level below a satellite that crosses the Indian Ocean low."""
import numpy as np

import kitlib as kl

latitude = np.linspace(-30.0, 30.0, 13)
longitude = 76.0 + 0.2 * np.arange(13)
coarse, fine = kl.geoid(latitude, longitude, max_degree=36), kl.geoid(latitude, longitude)
for row in zip(latitude, longitude, coarse, fine):
    print("%6.1f %6.1f  %8.2f m to degree 36 %8.2f m to degree 360" % row)
print(f"lowest {fine.min():.2f} m at latitude {latitude[fine.argmin()]:.1f}")
