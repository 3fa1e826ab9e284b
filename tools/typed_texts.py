#!/usr/bin/env python3
"""Texts of times as people write them and the instants that they are: tests/data/typed_texts.csv, on standard output.

Whole numbers throughout: days are counted year by year and month by month, decimals are fractions. Two correlations:
"constant" has TAI-UTC 37 s, TAI-UT1 36.4 s and TAI-GPS 19 s at every instant; "leap" has TAI-UTC 36 s before
2017-01-01 and 37 s from then on, with the leap second 2016-12-31T23:59:60 between.
"""
from fractions import Fraction
import random

MONTHS = "JAN FEB MAR APR MAY JUN JUL AUG SEP OCT NOV DEC".split()
BEHIND = {"TAI": 0, "UTC": 37000000, "UT1": 36400000, "GPS": 19000000}


def leap(year):
    return year % 4 == 0 and (year % 100 != 0 or year % 400 == 0)


def lengths(year):
    return [31, 29 if leap(year) else 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31]


def day_number(year, month, day):
    days = sum(366 if leap(y) else 365 for y in range(1900, year)) - sum(366 if leap(y) else 365 for y in range(1900, 2000))
    return days + sum(lengths(year)[:month - 1]) + day - 1


def microseconds(h, m, s, decimals):
    exact = Fraction(3600 * h + 60 * m + s) * 10**6 + (Fraction(int(decimals), 10**len(decimals)) * 10**6 if decimals else 0)
    return int((exact + Fraction(1, 2)) // 1)


def row(text, default, correlation, day, us):
    day, us = day + us // (86400 * 10**6), us % (86400 * 10**6)
    print("|".join((text.replace("\t", "\\t").replace("\r", "\\r").replace("\n", "\\n"), default, correlation, str(day), str(us))))


def written(choose, layout, y, mo, d, h, mi, s, decimals):
    gap = choose.choice("T_ ")
    if layout == "compact":
        return f"{y:04}{mo:02}{d:02}{gap}{h:02}{mi:02}{s:02}{decimals}"
    name = MONTHS[mo - 1]
    name = choose.choice([name, name.lower(), name.capitalize(), name[0].lower() + name[1:]])
    ordinal = day_number(y, mo, d) - day_number(y, 1, 1) + 1
    date = {"calendar": f"{y:04}-{mo:02}-{d:02}", "ordinal": f"{y:04}-{ordinal:03}", "named": f"{d:02}-{name}-{y:04}"}[layout]
    return f"{date}{gap}{h:02}:{mi:02}:{s:02}" + ("." + decimals if decimals else "")


def main():
    choose = random.Random(20261122)
    print("# Made by tools/typed_texts.py. Tabs and line ends of texts are written \\t \\r \\n.")
    print("text|default scale|correlation|TAI, days since 2000-01-01|TAI, microseconds of day")
    for i in range(160):
        y = choose.choice([1950, 1972, 1999, 2000, 2023, 2024, 2026, 2096, 2098])
        mo = choose.randint(1, 12)
        d = choose.choice([1, lengths(y)[mo - 1], choose.randint(1, lengths(y)[mo - 1])])
        if (y, mo, d) == (1950, 1, 1):
            d = 2
        h, mi, s = choose.choice([(0, 0, 0), (23, 59, 59), (choose.randint(0, 23), choose.randint(0, 59), choose.randint(0, 59))])
        layout = choose.choice(["calendar", "ordinal", "named", "compact"])
        n = choose.choice([0, 6]) if layout == "compact" else choose.randint(0, 9)
        decimals = "".join(choose.choice("0123456789" if choose.random() < 0.5 else "945") for _ in range(n))
        text = written(choose, layout, y, mo, d, h, mi, s, decimals)
        scale, default = choose.choice(list(BEHIND)), choose.choice(list(BEHIND))
        how = choose.randint(0, 3)
        if how == 0:
            scale = default
        elif how == 1:
            scale, text = "UTC", text + "Z"
        elif how == 2:
            text = scale + "=" + text
        else:
            scale, text = "UTC", "UTC=" + text + "Z"
        if how > 0 and choose.random() < 0.3:
            default = "none"
        text = choose.choice(["", "", " ", "\t  "]) + text + choose.choice(["", "", " ", "\n", "\r\n", " \t\n"])
        row(text, default, "constant", day_number(y, mo, d), microseconds(h, mi, s, decimals) + BEHIND[scale])
    eve = day_number(2016, 12, 31)
    for text, s, decimals in (("2016-12-31T23:59:59Z", 59, ""), ("2016-12-31T23:59:59.9999994Z", 59, "9999994"),
                              ("2016-12-31T23:59:59.9999995Z", 59, "9999995"), ("2016-366 23:59:60Z", 60, ""),
                              ("31-dec-2016 23:59:60.5", 60, "5"), ("20161231T235960999999", 60, "999999"),
                              ("UTC=2016-366T23:59:60.9999994", 60, "9999994"), ("2016-12-31_23:59:60.9999996", 60, "9999996")):
        row(text, "UTC", "leap", eve, microseconds(23, 59, s, decimals) + 36000000)
    row("2017-01-01T00:00:00Z", "UTC", "leap", eve + 1, 37000000)
    row("TAI=2016-12-31T23:59:59.9999999", "UTC", "leap", eve + 1, 0)
    row("2099-001T00:00:00", "TAI", "constant", day_number(2099, 1, 1), 0)


if __name__ == "__main__":
    main()
