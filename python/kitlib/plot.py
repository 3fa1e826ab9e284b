"""Pictures: ground track with day and night, the geoid, eclipse seasons of an orbit, the path of the pole.

Every function takes an axes of matplotlib, or makes one, and returns it.
"""
from __future__ import annotations

from typing import Any

import numpy as np

try:
    import matplotlib.pyplot as plt
except ImportError as error:
    raise ImportError("kitlib.plot needs matplotlib: Debian's python3-matplotlib") from error

from . import _functions, _more
from ._time import to_datetime64


def _axes(ax, title):
    if ax is None:
        _, ax = plt.subplots(figsize=(8, 4.2), constrained_layout=True)
    ax.set_title(title)
    return ax


def _map(ax):
    ax.set(xlim=(-180, 180), ylim=(-90, 90), xlabel="longitude, deg", ylabel="latitude, deg", xticks=range(-180, 181, 60), yticks=range(-90, 91, 30))
    ax.set_aspect("equal")
    ax.grid(alpha=0.3)


def ground_track(latitude: Any, longitude: Any, t: Any, ax: Any = None, *, ref: Any = "UTC", time: Any = None) -> Any:
    """Points below a satellite over the night of the last instant (Sun below the geometric horizon)."""
    ax = _axes(ax, f"Ground track to {to_datetime64(np.ravel(t)[-1], 's')}")
    sun = _functions.sun(float(np.ravel(t)[-1]), ref=ref, time=time).pos
    lat, lon = np.meshgrid(np.linspace(-90, 90, 181), np.linspace(-180, 180, 361), indexing="ij")
    phi, lam = np.radians(lat), np.radians(lon)
    up = np.stack([np.cos(phi) * np.cos(lam), np.cos(phi) * np.sin(lam), np.sin(phi)], axis=-1)
    ax.contourf(lon, lat, up @ sun, levels=[-np.inf, 0], colors=["#30407030"])
    east = (np.asarray(longitude) + 180) % 360 - 180
    jump = np.nonzero(np.abs(np.diff(east)) > 180)[0] + 1
    for x, y in zip(np.split(east, jump), np.split(np.asarray(latitude), jump)):
        ax.plot(x, y, color="C3", linewidth=1)
    _map(ax)
    return ax


def geoid_map(ax: Any = None, *, step: float = 2.0, max_degree: int = 180, model: Any = None) -> Any:
    """Height of the geoid over the ellipsoid, m, on a grid of about step degrees."""
    ax = _axes(ax, f"Geoid to degree {max_degree}, m")
    n = max(round(180 / step), 1)
    half = 90 / n  # a node is the middle of its colour
    heights = np.roll(_more.geoid_grid(np.linspace(-90, 90, n + 1), np.arange(2 * n) * 180 / n, max_degree=max_degree, model=model), n, axis=1)
    image = ax.imshow(heights, origin="lower", extent=(-180 - half, 180 - half, -90 - half, 90 + half), cmap="RdYlBu_r")
    plt.colorbar(image, ax=ax, shrink=0.8)
    _map(ax)
    return ax


def eclipse_seasons(start: Any, stop: Any, ax: Any = None) -> Any:
    """Length of each eclipse, minutes, over the time of its begin."""
    ax = _axes(ax, "Eclipse seasons")
    ax.plot(to_datetime64(start, "s"), (np.asarray(stop) - np.asarray(start)) * 1440, ".", markersize=2)
    ax.set(ylabel="in the umbra, minutes", ylim=(0, None))
    ax.grid(alpha=0.3)
    return ax


def pole_path(time_id: Any, t: Any, ax: Any = None) -> Any:
    """Path of the pole of a time id at MJD2000 instants, UTC, arcsec; to the right the meridian of Greenwich, upwards 90 deg west."""
    ax = _axes(ax, "Path of the pole, arcsec")
    pole = time_id.pole(t)
    ax.plot(pole[:, 0], pole[:, 1], linewidth=1)
    ax.set(xlabel="x", ylabel="y")
    ax.set_aspect("equal")
    ax.grid(alpha=0.3)
    return ax
