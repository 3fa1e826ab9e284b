"""The README's commands and its first result, as they stand there."""
import os
import re
import shutil
import subprocess

import pytest

TOP = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))


@pytest.mark.skipif("KITLIB_LONG_TESTS" not in os.environ, reason="check.sh asks for it: KITLIB_LONG_TESTS")
def test_readme(tmp_path):
    with open(os.path.join(TOP, "README.md"), encoding="utf-8") as file:
        section = file.read().split("## In Python")[1].split("\n## ")[0]
    commands = re.search(r"```sh\n(.*?)```", section, re.S).group(1)
    program = re.search(r"```python\n(.*?)```", section, re.S).group(1)
    printed = re.search(r"```\n(.*?)```", section.split("prints as")[1], re.S).group(1)
    environment = {k: v for k, v in os.environ.items() if k not in ("PYTHONPATH", "KITLIB_LIBRARY_DIR")}
    environment["HOME"] = str(tmp_path)
    environment["PIP_CACHE_DIR"] = str(tmp_path / "cache")
    if "KITLIB_LIBRARY_DIR" in os.environ:
        environment["KITLIB_BUILD_DIR"] = os.environ["KITLIB_LIBRARY_DIR"]
    if shutil.which("sudo") is None and os.geteuid() == 0:  # a container
        commands = 'sudo() { "$@"; }\n' + commands
    commands = commands.replace("./python", str(tmp_path / "sources"))  # a copy: pip leaves its traces in the sources
    subprocess.run(["cp", "-r", os.path.join(TOP, "python"), str(tmp_path / "sources")], check=True)
    subprocess.run(["sh", "-e"], input=commands, text=True, check=True, env=environment, cwd=TOP)
    done = subprocess.run([str(tmp_path / "kitlib/bin/python"), "-"], input=program, capture_output=True, text=True, env=environment, cwd=tmp_path)
    assert done.stdout == printed, done.stderr
    where = subprocess.run([str(tmp_path / "kitlib/bin/python"), "-c", "import kitlib; print(kitlib.__file__)"], capture_output=True, text=True, env=environment, cwd=tmp_path)
    assert where.stdout.startswith(str(tmp_path))
