/**
 * @file enums.hpp
 * Scales, frames, planets and the like as types of their own: a number in the wrong place does not compile. Nothing
 * converts to the constants of C by itself; number() does.
 */
#ifndef ORBKIT_ENUMS_HPP
#define ORBKIT_ENUMS_HPP

#include "../kl_lib.h"

namespace ORBKIT {

/** Time scales. */
enum class Scale : long { TAI = KL_TIME_TAI, UTC = KL_TIME_UTC, UT1 = KL_TIME_UT1, GPS = KL_TIME_GPS };

/** What a correlation is made of: see kl_time_ref_init_file. */
enum class TimeModel : long {
    explicit_values = KL_TIME_MODEL_EXPLICIT,
    bulletin_b = KL_TIME_MODEL_BULLETIN_B,
    bulletin_b_extended = KL_TIME_MODEL_BULLETIN_B_EXTENDED,
    finals_observed = KL_TIME_MODEL_FINALS_OBSERVED,
    finals = KL_TIME_MODEL_FINALS,
    c04 = KL_TIME_MODEL_C04,
    table = KL_TIME_MODEL_TABLE,
    orbit_file = KL_TIME_MODEL_ORBIT_FILE,
    leap_seconds = KL_TIME_MODEL_LEAP_SECONDS,
    merged = KL_TIME_MODEL_MERGED,
    bulletin_a = KL_TIME_MODEL_BULLETIN_A,
    bulletin_a_table = KL_TIME_MODEL_BULLETIN_A_TABLE
};

/** Frames of the family's conventional chain; see KL_BM2000 and the others. */
enum class Frame : long {
    BM2000 = KL_BM2000,
    HM2000 = KL_HM2000,
    GM2000 = KL_GM2000,
    MOD = KL_MOD,
    TOD = KL_TOD,
    PEF = KL_PEF,
    EF = KL_EF,
    BM1950 = KL_BM1950,
    GALACTIC = KL_GALACTIC,
    TEME = KL_TEME
};

/** Frames of the IERS Conventions: for precise orbits. Never mixed up with those of the chain. */
enum class IersFrame : long { GCRS = KL_GCRS, CIRS = KL_CIRS, TIRS = KL_TIRS, ITRS = KL_ITRS, EME2000 = KL_EME2000 };

/** Corrections of UT1 and the pole within a day. */
enum class EopCorrections : long {
    none = 0,
    ocean_tides = KL_EOP_OCEAN_TIDES,
    libration = KL_EOP_LIBRATION,
    all = KL_EOP_ALL
};

/** Planets. */
enum class PlanetName : long {
    mercury = KL_MERCURY,
    venus = KL_VENUS,
    earth_moon_barycentre = KL_EARTH_MOON_BARYCENTRE,
    mars = KL_MARS,
    jupiter = KL_JUPITER,
    saturn = KL_SATURN,
    uranus = KL_URANUS,
    neptune = KL_NEPTUNE
};

/** Texts of a time: the layouts of KL_ASCII_11 to KL_ASCII_54. */
enum class TextFormat : long {
    ascii_11 = KL_ASCII_11,
    ascii_12 = KL_ASCII_12,
    ascii_13 = KL_ASCII_13,
    ascii_14 = KL_ASCII_14,
    ascii_21 = KL_ASCII_21,
    ascii_22 = KL_ASCII_22,
    ascii_23 = KL_ASCII_23,
    ascii_24 = KL_ASCII_24,
    ascii_31 = KL_ASCII_31,
    ascii_32 = KL_ASCII_32,
    ascii_33 = KL_ASCII_33,
    ascii_34 = KL_ASCII_34,
    ascii_41 = KL_ASCII_41,
    ascii_42 = KL_ASCII_42,
    ascii_43 = KL_ASCII_43,
    ascii_44 = KL_ASCII_44,
    ascii_51 = KL_ASCII_51,
    ascii_52 = KL_ASCII_52,
    ascii_53 = KL_ASCII_53,
    ascii_54 = KL_ASCII_54,
    iso = KL_ASCII_43 /**< yyyy-mm-ddThh:nn:ss.uuuuuu */
};

/** Transport formats, KL_TRANS_0 to KL_TRANS_42; their fields stand there. Weeks and seconds of GPS: 31, 41, 42. */
enum class TransportFormat : long {
    days_seconds = KL_TRANS_0,
    format_11 = KL_TRANS_11,
    format_21 = KL_TRANS_21,
    format_22 = KL_TRANS_22,
    format_23 = KL_TRANS_23,
    format_31 = KL_TRANS_31,
    format_41 = KL_TRANS_41,
    format_42 = KL_TRANS_42
};

/** Kinds of Keplerian elements: osculating, or without the short-period terms of J2. */
enum class Elements : long { osculating = KL_KEPLER_OSCULATING, mean = KL_KEPLER_MEAN };

/** Frames that go along with a satellite. */
enum class OrbitalFrame : long {
    QSW = KL_ORBITAL_QSW,
    LVLH = KL_ORBITAL_LVLH,
    TNW = KL_ORBITAL_TNW,
    NTW = KL_ORBITAL_NTW,
    VNC = KL_ORBITAL_VNC
};

/** The constant of C. */
template <class Enumeration>
constexpr long number(Enumeration value)
{
    return static_cast<long>(value);
}

/** As it is written here. */
constexpr const char *name(Scale scale)
{
    return scale == Scale::TAI ? "TAI" : scale == Scale::UTC ? "UTC" : scale == Scale::UT1 ? "UT1" : "GPS";
}
constexpr const char *name(Frame frame)
{
    switch (frame) {
    case Frame::BM2000:
        return "BM2000";
    case Frame::HM2000:
        return "HM2000";
    case Frame::GM2000:
        return "GM2000";
    case Frame::MOD:
        return "MOD";
    case Frame::TOD:
        return "TOD";
    case Frame::PEF:
        return "PEF";
    case Frame::EF:
        return "EF";
    case Frame::BM1950:
        return "BM1950";
    case Frame::GALACTIC:
        return "GALACTIC";
    case Frame::TEME:
        return "TEME";
    }
    return "no frame";
}
constexpr const char *name(IersFrame frame)
{
    switch (frame) {
    case IersFrame::GCRS:
        return "GCRS";
    case IersFrame::CIRS:
        return "CIRS";
    case IersFrame::TIRS:
        return "TIRS";
    case IersFrame::ITRS:
        return "ITRS";
    case IersFrame::EME2000:
        return "EME2000";
    }
    return "no frame";
}

} // namespace ORBKIT

#endif
