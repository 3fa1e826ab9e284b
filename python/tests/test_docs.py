"""What is written to be read: docstrings, stubs."""
import doctest
import glob
import inspect
import os
import shutil
import subprocess

import pytest

import kitlib as kl
from needs import missing
from kitlib import _functions, _ids, _more, _time, events

HERE = os.path.dirname(os.path.abspath(__file__))


@pytest.mark.parametrize("module", [kl, _functions, _ids, _more, _time, events], ids=lambda m: m.__name__)
def test_docstrings(module):
    found = doctest.testmod(module)
    assert found.failed == 0 and found.attempted > 0


def test_every_function_says_what_it_takes():
    for name in _functions.__all__ + [n for n in kl.__all__ if getattr(kl, n) is getattr(_more, n, 0)]:
        assert f" {name}" in kl.__doc__, f"{name}: the package's docstring has no word of it"
    for name in _functions.__all__:
        function = getattr(kl, name)
        doc = inspect.getdoc(function)
        for parameter in inspect.signature(function).parameters.values():
            if parameter.name not in ("errors", "return_status"):
                assert parameter.name in doc, f"{name}: {parameter.name}"


def test_formats_show_an_instant():
    """The examples beside the layouts are what the library writes for 2026-06-21T08:24:05.123456."""
    t = kl.mjd2000("2026-06-21T08:24:05.123456")
    said = dict(line.strip().split(": ", 1) for kind in (kl.Ascii, kl.Transport) for line in kind.__doc__.splitlines()[2:-1])
    for member in kl.Ascii:
        assert said[member.name].endswith(", " + kl.time_processing_to_ascii(t, fmt_out=member))
    for member in kl.Transport:
        ref = "GPS" if member in (41, 42) else "UTC"
        assert said[member.name].endswith(f"; {kl.time_processing_to_transport(t, fmt_out=member, ref_in=ref, ref_out=ref).tolist()}")


def test_stubs_name_what_there_is():
    with open(os.path.join(os.path.dirname(kl.__file__), "__init__.pyi"), encoding="utf-8") as file:
        stub = file.read()
    for name in kl.__all__:
        if name not in ("CONDITIONS", "codes"):
            assert any(f" {name}{mark}" in stub for mark in "(:"), name


@pytest.mark.skipif("KITLIB_LONG_TESTS" not in os.environ, reason="check.sh asks for it: KITLIB_LONG_TESTS")
@pytest.mark.skipif(shutil.which("mypy", path="/usr/bin") is None, reason="no mypy here")
def test_types_of_the_examples():
    folder = os.path.join(HERE, "..", "..", "examples", "python")
    paths = [p for p in sorted(glob.glob(os.path.join(folder, "*.py"))) if missing(p) is None]
    environment = {**os.environ, "MYPYPATH": os.path.join(HERE, "..")}
    done = subprocess.run(["/usr/bin/mypy", "--strict", "--ignore-missing-imports", "--follow-imports=silent", "--cache-dir", os.devnull, *paths],
                          capture_output=True, text=True, env=environment)
    assert done.returncode == 0, done.stdout + done.stderr
