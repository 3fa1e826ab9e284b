"""Functions of the library over arrays.

Written by tools/api/generate.py from the table in api/ and the headers in include/kl.
"""
# pylint: disable=all
from . import _table
from ._arrays import Function as _Function, of_layout as _of_layout
from ._table import *  # noqa: F403
from ._table import AxesResult, BodyStateResult, EarthOrientationResult, EclipseStateResult, GeodPointResult, GeodToUtmResult, GeodesicResult, GeodeticResult, GetRotatedVectorsResult, IersMatrixResult, KeplerResult, LeapSecondInfoResult, LocalFrameResult, OrbitAngleResult, OrbitSunAnglesResult, RadecResult, RayPointsResult, RayTangentResult, StateResult, TopocentricResult, UtmToGeodResult

__all__ = [
    "sun",
    "moon",
    "planet",
    "time_cuc_to_processing",
    "time_processing_to_cuc",
    "geod_to_cart",
    "cart_to_geod",
    "kepl_to_cart",
    "cart_to_kepl",
    "geod_distance",
    "geod_point",
    "position_on_orbit",
    "orbit_sun",
    "cart_to_radec",
    "radec_to_cart",
    "ef_to_topocentric",
    "topocentric_to_ef",
    "geod_to_utm",
    "utm_to_geod",
    "local_orbital_frame",
    "mean_motion",
    "time_processing_to_processing",
    "time_ascii_to_ascii",
    "time_ascii_to_processing",
    "time_text_to_processing",
    "time_ascii_to_transport",
    "time_processing_to_ascii",
    "time_processing_to_transport",
    "time_transport_to_ascii",
    "time_transport_to_processing",
    "time_transport_to_transport",
    "change_cart_cs",
    "ray_ellipsoid",
    "ray_height",
    "ray_tangent",
    "eclipse",
    "earth_orientation_get",
    "iers_matrix",
    "iers_change",
    "quaternions_to_vectors",
    "vectors_to_quaternions",
    "quaternions_interpol",
    "euler_to_matrix",
    "matrix_to_euler",
    "get_rotation_angles",
    "get_rotated_vectors",
    "star_radec",
    "time_get_pole",
    "time_add",
    "time_diff",
    "time_get_leap_second_info",
]

_sun = _Function("kl_sun", "kl_sun_n", 22, 1, BodyStateResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("gives", "sun_pos", 'f8', 3, False, False),
    ("gives", "sun_vel", 'f8', 3, False, False),
))


def sun(t, /, *, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Position and velocity of the Sun, seen from the centre of the Earth.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns BodyState:
        pos: [..., 3], m, Earth-fixed (kl.Frame.EF)
        vel: [..., 3], m/s, Earth-fixed, relative to the rotating axes
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        TIME_ID_ERR: time not in TAI and the time id not initialised
        BODY_ERR: the Sun could not be computed: the model id holds no routine (refused init)
        TDB_ERR: no conversion to UT1; the text speaks of TDB
        FRAME_ERR: no change to the Earth-fixed frame

    >>> import kitlib as kl
    >>> sun = kl.sun(kl.mjd2000(["2026-06-21T08:24:00Z", "2026-12-21T20:50:00Z"]))
    >>> sun.pos.shape
    (2, 3)
    """
    return _sun.go((t,), (ref,), (model, time,), errors, return_status)


_moon = _Function("kl_moon", "kl_moon_n", 23, 1, BodyStateResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("gives", "moon_pos", 'f8', 3, False, False),
    ("gives", "moon_vel", 'f8', 3, False, False),
))


def moon(t, /, *, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Position and velocity of the Moon, seen from the centre of the Earth.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns BodyState:
        pos: [..., 3], m, Earth-fixed (kl.Frame.EF)
        vel: [..., 3], m/s, Earth-fixed, relative to the rotating axes
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        TIME_ID_ERR: time not in TAI and the time id not initialised
        BODY_ERR: the Moon could not be computed: the model id holds no routine (refused init)
        PROC_TO_PROC_ERR: no conversion to UT1
        FRAME_ERR: no change to the Earth-fixed frame
    """
    return _moon.go((t,), (ref,), (model, time,), errors, return_status)


_planet = _Function("kl_planet", "kl_planet_n", 24, 1, BodyStateResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", _table.Planet, "planet"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("gives", "planet_pos", 'f8', 3, False, False),
    ("gives", "planet_vel", 'f8', 3, False, False),
))


def planet(t, /, *, planet, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Position and velocity of a planet, seen from the centre of the Earth.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        planet: kl.Planet, kl.Planet.MERCURY to kl.Planet.NEPTUNE; kl.Planet.EARTH_MOON_BARYCENTRE is that
            point, not the Moon
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns BodyState:
        pos: [..., 3], m, Earth-fixed (kl.Frame.EF)
        vel: [..., 3], m/s, Earth-fixed, relative to the rotating axes
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        TIME_ID_ERR: time not in TAI and the time id not initialised
        CODE_ERR: planet not 1 to 8
        PROC_TO_PROC_ERR: no conversion to UT1
        FRAME_ERR: no change to the Earth-fixed frame
        CONVERGENCE_WARN (W): Kepler's equation not solved; not within the range of dates
    """
    return _planet.go((t,), (planet, ref,), (model, time,), errors, return_status)


_time_cuc_to_processing = _Function("kl_time_cuc_to_processing", "kl_time_cuc_to_processing_n", 46, 1, None, None, (
    ("time",),
    ("n",),
    ("record", _table.CucConfig, "config"),
    ("select", _table.Time, "ref"),
    ("width", 0),
    ("each", "cuc", 'octets', 0, False, False),
    ("gives", "t", 'f8', 0, False, False),
))


def time_cuc_to_processing(cuc, /, *, config, ref=Time.UTC, time=None, errors="raise", return_status=False):
    """Processing time of a CCSDS unsegmented time code.

    Arguments, arrays that broadcast against each other:
        cuc: octets, P-field, if any, and time field
    Keywords:
        config: record CucConfig, layout
        ref: kl.Time, kl.Time.TAI to kl.Time.GPS: scale of the result
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        time: days, MJD2000, its range is not checked
    Raises KitError, or warns KitWarning (W):
        CONFIG_ERR: time id, CUC type, octet counts, epoch type or time reference
        P_FIELD_ERR: identification other than 001 and 010; a third octet announced
        EPOCH_ERR: the epoch is not finite, or cannot be converted

    The octets are just those of the layout (of the P-field, if there is one, and of the coarse and fine counts), or 19 as
    time_processing_to_cuc gives them, with zeros behind the layout.

    The seconds of a code know no leap seconds, and ref="UTC" is what stands where nothing is said: DECODE TO TAI OR GPS
    (ref="TAI") and convert from there. With ref="UTC" a time of the epoch 1958 is 27 s late from 2017 on, one of 1980 18 s.

    >>> import kitlib as kl
    >>> config = kl.CucConfig(kl.CucType.TIME_FIELD_ONLY, kl.CucEpoch.EPOCH_1958, n_coarse=4, n_fine=3)
    >>> tai = kl.time_cuc_to_processing(bytes([128, 201, 136, 0, 0, 0, 0]), config=config, ref="TAI")
    >>> kl.time_processing_to_ascii(tai, fmt_out=41, ref_in="TAI", ref_out="UTC")
    '2026-06-20T23:59:23'
    """
    return _time_cuc_to_processing.go((_of_layout(cuc, config),), (config, ref,), (time,), errors, return_status)


_time_processing_to_cuc = _Function("kl_time_processing_to_cuc", "kl_time_processing_to_cuc_n", 47, 1, None, None, (
    ("time",),
    ("n",),
    ("record", _table.CucConfig, "config"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("width", 19),
    ("gives", "cuc", 'octets', 0, False, False),
))


def time_processing_to_cuc(t, /, *, config, ref=Time.UTC, time=None, errors="raise", return_status=False):
    """CCSDS unsegmented time code of a processing time.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, not before the epoch
    Keywords:
        config: record CucConfig, layout, octet counts and epoch
        ref: kl.Time, kl.Time.TAI to kl.Time.GPS: scale of the time
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        cuc: octets, P-field, if any, and time field; 19 octets hold every layout
    Raises KitError, or warns KitWarning (W):
        CONFIG_ERR: as above; also seconds that do not fit the coarse octets
        EPOCH_ERR: the epoch is not finite, or cannot be converted
        TIME_ERR: time before the epoch, or NaN
        P_FIELD_ERR: no P-field says kl.CucEpoch.EPOCH_1980

    Always [..., 19] octets: those of the layout (of the P-field, if there is one, n_coarse and n_fine) and zeros behind them.
    cuc[..., :n] is the code; without a P-field n is n_coarse + n_fine.

    The seconds of a code know no leap seconds, and ref="UTC" is what stands where nothing is said: CONVERT TO TAI OR GPS first
    and say ref="TAI", or the code lacks the leap seconds since the epoch (27 s of 1958, 18 s of 1980, from 2017 on).

    >>> import kitlib as kl
    >>> config = kl.CucConfig(kl.CucType.TIME_FIELD_ONLY, kl.CucEpoch.EPOCH_1958, n_coarse=4, n_fine=3)
    >>> tai = kl.time_processing_to_processing(kl.mjd2000("2026-06-20T23:59:23Z"), ref_in="UTC", ref_out="TAI")
    >>> kl.time_processing_to_cuc(tai, config=config, ref="TAI")[:7].tolist()
    [128, 201, 136, 0, 0, 0, 0]
    """
    return _time_processing_to_cuc.go((t,), (config, ref,), (time,), errors, return_status)


_geod_to_cart = _Function("kl_geod_to_cart", "kitlib_kl_geod_to_cart_columns", 18, 1, BodyStateResult, _table.Geodetic, (
    ("model",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("each", "latitude", 'f8', 0, False, False),
    ("each", "longitude", 'f8', 0, False, False),
    ("each", "height", 'f8', 0, False, False),
    ("each", "latitude_rate", 'f8', 0, True, False),
    ("each", "longitude_rate", 'f8', 0, True, False),
    ("each", "height_rate", 'f8', 0, True, False),
    ("gives", "pos", 'f8', 3, False, False),
    ("gives", "vel", 'f8', 3, False, False),
))


def geod_to_cart(latitude, longitude, height, latitude_rate=None, longitude_rate=None, height_rate=None, /, *, mode=None, model=None, errors="raise", return_status=False):
    """Geodetic to Earth-fixed Cartesian coordinates.

    Arguments, arrays that broadcast against each other:
        latitude, longitude, height, latitude_rate, longitude_rate, height_rate: latitude -90 to 90, longitude
            -360 to 360, height from the centre to 1e12 m; rates in mode 2
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS or kl.CalcMode.POS_VEL; left out: by the arguments given
        model: ModelId, None: the default models
    Returns BodyState:
        pos: [..., 3], m, kl.Frame.EF
        vel: [..., 3], m/s, relative to the rotating axes; 0 in mode 1
    Raises KitError, or warns KitWarning (W):
        CALC_MODE_ERR: mode not 1 or 2
        LATITUDE_ERR: outside -90 to 90, NaN
        LONGITUDE_ERR: outside -360 to 360, or NaN
        HEIGHT_ERR: below the centre or above 1e12 m, or NaN
        RATES_ERR: mode 2: not finite, or of a velocity that is not
    """
    return _geod_to_cart.go((latitude, longitude, height, latitude_rate, longitude_rate, height_rate,), (mode if mode is not None else 2 if latitude_rate is not None or longitude_rate is not None or height_rate is not None else 1,), (model,), errors, return_status)


_cart_to_geod = _Function("kl_cart_to_geod", "kl_cart_to_geod_n", 19, 1, GeodeticResult, None, (
    ("model",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, True, False),
    ("gives", "out", _table.Geodetic, 0, False, False),
))


def cart_to_geod(pos, vel=None, /, *, mode=None, model=None, errors="raise", return_status=False):
    """Earth-fixed Cartesian to geodetic coordinates.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, kl.Frame.EF, up to 1e12 m from the centre
        vel: [..., 3], m/s, relative to the rotating axes, up to 1e9; read in mode 2
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS or kl.CalcMode.POS_VEL; left out: by the arguments given
        model: ModelId, None: the default models
    Returns Geodetic:
        latitude, longitude, height, latitude_rate, longitude_rate, height_rate: latitude, longitude, height;
            rates in mode 2
    Raises KitError, or warns KitWarning (W):
        CALC_MODE_ERR: mode not 1 or 2
        POSITION_ERR: not finite, beyond 1e12 m
        VELOCITY_ERR: mode 2: not finite, beyond 1e9 m/s
        TWO_FEET_WARN (W): in the plane of the equator, within 42697.67 m of the centre; or the latitude has no
            rate
        POLAR_AXIS_WARN (W): mode 2, with a velocity off the axis; the rate is 0
    """
    return _cart_to_geod.go((pos, vel,), (mode if mode is not None else 2 if vel is not None else 1,), (model,), errors, return_status)


_kepl_to_cart = _Function("kl_kepl_to_cart", "kitlib_kl_kepl_to_cart_columns", 20, 1, BodyStateResult, _table.Kepler, (
    ("model",),
    ("n",),
    ("select", _table.Elements, "kind"),
    ("each", "semi_major_axis", 'f8', 0, False, False),
    ("each", "eccentricity", 'f8', 0, False, False),
    ("each", "inclination", 'f8', 0, False, False),
    ("each", "raan", 'f8', 0, False, False),
    ("each", "arg_perigee", 'f8', 0, False, False),
    ("each", "mean_anomaly", 'f8', 0, False, False),
    ("gives", "pos", 'f8', 3, False, False),
    ("gives", "vel", 'f8', 3, False, False),
))


def kepl_to_cart(semi_major_axis, eccentricity, inclination, raan, arg_perigee, mean_anomaly, /, *, kind=Elements.OSCULATING, model=None, errors="raise", return_status=False):
    """Keplerian elements to position and velocity.

    Arguments, arrays that broadcast against each other:
        semi_major_axis, eccentricity, inclination, raan, arg_perigee, mean_anomaly: ellipse or hyperbola, semi-
            major axis up to 1e13 m; angles up to 1e8 deg
    Keywords:
        kind: kl.Elements, kl.Elements.OSCULATING or kl.Elements.MEAN
        model: ModelId, None: the default models
    Returns BodyState:
        pos: [..., 3], m, inertial equatorial frame; kl.Frame.TOD for mean elements
        vel: [..., 3], m/s
    Raises KitError, or warns KitWarning (W):
        KIND_ERR: kind not 0 or 1
        ELEMENTS_ERR: neither an ellipse nor a hyperbola, beyond 1e13 m, NaN
        INCLINATION_ERR: outside 0 to 180, or NaN
        ANGLES_ERR: not finite, or beyond 1e8 deg
        MEAN_ERR: e from 0.99 on, a (1 - e^2) below half the gravity radius, or no ellipse belongs to them
    """
    return _kepl_to_cart.go((semi_major_axis, eccentricity, inclination, raan, arg_perigee, mean_anomaly,), (kind,), (model,), errors, return_status)


_cart_to_kepl = _Function("kl_cart_to_kepl", "kl_cart_to_kepl_n", 21, 1, KeplerResult, None, (
    ("model",),
    ("n",),
    ("select", _table.Elements, "kind"),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, False, False),
    ("gives", "out", _table.Kepler, 0, False, False),
))


def cart_to_kepl(pos, vel, /, *, kind=Elements.OSCULATING, model=None, errors="raise", return_status=False):
    """Position and velocity to Keplerian elements.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, inertial equatorial frame, up to 1e13 m
        vel: [..., 3], m/s, up to 1e9
    Keywords:
        kind: kl.Elements, kl.Elements.OSCULATING or kl.Elements.MEAN
        model: ModelId, None: the default models
    Returns Kepler:
        semi_major_axis, eccentricity, inclination, raan, arg_perigee, mean_anomaly: elements; angles 0 to 360,
            the mean anomaly of a hyperbola without bounds
    Raises KitError, or warns KitWarning (W):
        KIND_ERR: kind not 0 or 1
        STATE_ERR: not finite, position zero or beyond 1e13 m, velocity beyond 1e9 m/s
        CONIC_ERR: position and velocity along one line to rounding, or |2 - r v^2/gm| below 1e-9
        MEAN_ERR: hyperbola, e from 0.99 on, or a (1 - e^2) below half the gravity radius
        CONVERGENCE_ERR: no closure below 1e-13
    """
    return _cart_to_kepl.go((pos, vel,), (kind,), (model,), errors, return_status)


_geod_distance = _Function("kl_geod_distance", "kl_geod_distance_n", 26, 1, GeodesicResult, None, (
    ("model",),
    ("n",),
    ("each", "lat1", 'f8', 0, False, False),
    ("each", "lon1", 'f8', 0, False, False),
    ("each", "lat2", 'f8', 0, False, False),
    ("each", "lon2", 'f8', 0, False, False),
    ("gives", "distance", 'f8', 0, False, False),
    ("gives", "azimuth1", 'f8', 0, False, False),
    ("gives", "azimuth2", 'f8', 0, False, False),
))


def geod_distance(lat1, lon1, lat2, lon2, /, *, model=None, errors="raise", return_status=False):
    """Length and azimuths of the shortest path between two points of the ellipsoid.

    Arguments, arrays that broadcast against each other:
        lat1: deg, -90 to 90
        lon1: deg, -360 to 360
        lat2: deg, -90 to 90
        lon2: deg, -360 to 360
        model: ModelId, None: the default models
    Returns Geodesic:
        distance: m
        azimuth1: deg, direction of travel at the first point
        azimuth2: deg, direction of travel at the second point
    Raises KitError, or warns KitWarning (W):
        LATITUDE1_ERR: outside -90 to 90, NaN
        LONGITUDE1_ERR: outside -360 to 360, NaN
        LATITUDE2_ERR: outside -90 to 90, NaN
        LONGITUDE2_ERR: outside -360 to 360, NaN
        CONVERGENCE_ERR: not seen: a bracket is halved where steps leave it
    """
    return _geod_distance.go((lat1, lon1, lat2, lon2,), (), (model,), errors, return_status)


_geod_point = _Function("kl_geod_point", "kl_geod_point_n", None, 1, GeodPointResult, None, (
    ("model",),
    ("n",),
    ("each", "lat", 'f8', 0, False, False),
    ("each", "lon", 'f8', 0, False, False),
    ("each", "azimuth", 'f8', 0, False, False),
    ("each", "distance", 'f8', 0, False, False),
    ("gives", "lat2", 'f8', 0, False, False),
    ("gives", "lon2", 'f8', 0, False, False),
    ("gives", "azimuth2", 'f8', 0, False, False),
))


def geod_point(lat, lon, azimuth, distance, /, *, model=None, errors="raise", return_status=False):
    """The point at a distance along the geodesic that starts with an azimuth.

    Arguments, arrays that broadcast against each other:
        lat: deg, -90 to 90
        lon: deg, -360 to 360
        azimuth: deg, north through east, -360 to 360
        distance: m, -1e9 to 1e9; negative: backwards
        model: ModelId, None: the default models
    Returns GeodPoint:
        lat2: deg
        lon2: deg
        azimuth2: deg, direction of travel there
    """
    return _geod_point.go((lat, lon, azimuth, distance,), (), (model,), errors, return_status)


_position_on_orbit = _Function("kl_position_on_orbit", "kl_position_on_orbit_n", 32, 1, OrbitAngleResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("select", _table.Frame, "cs"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, False, False),
    ("each", "acc", 'f8', 3, True, False),
    ("gives", "out", _table.OrbitAngle, 0, False, False),
))


def position_on_orbit(t, pos, vel, acc=None, /, *, mode=None, cs, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Angle of a satellite on its orbit, from the ascending node in the direction of motion.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        pos: [..., 3], m, up to 1e13
        vel: [..., 3], m/s, up to 1e9
        acc: [..., 3], m/s2, read in modes 2 and 3; None or zeros: motion of two bodies
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS, kl.CalcMode.POS_VEL or kl.CalcMode.POS_VEL_ACC; left out: by the
            arguments given
        cs: kl.Frame, frame of the state, kl.Frame.BM2000 to kl.Frame.TEME but kl.Frame.GALACTIC
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns OrbitAngle:
        angle, rate, rate_of_rate, node, node_rate, inclination: angle, node, inclination, and what the mode
            asks for
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        CALC_MODE_ERR: mode not 1 to 3
        CS_ERR: frame not 1 to 11, kl.Frame.GALACTIC (it carries no velocity)
        STATE_ERR: not finite, beyond 1e13 m, 1e9 m/s or 1e9 m/s2
        TIME_ID_ERR: the time cannot be brought to UT1
        TRANSFORMATION_ERR: kl.Frame.LIF, a model id without the routine, or no way to TDB
        PLANE_ERR: position and velocity along one line, to rounding
        EQUATOR_WARN (W): node 0
        FORMULA_WARN (W): once, when a call leaves the table for the UT1-UTC formula
        GAP_WARN (W): once, when a call enters the gap between two bulletins
        VALIDITY_WARN (W): once, when a call leaves the validity of the table
    """
    return _position_on_orbit.go((t, pos, vel, acc,), (mode if mode is not None else 3 if acc is not None else 2, cs, ref,), (model, time,), errors, return_status)


_orbit_sun = _Function("kl_orbit_sun", "kl_orbit_sun_n", None, 1, OrbitSunAnglesResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", _table.Frame, "cs"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, False, False),
    ("gives", "out", _table.OrbitSunAngles, 0, False, False),
))


def orbit_sun(t, pos, vel, /, *, cs, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Beta angle, local solar times of the ascending node, angle from the Sun to the satellite.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        pos: [..., 3], m, up to 1e13
        vel: [..., 3], m/s, up to 1e9
    Keywords:
        cs: kl.Frame, frame of the state, kl.Frame.BM2000 to kl.Frame.TEME but kl.Frame.GALACTIC
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns OrbitSunAngles:
        beta, node_true_solar_time, node_mean_solar_time, sun_to_satellite
    """
    return _orbit_sun.go((t, pos, vel,), (cs, ref,), (model, time,), errors, return_status)


_cart_to_radec = _Function("kl_cart_to_radec", "kl_cart_to_radec_n", 36, 1, RadecResult, None, (
    ("model",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, True, False),
    ("gives", "out", _table.Radec, 0, False, False),
))


def cart_to_radec(pos, vel=None, /, *, mode=None, model=None, errors="raise", return_status=False):
    """Position and velocity to right ascension and declination.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, equatorial frame; finite and not zero, of any size
        vel: [..., 3], m/s, up to 1e9; read in mode 2
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS or kl.CalcMode.POS_VEL; left out: by the arguments given
        model: ModelId, None: the default models
    Returns Radec:
        ra, dec, distance, ra_rate, dec_rate, distance_rate: right ascension, declination, distance; rates in
            mode 2
    Raises KitError, or warns KitWarning (W):
        CALC_MODE_ERR: mode not 1 or 2
        POSITION_ERR: not finite, zero, longer than the largest number
        VELOCITY_ERR: mode 2: not finite, beyond 1e9 m/s
        POLAR_AXIS_WARN (W): mode 2, with a velocity off the axis; the rates are 0
    """
    return _cart_to_radec.go((pos, vel,), (mode if mode is not None else 2 if vel is not None else 1,), (model,), errors, return_status)


_radec_to_cart = _Function("kl_radec_to_cart", "kitlib_kl_radec_to_cart_columns", 37, 1, BodyStateResult, _table.Radec, (
    ("model",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("each", "ra", 'f8', 0, False, False),
    ("each", "dec", 'f8', 0, False, False),
    ("each", "distance", 'f8', 0, False, False),
    ("each", "ra_rate", 'f8', 0, True, False),
    ("each", "dec_rate", 'f8', 0, True, False),
    ("each", "distance_rate", 'f8', 0, True, False),
    ("gives", "pos", 'f8', 3, False, False),
    ("gives", "vel", 'f8', 3, False, False),
))


def radec_to_cart(ra, dec, distance, ra_rate=None, dec_rate=None, distance_rate=None, /, *, mode=None, model=None, errors="raise", return_status=False):
    """Right ascension and declination to position and velocity.

    Arguments, arrays that broadcast against each other:
        ra, dec, distance, ra_rate, dec_rate, distance_rate: right ascension -360 to 360, declination -90 to 90,
            distance from 0; rates in mode 2
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS or kl.CalcMode.POS_VEL; left out: by the arguments given
        model: ModelId, None: the default models
    Returns BodyState:
        pos: [..., 3], m
        vel: [..., 3], m/s, 0 in mode 1
    Raises KitError, or warns KitWarning (W):
        CALC_MODE_ERR: mode not 1 or 2
        RA_ERR: outside -360 to 360, NaN
        DEC_ERR: outside -90 to 90, or NaN
        DISTANCE_ERR: negative, or not finite
        RATES_ERR: mode 2: not finite, or of a velocity that is not
    """
    return _radec_to_cart.go((ra, dec, distance, ra_rate, dec_rate, distance_rate,), (mode if mode is not None else 2 if ra_rate is not None or dec_rate is not None or distance_rate is not None else 1,), (model,), errors, return_status)


_ef_to_topocentric = _Function("kl_ef_to_topocentric", "kl_ef_to_topocentric_n", None, 1, TopocentricResult, None, (
    ("model",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("record", _table.Geodetic, "origin"),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, True, False),
    ("gives", "out", _table.Topocentric, 0, False, False),
))


def ef_to_topocentric(pos, vel=None, /, *, mode=None, origin, model=None, errors="raise", return_status=False):
    """Earth-fixed position and velocity to azimuth, elevation and range from a place on the Earth.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, kl.Frame.EF, up to 1e13 m
        vel: [..., 3], m/s, relative to the rotating axes, up to 1e9; read in mode 2
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS or kl.CalcMode.POS_VEL; left out: by the arguments given
        origin: record Geodetic, the place; its rates are not read
        model: ModelId, None: the default models
    Returns Topocentric:
        azimuth, elevation, range, azimuth_rate, elevation_rate, range_rate: azimuth, elevation, range; rates in
            mode 2
    """
    return _ef_to_topocentric.go((pos, vel,), (mode if mode is not None else 2 if vel is not None else 1, origin,), (model,), errors, return_status)


_topocentric_to_ef = _Function("kl_topocentric_to_ef", "kitlib_kl_topocentric_to_ef_columns", None, 1, BodyStateResult, _table.Topocentric, (
    ("model",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("record", _table.Geodetic, "origin"),
    ("each", "azimuth", 'f8', 0, False, False),
    ("each", "elevation", 'f8', 0, False, False),
    ("each", "range", 'f8', 0, False, False),
    ("each", "azimuth_rate", 'f8', 0, True, False),
    ("each", "elevation_rate", 'f8', 0, True, False),
    ("each", "range_rate", 'f8', 0, True, False),
    ("gives", "pos", 'f8', 3, False, False),
    ("gives", "vel", 'f8', 3, False, False),
))


def topocentric_to_ef(azimuth, elevation, range, azimuth_rate=None, elevation_rate=None, range_rate=None, /, *, mode=None, origin, model=None, errors="raise", return_status=False):
    """Azimuth, elevation and range from a place on the Earth to Earth-fixed position and velocity.

    Arguments, arrays that broadcast against each other:
        azimuth, elevation, range, azimuth_rate, elevation_rate, range_rate: azimuth -360 to 360, elevation -90
            to 90, range 0 to 1e12 m; rates in mode 2
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS or kl.CalcMode.POS_VEL; left out: by the arguments given
        origin: record Geodetic, the place; its rates are not read
        model: ModelId, None: the default models
    Returns BodyState:
        pos: [..., 3], m, kl.Frame.EF
        vel: [..., 3], m/s, relative to the rotating axes; 0 in mode 1
    """
    return _topocentric_to_ef.go((azimuth, elevation, range, azimuth_rate, elevation_rate, range_rate,), (mode if mode is not None else 2 if azimuth_rate is not None or elevation_rate is not None or range_rate is not None else 1, origin,), (model,), errors, return_status)


_geod_to_utm = _Function("KL_Coticchia_Surace", "KL_Coticchia_Surace_n", 39, 1, GeodToUtmResult, None, (
    ("model",),
    ("n",),
    ("each", "lat", 'f8', 0, False, False),
    ("each", "lon", 'f8', 0, False, False),
    ("inout", "zone", 'i8', 0, False, False),
    ("gives", "north", 'i8', 0, False, False),
    ("gives", "easting", 'f8', 0, False, False),
    ("gives", "northing", 'f8', 0, False, False),
))


def geod_to_utm(lat, lon, zone=0, /, *, model=None, errors="raise", return_status=False):
    """Universal transverse Mercator coordinates of a geodetic point.

    Arguments, arrays that broadcast against each other:
        lat: deg, -84 to 84
        lon: deg, -360 to 360, within 6 deg of the zone's central meridian
        zone: 1 to 60, or 0: the zone of the longitude is taken and given back
        model: ModelId, None: the default models
    Returns GeodToUtm:
        zone: 1 to 60, or 0: the zone of the longitude is taken and given back
        north: 1 from the equator northwards, else 0
        easting: m, 500000 on the central meridian
        northing: m, 1e7 more in the south
    Raises KitError, or warns KitWarning (W):
        COMPUTATION_ERR: whatever is refused
    """
    return _geod_to_utm.go((lat, lon, zone,), (), (model,), errors, return_status)


_utm_to_geod = _Function("kl_utm_to_geod", "kl_utm_to_geod_n", None, 1, UtmToGeodResult, None, (
    ("model",),
    ("n",),
    ("each", "zone", 'i8', 0, False, False),
    ("each", "north", 'i8', 0, False, False),
    ("each", "easting", 'f8', 0, False, False),
    ("each", "northing", 'f8', 0, False, False),
    ("gives", "lat", 'f8', 0, False, False),
    ("gives", "lon", 'f8', 0, False, False),
))


def utm_to_geod(zone, north, easting, northing, /, *, model=None, errors="raise", return_status=False):
    """Geodetic latitude and longitude of universal transverse Mercator coordinates.

    Arguments, arrays that broadcast against each other:
        zone: 1 to 60
        north: 1: the northern half, 0: the southern one
        easting: m
        northing: m, within 84 deg of the equator and 6 deg of the central meridian
        model: ModelId, None: the default models
    Returns UtmToGeod:
        lat: deg
        lon: deg
    """
    return _utm_to_geod.go((zone, north, easting, northing,), (), (model,), errors, return_status)


_local_orbital_frame = _Function("kl_local_orbital_frame", "kl_local_orbital_frame_n", None, 1, LocalFrameResult, None, (
    ("n",),
    ("select", _table.LocalFrame, "kind"),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, False, False),
    ("each", "acc", 'f8', 3, True, False),
    ("gives", "r", 'f8', 9, False, False),
    ("gives", "dr", 'f8', 9, False, False),
))


def local_orbital_frame(pos, vel, acc=None, /, *, kind=LocalFrame.QSW, errors="raise", return_status=False):
    """Axes of a frame that goes along with a satellite.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, inertial frame, up to 1e13
        vel: [..., 3], m/s, up to 1e9
        acc: [..., 3], m/s2, up to 1e9; None: motion of two bodies
    Keywords:
        kind: kl.LocalFrame, kl.LocalFrame.QSW and the others
    Returns LocalFrame:
        r: [..., 9], rows: the axes in the frame of the state
        dr: [..., 9], 1/s, its derivative in time
    """
    return _local_orbital_frame.go((pos, vel, acc,), (kind,), (), errors, return_status)


_mean_motion = _Function("kl_mean_motion", "kl_mean_motion_n", None, 1, KeplerResult, None, (
    ("model",),
    ("n",),
    ("each", "mean", _table.Kepler, 0, False, False),
    ("each", "duration", 'f8', 0, False, False),
    ("gives", "out", _table.Kepler, 0, False, False),
))


def mean_motion(mean, duration, /, *, model=None, errors="raise", return_status=False):
    """Mean Keplerian elements after a time, by the secular rates of J2.

    Arguments, arrays that broadcast against each other:
        mean: record Kepler, mean elements of an ellipse, angles up to 1e8 deg
        duration: s, -1e10 to 1e10
        model: ModelId, None: the default models
    Returns Kepler:
        semi_major_axis, eccentricity, inclination, raan, arg_perigee, mean_anomaly: elements then, angles in
            [0, 360)
    """
    return _mean_motion.go((mean, duration,), (), (model,), errors, return_status)


_time_processing_to_processing = _Function("kl_time_processing_to_processing", "kl_time_processing_to_processing_n", 5, 1, None, None, (
    ("time",),
    ("n",),
    ("fixed",),
    ("select", _table.Time, "ref_in"),
    ("each", "t", 'f8', 0, False, False),
    ("fixed",),
    ("select", _table.Time, "ref_out"),
    ("gives", "time_out", 'f8', 0, False, False),
))


def time_processing_to_processing(t, /, *, ref_in=Time.UTC, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Carries a processing time to another scale.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        ref_in: kl.Time, scale of the input: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or _GPS
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        time: days, MJD2000, may lie outside the processing range by the difference of the scales
    Raises KitError, or warns KitWarning (W):
        TIME_REF_IN_ERR: input scale outside 0 to 3
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        DAYS_ERR: input outside its range, or NaN
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        STANDARD_FORMAT_ERR: input not split into whole units

    >>> import kitlib as kl
    >>> t = kl.mjd2000("2026-06-21T08:24:00Z")
    >>> round((kl.time_processing_to_processing(t, ref_in="UTC", ref_out="GPS") - t) * 86400)
    18
    """
    return _time_processing_to_processing.go((t,), (ref_in, ref_out,), (time,), errors, return_status)


_time_ascii_to_ascii = _Function("kl_time_ascii_to_ascii", "kitlib_kl_time_ascii_to_ascii_texts", 6, 2, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Ascii, "fmt_in"),
    ("select", _table.Time, "ref_in"),
    ("width", 0),
    ("each", "text", 'text', 0, False, False),
    ("select", _table.Ascii, "fmt_out"),
    ("select", _table.Time, "ref_out"),
    ("width", 0),
    ("gives", "ascii_out", 'text', 0, False, False),
))


def time_ascii_to_ascii(text, /, *, fmt_in=Ascii.ASCII_43, ref_in=Time.UTC, fmt_out=Ascii.ASCII_43, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Writes the instant of a text in another format, another scale or both.

    Arguments, arrays that broadcast against each other:
        text: texts, text of exactly the length of its format
    Keywords:
        fmt_in: kl.Ascii, format of the text
        ref_in: kl.Time, scale of the text; with a prefix also kl.Time.UNDEF
        fmt_out: kl.Ascii, format of the output
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        ascii: texts, text; may be the input text
    Raises KitError, or warns KitWarning (W):
        ASCII_ID_IN_ERR: input format is none of kl.Ascii
        TIME_REF_IN_ERR: input scale outside -1 to 3
        ASCII_ID_OUT_ERR: output format is none of kl.Ascii
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        YEAR_ERR: year is not 1950 to 2099
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LAYOUT_ERR: separators of the format missing
        TOO_SHORT_ERR: shorter than its format
        TOO_LONG_ERR: longer than its format
        PREFIX_ERR: prefix is no "TAI=" "UTC=" "UT1=" "GPS="
        PREFIX_REF_ERR: prefix contradicts the input scale
        NO_REF_ERR: kl.Time.UNDEF and no prefix
        MISSION_LIMIT_ERR: year 0000 or 9999, but no limit
        MONTH_ERR: month is not 01 to 12, JAN to DEC
        DAY_ERR: day is not 01 to 31
        HOUR_ERR: hour is not 00 to 23
        MINUTE_ERR: minute is not 00 to 59
        SECOND_ERR: second is not 00 to 60
        MICROSECOND_ERR: microsecond is not a number
        DAY_OF_30_ERR: day 31 of a month of 30
        DAY_OF_29_ERR: day 30 or 31 of a leap February
        DAY_OF_28_ERR: day 29 to 31 of another February
        LEAP_SECOND_ERR: second 60 without a leap second
        BEFORE_1950_ERR: output before 1950
        AFTER_2099_ERR: output after 2099

    >>> import kitlib as kl
    >>> kl.time_ascii_to_ascii(["2026-06-21T08:24:00"], fmt_in=41, ref_in="UTC", fmt_out=13, ref_out="GPS").tolist()
    ['2026-06-21_08:24:18.000000']
    """
    return _time_ascii_to_ascii.go((text,), (fmt_in, ref_in, fmt_out, ref_out,), (time,), errors, return_status)


_time_ascii_to_processing = _Function("kl_time_ascii_to_processing", "kitlib_kl_time_ascii_to_processing_texts", 8, 1, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Ascii, "fmt_in"),
    ("select", _table.Time, "ref_in"),
    ("width", 0),
    ("each", "text", 'text', 0, False, False),
    ("fixed",),
    ("select", _table.Time, "ref_out"),
    ("gives", "time_out", 'f8', 0, False, False),
))


def time_ascii_to_processing(text, /, *, fmt_in=Ascii.ASCII_43, ref_in=Time.UTC, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Reads a text.

    Arguments, arrays that broadcast against each other:
        text: texts, text of exactly the length of its format
    Keywords:
        fmt_in: kl.Ascii, format of the text
        ref_in: kl.Time, scale of the text; with a prefix also kl.Time.UNDEF
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        time: days, MJD2000, may lie outside the processing range by the difference of the scales
    Raises KitError, or warns KitWarning (W):
        ASCII_ID_IN_ERR: input format is none of kl.Ascii
        TIME_REF_IN_ERR: input scale outside -1 to 3
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        YEAR_ERR: year is not 1950 to 2099
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LAYOUT_ERR: separators of the format missing
        TOO_SHORT_ERR: shorter than its format
        TOO_LONG_ERR: longer than its format
        PREFIX_ERR: prefix is no "TAI=" "UTC=" "UT1=" "GPS="
        PREFIX_REF_ERR: prefix contradicts the input scale
        NO_REF_ERR: kl.Time.UNDEF and no prefix
        MISSION_LIMIT_ERR: year 0000 or 9999, but no limit
        MONTH_ERR: month is not 01 to 12, JAN to DEC
        DAY_ERR: day is not 01 to 31
        HOUR_ERR: hour is not 00 to 23
        MINUTE_ERR: minute is not 00 to 59
        SECOND_ERR: second is not 00 to 60
        MICROSECOND_ERR: microsecond is not a number
        DAY_OF_30_ERR: day 31 of a month of 30
        DAY_OF_29_ERR: day 30 or 31 of a leap February
        DAY_OF_28_ERR: day 29 to 31 of another February
        LEAP_SECOND_ERR: second 60 without a leap second
    """
    return _time_ascii_to_processing.go((text,), (fmt_in, ref_in, ref_out,), (time,), errors, return_status)


_time_text_to_processing = _Function("kl_time_text_to_processing", "kitlib_kl_time_text_to_processing_texts", 8, 1, None, None, (
    ("time",),
    ("n",),
    ("width", 0),
    ("each", "text", 'text', 0, False, False),
    ("select", _table.Time, "ref"),
    ("fixed",),
    ("select", _table.Time, "ref_out"),
    ("gives", "time_out", 'f8', 0, False, False),
))


def time_text_to_processing(text, /, *, ref=Time.UTC, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Reads a text as people write it.

    Arguments, arrays that broadcast against each other:
        text: texts, text of any layout below
    Keywords:
        ref: kl.Time, scale of a text that does not say its own; kl.Time.UNDEF: such a text is refused
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        time: days, MJD2000, may lie outside the processing range by the difference of the scales
    Raises KitError, or warns KitWarning (W):
        ASCII_ID_IN_ERR: input format is none of kl.Ascii
        TIME_REF_IN_ERR: input scale outside -1 to 3
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        YEAR_ERR: year is not 1950 to 2099
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LAYOUT_ERR: separators of the format missing
        TOO_SHORT_ERR: shorter than its format
        TOO_LONG_ERR: longer than its format
        PREFIX_ERR: prefix is no "TAI=" "UTC=" "UT1=" "GPS="
        PREFIX_REF_ERR: prefix contradicts the input scale
        NO_REF_ERR: kl.Time.UNDEF and no prefix
        MISSION_LIMIT_ERR: year 0000 or 9999, but no limit
        MONTH_ERR: month is not 01 to 12, JAN to DEC
        DAY_ERR: day is not 01 to 31
        HOUR_ERR: hour is not 00 to 23
        MINUTE_ERR: minute is not 00 to 59
        SECOND_ERR: second is not 00 to 60
        MICROSECOND_ERR: microsecond is not a number
        DAY_OF_30_ERR: day 31 of a month of 30
        DAY_OF_29_ERR: day 30 or 31 of a leap February
        DAY_OF_28_ERR: day 29 to 31 of another February
        LEAP_SECOND_ERR: second 60 without a leap second

    Layouts: those of kl.Ascii, with the prefix of the scale or without, and CCSDS A and B, 2026-06-21T08:24:05.5Z and
    2026-172T08:24:05.5Z, with the Z or without. The seconds are required.
    """
    return _time_text_to_processing.go((text,), (ref, ref_out,), (time,), errors, return_status)


_time_ascii_to_transport = _Function("kl_time_ascii_to_transport", "kitlib_kl_time_ascii_to_transport_texts", 7, 1, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Ascii, "fmt_in"),
    ("select", _table.Time, "ref_in"),
    ("width", 0),
    ("each", "text", 'text', 0, False, False),
    ("select", _table.Transport, "fmt_out"),
    ("select", _table.Time, "ref_out"),
    ("gives", "transport_out", 'i8', 4, False, False),
))


def time_ascii_to_transport(text, /, *, fmt_in=Ascii.ASCII_43, ref_in=Time.UTC, fmt_out=Transport.TRANS_0, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Reads a text into a transport time.

    Arguments, arrays that broadcast against each other:
        text: texts, text of exactly the length of its format
    Keywords:
        fmt_in: kl.Ascii, format of the text
        ref_in: kl.Time, scale of the text; with a prefix also kl.Time.UNDEF
        fmt_out: kl.Transport, format of the output
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        transport: [..., 4], fields as the format has them, then zeros
    Raises KitError, or warns KitWarning (W):
        ASCII_ID_IN_ERR: input format is none of kl.Ascii
        TIME_REF_IN_ERR: input scale outside -1 to 3
        TRANS_ID_OUT_ERR: output format is none of kl.Transport
        TIME_REF_OUT_ERR: output scale outside 0 to 3, or not GPS
        YEAR_ERR: year is not 1950 to 2099
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LAYOUT_ERR: separators of the format missing
        TOO_SHORT_ERR: shorter than its format
        TOO_LONG_ERR: longer than its format
        PREFIX_ERR: prefix is no "TAI=" "UTC=" "UT1=" "GPS="
        PREFIX_REF_ERR: prefix contradicts the input scale
        NO_REF_ERR: kl.Time.UNDEF and no prefix
        MISSION_LIMIT_ERR: year 0000 or 9999, but no limit
        MONTH_ERR: month is not 01 to 12, JAN to DEC
        DAY_ERR: day is not 01 to 31
        HOUR_ERR: hour is not 00 to 23
        MINUTE_ERR: minute is not 00 to 59
        SECOND_ERR: second is not 00 to 60
        MICROSECOND_ERR: microsecond is not a number
        DAY_OF_30_ERR: day 31 of a month of 30
        DAY_OF_29_ERR: day 30 or 31 of a leap February
        DAY_OF_28_ERR: day 29 to 31 of another February
        LEAP_SECOND_ERR: second 60 without a leap second
    """
    return _time_ascii_to_transport.go((text,), (fmt_in, ref_in, fmt_out, ref_out,), (time,), errors, return_status)


_time_processing_to_ascii = _Function("kl_time_processing_to_ascii", "kitlib_kl_time_processing_to_ascii_texts", 3, 1, None, None, (
    ("time",),
    ("n",),
    ("fixed",),
    ("select", _table.Time, "ref_in"),
    ("each", "t", 'f8', 0, False, False),
    ("select", _table.Ascii, "fmt_out"),
    ("select", _table.Time, "ref_out"),
    ("width", 0),
    ("gives", "ascii_out", 'text', 0, False, False),
))


def time_processing_to_ascii(t, /, *, ref_in=Time.UTC, fmt_out=Ascii.ASCII_43, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Writes a processing time as a text.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        ref_in: kl.Time, scale of the input: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or _GPS
        fmt_out: kl.Ascii, format of the output
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        ascii: texts, text
    Raises KitError, or warns KitWarning (W):
        TIME_REF_IN_ERR: input scale outside 0 to 3
        ASCII_ID_OUT_ERR: output format is none of kl.Ascii
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        DAYS_ERR: input outside its range, or NaN
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        STANDARD_FORMAT_ERR: input not split into whole units
        BEFORE_1950_ERR: output before 1950
        AFTER_2099_ERR: output after 2099
    """
    return _time_processing_to_ascii.go((t,), (ref_in, fmt_out, ref_out,), (time,), errors, return_status)


_time_processing_to_transport = _Function("kl_time_processing_to_transport", "kl_time_processing_to_transport_n", 4, 1, None, None, (
    ("time",),
    ("n",),
    ("fixed",),
    ("select", _table.Time, "ref_in"),
    ("each", "t", 'f8', 0, False, False),
    ("select", _table.Transport, "fmt_out"),
    ("select", _table.Time, "ref_out"),
    ("gives", "transport_out", 'i8', 4, False, False),
))


def time_processing_to_transport(t, /, *, ref_in=Time.UTC, fmt_out=Transport.TRANS_0, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Writes a processing time as a transport time.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        ref_in: kl.Time, scale of the input: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or _GPS
        fmt_out: kl.Transport, format of the output
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        transport: [..., 4], fields as the format has them, then zeros
    Raises KitError, or warns KitWarning (W):
        TIME_REF_IN_ERR: input scale outside 0 to 3
        TRANS_ID_OUT_ERR: output format is none of kl.Transport
        TIME_REF_OUT_ERR: output scale outside 0 to 3, or not GPS
        DAYS_ERR: input outside its range, or NaN
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        STANDARD_FORMAT_ERR: input not split into whole units
    """
    return _time_processing_to_transport.go((t,), (ref_in, fmt_out, ref_out,), (time,), errors, return_status)


_time_transport_to_ascii = _Function("kl_time_transport_to_ascii", "kitlib_kl_time_transport_to_ascii_texts", 0, 1, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Transport, "fmt_in"),
    ("select", _table.Time, "ref_in"),
    ("each", "transport", 'i8', 4, False, False),
    ("select", _table.Ascii, "fmt_out"),
    ("select", _table.Time, "ref_out"),
    ("width", 0),
    ("gives", "ascii_out", 'text', 0, False, False),
))


def time_transport_to_ascii(transport, /, *, fmt_in=Transport.TRANS_0, ref_in=Time.UTC, fmt_out=Ascii.ASCII_43, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Writes a transport time as a text.

    Arguments, arrays that broadcast against each other:
        transport: [..., 4], fields as the format has them; those that it has not are not read
    Keywords:
        fmt_in: kl.Transport, format of the record
        ref_in: kl.Time, scale of the record: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or _GPS
        fmt_out: kl.Ascii, format of the output
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        ascii: texts, text
    Raises KitError, or warns KitWarning (W):
        TRANS_ID_IN_ERR: input format is none of kl.Transport
        TIME_REF_IN_ERR: input scale outside 0 to 3, or not GPS
        ASCII_ID_OUT_ERR: output format is none of kl.Ascii
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        DAYS_ERR: day outside -18262 to 36524
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LEAP_SECOND_ERR: 61st second without a leap second
        SECONDS_ERR: seconds of day not 0 to 86399
        MILLISECONDS_ERR: milliseconds of day not 0 to 86399999
        MICROSECONDS_ERR: not 0 to 999999, or 0 to 999
        TICKS_ERR: not 0 to 4294967295, or beyond 2099
        WEEK_ERR: GPS week outside -1566 to 6260
        SECONDS_OF_WEEK_ERR: not 0 to 604799
        FRACTION_ERR: not 0 to 65535
        GPS_SECONDS_ERR: outside 1950 to 2099
        BEFORE_1950_ERR: output before 1950
        AFTER_2099_ERR: output after 2099
    """
    return _time_transport_to_ascii.go((transport,), (fmt_in, ref_in, fmt_out, ref_out,), (time,), errors, return_status)


_time_transport_to_processing = _Function("kl_time_transport_to_processing", "kl_time_transport_to_processing_n", 2, 1, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Transport, "fmt_in"),
    ("select", _table.Time, "ref_in"),
    ("each", "transport", 'i8', 4, False, False),
    ("fixed",),
    ("select", _table.Time, "ref_out"),
    ("gives", "time_out", 'f8', 0, False, False),
))


def time_transport_to_processing(transport, /, *, fmt_in=Transport.TRANS_0, ref_in=Time.UTC, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Reads a transport time.

    Arguments, arrays that broadcast against each other:
        transport: [..., 4], fields as the format has them; those that it has not are not read
    Keywords:
        fmt_in: kl.Transport, format of the record
        ref_in: kl.Time, scale of the record: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or _GPS
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        time: days, MJD2000, may lie outside the processing range by the difference of the scales
    Raises KitError, or warns KitWarning (W):
        TRANS_ID_IN_ERR: input format is none of kl.Transport
        TIME_REF_IN_ERR: input scale outside 0 to 3, or not GPS
        TIME_REF_OUT_ERR: output scale outside 0 to 3
        DAYS_ERR: day outside -18262 to 36524
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LEAP_SECOND_ERR: 61st second without a leap second
        SECONDS_ERR: seconds of day not 0 to 86399
        MILLISECONDS_ERR: milliseconds of day not 0 to 86399999
        MICROSECONDS_ERR: not 0 to 999999, or 0 to 999
        TICKS_ERR: not 0 to 4294967295, or beyond 2099
        WEEK_ERR: GPS week outside -1566 to 6260
        SECONDS_OF_WEEK_ERR: not 0 to 604799
        FRACTION_ERR: not 0 to 65535
        GPS_SECONDS_ERR: outside 1950 to 2099
    """
    return _time_transport_to_processing.go((transport,), (fmt_in, ref_in, ref_out,), (time,), errors, return_status)


_time_transport_to_transport = _Function("kl_time_transport_to_transport", "kl_time_transport_to_transport_n", 1, 1, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Transport, "fmt_in"),
    ("select", _table.Time, "ref_in"),
    ("each", "transport", 'i8', 4, False, False),
    ("select", _table.Transport, "fmt_out"),
    ("select", _table.Time, "ref_out"),
    ("gives", "transport_out", 'i8', 4, False, False),
))


def time_transport_to_transport(transport, /, *, fmt_in=Transport.TRANS_0, ref_in=Time.UTC, fmt_out=Transport.TRANS_0, ref_out=Time.UTC, time=None, errors="raise", return_status=False):
    """Writes the instant of a transport time in another format, another scale or both.

    Arguments, arrays that broadcast against each other:
        transport: [..., 4], fields as the format has them; those that it has not are not read
    Keywords:
        fmt_in: kl.Transport, format of the record
        ref_in: kl.Time, scale of the record: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or _GPS
        fmt_out: kl.Transport, format of the output
        ref_out: kl.Time, scale of the output, 0 to 3
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        transport: [..., 4], fields as the format has them, then zeros; may be the input record
    Raises KitError, or warns KitWarning (W):
        TRANS_ID_IN_ERR: input format is none of kl.Transport
        TIME_REF_IN_ERR: input scale outside 0 to 3, or not GPS
        TRANS_ID_OUT_ERR: output format is none of kl.Transport
        TIME_REF_OUT_ERR: output scale outside 0 to 3, or not GPS
        DAYS_ERR: day outside -18262 to 36524
        TIME_ID_ERR: scales differ, no initialised time id
        OUT_OF_RANGE_WARN (W): instant outside the table
        BULLETIN_A_WARN (W): left the table: by formula from here on
        BULLETIN_B_A_WARN (W): now in the gap between two bulletins
        VALIDITY_WARN (W): left the validity of the time id
        LEAP_SECOND_ERR: 61st second without a leap second
        SECONDS_ERR: seconds of day not 0 to 86399
        MILLISECONDS_ERR: milliseconds of day not 0 to 86399999
        MICROSECONDS_ERR: not 0 to 999999, or 0 to 999
        TICKS_ERR: not 0 to 4294967295, or beyond 2099
        WEEK_ERR: GPS week outside -1566 to 6260
        SECONDS_OF_WEEK_ERR: not 0 to 604799
        FRACTION_ERR: not 0 to 65535
        GPS_SECONDS_ERR: outside 1950 to 2099
    """
    return _time_transport_to_transport.go((transport,), (fmt_in, ref_in, fmt_out, ref_out,), (time,), errors, return_status)


_change_cart_cs = _Function("kl_change_cart_cs", "kl_change_cart_cs_n", 17, 1, StateResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", _table.CalcMode, "mode"),
    ("select", _table.Frame, "cs_in"),
    ("select", _table.Frame, "cs_out"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, True, True),
    ("each", "acc", 'f8', 3, True, True),
    ("gives", "pos_out", 'f8', 3, False, False),
    ("gives", "vel_out", 'f8', 3, False, False),
    ("gives", "acc_out", 'f8', 3, False, False),
))


def change_cart_cs(t, pos, vel=None, acc=None, /, *, mode=None, cs_in, cs_out, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Carries a position, velocity and acceleration from one reference frame to another.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        pos: [..., 3], m
        vel: [..., 3], m/s, read in every mode
        acc: [..., 3], m/s2, read in every mode
    Keywords:
        mode: kl.CalcMode, kl.CalcMode.POS, kl.CalcMode.POS_VEL or kl.CalcMode.POS_VEL_ACC: outputs above the
            mode are zero; left out: by the arguments given
        cs_in: kl.Frame, frame of the input, kl.Frame.BM2000 to kl.Frame.TEME
        cs_out: kl.Frame, frame of the output
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns State:
        pos: [..., 3], m, may be pos
        vel: [..., 3], m/s, the derivative in the output frame; may be vel
        acc: [..., 3], m/s2, may be acc. Between barycentric, heliocentric and geocentric frames the
            acceleration of the origin is taken as zero
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        CALC_MODE_ERR: mode not 1 to 3
        CS_IN_ERR: frame not 1 to 11
        CS_OUT_ERR: frame not 1 to 11
        TIME_ID_ERR: the time cannot be brought to UT1
        FORMULA_WARN (W): once, when a call leaves the table for the UT1-UTC formula
        GAP_WARN (W): once, when a call enters the gap between two bulletins
        VALIDITY_WARN (W): once, when a call leaves the validity of the table
        TAI_ERR: the time cannot be brought to TAI; the outputs are written by then
        TRANSFORMATION_ERR: a model id without the routine, or no way to TDB
        LIF_ERR: kl.Frame.LIF: no time id of this library holds its reference

    >>> import kitlib as kl
    >>> pos, vel, _ = kl.change_cart_cs(9668.35, [7068500.0, 1142000.0, 0.0], [170.1, -1096.3, 7379.0], cs_in="TEME", cs_out="EF")
    >>> pos.round(-3).tolist()
    [6415000.0, -3181000.0, -0.0]
    """
    return _change_cart_cs.go((t, pos, vel, acc,), (mode if mode is not None else 3 if acc is not None else 2 if vel is not None else 1, cs_in, cs_out, ref,), (model, time,), errors, return_status)


_ray_ellipsoid = _Function("kl_ray_ellipsoid", "kl_ray_ellipsoid_n", None, 1, RayPointsResult, None, (
    ("model",),
    ("n",),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "dir", 'f8', 3, False, False),
    ("each", "margin", 'f8', 0, True, True),
    ("gives", "t", 'f8', 2, False, False),
    ("gives", "n_points", 'i8', 0, False, False),
))


def ray_ellipsoid(pos, dir, margin=None, /, *, model=None, errors="raise", return_status=False):
    """Where a line of sight meets the ellipsoid.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, in axes whose z is the Earth's: kl.Frame.EF, kl.Frame.PEF, kl.Frame.TOD, kl.Frame.TEME
        dir: [..., 3], direction, of any length but 0
        margin: m, raises the ellipsoid: semi-axes a + margin and (a + margin) b/a; None: 0
        model: ModelId, None: the default models
    Returns RayPoints:
        t: [..., 2], m, along the unit direction, ascending, negative behind; NaN beyond the number of points
        n: number of points, 0 to 2
    """
    return _ray_ellipsoid.go((pos, dir, margin,), (), (model,), errors, return_status)


_ray_height = _Function("kl_ray_height", "kl_ray_height_n", None, 1, RayPointsResult, None, (
    ("model",),
    ("n",),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "dir", 'f8', 3, False, False),
    ("each", "height", 'f8', 0, False, False),
    ("gives", "t", 'f8', 2, False, False),
    ("gives", "n_points", 'i8', 0, False, False),
))


def ray_height(pos, dir, height, /, *, model=None, errors="raise", return_status=False):
    """Where a line of sight has a geodetic height.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, in axes whose z is the Earth's: kl.Frame.EF, kl.Frame.PEF, kl.Frame.TOD, kl.Frame.TEME
        dir: [..., 3], direction, of any length but 0
        height: m, -1e5 to 1e9
        model: ModelId, None: the default models
    Returns RayPoints:
        t: [..., 2], m, along the unit direction, ascending, negative behind; NaN beyond the number of points
        n: number of points, 0 to 2
    """
    return _ray_height.go((pos, dir, height,), (), (model,), errors, return_status)


_ray_tangent = _Function("kl_ray_tangent", "kl_ray_tangent_n", None, 1, RayTangentResult, None, (
    ("model",),
    ("n",),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "dir", 'f8', 3, False, False),
    ("gives", "t", 'f8', 0, False, False),
    ("gives", "point", 'f8', 3, False, False),
    ("gives", "geodetic", _table.Geodetic, 0, False, False),
    ("gives", "meets_earth", 'i8', 0, False, False),
))


def ray_tangent(pos, dir, /, *, model=None, errors="raise", return_status=False):
    """The point of a line of sight where the geodetic height is smallest.

    Arguments, arrays that broadcast against each other:
        pos: [..., 3], m, in axes whose z is the Earth's: kl.Frame.EF, kl.Frame.PEF, kl.Frame.TOD, kl.Frame.TEME
        dir: [..., 3], direction, of any length but 0
        model: ModelId, None: the default models
    Returns RayTangent:
        t: m, along the unit direction, negative behind
        point: [..., 3], m, in the axes of pos
        geodetic: record Geodetic, its coordinates; rates 0
        meets_earth: 1 when the point lies below the ellipsoid, else 0
    """
    return _ray_tangent.go((pos, dir,), (), (model,), errors, return_status)


_eclipse = _Function("kl_eclipse", "kl_eclipse_n", 38, 1, EclipseStateResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", None, "light_time"),
    ("select", _table.Frame, "cs"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "margin", 'f8', 0, True, False),
    ("gives", "state", 'i8', 0, False, False),
    ("gives", "fraction", 'f8', 0, False, False),
    ("gives", "depth", 'f8', 0, False, False),
))


def eclipse(t, pos, margin=None, /, *, light_time=1, cs=Frame.EF, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """How much of the Sun the Earth hides from a satellite.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        pos: [..., 3], m, outside the ellipsoid, up to 1e10 m from the centre of the Earth
        margin: m, raises the ellipsoid for the opaque atmosphere, -1e4 to 2e5; None: 0
    Keywords:
        light_time: 1: the Sun as its light shows it; else where it is
        cs: kl.Frame, frame of the position: kl.Frame.BM2000 to kl.Frame.EF, kl.Frame.BM1950 or kl.Frame.TEME
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns EclipseState:
        state: kl.Shadow.SUNLIGHT, kl.Shadow.PENUMBRA, kl.Shadow.UMBRA or kl.Shadow.ANNULAR
        fraction: visible part of the Sun's disc, 0 to 1
        depth: from the Sun's centre to the limb, in radii of the Sun, negative when the centre is covered
    Raises KitError, or warns KitWarning (W):
        POSITION_ERR: not finite, inside the ellipsoid with margin, beyond 1e10 m
        SUN_ERR: not finite, nearer than 1e11 m
        MARGIN_ERR: outside -1e4 to 2e5 m
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        CS_ERR: not one of the nine
        TIME_ID_ERR: time id not initialised
        TRANSFORMATION_ERR: the Sun or the frame chain failed, or the model id holds no routine (refused init)
        FORMULA_WARN (W): once
        GAP_WARN (W): once
        VALIDITY_WARN (W): once
    """
    return _eclipse.go((t, pos, margin,), (light_time, cs, ref,), (model, time,), errors, return_status)


_earth_orientation_get = _Function("kl_earth_orientation_get", "kl_earth_orientation_get_n", None, 1, EarthOrientationResult, None, (
    ("time",),
    ("n",),
    ("select", None, "corrections"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("gives", "out", _table.EarthOrientation, 0, False, False),
))


def earth_orientation_get(t, /, *, corrections=0, ref=Time.UTC, time=None, errors="raise", return_status=False):
    """What a time id and the theory say of the Earth's orientation.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        corrections: 0 to 3: sum of kl.Eop.OCEAN_TIDES and kl.Eop.LIBRATION
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        time: TimeId, None: the correlation of the package
    Returns EarthOrientation:
        x_pole, y_pole, ut1_utc, ut1_tai, dx, dy, cip_x, cip_y, s, s_prime, era, notes: the values
    """
    return _earth_orientation_get.go((t,), (corrections, ref,), (time,), errors, return_status)


_iers_matrix = _Function("kl_iers_matrix", "kl_iers_matrix_n", None, 1, IersMatrixResult, None, (
    ("time",),
    ("n",),
    ("select", None, "corrections"),
    ("select", _table.IersFrame, "cs_in"),
    ("select", _table.IersFrame, "cs_out"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("select", _table.CalcMode, "mode"),
    ("gives", "r", 'f8', 9, False, False),
    ("gives", "dr", 'f8', 9, False, False),
    ("gives", "ddr", 'f8', 9, False, False),
))


def iers_matrix(t, /, *, corrections=0, cs_in, cs_out, ref=Time.UTC, mode=None, time=None, errors="raise", return_status=False):
    """Matrix from one frame of the IERS Conventions to another, with its derivatives.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        corrections: 0 to 3: sum of kl.Eop.OCEAN_TIDES and kl.Eop.LIBRATION
        cs_in: kl.IersFrame, kl.IersFrame.GCRS to kl.IersFrame.EME2000
        cs_out: kl.IersFrame, kl.IersFrame.GCRS to kl.IersFrame.EME2000
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        mode: kl.CalcMode, kl.CalcMode.POS, kl.CalcMode.POS_VEL or kl.CalcMode.POS_VEL_ACC; left out: by the
            arguments given
        time: TimeId, None: the correlation of the package
    Returns IersMatrix:
        r: [..., 9], rows of the matrix
        dr: [..., 9], 1/s, its derivative; zero in mode 1
        ddr: [..., 9], 1/s2, its second derivative; zero in modes 1 and 2
    """
    return _iers_matrix.go((t,), (corrections, cs_in, cs_out, ref, mode if mode is not None else 1,), (time,), errors, return_status)


_iers_change = _Function("kl_iers_change", "kl_iers_change_n", None, 1, StateResult, None, (
    ("time",),
    ("n",),
    ("select", None, "corrections"),
    ("select", _table.CalcMode, "mode"),
    ("select", _table.IersFrame, "cs_in"),
    ("select", _table.IersFrame, "cs_out"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "pos", 'f8', 3, False, False),
    ("each", "vel", 'f8', 3, True, False),
    ("each", "acc", 'f8', 3, True, False),
    ("gives", "pos_out", 'f8', 3, False, False),
    ("gives", "vel_out", 'f8', 3, False, False),
    ("gives", "acc_out", 'f8', 3, False, False),
))


def iers_change(t, pos, vel=None, acc=None, /, *, corrections=0, mode=None, cs_in, cs_out, ref=Time.UTC, time=None, errors="raise", return_status=False):
    """Carries a state from one frame of the IERS Conventions to another.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        pos: [..., 3], m
        vel: [..., 3], m/s, not read in mode 1
        acc: [..., 3], m/s2, not read in modes 1 and 2
    Keywords:
        corrections: 0 to 3: sum of kl.Eop.OCEAN_TIDES and kl.Eop.LIBRATION
        mode: kl.CalcMode, kl.CalcMode.POS, kl.CalcMode.POS_VEL or kl.CalcMode.POS_VEL_ACC: outputs above it are
            zero; left out: by the arguments given
        cs_in: kl.IersFrame, kl.IersFrame.GCRS to kl.IersFrame.EME2000
        cs_out: kl.IersFrame, kl.IersFrame.GCRS to kl.IersFrame.EME2000
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        time: TimeId, None: the correlation of the package
    Returns State:
        pos: [..., 3], m, may be pos
        vel: [..., 3], m/s, the derivative in the output frame; may be vel
        acc: [..., 3], m/s2, may be acc
    """
    return _iers_change.go((t, pos, vel, acc,), (corrections, mode if mode is not None else 3 if acc is not None else 2 if vel is not None else 1, cs_in, cs_out, ref,), (time,), errors, return_status)


_quaternions_to_vectors = _Function("kl_quaternions_to_vectors", "kl_quaternions_to_vectors_n", 33, 1, AxesResult, None, (
    ("n",),
    ("each", "q", 'f8', 4, False, False),
    ("gives", "x", 'f8', 3, False, False),
    ("gives", "y", 'f8', 3, False, False),
    ("gives", "z", 'f8', 3, False, False),
))


def quaternions_to_vectors(q, /, *, errors="raise", return_status=False):
    """Axis vectors of a quaternion.

    Arguments, arrays that broadcast against each other:
        q: [..., 4], unit quaternion within 1e-6, scalar last; used as given, not normalised
    Returns Axes:
        x: [..., 3], columns of the attitude matrix
        y: [..., 3], columns of the attitude matrix
        z: [..., 3], columns of the attitude matrix
    Raises KitError, or warns KitWarning (W):
        MODULE_ERR: not of unit length; NaN

    >>> import kitlib as kl
    >>> kl.quaternions_to_vectors([0.0, 0.0, 0.0, 1.0]).y.tolist()
    [0.0, 1.0, 0.0]
    """
    return _quaternions_to_vectors.go((q,), (), (), errors, return_status)


_vectors_to_quaternions = _Function("kl_vectors_to_quaternions", "kl_vectors_to_quaternions_n", 34, 1, None, None, (
    ("n",),
    ("each", "x", 'f8', 3, False, False),
    ("each", "y", 'f8', 3, False, False),
    ("each", "z", 'f8', 3, False, False),
    ("gives", "q", 'f8', 4, False, False),
))


def vectors_to_quaternions(x, y, z, /, *, errors="raise", return_status=False):
    """Quaternion of three axis vectors (trace, or Shepperd's method).

    Arguments, arrays that broadcast against each other:
        x: [..., 3], right-handed orthogonal set, any lengths above 1e-10 (a null vector has less); normalised
            on copies
        y: [..., 3], right-handed orthogonal set, any lengths above 1e-10 (a null vector has less); normalised
            on copies
        z: [..., 3], right-handed orthogonal set, any lengths above 1e-10 (a null vector has less); normalised
            on copies
    Returns an array, or a number for numbers:
        q: [..., 4], unit quaternion, scalar last
    Raises KitError, or warns KitWarning (W):
        VECTORS_ERR: a null vector, or a left-handed set
        ORTHONORMAL_ERR: not orthogonal within 1e-6; NaN
    """
    return _vectors_to_quaternions.go((x, y, z,), (), (), errors, return_status)


_quaternions_interpol = _Function("kl_quaternions_interpol", "kl_quaternions_interpol_n", 45, 1, None, None, (
    ("n",),
    ("select", _table.Interpolation, "mode"),
    ("each", "t1", 'f8', 0, False, False),
    ("each", "q1", 'f8', 4, False, False),
    ("each", "t2", 'f8', 0, False, False),
    ("both", "q2", 'f8', 4, False, False),
    ("each", "t", 'f8', 0, False, False),
    ("gives", "q", 'f8', 4, False, False),
))


def quaternions_interpol(t1, q1, t2, q2, t, /, *, mode=Interpolation.SLERP, errors="raise", return_status=False):
    """Quaternion at a time between two (SLERP), or beyond them by the rotation between the two.

    Arguments, arrays that broadcast against each other:
        t1: time of q1, any unit
        q1: [..., 4], unit quaternion
        t2: time of q2
        q2: [..., 4], unit quaternion; ON PURPOSE NEGATED IN PLACE when it interpolates from the other half; a
            copy is changed
        t: time wanted
    Keywords:
        mode: kl.Interpolation, kl.Interpolation.SLERP; not looked at when t lies outside [t1, t2]
    Returns an array, or a number for numbers:
        q: [..., 4], unit quaternion
    Raises KitError, or warns KitWarning (W):
        RANGE_WARN (W): t outside [t1, t2]: extrapolated
        ALGORITHM_ERR: mode inside the interval, or numbers that allow no algorithm
    """
    return _quaternions_interpol.go((t1, q1, t2, q2, t,), (mode,), (), errors, return_status)


_euler_to_matrix = _Function("kl_euler_to_matrix", "kl_euler_to_matrix_n", None, 1, None, None, (
    ("n",),
    ("each", "angles", 'f8', 3, False, False),
    ("gives", "matrix", 'f8', 9, False, False),
))


def euler_to_matrix(angles, /, *, errors="raise", return_status=False):
    """Matrix of three rotation angles a0, a1, a2 (about x, y and z).

    Arguments, arrays that broadcast against each other:
        angles: [..., 3], deg, angles that are not finite give a matrix of NaN
    Returns an array, or a number for numbers:
        matrix: [..., 9], row by row, with s and c the sines and cosines: c1c2+s0s1s2, c0s2, s1c2-s0c1s2 /
            -c1s2+s0s1c2, c0c2, -s1s2-s0c1c2 / -c0s1, s0, c0c1
    """
    return _euler_to_matrix.go((angles,), (), (), errors, return_status)


_matrix_to_euler = _Function("kl_matrix_to_euler", "kl_matrix_to_euler_n", 41, 1, None, None, (
    ("n",),
    ("each", "matrix", 'f8', 9, False, False),
    ("gives", "angles", 'f8', 3, False, False),
))


def matrix_to_euler(matrix, /, *, errors="raise", return_status=False):
    """Rotation angles of a matrix, the inverse of kl.euler_to_matrix.

    Arguments, arrays that broadcast against each other:
        matrix: [..., 9], row by row
    Returns an array, or a number for numbers:
        angles: [..., 3], deg, in (-180, 180]; on purpose 270 for a0 = -90 deg in the ambiguous case
    Raises KitError, or warns KitWarning (W):
        ROTATION_ERR: not a rotation within 1e-9
        AMBIGUITY_WARN (W): a0 is +-90 deg (cosine below 1e-9): a2 = 0
        ORTHONORMAL_ERR: rows not orthonormal within 1e-6; NaN
    """
    return _matrix_to_euler.go((matrix,), (), (), errors, return_status)


_get_rotation_angles = _Function("kl_get_rotation_angles", "kl_get_rotation_angles_n", 30, 1, None, None, (
    ("n",),
    ("each", "x1", 'f8', 3, False, False),
    ("each", "y1", 'f8', 3, False, False),
    ("each", "z1", 'f8', 3, False, False),
    ("each", "x2", 'f8', 3, False, False),
    ("each", "y2", 'f8', 3, False, False),
    ("each", "z2", 'f8', 3, False, False),
    ("gives", "angles", 'f8', 3, False, False),
))


def get_rotation_angles(x1, y1, z1, x2, y2, z2, /, *, errors="raise", return_status=False):
    """Angles of the rotation from one set of axes to another: with M = kl.euler_to_matrix(angles), M has the axes of
    set 2 as its rows, in components along set 1 (v2 = M v1).

    Arguments, arrays that broadcast against each other:
        x1: [..., 3], first set, orthogonal; any lengths
        y1: [..., 3], first set, orthogonal; any lengths
        z1: [..., 3], first set, orthogonal; any lengths
        x2: [..., 3], second set
        y2: [..., 3], second set
        z2: [..., 3], second set
    Returns an array, or a number for numbers:
        angles: [..., 3], deg, as kl.matrix_to_euler gives them; at a0 = +-90 deg a2 is 0, without a warning
    Raises KitError, or warns KitWarning (W):
        ORTHOGONAL_ERR: a set is not orthogonal within 1e-6, or has a null vector
        ROTATION_ERR: the sets are of different hands
    """
    return _get_rotation_angles.go((x1, y1, z1, x2, y2, z2,), (), (), errors, return_status)


_get_rotated_vectors = _Function("kl_get_rotated_vectors", "kl_get_rotated_vectors_n", 31, 1, GetRotatedVectorsResult, None, (
    ("n",),
    ("each", "x1", 'f8', 3, False, False),
    ("each", "y1", 'f8', 3, False, False),
    ("each", "z1", 'f8', 3, False, False),
    ("each", "angles", 'f8', 3, False, False),
    ("gives", "x2", 'f8', 3, False, False),
    ("gives", "y2", 'f8', 3, False, False),
    ("gives", "z2", 'f8', 3, False, False),
))


def get_rotated_vectors(x1, y1, z1, angles, /, *, errors="raise", return_status=False):
    """Axes turned by three angles, the inverse of kl.get_rotation_angles.

    Arguments, arrays that broadcast against each other:
        x1: [..., 3], orthogonal set, any lengths
        y1: [..., 3], orthogonal set, any lengths
        z1: [..., 3], orthogonal set, any lengths
        angles: [..., 3], deg
    Returns GetRotatedVectors:
        x2: [..., 3], unit axes of the turned set; may be those of the first
        y2: [..., 3], unit axes of the turned set; may be those of the first
        z2: [..., 3], unit axes of the turned set; may be those of the first
    Raises KitError, or warns KitWarning (W):
        ORTHOGONAL_ERR: the set is not orthogonal within 1e-6, or has a null vector
        ROTATION_ERR: angles that are not finite
    """
    return _get_rotated_vectors.go((x1, y1, z1, angles,), (), (), errors, return_status)


_star_radec = _Function("kl_star_radec", "kl_star_radec_n", 25, 1, RadecResult, None, (
    ("model",),
    ("time",),
    ("n",),
    ("select", None, "corrections"),
    ("select", _table.Frame, "cs_out"),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "star", _table.Star, 0, False, False),
    ("each", "observer_pos", 'f8', 3, True, False),
    ("each", "observer_vel", 'f8', 3, True, False),
    ("gives", "place", _table.Radec, 0, False, False),
))


def star_radec(t, star, observer_pos=None, observer_vel=None, /, *, corrections=7, cs_out=Frame.TOD, ref=Time.UTC, model=None, time=None, errors="raise", return_status=False):
    """Place of a star in the sky of an observer.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        star: record Star, within the ranges below
        observer_pos: [..., 3], m, kl.Frame.GM2000, up to 1e12 m; None: the centre of the Earth
        observer_vel: [..., 3], m/s, kl.Frame.GM2000, up to 3e7 m/s; None: that of the centre of the Earth
    Keywords:
        corrections: sum of kl.StarCorrection.PARALLAX, kl.StarCorrection.ABERRATION and
            kl.StarCorrection.DEFLECTION, 0 to 7; kl.Frame.BM2000 has none of them
        cs_out: kl.Frame, axes of the place: kl.Frame.BM2000 (motion in space only), kl.Frame.GM2000,
            kl.Frame.MOD, kl.Frame.TOD, kl.Frame.TEME, kl.Frame.PEF or kl.Frame.EF
        ref: kl.Time, scale of time: kl.Time.TAI, kl.Time.UTC, kl.Time.UT1 or kl.Time.GPS
        model: ModelId, None: the default models
        time: TimeId, None: the correlation of the package
    Returns Radec:
        ra, dec, distance, ra_rate, dec_rate, distance_rate: deg, a direction: distance 1, rates 0
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference not 0 to 3
        DATE_ERR: date outside -18262.0 to 36524.0, not a number
        CORRECTIONS_ERR: not 0 to 7
        CS_OUT_ERR: not one of the seven
        STAR_ERR: a number of the star out of its range or not finite
        OBSERVER_ERR: not finite, beyond 1e12 m or 3e7 m/s, or at the centre of the Sun
        TIME_ID_ERR: time id not initialised where it is needed
        TRANSFORMATION_ERR: the frame chain failed, or the model id holds no routine (refused init)
        FORMULA_WARN (W): once
        GAP_WARN (W): once
        VALIDITY_WARN (W): once

    Ranges of a star: ra -360 to 360, dec -90 to 90 deg; proper motions up to 1e6 mas/yr, parallax up to 1e4 mas, radial velocity
    up to 3e5 km/s, epoch -91312.5 to 109573.5 (MJD2000; 1750 to 2300); all finite. See kl.Star.
    """
    return _star_radec.go((t, star, observer_pos, observer_vel,), (corrections, cs_out, ref,), (model, time,), errors, return_status)


_time_get_pole = _Function("kl_time_get_pole", "kitlib_kl_time_get_pole_n", None, 0, None, None, (
    ("time",),
    ("n",),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("gives", "pole", 'f8', 4, False, False),
))


def time_get_pole(t, /, *, ref=Time.UTC, time=None, errors="raise", return_status=False):
    """Pole of the Earth that a time id holds at an instant.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000
    Keywords:
        ref: kl.Time, scale of time
        time: TimeId, None: the correlation of the package
    Returns an array, or a number for numbers:
        pole: [..., 4], arcsec, x, y, dX, dY
    C has no array form of it: the package's own loop in C calls it once an element.
    """
    return _time_get_pole.go((t,), (ref,), (time,), errors, return_status)


_time_add = _Function("kl_time_add", "kl_time_add_n", 9, 1, None, None, (
    ("n",),
    ("fixed",),
    ("select", _table.Time, "ref"),
    ("each", "t", 'f8', 0, False, False),
    ("each", "duration", 'f8', 0, False, False),
    ("gives", "time_out", 'f8', 0, False, False),
))


def time_add(t, duration, /, *, ref=Time.UTC, errors="raise", return_status=False):
    """Processing time plus a duration, both in days of the same scale: no leap second comes in.

    Arguments, arrays that broadcast against each other:
        t: days, MJD2000, -18262.0 to 36524.0
        duration: days, of either sign
    Keywords:
        ref: kl.Time, kl.Time.TAI to kl.Time.GPS; only checked
    Returns an array, or a number for numbers:
        time: days, MJD2000, also written with SUM_ERR
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference outside 0 to 3
        TIME_ERR: time outside -18262.0 to 36524.0, or NaN
        SUM_ERR: sum outside that range, or NaN; it is written all the same
    """
    return _time_add.go((t, duration,), (ref,), (), errors, return_status)


_time_diff = _Function("kl_time_diff", "kl_time_diff_n", 10, 1, None, None, (
    ("n",),
    ("fixed",),
    ("select", _table.Time, "ref"),
    ("each", "time1", 'f8', 0, False, False),
    ("each", "time2", 'f8', 0, False, False),
    ("gives", "duration", 'f8', 0, False, False),
))


def time_diff(time1, time2, /, *, ref=Time.UTC, errors="raise", return_status=False):
    """Difference of two processing times of the same scale, in days of that scale: no leap second comes in.

    Arguments, arrays that broadcast against each other:
        time1: days, MJD2000, -18262.0 to 36524.0; checked wholly before time2
        time2: days, MJD2000, -18262.0 to 36524.0
    Keywords:
        ref: kl.Time, kl.Time.TAI to kl.Time.GPS; only checked
    Returns an array, or a number for numbers:
        duration: time1 - time2, days
    Raises KitError, or warns KitWarning (W):
        TIME_REF_ERR: time reference outside 0 to 3
        TIME1_ERR: first time outside -18262.0 to 36524.0, or NaN
        TIME2_ERR: second time outside that range, or NaN
    """
    return _time_diff.go((time1, time2,), (ref,), (), errors, return_status)


_time_get_leap_second_info = _Function("kl_time_get_leap_second_info", "kitlib_kl_time_get_leap_second_info_n", 27, 1, LeapSecondInfoResult, None, (
    ("time",),
    ("n",),
    ("select", _table.Ascii, "fmt_out"),
    ("gives", "leap_sign", 'i8', 0, False, False),
    ("width", 32),
    ("gives", "utc_time_before", 'text', 0, False, False),
    ("width", 32),
    ("gives", "utc_time_after", 'text', 0, False, False),
))


def time_get_leap_second_info(*, fmt_out=Ascii.ASCII_43, time=None, errors="raise", return_status=False):
    """The one leap second that a time id knows: the last change of TAI-UTC in its table.

    Keywords:
        fmt_out: kl.Ascii, kl.Ascii.ASCII_11 to kl.Ascii.ASCII_54
        time: TimeId, None: the correlation of the package
    Returns LeapSecondInfo:
        sign: 0 none, 1 a positive, -1 a negative leap second
        before: texts, UTC 1/86401 day before utc_time_after: 23:59:59.000012 where the format has microseconds,
            also for a negative leap second; empty without a leap second
        after: texts, first UTC instant after it, 00:00:00 of the first day of a quarter; empty without a leap
            second
    Raises KitError, or warns KitWarning (W):
        FORMAT_ERR: not an ASCII format
        CONVERT_ERR: an instant could not be written: it lies before 1950
        TIME_ID_WARN (W): the time id is not initialised: sign 0, empty texts
    C has no array form of it: the package's own loop in C calls it once an element.
    """
    return _time_get_leap_second_info.go((), (fmt_out,), (time,), errors, return_status)
