"""Which functions of the library an example uses that a smaller build may not have."""
import os

import kitlib as kl
from kitlib._library import KITLIB

NEEDS = {"ground_track": "cart_to_geod", "passes_over_a_station": "ef_to_topocentric", "eclipse_seasons": "eclipse", "star_tracker_window": "star_radec"}


def has(function):
    return hasattr(kl, function) and hasattr(KITLIB, "kl_" + function)


def missing(path):
    """The function that the example of this path lacks, or None."""
    function = NEEDS.get(os.path.basename(path)[:-3])
    return None if function is None or has(function) else function
