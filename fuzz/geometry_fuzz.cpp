// Roots, lines of sight, ellipses and the shadow of the Earth with any numbers.
#include "fuzz_input.h"

#include "kl_family.h"

#include <cmath>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void require_ascending(const double *x, long n, long most)
{
    require(n >= -1 && n <= most);
    for (long i = 0; i < n; ++i)
        require(!std::isnan(x[i]) && (i == 0 || x[i] >= x[i - 1]));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    while (!in.empty()) {
        switch (in.byte() % 5) {
        case 0: {
            const long order = in.below(6);
            const std::array<double, 6> c = in.reals<6>();
            double roots[4];
            require_ascending(roots, KL_Poly_real_roots(order, c.data(), roots), 4);
            break;
        }
        case 1: {
            const std::array<double, 3> pos = in.reals<3>(), dir = in.reals<3>();
            const double height = in.real();
            double t[2], along, point[3];
            kl_geodetic geodetic;
            require_ascending(t, KL_Ray_ellipsoid(nullptr, pos.data(), dir.data(), height, t), 2);
            require_ascending(t, KL_Ray_height(nullptr, pos.data(), dir.data(), height, t), 2);
            const long meets = KL_Ray_tangent(nullptr, pos.data(), dir.data(), &along, point, &geodetic);
            require(meets < 0 || (meets == 1) == (geodetic.height < 0.0));
            break;
        }
        case 2: {
            const std::array<double, 4> v = in.reals<4>();
            double foot[2], distance;
            if (KL_Ellipse_nearest(v[0], v[1], v[2], v[3], foot, &distance) == 0)
                require(!std::isnan(foot[0]) && !std::isnan(foot[1]));
            (void)KL_Ellipse_arc(v[0], v[1], v[2], v[3]);
            break;
        }
        default: {
            const std::array<double, 3> pos = in.reals<3>(), sun = in.reals<3>();
            const double margin = in.real();
            long state = 0;
            double fraction = 0.0, depth = 0.0;
            if (KL_Eclipse(nullptr, pos.data(), sun.data(), &margin, &state, &fraction, &depth, nullptr) == KL_OK)
                require(state >= KL_SUNLIGHT && state <= KL_ANNULAR && fraction >= 0.0 && fraction <= 1.0
                        && std::isfinite(depth));
        }
        }
    }
    return 0;
}
