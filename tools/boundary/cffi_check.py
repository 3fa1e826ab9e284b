"""The public C header through Python's cffi as it stands (after the C preprocessor), and calls across that boundary.

Usage: cffi_check.py LIBRARY
"""
import subprocess
import sys
from pathlib import Path

import cffi

ROOT = Path(__file__).resolve().parents[2]


def declarations() -> str:
    """What the preprocessor leaves of the header itself: the system's own types cffi knows already."""
    text = subprocess.run(
        ["gcc", "-E", "-x", "c", "-std=c99", "-DKL_API=", "-I", str(ROOT / "include"), str(ROOT / "include/kl_lib.h")],
        check=True, capture_output=True, text=True).stdout
    kept, own = [], False
    for line in text.splitlines():
        if line.startswith("# "):
            own = "/include/kl" in line
        elif own:
            kept.append(line.replace('__attribute__((visibility("default")))', ""))
    return "\n".join(kept)


def main() -> None:
    ffi = cffi.FFI()
    ffi.cdef(declarations())
    kit = ffi.dlopen(sys.argv[1])

    # 90 deg about the first axis, and a refused quaternion with its code and text.
    matrix = ffi.new("double[9]")
    if kit.kl_euler_to_matrix([0.0, 0.0, 90.0], matrix, ffi.NULL) != kit.KL_OK or abs(matrix[1] - 1.0) > 1e-15:
        sys.exit(f"kl_euler_to_matrix: {list(matrix)}")
    ierr = ffi.new("long[1]")
    axes = [ffi.new("double[3]") for _ in range(3)]
    kit.kl_silent()
    if kit.kl_quaternions_to_vectors([0.0, 0.0, 0.0, 2.0], *axes, ierr) != kit.KL_ERR:
        sys.exit("a quaternion of length 2 is taken")
    names = [name for name in dir(kit) if name.startswith("kl_")]
    for name in names:
        getattr(kit, name)  # looks the symbol up
    print(f"cffi: {len(names)} functions and tables of the header, all found in the library")


if __name__ == "__main__":
    main()
