"""Where is the Sun overhead during the June solstice of 2026, and how high is the geoid there?"""
import kitlib as kl
import numpy as np

t = kl.mjd2000("2026-06-21T08:24:00Z") + np.arange(4) / 4  # days, UTC
sun = kl.sun(t)  # sun.pos [4, 3] m, Earth-fixed
lat = np.degrees(np.arctan2(sun.pos[:, 2], np.hypot(sun.pos[:, 0], sun.pos[:, 1])))
lon = np.degrees(np.arctan2(sun.pos[:, 1], sun.pos[:, 0])) % 360
for row in zip(kl.to_datetime64(t, "s"), lat, lon, kl.geoid(lat, lon)):
    print("%s  %6.3f N %7.3f E  geoid %6.2f m" % row)
