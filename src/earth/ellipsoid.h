// The Earth's ellipsoid: radii of curvature, and the foot of a point in the plane of its meridian.
//
// In that plane p is the distance from the axis and q the one from the equator, both at least 0; what belongs to the
// southern half is the caller's sign. T is a number or a pack of numbers.
#ifndef KL_SRC_EARTH_ELLIPSOID_H
#define KL_SRC_EARTH_ELLIPSOID_H

#include "models/model_record.h"
#include "numbers/constants.h"
#include "numbers/pack.h"

#include <cmath>

inline namespace KL_SET {

// Only a and f of the model: the rounded minor axis beside them lies 45 um off.
struct Ellipsoid {
    double a, b; // semi-axes, m
    double k;    // b/a
    double e2;   // first eccentricity squared
    double E;    // a e2, m: how far the centres of curvature lie from the centre in the plane of the equator
    double f;    // flattening
};

inline Ellipsoid ellipsoid_of_axes(double a, double b)
{
    const double f = (a - b) / a;
    const double e2 = f * (2.0 - f);
    return {a, b, b / a, e2, a * e2, f};
}

inline Ellipsoid ellipsoid_of_constants(double a, double f)
{
    const double e2 = f * (2.0 - f);
    return {a, a * (1.0 - f), 1.0 - f, e2, a * e2, f};
}

inline Ellipsoid ellipsoid_of(const EarthModel &earth)
{
    return ellipsoid_of_constants(earth.semi_major_axis, earth.flattening);
}

// What makes a sphere of the ellipsoid along its axis.
struct Stretch {
    double once, twice; // a/b and its square
};
constexpr Stretch divided_stretch(double flattening)
{
    const double k = 1.0 - flattening;
    return {1.0 / k, 1.0 / (k * k)};
}
// The Earth's own is divided beforehand.
inline Stretch stretch_of(double flattening)
{
    constexpr Stretch kOfTheEarth = divided_stretch(KL_EARTH_FLATTENING);
    return same_number(flattening, KL_EARTH_FLATTENING) ? kOfTheEarth : divided_stretch(flattening);
}

// Across and along the meridian, m, at the latitude of this sine.
template <class T>
struct CurvatureRadii {
    T N, M;
};

template <class T>
CurvatureRadii<T> curvature_radii(const Ellipsoid &ellipsoid, const T &sine)
{
    using std::sqrt;
    const T w2 = 1.0 - ellipsoid.e2 * sine * sine;
    const T N = ellipsoid.a / sqrt(w2);
    return {N, (1.0 - ellipsoid.e2) * N / w2};
}

// Geodetic latitude (0 to 90 deg) and height, m.
template <class T>
struct Foot {
    T sine, cosine; // of the latitude
    T height;
    T rise, run; // in the ratio of sine to cosine, and known before them
};

// From sine and cosine of the reduced latitude; exact inside, outside and at the poles.
template <class T>
Foot<T> foot_at(const Ellipsoid &ellipsoid, const T &p, const T &q, const T &S, const T &C)
{
    using std::sqrt;
    const T along = ellipsoid.k * C;
    const T per_length = 1.0 / sqrt(S * S + along * along);
    const T s = S * per_length;
    const T c = along * per_length;
    return {s, c, (p - ellipsoid.a * C) * c + (q - ellipsoid.b * S) * s, S, along};
}

// From here on one step without a test is enough; at 4000 km it would cost 3e-8 m.
constexpr double kFarFromCentre = 6.0e6; // m, for the Earth's own ellipsoid

// For r = hypot(p, q) >= kFarFromCentre: Bowring's start for the reduced latitude (B. R. Bowring, Survey Review 23, 323
// (1976)), good to 1e-6, and one step of Halley in the angle.
template <class T>
Foot<T> foot_from_afar(const Ellipsoid &ellipsoid, const T &p, const T &q, const T &r)
{
    using std::sqrt;
    const double k = ellipsoid.k;
    const double E = ellipsoid.E;
    const T rise = q * (k * r + E);
    const T run = p * r;
    const T per_length = 1.0 / sqrt(rise * rise + run * run);
    const T S0 = rise * per_length;
    const T C0 = run * per_length;
    const T g = p * S0 - k * q * C0 - E * S0 * C0;
    const T d1 = p * C0 + k * q * S0 - E * (C0 * C0 - S0 * S0);
    const T d2 = 4.0 * E * S0 * C0 + k * q * C0 - p * S0;
    const T t = -g * d1 / (d1 * d1 - 0.5 * g * d2);
    const T S = S0 + C0 * t;
    const T C = C0 - S0 * t;
    // S^2 + C^2 = 1 + t^2, with t below 1e-6
    const T t2 = t * t;
    const T per_norm = 1.0 - t2 * (0.5 - 0.375 * t2);
    return foot_at(ellipsoid, p, q, T(S * per_norm), T(C * per_norm));
}

// For any point in the plane. Two nearest points, of which this is the northern one, exist only on the disc between the
// centres of curvature (q = 0, p < E).
inline bool has_two_feet(const Ellipsoid &ellipsoid, double p, double q)
{
    return q == 0.0 && p < ellipsoid.E;
}

inline Foot<double> foot_anywhere(const Ellipsoid &ellipsoid, double p, double q)
{
    const double k = ellipsoid.k;
    const double E = ellipsoid.E;
    if (p <= 1e-20 * (q + E)) // on the axis; the slope below would overflow
        return {1.0, 0.0, q - ellipsoid.b, 1.0, 0.0};
    if (q == 0.0) {
        const double C = p < E ? p / E : 1.0;
        return foot_at(ellipsoid, p, q, std::sqrt((1.0 - C) * (1.0 + C)), C);
    }
    // The tangent of the reduced latitude solves p T - k q - E T/sqrt(1 + T^2) = 0. The left side is convex and its
    // root unique: from the right end Newton falls monotonically. Eight steps are usual; beside the rim of the disc,
    // where three roots meet, some hundred.
    constexpr int kLimit = 400;
    double T = (k * q + E) / p;
    for (int step = 0; step < kLimit; ++step) {
        const double w = std::sqrt(1.0 + T * T);
        // Below 1 without the difference of T and T/w.
        const double bent = T * T / (w * (1.0 + w));
        const double g = T > 1.0 ? p * T - E * (T / w) - k * q : (p - E) * T + E * T * bent - k * q;
        const double slope = T > 1.0 ? p - E / (w * w * w) : (p - E) + E * bent * (w * w + w + 1.0) / (w * w);
        const double fall = g / slope;
        if (!(fall > 0.0))
            break; // at the root, to rounding
        T -= fall;
        if (fall <= 1e-9 * T)
            break; // one more step would be below rounding
    }
    const double C = 1.0 / std::sqrt(1.0 + T * T);
    return foot_at(ellipsoid, p, q, T * C, C);
}

} // namespace KL_SET

#endif
