#!/usr/bin/env python3
"""Prints the matrix GCRS -> EME2000 of the frame bias (IERS Conventions 2003, chapter 5), computed in 40 digits."""
from mpmath import cos, matrix, mp, pi, sin

mp.dps = 40
arcsec = pi / 648000
dpsi, deps, dalpha, eps0 = (mp.mpf(x) * arcsec for x in ("-0.041775", "-0.0068192", "-0.0146", "84381.448"))


def turn(axis, angle):
    m = matrix(3, 3)
    i, j = (axis + 1) % 3, (axis + 2) % 3
    m[axis, axis] = 1
    m[i, i] = m[j, j] = cos(angle)
    m[i, j], m[j, i] = sin(angle), -sin(angle)
    return m


bias = turn(0, -deps) * turn(1, dpsi * sin(eps0)) * turn(2, dalpha)
for i in range(3):
    print(", ".join(mp.nstr(bias[i, k], 17) for k in range(3)))
