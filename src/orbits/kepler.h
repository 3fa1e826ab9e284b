// Kepler's equation, and the way between elements of a conic and a state. Radians, metres, seconds; inertial axes.
#ifndef KL_SRC_ORBITS_KEPLER_H
#define KL_SRC_ORBITS_KEPLER_H

#include "numbers/elementary.h"
#include "numbers/numbers.h"
#include "numbers/pack.h"

inline namespace KL_SET {

template <class T>
struct EccentricAnomaly {
    T E, s, c; // rad; its sine and cosine
    T radius;  // 1 - e cos E
};

// E - sin E for |E| <= 0.3.
template <class T>
T less_its_sine(T E)
{
    const T q = E * E;
    const T sum =
        1.0
        - q * (1.0 / 20.0)
              * (1.0
                 - q * (1.0 / 42.0) * (1.0 - q * (1.0 / 72.0) * (1.0 - q * (1.0 / 110.0) * (1.0 - q * (1.0 / 156.0)))));
    return E * q * sum * (1.0 / 6.0);
}

// 1 - e cos E without cancellation.
template <class T>
T kepler_radius(T s, T c, T e)
{
    return (1.0 - e) + e * select(c > 0.0, s * s / (1.0 + c), 1.0 - c);
}

// A step of fifth order towards the root of E - e sin E - M.
template <class T>
T kepler_step(T E, T s, T c, T M, T e)
{
    const T es = e * s;
    const T ec = e * c;
    const T f = select(fabs(E) > 0.3, E - es, (1.0 - e) * s + less_its_sine(E)) - M;
    const T f1 = kepler_radius(s, c, e);
    const T d3 = -f / (f1 - 0.5 * (f * es) / f1);
    const T d4 = -f / (f1 + d3 * (0.5 * es + d3 * (ec / 6.0)));
    return -f / (f1 + d4 * (0.5 * es + d4 * (ec / 6.0 - d4 * (es / 24.0))));
}

// Mean anomaly -pi to pi, 0 <= e < 1. F. L. Markley, Celest. Mech. Dyn. Astron. 63, 101 (1995), with a second step of
// fifth order: no loop and no test. Off by at most 1.4 times what the rounding of M and e makes.
template <class T>
EccentricAnomaly<T> kepler_ellipse(T mean_anomaly, T e)
{
    const T M = fabs(mean_anomaly);
    const T one_e = 1.0 - e;
    const T alpha = (3.0 * KL_PI * KL_PI + 1.6 * KL_PI * (KL_PI - M) / (1.0 + e)) / (KL_PI * KL_PI - 6.0);
    const T d = 3.0 * one_e + alpha * e;
    const T M2 = M * M;
    const T r = 3.0 * alpha * d * (d - one_e) * M + M2 * M;
    const T q = 2.0 * alpha * d * one_e - M2;
    const T root = cube_root(fabs(r) + sqrt(q * q * q + r * r));
    const T w = root * root;
    T E = (2.0 * r * w / (w * w + w * q + q * q) + M) / d;
    const SineCosine<T> at0 = sine_cosine(E);
    E += kepler_step(E, at0.s, at0.c, M, e);
    const SineCosine<T> at1 = sine_cosine(E);
    const T step = kepler_step(E, at1.s, at1.c, M, e);
    E += step;
    // This step is below 1e-5: sine and cosine follow by their series.
    const T square = step * step;
    const T across = step - square * step / 6.0;
    const T less = square * (0.5 - square / 24.0);
    const T s = at1.s + (across * at1.c - less * at1.s);
    const T c = at1.c - (across * at1.s + less * at1.c);
    return {copysign(E, mean_anomaly), copysign(T(1.0), mean_anomaly) * s, c, kepler_radius(s, c, e)};
}

// A state of two bodies: m, m/s.
template <class T>
struct OrbitState {
    T pos[3], vel[3];
};

// Axes of the orbit plane: P towards the perigee, Q a quarter of a turn further.
template <class T>
struct PlaneAxes {
    T P[3], Q[3];
};

template <class T>
struct ElementAngles {
    T si, ci, sO, cO, sw, cw; // sines and cosines of inclination, node and perigee
};

template <class T>
PlaneAxes<T> plane_axes(const ElementAngles<T> &x)
{
    return {{x.cO * x.cw - x.sO * x.sw * x.ci, x.sO * x.cw + x.cO * x.sw * x.ci, x.sw * x.si},
            {-x.cO * x.sw - x.sO * x.cw * x.ci, -x.sO * x.sw + x.cO * x.cw * x.ci, x.cw * x.si}};
}

template <class T>
OrbitState<T> state_in_plane(const PlaneAxes<T> &axes, T along_P, T along_Q, T speed_P, T speed_Q)
{
    OrbitState<T> out;
    for (int i = 0; i < 3; ++i) {
        out.pos[i] = along_P * axes.P[i] + along_Q * axes.Q[i];
        out.vel[i] = speed_P * axes.P[i] + speed_Q * axes.Q[i];
    }
    return out;
}

// The way back, in three steps; between them the caller looks whether there is a conic.
template <class T>
struct StateSize {
    T h[3];      // r x v
    T across, w; // of its part in the x-y plane, and its length
    T r, speed2;
    T energy, to_parabola; // r v^2/mu; r/a
};

template <class T>
StateSize<T> size_of_state(double mu, const T pos[3], const T vel[3])
{
    StateSize<T> x;
    cross(pos, vel, x.h);
    const T node_square = x.h[0] * x.h[0] + x.h[1] * x.h[1];
    x.across = sqrt(node_square);
    x.w = sqrt(node_square + x.h[2] * x.h[2]);
    x.r = sqrt(dot3(pos, pos));
    x.speed2 = dot3(vel, vel);
    x.energy = x.r * x.speed2 / mu;
    x.to_parabola = 2.0 - x.energy;
    return x;
}

template <class T>
struct PlaceInConic {
    T a, i, node, u; // rad; u from the node to the position
    T C, D;          // e cos E, e sin E; e cosh H, e sinh H
    T flat;          // b/|a|
};

// On purpose: of an orbit in the x-y plane the node is the x axis.
template <class T>
PlaceInConic<T> place_in_conic(double mu, const T pos[3], const T vel[3], const StateSize<T> &x)
{
    PlaceInConic<T> out;
    out.a = x.r / x.to_parabola;
    out.i = arc_tangent(x.across, x.h[2]);
    const auto has_node = x.across > 0.0;
    const T across = select(has_node, x.across, T(1.0));
    const T cos_node = select(has_node, -x.h[1] / across, T(1.0));
    const T sin_node = select(has_node, x.h[0] / across, T(0.0));
    out.node = select(has_node, arc_tangent(x.h[0], -x.h[1]), T(0.0));
    // u from r.n and r.(h x n)/w
    const T along = pos[0] * cos_node + pos[1] * sin_node;
    const T beyond =
        (x.h[2] * (pos[1] * cos_node - pos[0] * sin_node) + pos[2] * (x.h[0] * sin_node - x.h[1] * cos_node)) / x.w;
    out.u = arc_tangent(beyond, along);
    const T size = sqrt(mu * fabs(out.a));
    out.C = x.energy - 1.0;
    out.D = dot3(pos, vel) / size;
    out.flat = x.w / size;
    return out;
}

// Anomalies of an ellipse that is no circle: mean and true.
template <class T>
struct EllipseAnomalies {
    T M, nu;
};

template <class T>
EllipseAnomalies<T> ellipse_anomalies(const PlaceInConic<T> &x, T e2)
{
    return {arc_tangent(x.D, x.C) - x.D, arc_tangent(x.flat * x.D, x.C - e2)};
}

// 0 <= e < 1; mean anomaly -pi to pi.
template <class T>
OrbitState<T> ellipse_to_state(double mu, T a, T e, const ElementAngles<T> &angles, T mean_anomaly)
{
    const EccentricAnomaly<T> x = kepler_ellipse(mean_anomaly, e);
    const T flat = sqrt((1.0 - e) * (1.0 + e)); // b/a
    const T speed = sqrt(mu / a) / x.radius;
    const T along = a * (x.c - e);
    return state_in_plane(plane_axes(angles), along, a * flat * x.s, -(speed * x.s), speed * flat * x.c);
}

} // namespace KL_SET

// ---- what is rare goes by one double at a time ----

double kepler_hyperbola(double mean_anomaly, double e);

// a < 0, e > 1.
OrbitState<double> hyperbola_to_state(double mu, double a, double e, const ElementAngles<double> &angles,
                                      double mean_anomaly);

// Elements of a conic, rad: an ellipse (a > 0) or a hyperbola (a < 0). Angles -pi to pi as they come.
struct Elements {
    double a, e, i, node, perigee, mean_anomaly;
};

enum class Conic { ellipse, hyperbola, neither };

// Neither: a parabola, nearly one, or a straight line.
Conic state_to_elements(double mu, const double pos[3], const double vel[3], Elements *out);

#endif
