/**
 * @file types.hpp
 * Values that the functions of ORBKIT::LibFunc take and return.
 */
#ifndef ORBKIT_TYPES_HPP
#define ORBKIT_TYPES_HPP

#include "../kl_lib.h"

#include <array>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

namespace ORBKIT {

/** Three components: a position (m), a velocity (m/s), an axis, or three angles (deg). */
using Vector = std::array<double, 3>;

/** Vector part first, scalar last. */
using Quaternion = std::array<double, 4>;

/** Row by row. */
using Matrix = std::array<double, 9>;

/** Four longs, unused ones 0; see KL_TRANS_*. */
using TransportTime = std::array<long, KL_TRANSPORT_LENGTH>;

/** P-field, if the configuration has one, and time field; the octets after them are 0. */
using CucTime = std::array<unsigned char, KL_CUC_LENGTH>;

/** Three orthogonal axes. */
struct Axes {
    Vector x, y, z;
};

/** State of a body: m, m/s, Earth-fixed. */
struct BodyState {
    Vector pos, vel;
};

/** Where a line of sight meets a surface: m along the unit direction, ascending; NaN beyond the number of points. */
struct RayPoints {
    std::array<double, 2> t;
    long n;
};

/** Lowest point of a line of sight. */
struct TangentPoint {
    double t;     ///< m along the unit direction
    Vector point; ///< m
    kl_geodetic geodetic;
    long meetsEarth; ///< 1 when it lies below the ellipsoid
};

/** Shadow of the Earth on a satellite. */
struct EclipseState {
    long state;      ///< KL_SUNLIGHT, KL_PENUMBRA, KL_UMBRA or KL_ANNULAR
    double fraction; ///< visible part of the Sun's disc
    double depth;    ///< from the Sun's centre to the limb, in radii of the Sun
};

/** State in a frame: m, m/s, m/s2. What the calculation mode leaves out comes out 0. */
struct State {
    Vector pos{}, vel{}, acc{};
};

/** Matrix of a change of frame, rows one after the other, with its derivatives: 1, 1/s, 1/s2. */
struct MatrixState {
    Matrix matrix{}, rate{}, acceleration{};
};

/** Shortest path between two points of the ellipsoid: m; deg, direction of travel at its ends. */
struct Geodesic {
    double distance, azimuth1, azimuth2;
};

/** End of a geodesic: deg. */
struct GeodesicEnd {
    double latitude, longitude, azimuth;
};

/** Place of a pair of grid coordinates: deg. */
struct GridPlace {
    double latitude, longitude;
};

/** Axes of a frame that goes along with a satellite, row by row, and their derivative, 1/s. */
struct LocalFrame {
    Matrix r, dr;
};

/** A text of a time. It lives on the stack: conversions to it allocate nothing. */
struct TimeText {
    char text[KL_TIME_ASCII_LENGTH];

    const char *c_str() const { return text; }
    std::string str() const { return text; }

    friend bool operator==(const TimeText &a, const TimeText &b) { return std::strcmp(a.text, b.text) == 0; }
    friend bool operator!=(const TimeText &a, const TimeText &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const TimeText &time) { return out << time.text; }
};

/** Argument type: any terminated text, borrowed for the call. */
class TextArgument {
public:
    TextArgument(const char *text) : text_(text) {}
    TextArgument(const std::string &text) : text_(text.c_str()) {}
    TextArgument(const TimeText &text) : text_(text.text) {}

    const char *c_str() const { return text_; }

private:
    const char *text_;
};

/**
 * Argument type: a text that somebody wrote, of any kind; only one without an end of its own is copied. None, one with
 * zeros inside and one longer than any time are no time, and so refused.
 */
class TypedText {
public:
    TypedText(const char *text) : text_(text != nullptr ? text : kNone) {}
    TypedText(const std::string &text) : text_(std::strlen(text.c_str()) == text.size() ? text.c_str() : kNone) {}
    TypedText(const TimeText &text) : text_(text.text) {}
    TypedText(std::string_view text) : text_(kNone)
    {
        if (text.size() >= sizeof copy_ || text.find('\0') != text.npos)
            return;
        copy_[text.copy(copy_, text.size())] = '\0';
        text_ = copy_;
    }
    TypedText(const TypedText &) = delete;
    TypedText &operator=(const TypedText &) = delete;

    const char *c_str() const { return text_; }

private:
    static constexpr const char *kNone = "?";
    const char *text_;
    char copy_[80];
};

/** The leap second of a time id: sign 0 and empty texts when it has none. */
struct LeapSecondInfo {
    long sign;
    TimeText before, after; /**< UTC */
};

/** The record that goes with the parameters of an on-board clock. */
template <typename Parameters>
struct OnBoardCountOf;
template <>
struct OnBoardCountOf<kl_obt_param_tarvos> {
    using Type = kl_obt_tarvos;
};
template <>
struct OnBoardCountOf<kl_obt_param_kelda> {
    using Type = kl_obt_kelda;
};
template <>
struct OnBoardCountOf<kl_obt_param_brisa> {
    using Type = kl_obt_brisa;
};
template <>
struct OnBoardCountOf<kl_obt_param_vardo> {
    using Type = kl_obt_vardo;
};
template <typename Parameters>
using OnBoardCount = typename OnBoardCountOf<Parameters>::Type;

} // namespace ORBKIT

#endif
