#!/usr/bin/env python3
"""Takes the series that Earth orientation needs out of the tables of the IERS Conventions (2010) as they are published:

    python3 tools/iers_series.py DIR    (DIR holds tab5.2a.txt, tab5.2b.txt, tab5.2d.txt, tab5.1a.txt, tab5.1b.txt,
                                         tab8.2ab.txt, tab8.3ab.txt)

writes data/iers/{cip_x,cip_y,cio_s}.txt and data/iers/tides.csv; the same bytes each run. data/iers/README.md has their
layout.
"""
import re
import sys
from pathlib import Path

OUT = Path(__file__).resolve().parents[1] / "data" / "iers"
SOURCE = "IERS Conventions (2010), IERS Technical Note 36"


def polynomial(text: str) -> list[str]:
    """Coefficients of t^0 to t^5, as printed."""
    line = next(line for line in text.splitlines() if re.search(r"t\^5", line))
    found = re.findall(r"([-+])?\s*(\d+\.\d*)", re.sub(r"t\^\d", "", line))
    return [("-" if sign == "-" else "") + number for sign, number in found]


def series(name: str, out: str, what: str) -> None:
    text = (DIR / name).read_text(encoding="utf-8", errors="replace")
    power, left, rows = None, 0, []
    for line in text.splitlines():
        head = re.match(r"\s*j = (\d)\s+Number\s+of terms = (\d+)", line)
        if head:
            assert left == 0, (name, line)
            power, left = int(head[1]), int(head[2])
            continue
        words = line.split()
        if power is None or left == 0 or len(words) != 17:
            continue
        multipliers = words[3:]
        while len(multipliers) > 1 and multipliers[-1] == "0":
            multipliers.pop()
        rows.append(" ".join([str(power), words[1], words[2], *multipliers]))
        left -= 1
    assert left == 0
    (OUT / out).write_text(
        f"# {what}; {SOURCE}, {name[:-4].replace('tab', 'table ')}. Microarcseconds.\n"
        "# First row: polynomial in t, t^0 to t^5. Then: power of t, sine, cosine, multiples of l l' F D Om LMe LVe LE\n"
        "# LMa LJ LSa LU LNe pA, zeros at the end left out.\n"
        + " ".join(polynomial(text)) + "\n" + "\n".join(rows) + "\n")


def tide_rows(name: str, n_values: int) -> dict[tuple[int, ...], list[str]]:
    rows = {}
    for line in (DIR / name).read_text(encoding="utf-8").splitlines():
        if line.lstrip().startswith("#"):
            continue
        numbers = re.findall(r"(?<![\w.])-?\d+(?:\.\d+)?(?![\w.])", line)
        match = re.search(r"((?:\s+-?\d){6})\s+(?:\d{3}\.\d{3}\s+)?\d+\.\d+((?:\s+-?\d+\.\d+){%d})\s*$" % n_values, line)
        if not match or len(numbers) < 6 + n_values:
            continue
        rows[tuple(int(m) for m in match[1].split())] = match[2].split()
    return rows


def tides() -> None:
    pole, ut1 = tide_rows("tab8.2ab.txt", 4), tide_rows("tab8.3ab.txt", 2)
    libration, libration_ut1 = tide_rows("tab5.1a.txt", 4), tide_rows("tab5.1b.txt", 2)
    assert len(pole) == len(ut1) == 71 and set(pole) == set(ut1), (len(pole), len(ut1))
    assert len(libration) == 10 and len(libration_ut1) == 11, (len(libration), len(libration_ut1))
    lines = [f"# {SOURCE}, tables 8.2, 8.3 (ocean), 5.1a, 5.1b (libration): short-period terms of the pole (microarcseconds)",
             "# and of UT1 (microseconds). Arguments: multiples of gamma = GMST + pi, l, l', F, D, Om.",
             "kind,gamma,l,l',F,D,Om,x_sin,x_cos,y_sin,y_cos,ut1_sin,ut1_cos"]
    for argument in pole:
        lines.append(",".join(["ocean", *map(str, argument), *pole[argument], *ut1[argument]]))
    for argument in [*libration, *libration_ut1]:
        lines.append(",".join(["libration", *map(str, argument), *libration.get(argument, ["0"] * 4),
                               *libration_ut1.get(argument, ["0"] * 2)]))
    (OUT / "tides.csv").write_text("\n".join(lines) + "\n")


if len(sys.argv) != 2:
    sys.exit(__doc__)
DIR = Path(sys.argv[1])
OUT.mkdir(parents=True, exist_ok=True)
series("tab5.2a.txt", "cip_x.txt", "X of the celestial intermediate pole, IAU 2006/2000A_R06")
series("tab5.2b.txt", "cip_y.txt", "Y of the celestial intermediate pole, IAU 2006/2000A_R06")
series("tab5.2d.txt", "cio_s.txt", "s + XY/2 of the celestial intermediate origin, IAU 2006/2000A_R06")
tides()
