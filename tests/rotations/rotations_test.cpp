// Rotations and quaternions: laws over awkward rotations, values by 30-digit arithmetic (mpmath, Rodrigues' formula and
// products of elementary rotations), and every condition.
#include "kl_family.h"
#include "support/conditions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <vector>

namespace {

using Quaternion = std::array<double, 4>;
using Matrix = std::array<double, 9>; // row by row
using Vector = std::array<double, 3>;

constexpr double kRounding = 4e-15; // a few dozen roundings of numbers up to 1
constexpr double kPi = 3.14159265358979323846;
constexpr Quaternion kTurn = {0.6, 0.0, 0.0, 0.8};
constexpr Matrix kIdentity = {1, 0, 0, 0, 1, 0, 0, 0, 1};

Quaternion about(double x, double y, double z, double angle)
{
    const double s = std::sin(angle / 2.0) / std::sqrt(x * x + y * y + z * z);
    return {x * s, y * s, z * s, std::cos(angle / 2.0)};
}

Quaternion product(const Quaternion &a, const Quaternion &b)
{
    Quaternion ab;
    KL_Quaternion_product(a.data(), b.data(), ab.data());
    return ab;
}

Matrix product(const Matrix &a, const Matrix &b)
{
    Matrix ab;
    KL_mult_mm(a.data(), b.data(), ab.data());
    return ab;
}

Matrix transposed(const Matrix &m)
{
    Matrix out;
    KL_transpose(m.data(), out.data());
    return out;
}

// The turned axes are the columns.
Matrix matrix_of(const Quaternion &q)
{
    Matrix axes;
    EXPECT_EQ(kl_quaternions_to_vectors(q.data(), &axes[0], &axes[3], &axes[6], nullptr), KL_OK);
    return transposed(axes);
}

Quaternion quaternion_of(const Matrix &m)
{
    const Matrix axes = transposed(m);
    Quaternion q;
    EXPECT_EQ(kl_vectors_to_quaternions(&axes[0], &axes[3], &axes[6], q.data(), nullptr), KL_OK);
    return q;
}

Matrix matrix_of_angles(const Vector &angles)
{
    Matrix m;
    expect_bits("angles to matrix", kNothing, [&](long *e) { return kl_euler_to_matrix(angles.data(), m.data(), e); });
    return m;
}

template <std::size_t N>
double distance(const std::array<double, N> &a, const std::array<double, N> &b, double sign = 1.0)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < N; ++i)
        largest = std::max(largest, std::fabs(a[i] - sign * b[i]));
    return largest;
}

double rotation_between(const Quaternion &a, const Quaternion &b) // the same rotation has two signs
{
    return std::min(distance(a, b), distance(a, b, -1.0));
}

long interpolate(const Quaternion &q1, Quaternion q2, double t1, double t2, double t, long *ierr,
                 long mode = KL_INTERPOL_SLERP)
{
    Quaternion q = kTurn;
    const long status = kl_quaternions_interpol(&mode, &t1, q1.data(), &t2, q2.data(), &t, q.data(), ierr);
    EXPECT_TRUE(status != KL_ERR || q == kTurn) << "a result that fails is untouched";
    return status;
}

// Half turns about and between the axes, tiny ones, thirds of a turn about a diagonal, and a spread of others.
std::vector<Quaternion> awkward()
{
    std::vector<Quaternion> all = {{0.0, 0.0, 0.0, 1.0}, {0.0, 0.0, 0.0, -1.0}};
    const Vector axes[] = {{1, 0, 0},  {0, 1, 0}, {0, 0, 1},  {1, 1, 0},   {0, 1, 1},
                           {1, 0, -1}, {1, 1, 1}, {-1, 2, 3}, {1, 1e-9, 0}};
    for (const auto &[x, y, z] : axes)
        for (const double angle : {1e-12, 1e-7, 0.1, kPi / 2, 2 * kPi / 3, 3.0, kPi - 1e-8, kPi, kPi + 1e-8, 5.0})
            all.push_back(about(x, y, z, angle));
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
    EXPECT_LT(rotation_between(quaternion_of(expected), q), kRounding);
    // The vectors may have any length.
    const Matrix axes = transposed(expected);
    for (const auto &[a, b] : {std::pair(3.0, 1.0 / 7.0), {1.0 + 4e-7, 1.0 - 4e-7}, {1.0 - 6e-7, 1.0 + 6e-7}}) {
        const double x[] = {a * axes[0], a * axes[1], a * axes[2]}, y[] = {b * axes[3], b * axes[4], b * axes[5]};
        Quaternion found;
        EXPECT_EQ(kl_vectors_to_quaternions(x, y, &axes[6], found.data(), nullptr), KL_OK);
        EXPECT_LT(rotation_between(found, q), kRounding);
    }
}

TEST(Quaternions, ComeBackFromTheirVectorsForEveryAwkwardRotation)
{
    for (const Quaternion &q : awkward()) {
        const Matrix m = matrix_of(q);
        EXPECT_LT(rotation_between(quaternion_of(m), q), kRounding) << testing::PrintToString(q);
        EXPECT_LT(distance(product(m, transposed(m)), kIdentity), kRounding) << testing::PrintToString(q);
    }
}

// The matrix of a product is the product of the matrices, second factor first: a law of this sign of vectors.
TEST(Quaternions, ProductsFollowTheMatrices)
{
    const std::vector<Quaternion> all = awkward();
    for (std::size_t i = 0; i < all.size(); i += 7)
        for (const Quaternion &r : all)
            EXPECT_LT(distance(matrix_of(product(all[i], r)), product(matrix_of(r), matrix_of(all[i]))), kRounding);
    Quaternion q = about(1, 2, 3, 0.7), inverse;
    KL_Quaternion_inverse(q.data(), inverse.data());
    KL_Quaternion_product(q.data(), inverse.data(), q.data()); // in place
    EXPECT_LT(rotation_between(q, {0.0, 0.0, 0.0, 1.0}), kRounding);
    Quaternion stretched = {1.0, -2.0, 2.0, 4.0};
    EXPECT_EQ(KL_Quaternion_norm(stretched.data()), 5.0);
    EXPECT_LT(distance(stretched, {0.2, -0.4, 0.4, 0.8}), kRounding);
}

TEST(Interpolation, TurnsAtAConstantRateInsideAndBeyond)
{
    const Quaternion start = about(1, -2, 3, 0.4);
    const long mode = KL_INTERPOL_SLERP;
    const double t1 = 10.0, t2 = 12.0;
    for (const double whole : {0.0, 1e-8, 1e-6, 1e-4, 0.5, 2.0, 3.0})
        for (const double u : {0.0, 0.25, 0.5, 1.0, 1.5, -0.5}) {
            const double t = t1 + u * (t2 - t1);
            const bool inside = u >= 0.0 && u <= 1.0;
            Quaternion end = product(start, about(2, 1, -1, whole)), got;
            expect_bits("rate", inside ? kNothing : warning_bits(KL_QUATERNIONS_INTERPOL_RANGE_WARN), [&](long *e) {
                return kl_quaternions_interpol(&mode, &t1, start.data(), &t2, end.data(), &t, got.data(), e);
            });
            EXPECT_LT(rotation_between(got, product(start, about(2, 1, -1, u * whole))), 1e-14) << whole << " " << u;
        }
    // Six decimals keep a motion of 1e-3 rad, in the vector part only.
    const Quaternion first = {0.0, 0.0, 0.0, 1.0};
    Quaternion second = {0.0005, 0.0, 0.0, 1.0}, got;
    const double after = t1 + 2.0 * (t2 - t1);
    EXPECT_EQ(kl_quaternions_interpol(&mode, &t1, first.data(), &t2, second.data(), &after, got.data(), nullptr),
              KL_WARN);
    EXPECT_LT(distance(got, about(1, 0, 0, 0.002)), 1e-9);
}

TEST(Interpolation, GivesAUnitQuaternionOrItsError)
{
    const long mode = KL_INTERPOL_SLERP;
    const double t1 = 0.0, t2 = 1.0;
    std::vector<Quaternion> seconds = awkward();
    for (const double tiny : {1e-160, 1e-12, 1e-9}) // hardly a vector part; hardly longer than null
        for (const Quaternion &q : {Quaternion{tiny, 0, 0, -1}, {0, 0, 0, -1.1 * tiny}, {tiny, tiny, 0, 0.5}})
            seconds.push_back(q);
    for (const Quaternion &q1 : {Quaternion{0, 0, 0, 1}, kTurn, {0, 0, 0, 0.5}, {0, 1.1e-10, 0, 0}})
        for (const Quaternion &q2 : seconds)
            for (const double t : {-1.0, -0.5, 0.25, 0.5, 1.5, 1.75, 7.5, 1e9}) {
                Quaternion second = q2, q;
                if (kl_quaternions_interpol(&mode, &t1, q1.data(), &t2, second.data(), &t, q.data(), nullptr) == KL_ERR)
                    continue;
                EXPECT_NEAR(std::hypot(std::hypot(q[0], q[1]), std::hypot(q[2], q[3])), 1.0, kRounding)
                    << testing::PrintToString(q1) << testing::PrintToString(q2) << t;
            }
    // A turn of the sign alone is no motion, however far beyond.
    EXPECT_EQ(interpolate({0, 0, 0, 1}, {0, 0, 0, -1}, 0, 1, 1.5, nullptr), KL_WARN);
}

TEST(Interpolation, NegatesTheSecondQuaternionInPlaceOnPurpose)
{
    const Quaternion q = about(1, 2, 3, 0.7);
    const Quaternion opposite = {-q[0], -q[1], -q[2], -q[3]};
    const long mode = KL_INTERPOL_SLERP;
    const double t1 = 0.0, t2 = 1.0;
    for (const double angle : {0.0, 0.2}) // off the opposite: the short way then
        for (const double t : {0.0, 0.3, 1.0}) {
            Quaternion q2 = product(opposite, about(0, 0, 1, angle)), got;
            const Quaternion negated = {-q2[0], -q2[1], -q2[2], -q2[3]};
            EXPECT_EQ(kl_quaternions_interpol(&mode, &t1, q.data(), &t2, q2.data(), &t, got.data(), nullptr), KL_OK);
            EXPECT_LT(rotation_between(got, product(q, about(0, 0, 1, t * angle))), kRounding);
            EXPECT_EQ(q2, negated) << "left negated";
        }
    // Half a turn is as short in either direction: it stays as it is.
    Quaternion half = {1.0, 0.0, 0.0, 0.0}, got;
    const Quaternion none = {0.0, 0.0, 0.0, 1.0};
    const double middle = 0.5;
    EXPECT_EQ(kl_quaternions_interpol(&mode, &t1, none.data(), &t2, half.data(), &middle, got.data(), nullptr), KL_OK);
    EXPECT_LT(distance(got, {std::sqrt(0.5), 0.0, 0.0, std::sqrt(0.5)}), kRounding);
}

TEST(EulerAngles, AgreeWithProductsOfElementaryRotations)
{
    const std::tuple<Vector, Matrix> cases[] = {
#include "rotations/euler_values.inc"
    };
    for (const auto &[angles, matrix] : cases) {
        Vector back;
        EXPECT_LT(distance(matrix_of_angles(angles), matrix), kRounding);
        EXPECT_EQ(kl_matrix_to_euler(matrix_of_angles(angles).data(), back.data(), nullptr), KL_OK);
        EXPECT_LT(distance(back, angles), 1e-12);
    }
}

TEST(EulerAngles, WholeTurnsComeOffExactlyHoweverMany)
{
    const std::tuple<double, double> cases[] = {
#include "rotations/whole_turns.inc"
    };
    for (const auto &[angle, rest] : cases)
        for (std::size_t i = 0; i < 3; ++i) {
            Vector turned = {10.0, 20.0, 30.0}, plain = turned;
            turned[i] = angle;
            plain[i] = rest;
            EXPECT_LT(distance(matrix_of_angles(turned), matrix_of_angles(plain)), kRounding) << angle << " " << i;
        }
    // Quarters of a turn only exchange axes.
    EXPECT_EQ(distance(matrix_of_angles({0.0, 90.0, 180.0}), {0, 0, -1, 0, -1, 0, -1, 0, 0}), 0.0);
}

TEST(EulerAngles, ComeBackUpToTheGimbalLock)
{
    for (const double side : {1.0, -1.0})
        for (const double off : {1.0, 1e-3, 6e-5, 6e-6, 5.8e-8}) // deg from the lock; the last is 1.01e-9 rad
            for (const double yaw : {-179.0, 0.0, 33.0, 180.0}) {
                const Matrix m = matrix_of_angles({side * (90.0 - off), 12.0, yaw});
                Vector back;
                long ierr = 0;
                // Within 1e-6 rad the elements divided by the cosine lose their digits: refused then, never wrong.
                if (kl_matrix_to_euler(m.data(), back.data(), &ierr) != KL_OK) {
                    EXPECT_LT(off, 6e-5) << yaw;
                    EXPECT_EQ(ierr, error_bits(KL_MATRIX_TO_EULER_ROTATION_ERR));
                    continue;
                }
                for (const double angle : back)
                    EXPECT_TRUE(angle > -180.0 && angle <= 180.0);
                EXPECT_LT(distance(matrix_of_angles(back), m), 1e-9) << off << " " << yaw;
            }
}

TEST(EulerAngles, AtTheLockTheFirstIs90Or270OnPurpose)
{
    double angles[3]; // the status alone
    EXPECT_EQ(kl_matrix_to_euler(nullptr, angles, nullptr), KL_ERR);
    EXPECT_EQ(kl_matrix_to_euler(Matrix{1, 0, 0, 0, 0, 1, 0, 1, 0}.data(), angles, nullptr), KL_WARN);
    for (const double side : {1.0, -1.0})
        for (const double off : {0.0, 5.5e-8}) { // deg; 0.96e-9 rad
            const Matrix m = matrix_of_angles({side * (90.0 - off), 12.0, 33.0});
            Vector back;
            expect_bits("at the lock", warning_bits(KL_MATRIX_TO_EULER_AMBIGUITY_WARN),
                        [&](long *e) { return kl_matrix_to_euler(m.data(), back.data(), e); });
            EXPECT_EQ(back[0], side > 0.0 ? 90.0 : 270.0);
            EXPECT_EQ(back[2], 0.0);
            EXPECT_LT(distance(matrix_of_angles(back), m), 2e-9) << side;
        }
}

TEST(AxisSets, AnglesAndTurnedVectorsAreInverse)
{
    const double x[3] = {2.0, 0.0, 1.0}; // lengths do not matter
    const double y[3] = {0.0, -3.0, 0.0}, z[3] = {0.5, 0.0, -1.0}, ex[3] = {1.0, 0.0, 0.0}, ey[3] = {0.0, 1.0, 0.0},
                 ez[3] = {0.0, 0.0, 1.0};
    double out[9];
    for (const Vector &angles :
         {Vector{20.0, -35.0, 140.0}, {-70.5, 170.0, -3.25}, {0.0, 0.0, 180.0}, {1e-9, 0.0, 0.0}}) {
        Vector back;
        ASSERT_EQ(kl_get_rotated_vectors(x, y, z, angles.data(), out, out + 3, out + 6, nullptr), KL_OK);
        ASSERT_EQ(kl_get_rotation_angles(x, y, z, out, out + 3, out + 6, back.data(), nullptr), KL_OK);
        EXPECT_LT(distance(back, angles), 1e-12);
        // The rows of the matrix of the angles are the second set along the first.
        Matrix rows;
        ASSERT_EQ(kl_get_rotated_vectors(ex, ey, ez, angles.data(), &rows[0], &rows[3], &rows[6], nullptr), KL_OK);
        EXPECT_LT(distance(rows, matrix_of_angles(angles)), kRounding);
    }
    // Up to the lock, where a cosine of 1e-9 divides the elements.
    for (const double side : {1.0, -1.0})
        for (const double off : {1e-3, 1e-6, 1e-8, 3e-9, 1.01e-9}) { // rad
            const Vector near = {side * (90.0 - off * 180.0 / kPi), 12.0, 33.0};
            Vector back;
            ASSERT_EQ(kl_get_rotated_vectors(x, y, z, near.data(), out, out + 3, out + 6, nullptr), KL_OK);
            ASSERT_EQ(kl_get_rotation_angles(x, y, z, out, out + 3, out + 6, back.data(), nullptr), KL_OK) << off;
            EXPECT_LT(distance(matrix_of_angles(back), matrix_of_angles(near)), kRounding) << off;
        }
    // At the lock the third angle is 0 and nothing is said.
    const Vector lock = {90.0, 10.0, 5.0};
    Vector back;
    kl_get_rotated_vectors(ex, ey, ez, lock.data(), out, out + 3, out + 6, nullptr);
    EXPECT_EQ(kl_get_rotation_angles(ex, ey, ez, out, out + 3, out + 6, back.data(), nullptr), KL_OK);
    EXPECT_EQ(back[2], 0.0);
}

TEST(Interpolation, LooksAtTheModeOnlyInsideOnPurpose){
    LEAVES(error_bits(KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR), interpolate(kTurn, kTurn, 0, 1, 0.5, e, 1))
        LEAVES(warning_bits(KL_QUATERNIONS_INTERPOL_RANGE_WARN), interpolate(kTurn, kTurn, 0, 1, 1.5, e, 1))}

// About one axis from no turn: the turn of the result is a quarter of the way by angle, or by chord when the two are
// equal to a billionth. The two differ by 1e-15 here.
TEST(Interpolation, GoesByChordWithinABillionthOfEqual)
{
    struct Case {
        double theta; // half turn between the quaternions, rad
        bool by_chord;
    };
    for (const auto &[theta, by_chord] : {Case{4.0e-5, true}, Case{4.6e-5, false}, Case{6.5e-5, false}}) {
        const double q1[4] = {0, 0, 0, 1}, u = 0.25;
        double q2[4] = {0, 0, std::sin(theta), std::cos(theta)}, q[4];
        KL_Slerp_algo(q1, q2, q, u);
        const double half = by_chord ? std::atan2(u * q2[2], (1.0 - u) + u * q2[3]) : u * theta;
        EXPECT_NEAR(q[2], std::sin(half), 1e-18) << theta;
    }
}

} // namespace
