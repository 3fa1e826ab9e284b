"""Every example of examples/python is run, and prints what its .txt says."""
import glob
import os
import subprocess
import sys

import pytest

import kitlib as kl
from needs import missing

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "examples", "python")
SMALL = {"frames_on_a_cluster": ["200000"]}  # the size of the tests


@pytest.mark.parametrize("path", sorted(glob.glob(os.path.join(FOLDER, "*.py"))), ids=lambda p: os.path.basename(p)[:-3])
def test_example(path, tmp_path):
    name = os.path.basename(path)[:-3]
    if missing(path):
        pytest.skip(f"the library has no {missing(path)}")
    if name in SMALL and "KITLIB_LONG_TESTS" not in os.environ:
        pytest.skip("check.sh asks for it: KITLIB_LONG_TESTS")
    environment = {**os.environ, "PYTHONPATH": os.path.dirname(os.path.dirname(kl.__file__)), "MPLBACKEND": "Agg"}
    done = subprocess.run([sys.executable, path, *SMALL.get(name, [])], capture_output=True, text=True, cwd=tmp_path, env=environment)
    if "ModuleNotFoundError" in done.stderr and "kitlib" not in done.stderr.rsplit("No module", 1)[1]:
        pytest.skip(done.stderr.strip().splitlines()[-1])
    assert done.returncode == 0, done.stderr
    with open(path[:-3] + ".txt", encoding="utf-8") as file:
        assert done.stdout == file.read()
    picture = path[:-3] + ".png"
    if os.path.exists(picture):
        compare = pytest.importorskip("matplotlib.testing.compare")
        assert compare.compare_images(picture, str(tmp_path / (name + ".png")), tol=2.0) is None
