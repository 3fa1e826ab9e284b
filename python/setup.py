"""Builds the wheel: the package and, in kitlib/lib, the shared libraries.

They are taken from KITLIB_BUILD_DIR, or from build/release of the sources, which is built (cmake, ninja and a compiler)
when it is not there.
"""
import glob
import os
import shutil
import subprocess

from setuptools import setup
from setuptools.command.build_py import build_py
from setuptools.dist import Distribution

SOURCES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")


def built():
    """The folder of a build that holds the libraries."""
    folder = os.environ.get("KITLIB_BUILD_DIR", os.path.join(SOURCES, "build", "release"))
    wanted = os.path.join(folder, "python", "libkitlib_loops.so")
    if not os.path.exists(wanted):
        settings = ["-DKITLIB_TESTS=OFF", "-DKITLIB_APPS=OFF", "-DCMAKE_BUILD_TYPE=Release"]
        subprocess.run(["cmake", "-G", "Ninja", "-S", SOURCES, "-B", folder, *settings], check=True)
        subprocess.run(["cmake", "--build", folder, "--target", "kitlib_loops"], check=True)
    return folder


class WithLibraries(build_py):
    def run(self):
        super().run()
        folder, target = built(), os.path.join(self.build_lib, "kitlib", "lib")
        os.makedirs(target, exist_ok=True)
        found = [os.path.realpath(os.path.join(folder, "libKitLib.so")), *glob.glob(os.path.join(folder, "siblings", "*.so*")),
                 os.path.join(folder, "python", "libkitlib_loops.so")]
        for path in found:
            if not os.path.islink(path):  # a wheel has no links: each library once, under the name that is opened
                shutil.copy(path, os.path.join(target, os.path.basename(path).split(".so")[0] + ".so"))


class Binary(Distribution):
    def has_ext_modules(self):
        return True


setup(cmdclass={"build_py": WithLibraries}, distclass=Binary)
