// Rotations and quaternions: a call that succeeds gives finite numbers.
#include "fuzz_input.h"

#include <cmath>

namespace {

template <std::size_t N>
void expect_finite(long status, const double (&values)[N])
{
    if (status == KL_ERR)
        return;
    for (const double x : values)
        if (!std::isfinite(x))
            __builtin_trap();
}

// Arbitrary numbers, or a unit vector along an axis with a little noise.
template <std::size_t N>
std::array<double, N> direction(FuzzInput &in)
{
    std::array<double, N> v = in.reals<N>();
    if (in.byte() % 2 == 0) {
        v.fill(0.0);
        v[in.byte() % N] = in.byte() % 2 == 0 ? 1.0 : -1.0;
        v[in.byte() % N] += in.bits<std::int8_t>() * 1e-9;
    }
    return v;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    while (!in.empty()) {
        std::array<double, 4> q1 = direction<4>(in);
        std::array<double, 4> q2 = direction<4>(in);
        const std::array<double, 3> x = direction<3>(in);
        const std::array<double, 3> y = direction<3>(in);
        const std::array<double, 3> z = direction<3>(in);
        double v[3][3];
        double q[4];
        double matrix[9];
        double angles[3];
        long ierr[1] = {0};
        long status = 0;
        switch (in.byte() % 7) {
        case 0:
            status =
                kl_quaternions_to_vectors(in.maybe(q1.data()), in.maybe(v[0]), in.maybe(v[1]), in.maybe(v[2]), ierr);
            break;
        case 1:
            status = kl_vectors_to_quaternions(x.data(), y.data(), z.data(), q, ierr);
            expect_finite(status, q);
            break;
        case 2: {
            const long mode = in.byte() % 3;
            const std::array<double, 3> t = in.reals<3>();
            status = kl_quaternions_interpol(in.maybe(&mode), in.maybe(&t[0]), in.maybe(q1.data()), in.maybe(&t[1]),
                                             in.maybe(q2.data()), in.maybe(&t[2]), in.maybe(&q[0]), ierr);
            break;
        }
        case 3:
            status = kl_euler_to_matrix(in.maybe(x.data()), in.maybe(&matrix[0]), ierr);
            break;
        case 4: {
            const std::array<double, 9> m =
                in.byte() % 2 == 0 ? in.reals<9>()
                                   : std::array<double, 9>{x[0], x[1], x[2], y[0], y[1], y[2], z[0], z[1], z[2]};
            status = kl_matrix_to_euler(m.data(), angles, ierr);
            expect_finite(status, angles);
            break;
        }
        case 5: {
            const std::array<double, 3> x2 = direction<3>(in);
            const std::array<double, 3> y2 = direction<3>(in);
            const std::array<double, 3> z2 = direction<3>(in);
            status = kl_get_rotation_angles(x.data(), y.data(), z.data(), in.maybe(x2.data()), in.maybe(y2.data()),
                                            in.maybe(z2.data()), in.maybe(&angles[0]), ierr);
            break;
        }
        default: {
            const std::array<double, 3> a = in.reals<3>();
            status = kl_get_rotated_vectors(in.maybe(x.data()), y.data(), z.data(), in.maybe(a.data()), in.maybe(v[0]),
                                            in.maybe(v[1]), in.maybe(v[2]), ierr);
        }
        }
        expect_status(status, ierr);
    }
    return 0;
}
