#include "orbits/mean_elements.h"

#include <algorithm>
#include <cmath>

namespace {

// Elements without a singularity at e = 0 and at inclinations of 0 or 180 degrees. With sigma = 1 up to 90 degrees and
// -1 above, i* is i or its supplement.
struct Regular {
    double a;
    double k, h;   // e cos, e sin of g + sigma node
    double p, q;   // sin(i*/2) cos, sin of the node
    double lambda; // l + g + sigma node
};

double within_half_turn(double angle)
{
    return reduced(angle);
}

// sin(i*/2), cos(i*/2) of an inclination.
struct HalfInclination {
    double s, c;
};

Elements elements_of(const Regular &y, double sigma)
{
    Elements out;
    out.a = y.a;
    out.e = std::sqrt(y.k * y.k + y.h * y.h);
    const double pericentre = arc_tangent(y.h, y.k);
    const double s2 = y.p * y.p + y.q * y.q;
    const double half = arc_tangent(std::sqrt(s2), std::sqrt(std::max(0.0, 1.0 - s2)));
    out.i = sigma > 0.0 ? 2.0 * half : KL_PI - 2.0 * half;
    out.node = arc_tangent(y.q, y.p);
    out.perigee = pericentre - sigma * out.node;
    out.mean_anomaly = within_half_turn(y.lambda - pericentre);
    return out;
}

Regular regular_of(const Elements &x, double sigma)
{
    const double i = sigma > 0.0 ? x.i : KL_PI - x.i;
    const SineCosine<double> half = sine_cosine(0.5 * i);
    const SineCosine<double> node = sine_cosine(x.node);
    const SineCosine<double> pericentre = sine_cosine(x.perigee + sigma * x.node);
    return {x.a,
            x.e * pericentre.c,
            x.e * pericentre.s,
            half.s * node.c,
            half.s * node.s,
            x.mean_anomaly + x.perigee + sigma * x.node};
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

// Osculating elements of mean ones.
Regular osculating_of(const Oblateness &field, const Elements &x, double sigma)
{
    const SineCosine<double> i = sine_cosine(x.i);
    const ShortPeriodTerms d = short_period_terms(field, x, i);
    const SineCosine<double> half = sine_cosine(sigma > 0.0 ? 0.5 * x.i : 0.5 * (KL_PI - x.i));
    const SineCosine<double> node = sine_cosine(x.node);
    const SineCosine<double> pericentre = sine_cosine(x.perigee + sigma * x.node);
    // e cos l, e sin l with their terms turn into e cos, e sin of g + sigma h by the mean angles: the osculating
    // pericentre is lambda - l.
    const SineCosine<double> l = sine_cosine(x.mean_anomaly);
    const double e_cos = (x.e + d.de) * l.c - d.e_dl * l.s;
    const double e_sin = (x.e + d.de) * l.s + d.e_dl * l.c;
    const double dlambda = d.d_lg + sigma * d.dh;
    const double lambda = x.mean_anomaly + x.perigee + sigma * x.node + dlambda;
    // cos, sin of lambda, as l + pericentre + dlambda
    const SineCosine<double> small = sine_cosine(dlambda);
    const double c0 = l.c * pericentre.c - l.s * pericentre.s;
    const double s0 = l.s * pericentre.c + l.c * pericentre.s;
    const double cl = c0 * small.c - s0 * small.s;
    const double sl = s0 * small.c + c0 * small.s;
    const double tilt = half.s + 0.5 * sigma * d.di * half.c;
    return {x.a + d.da,
            cl * e_cos + sl * e_sin,
            sl * e_cos - cl * e_sin,
            tilt * node.c - half.s * d.dh * node.s,
            tilt * node.s + half.s * d.dh * node.c,
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
    *osculating = elements_of(y, sigma);
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
    const Regular wanted = regular_of(osculating, sigma);
    // A contraction: each step gains two to three digits.
    Regular y = wanted;
    double last = HUGE_VAL;
    for (int n = 0; n < kMostSteps; ++n) {
        const Elements x = elements_of(y, sigma);
        if (!(elliptic(y) && mean_elements_allowed(field, x.a, x.e)))
            return MeanStatus::not_elliptic;
        const Regular got = osculating_of(field, x, sigma);
        const Regular d = {wanted.a - got.a, wanted.k - got.k, wanted.h - got.h,
                           wanted.p - got.p, wanted.q - got.q, within_half_turn(wanted.lambda - got.lambda)};
        double change = std::fabs(d.a) / wanted.a;
        for (const double part : {d.k, d.h, d.p, d.q, d.lambda})
            change = std::max(change, std::fabs(part));
        if (!(change <= kClosing) && n == kMostSteps - 1)
            break;
        if (change <= kClosing && change >= last) {
            *mean = x;
            return MeanStatus::found;
        }
        y = {y.a + d.a, y.k + d.k, y.h + d.h, y.p + d.p, y.q + d.q, y.lambda + d.lambda};
        last = change;
        if (change <= kClosed || (change <= kClosing && n == kMostSteps - 1)) {
            *mean = elements_of(y, sigma);
            return elliptic(y) ? MeanStatus::found : MeanStatus::not_converged;
        }
    }
    return MeanStatus::not_converged;
}
