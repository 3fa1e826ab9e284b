#!/usr/bin/env python3
"""data/iers/tides.csv -> src/orientation/short_period_table.h; the same bytes each run.

    python3 tools/short_period_table.py
"""
import csv
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
rows = [line for line in (ROOT / "data/iers/tides.csv").read_text().splitlines() if not line.startswith("#")]
arguments: dict[tuple[int, ...], dict[str, list[float]]] = {}
for row in csv.DictReader(rows):
    key = tuple(int(row[name]) for name in ("gamma", "l", "l'", "F", "D", "Om"))
    amplitudes = [float(row[name]) for name in ("x_sin", "x_cos", "y_sin", "y_cos", "ut1_sin", "ut1_cos")]
    old = arguments.setdefault(key, {}).setdefault(row["kind"], [0.0] * 6)
    arguments[key][row["kind"]] = [a + b for a, b in zip(old, amplitudes)]

firsts = sorted({key[:3] for key in arguments})
seconds = sorted({key[3:] for key in arguments})


def numbers(values) -> str:
    return ", ".join(f"{v:g}" if not float(v).is_integer() else str(int(v)) for v in values)


out = ["// Written by tools/short_period_table.py from data/iers/tides.csv.",
       "// Short-period terms of pole (microarcseconds) and UT1 (microseconds).",
       "// Source: IERS Conventions (2010), tables 8.2, 8.3 (ocean tides), 5.1a, 5.1b (libration).",
       "#ifndef KL_SRC_ORIENTATION_SHORT_PERIOD_TABLE_H", "#define KL_SRC_ORIENTATION_SHORT_PERIOD_TABLE_H", "",
       "// clang-format off",
       "// An argument is the sum of one of these multiples of gamma, l, l' and one of those of F, D, Om.",
       f"constexpr int kFirstArguments = {len(firsts)};",
       "constexpr signed char kFirstMultiples[kFirstArguments][3] = {"]
out += [f"    {{{numbers(key)}}}," for key in firsts]
out += ["};", f"constexpr int kSecondArguments = {len(seconds)};",
        "constexpr signed char kSecondMultiples[kSecondArguments][3] = {"]
out += [f"    {{{numbers(key)}}}," for key in seconds]
out += ["};", "", "struct ShortPeriodTerm {", "    int first, second; // rows above",
        "    double ocean[6];   // sine and cosine of x, of y, of UT1", "    double libration[6];", "};",
        f"constexpr int kShortPeriodTerms = {len(arguments)};",
        "constexpr ShortPeriodTerm kShortPeriodTerm[kShortPeriodTerms] = {"]
zero = [0.0] * 6
for key, kinds in arguments.items():
    out.append(f"    {{{firsts.index(key[:3])}, {seconds.index(key[3:])}, {{{numbers(kinds.get('ocean', zero))}}}, "
               f"{{{numbers(kinds.get('libration', zero))}}}}},")
out += ["};", "// clang-format on", "", "#endif"]
(ROOT / "src/orientation/short_period_table.h").write_text("\n".join(out) + "\n")
