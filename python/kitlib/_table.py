"""Constants, records and results.

Written by tools/api/generate.py from the table in api/ and the headers in include/kl.
"""
import ctypes as _c
from collections import namedtuple as _namedtuple
from enum import IntEnum as _IntEnum


class Time(_IntEnum):
    """Scales of time.

    UNDEF: left open: only where a text carries its own reference
    """

    UNDEF = -1
    TAI = 0
    UTC = 1
    UT1 = 2
    GPS = 3


class Ascii(_IntEnum):
    """Layouts of the text of a time.

    ASCII_11: yyyy-mm-dd_hh:nn:ss, 2026-06-21_08:24:05
    ASCII_12: RRR=yyyy-mm-dd_hh:nn:ss, UTC=2026-06-21_08:24:05
    ASCII_13: yyyy-mm-dd_hh:nn:ss.uuuuuu, 2026-06-21_08:24:05.123456
    ASCII_14: RRR=yyyy-mm-dd_hh:nn:ss.uuuuuu, UTC=2026-06-21_08:24:05.123456
    ASCII_21: yyyymmdd_hhnnss, 20260621_082405
    ASCII_22: RRR=yyyymmdd_hhnnss, UTC=20260621_082405
    ASCII_23: yyyymmdd_hhnnssuuuuuu, 20260621_082405123456
    ASCII_24: RRR=yyyymmdd_hhnnssuuuuuu, UTC=20260621_082405123456
    ASCII_31: dd-MMM-yyyy hh:nn:ss, 21-JUN-2026 08:24:05
    ASCII_32: RRR=dd-MMM-yyyy hh:nn:ss, UTC=21-JUN-2026 08:24:05
    ASCII_33: dd-MMM-yyyy hh:nn:ss.uuuuuu, 21-JUN-2026 08:24:05.123456
    ASCII_34: RRR=dd-MMM-yyyy hh:nn:ss.uuuuuu, UTC=21-JUN-2026 08:24:05.123456
    ASCII_41: yyyy-mm-ddThh:nn:ss, 2026-06-21T08:24:05
    ASCII_42: RRR=yyyy-mm-ddThh:nn:ss, UTC=2026-06-21T08:24:05
    ASCII_43: yyyy-mm-ddThh:nn:ss.uuuuuu, 2026-06-21T08:24:05.123456
    ASCII_44: RRR=yyyy-mm-ddThh:nn:ss.uuuuuu, UTC=2026-06-21T08:24:05.123456
    ASCII_51: yyyymmddThhnnss, 20260621T082405
    ASCII_52: RRR=yyyymmddThhnnss, UTC=20260621T082405
    ASCII_53: yyyymmddThhnnssuuuuuu, 20260621T082405123456
    ASCII_54: RRR=yyyymmddThhnnssuuuuuu, UTC=20260621T082405123456
    """

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


class Transport(_IntEnum):
    """Formats of transport times. Four longs; the examples are 2026-06-21T08:24:05.123456, in GPS where that is the scale.

    TRANS_0: days, seconds of day, microseconds; [9668, 30245, 123456, 0]
    TRANS_11: as 0; [9668, 30245, 123456, 0]
    TRANS_21: as 0; [9668, 30245, 123456, 0]
    TRANS_22: days, milliseconds of day, microseconds of the millisecond; [9668, 30245123, 456, 0]
    TRANS_23: as 22, and a count of ticks of 2.0625 microseconds; [9668, 30245123, 456, 0]
    TRANS_31: GPS week, seconds of week, fraction of second in 2^-16 s; [2424, 30245, 8091, 0]
    TRANS_41: seconds since 1980-01-06 00:00:00, microseconds; kl.Time.GPS only; [1466065445, 123456, 0, 0]
    TRANS_42: GPS week, seconds of week, microseconds; kl.Time.GPS only; [2424, 30245, 123456, 0]
    """

    TRANS_0 = 0
    TRANS_11 = 11
    TRANS_21 = 21
    TRANS_22 = 22
    TRANS_23 = 23
    TRANS_31 = 31
    TRANS_41 = 41
    TRANS_42 = 42


class Frame(_IntEnum):
    """Reference frames.

    BM2000: barycentric, mean equator and equinox of J2000
    HM2000: heliocentric, mean equator and equinox of J2000
    GM2000: geocentric, mean equator and equinox of J2000
    MOD: geocentric, mean equator and equinox of date
    TOD: geocentric, true equator and equinox of date
    PEF: pseudo Earth-fixed: before polar motion; the same as kl.Frame.EF while the time id holds no pole
    EF: Earth-fixed
    LIF: launch inertial frame
    BM1950: barycentric, mean equator and equinox of B1950 (FK4, without E-terms)
    TEME: true equator, mean equinox of date
    """

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


class IersFrame(_IntEnum):
    """Reference frames after the IERS Conventions.

    GCRS: geocentric celestial reference system
    CIRS: celestial intermediate: pole of date, origin CIO
    TIRS: terrestrial intermediate: turned by the Earth rotation angle
    ITRS: international terrestrial reference system: with polar motion
    EME2000: mean equator and equinox of J2000.0: GCRS without the frame bias of 23 mas
    """

    GCRS = 1
    CIRS = 2
    TIRS = 3
    ITRS = 4
    EME2000 = 5


class CalcMode(_IntEnum):
    """What is computed."""

    POS = 1
    POS_VEL = 2
    POS_VEL_ACC = 3


class Planet(_IntEnum):
    """Planets."""

    MERCURY = 1
    VENUS = 2
    EARTH_MOON_BARYCENTRE = 3
    MARS = 4
    JUPITER = 5
    SATURN = 6
    URANUS = 7
    NEPTUNE = 8


class ModelKind(_IntEnum):
    """Kinds of model, in the order of a ModelId's selections."""

    EARTH = 0
    SUN = 1
    MOON = 2
    PLANET = 3
    STAR = 4
    NUTATION = 5
    PRECESSION = 6
    CONSTANTS = 7
    LIGHT_PROPAGATION = 8


class TimeModel(_IntEnum):
    """What a time id is made of.

    EXPLICIT: the readings of one instant
    BULLETIN_B: final values of IERS Bulletin B
    BULLETIN_B_EXTENDED: with the preliminary extension
    FINALS_OBSERVED: finals*, what has been observed
    FINALS: finals*, with predictions
    C04: IERS EOP C04
    TABLE: this library's own text format
    ORBIT_FILE: leap seconds in the span of SP3 or OEM files
    LEAP_SECONDS: a list of leap seconds
    MERGED: several kinds together; also the correlation compiled in
    BULLETIN_A: IERS Bulletin A, by its formula after its table
    BULLETIN_A_TABLE: IERS Bulletin A, its last row after its table
    """

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


class Quality(_IntEnum):
    """Quality of a row of a time id.

    OBSERVED: rapid service
    INSERTED: put in by the library at a leap second
    """

    FINAL = 0
    OBSERVED = 1
    PRELIMINARY = 2
    PREDICTED = 3
    INSERTED = 4


class CucType(_IntEnum):
    """Is there a P-field?"""

    TIME_FIELD_ONLY = 0
    WITH_P_FIELD = 1


class CucEpoch(_IntEnum):
    """Epochs of a CUC."""

    EPOCH_1958 = 0
    EPOCH_1980 = 1
    EPOCH_USER = 2


class Interpolation(_IntEnum):
    """Interpolations of quaternions."""

    SLERP = 0


class Elements(_IntEnum):
    """Kinds of Keplerian elements."""

    OSCULATING = 0
    MEAN = 1


class LocalFrame(_IntEnum):
    """Frames on an orbit.

    QSW: q, s = w x q, w; also RTN, RSW, RIC, and what some libraries call LVLH
    LVLH: s, -w, -q; that of CCSDS, also VVLH
    TNW: t, n = w x t (inward), w
    NTW: -n (outward), t, w
    VNC: t, w, t x w
    """

    QSW = 0
    LVLH = 1
    TNW = 2
    NTW = 3
    VNC = 4


class Shadow(_IntEnum):
    """Where a satellite is in the Earth's shadow.

    PENUMBRA: part of the Sun is hidden
    UMBRA: all of it
    ANNULAR: the Earth stands before the Sun and is smaller: beyond 1.38e9 m
    """

    SUNLIGHT = 0
    PENUMBRA = 1
    UMBRA = 2
    ANNULAR = 3


class StarCorrection(_IntEnum):
    """Corrections of a star's place; add them.

    PARALLAX: the observer's place; up to 0.77 arcsec
    ABERRATION: the observer's velocity: the Earth's 20.8 arcsec, a low satellite's own 5.2
    DEFLECTION: of light by the Sun: 1.75 arcsec at its limb, 0.004 at right angles
    """

    PARALLAX = 1
    ABERRATION = 2
    DEFLECTION = 4


class Eop(_IntEnum):
    """Short-period corrections of the Earth's orientation; add them.

    OCEAN_TIDES: 71 terms of pole and UT1, up to 0.5 mas and 0.06 ms
    LIBRATION: 10 terms of the pole, 11 of UT1, up to 0.03 mas and 0.003 ms
    ALL: both; 0: the values of the id as they stand
    """

    OCEAN_TIDES = 1
    LIBRATION = 2
    ALL = 3


class CucConfig(_c.Structure):
    """Layout of a CUC. The record kl_cuc_config of C.

    Fields in their order, by position or by name; those that are left out are 0:
        cuc_type: kl.CucType.TIME_FIELD_ONLY or kl.CucType.WITH_P_FIELD
        epoch_type: kl.CucEpoch.EPOCH_1958, kl.CucEpoch.EPOCH_1980 or kl.CucEpoch.EPOCH_USER
        epoch_time_ref: scale of epoch, with kl.CucEpoch.EPOCH_USER
        epoch: MJD2000, days, with kl.CucEpoch.EPOCH_USER
        n_coarse: 1 to 7 octets
        n_fine: 0 to 10 octets
    """

    _fields_ = [
        ("cuc_type", _c.c_long),
        ("epoch_type", _c.c_long),
        ("epoch_time_ref", _c.c_long),
        ("epoch", _c.c_double),
        ("n_coarse", _c.c_long),
        ("n_fine", _c.c_long),
    ]


class EarthOrientation(_c.Structure):
    """The Earth's orientation at an instant. The record kl_earth_orientation of C.

    Fields in their order, by position or by name; those that are left out are 0:
        x_pole, y_pole: arcsec, with corrections
        ut1_utc, ut1_tai: s, with corrections; inside a leap second UTC still counts with the TAI-UTC before it
        dx, dy: arcsec: offsets of the pole that the id holds
        cip_x, cip_y, s: arcsec: celestial intermediate pole and origin, with dx, dy
        s_prime: arcsec: terrestrial intermediate origin
        era: deg, 0 to 360: Earth rotation angle
        notes: sum of KL_EOP_OUTSIDE_TABLE, KL_EOP_NO_POLE, KL_EOP_BY_FORMULA
    """

    _fields_ = [
        ("x_pole", _c.c_double),
        ("y_pole", _c.c_double),
        ("ut1_utc", _c.c_double),
        ("ut1_tai", _c.c_double),
        ("dx", _c.c_double),
        ("dy", _c.c_double),
        ("cip_x", _c.c_double),
        ("cip_y", _c.c_double),
        ("s", _c.c_double),
        ("s_prime", _c.c_double),
        ("era", _c.c_double),
        ("notes", _c.c_long),
    ]


class Geodetic(_c.Structure):
    """Geodetic coordinates on the model's ellipsoid: its semi_major_axis and flattening, nothing else of it, are
    read. The record kl_geodetic of C.

    Fields in their order, by position or by name; those that are left out are 0:
        latitude: deg, -90 to 90
        longitude: deg; in -360 to 360
        height: m above the ellipsoid
        latitude_rate: deg/s
        longitude_rate: deg/s
        height_rate: m/s
    """

    _fields_ = [
        ("latitude", _c.c_double),
        ("longitude", _c.c_double),
        ("height", _c.c_double),
        ("latitude_rate", _c.c_double),
        ("longitude_rate", _c.c_double),
        ("height_rate", _c.c_double),
    ]


class GeoidInput(_c.Structure):
    """Input of kl.geoid_calc. The record kl_geoid_input of C.

    Fields in their order, by position or by name; those that are left out are 0:
        model_id
        latitude: geodetic, deg, -90 to 90
        longitude: deg, 0 to 360
        height: not read
        max_degree: 0 to 360
    """

    _fields_ = [
        ("model_id", _c.c_void_p),
        ("latitude", _c.c_double),
        ("longitude", _c.c_double),
        ("height", _c.c_double),
        ("max_degree", _c.c_long),
    ]


class Kepler(_c.Structure):
    """Elements of an ellipse (semi_major_axis > 0, eccentricity 0 to 1) or a hyperbola (< 0, > 1). The record
    kl_kepler of C.

    Fields in their order, by position or by name; those that are left out are 0:
        semi_major_axis: m
        eccentricity
        inclination: deg, 0 to 180
        raan: deg, right ascension of the ascending node
        arg_perigee: deg
        mean_anomaly: deg; of a hyperbola without bounds
    """

    _fields_ = [
        ("semi_major_axis", _c.c_double),
        ("eccentricity", _c.c_double),
        ("inclination", _c.c_double),
        ("raan", _c.c_double),
        ("arg_perigee", _c.c_double),
        ("mean_anomaly", _c.c_double),
    ]


class ModelData(_c.Structure):
    """Selections and constants of a model id. The record kl_model_data of C.

    Fields in their order, by position or by name; those that are left out are 0:
        earth, sun, moon, planet, star, nutation, precession, constants, light_propagation
        gravity_radius: m
        gm: m3/s2
        j2, j3, j4
        semi_major_axis, semi_minor_axis: m
        eccentricity, flattening
        angle_0, angle_1, angle_2: sidereal angle: deg, deg/day, deg/day2
        angle_sim_0, angle_sim_1, angle_sim_2: the second set, rounded
        astronomical_unit: km; the ephemerides have a rounded one of their own
    """

    _fields_ = [
        ("earth", _c.c_long),
        ("sun", _c.c_long),
        ("moon", _c.c_long),
        ("planet", _c.c_long),
        ("star", _c.c_long),
        ("nutation", _c.c_long),
        ("precession", _c.c_long),
        ("constants", _c.c_long),
        ("light_propagation", _c.c_long),
        ("gravity_radius", _c.c_double),
        ("gm", _c.c_double),
        ("j2", _c.c_double),
        ("j3", _c.c_double),
        ("j4", _c.c_double),
        ("semi_major_axis", _c.c_double),
        ("semi_minor_axis", _c.c_double),
        ("eccentricity", _c.c_double),
        ("flattening", _c.c_double),
        ("angle_0", _c.c_double),
        ("angle_1", _c.c_double),
        ("angle_2", _c.c_double),
        ("angle_sim_0", _c.c_double),
        ("angle_sim_1", _c.c_double),
        ("angle_sim_2", _c.c_double),
        ("astronomical_unit", _c.c_double),
    ]


class ObtBrisa(_c.Structure):
    """On-board time of the Tarvos, Brisa and Vardo formats. The record kl_obt_brisa of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        coarse
        fine
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("coarse", _c.c_ulong),
        ("fine", _c.c_ulong),
    ]


class ObtKelda(_c.Structure):
    """On-board time of the Kelda format. The record kl_obt_kelda of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        obt: s
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("obt", _c.c_double),
    ]


class ObtParamBrisa(_c.Structure):
    """Clock correlation of the Brisa format. The record kl_obt_param_brisa of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        offset: s, subtracted
        ref_coarse
        ref_fine: 2^-16
        week: GPS week since 1980-01-06, all of it: see kl.Transport.TRANS_31 about weeks of 10 bits
        seconds_of_week: s
        fraction: 2^-16 s
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("offset", _c.c_long),
        ("ref_coarse", _c.c_ulong),
        ("ref_fine", _c.c_ulong),
        ("week", _c.c_ulong),
        ("seconds_of_week", _c.c_ulong),
        ("fraction", _c.c_ulong),
    ]


class ObtParamKelda(_c.Structure):
    """Clock correlation of the Kelda format. The record kl_obt_param_kelda of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        ref_time: s since 2000-01-01
        ref_time_fraction: 2^-16 s
        ref_obt: s
        ref_obt_fraction: 2^-16 s
        gain
        offset: s
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("ref_time", _c.c_ulong),
        ("ref_time_fraction", _c.c_uint32),
        ("ref_obt", _c.c_ulong),
        ("ref_obt_fraction", _c.c_uint32),
        ("gain", _c.c_double),
        ("offset", _c.c_double),
    ]


class ObtParamTarvos(_c.Structure):
    """Clock correlation of the Tarvos format. The record kl_obt_param_tarvos of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        ref_time: MJD2000, days
        ref_coarse: counts
        ref_fine: 2^-32 count
        clock_step: picoseconds a count
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("ref_time", _c.c_double),
        ("ref_coarse", _c.c_ulong),
        ("ref_fine", _c.c_ulong),
        ("clock_step", _c.c_ulong),
    ]


class ObtParamVardo(_c.Structure):
    """Clock correlation of the Vardo format. The record kl_obt_param_vardo of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        offset: s
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("offset", _c.c_long),
    ]


class ObtTarvos(_c.Structure):
    """On-board time of the Tarvos, Brisa and Vardo formats. The record kl_obt_tarvos of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        coarse
        fine
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("coarse", _c.c_ulong),
        ("fine", _c.c_ulong),
    ]


class ObtVardo(_c.Structure):
    """On-board time of the Tarvos, Brisa and Vardo formats. The record kl_obt_vardo of C.

    Fields in their order, by position or by name; those that are left out are 0:
        sat_id
        coarse
        fine
    """

    _fields_ = [
        ("sat_id", _c.c_long),
        ("coarse", _c.c_ulong),
        ("fine", _c.c_ulong),
    ]


class OrbitAngle(_c.Structure):
    """Angle of a satellite on its orbit, true equator and equinox of date. The record kl_orbit_angle of C.

    Fields in their order, by position or by name; those that are left out are 0:
        angle: deg from the ascending node in the direction of motion: perigee plus true anomaly
        rate: deg/s
        rate_of_rate: deg/s2
        node: deg, right ascension of the ascending node
        node_rate: deg/s
        inclination: deg
    """

    _fields_ = [
        ("angle", _c.c_double),
        ("rate", _c.c_double),
        ("rate_of_rate", _c.c_double),
        ("node", _c.c_double),
        ("node_rate", _c.c_double),
        ("inclination", _c.c_double),
    ]


class OrbitSunAngles(_c.Structure):
    """Where the Sun stands seen from an orbit. The record kl_orbit_sun_angles of C.

    Fields in their order, by position or by name; those that are left out are 0:
        beta: deg, -90 to 90: the Sun above the plane of the orbit, on the side of its pole
        node_true_solar_time: h, [0, 24): of the ascending node, 12 where the Sun's right ascension is its own
        node_mean_solar_time: h, [0, 24): the same by the mean Sun, UT1 plus the longitude of the node
        sun_to_satellite: deg, [0, 360): in the plane, from the Sun's projection in the direction of motion
    """

    _fields_ = [
        ("beta", _c.c_double),
        ("node_true_solar_time", _c.c_double),
        ("node_mean_solar_time", _c.c_double),
        ("sun_to_satellite", _c.c_double),
    ]


class Radec(_c.Structure):
    """Right ascension and declination. The record kl_radec of C.

    Fields in their order, by position or by name; those that are left out are 0:
        ra: deg; in -360 to 360
        dec: deg, -90 to 90
        distance: m
        ra_rate: deg/s
        dec_rate: deg/s
        distance_rate: m/s
    """

    _fields_ = [
        ("ra", _c.c_double),
        ("dec", _c.c_double),
        ("distance", _c.c_double),
        ("ra_rate", _c.c_double),
        ("dec_rate", _c.c_double),
        ("distance_rate", _c.c_double),
    ]


class Star(_c.Structure):
    """A star as catalogues have it. The record kl_star of C.

    Fields in their order, by position or by name; those that are left out are 0:
        ra, dec: deg, mean equator and equinox of J2000 (ICRS within 0.023 arcsec)
        pm_ra, pm_dec: proper motion, mas/yr; that in right ascension times cos(dec)
        parallax: mas; negative ones count as 0
        radial_velocity: km/s, away
        epoch: of position and motion: MJD2000, TDB; J2000.0 is 0.5, J1991.25 is -3195.4375
        magnitude
        number: in the catalogue
    """

    _fields_ = [
        ("ra", _c.c_double),
        ("dec", _c.c_double),
        ("pm_ra", _c.c_double),
        ("pm_dec", _c.c_double),
        ("parallax", _c.c_double),
        ("radial_velocity", _c.c_double),
        ("epoch", _c.c_double),
        ("magnitude", _c.c_double),
        ("number", _c.c_long),
    ]


class StarWindow(_c.Structure):
    """Part of the sky and range of brightness: all of it must hold. The record kl_star_window of C.

    Fields in their order, by position or by name; those that are left out are 0:
        mag_min, mag_max
        ra_min, ra_max: deg, -360 to 360; a minimum above the maximum goes over 0
        dec_min, dec_max
        ra, dec, radius: deg: a cone as well, when radius > 0
    """

    _fields_ = [
        ("mag_min", _c.c_double),
        ("mag_max", _c.c_double),
        ("ra_min", _c.c_double),
        ("ra_max", _c.c_double),
        ("dec_min", _c.c_double),
        ("dec_max", _c.c_double),
        ("ra", _c.c_double),
        ("dec", _c.c_double),
        ("radius", _c.c_double),
    ]


class StateAt(_c.Structure):
    """A state in memory, for kl.interpolate_states. The record kl_state_at of C.

    Fields in their order, by position or by name; those that are left out are 0:
        time: s, from where the caller likes
        pos, vel: m, m/s
    """

    _fields_ = [
        ("time", _c.c_double),
        ("pos", _c.c_double * 3),
        ("vel", _c.c_double * 3),
    ]


class TimeFileReport(_c.Structure):
    """What the builders of time ids from files found; what does not apply is 0. The record kl_time_file_report of
    C.

    Fields in their order, by position or by name; those that are left out are 0:
        file: where something was refused, or TAI-UTC is not that of the rows: index in the list
        line, column: from 1; line 0: nowhere
        field: the refused characters, ? for what cannot be printed
        n_rows: of the time id
        n_predicted: of these
        n_skipped: lines of data that were read and not used: reserved days, before 1972, outside the window,
            replaced by a row of another file
        first: first row, UTC, MJD2000
        last_final: last row with final values, UTC, MJD2000
        last: last row, UTC, MJD2000
        leap_expiry: UTC, MJD2000, until which the list of leap seconds that was read is good
    """

    _fields_ = [
        ("file", _c.c_long),
        ("line", _c.c_long),
        ("column", _c.c_long),
        ("field", _c.c_char * 64),
        ("n_rows", _c.c_long),
        ("n_predicted", _c.c_long),
        ("n_skipped", _c.c_long),
        ("first", _c.c_double),
        ("last_final", _c.c_double),
        ("last", _c.c_double),
        ("leap_expiry", _c.c_double),
    ]


class TimeIdData(_c.Structure):
    """Data of a time id. The record kl_time_id_data of C.

    Fields in their order, by position or by name; those that are left out are 0:
        model: -1 explicit values (one row); any other non-zero number a table
        combination: 2: two bulletins joined, with a gap between them
        no_extrapolation: not 0: the last row holds after the table; 0: the formula below
        second_bulletin_row: first row of the second bulletin, with combination 2
        a, b, c: UT1-UTC = a + b (t - c) - (UT2-UT1) after the table; s, s/day, MJD2000
        leap_sign: output: 0 none, +1, -1
        leap_utc: output: first UTC instant after the leap second, MJD2000
        leap_tai: output: TAI instant at which it begins, MJD2000
        n_rows
        rows
        pole: beside the rows, None without: x, y, dX, dY of the pole (IAU 2000), arcsec
        row_notes: beside the rows, None without: 16 x index of the file + quality, number of the line
        pole_x, pole_y
        pole_reference_date: of A and C, MJD2000
        pole_period: of A and C, days; 0, or at least 1
    """

    _fields_ = [
        ("model", _c.c_long),
        ("combination", _c.c_long),
        ("no_extrapolation", _c.c_long),
        ("second_bulletin_row", _c.c_long),
        ("a", _c.c_double),
        ("b", _c.c_double),
        ("c", _c.c_double),
        ("leap_sign", _c.c_long),
        ("leap_utc", _c.c_double),
        ("leap_tai", _c.c_double),
        ("n_rows", _c.c_long),
        ("rows", _c.c_void_p),
        ("pole", _c.c_void_p),
        ("row_notes", _c.c_void_p),
        ("pole_x", _c.c_double * 5),
        ("pole_y", _c.c_double * 5),
        ("pole_reference_date", _c.c_double * 2),
        ("pole_period", _c.c_double * 2),
    ]


class TimeRow(_c.Structure):
    """One row of a time correlation: the same instant on three scales, and the differences. The record kl_time_row
    of C.

    Fields in their order, by position or by name; those that are left out are 0:
        tai, ut1, utc: MJD2000, days
        tai_utc, tai_ut1, tai_gps: s
    """

    _fields_ = [
        ("tai", _c.c_double),
        ("ut1", _c.c_double),
        ("utc", _c.c_double),
        ("tai_utc", _c.c_double),
        ("tai_ut1", _c.c_double),
        ("tai_gps", _c.c_double),
    ]


class TimeRowInfo(_c.Structure):
    """What served an instant; kl.time_get_row. The record kl_time_row_info of C.

    Fields in their order, by position or by name; those that are left out are 0:
        row: last row not after the instant; -1 before the table, n_rows after it
        file: index in the list of files, -1: the correlation compiled in
        line: of that file; 0: none, or not known: the end of an SP3 above 128 KiB
        quality: kl.Quality.FINAL to kl.Quality.INSERTED; of the first or last row outside the table
        by_formula: 1: UT1-UTC comes from the formula: from the last row on
        tai_utc, tai_ut1, tai_gps: s
        pole: x, y, dX, dY, arcsec
    """

    _fields_ = [
        ("row", _c.c_long),
        ("file", _c.c_long),
        ("line", _c.c_long),
        ("quality", _c.c_long),
        ("by_formula", _c.c_long),
        ("tai_utc", _c.c_double),
        ("tai_ut1", _c.c_double),
        ("tai_gps", _c.c_double),
        ("pole", _c.c_double * 4),
    ]


class Topocentric(_c.Structure):
    """Direction seen from a place on the Earth. The record kl_topocentric of C.

    Fields in their order, by position or by name; those that are left out are 0:
        azimuth: deg from north through east; in -360 to 360
        elevation: deg, -90 to 90
        range: m
        azimuth_rate: deg/s
        elevation_rate: deg/s
        range_rate: m/s
    """

    _fields_ = [
        ("azimuth", _c.c_double),
        ("elevation", _c.c_double),
        ("range", _c.c_double),
        ("azimuth_rate", _c.c_double),
        ("elevation_rate", _c.c_double),
        ("range_rate", _c.c_double),
    ]


# Results.
AxesResult = _namedtuple("AxesResult", "x y z")
BodyStateResult = _namedtuple("BodyStateResult", "pos vel")
EarthOrientationResult = _namedtuple("EarthOrientationResult", "x_pole y_pole ut1_utc ut1_tai dx dy cip_x cip_y s s_prime era notes")
EclipseStateResult = _namedtuple("EclipseStateResult", "state fraction depth")
GeodPointResult = _namedtuple("GeodPointResult", "lat2 lon2 azimuth2")
GeodToUtmResult = _namedtuple("GeodToUtmResult", "zone north easting northing")
GeodesicResult = _namedtuple("GeodesicResult", "distance azimuth1 azimuth2")
GeodeticResult = _namedtuple("GeodeticResult", "latitude longitude height latitude_rate longitude_rate height_rate")
GetRotatedVectorsResult = _namedtuple("GetRotatedVectorsResult", "x2 y2 z2")
IersMatrixResult = _namedtuple("IersMatrixResult", "r dr ddr")
KeplerResult = _namedtuple("KeplerResult", "semi_major_axis eccentricity inclination raan arg_perigee mean_anomaly")
LeapSecondInfoResult = _namedtuple("LeapSecondInfoResult", "sign before after")
LocalFrameResult = _namedtuple("LocalFrameResult", "r dr")
OrbitAngleResult = _namedtuple("OrbitAngleResult", "angle rate rate_of_rate node node_rate inclination")
OrbitSunAnglesResult = _namedtuple("OrbitSunAnglesResult", "beta node_true_solar_time node_mean_solar_time sun_to_satellite")
RadecResult = _namedtuple("RadecResult", "ra dec distance ra_rate dec_rate distance_rate")
RayPointsResult = _namedtuple("RayPointsResult", "t n")
RayTangentResult = _namedtuple("RayTangentResult", "t point geodetic meets_earth")
StateResult = _namedtuple("StateResult", "pos vel acc")
TopocentricResult = _namedtuple("TopocentricResult", "azimuth elevation range azimuth_rate elevation_rate range_rate")
UtmToGeodResult = _namedtuple("UtmToGeodResult", "lat lon")

# Conditions of each function, by its public id: constant, value in an error vector's code, is it a warning?
CONDITIONS = {
    22: ("kl_sun", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("TIME_ID_ERR", 2), ("BODY_ERR", 3), ("TDB_ERR", 4), ("PROC_TO_PROC_ERR", 5), ("FRAME_ERR", 6),)),
    23: ("kl_moon", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("TIME_ID_ERR", 2), ("BODY_ERR", 3), ("TDB_ERR", 4), ("PROC_TO_PROC_ERR", 5), ("FRAME_ERR", 6),)),
    24: ("kl_planet", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("TIME_ID_ERR", 2), ("CODE_ERR", 3), ("TDB_ERR", 4), ("PROC_TO_PROC_ERR", 5), ("FRAME_ERR", 6), ("CONVERGENCE_WARN", 7),)),
    11: ("kl_time_obt_to_time", (("SAT_ID_ERR", 0), ("TIME_REF_ERR", 1), ("TAG_ERR", 2), ("REF_TIME_ERR", 3), ("NO_OBT_ERR", 4), ("OBT_ERR", 5), ("CLOCK_STEP_ERR", 6), ("TIME_ERR", 7),)),
    12: ("kl_time_time_to_obt", (("SAT_ID_ERR", 0), ("TIME_REF_ERR", 1), ("TAG_ERR", 2), ("TIME_ERR", 3), ("REF_TIME_ERR", 4), ("NO_OBT_ERR", 5), ("OBT_ERR", 6), ("CLOCK_STEP_ERR", 7),)),
    46: ("kl_time_cuc_to_processing", (("CONFIG_ERR", 0), ("P_FIELD_ERR", 1), ("EPOCH_ERR", 2),)),
    47: ("kl_time_processing_to_cuc", (("CONFIG_ERR", 0), ("EPOCH_ERR", 1), ("TIME_ERR", 2), ("P_FIELD_ERR", 3),)),
    18: ("kl_geod_to_cart", (("CALC_MODE_ERR", 0), ("LATITUDE_ERR", 1), ("LONGITUDE_ERR", 2), ("HEIGHT_ERR", 3), ("RATES_ERR", 4),)),
    19: ("kl_cart_to_geod", (("CALC_MODE_ERR", 0), ("POSITION_ERR", 1), ("VELOCITY_ERR", 2), ("TWO_FEET_WARN", 3), ("POLAR_AXIS_WARN", 4),)),
    20: ("kl_kepl_to_cart", (("KIND_ERR", 0), ("ELEMENTS_ERR", 1), ("KEPLER_ERR", 2), ("INCLINATION_ERR", 3), ("ANGLES_ERR", 4), ("MEAN_ERR", 5),)),
    21: ("kl_cart_to_kepl", (("KIND_ERR", 0), ("STATE_ERR", 1), ("CONIC_ERR", 2), ("MEAN_ERR", 3), ("CONVERGENCE_ERR", 4),)),
    26: ("kl_geod_distance", (("LATITUDE1_ERR", 0), ("LONGITUDE1_ERR", 1), ("LATITUDE2_ERR", 2), ("LONGITUDE2_ERR", 3), ("CONVERGENCE_ERR", 4),)),
    32: ("kl_position_on_orbit", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("CALC_MODE_ERR", 2), ("CS_ERR", 3), ("STATE_ERR", 4), ("TIME_ID_ERR", 5), ("TRANSFORMATION_ERR", 6), ("PLANE_ERR", 7), ("EQUATOR_WARN", 8), ("FORMULA_WARN", 9), ("GAP_WARN", 10), ("VALIDITY_WARN", 11),)),
    36: ("kl_cart_to_radec", (("CALC_MODE_ERR", 0), ("POSITION_ERR", 1), ("VELOCITY_ERR", 2), ("POLAR_AXIS_WARN", 3),)),
    37: ("kl_radec_to_cart", (("CALC_MODE_ERR", 0), ("RA_ERR", 1), ("DEC_ERR", 2), ("DISTANCE_ERR", 3), ("RATES_ERR", 4),)),
    39: ("KL_Coticchia_Surace", (("COMPUTATION_ERR", 0),)),
    5: ("kl_time_processing_to_processing", (("PROC_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("PROC_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("DAYS_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("STANDARD_FORMAT_ERR", 10),)),
    6: ("kl_time_ascii_to_ascii", (("ASCII_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("ASCII_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("YEAR_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("LAYOUT_ERR", 10), ("TOO_SHORT_ERR", 11), ("TOO_LONG_ERR", 12), ("PREFIX_ERR", 13), ("PREFIX_REF_ERR", 14), ("NO_REF_ERR", 15), ("MISSION_LIMIT_ERR", 16), ("MONTH_ERR", 17), ("DAY_ERR", 18), ("HOUR_ERR", 19), ("MINUTE_ERR", 20), ("SECOND_ERR", 21), ("MICROSECOND_ERR", 22), ("DAY_OF_30_ERR", 23), ("DAY_OF_29_ERR", 24), ("DAY_OF_28_ERR", 25), ("LEAP_SECOND_ERR", 26), ("BEFORE_1950_ERR", 27), ("AFTER_2099_ERR", 28),)),
    8: ("kl_time_ascii_to_processing", (("ASCII_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("PROC_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("YEAR_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("LAYOUT_ERR", 10), ("TOO_SHORT_ERR", 11), ("TOO_LONG_ERR", 12), ("PREFIX_ERR", 13), ("PREFIX_REF_ERR", 14), ("NO_REF_ERR", 15), ("MISSION_LIMIT_ERR", 16), ("MONTH_ERR", 17), ("DAY_ERR", 18), ("HOUR_ERR", 19), ("MINUTE_ERR", 20), ("SECOND_ERR", 21), ("MICROSECOND_ERR", 22), ("DAY_OF_30_ERR", 23), ("DAY_OF_29_ERR", 24), ("DAY_OF_28_ERR", 25), ("LEAP_SECOND_ERR", 26),)),
    7: ("kl_time_ascii_to_transport", (("ASCII_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("TRANS_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("YEAR_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("LAYOUT_ERR", 10), ("TOO_SHORT_ERR", 11), ("TOO_LONG_ERR", 12), ("PREFIX_ERR", 13), ("PREFIX_REF_ERR", 14), ("NO_REF_ERR", 15), ("MISSION_LIMIT_ERR", 16), ("MONTH_ERR", 17), ("DAY_ERR", 18), ("HOUR_ERR", 19), ("MINUTE_ERR", 20), ("SECOND_ERR", 21), ("MICROSECOND_ERR", 22), ("DAY_OF_30_ERR", 23), ("DAY_OF_29_ERR", 24), ("DAY_OF_28_ERR", 25), ("LEAP_SECOND_ERR", 26),)),
    3: ("kl_time_processing_to_ascii", (("PROC_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("ASCII_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("DAYS_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("STANDARD_FORMAT_ERR", 10), ("BEFORE_1950_ERR", 11), ("AFTER_2099_ERR", 12),)),
    4: ("kl_time_processing_to_transport", (("PROC_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("TRANS_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("DAYS_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("STANDARD_FORMAT_ERR", 10),)),
    0: ("kl_time_transport_to_ascii", (("TRANS_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("ASCII_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("DAYS_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("LEAP_SECOND_ERR", 10), ("SECONDS_ERR", 11), ("MILLISECONDS_ERR", 12), ("MICROSECONDS_ERR", 13), ("TICKS_ERR", 14), ("WEEK_ERR", 15), ("SECONDS_OF_WEEK_ERR", 16), ("FRACTION_ERR", 17), ("GPS_SECONDS_ERR", 18), ("BEFORE_1950_ERR", 19), ("AFTER_2099_ERR", 20),)),
    2: ("kl_time_transport_to_processing", (("TRANS_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("PROC_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("DAYS_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("LEAP_SECOND_ERR", 10), ("SECONDS_ERR", 11), ("MILLISECONDS_ERR", 12), ("MICROSECONDS_ERR", 13), ("TICKS_ERR", 14), ("WEEK_ERR", 15), ("SECONDS_OF_WEEK_ERR", 16), ("FRACTION_ERR", 17), ("GPS_SECONDS_ERR", 18),)),
    1: ("kl_time_transport_to_transport", (("TRANS_ID_IN_ERR", 0), ("TIME_REF_IN_ERR", 1), ("TRANS_ID_OUT_ERR", 2), ("TIME_REF_OUT_ERR", 3), ("DAYS_ERR", 4), ("TIME_ID_ERR", 5), ("OUT_OF_RANGE_WARN", 6), ("BULLETIN_A_WARN", 7), ("BULLETIN_B_A_WARN", 8), ("VALIDITY_WARN", 9), ("LEAP_SECOND_ERR", 10), ("SECONDS_ERR", 11), ("MILLISECONDS_ERR", 12), ("MICROSECONDS_ERR", 13), ("TICKS_ERR", 14), ("WEEK_ERR", 15), ("SECONDS_OF_WEEK_ERR", 16), ("FRACTION_ERR", 17), ("GPS_SECONDS_ERR", 18),)),
    17: ("kl_change_cart_cs", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("CALC_MODE_ERR", 2), ("CS_IN_ERR", 3), ("CS_OUT_ERR", 4), ("TIME_ID_ERR", 5), ("FORMULA_WARN", 6), ("GAP_WARN", 7), ("VALIDITY_WARN", 8), ("TAI_ERR", 9), ("TRANSFORMATION_ERR", 10), ("LIF_ERR", 11),)),
    44: ("kl_geoid_calc", (("DEGREE_ERR", 0), ("LATITUDE_ERR", 1), ("LONGITUDE_ERR", 2), ("COMPUTATION_ERR", 3),)),
    38: ("kl_eclipse", (("POSITION_ERR", 0), ("SUN_ERR", 1), ("MARGIN_ERR", 2), ("TIME_REF_ERR", 3), ("DATE_ERR", 4), ("CS_ERR", 5), ("TIME_ID_ERR", 6), ("TRANSFORMATION_ERR", 7), ("FORMULA_WARN", 8), ("GAP_WARN", 9), ("VALIDITY_WARN", 10),)),
    42: ("kl_model_init", (("INITIALISED_ERR", 0), ("MEMORY_ERR", 1), ("SELECTION_ERR", 2),)),
    43: ("kl_model_close", (("ID_ERR", 0),)),
    33: ("kl_quaternions_to_vectors", (("MODULE_ERR", 0),)),
    34: ("kl_vectors_to_quaternions", (("VECTORS_ERR", 0), ("ORTHONORMAL_ERR", 1),)),
    45: ("kl_quaternions_interpol", (("RANGE_WARN", 0), ("ALGORITHM_ERR", 1),)),
    41: ("kl_matrix_to_euler", (("ROTATION_ERR", 0), ("AMBIGUITY_WARN", 1), ("ORTHONORMAL_ERR", 2),)),
    30: ("kl_get_rotation_angles", (("ORTHOGONAL_ERR", 0), ("ROTATION_ERR", 1),)),
    31: ("kl_get_rotated_vectors", (("ORTHOGONAL_ERR", 0), ("ROTATION_ERR", 1),)),
    29: ("kl_run_init", (("NO_SLOT_ERR", 0), ("SAT_ID_ERR", 1), ("TIME_ID_ERR", 2), ("MEMORY_ERR", 3), ("CONSISTENCY_ERR", 4), ("LOCK_ERR", 5), ("UNLOCK_ERR", 6),)),
    28: ("kl_default_sat_init", (("NO_SLOT_ERR", 0), ("FILE_ERR", 1), ("LOCK_ERR", 2), ("UNLOCK_ERR", 3),)),
    25: ("kl_star_radec", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("CORRECTIONS_ERR", 2), ("CS_OUT_ERR", 3), ("STAR_ERR", 4), ("OBSERVER_ERR", 5), ("TIME_ID_ERR", 6), ("TRANSFORMATION_ERR", 7), ("FORMULA_WARN", 8), ("GAP_WARN", 9), ("VALIDITY_WARN", 10),)),
    35: ("kl_star_catalog", (("TIME_REF_ERR", 0), ("DATE_ERR", 1), ("CORRECTIONS_ERR", 2), ("CS_OUT_ERR", 3), ("FILE_ERR", 4), ("RECORD_ERR", 5), ("TIME_ID_ERR", 6), ("TRANSFORMATION_ERR", 7), ("FORMULA_WARN", 8), ("GAP_WARN", 9), ("VALIDITY_WARN", 10), ("FORMAT_ERR", 11), ("WINDOW_ERR", 12), ("MEMORY_ERR", 13),)),
    14: ("kl_time_ref_init", (("TAI_ERR", 0), ("UTC_ERR", 1), ("UT1_ERR", 2), ("GPS_ERR", 3), ("ORBIT_ERR", 4), ("ANX_TIME_ERR", 5), ("ORBIT_DURATION_ERR", 6), ("ANX_DURATION_ERR", 7), ("MEMORY_ERR", 8), ("ID_ERR", 9),)),
    13: ("kl_time_ref_init_file", (("ID_ERR", 0), ("MODEL_ERR", 1), ("COUNT_ERR", 2), ("WINDOW_ERR", 3), ("READ_ERR", 4), ("FORMAT_ERR", 5), ("RECORD_ERR", 6), ("ORDER_ERR", 7), ("FORMULA_ERR", 8), ("NO_RECORD_ERR", 9), ("MEMORY_ERR", 10), ("LEAP_SECOND_ERR", 11), ("COVERAGE_WARN", 12), ("TAI_UTC_WARN", 13), ("NO_UT1_WARN", 14), ("LEAP_EXPIRED_WARN", 15),)),
    15: ("kl_time_id_init", (("ID_ERR", 0), ("MODEL_ERR", 1), ("COUNT_ERR", 2), ("WINDOW_ERR", 3), ("READ_ERR", 4), ("FORMAT_ERR", 5), ("RECORD_ERR", 6), ("ORDER_ERR", 7), ("FORMULA_ERR", 8), ("NO_RECORD_ERR", 9), ("MEMORY_ERR", 10), ("LEAP_SECOND_ERR", 11), ("COVERAGE_WARN", 12), ("TAI_UTC_WARN", 13), ("NO_UT1_WARN", 14), ("LEAP_EXPIRED_WARN", 15),)),
    16: ("kl_time_close", (("ID_ERR", 0),)),
    9: ("kl_time_add", (("PROC_ID_ERR", 0), ("TIME_REF_ERR", 1), ("TIME_ERR", 2), ("SUM_ERR", 3),)),
    10: ("kl_time_diff", (("PROC_ID_ERR", 0), ("TIME_REF_ERR", 1), ("TIME1_ERR", 2), ("TIME2_ERR", 3),)),
    27: ("kl_time_get_leap_second_info", (("FORMAT_ERR", 0), ("ADD_ERR", 1), ("CONVERT_ERR", 2), ("TIME_ID_WARN", 3),)),
}
