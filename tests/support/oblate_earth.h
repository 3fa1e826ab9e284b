// Motion about a point mass with J2, by Runge and Kutta's method of order 4. Source: O. Montenbruck and E. Gill,
// Satellite Orbits (2000), 3.2.
#ifndef KL_TESTS_SUPPORT_OBLATE_EARTH_H
#define KL_TESTS_SUPPORT_OBLATE_EARTH_H

#include <array>
#include <cmath>
#include <cstddef>

struct OblateEarth {
    using State = std::array<double, 6>; // m, m/s

    double gm, j2, radius;

    State rates(const State &x) const
    {
        const double r2 = x[0] * x[0] + x[1] * x[1] + x[2] * x[2];
        const double k = 1.5 * j2 * radius * radius / r2;
        const double z2 = 5.0 * x[2] * x[2] / r2;
        const double f = -gm / (r2 * std::sqrt(r2));
        return {x[3],
                x[4],
                x[5],
                f * x[0] * (1.0 + k * (1.0 - z2)),
                f * x[1] * (1.0 + k * (1.0 - z2)),
                f * x[2] * (1.0 + k * (3.0 - z2))};
    }

    State step(const State &x, double h) const
    {
        const auto ahead = [&](const State &k, double by) {
            State y = x;
            for (std::size_t i = 0; i < 6; ++i)
                y[i] += by * k[i];
            return y;
        };
        const State k1 = rates(x), k2 = rates(ahead(k1, h / 2)), k3 = rates(ahead(k2, h / 2)), k4 = rates(ahead(k3, h));
        State y = x;
        for (std::size_t i = 0; i < 6; ++i)
            y[i] += h / 6.0 * (k1[i] + 2.0 * k2[i] + 2.0 * k3[i] + k4[i]);
        return y;
    }
};

#endif
