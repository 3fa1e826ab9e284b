"""Finds and loads the shared libraries. ctypes lets go of the interpreter's lock while C runs."""
import ctypes
import os

HERE = os.path.dirname(os.path.abspath(__file__))


def _candidates():
    """Folders that may hold libKitLib.so: KITLIB_LIBRARY_DIR, the package itself, a build beside the sources, the folder lib
    of an installation, whose lib/python3/dist-packages this is; else the system's."""
    given = os.environ.get("KITLIB_LIBRARY_DIR")
    if given:
        yield given
        return
    yield os.path.join(HERE, "lib")
    yield os.path.join(HERE, "..", "..", "build", "release")
    yield os.path.join(HERE, "..", "..", "..")


def _load():
    for folder in _candidates():
        if os.path.exists(os.path.join(folder, "libKitLib.so")):
            for name in ("KitCommon", "KitFileHandling", "KitDataHandling"):  # needed by name, so they come first
                for path in (os.path.join(folder, f"lib{name}.so"), os.path.join(folder, "siblings", f"lib{name}.so")):
                    if os.path.exists(path):
                        ctypes.CDLL(path, mode=ctypes.RTLD_GLOBAL)
                        break
            for path in (os.path.join(folder, "libkitlib_loops.so"), os.path.join(folder, "python", "libkitlib_loops.so")):
                if os.path.exists(path):
                    return ctypes.CDLL(os.path.join(folder, "libKitLib.so"), mode=ctypes.RTLD_GLOBAL), ctypes.CDLL(path)
    beside = os.path.join(HERE, "lib", "libkitlib_loops.so") # of a package of the system, whose libraries are elsewhere
    try:
        return (ctypes.CDLL("libKitLib.so.4", mode=ctypes.RTLD_GLOBAL),
                ctypes.CDLL(beside if os.path.exists(beside) else "libkitlib_loops.so"))
    except OSError as error:
        raise ImportError(f"kitlib: no libKitLib.so and libkitlib_loops.so in {list(_candidates())} nor in the system: {error}") from None


KITLIB, LOOPS = _load()
KITLIB.kl_silent()


def symbol(name):
    """A function of the library or of the loops, with a status as its result."""
    function = getattr(LOOPS if name.startswith("kitlib_") else KITLIB, name, None)
    if function is None:
        raise ImportError(f"kitlib: {name} is not in the libraries: the package is newer than they are")
    function.restype = ctypes.c_long
    return function
