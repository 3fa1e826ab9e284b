// Rotations and quaternions: laws over awkward rotations, values by 30-digit arithmetic (mpmath, Rodrigues' formula and
// products of elementary rotations), and every condition.
#include "kl_family.h"
#include "support/captured_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using Quaternion = std::array<double, 4>;
using Matrix = std::array<double, 9>; // row by row

constexpr double kRounding = 4e-15; // a few dozen roundings of numbers up to 1
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kPi = 3.14159265358979323846;
constexpr long kErrorBit = LONG_MIN;
constexpr long kWarningBit = 1L << 30;

Quaternion about(double x, double y, double z, double angle)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    const double s = std::sin(angle / 2.0) / length;
    return {x * s, y * s, z * s, std::cos(angle / 2.0)};
}

Matrix matrix_of(const Quaternion &q)
{
    double x[3];
    double y[3];
    double z[3];
    long ierr[1];
    EXPECT_EQ(kl_quaternions_to_vectors(q.data(), x, y, z, ierr), KL_OK);
    return {x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2]};
}

Quaternion quaternion_of(const Matrix &m)
{
    const double x[3] = {m[0], m[3], m[6]};
    const double y[3] = {m[1], m[4], m[7]};
    const double z[3] = {m[2], m[5], m[8]};
    Quaternion q{};
    long ierr[1];
    EXPECT_EQ(kl_vectors_to_quaternions(x, y, z, q.data(), ierr), KL_OK);
    return q;
}

double distance(const Matrix &a, const Matrix &b)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < 9; ++i)
        largest = std::max(largest, std::fabs(a[i] - b[i]));
    return largest;
}

double distance(const Quaternion &a, const Quaternion &b) // the same rotation has two signs
{
    double plus = 0.0;
    double minus = 0.0;
    for (std::size_t i = 0; i < 4; ++i) {
        plus = std::max(plus, std::fabs(a[i] - b[i]));
        minus = std::max(minus, std::fabs(a[i] + b[i]));
    }
    return std::min(plus, minus);
}

// Half turns about and between the axes, tiny ones, thirds of a turn about a diagonal, and a spread of others.
std::vector<Quaternion> awkward()
{
    std::vector<Quaternion> all = {{0.0, 0.0, 0.0, 1.0}, {0.0, 0.0, 0.0, -1.0}};
    const double axes[][3] = {{1, 0, 0},  {0, 1, 0}, {0, 0, 1},  {1, 1, 0},   {0, 1, 1},
                              {1, 0, -1}, {1, 1, 1}, {-1, 2, 3}, {1, 1e-9, 0}};
    for (const auto &e : axes)
        for (const double angle : {1e-12, 1e-7, 0.1, kPi / 2, 2 * kPi / 3, 3.0, kPi - 1e-8, kPi, kPi + 1e-8, 5.0})
            all.push_back(about(e[0], e[1], e[2], angle));
    return all;
}

TEST(Quaternions, AgreeWithRodriguesFormula)
{
    // 77 deg about (1, -2, 2)/3
    const Quaternion q = {0.207504878879206517, -0.415009757758413034, 0.415009757758413034, 0.782608156852413914};
    const Matrix expected = {0.311067603861213332,  0.477346944155460152,  0.821813142224853486,   //
                             -0.821813142224853486, 0.569417252413258332,  -0.0196761764743149247, //
                             -0.477346944155460152, -0.669256219664471744, 0.569417252413258332};
    EXPECT_LT(distance(matrix_of(q), expected), kRounding);
    EXPECT_LT(distance(quaternion_of(expected), q), kRounding);
}

TEST(Quaternions, ComeBackFromTheirVectorsForEveryAwkwardRotation)
{
    for (const Quaternion &q : awkward()) {
        const Matrix m = matrix_of(q);
        EXPECT_LT(distance(quaternion_of(m), q), kRounding) << q[0] << " " << q[1] << " " << q[2] << " " << q[3];
        double inverse[9];
        double product[9];
        KL_transpose(m.data(), inverse);
        KL_mult_mm(m.data(), inverse, product);
        for (int i = 0; i < 9; ++i)
            EXPECT_NEAR(product[i], i % 4 == 0 ? 1.0 : 0.0, kRounding);
    }
}

// The matrix of a product is the product of the matrices, second factor first: a law of this sign of vectors.
TEST(Quaternions, ProductsFollowTheMatrices)
{
    const std::vector<Quaternion> all = awkward();
    for (std::size_t i = 0; i < all.size(); i += 7)
        for (const Quaternion &r : all) {
            Quaternion product{};
            KL_Quaternion_product(all[i].data(), r.data(), product.data());
            Matrix both{};
            KL_mult_mm(matrix_of(r).data(), matrix_of(all[i]).data(), both.data());
            EXPECT_LT(distance(matrix_of(product), both), kRounding);
        }
    Quaternion q = about(1, 2, 3, 0.7);
    Quaternion inverse{};
    KL_Quaternion_inverse(q.data(), inverse.data());
    KL_Quaternion_product(q.data(), inverse.data(), q.data()); // in place
    EXPECT_LT(distance(q, {0.0, 0.0, 0.0, 1.0}), kRounding);
}

struct Interpolation {
    long status;
    long ierr;
    Quaternion q, q2;
};

Interpolation interpolate(const Quaternion &q1, const Quaternion &q2, double t1, double t2, double t,
                          long mode = KL_INTERPOL_SLERP)
{
    Interpolation out = {0, 0, {}, q2};
    out.status = kl_quaternions_interpol(&mode, &t1, q1.data(), &t2, out.q2.data(), &t, out.q.data(), &out.ierr);
    return out;
}

TEST(Interpolation, TurnsAtAConstantRateInsideAndBeyond)
{
    const Quaternion start = about(1, -2, 3, 0.4);
    for (const double whole : {1e-6, 1e-4, 0.5, 2.0, 3.0}) {
        Quaternion end{};
        KL_Quaternion_product(start.data(), about(2, 1, -1, whole).data(), end.data());
        for (const double u : {0.0, 0.25, 0.5, 1.0, 1.5, -0.5}) {
            Quaternion expected{};
            KL_Quaternion_product(start.data(), about(2, 1, -1, u * whole).data(), expected.data());
            const Interpolation got = interpolate(start, end, 10.0, 12.0, 10.0 + 2.0 * u);
            const bool inside = u >= 0.0 && u <= 1.0;
            EXPECT_EQ(got.status, inside ? KL_OK : KL_WARN);
            EXPECT_EQ(got.ierr, inside ? 0 : kWarningBit | 1L << KL_QUATERNIONS_INTERPOL_RANGE_WARN);
            // Below 5e-5 rad weights are linear; the angle of an extrapolation comes from an arc cosine near 1.
            const double tolerance = inside ? 1e-14 : 4e-16 / std::min(whole, 1.0) + 3e-14;
            EXPECT_LT(distance(got.q, expected), tolerance) << whole << " " << u;
        }
    }
}

TEST(Interpolation, NegatesTheSecondQuaternionInPlaceOnPurpose)
{
    const Quaternion q = about(1, 2, 3, 0.7);
    const Quaternion opposite = {-q[0], -q[1], -q[2], -q[3]};
    for (const double t : {0.0, 0.3, 1.0}) {
        const Interpolation got = interpolate(q, opposite, 0.0, 1.0, t);
        EXPECT_EQ(got.status, KL_OK);
        EXPECT_LT(distance(got.q, q), kRounding);
        EXPECT_EQ(got.q2, q) << "left negated";
    }
    // A little off the opposite: the short way, still half way.
    Quaternion other{};
    KL_Quaternion_product(opposite.data(), about(0, 0, 1, 0.2).data(), other.data());
    Quaternion half{};
    KL_Quaternion_product(q.data(), about(0, 0, 1, 0.1).data(), half.data());
    EXPECT_LT(distance(interpolate(q, other, 0.0, 1.0, 0.5).q, half), kRounding);
}

TEST(Interpolation, LooksAtTheModeOnlyInsideOnPurpose)
{
    const Quaternion a = about(1, 0, 0, 0.1);
    const Quaternion b = about(1, 0, 0, 0.3);
    const Interpolation inside = interpolate(a, b, 0.0, 1.0, 0.5, 1);
    EXPECT_EQ(inside.status, KL_ERR);
    EXPECT_EQ(inside.ierr, kErrorBit | 1L << KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR);
    EXPECT_EQ(interpolate(a, b, 0.0, 1.0, 1.5, 1).status, KL_WARN);
}

TEST(Interpolation, GuardsWhatHasNoAnswer)
{
    const Quaternion q = about(3, 2, 1, 1.0);
    const Interpolation equal = interpolate(q, q, 0.0, 1.0, 5.0);
    EXPECT_EQ(equal.status, KL_WARN);
    EXPECT_LT(distance(equal.q, q), kRounding) << "equal quaternions extrapolate to themselves";
    EXPECT_EQ(interpolate(q, q, 2.0, 2.0, 2.0).status, KL_OK);
    const Quaternion null = {0.0, 0.0, 0.0, 0.0};
    const Quaternion bad = {0.0, kNaN, 0.0, 1.0};
    for (const Interpolation &got : {interpolate(q, q, 2.0, 2.0, 3.0), interpolate(q, q, 0.0, 1.0, kNaN),
                                     interpolate(q, q, kNaN, 1.0, 0.5), interpolate(q, q, 0.0, 1.0, kInfinity),
                                     interpolate(null, q, 0.0, 1.0, 0.5), interpolate(q, bad, 0.0, 1.0, 2.0)}) {
        EXPECT_EQ(got.status, KL_ERR);
        EXPECT_EQ(got.ierr, kErrorBit | 1L << KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR);
        EXPECT_EQ(got.q, Quaternion{}) << "outputs stay as they were";
    }
}

TEST(EulerAngles, AgreeWithProductsOfElementaryRotations)
{
    struct Case {
        double angles[3];
        Matrix matrix;
    };
    const Case cases[] = {
        {{20.0, -35.0, 140.0},
         {-0.753605534857249761, 0.60402277355505369, 0.259297487182924408, -0.376262249556791744,
          -0.719846310392954192, 0.58330781665610587, 0.538985544695756276, 0.342020143325668733,
          0.769751131320057191}},
        {{-70.5, 170.0, -3.25},
         {-0.973943929994065149, -0.0189244413577384352, 0.225997979519758192, -0.219256209660670643,
          0.333269987833906339, -0.916983004059739353, -0.0579649527986658637, -0.942641491092178395,
          -0.328735582982072384}},
        {{0.0, 0.0, 0.0}, {1, 0, 0, 0, 1, 0, 0, 0, 1}},
        {{0.0, 0.0, 90.0}, {0, 1, 0, -1, 0, 0, 0, 0, 1}},
    };
    for (const Case &c : cases) {
        Matrix m{};
        double back[3];
        long ierr[1] = {-7};
        ASSERT_EQ(kl_euler_to_matrix(c.angles, m.data(), ierr), KL_OK);
        EXPECT_EQ(ierr[0], 0);
        EXPECT_LT(distance(m, c.matrix), kRounding);
        ASSERT_EQ(kl_matrix_to_euler(m.data(), back, ierr), KL_OK);
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(back[i], c.angles[i], 1e-12);
    }
}

TEST(EulerAngles, ComeBackUpToTheGimbalLock)
{
    for (const double side : {1.0, -1.0})
        for (const double off : {1.0, 1e-3, 6e-5, 6e-6, 5.8e-8}) // deg from the lock; the last is 1.01e-9 rad
            for (const double yaw : {-179.0, 0.0, 33.0, 180.0}) {
                const double angles[3] = {side * (90.0 - off), 12.0, yaw};
                double m[9];
                double back[3];
                double again[9];
                long ierr[1];
                kl_euler_to_matrix(angles, m, ierr);
                // Within 1e-6 rad the elements divided by the cosine lose their digits: refused then, never wrong.
                if (const long status = kl_matrix_to_euler(m, back, ierr); status != KL_OK) {
                    EXPECT_LT(off, 6e-5) << yaw;
                    EXPECT_EQ(ierr[0], kErrorBit | 1L << KL_MATRIX_TO_EULER_ROTATION_ERR);
                    continue;
                }
                for (const double angle : back)
                    EXPECT_TRUE(angle > -180.0 && angle <= 180.0);
                kl_euler_to_matrix(back, again, ierr);
                for (int i = 0; i < 9; ++i)
                    EXPECT_NEAR(again[i], m[i], 1e-9) << off << " " << yaw;
            }
}

TEST(EulerAngles, AtTheLockTheFirstIs90Or270OnPurpose)
{
    for (const double side : {1.0, -1.0})
        for (const double off : {0.0, 5.5e-8}) { // deg; 0.96e-9 rad
            const double angles[3] = {side * (90.0 - off), 12.0, 33.0};
            double m[9];
            double back[3];
            double again[9];
            long ierr[1];
            kl_euler_to_matrix(angles, m, ierr);
            EXPECT_EQ(kl_matrix_to_euler(m, back, ierr), KL_WARN);
            EXPECT_EQ(ierr[0], kWarningBit | 1L << KL_MATRIX_TO_EULER_AMBIGUITY_WARN);
            EXPECT_EQ(back[0], side > 0.0 ? 90.0 : 270.0);
            EXPECT_EQ(back[2], 0.0);
            kl_euler_to_matrix(back, again, ierr);
            for (int i = 0; i < 9; ++i)
                EXPECT_NEAR(again[i], m[i], 2e-9) << side;
        }
}

TEST(AxisSets, AnglesAndTurnedVectorsAreInverse)
{
    const double x[3] = {2.0, 0.0, 1.0}; // lengths do not matter
    const double y[3] = {0.0, -3.0, 0.0};
    const double z[3] = {0.5, 0.0, -1.0};
    for (const auto &angles :
         {std::array<double, 3>{20.0, -35.0, 140.0}, {-70.5, 170.0, -3.25}, {0.0, 0.0, 180.0}, {1e-9, 0.0, 0.0}}) {
        double x2[3];
        double y2[3];
        double z2[3];
        double back[3];
        long ierr[1];
        ASSERT_EQ(kl_get_rotated_vectors(x, y, z, angles.data(), x2, y2, z2, ierr), KL_OK);
        ASSERT_EQ(kl_get_rotation_angles(x, y, z, x2, y2, z2, back, ierr), KL_OK);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(back[i], angles[i], 1e-12);
    }
    // The rows of the matrix of the angles are the second set along the first.
    const double ex[3] = {1.0, 0.0, 0.0};
    const double ey[3] = {0.0, 1.0, 0.0};
    const double ez[3] = {0.0, 0.0, 1.0};
    const double angles[3] = {20.0, -35.0, 140.0};
    double rows[9];
    double m[9];
    long ierr[1];
    kl_get_rotated_vectors(ex, ey, ez, angles, rows, rows + 3, rows + 6, ierr);
    kl_euler_to_matrix(angles, m, ierr);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(rows[i], m[i], kRounding);
    // At the lock the third angle is 0 and nothing is said.
    double back[3];
    const double lock[3] = {90.0, 10.0, 5.0};
    kl_get_rotated_vectors(ex, ey, ez, lock, rows, rows + 3, rows + 6, ierr);
    EXPECT_EQ(kl_get_rotation_angles(ex, ey, ez, rows, rows + 3, rows + 6, back, ierr), KL_OK);
    EXPECT_EQ(back[2], 0.0);
}

TEST(Conditions, OfEveryRotationFunction)
{
    const double ex[3] = {1.0, 0.0, 0.0};
    const double ey[3] = {0.0, 1.0, 0.0};
    const double ez[3] = {0.0, 0.0, 1.0};
    const double left[3] = {0.0, 0.0, -1.0};
    const double null[3] = {0.0, 0.0, 0.0};
    const double bad[3] = {0.0, kNaN, 1.0};
    const double leaning[3] = {0.0, 2e-6, 1.0};
    const double angles[3] = {1.0, 2.0, 3.0};
    const double wild[3] = {1.0, kInfinity, 3.0};
    const double long_quaternion[4] = {0.0, 0.0, 0.0, 1.0 + 2e-6};
    const double fair_quaternion[4] = {0.0, 0.0, 0.0, 1.0 + 5e-7};
    const double nan_quaternion[4] = {0.0, 0.0, 0.0, kNaN};
    const double one[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    const double mirror[9] = {1, 0, 0, 0, 1, 0, 0, 0, -1};
    const double mirror_at_lock[9] = {1, 0, 0, 0, 0, 1, 0, 1, 0}; // M(2,1) = 1: an ambiguous rotation of the other hand
    const double stretched[9] = {1.000002, 0, 0, 0, 1, 0, 0, 0, 1};
    const double nan_matrix[9] = {1, 0, 0, 0, kNaN, 0, 0, 0, 1};
    const double noisy[9] = {1, 1e-7, 0, -1e-7, 1, 1e-7, 0, 0, 1};
    double out[9];
    double q[4];
    const auto to_vectors = [&](const double *in, long *e) {
        return kl_quaternions_to_vectors(in, out, out + 3, out + 6, e);
    };
    const auto to_quaternion = [&](const double *a, const double *b, const double *c, long *e) {
        return kl_vectors_to_quaternions(a, b, c, q, e);
    };
    const auto to_angles = [&](const double *in, long *e) { return kl_matrix_to_euler(in, out, e); };
    const auto between = [&](const double *a, const double *b, const double *c, long *e) {
        return kl_get_rotation_angles(ex, ey, ez, a, b, c, out, e);
    };
    const auto turned = [&](const double *a, const double *b, const double *c, const double *by, long *e) {
        return kl_get_rotated_vectors(a, b, c, by, out, out + 3, out + 6, e);
    };
    constexpr int kNone = -1;
    struct Case {
        const char *name;
        long status;
        long ierr;
        int bit;
    };
    const auto run = [](const char *name, auto call, int bit) {
        long ierr[1] = {-7};
        const long status = call(ierr);
        return Case{name, status, ierr[0], bit};
    };
    const Case cases[] = {
        run(
            "quaternion too long", [&](long *e) { return to_vectors(long_quaternion, e); },
            KL_QUATERNIONS_TO_VECTORS_MODULE_ERR),
        run(
            "quaternion just fair", [&](long *e) { return to_vectors(fair_quaternion, e); }, kNone),
        run(
            "quaternion NaN", [&](long *e) { return to_vectors(nan_quaternion, e); },
            KL_QUATERNIONS_TO_VECTORS_MODULE_ERR),
        run(
            "quaternion NULL", [&](long *e) { return to_vectors(nullptr, e); }, KL_QUATERNIONS_TO_VECTORS_MODULE_ERR),
        run(
            "left-handed vectors", [&](long *e) { return to_quaternion(ex, ey, left, e); },
            KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR),
        run(
            "null vector", [&](long *e) { return to_quaternion(ex, null, ez, e); },
            KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR),
        run(
            "vector NULL", [&](long *e) { return to_quaternion(ex, ey, nullptr, e); },
            KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR),
        run(
            "vectors not orthogonal", [&](long *e) { return to_quaternion(ex, ey, leaning, e); },
            KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR),
        run(
            "vector NaN", [&](long *e) { return to_quaternion(ex, ey, bad, e); },
            KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR),
        run(
            "matrix fair", [&](long *e) { return to_angles(one, e); }, kNone),
        run(
            "matrix stretched", [&](long *e) { return to_angles(stretched, e); }, KL_MATRIX_TO_EULER_ORTHONORMAL_ERR),
        run(
            "matrix NaN", [&](long *e) { return to_angles(nan_matrix, e); }, KL_MATRIX_TO_EULER_ORTHONORMAL_ERR),
        run(
            "matrix NULL", [&](long *e) { return to_angles(nullptr, e); }, KL_MATRIX_TO_EULER_ORTHONORMAL_ERR),
        run(
            "matrix of the other hand", [&](long *e) { return to_angles(mirror, e); }, KL_MATRIX_TO_EULER_ROTATION_ERR),
        run(
            "matrix with noise", [&](long *e) { return to_angles(noisy, e); }, KL_MATRIX_TO_EULER_ROTATION_ERR),
        run(
            "axes of the other hand", [&](long *e) { return between(ex, ey, left, e); },
            KL_GET_ROTATION_ANGLES_ROTATION_ERR),
        run(
            "axes not orthogonal", [&](long *e) { return between(ex, ey, leaning, e); },
            KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR),
        run(
            "axis null", [&](long *e) { return between(ex, null, ez, e); }, KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR),
        run(
            "axis NULL", [&](long *e) { return between(ex, nullptr, ez, e); }, KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR),
        run(
            "axes fair", [&](long *e) { return between(ex, ey, ez, e); }, kNone),
        run(
            "turned axes not orthogonal", [&](long *e) { return turned(ex, ey, leaning, angles, e); },
            KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR),
        run(
            "angles not finite", [&](long *e) { return turned(ex, ey, ez, wild, e); },
            KL_GET_ROTATED_VECTORS_ROTATION_ERR),
        run(
            "angles NULL", [&](long *e) { return turned(ex, ey, ez, nullptr, e); },
            KL_GET_ROTATED_VECTORS_ROTATION_ERR),
    };
    for (const Case &c : cases) {
        EXPECT_EQ(c.status, c.bit == kNone ? KL_OK : KL_ERR) << c.name;
        EXPECT_EQ(c.ierr, c.bit == kNone ? 0 : kErrorBit | 1L << c.bit) << c.name;
    }
    long ierr[1];
    EXPECT_EQ(to_angles(mirror_at_lock, ierr), KL_WARN);
    // Missing outputs, and no vector at all.
    EXPECT_EQ(kl_quaternions_to_vectors(fair_quaternion, nullptr, out, out, nullptr), KL_ERR);
    EXPECT_EQ(kl_vectors_to_quaternions(ex, ey, ez, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(kl_matrix_to_euler(one, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(kl_euler_to_matrix(nullptr, out, nullptr), KL_ERR);
    EXPECT_EQ(kl_euler_to_matrix(angles, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(kl_get_rotation_angles(ex, ey, ez, ex, ey, ez, nullptr, nullptr), KL_ERR);
    EXPECT_EQ(kl_get_rotated_vectors(ex, ey, ez, angles, nullptr, out, out, nullptr), KL_ERR);
    EXPECT_EQ(kl_quaternions_interpol(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), KL_ERR);
}

} // namespace
