// Symbols of the paper: phi geographic, beta reduced latitude; alpha azimuth; omega longitude and sigma arc length on
// the auxiliary sphere; index 0 at the node, 1 and 2 at the ends.
#include "earth/geodesic.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double kLeastCosine = 1.5e-154; // stands for a pole: its square is a normal number
constexpr double kUlp = 0x1p-52;

Heading normal(double s, double c)
{
    const double r = std::sqrt(s * s + c * c);
    return {s / r, c / r};
}

Heading of_degrees(double degrees)
{
    double s[1], c[1];
    sin_cos_degrees({degrees}, s, c);
    return {s[0], c[0]};
}

// Sum over l = 1..N of c[l-1] sin(2 l x).
template <std::size_t N>
double sine_series(const double (&c)[N], const Heading &x)
{
    const double twice_cos_2x = 2.0 * (x.c - x.s) * (x.c + x.s);
    double above = 0.0;
    double here = 0.0;
    for (std::size_t l = N; l-- > 0;) {
        const double next = twice_cos_2x * here - above + c[l];
        above = here;
        here = next;
    }
    return 2.0 * x.s * x.c * here;
}

// I1 = A (sigma + sum C sin 2 l sigma), and I2 alike.
struct ArcSeries {
    double A;
    double C[6];
};

ArcSeries first_series(double e) // equations 17 and 18
{
    const double e2 = e * e;
    return {(1.0 + e2 * (1.0 / 4.0 + e2 * (1.0 / 64.0 + e2 / 256.0))) / (1.0 - e),
            {e * (-1.0 / 2.0 + e2 * (3.0 / 16.0 - e2 / 32.0)),
             e2 * (-1.0 / 16.0 + e2 * (1.0 / 32.0 - e2 * (9.0 / 2048.0))), e * e2 * (-1.0 / 48.0 + e2 * (3.0 / 256.0)),
             e2 * e2 * (-5.0 / 512.0 + e2 * (3.0 / 512.0)), e * e2 * e2 * (-7.0 / 1280.0),
             e2 * e2 * e2 * (-7.0 / 2048.0)}};
}

ArcSeries second_series(double e) // equations 42 and 43
{
    const double e2 = e * e;
    return {(1.0 + e2 * (1.0 / 4.0 + e2 * (9.0 / 64.0 + e2 * (25.0 / 256.0)))) * (1.0 - e),
            {e * (1.0 / 2.0 + e2 * (1.0 / 16.0 + e2 / 32.0)),
             e2 * (3.0 / 16.0 + e2 * (1.0 / 32.0 + e2 * (35.0 / 2048.0))), e * e2 * (5.0 / 48.0 + e2 * (5.0 / 256.0)),
             e2 * e2 * (35.0 / 512.0 + e2 * (7.0 / 512.0)), e * e2 * e2 * (63.0 / 1280.0),
             e2 * e2 * e2 * (77.0 / 2048.0)}};
}

// Geodesics whose cosine of alpha0 is given: k2 = ep2 cos^2 alpha0.
double eps_of(double k2)
{
    return k2 / (2.0 * (1.0 + std::sqrt(1.0 + k2)) + k2);
}

double A3_of(const GeodesicSeries &g, double eps)
{
    double sum = 0.0;
    for (std::size_t j = g.A3.size(); j-- > 0;)
        sum = sum * eps + g.A3[j];
    return sum;
}

struct LongitudeSeries {
    double A3;
    double C3[5];
};

LongitudeSeries third_series(const GeodesicSeries &g, double eps)
{
    LongitudeSeries out;
    out.A3 = A3_of(g, eps);
    const double *row = g.C3.data();
    double power = eps;
    for (std::size_t l = 0; l < 5; ++l) { // the row of l + 1 has 5 - l coefficients
        const std::size_t n = 5 - l;
        double sum = 0.0;
        for (std::size_t j = n; j-- > 0;)
            sum = sum * eps + row[j];
        out.C3[l] = power * sum;
        row += n;
        power *= eps;
    }
    return out;
}

// An arc on the auxiliary sphere from sigma1 to sigma2, 0 to pi.
struct Arc {
    Heading sigma1, sigma2;
    double length; // rad
};

double angle_between(const Heading &from, const Heading &to)
{
    return arc_tangent(std::max(0.0, from.c * to.s - from.s * to.c), from.c * to.c + from.s * to.s);
}

double length_in_b(const Arc &arc, double eps)
{
    const ArcSeries I1 = first_series(eps);
    return I1.A * (arc.length + (sine_series(I1.C, arc.sigma2) - sine_series(I1.C, arc.sigma1)));
}

// m12/b, equation 38.
double reduced_length_in_b(const Arc &arc, double k2, double eps)
{
    const ArcSeries I1 = first_series(eps);
    const ArcSeries I2 = second_series(eps);
    double C[6];
    for (std::size_t l = 0; l < 6; ++l)
        C[l] = I1.A * I1.C[l] - I2.A * I2.C[l];
    const double J12 = (I1.A - I2.A) * arc.length + (sine_series(C, arc.sigma2) - sine_series(C, arc.sigma1));
    const Heading &s1 = arc.sigma1, &s2 = arc.sigma2;
    return std::sqrt(1.0 + k2 * s2.s * s2.s) * (s1.c * s2.s) - std::sqrt(1.0 + k2 * s1.s * s1.s) * (s1.s * s2.c)
           - s1.c * s2.c * J12;
}

// The problem after the reflections that make beta1 <= 0, |beta1| >= |beta2| and 0 <= lambda12 <= 180 degrees.
struct Ends {
    Heading beta1, beta2;
    Heading lambda; // lambda12
    double lambda_deg, to_antipode_deg;
};

// A geodesic that starts at point 1 with an azimuth and meets the latitude of point 2 on its way north.
struct Trial {
    Heading alpha1, alpha2;
    Arc arc;
    double s0, k2, eps;
    double beyond; // rad: its longitude less that of point 2
};

// Where the cosine of a reduced latitude beta1 <= 0 tells it better than the sine.
bool near_pole(const Heading &beta1)
{
    return beta1.c < -beta1.s;
}

// Its azimuth at point 2, equation 5, with cos alpha2 cos beta2 beside it.
struct Arrival {
    Heading alpha2;
    double along2;
};

Arrival arrival(const Ends &p, const Heading &alpha1)
{
    const Heading &b1 = p.beta1, &b2 = p.beta2;
    const double along1 = alpha1.c * b1.c;
    // cos^2 beta2 - cos^2 beta1
    const double more = near_pole(b1) ? (b2.c - b1.c) * (b2.c + b1.c) : (b1.s - b2.s) * (b1.s + b2.s);
    const double along2 = std::sqrt(along1 * along1 + more);
    const bool same = b1.c == b2.c;
    return {{same ? alpha1.s : alpha1.s * b1.c / b2.c, same && more == 0.0 ? std::fabs(alpha1.c) : along2 / b2.c},
            along2};
}

Trial trial(const GeodesicSeries &g, const Ends &p, const Heading &alpha1)
{
    const Heading &b1 = p.beta1, &b2 = p.beta2;
    const Arrival end = arrival(p, alpha1);
    Trial t;
    t.alpha1 = alpha1;
    t.alpha2 = end.alpha2;
    t.s0 = alpha1.s * b1.c;
    const double c0 = std::sqrt(alpha1.c * alpha1.c + (alpha1.s * b1.s) * (alpha1.s * b1.s));
    const double per_c0 = 1.0 / c0; // c0 e^(i sigma) = cos alpha cos beta + i sin beta: equations 11, 12
    const Heading &s1 = t.arc.sigma1 = {b1.s * per_c0, alpha1.c * b1.c * per_c0};
    const Heading &s2 = t.arc.sigma2 = {b2.s * per_c0, end.along2 * per_c0};
    t.arc.length = angle_between(s1, s2);
    // cos beta e^(i omega) = cos sigma + i sin alpha0 sin sigma; only the ratio of sine and cosine of omega12 counts
    const double sin_w = std::max(0.0, t.s0 * (s1.c * s2.s - s1.s * s2.c));
    const double cos_w = s1.c * s2.c + (t.s0 * s1.s) * (t.s0 * s2.s);
    t.k2 = g.ep2 * c0 * c0;
    t.eps = eps_of(t.k2);
    const LongitudeSeries I3 = third_series(g, t.eps);
    const double less = g.e.f * t.s0 * I3.A3 * (t.arc.length + (sine_series(I3.C3, s2) - sine_series(I3.C3, s1)));
    t.beyond = arc_tangent(sin_w * p.lambda.c - cos_w * p.lambda.s, cos_w * p.lambda.c + sin_w * p.lambda.s) - less;
    return t;
}

// d lambda12 / d alpha1, equation 46.
double longitude_slope(const GeodesicSeries &g, const Ends &p, const Trial &t)
{
    if (t.alpha2.c == 0.0)
        return -2.0 * std::sqrt(1.0 - g.e.e2 * p.beta1.c * p.beta1.c) / p.beta1.s;
    return g.e.k * reduced_length_in_b(t.arc, t.k2, t.eps) / (t.alpha2.c * p.beta2.c);
}

// The mu > 0 with (x/(1 + mu))^2 + (y/mu)^2 = 1: from below Newton's steps rise to it. Equation 55 is the same quartic.
double astroid(double x, double y)
{
    double mu = std::max(std::fabs(y), std::fabs(x) - 1.0);
    for (int i = 0; i < 40; ++i) {
        const double u = x / (1.0 + mu);
        const double v = y / mu;
        const double step = 0.5 * (u * u + v * v - 1.0) / (u * u / (1.0 + mu) + v * v / mu);
        mu += step;
        if (!(step > 1e-6 * mu))
            break;
    }
    return mu;
}

// Great circle to point 2 at a longitude omega12 on the sphere, with sines and cosines of small parts kept.
struct GreatCircle {
    double s_alpha1, c_alpha1;
    double sin_sigma, cos_sigma;
};

GreatCircle great_circle(const Ends &p, const Heading &w)
{
    const Heading &b1 = p.beta1, &b2 = p.beta2;
    GreatCircle out;
    out.s_alpha1 = b2.c * w.s;
    out.c_alpha1 = w.c >= 0.0 ? (b2.s * b1.c - b2.c * b1.s) + b1.s * b2.c * (w.s * w.s / (1.0 + w.c))
                              : (b2.s * b1.c + b2.c * b1.s) - b1.s * b2.c * (w.s * w.s / (1.0 - w.c));
    out.sin_sigma = std::sqrt(out.s_alpha1 * out.s_alpha1 + out.c_alpha1 * out.c_alpha1);
    out.cos_sigma = b1.s * b2.s + b1.c * b2.c * w.c;
    return out;
}

// Near the antipode: section 5, on a plane tangent there.
Heading antipodal_start(const GeodesicSeries &g, const Ends &p)
{
    const Heading &b1 = p.beta1, &b2 = p.beta2;
    const double D = g.e.f * KL_PI * b1.c * A3_of(g, eps_of(g.ep2 * b1.s * b1.s));
    const double x = -p.to_antipode_deg * KL_RAD_PER_DEG / D;
    const double y = (b2.s * b1.c + b2.c * b1.s) / (D * b1.c);
    if (y > -4e-14 && x > -1.0 - 1.5e-5) { // on the cut locus itself
        const double s = std::min(1.0, -x);
        return {s, -std::sqrt((1.0 - s) * (1.0 + s))};
    }
    const double mu = astroid(x, y);
    const SineCosine<double> w = sine_cosine(-D * x * mu / (1.0 + mu));
    const GreatCircle c = great_circle(p, {w.s, -w.c});
    return normal(c.s_alpha1, c.c_alpha1);
}

// Elsewhere: the great circle to where point 2 is on the auxiliary sphere, omega12 = lambda12 + f sin alpha0 I3, with
// alpha0 and I3 of the great circle to lambda12. Off by the flattening squared.
Heading sphere_start(const GeodesicSeries &g, const Ends &p, const GreatCircle &c)
{
    const double s0 = c.s_alpha1 / c.sin_sigma * p.beta1.c;
    const double eps = 0.25 * g.ep2 * (1.0 - s0 * s0);
    const double d = g.e.f * s0 * arc_tangent(c.sin_sigma, c.cos_sigma) * (1.0 - 0.5 * eps); // below 0.011
    const double sin_d = d * (1.0 - d * d / 6.0);
    const double cos_d = 1.0 - 0.5 * d * d;
    const Heading &w = p.lambda;
    const GreatCircle better = great_circle(p, {w.s * cos_d + w.c * sin_d, w.c * cos_d - w.s * sin_d});
    return normal(better.s_alpha1, better.c_alpha1);
}

GeodesicLine line_of(const GeodesicSeries &g, const Trial &t)
{
    return {g.e.b * length_in_b(t.arc, t.eps), t.alpha1, t.alpha2, true};
}

Heading turned(const Heading &x, double angle)
{
    const SineCosine<double> d = sine_cosine(angle);
    return normal(x.s * d.c + x.c * d.s, x.c * d.c - x.s * d.s);
}

// The line that a last small turn of its start leads to point 2. A path that ends dlambda further along the parallel is
// longer by a sin alpha0 dlambda, with the alpha0 halfway.
GeodesicLine line_after_turn(const GeodesicSeries &g, const Ends &p, const Trial &t, double turn)
{
    const double s0 = t.s0 + 0.5 * turn * t.alpha1.c * p.beta1.c;
    const Heading alpha1 = turned(t.alpha1, turn);
    return {g.e.b * length_in_b(t.arc, t.eps) - g.e.a * s0 * t.beyond, alpha1, arrival(p, alpha1).alpha2, true};
}

// Newton's steps within a bracket of alpha1, in which the longitude grows. Near the antipode slopes change too fast for
// a last step that is not tried.
GeodesicLine solve(const GeodesicSeries &g, const Ends &p, Heading alpha1, bool antipodal)
{
    constexpr int kMostSteps = 100;
    constexpr double kLastTurn2 = 1e-17; // of which the error is 2 turn^2/cos alpha2
    Heading low = {kLeastCosine, 1.0};
    Heading high = {kLeastCosine, -1.0};
    const auto behind = [](const Heading &a, const Heading &b) { return a.s * b.c - a.c * b.s < 0.0; };
    bool last = false;
    for (int i = 0; i < kMostSteps; ++i) {
        const Trial t = trial(g, p, alpha1);
        if (last || t.beyond == 0.0)
            return line_of(g, t);
        (t.beyond > 0.0 ? high : low) = alpha1;
        const double slope = longitude_slope(g, p, t);
        const double turn = -t.beyond / slope;
        if (!antipodal && slope > 0.0 && turn * turn <= kLastTurn2 * t.alpha2.c)
            return line_after_turn(g, p, t, turn);
        last = std::fabs(t.beyond) <= 16.0 * kUlp;
        if (slope > 0.0 && std::fabs(turn) < KL_PI) {
            const Heading next = turned(alpha1, turn);
            if (next.s > 0.0 && behind(low, next) && behind(next, high)) {
                alpha1 = next;
                continue;
            }
        }
        if (last)
            return line_of(g, t);
        alpha1 = normal(low.s + high.s, low.c + high.c);
        if (!behind(low, alpha1) || !behind(alpha1, high)) // the bracket is a rounding wide
            last = true;
    }
    return {0.0, {0.0, 1.0}, {0.0, 1.0}, false};
}

GeodesicLine meridian(const GeodesicSeries &g, const Ends &p)
{
    const Heading alpha1 = p.lambda;
    Arc arc;
    arc.sigma1 = normal(p.beta1.s, alpha1.c * p.beta1.c);
    arc.sigma2 = p.beta2;
    arc.length = angle_between(arc.sigma1, arc.sigma2);
    return {g.e.b * length_in_b(arc, eps_of(g.ep2)), alpha1, {0.0, 1.0}, true};
}

GeodesicLine canonical(const GeodesicSeries &g, const Ends &p)
{
    const bool pole = p.beta1.c <= kLeastCosine;
    // On an oblate ellipsoid a meridian is never longer than another path.
    if (p.lambda_deg == 0.0 || p.to_antipode_deg == 0.0 || pole)
        return meridian(g, p);
    if (p.beta1.s == 0.0 && p.to_antipode_deg >= g.e.f * 180.0)
        return {g.e.a * (p.lambda_deg * KL_RAD_PER_DEG), {1.0, 0.0}, {1.0, 0.0}, true};

    const Heading &b1 = p.beta1, &b2 = p.beta2;
    const double lambda = p.lambda_deg * KL_RAD_PER_DEG;
    const double short_sigma = 0.1 * 0x1p-26 * 1.4142135623730951 / std::sqrt(g.e.f / 2.0);
    if (p.lambda.c > 0.0 && b1.c * b2.c + b1.s * b2.s > 0.0 && b2.s * b1.c - b2.c * b1.s < 2.0 * short_sigma
        && b2.c * lambda < 2.0 * short_sigma) { // the sphere that fits best between the two latitudes
        const double sum_s = (b1.s + b2.s) * (b1.s + b2.s);
        const double sum_c = (b1.c + b2.c) * (b1.c + b2.c);
        const double d = std::sqrt(1.0 + g.ep2 * (sum_s / (sum_s + sum_c)));
        const SineCosine<double> w = sine_cosine(lambda / (g.e.k * d));
        const GreatCircle c = great_circle(p, {w.s, w.c});
        if (c.sin_sigma < short_sigma) {
            // alpha2 on the same sphere: ph(sin(b2 - b1) - cos b1 sin b2 (1 - cos w) + i cos b1 sin w)
            const double c2 = (b2.s * b1.c - b2.c * b1.s) - b1.c * b2.s * (w.s * w.s / (1.0 + w.c));
            return {g.e.b * d * arc_tangent(c.sin_sigma, c.cos_sigma), normal(c.s_alpha1, c.c_alpha1),
                    normal(b1.c * w.s, c2), true};
        }
    }
    const GreatCircle c = great_circle(p, p.lambda);
    if (c.cos_sigma < 0.0 && c.sin_sigma < 6.0 * std::fabs(g.n) * KL_PI * b1.c * b1.c)
        return solve(g, p, antipodal_start(g, p), true);
    return solve(g, p, sphere_start(g, p, c), false);
}

// Degrees below which squares and products of sines would vanish: none of them is a width of an atom.
double without_dust(double degrees)
{
    return std::fabs(degrees) < 1e-100 ? 0.0 : degrees;
}

// Reduced latitude, its cosine never 0.
Heading reduced_latitude(const Ellipsoid &e, double lat_deg)
{
    const Heading x = of_degrees(lat_deg);
    const Heading beta = normal(e.k * x.s, x.c);
    return {beta.s, std::max(beta.c, kLeastCosine)};
}

// lon2 - lon1 within half a turn, deg, without rounding.
Exact<double> longitude_difference(double lon1, double lon2)
{
    Exact<double> d = exact_sum(lon2, -lon1);
    d.high -= 360.0 * std::round(d.high / 360.0);
    d = exact_sum(without_dust(d.high), without_dust(d.low));
    if ((d.high == 180.0 && d.low > 0.0) || (d.high == -180.0 && d.low < 0.0))
        d.high = -d.high;
    return d;
}

} // namespace

GeodesicSeries geodesic_series(const Ellipsoid &e)
{
    const double n = e.f / (2.0 - e.f);
    const double n2 = n * n;
    return {e,
            n,
            e.e2 / ((1.0 - e.f) * (1.0 - e.f)),
            // equation 24
            {1.0, -(1.0 / 2.0 - n / 2.0), -(1.0 / 4.0 + n / 8.0 - 3.0 * n2 / 8.0),
             -(1.0 / 16.0 + 3.0 * n / 16.0 + n2 / 16.0), -(3.0 / 64.0 + n / 32.0), -3.0 / 128.0},
            // equation 25
            {1.0 / 4.0 - n / 4.0, 1.0 / 8.0 - n2 / 8.0, 3.0 / 64.0 + 3.0 * n / 64.0 - n2 / 64.0, 5.0 / 128.0 + n / 64.0,
             3.0 / 128.0, // l = 1
             1.0 / 16.0 - 3.0 * n / 32.0 + n2 / 32.0, 3.0 / 64.0 - n / 32.0 - 3.0 * n2 / 64.0, 3.0 / 128.0 + n / 128.0,
             5.0 / 256.0,                                                                                 // l = 2
             5.0 / 192.0 - 3.0 * n / 64.0 + 5.0 * n2 / 192.0, 3.0 / 128.0 - 5.0 * n / 192.0, 7.0 / 512.0, // l = 3
             7.0 / 512.0 - 7.0 * n / 256.0, 7.0 / 512.0,                                                  // l = 4
             21.0 / 2560.0}};                                                                             // l = 5
}

GeodesicLine geodesic_between(const GeodesicSeries &g, double lat1, double lon1, double lat2, double lon2)
{
    lat1 = without_dust(lat1);
    lat2 = without_dust(lat2);
    if (lat1 == lat2 && std::fabs(lat1) == 90.0)
        return {0.0, {0.0, 1.0}, {0.0, 1.0}, true};
    const bool exchanged = std::fabs(lat1) < std::fabs(lat2);
    if (exchanged) {
        std::swap(lat1, lat2);
        std::swap(lon1, lon2);
    }
    Exact<double> d = longitude_difference(lon1, lon2);
    const bool westward = d.high < 0.0 || (d.high == 0.0 && d.low < 0.0);
    if (westward)
        d = {-d.high, -d.low};
    const bool mirrored = !(lat1 < 0.0); // equal latitudes on the equator: the northern path
    if (mirrored) {
        lat1 = -lat1;
        lat2 = -lat2;
    }
    Ends p;
    p.beta1 = reduced_latitude(g.e, lat1);
    p.beta2 = reduced_latitude(g.e, lat2);
    // Latitudes that are one by the better of sine and cosine are one by the other.
    if (near_pole(p.beta1) ? p.beta2.c == p.beta1.c : std::fabs(p.beta2.s) == -p.beta1.s)
        p.beta2 = {std::copysign(p.beta1.s, p.beta2.s), p.beta1.c};
    p.lambda_deg = d.high + d.low;
    p.to_antipode_deg = (180.0 - d.high) - d.low;
    const Heading far = of_degrees(p.to_antipode_deg);
    p.lambda = p.lambda_deg > 90.0 ? Heading{far.s, -far.c} : of_degrees(p.lambda_deg);
    if (lat1 == lat2 && p.lambda_deg == 0.0)
        return {0.0, {0.0, 1.0}, {0.0, 1.0}, true};

    GeodesicLine line = canonical(g, p);
    Heading &a1 = line.azimuth1, &a2 = line.azimuth2;
    if (mirrored) {
        a1.c = -a1.c;
        a2.c = -a2.c;
    }
    if (westward) {
        a1.s = -a1.s;
        a2.s = -a2.s;
    }
    if (exchanged) { // the same path, travelled the other way
        std::swap(a1, a2);
        a1 = {-a1.s, -a1.c};
        a2 = {-a2.s, -a2.c};
    }
    return line;
}

GeodesicEnd geodesic_from(const GeodesicSeries &g, double lat1, double lon1, double azimuth_deg, double distance)
{
    const Heading alpha1 = of_degrees(without_dust(azimuth_deg));
    const Heading beta1 = reduced_latitude(g.e, without_dust(lat1));
    const double s0 = alpha1.s * beta1.c;
    const double c0 = std::sqrt(alpha1.c * alpha1.c + (alpha1.s * beta1.s) * (alpha1.s * beta1.s));
    const double k2 = g.ep2 * c0 * c0;
    const double eps = eps_of(k2);
    const double along1 = beta1.s == 0.0 && alpha1.c == 0.0 ? 1.0 : alpha1.c * beta1.c;
    const Heading sigma1 = normal(beta1.s, along1);

    // sigma12 of I1(sigma1 + sigma12) - I1(sigma1) = s/b; dI1/dsigma = sqrt(1 + k2 sin^2 sigma)
    const ArcSeries I1 = first_series(eps);
    const double wanted = distance / (g.e.b * I1.A);
    const double start = sine_series(I1.C, sigma1);
    const auto at = [&](double length) {
        const SineCosine<double> x = sine_cosine(length);
        return Heading{sigma1.s * x.c + sigma1.c * x.s, sigma1.c * x.c - sigma1.s * x.s};
    };
    double length = wanted;
    Heading sigma2 = at(length);
    for (int i = 0; i < 4; ++i) {
        const double excess = length - wanted + (sine_series(I1.C, sigma2) - start);
        const double step = -excess * I1.A / std::sqrt(1.0 + k2 * sigma2.s * sigma2.s);
        length += step;
        sigma2 = at(length);
        if (std::fabs(step) < 1e-9)
            break;
    }

    const double beta2_s = c0 * sigma2.s;
    const double beta2_c = std::sqrt(s0 * s0 + (c0 * sigma2.c) * (c0 * sigma2.c));
    // omega12 of the whole arc: whole turns go with those of sigma12.
    const double east = std::copysign(1.0, s0);
    const double omega1 = arc_tangent(std::fabs(s0) * sigma1.s, sigma1.c) - arc_tangent(sigma1.s, sigma1.c);
    const double omega2 = arc_tangent(std::fabs(s0) * sigma2.s, sigma2.c) - arc_tangent(sigma2.s, sigma2.c);
    const LongitudeSeries I3 = third_series(g, eps);
    const double less = g.e.f * s0 * I3.A3 * (length + (sine_series(I3.C3, sigma2) - sine_series(I3.C3, sigma1)));
    const double lambda12 = east * (length + (omega2 - omega1)) - less;
    return {arc_tangent(beta2_s, g.e.k * beta2_c) * KL_DEG_PER_RAD, lon1 + reduced(lambda12) * KL_DEG_PER_RAD,
            s0 == 0.0 && sigma2.c == 0.0 ? Heading{0.0, alpha1.c} : normal(s0, c0 * sigma2.c)};
}
