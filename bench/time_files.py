#!/usr/bin/env python3
"""Time to a time id from finals2000A and from the correlation compiled in, beside astropy and skyfield: a table for
docs/performance.md. usage: time_files.py LIBRARY [FINALS]

Without FINALS a file of the same form is made from data/time_correlation.csv. All take turns in one process; the least CPU
time of each counts. Debian: python3-astropy, python3-skyfield, run by /usr/bin/python3.
"""
import ctypes as C
import io
import pathlib
import sys
import tempfile
import time
import warnings

ROUNDS = 9


def finals_line(mjd, quality, ut1, x, y, dx, dy):
    days = mjd - 40587  # since 1970
    date = time.gmtime(days * 86400)
    flag = "P" if quality == 3 else "I"
    line = f"{date.tm_year % 100:2d}{date.tm_mon:2d}{date.tm_mday:2d} {mjd:8.2f} {flag} {x / 1e6:9.6f} 0.000021 " \
           f"{y / 1e6:9.6f} 0.000021  {flag}{ut1 / 1e7:10.7f} 0.0000038  1.2563 0.0026  {flag} {dx / 1e3:9.3f}    0.119 " \
           f"{dy / 1e3:9.3f}    0.150"
    if quality == 0:
        line += f"{x / 1e6:10.6f}{y / 1e6:10.6f}{ut1 / 1e7:11.7f}{dx / 1e3:10.3f}{dy / 1e3:10.3f}"
    return line.ljust(187) + "\n"


def made_from_table():
    table = pathlib.Path(__file__).parent.parent / "data" / "time_correlation.csv"
    lines = [finals_line(*map(int, line.split(","))) for line in open(table) if line[0].isdigit()]
    file = tempfile.NamedTemporaryFile("w", suffix=".all", delete=False)
    file.writelines(lines[367:])  # from 1973 on, as the service's
    return file.name


class Library:
    def __init__(self, path):
        self.lib = C.CDLL(path)
        self.lib.kl_time_id_init.restype = C.c_long

    def open(self, *files):
        names = (C.c_char_p * max(1, len(files)))(*[f.encode() for f in files])
        handle, zero, one = C.c_void_p(), C.c_long(0), C.c_long(1)
        status = self.lib.kl_time_id_init(C.byref(C.c_long(len(files))), names, C.byref(one), C.byref(zero), None, None,
                                          None, C.byref(handle), None)
        assert status == 0, status
        return handle

    def close(self, handle):
        self.lib.kl_time_close(C.byref(handle), None)


def rivals(path):
    warnings.simplefilter("ignore")
    from astropy.utils import iers
    from skyfield.data import iers as skyfield_iers
    iers.conf.auto_download = False
    data = open(path, "rb").read()
    return {"astropy IERS_A.open": lambda: iers.IERS_A.open(path),
            "skyfield parse_x_y_dut1_from_finals_all": lambda: skyfield_iers.parse_x_y_dut1_from_finals_all(io.BytesIO(data))}


def main():
    library = Library(sys.argv[1])
    path = sys.argv[2] if len(sys.argv) > 2 else made_from_table()
    calls = {"kl_time_id_init, the correlation compiled in": lambda: library.open(),
             "kl_time_id_init, finals2000A": lambda: library.open(path)} | rivals(path)
    least = dict.fromkeys(calls, float("inf"))
    for _ in range(ROUNDS):
        for name, call in calls.items():
            start = time.process_time()
            result = call()
            least[name] = min(least[name], time.process_time() - start)
            if name.startswith("kl_"):
                library.close(result)
    own = least["kl_time_id_init, finals2000A"]
    lines = sum(1 for _ in open(path, "rb"))
    print(f"\n## Time ids from files\n\n`bench/time_files.py`: finals2000A with {lines} lines, the least of {ROUNDS} in turns, "
          "milliseconds of CPU time.\n\n| call | ms | over ours |\n| --- | ---: | ---: |")
    for name, seconds in least.items():
        print(f"| {name} | {seconds * 1e3:.2f} | {'' if name.startswith('kl_') else f'{seconds / own:.0f}'} |")


main()
