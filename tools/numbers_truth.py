#!/usr/bin/env python3
"""Values of the angle, degree and complex functions in 60 digits: python3 tools/numbers_truth.py (needs python3-mpmath).

Writes tests/data/angles.csv, degree_functions.csv and complex.csv.
"""
import math
from fractions import Fraction

from mpmath import mp, mpc, mpf

mp.dps = 60
INF, PI, TURN = math.inf, math.pi, 2.0 * math.pi
ROUNDED = 2e-15  # a few roundings of an angle


def number(x):
    if isinstance(x, float):
        return repr(x)
    return mp.nstr(x, 20, min_fixed=-5, max_fixed=21) if mp.isfinite(x) else str(float(x))


def write(name, comment, header, rows):
    with open(f"tests/data/{name}.csv", "w", encoding="ascii") as file:
        file.write(f"# Made by tools/numbers_truth.py: {comment}\n{header}\n")
        for row in rows:
            file.write(",".join(x if isinstance(x, str) else number(x) for x in row) + "\n")


def reduced(x, turn, least):
    """Exactly; what rounds to the open end is at the other one."""
    rest = (Fraction(x) - Fraction(least)) % Fraction(turn) + Fraction(least)
    return least if float(rest) >= least + turn else mpf(rest.numerator) / rest.denominator


def besselian_year(day):  # explanatory supplement of the IERS bulletins
    return 2000 + (day - mpf("0.03")) / mpf("365.2422")


def ut2_ut1(day):
    t = 2 * mp.pi * besselian_year(day)
    return 0.001 * (22 * mp.sin(t) - 12 * mp.cos(t) - 6 * mp.sin(2 * t) + 7 * mp.cos(2 * t))


def angles():
    for x in (0.0, TURN, -TURN, PI, -PI, 1.0, -1.0, 4.0, 7.0, -1e-20):
        yield "KL_to_2pi", x, reduced(x, TURN, 0.0), 0.0 if abs(x) in (0.0, TURN) else ROUNDED
        yield "KL_to_pi", x, reduced(x, TURN, -PI), ROUNDED
    for x in (-1080000.0, -1000.0, -10.0, 359.0, 361.0):
        yield "KL_to_360", x, reduced(x, 360.0, 0.0), 1e-12
    for x in (-190.0, -170.0, 190.0, 1000.0):
        yield "KL_to_180", x, reduced(x, 360.0, -180.0), 1e-12
    yield "KL_to_deg", 1.0, mp.degrees(1), 1e-13
    yield "KL_to_rad", 123.0, mp.radians(123), ROUNDED
    for x in (0.0, -18262.0, 9821.25):
        yield "KL_Get_Bessel", x, besselian_year(x), 5e-13
    for x in (0.0, -18262.0, 9821.25):
        yield "KL_Get_ut2_ut1", x, ut2_ut1(x), 1e-12
    yield "KL_Get_ut2_ut1", 1e20, 0.0, 0.05


def degree_functions():
    for a, b in ((1.0, 5.0), (3.0, 5.0), (5.0, 3.0), (5.0, 1.0)):  # two directions in every eighth of the turn
        for y in (a, -a):
            for x in (b, -b):
                yield "KL_degatan2", y, x
    for y in (0.0, -0.0):
        for x in (0.0, -0.0, 1.0, -1.0):
            yield "KL_degatan2", y, x
    for y, x in ((INF, INF), (-INF, INF), (INF, -INF), (-INF, -INF), (INF, 1.0), (-INF, -1.0), (1.0, INF), (1.0, -INF),
                 (-1.0, -INF), (1.0, 1.0), (-1.0, 0.0), (1e-310, 2e-310), (-3e-320, -4e-320), (5e-324, 1.0),
                 (-5e-324, -1.0), (1e300, 1e-300), (1e300, -3e300), (-1e-300, 1e300), (-1e-300, -1e300),
                 (0.41421356237309503, 1.0), (0.4142135623730951, 1.0)):
        yield "KL_degatan2", y, x
    for x in (0.0, -0.0, 5e-324, -1e-300, 0.3, -0.5, 0.75, -0.999, 0.9999999999999998, 1.0, -1.0):
        yield "KL_degasin", x, 0.0
    for x in (0.0, -0.0, 5e-324, 0.3, -0.5, 0.75, -0.999, 0.9999999999999998, -0.9999999999999998, 1.0, -1.0):
        yield "KL_degacos", x, 0.0
    arguments = (1e-310, -1e-300, 1e-9, 20.0, 45.0, -70.0, 110.0, 160.0, -200.0, 250.0, 290.0, 340.0, -359.75, 1e6, 1e9,
                 5.8e9, -1e300)
    for x in (0.0,) + arguments:
        yield "KL_degsin", x, 0.0
    for x in (0.0, -0.0) + arguments:
        yield "KL_degcos", x, 0.0


def in_degrees(function, x, y):
    if function == "KL_degatan2":
        if x == 0.0 or math.isinf(y) or math.isinf(x):  # signs and limits as C has them
            return math.degrees(math.atan2(x, y))
        angle = mp.degrees(mp.atan2(mpf(x), mpf(y)))
        return math.copysign(0.0, x) if float(angle) == 0.0 else angle
    if function == "KL_degasin":
        return x if x == 0.0 else mp.degrees(mp.asin(mpf(x)))
    if function == "KL_degacos":
        return mp.degrees(mp.acos(mpf(x)))
    radians = mpf(x * (PI / 180.0))  # of the double to which x times the double pi / 180 rounds
    return mp.sin(radians) if function == "KL_degsin" else mp.cos(radians)


def complex_numbers():
    roots = ((3.0, -4.0), (1e300, 1e300), (-2.0, 1e-9), (-5.0, 0.0), (0.0, -2.0), (1e-300, 2e-300), (0.0, 0.0))
    for re, im in roots:
        yield "KL_Csqrt", (re, im), (0.0, 0.0), mp.sqrt(mpc(re, im))
        yield "KL_Cabs", (re, im), (0.0, 0.0), mpc(abs(mpc(re, im)))
    for a, b in (((1e300, 2e300), (3e300, -1e300)), ((1.5, -2.0), (0.25, 3.0))):
        yield "KL_Cdiv", a, b, mpc(*a) / mpc(*b)
    a, b = (1.0, 2.0), (-3.0, 0.5)
    yield "KL_Cmul", a, b, mpc(*a) * mpc(*b)
    yield "KL_Cadd", a, b, mpc(*a) + mpc(*b)
    yield "KL_Csub", a, b, mpc(*a) - mpc(*b)
    yield "KL_Conjg", a, (0.0, 0.0), mp.conj(mpc(*a))
    yield "KL_RCmul", a, (-2.0, 0.0), -2 * mpc(*a)


write("angles", "a whole turn is the double nearest to it. Rad, but deg for 360 and 180; MJD2000 to year, to s.",
      "function,argument,value,tolerance", angles())
write("degree_functions", "arc tangent of first by second, arc sine, arc cosine, sine, cosine of the first.",
      "function,first,second,value (deg or 1)", ((f, x, y, in_degrees(f, x, y)) for f, x, y in degree_functions()))
write("complex", "of two complex numbers; KL_RCmul takes the real part of the second.",
      "function,re,im,second re,second im,value re,value im",
      ((f, *a, *b, z.real, z.imag) for f, a, b, z in complex_numbers()))
