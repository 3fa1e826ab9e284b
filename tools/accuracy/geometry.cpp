// Roots, lines of sight and eclipses against the same in 113 bits and against rings of exact rays.
#include "kl_family.h"
#include "sky.h"

#include <quadmath.h>

namespace {

using Quad = __float128;

constexpr double kA = 6378137.0;
const Quad kFlattening = 1 / strtoflt128("298.257223563", nullptr);
constexpr double kUnit = 0x1p-53;

// ---- roots ----

// A polynomial of random roots of size 1e-3 to 1e3, real ones at least a thousandth apart; the number of real ones.
int random_polynomial(std::mt19937_64 &random, int order, double c[5])
{
    std::uniform_real_distribution<double> size(-3.0, 3.0);
    const auto root = [&] { return std::pow(10.0, size(random)) * (random() % 2 == 0 ? 1.0 : -1.0); };
    Quad exact[5] = {1, 0, 0, 0, 0};
    double real[4] = {};
    int n_real = 0;
    int pairs = static_cast<int>(random() % static_cast<unsigned>(order / 2 + 1));
    for (int n = 0; n < order;) {
        Quad factor[3] = {0, 1, 0};
        if (pairs > 0) {
            const Quad a = root(), b = fabs(static_cast<double>(a)) * (0.01 + std::fabs(root()));
            factor[0] = a * a + b * b;
            factor[1] = -2 * a;
            factor[2] = 1;
            --pairs;
            n += 2;
        } else {
            const double x = root();
            bool apart = true;
            for (int i = 0; i < n_real; ++i)
                apart &= std::fabs(x - real[i]) > 1e-3 * std::fabs(x);
            if (!apart)
                continue;
            real[n_real++] = x;
            factor[0] = -x;
            n += 1;
        }
        Quad product[5] = {0, 0, 0, 0, 0};
        for (int k = 0; k < 5; ++k)
            for (int j = 0; j < 3 && k + j < 5; ++j)
                product[k + j] += exact[k] * factor[j];
        std::copy(product, product + 5, exact);
    }
    for (int k = 0; k < 5; ++k)
        c[k] = static_cast<double>(exact[k]);
    return n_real;
}

// From the root of the rounded coefficients, in units of what rounding these once more can do to it.
double root_error(int order, const double *c, double x)
{
    Quad t = x, slope = 0, sum = 0;
    for (int step = 0; step < 4; ++step) {
        Quad p = 0;
        slope = sum = 0;
        for (int i = order; i >= 0; --i) {
            slope = slope * t + p;
            p = p * t + c[i];
            sum = sum * fabsq(t) + fabs(c[i]);
        }
        t -= p / slope;
    }
    const double unit = static_cast<double>(sum / fabsq(slope)) * kUnit;
    return static_cast<double>(fabsq(t - x)) / std::fmax(unit, kUnit * std::fabs(x));
}

void compare_roots(long count)
{
    std::mt19937_64 random(1);
    long wrong = 0;
    for (long order = 2; order <= 4; ++order) {
        Spread errors;
        for (long i = 0; i < count; ++i) {
            double c[5], roots[4];
            const int expected = random_polynomial(random, static_cast<int>(order), c);
            const long n = KL_Poly_real_roots(order, c, roots);
            wrong += n != expected;
            for (long k = 0; k < n; ++k)
                errors.add(root_error(static_cast<int>(order), c, roots[k]));
        }
        errors.print("real roots, order " + std::to_string(order) + ", gaps of a thousandth and more",
                     "what rounding the coefficients does", "rounding of the last step");
    }
    std::printf("| wrong numbers of roots among all these | roots | 0 | 0 | %ld | |\n", wrong);
}

// ---- lines of sight ----

struct Foot {
    Quad height, n[3]; // n: up
};

// By the equation of the reduced latitude, whose right side contracts by e2.
Foot foot(const Quad p[3])
{
    const Quad k = 1 - kFlattening, e2 = kFlattening * (2 - kFlattening), E = kA * e2;
    const Quad across = sqrtq(p[0] * p[0] + p[1] * p[1]), q = fabsq(p[2]);
    Quad T = k * q / across;
    for (int i = 0; i < 20; ++i)
        T = (k * q + E * T / sqrtq(1 + T * T)) / across;
    const Quad C = 1 / sqrtq(1 + T * T), S = T * C;
    const Quad length = sqrtq(S * S + k * k * C * C), s = S / length, c = k * C / length;
    return {(across - kA * C) * c + (q - kA * k * S) * s, {c * p[0] / across, c * p[1] / across, p[2] < 0 ? -s : s}};
}

struct Line {
    double pos[3], dir[3];
};

// From 200 to 36000 km, past the limb or down.
Line random_line(std::mt19937_64 &random)
{
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double r = kA + 2e5 * std::pow(180.0, unit(random));
    Vector u = {normal(random), normal(random), normal(random)};
    u = scaled(u, r / length(u));
    Vector w = {normal(random), normal(random), normal(random)};
    const double along = (u[0] * w[0] + u[1] * w[1] + u[2] * w[2]) / (r * r);
    w = minus(w, scaled(u, along));
    w = scaled(w, 1.0 / length(w));
    const double sine = std::fmin(1.0, (6.0e6 + 8e5 * unit(random)) / r);
    Line out;
    for (std::size_t i = 0; i < 3; ++i) {
        out.pos[i] = u[i];
        out.dir[i] = -std::sqrt(1.0 - sine * sine) * u[i] / r + sine * w[i];
    }
    return out;
}

void unit_of(const double dir[3], Quad out[3])
{
    Quad square = 0;
    for (int i = 0; i < 3; ++i)
        square += Quad(dir[i]) * dir[i];
    for (int i = 0; i < 3; ++i)
        out[i] = dir[i] / sqrtq(square);
}

void point_of(const Line &line, const Quad u[3], Quad t, Quad out[3])
{
    for (int i = 0; i < 3; ++i)
        out[i] = line.pos[i] + t * u[i];
}

void compare_rays(long count)
{
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> heights(-5e4, 5e5);
    Spread hits, reached, lowest, place;
    for (long i = 0; i < count; ++i) {
        const Line line = random_line(random);
        Quad u[3], p[3];
        unit_of(line.dir, u);
        double t[2], along, point[3];
        kl_geodetic geodetic;
        for (long n = KL_Ray_ellipsoid(nullptr, line.pos, line.dir, 0.0, t); n > 0; --n) {
            point_of(line, u, t[n - 1], p);
            hits.add(1e9 * static_cast<double>(fabsq(foot(p).height)));
        }
        const double height = heights(random);
        for (long n = KL_Ray_height(nullptr, line.pos, line.dir, height, t); n > 0; --n) {
            point_of(line, u, t[n - 1], p);
            reached.add(1e9 * static_cast<double>(fabsq(foot(p).height - height)));
        }
        if (KL_Ray_tangent(nullptr, line.pos, line.dir, &along, point, &geodetic) < 0)
            fail("KL_Ray_tangent");
        Quad best = along; // by secants on the slope of the height
        const auto slope = [&](Quad at) {
            point_of(line, u, at, p);
            const Foot f = foot(p);
            return f.n[0] * u[0] + f.n[1] * u[1] + f.n[2] * u[2];
        };
        for (int step = 0; step < 4; ++step) {
            const Quad here = slope(best), curvature = (slope(best + 1) - slope(best - 1)) / 2;
            best -= here / curvature;
        }
        point_of(line, u, best, p);
        lowest.add(1e9 * static_cast<double>(fabsq(foot(p).height - geodetic.height)));
        place.add(1e9 * static_cast<double>(fabsq(best - along)));
    }
    hits.print("points of kl_ray_ellipsoid, from the ellipsoid, 200 to 36000 km away", "nm",
               "the spacing of the coordinates: 7.5 nm at 36000 km");
    reached.print("heights of kl_ray_height", "nm", "two steps; the spacing of the coordinates");
    lowest.print("lowest height of kl_ray_tangent", "nm", "the spacing of the coordinates");
    place.print("its place along the line", "nm",
                "the step that is left out is of 1 nm; rounding of the slope times the "
                "radius of the Earth");
}

// ---- eclipses ----

bool is_hidden(const Vector &pos, const Vector &w)
{
    const double k = 1.0 - 1.0 / 298.257223563;
    const Vector P = {pos[0], pos[1], pos[2] / k}, W = {w[0], w[1], w[2] / k};
    const auto dot = [](const Vector &a, const Vector &b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; };
    const double t0 = -dot(P, W) / dot(W, W);
    const Vector m = plus(P, scaled(W, t0));
    return t0 > 0.0 && dot(m, m) < kA * kA;
}

// Rings of the Sun's disc, whose hidden arcs are found by bisection.
double visible_part(const Vector &pos, const Vector &sun)
{
    constexpr int kRings = 400;
    constexpr double kPi = 3.14159265358979323846;
    const Vector to_sun = minus(sun, pos);
    const Vector s = scaled(to_sun, 1.0 / length(to_sun));
    const double radius = std::asin(695700e3 / length(to_sun));
    const Vector up = scaled(pos, 1.0 / length(pos));
    const double along = up[0] * s[0] + up[1] * s[1] + up[2] * s[2];
    Vector e = minus(up, scaled(s, along));
    e = scaled(e, 1.0 / length(e));
    const Vector f = {s[1] * e[2] - s[2] * e[1], s[2] * e[0] - s[0] * e[2], s[0] * e[1] - s[1] * e[0]};
    double total = 0.0;
    for (int ring = 0; ring < kRings; ++ring) {
        const double rho = radius * (ring + 0.5) / kRings;
        const auto blocked = [&](double phi) {
            const Vector across = plus(scaled(e, std::cos(phi)), scaled(f, std::sin(phi)));
            return is_hidden(pos, plus(scaled(s, std::cos(rho)), scaled(across, std::sin(rho))));
        };
        for (const double side : {-1.0, 1.0}) {
            const bool top = blocked(0.0), bottom = blocked(side * kPi);
            double low = 0.0, high = kPi;
            for (int step = 0; top != bottom && step < 40; ++step) {
                const double middle = 0.5 * (low + high);
                (blocked(side * middle) == bottom ? high : low) = middle;
            }
            total += (top != bottom ? kPi - low : top ? kPi : 0.0) * std::sin(rho);
        }
    }
    return 1.0 - total * (radius / kRings) / (2.0 * kPi * (1.0 - std::cos(radius)));
}

void compare_eclipses(long count)
{
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    const struct {
        const char *name;
        double r;
        const char *cause;
    } cases[] = {
        {"300 km", 6.67e6, "the limb as a circle; half of it the rings"},
        {"800 km", 7.17e6, "the same"},
        {"geostationary", 4.2164172e7, "the same"},
        {"100 000 km", 1e8, "the same"},
        {"the distance of the Moon", 3.84e8, "the Earth's disc is an ellipse"},
        {"1 400 000 km", 1.4e9, "the Earth's disc is an ellipse"},
    };
    for (const auto &c : cases) {
        Spread apart;
        for (long done = 0; done < count;) {
            const double season = 0.409 * unit(random), au = kAu * (1.0 + 0.017 * unit(random));
            const Vector sun = {au * std::cos(season), 0.0, au * std::sin(season)};
            Vector pos = {unit(random), unit(random), unit(random)};
            // The anti-Sun, turned by the Earth's radius and up to a diameter of the Sun about it.
            const Vector axis = scaled(sun, -1.0 / au);
            const double along = pos[0] * axis[0] + pos[1] * axis[1] + pos[2] * axis[2];
            Vector side = minus(pos, scaled(axis, along));
            side = scaled(side, 1.0 / length(side));
            const double turn = std::fabs(std::asin(6.37e6 / c.r) + 0.0125 * unit(random));
            pos = plus(scaled(axis, c.r * std::cos(turn)), scaled(side, c.r * std::sin(turn)));
            long state = 0;
            double fraction = 0.0, depth = 0.0;
            if (KL_Eclipse(nullptr, pos.data(), sun.data(), nullptr, &state, &fraction, &depth, nullptr) != KL_OK)
                fail("KL_Eclipse");
            if (state != KL_PENUMBRA)
                continue;
            apart.add(fraction - visible_part(pos, sun));
            ++done;
        }
        apart.print(std::string("visible part of the Sun in the penumbra, ") + c.name, "Sun's disc", c.cause);
    }
}

} // namespace

void compare_geometry(const std::vector<double> &instants)
{
    const long count = static_cast<long>(instants.size());
    heading("Roots, lines of sight and eclipses, against 113 bits and rings of exact rays");
    compare_roots(count);
    compare_rays(count);
    compare_eclipses(count / 200);
}
