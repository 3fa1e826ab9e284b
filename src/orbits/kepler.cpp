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
    double h[3];
    cross(pos, vel, h);
    const double node_square = h[0] * h[0] + h[1] * h[1];
    const double across = std::sqrt(node_square);
    const double w = std::sqrt(node_square + h[2] * h[2]);
    const double r = std::sqrt(dot3(pos, pos));
    const double speed2 = dot3(vel, vel);
    const double energy = r * speed2 / mu;
    const double to_parabola = 2.0 - energy; // r/a
    if (!spans_plane(r, std::sqrt(speed2), w) || !(std::fabs(to_parabola) >= 1e-9))
        return Conic::neither;
    const double a = r / to_parabola;
    const bool closed = a > 0.0;

    const double i = arc_tangent(across, h[2]);
    const double node = across > 0.0 ? arc_tangent(h[0], -h[1]) : 0.0;
    const double cos_node = across > 0.0 ? -h[1] / across : 1.0;
    const double sin_node = across > 0.0 ? h[0] / across : 0.0;
    // u from r.n and r.(h x n)/w
    const double along = pos[0] * cos_node + pos[1] * sin_node;
    const double beyond =
        (h[2] * (pos[1] * cos_node - pos[0] * sin_node) + pos[2] * (h[0] * sin_node - h[1] * cos_node)) / w;
    const double u = arc_tangent(beyond, along);

    const double size = std::sqrt(mu * std::fabs(a));
    const double C = energy - 1.0;          // e cos E, e cosh H
    const double D = dot3(pos, vel) / size; // e sin E, e sinh H
    const double flat = w / size;           // b/|a|
    if (!(flat * flat > 0x1p-53))           // e cannot be told from 1
        return Conic::neither;
    double e = 0.0;
    double M = u;
    double nu = u;
    if (closed) {
        const double e2 = C * C + D * D;
        e = std::sqrt(e2);
        if (!(e < 1.0))
            return Conic::neither;
        if (e > 0.0) { // On purpose: of a circle the perigee is the node
            M = arc_tangent(D, C) - D;
            nu = arc_tangent(flat * D, C - e2);
        }
    } else {
        const double e2 = 1.0 + flat * flat;
        e = std::sqrt(e2);
        if (!(e > 1.0))
            return Conic::neither;
        M = D - arc_hyperbolic_sine(D / e);
        nu = arc_tangent(flat * D, e2 - C);
    }
    *out = {a, e, i, node, u - nu, M};
    return closed ? Conic::ellipse : Conic::hyperbola;
}
