#include "orbits/kepler.h"

#include "orbits/plane.h"

#include <cmath>
#include <initializer_list>

namespace {

// e sinh H - H - M, and its derivatives.
struct HyperbolaStep {
    double f, f1, f2, f3;
};

// sinh H - H for |H| < 1.
double sinh_less_its_argument(double H)
{
    const double q = H * H;
    double sum = 1.0;
    for (const double factor : {16.0 * 17.0, 14.0 * 15.0, 12.0 * 13.0, 10.0 * 11.0, 8.0 * 9.0, 6.0 * 7.0, 4.0 * 5.0})
        sum = 1.0 + sum * q / factor;
    return H * q * sum / 6.0;
}

// cosh H - 1 without cancellation.
double rise(double sinh, double cosh)
{
    return sinh * (sinh / (1.0 + cosh));
}

HyperbolaStep hyperbola_at(double H, double M, double e)
{
    const double sinh = hyperbolic_sine(H);
    const double cosh = hyperbolic_cosine(H);
    const double f = std::fabs(H) < 1.0 ? ((e - 1.0) * sinh + sinh_less_its_argument(H)) - M : (e * sinh - H) - M;
    return {f, (e - 1.0) + e * rise(sinh, cosh), e * sinh, e * cosh};
}

} // namespace

// M > 0 here; the root of (e-1) H + e H^3/6 = M, or the logarithm, starts steps of fourth order.
double kepler_hyperbola(double mean_anomaly, double e)
{
    const double M = std::fabs(mean_anomaly);
    if (M == 0.0)
        return 0.0;
    const double P3 = 2.0 * (e - 1.0) / e; // P/3
    const double q = 3.0 * (M / e);
    double H = 2.0;
    if (q < 1e3) {
        const double u = cube_root(q + std::sqrt(q * q + P3 * P3 * P3));
        H = u - P3 / u;
        // For small M the two parts cancel; the cubic itself, H (P + H^2) = 2q, gives the digits back.
        H = 2.0 * q / (3.0 * P3 + H * H);
    }
    if (!(H < 1.5))
        H = natural_log(2.0 * (M / e) + 1.8);
    for (int i = 0; i < 32; ++i) {
        const HyperbolaStep s = hyperbola_at(H, M, e);
        const double d2 = -s.f / (s.f1 - 0.5 * s.f * s.f2 / s.f1);
        const double step = -s.f / (s.f1 + d2 * (0.5 * s.f2 + d2 * (s.f3 / 6.0)));
        H += step;
        if (!(std::fabs(step) > 1e-5 * std::fabs(H)))
            break;
    }
    return std::copysign(H, mean_anomaly);
}

OrbitState<double> hyperbola_to_state(double mu, double a, double e, const ElementAngles<double> &angles,
                                      double mean_anomaly)
{
    const double H = kepler_hyperbola(mean_anomaly, e);
    const double sinh = hyperbolic_sine(H);
    const double cosh = hyperbolic_cosine(H);
    const double flat = std::sqrt((e - 1.0) * (e + 1.0)); // b/|a|
    const double rising = rise(sinh, cosh);
    const double speed = std::sqrt(mu / -a) / ((e - 1.0) + e * rising);
    return state_in_plane(plane_axes(angles), a * (rising - (e - 1.0)), -a * flat * sinh, -(speed * sinh),
                          speed * flat * cosh);
}

Conic state_to_elements(double mu, const double pos[3], const double vel[3], Elements *out)
{
    const StateSize<double> size = size_of_state(mu, pos, vel);
    if (!spans_plane(size.r, std::sqrt(size.speed2), size.w) || !(std::fabs(size.to_parabola) >= 1e-9))
        return Conic::neither;
    const PlaceInConic<double> x = place_in_conic(mu, pos, vel, size);
    if (!(x.flat * x.flat > 0x1p-53)) // e cannot be told from 1
        return Conic::neither;
    const bool closed = x.a > 0.0;
    const double e2 = closed ? x.C * x.C + x.D * x.D : 1.0 + x.flat * x.flat;
    const double e = std::sqrt(e2);
    if (!(closed ? e < 1.0 : e > 1.0))
        return Conic::neither;
    EllipseAnomalies<double> anomaly = {x.u, x.u}; // On purpose: of a circle the perigee is the node
    if (!closed)
        anomaly = {x.D - arc_hyperbolic_sine(x.D / e), arc_tangent(x.flat * x.D, e2 - x.C)};
    else if (e > 0.0)
        anomaly = ellipse_anomalies(x, e2);
    *out = {x.a, e, x.i, x.node, x.u - anomaly.nu, anomaly.M};
    return closed ? Conic::ellipse : Conic::hyperbola;
}
