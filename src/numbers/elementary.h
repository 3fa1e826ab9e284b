// Sine, cosine and the arc functions of one number: within three units of the last place, and the same bits on every
// machine, which those of the mathematics library are not, since it picks its instructions at run time.
#ifndef KL_SRC_NUMBERS_ELEMENTARY_H
#define KL_SRC_NUMBERS_ELEMENTARY_H

#include "numbers/sin_cos.h"

#include <cmath>
#include <cstddef>

// sin_cos for angles of any size.
template <std::size_t N>
void sin_cos_any(const double (&angle)[N], double (&sine)[N], double (&cosine)[N])
{
    constexpr double kLargest = 1e8; // rad: sin_cos takes whole turns off up to here
    bool within = true;
    for (const double a : angle)
        within &= std::fabs(a) < kLargest;
    if (within) {
        sin_cos(angle, sine, cosine);
        return;
    }
    for (std::size_t i = 0; i < N; ++i) {
        sine[i] = std::sin(angle[i]);
        cosine[i] = std::cos(angle[i]);
    }
}

struct SineCosine {
    double s, c;
};

inline SineCosine sine_cosine(double angle)
{
    double s[1];
    double c[1];
    sin_cos_any({angle}, s, c);
    return {s[0], c[0]};
}

// Angle of the direction (x, y), -pi to pi; zeros and infinities as std::atan2 has them.
inline double arc_tangent(double y, double x)
{
    // Eighths of a turn, each in two parts.
    static constexpr double kEighths[5][2] = {{0.0, 0.0},
                                              {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},
                                              {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54},
                                              {0x1.2d97c7f3321d2p+1, 0x1.a79394c9e8a0ap-54},
                                              {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53}};
    constexpr double kTangent = 0.41421356237309503; // of a sixteenth
    constexpr double kLarge = 0x1p500;
    double across = std::fabs(y);
    double along = std::fabs(x);
    const bool swapped = across > along;
    const double longer = swapped ? across : along;
    if (!(longer > 1.0 / kLarge && longer < kLarge)) {
        if (!(longer > 0.0 && longer <= 0x1.fffffffffffffp+1023) || std::isnan(across + along))
            return std::atan2(y, x);
        const double scale = longer < 1.0 ? kLarge : 1.0 / kLarge;
        across *= scale;
        along *= scale;
    }
    const double high = swapped ? across : along;
    const double low = swapped ? along : across;
    const bool folded = low > kTangent * high;
    const double t = (low - (folded ? high : 0.0)) / (high + (folded ? low : 0.0));
    const double q = t * t;
    const double q2 = q * q;
    const double q4 = q2 * q2;
    // Minimax in q within -tan(pi/8) to tan(pi/8), off by at most 2.4e-18.
    // clang-format off
    const double p = ((-0x1.555555555554ap-2 + q * 0x1.9999999996e68p-3)
              + q2 * (-0x1.24924923155b7p-3 + q * 0x1.c71c7103911c0p-4))
              + q4 * (((-0x1.745cfb24fc890p-4 + q * 0x1.3b11328722a46p-4)
              + q2 * (-0x1.10ec4955fb177p-4 + q * 0x1.df10b319243bdp-5))
              + q4 * ((-0x1.9cbf2d5a94bedp-5 + q * 0x1.376c6f915530fp-5)
              + q2 * -0x1.241cf5ba02d27p-6));
    // clang-format on
    const double a = t + t * q * p;
    int eighths = folded ? 1 : 0;
    double sign = 1.0;
    if (swapped) {
        eighths = 2 - eighths;
        sign = -sign;
    }
    if (std::signbit(x)) {
        eighths = 4 - eighths;
        sign = -sign;
    }
    return std::copysign(kEighths[eighths][0] + (kEighths[eighths][1] + sign * a), y);
}

// Of numbers from -1 to 1; NaN outside.
inline double arc_cosine(double x)
{
    return arc_tangent(std::sqrt((1.0 - x) * (1.0 + x)), x);
}

inline double arc_sine(double x)
{
    return arc_tangent(x, std::sqrt((1.0 - x) * (1.0 + x)));
}

#endif
