#include "orbits/mean_elements.h"

#include <algorithm>
#include <cmath>

namespace {

// Elements without a singularity at e = 0 and at inclinations of 0 or 180 degrees, as they lie relative to other
// elements, so that no angle is ever the sum of large ones. With sigma = 1 up to 90 degrees and -1 above, i* is i or
// its supplement and varpi = g + sigma node.
struct Regular {
    double a;
    double k, h;   // e cos, e sin of the difference of varpi
    double p, q;   // sin(i*/2) cos, sin of the difference of the nodes
    double lambda; // difference of l + g + sigma node
};

double half_star(double i, double sigma)
{
    return sigma > 0.0 ? 0.5 * i : 0.5 * (KL_PI - i);
}

struct Turned {
    double x, y;
};

Turned turned(double x, double y, const SineCosine<double> &by)
{
    return {x * by.c - y * by.s, x * by.s + y * by.c};
}

SineCosine<double> unit_of(double x, double y)
{
    const double r = std::sqrt(x * x + y * y);
    return r > 0.0 ? SineCosine<double>{y / r, x / r} : SineCosine<double>{0.0, 1.0};
}

// The elements that lie so relative to others.
Elements elements_beside(const Elements &from, const Regular &y, double sigma)
{
    const double varpi = arc_tangent(y.h, y.k);
    const double node = arc_tangent(y.q, y.p);
    const double s2 = y.p * y.p + y.q * y.q;
    const double half = arc_tangent(std::sqrt(s2), std::sqrt(std::max(0.0, 1.0 - s2)));
    return {y.a,
            std::sqrt(y.k * y.k + y.h * y.h),
            sigma > 0.0 ? 2.0 * half : KL_PI - 2.0 * half,
            reduced(from.node + node),
            reduced(from.perigee + (varpi - sigma * node)),
            reduced(from.mean_anomaly + (y.lambda - varpi))};
}

// The terms at mean elements, in Brouwer's letters: e_dl is e times the one of l, d_lg that of l + g.
struct ShortPeriodTerms {
    double da, de, di, e_dl, dh, d_lg;
};

ShortPeriodTerms short_period_terms(const Oblateness &field, const Elements &x, const SineCosine<double> &i)
{
    const double e = x.e;
    const double eta2 = (1.0 - e) * (1.0 + e);
    const double eta = std::sqrt(eta2);
    const double eta3 = eta2 * eta;
    const double eta4 = eta2 * eta2;
    const double eta6 = eta4 * eta2;
    const EccentricAnomaly<double> E = kepler_ellipse(x.mean_anomaly, e);
    const double c = (E.c - e) / E.radius; // of the true anomaly f
    const double s = eta * E.s / E.radius;
    // phi = f - l = (f - E) + e sin E
    const double beta = e / (1.0 + eta);
    const double phi = 2.0 * arc_tangent(beta * E.s, 1.0 - beta * E.c) + e * E.s;

    const double th = i.c;
    const double sin2 = i.s * i.s;
    const double A = 3.0 * th * th - 1.0;
    const double B = 3.0 * sin2;
    const double ratio = field.radius / x.a;
    const double g2 = 0.5 * field.j2 * ratio * ratio;
    const double g2p = g2 / eta4;

    // c_k, s_k of 2g + k f
    const SineCosine<double> gg = sine_cosine(2.0 * x.perigee);
    const double c1 = gg.c * c - gg.s * s, s1 = gg.s * c + gg.c * s;
    const double c2 = c1 * c - s1 * s, s2 = s1 * c + c1 * s;
    const double c3 = c2 * c - s2 * s, s3 = s2 * c + c2 * s;

    const double a_r = (1.0 + e * c) / eta2;
    const double W = a_r * a_r * eta2;
    const double K = 3.0 * c + e * (3.0 * c * c + e * (c * c * c));
    // 1 - eta^3 = e^2 (1 + eta + eta^2)/(1 + eta)
    const double one_less_eta3 = e * e * (1.0 + eta + eta2) / (1.0 + eta);
    const double X = 2.0 * A * (W + a_r + 1.0) * s + B * ((1.0 - W - a_r) * s1 + (W + a_r + 1.0 / 3.0) * s3);
    const double cosines = 3.0 * c2 + 3.0 * e * c1 + e * c3;
    const double sines = 3.0 * s2 + 3.0 * e * s1 + e * s3;
    const double turning = 6.0 * (phi + e * s);

    ShortPeriodTerms d;
    d.da = x.a * g2 * (A * (e * K + one_less_eta3) / eta6 + B * (a_r * a_r * a_r) * c2);
    d.de = 0.5 * eta2
           * (g2 * (A * (K + e * (1.0 + eta + eta2) / (1.0 + eta)) + B * (K + e) * c2) / eta6
              - g2p * sin2 * (3.0 * c1 + c3));
    d.di = 0.5 * g2p * th * i.s * cosines;
    d.e_dl = -0.25 * eta3 * g2p * X;
    d.dh = -0.5 * g2p * th * (turning - sines);
    d.d_lg = g2p
             * (eta2 * e * X / (4.0 * (1.0 + eta))
                + 0.25 * ((5.0 * th * th - 1.0) * turning + (3.0 - 5.0 * th * th) * sines));
    return d;
}

// Osculating elements relative to the mean ones.
Regular osculating_of(const Oblateness &field, const Elements &x, double sigma)
{
    const ShortPeriodTerms d = short_period_terms(field, x, sine_cosine(x.i));
    const SineCosine<double> half = sine_cosine(half_star(x.i, sigma));
    // e cos l, e sin l with their terms; what l grows by beyond lambda, varpi loses.
    const SineCosine<double> l = sine_cosine(x.mean_anomaly);
    const double e_cos = (x.e + d.de) * l.c - d.e_dl * l.s;
    const double e_sin = (x.e + d.de) * l.s + d.e_dl * l.c;
    const double lambda = d.d_lg + sigma * d.dh;
    const Turned ahead = turned(l.c, l.s, sine_cosine(lambda));
    return {x.a + d.da,
            ahead.x * e_cos + ahead.y * e_sin,
            ahead.y * e_cos - ahead.x * e_sin,
            half.s + 0.5 * sigma * d.di * half.c,
            half.s * d.dh,
            lambda};
}

double sign_of_inclination(double i)
{
    return i <= 0.5 * KL_PI ? 1.0 : -1.0;
}

bool elliptic(const Regular &y)
{
    return y.a > 0.0 && y.k * y.k + y.h * y.h < 1.0 && y.p * y.p + y.q * y.q <= 1.0;
}

} // namespace

bool mean_elements_allowed(const Oblateness &field, double a, double e)
{
    return e < 0.99 && a * ((1.0 - e) * (1.0 + e)) > 0.5 * field.radius;
}

MeanStatus mean_to_osculating(const Oblateness &field, const Elements &mean, Elements *osculating)
{
    if (!mean_elements_allowed(field, mean.a, mean.e))
        return MeanStatus::not_elliptic;
    const double sigma = sign_of_inclination(mean.i);
    const Regular y = osculating_of(field, mean, sigma);
    if (!elliptic(y))
        return MeanStatus::not_elliptic;
    *osculating = elements_beside(mean, y, sigma);
    return MeanStatus::found;
}

MeanStatus osculating_to_mean(const Oblateness &field, const Elements &osculating, Elements *mean)
{
    if (!mean_elements_allowed(field, osculating.a, osculating.e))
        return MeanStatus::not_elliptic;
    constexpr int kMostSteps = 30;
    constexpr double kClosed = 4e-16;
    constexpr double kClosing = 1e-13;
    const double sigma = sign_of_inclination(osculating.i);
    const double tilt = sine_cosine(half_star(osculating.i, sigma)).s;
    // All relative to the osculating elements. A contraction: each step gains two to three digits.
    Regular y = {osculating.a, osculating.e, 0.0, tilt, 0.0, 0.0};
    double last = HUGE_VAL;
    for (int n = 0; n < kMostSteps; ++n) {
        const Elements x = elements_beside(osculating, y, sigma);
        if (!(elliptic(y) && mean_elements_allowed(field, x.a, x.e)))
            return MeanStatus::not_elliptic;
        const Regular got = osculating_of(field, x, sigma);
        const Turned eccentricity = turned(got.k, got.h, unit_of(y.k, y.h));
        const Turned node = turned(got.p, got.q, unit_of(y.p, y.q));
        const Regular d = {
            osculating.a - got.a,    osculating.e - eccentricity.x, -eccentricity.y, tilt - node.x, -node.y,
            -(y.lambda + got.lambda)};
        double change = std::fabs(d.a) / osculating.a;
        for (const double part : {d.k, d.h, d.p, d.q, d.lambda})
            change = std::max(change, std::fabs(part));
        if (change <= kClosing && change >= last) {
            *mean = x;
            return MeanStatus::found;
        }
        y = {y.a + d.a, y.k + d.k, y.h + d.h, y.p + d.p, y.q + d.q, y.lambda + d.lambda};
        last = change;
        if (change <= kClosed || (change <= kClosing && n == kMostSteps - 1)) {
            *mean = elements_beside(osculating, y, sigma);
            return elliptic(y) ? MeanStatus::found : MeanStatus::not_converged;
        }
    }
    return MeanStatus::not_converged;
}
