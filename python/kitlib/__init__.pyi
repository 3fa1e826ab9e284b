"""Types of the package. Written by tools/api/generate.py from the table in api/ and the headers in include/kl."""
from enum import IntEnum
from typing import Any, NamedTuple
import ctypes

import numpy as np
from numpy.typing import ArrayLike, NDArray

from . import dask as dask, events as events, plot as plot

Numbers = ArrayLike
Texts = Any
Octets = Any
Record = Any
Doubles = NDArray[np.float64]
Longs = NDArray[np.int64]
Bytes = NDArray[np.uint8]

class Time(IntEnum):
    UNDEF = -1
    TAI = 0
    UTC = 1
    UT1 = 2
    GPS = 3

class Ascii(IntEnum):
    ASCII_11 = 11
    ASCII_12 = 12
    ASCII_13 = 13
    ASCII_14 = 14
    ASCII_21 = 21
    ASCII_22 = 22
    ASCII_23 = 23
    ASCII_24 = 24
    ASCII_31 = 31
    ASCII_32 = 32
    ASCII_33 = 33
    ASCII_34 = 34
    ASCII_41 = 41
    ASCII_42 = 42
    ASCII_43 = 43
    ASCII_44 = 44
    ASCII_51 = 51
    ASCII_52 = 52
    ASCII_53 = 53
    ASCII_54 = 54

class Transport(IntEnum):
    TRANS_0 = 0
    TRANS_11 = 11
    TRANS_21 = 21
    TRANS_22 = 22
    TRANS_23 = 23
    TRANS_31 = 31
    TRANS_41 = 41
    TRANS_42 = 42

class Frame(IntEnum):
    BM2000 = 1
    HM2000 = 2
    GM2000 = 3
    MOD = 4
    TOD = 5
    PEF = 6
    EF = 7
    LIF = 8
    BM1950 = 9
    GALACTIC = 10
    TEME = 11

class IersFrame(IntEnum):
    GCRS = 1
    CIRS = 2
    TIRS = 3
    ITRS = 4
    EME2000 = 5

class CalcMode(IntEnum):
    POS = 1
    POS_VEL = 2
    POS_VEL_ACC = 3

class Planet(IntEnum):
    MERCURY = 1
    VENUS = 2
    EARTH_MOON_BARYCENTRE = 3
    MARS = 4
    JUPITER = 5
    SATURN = 6
    URANUS = 7
    NEPTUNE = 8

class ModelKind(IntEnum):
    EARTH = 0
    SUN = 1
    MOON = 2
    PLANET = 3
    STAR = 4
    NUTATION = 5
    PRECESSION = 6
    CONSTANTS = 7
    LIGHT_PROPAGATION = 8

class TimeModel(IntEnum):
    EXPLICIT = -1
    BULLETIN_B = 1
    BULLETIN_B_EXTENDED = 2
    FINALS_OBSERVED = 3
    FINALS = 4
    C04 = 5
    TABLE = 6
    ORBIT_FILE = 7
    LEAP_SECONDS = 8
    MERGED = 9
    BULLETIN_A = 10
    BULLETIN_A_TABLE = 11

class Quality(IntEnum):
    FINAL = 0
    OBSERVED = 1
    PRELIMINARY = 2
    PREDICTED = 3
    INSERTED = 4

class CucType(IntEnum):
    TIME_FIELD_ONLY = 0
    WITH_P_FIELD = 1

class CucEpoch(IntEnum):
    EPOCH_1958 = 0
    EPOCH_1980 = 1
    EPOCH_USER = 2

class Interpolation(IntEnum):
    SLERP = 0

class Elements(IntEnum):
    OSCULATING = 0
    MEAN = 1

class LocalFrame(IntEnum):
    QSW = 0
    LVLH = 1
    TNW = 2
    NTW = 3
    VNC = 4

class Shadow(IntEnum):
    SUNLIGHT = 0
    PENUMBRA = 1
    UMBRA = 2
    ANNULAR = 3

class StarCorrection(IntEnum):
    PARALLAX = 1
    ABERRATION = 2
    DEFLECTION = 4

class Eop(IntEnum):
    OCEAN_TIDES = 1
    LIBRATION = 2
    ALL = 3

class CucConfig(ctypes.Structure):
    cuc_type: Any
    epoch_type: Any
    epoch_time_ref: Any
    epoch: Any
    n_coarse: Any
    n_fine: Any
    def __init__(self, cuc_type: Any = ..., epoch_type: Any = ..., epoch_time_ref: Any = ..., epoch: Any = ..., n_coarse: Any = ..., n_fine: Any = ...) -> None: ...

class EarthOrientation(ctypes.Structure):
    x_pole: Any
    y_pole: Any
    ut1_utc: Any
    ut1_tai: Any
    dx: Any
    dy: Any
    cip_x: Any
    cip_y: Any
    s: Any
    s_prime: Any
    era: Any
    notes: Any
    def __init__(self, x_pole: Any = ..., y_pole: Any = ..., ut1_utc: Any = ..., ut1_tai: Any = ..., dx: Any = ..., dy: Any = ..., cip_x: Any = ..., cip_y: Any = ..., s: Any = ..., s_prime: Any = ..., era: Any = ..., notes: Any = ...) -> None: ...

class Geodetic(ctypes.Structure):
    latitude: Any
    longitude: Any
    height: Any
    latitude_rate: Any
    longitude_rate: Any
    height_rate: Any
    def __init__(self, latitude: Any = ..., longitude: Any = ..., height: Any = ..., latitude_rate: Any = ..., longitude_rate: Any = ..., height_rate: Any = ...) -> None: ...

class GeoidInput(ctypes.Structure):
    model_id: Any
    latitude: Any
    longitude: Any
    height: Any
    max_degree: Any
    def __init__(self, model_id: Any = ..., latitude: Any = ..., longitude: Any = ..., height: Any = ..., max_degree: Any = ...) -> None: ...

class Kepler(ctypes.Structure):
    semi_major_axis: Any
    eccentricity: Any
    inclination: Any
    raan: Any
    arg_perigee: Any
    mean_anomaly: Any
    def __init__(self, semi_major_axis: Any = ..., eccentricity: Any = ..., inclination: Any = ..., raan: Any = ..., arg_perigee: Any = ..., mean_anomaly: Any = ...) -> None: ...

class ModelData(ctypes.Structure):
    earth: Any
    sun: Any
    moon: Any
    planet: Any
    star: Any
    nutation: Any
    precession: Any
    constants: Any
    light_propagation: Any
    gravity_radius: Any
    gm: Any
    j2: Any
    j3: Any
    j4: Any
    semi_major_axis: Any
    semi_minor_axis: Any
    eccentricity: Any
    flattening: Any
    angle_0: Any
    angle_1: Any
    angle_2: Any
    angle_sim_0: Any
    angle_sim_1: Any
    angle_sim_2: Any
    astronomical_unit: Any
    def __init__(self, earth: Any = ..., sun: Any = ..., moon: Any = ..., planet: Any = ..., star: Any = ..., nutation: Any = ..., precession: Any = ..., constants: Any = ..., light_propagation: Any = ..., gravity_radius: Any = ..., gm: Any = ..., j2: Any = ..., j3: Any = ..., j4: Any = ..., semi_major_axis: Any = ..., semi_minor_axis: Any = ..., eccentricity: Any = ..., flattening: Any = ..., angle_0: Any = ..., angle_1: Any = ..., angle_2: Any = ..., angle_sim_0: Any = ..., angle_sim_1: Any = ..., angle_sim_2: Any = ..., astronomical_unit: Any = ...) -> None: ...

class ObtBrisa(ctypes.Structure):
    sat_id: Any
    coarse: Any
    fine: Any
    def __init__(self, sat_id: Any = ..., coarse: Any = ..., fine: Any = ...) -> None: ...

class ObtKelda(ctypes.Structure):
    sat_id: Any
    obt: Any
    def __init__(self, sat_id: Any = ..., obt: Any = ...) -> None: ...

class ObtParamBrisa(ctypes.Structure):
    sat_id: Any
    offset: Any
    ref_coarse: Any
    ref_fine: Any
    week: Any
    seconds_of_week: Any
    fraction: Any
    def __init__(self, sat_id: Any = ..., offset: Any = ..., ref_coarse: Any = ..., ref_fine: Any = ..., week: Any = ..., seconds_of_week: Any = ..., fraction: Any = ...) -> None: ...

class ObtParamKelda(ctypes.Structure):
    sat_id: Any
    ref_time: Any
    ref_time_fraction: Any
    ref_obt: Any
    ref_obt_fraction: Any
    gain: Any
    offset: Any
    def __init__(self, sat_id: Any = ..., ref_time: Any = ..., ref_time_fraction: Any = ..., ref_obt: Any = ..., ref_obt_fraction: Any = ..., gain: Any = ..., offset: Any = ...) -> None: ...

class ObtParamTarvos(ctypes.Structure):
    sat_id: Any
    ref_time: Any
    ref_coarse: Any
    ref_fine: Any
    clock_step: Any
    def __init__(self, sat_id: Any = ..., ref_time: Any = ..., ref_coarse: Any = ..., ref_fine: Any = ..., clock_step: Any = ...) -> None: ...

class ObtParamVardo(ctypes.Structure):
    sat_id: Any
    offset: Any
    def __init__(self, sat_id: Any = ..., offset: Any = ...) -> None: ...

class ObtTarvos(ctypes.Structure):
    sat_id: Any
    coarse: Any
    fine: Any
    def __init__(self, sat_id: Any = ..., coarse: Any = ..., fine: Any = ...) -> None: ...

class ObtVardo(ctypes.Structure):
    sat_id: Any
    coarse: Any
    fine: Any
    def __init__(self, sat_id: Any = ..., coarse: Any = ..., fine: Any = ...) -> None: ...

class OrbitAngle(ctypes.Structure):
    angle: Any
    rate: Any
    rate_of_rate: Any
    node: Any
    node_rate: Any
    inclination: Any
    def __init__(self, angle: Any = ..., rate: Any = ..., rate_of_rate: Any = ..., node: Any = ..., node_rate: Any = ..., inclination: Any = ...) -> None: ...

class OrbitSunAngles(ctypes.Structure):
    beta: Any
    node_true_solar_time: Any
    node_mean_solar_time: Any
    sun_to_satellite: Any
    def __init__(self, beta: Any = ..., node_true_solar_time: Any = ..., node_mean_solar_time: Any = ..., sun_to_satellite: Any = ...) -> None: ...

class Radec(ctypes.Structure):
    ra: Any
    dec: Any
    distance: Any
    ra_rate: Any
    dec_rate: Any
    distance_rate: Any
    def __init__(self, ra: Any = ..., dec: Any = ..., distance: Any = ..., ra_rate: Any = ..., dec_rate: Any = ..., distance_rate: Any = ...) -> None: ...

class Star(ctypes.Structure):
    ra: Any
    dec: Any
    pm_ra: Any
    pm_dec: Any
    parallax: Any
    radial_velocity: Any
    epoch: Any
    magnitude: Any
    number: Any
    def __init__(self, ra: Any = ..., dec: Any = ..., pm_ra: Any = ..., pm_dec: Any = ..., parallax: Any = ..., radial_velocity: Any = ..., epoch: Any = ..., magnitude: Any = ..., number: Any = ...) -> None: ...

class StarWindow(ctypes.Structure):
    mag_min: Any
    mag_max: Any
    ra_min: Any
    ra_max: Any
    dec_min: Any
    dec_max: Any
    ra: Any
    dec: Any
    radius: Any
    def __init__(self, mag_min: Any = ..., mag_max: Any = ..., ra_min: Any = ..., ra_max: Any = ..., dec_min: Any = ..., dec_max: Any = ..., ra: Any = ..., dec: Any = ..., radius: Any = ...) -> None: ...

class StateAt(ctypes.Structure):
    time: Any
    pos: Any
    vel: Any
    def __init__(self, time: Any = ..., pos: Any = ..., vel: Any = ...) -> None: ...

class TimeFileReport(ctypes.Structure):
    file: Any
    line: Any
    column: Any
    field: Any
    n_rows: Any
    n_predicted: Any
    n_skipped: Any
    first: Any
    last_final: Any
    last: Any
    leap_expiry: Any
    def __init__(self, file: Any = ..., line: Any = ..., column: Any = ..., field: Any = ..., n_rows: Any = ..., n_predicted: Any = ..., n_skipped: Any = ..., first: Any = ..., last_final: Any = ..., last: Any = ..., leap_expiry: Any = ...) -> None: ...

class TimeIdData(ctypes.Structure):
    model: Any
    combination: Any
    no_extrapolation: Any
    second_bulletin_row: Any
    a: Any
    b: Any
    c: Any
    leap_sign: Any
    leap_utc: Any
    leap_tai: Any
    n_rows: Any
    rows: Any
    pole: Any
    row_notes: Any
    pole_x: Any
    pole_y: Any
    pole_reference_date: Any
    pole_period: Any
    def __init__(self, model: Any = ..., combination: Any = ..., no_extrapolation: Any = ..., second_bulletin_row: Any = ..., a: Any = ..., b: Any = ..., c: Any = ..., leap_sign: Any = ..., leap_utc: Any = ..., leap_tai: Any = ..., n_rows: Any = ..., rows: Any = ..., pole: Any = ..., row_notes: Any = ..., pole_x: Any = ..., pole_y: Any = ..., pole_reference_date: Any = ..., pole_period: Any = ...) -> None: ...

class TimeRow(ctypes.Structure):
    tai: Any
    ut1: Any
    utc: Any
    tai_utc: Any
    tai_ut1: Any
    tai_gps: Any
    def __init__(self, tai: Any = ..., ut1: Any = ..., utc: Any = ..., tai_utc: Any = ..., tai_ut1: Any = ..., tai_gps: Any = ...) -> None: ...

class TimeRowInfo(ctypes.Structure):
    row: Any
    file: Any
    line: Any
    quality: Any
    by_formula: Any
    tai_utc: Any
    tai_ut1: Any
    tai_gps: Any
    pole: Any
    def __init__(self, row: Any = ..., file: Any = ..., line: Any = ..., quality: Any = ..., by_formula: Any = ..., tai_utc: Any = ..., tai_ut1: Any = ..., tai_gps: Any = ..., pole: Any = ...) -> None: ...

class Topocentric(ctypes.Structure):
    azimuth: Any
    elevation: Any
    range: Any
    azimuth_rate: Any
    elevation_rate: Any
    range_rate: Any
    def __init__(self, azimuth: Any = ..., elevation: Any = ..., range: Any = ..., azimuth_rate: Any = ..., elevation_rate: Any = ..., range_rate: Any = ...) -> None: ...

class BodyStateResult(NamedTuple):
    pos: Doubles
    vel: Doubles

class GeodeticResult(NamedTuple):
    latitude: Any
    longitude: Any
    height: Any
    latitude_rate: Any
    longitude_rate: Any
    height_rate: Any

class KeplerResult(NamedTuple):
    semi_major_axis: Any
    eccentricity: Any
    inclination: Any
    raan: Any
    arg_perigee: Any
    mean_anomaly: Any

class GeodesicResult(NamedTuple):
    distance: Any
    azimuth1: Any
    azimuth2: Any

class GeodPointResult(NamedTuple):
    lat2: Any
    lon2: Any
    azimuth2: Any

class OrbitAngleResult(NamedTuple):
    angle: Any
    rate: Any
    rate_of_rate: Any
    node: Any
    node_rate: Any
    inclination: Any

class OrbitSunAnglesResult(NamedTuple):
    beta: Any
    node_true_solar_time: Any
    node_mean_solar_time: Any
    sun_to_satellite: Any

class RadecResult(NamedTuple):
    ra: Any
    dec: Any
    distance: Any
    ra_rate: Any
    dec_rate: Any
    distance_rate: Any

class TopocentricResult(NamedTuple):
    azimuth: Any
    elevation: Any
    range: Any
    azimuth_rate: Any
    elevation_rate: Any
    range_rate: Any

class GeodToUtmResult(NamedTuple):
    zone: Any
    north: Any
    easting: Any
    northing: Any

class UtmToGeodResult(NamedTuple):
    lat: Any
    lon: Any

class LocalFrameResult(NamedTuple):
    r: Doubles
    dr: Doubles

class StateResult(NamedTuple):
    pos: Doubles
    vel: Doubles
    acc: Doubles

class RayPointsResult(NamedTuple):
    t: Doubles
    n: Any

class RayTangentResult(NamedTuple):
    t: Any
    point: Doubles
    geodetic: Any
    meets_earth: Any

class EclipseStateResult(NamedTuple):
    state: Any
    fraction: Any
    depth: Any

class EarthOrientationResult(NamedTuple):
    x_pole: Any
    y_pole: Any
    ut1_utc: Any
    ut1_tai: Any
    dx: Any
    dy: Any
    cip_x: Any
    cip_y: Any
    s: Any
    s_prime: Any
    era: Any
    notes: Any

class IersMatrixResult(NamedTuple):
    r: Doubles
    dr: Doubles
    ddr: Doubles

class AxesResult(NamedTuple):
    x: Doubles
    y: Doubles
    z: Doubles

class GetRotatedVectorsResult(NamedTuple):
    x2: Doubles
    y2: Doubles
    z2: Doubles

class LeapSecondInfoResult(NamedTuple):
    sign: Any
    before: Any
    after: Any

def sun(t: Numbers, /, *, ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def moon(t: Numbers, /, *, ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def planet(t: Numbers, /, *, planet: Planet | str | int, ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def time_cuc_to_processing(cuc: Octets, /, *, config: Record, ref: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_processing_to_cuc(t: Numbers, /, *, config: Record, ref: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Bytes: ...
def geod_to_cart(latitude: Numbers, longitude: Numbers, height: Numbers, latitude_rate: Numbers | None = ..., longitude_rate: Numbers | None = ..., height_rate: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def cart_to_geod(pos: Numbers, vel: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> GeodeticResult: ...
def kepl_to_cart(semi_major_axis: Numbers, eccentricity: Numbers, inclination: Numbers, raan: Numbers, arg_perigee: Numbers, mean_anomaly: Numbers, /, *, kind: Elements | str | int = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def cart_to_kepl(pos: Numbers, vel: Numbers, /, *, kind: Elements | str | int = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> KeplerResult: ...
def geod_distance(lat1: Numbers, lon1: Numbers, lat2: Numbers, lon2: Numbers, /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> GeodesicResult: ...
def geod_point(lat: Numbers, lon: Numbers, azimuth: Numbers, distance: Numbers, /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> GeodPointResult: ...
def position_on_orbit(t: Numbers, pos: Numbers, vel: Numbers, acc: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., cs: Frame | str | int, ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> OrbitAngleResult: ...
def orbit_sun(t: Numbers, pos: Numbers, vel: Numbers, /, *, cs: Frame | str | int, ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> OrbitSunAnglesResult: ...
def cart_to_radec(pos: Numbers, vel: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> RadecResult: ...
def radec_to_cart(ra: Numbers, dec: Numbers, distance: Numbers, ra_rate: Numbers | None = ..., dec_rate: Numbers | None = ..., distance_rate: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def ef_to_topocentric(pos: Numbers, vel: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., origin: Record, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> TopocentricResult: ...
def topocentric_to_ef(azimuth: Numbers, elevation: Numbers, range: Numbers, azimuth_rate: Numbers | None = ..., elevation_rate: Numbers | None = ..., range_rate: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., origin: Record, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> BodyStateResult: ...
def geod_to_utm(lat: Numbers, lon: Numbers, zone: Numbers = ..., /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> GeodToUtmResult: ...
def utm_to_geod(zone: Numbers, north: Numbers, easting: Numbers, northing: Numbers, /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> UtmToGeodResult: ...
def local_orbital_frame(pos: Numbers, vel: Numbers, acc: Numbers | None = ..., /, *, kind: LocalFrame | str | int = ..., errors: str = ..., return_status: bool = ...) -> LocalFrameResult: ...
def mean_motion(mean: Record, duration: Numbers, /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> KeplerResult: ...
def time_processing_to_processing(t: Numbers, /, *, ref_in: Time | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_ascii_to_ascii(text: Texts, /, *, fmt_in: Ascii | str | int = ..., ref_in: Time | str | int = ..., fmt_out: Ascii | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_ascii_to_processing(text: Texts, /, *, fmt_in: Ascii | str | int = ..., ref_in: Time | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_text_to_processing(text: Texts, /, *, ref: Time | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_ascii_to_transport(text: Texts, /, *, fmt_in: Ascii | str | int = ..., ref_in: Time | str | int = ..., fmt_out: Transport | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Longs: ...
def time_processing_to_ascii(t: Numbers, /, *, ref_in: Time | str | int = ..., fmt_out: Ascii | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_processing_to_transport(t: Numbers, /, *, ref_in: Time | str | int = ..., fmt_out: Transport | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Longs: ...
def time_transport_to_ascii(transport: Numbers, /, *, fmt_in: Transport | str | int = ..., ref_in: Time | str | int = ..., fmt_out: Ascii | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_transport_to_processing(transport: Numbers, /, *, fmt_in: Transport | str | int = ..., ref_in: Time | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_transport_to_transport(transport: Numbers, /, *, fmt_in: Transport | str | int = ..., ref_in: Time | str | int = ..., fmt_out: Transport | str | int = ..., ref_out: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Longs: ...
def change_cart_cs(t: Numbers, pos: Numbers, vel: Numbers | None = ..., acc: Numbers | None = ..., /, *, mode: CalcMode | str | int | None = ..., cs_in: Frame | str | int, cs_out: Frame | str | int, ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> StateResult: ...
def ray_ellipsoid(pos: Numbers, dir: Numbers, margin: Numbers | None = ..., /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> RayPointsResult: ...
def ray_height(pos: Numbers, dir: Numbers, height: Numbers, /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> RayPointsResult: ...
def ray_tangent(pos: Numbers, dir: Numbers, /, *, model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> RayTangentResult: ...
def eclipse(t: Numbers, pos: Numbers, margin: Numbers | None = ..., /, *, light_time: int = ..., cs: Frame | str | int = ..., ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> EclipseStateResult: ...
def earth_orientation_get(t: Numbers, /, *, corrections: int = ..., ref: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> EarthOrientationResult: ...
def iers_matrix(t: Numbers, /, *, corrections: int = ..., cs_in: IersFrame | str | int, cs_out: IersFrame | str | int, ref: Time | str | int = ..., mode: CalcMode | str | int | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> IersMatrixResult: ...
def iers_change(t: Numbers, pos: Numbers, vel: Numbers | None = ..., acc: Numbers | None = ..., /, *, corrections: int = ..., mode: CalcMode | str | int | None = ..., cs_in: IersFrame | str | int, cs_out: IersFrame | str | int, ref: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> StateResult: ...
def quaternions_to_vectors(q: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> AxesResult: ...
def vectors_to_quaternions(x: Numbers, y: Numbers, z: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> Doubles: ...
def quaternions_interpol(t1: Numbers, q1: Numbers, t2: Numbers, q2: Numbers, t: Numbers, /, *, mode: Interpolation | str | int = ..., errors: str = ..., return_status: bool = ...) -> Doubles: ...
def euler_to_matrix(angles: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> Doubles: ...
def matrix_to_euler(matrix: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> Doubles: ...
def get_rotation_angles(x1: Numbers, y1: Numbers, z1: Numbers, x2: Numbers, y2: Numbers, z2: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> Doubles: ...
def get_rotated_vectors(x1: Numbers, y1: Numbers, z1: Numbers, angles: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> GetRotatedVectorsResult: ...
def star_radec(t: Numbers, star: Record, observer_pos: Numbers | None = ..., observer_vel: Numbers | None = ..., /, *, corrections: int = ..., cs_out: Frame | str | int = ..., ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> RadecResult: ...
def time_get_pole(t: Numbers, /, *, ref: Time | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> Doubles: ...
def time_add(t: Numbers, duration: Numbers, /, *, ref: Time | str | int = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_diff(time1: Numbers, time2: Numbers, /, *, ref: Time | str | int = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_get_leap_second_info(*, fmt_out: Ascii | str | int = ..., time: TimeId | None = ..., errors: str = ..., return_status: bool = ...) -> LeapSecondInfoResult: ...

class KitError(Exception):
    function: str
    codes: tuple[Any, ...]
    messages: tuple[str, ...]
    status: Longs | None
    outputs: Any
    where: str
    def __init__(self, function: str, codes: Any = ..., messages: Any = ..., status: Any = ..., outputs: Any = ..., where: str = ...) -> None: ...

class KitWarning(UserWarning):
    function: str
    codes: tuple[Any, ...]

class TimeId:
    report: Any
    @classmethod
    def bundled(cls) -> "TimeId": ...
    @classmethod
    def from_files(cls, files: Any, model: Any = ..., no_extrapolation: bool = ..., start: float | None = ..., stop: float | None = ...) -> "TimeId": ...
    @classmethod
    def from_values(cls, tai: float, utc: float, ut1: float, gps: float) -> "TimeId": ...
    @classmethod
    def from_rows(cls, rows: ArrayLike, pole: ArrayLike | None = ...) -> "TimeId": ...
    def data(self) -> dict[str, Any]: ...
    def pole(self, t: ArrayLike, ref: str = ...) -> Doubles: ...
    @property
    def closed(self) -> bool: ...
    def close(self) -> None: ...
    def __enter__(self) -> "TimeId": ...
    def __exit__(self, *_: object) -> None: ...

class ModelId:
    selections: dict[str, int]
    def __init__(self, **selections: int) -> None: ...
    @property
    def data(self) -> ModelData: ...
    @property
    def closed(self) -> bool: ...
    def close(self) -> None: ...
    def __enter__(self) -> "ModelId": ...
    def __exit__(self, *_: object) -> None: ...

class SatId:
    number: int
    def __init__(self, number: int | None = ..., file: Any = ...) -> None: ...
    def close(self) -> None: ...
    def __enter__(self) -> "SatId": ...
    def __exit__(self, *_: object) -> None: ...

class RunId:
    number: int
    sat: SatId
    time: TimeId
    model: ModelId | None
    def __init__(self, sat: SatId, time: TimeId | None = ..., model: ModelId | None = ...) -> None: ...
    @property
    def closed(self) -> bool: ...
    def close(self) -> None: ...
    def __enter__(self) -> "RunId": ...
    def __exit__(self, *_: object) -> None: ...

codes: Any
__version__: str

def mjd2000(x: Any, ref: Time | str | int = ...) -> Any: ...
def to_datetime64(t: ArrayLike, unit: str = ...) -> Any: ...
def geoid(latitude: Numbers, longitude: Numbers, /, *, max_degree: int = ..., model: ModelId | None = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def geoid_grid(latitudes: Numbers, longitudes: Numbers, /, *, max_degree: int = ..., model: ModelId | None = ...) -> Doubles: ...
def time_obt_to_time(*reading: Numbers, parameters: Any, ref: Time | str | int = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def time_time_to_obt(t: Numbers, /, *, parameters: Any, ref: Time | str | int = ..., errors: str = ..., return_status: bool = ...) -> Any: ...
def star_catalog(t: float, /, *, file: Any = ..., magnitudes: tuple[float, float] = ..., box: tuple[float, float, float, float] | None = ..., cone: tuple[float, float, float] | None = ..., corrections: int = ..., cs_out: Frame | str | int = ..., ref: Time | str | int = ..., model: ModelId | None = ..., time: TimeId | None = ...) -> tuple[NDArray[Any], NDArray[Any]]: ...
class RealRoots(NamedTuple):
    roots: Doubles
    n_roots: Any

class InterpolatedState(NamedTuple):
    pos: Doubles
    vel: Doubles
    error: Any

class LeapSeconds(NamedTuple):
    utc: Doubles
    tai_utc: Doubles
    expiry: float

def poly_real_roots(c: Numbers, /, *, errors: str = ..., return_status: bool = ...) -> Any: ...
def time_get_row(t: Numbers, /, *, ref: Time | str | int = ..., time: TimeId | None = ...) -> NDArray[Any]: ...
def interpolate_states(t: Numbers, /, *, times: Numbers, pos: Numbers, vel: Numbers, errors: str = ..., return_status: bool = ...) -> InterpolatedState: ...
def time_get_leap_seconds(*, time: TimeId | None = ...) -> LeapSeconds: ...
