// Rotations and quaternions: a call that succeeds gives finite numbers.
#include "fuzz_input.h"

namespace {

// Any numbers, those of unit length, or a direction along an axis with a little noise.
template <std::size_t N>
std::array<double, N> direction(FuzzInput &in)
{
    std::array<double, N> v = in.reals<N>();
    const std::uint8_t choice = in.byte() % 3;
    if (choice == 1) {
        double square = 0.0;
        for (const double x : v)
            square += x * x;
        if (square > 0.0)
            for (double &x : v)
                x /= std::sqrt(square);
    } else if (choice == 2) {
        v.fill(0.0);
        v[in.byte() % N] = in.byte() % 2 == 0 ? 1.0 : -1.0;
        v[in.byte() % N] += in.bits<std::int8_t>() * 1e-9;
    }
    return v;
}

// Three directions row by row: those of a rotation, or each on its own.
std::array<double, 9> three_directions(FuzzInput &in)
{
    std::array<double, 9> m{};
    const std::array<double, 3> angles = in.reals<3>();
    if (in.byte() % 2 == 0 && kl_euler_to_matrix(angles.data(), m.data(), nullptr) == KL_OK)
        return m;
    for (std::size_t i = 0; i < 9; i += 3) {
        const std::array<double, 3> row = direction<3>(in);
        std::copy(row.begin(), row.end(), &m[i]);
    }
    return m;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    while (!in.empty()) {
        double out[9] = {};
        double *const x = &out[0], *const y = &out[3], *const z = &out[6];
        long ierr[1] = {0};
        long status = 0;
        const std::uint8_t what = in.byte() % 7;
        if (what == 0) {
            const std::array<double, 4> q = direction<4>(in);
            status =
                kl_quaternions_to_vectors(in.maybe(q.data()), in.maybe(x), in.maybe(y), in.maybe(z), in.maybe(ierr));
        } else if (what == 1) {
            const long mode = in.below(2);
            const std::array<double, 3> t = in.reals<3>();
            const std::array<double, 4> q1 = direction<4>(in);
            std::array<double, 4> q2 = direction<4>(in);
            status = kl_quaternions_interpol(in.maybe(&mode), in.maybe(&t[0]), in.maybe(q1.data()), in.maybe(&t[1]),
                                             in.maybe(q2.data()), in.maybe(&t[2]), in.maybe(x), in.maybe(ierr));
        } else if (what == 2) {
            const std::array<double, 3> angles = in.reals<3>();
            expect_status(kl_euler_to_matrix(in.maybe(angles.data()), in.maybe(x), in.maybe(ierr)), ierr);
            continue; // angles that are not finite give a matrix of NaN
        } else {
            const std::array<double, 9> m = three_directions(in);
            const double *const x1 = in.maybe(&m[0]), *const y1 = in.maybe(&m[3]), *const z1 = in.maybe(&m[6]);
            if (what == 3) {
                status = kl_vectors_to_quaternions(x1, y1, z1, in.maybe(x), in.maybe(ierr));
            } else if (what == 4) {
                status = kl_matrix_to_euler(x1, in.maybe(x), in.maybe(ierr));
            } else if (what == 5) {
                const std::array<double, 9> m2 = three_directions(in);
                status = kl_get_rotation_angles(x1, y1, z1, in.maybe(&m2[0]), in.maybe(&m2[3]), in.maybe(&m2[6]),
                                                in.maybe(x), in.maybe(ierr));
            } else {
                const std::array<double, 3> angles = in.reals<3>();
                status = kl_get_rotated_vectors(x1, y1, z1, in.maybe(angles.data()), in.maybe(x), in.maybe(y),
                                                in.maybe(z), in.maybe(ierr));
            }
        }
        expect_status(status, ierr);
        expect_finite(status, out);
    }
    return 0;
}
