// Vectors, matrices and solvers. Values of the 3x3 example by 40-digit arithmetic (mpmath).
#include "kl_family.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double kRelative = 1e-14; // a dozen roundings
using Numbers = std::vector<double>;

constexpr double kExample[9] = {2.5, -1.0, 0.75, 0.5, 3.0, -2.0, 1.25, 0.25, 4.0};
#include "numbers/turns.inc"
constexpr double kSingular[9] = {1.0, 0.0, 2.0, 3.0, 0.0, 4.0, 5.0, 0.0, 6.0};
const Numbers kExampleInverse = {
#include "numbers/example_inverse.inc"
};

// One-based, made from rows one after the other.
struct Matrix {
    Matrix(long rows, long columns, const Numbers &flat = {}) : n(rows), m(columns), p(KL_double_matrix(rows, columns))
    {
        for (long i = 0; i < static_cast<long>(flat.size()); ++i)
            p[i / m + 1][i % m + 1] = flat[static_cast<std::size_t>(i)];
    }
    ~Matrix() { KL_free_double_matrix(p); }
    Matrix(const Matrix &) = delete;
    Matrix &operator=(const Matrix &) = delete;
    Numbers flat() const
    {
        Numbers out;
        for (long i = 0; i < n * m; ++i)
            out.push_back(p[i / m + 1][i % m + 1]);
        return out;
    }
    long n, m;
    double **p;
};

void expect_near(const Numbers &got, const Numbers &expected, double tolerance = kRelative)
{
    ASSERT_EQ(got.size(), expected.size());
    for (std::size_t i = 0; i < got.size(); ++i)
        EXPECT_NEAR(got[i], expected[i], tolerance) << i;
}

TEST(VectorLength, BelowTheLimitIsTheSumOfSquaresOnPurpose)
{
    constexpr double kXAndLength[][2] = {{1e-11, 1e-22}, {9e-11, 8.1e-21}, {2e-10, 2e-10}, {0.0, 0.0}, {-3.0, 3.0}};
    for (const auto &[x, length] : kXAndLength) {
        double flat[3] = {x, 0.0, 0.0}, one_based[4] = {9.0, 0.0, x, 0.0};
        for (double found : {KL_modulus(flat, 3), KL_dvmag(one_based, 3), KL_norm(flat, 3), KL_dvnorm(one_based, 3)})
            EXPECT_DOUBLE_EQ(found, length);
        const double left = length > 1e-20 ? std::copysign(1.0, x) : x; // what counts as null is left alone
        EXPECT_DOUBLE_EQ(flat[0], left);
        EXPECT_DOUBLE_EQ(one_based[2], left);
    }
}

TEST(Vectors, ProductsOfTwo)
{
    double rows[9] = {2.0, -3.0, 1.0, 4.0, 0.5, -2.0}, one_based[2][4] = {{0.0, 2.0, -3.0, 1.0}, {0.0, 4.0, 0.5, -2.0}};
    KL_mult3_vv(rows, rows + 3, rows + 6);
    EXPECT_EQ(Numbers(rows + 6, rows + 9), Numbers({5.5, 8.0, 13.0}));
    EXPECT_EQ(KL_mult_vv(rows, 3, rows + 3), 4.5);
    EXPECT_NEAR(KL_det(rows), 263.25, 263.0 * kRelative); // the square of the third
    KL_threedim_dvmult(one_based[0], one_based[1], one_based[0]);
    EXPECT_EQ(Numbers(one_based[0] + 1, one_based[1]), Numbers({5.5, 8.0, 13.0})) << "in place";
}

TEST(Inverses, AllWaysGiveTheExample)
{
    Numbers flat(9), general(9);
    const Numbers given(kExample, kExample + 9);
    Matrix a(3, 3, given), by_lu(3, 3);
    ASSERT_EQ(KL_inverse3(kExample, flat.data()), 0);
    ASSERT_EQ(KL_inverse(kExample, 3, 3, general.data()), 0);
    ASSERT_EQ(KL_dminv(a.p, 3, by_lu.p), 0);
    for (const Numbers &inverse : {flat, general, by_lu.flat()})
        expect_near(inverse, kExampleInverse);
    for (double determinant : {KL_det(kExample), KL_dm_det(a.p), KL_detm(a.p, 3)})
        EXPECT_NEAR(determinant, 33.03125, 33.0 * kRelative);
    EXPECT_EQ(a.flat(), given) << "inverse and determinant work on copies";
}

TEST(Inverses, PivotsKeepAwkwardMatricesExact)
{
    const double zero_pivot[9] = {0.0, 2.0, 0.0, 0.0, 0.0, 4.0, 8.0, 0.0, 0.0};
    const double b[4] = {0.0, 2.0, 4.0, 8.0};
    Numbers out(9), x(3);
    ASSERT_EQ(KL_dsolve(Matrix(3, 3, Numbers(zero_pivot, zero_pivot + 9)).p, 3, b, x.data() - 1), 0);
    EXPECT_EQ(x, Numbers({1.0, 1.0, 1.0}));
    EXPECT_EQ(KL_detm(Matrix(2, 2, {0.0, 1.0, 1.0, 0.0}).p, 2), -1.0) << "one swap turns the sign";
    ASSERT_EQ(KL_inverse3(zero_pivot, out.data()), 0);
    EXPECT_EQ(out, Numbers({0.0, 0.0, 0.125, 0.5, 0.0, 0.0, 0.0, 0.25, 0.0}));
    EXPECT_EQ(KL_inverse3(kSingular, out.data()), -1);
    EXPECT_EQ(KL_inverse(kSingular, 3, 3, out.data()), -1);
    EXPECT_EQ(KL_inverse(kSingular, 0, 3, out.data()), 0) << "sizes below 1 return at once";
    for (const auto &[n, m] : {std::pair(2L, 3L), {3L, 2L}})
        EXPECT_EQ(KL_inverse(kExample, n, m, out.data()), -1) << "not square";
}

TEST(LuDecomposition, ATinyNumberStandsForAZeroPivotOnPurpose)
{
    EXPECT_NEAR(KL_detm(Matrix(2, 2, {1.0, 2.0, 2.0, 4.0}).p, 2), 1e-20, 1e-32);
    EXPECT_NEAR(KL_detm(Matrix(2, 2, {0.0, 0.0, 0.0, 5.0}).p, 2), 5e-20, 5e-32) << "a null row stays where it is";
}

TEST(Products, OfAllShapesAgree)
{
    const Numbers a = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0}, b = {7.0, 8.0, 9.0, 10.0, 11.0, 12.0}; // 2 x 3, 3 x 2
    const Matrix a1(2, 3, a), b1(3, 2, b), product1(2, 2);
    Numbers product(4), column(2), column1(2), row(3);
    const double v[4] = {0.0, 1.0, -1.0, 2.0}, u[3] = {0.0, 2.0, -1.0};
    KL_mult_mm2(a.data(), 2, 3, b.data(), 2, product.data());
    KL_dmmult(a1.p, 2, 3, b1.p, 2, product1.p);
    KL_mult_mv2(a.data(), 2, 3, v + 1, column.data());
    KL_dmvmult(a1.p, 2, 3, v, column1.data() - 1);
    KL_dvmmult(u, 2, a1.p, 3, row.data() - 1);
    EXPECT_EQ(product, Numbers({58.0, 64.0, 139.0, 154.0}));
    EXPECT_EQ(product1.flat(), product);
    EXPECT_EQ(column, Numbers({5.0, 11.0}));
    EXPECT_EQ(column1, column);
    EXPECT_EQ(row, Numbers({-2.0, -1.0, 0.0}));
    const Matrix turned(3, 2);
    KL_dmtranspose(a1.p, 2, 3, turned.p);
    EXPECT_EQ(turned.flat(), Numbers({1.0, 4.0, 2.0, 5.0, 3.0, 6.0}));
    // Row times matrix is the transpose times column, in place too.
    Numbers left = {1.0, -2.0, 0.5}, right = left, transposed(9), square(9);
    KL_transpose(kExample, transposed.data());
    KL_mult_vm(left.data(), kExample, left.data());
    KL_mult_mv(transposed.data(), right.data(), right.data());
    EXPECT_EQ(left, right);
    KL_copy_m(kExample, square.data());
    KL_mult_mm(square.data(), kExampleInverse.data(), square.data());
    expect_near(square, {1, 0, 0, 0, 1, 0, 0, 0, 1});
    KL_sub_mm(kExample, transposed.data(), square.data());
    EXPECT_EQ(square, Numbers({0.0, -1.5, -0.5, 1.5, 0.0, -2.25, 0.5, 2.25, 0.0}));
    KL_add_mm(square.data(), transposed.data(), square.data());
    KL_sub_vv(square.data(), 8, kExample, square.data());
    EXPECT_EQ(square, Numbers({0, 0, 0, 0, 0, 0, 0, 0, 4.0})) << "the last is beyond the vector";
}

TEST(Cords, AreScaledResetAndGiveTheirNumbersBack)
{
    const double given[9] = {1.0, -2.0, 3.0, -4.0, 5.0, -6.0, 7.0, -8.0, 9.0};
    double store[2][3][4] = {};
    Cord from = {0, 0, store[0][0], store[0][1], store[0][2]}, to = {0, 0, store[1][0], store[1][1], store[1][2]};
    const auto numbers = [&to] {
        Numbers all(to.pos + 1, to.pos + 4);
        all.insert(all.end(), to.vel + 1, to.vel + 4);
        all.insert(all.end(), to.acc + 1, to.acc + 4);
        return all;
    };
    KL_Cord_Set(KL_EF, 1, given, given + 3, given + 6, &from);
    KL_Mult_Cord(&from, &to, -0.5);
    EXPECT_TRUE(to.cs == KL_EF && to.order == 1);
    EXPECT_EQ(numbers(), Numbers({-0.5, 1.0, -1.5, 2.0, -2.5, 3.0, -3.5, 4.0, -4.5}));
    KL_Cord_Reset(&to);
    EXPECT_TRUE(to.cs == 0 && to.order == 0);
    EXPECT_EQ(numbers(), Numbers(9, 0.0));
}

// Frame rotations: a vector along the next axis comes out along the one after it with a minus. Their derivative by the
// angle is the same turn a quarter further, without the axis itself.
TEST(RotationMatrices, TurnTheAxesAndDifferentiate)
{
    constexpr double kAngle = 0.4, kSine = 0.389418342308650492, kRate = 0.7, kRateOfRate = -0.3;
    Matrix now(3, 3), further(3, 3), first(3, 3), second(3, 3);
    for (const auto &axis : kTurns) {
        axis.turn(kAngle, now.p);
        axis.turn(kAngle + std::acos(0.0), further.p);
        axis.first(kAngle, kRate, first.p);
        axis.second(kAngle, kRate, kRateOfRate, second.p);
        EXPECT_EQ(now.p[axis.fixed][axis.fixed], 1.0);
        EXPECT_NEAR(now.p[axis.next][axis.after], kSine, kRelative);
        EXPECT_NEAR(now.p[axis.after][axis.next], -kSine, kRelative);
        now.p[axis.fixed][axis.fixed] = further.p[axis.fixed][axis.fixed] = 0.0;
        for (std::size_t i = 0; i < 9; ++i) {
            EXPECT_NEAR(first.flat()[i], kRate * further.flat()[i], kRelative);
            EXPECT_NEAR(second.flat()[i], kRateOfRate * further.flat()[i] - kRate * kRate * now.flat()[i], kRelative);
        }
    }
}

// M(t) = (2 + 3t + 4t^2) I at t = 0: y = v/2, y' = -3v/4, y'' = v (2 * 9 / 8 - 8 / 4). And the unit vector along
// (1 + t, 2t, -2): its square is 5, its rate (1, 2, 0), their product 1.
TEST(Derivatives, HaveClosedForms)
{
    double m[9], dm[9], ddm[9];
    KL_identity(3, 3, m);
    KL_mult_em(m, dm, 3.0);
    KL_mult_em(m, ddm, 8.0);
    KL_mult_em(m, m, 2.0);
    Numbers v = {1.0, -2.0, 4.0}, dv(3), ddv(3), unit(3);
    KL_Vector_derivs(m, dm, ddm, v.data(), v.data(), dv.data(), ddv.data());
    expect_near(v, {0.5, -1.0, 2.0});
    expect_near(dv, {-0.75, 1.5, -3.0});
    expect_near(ddv, {0.25, -0.5, 1.0});
    KL_Vector_derivs(kSingular, dm, ddm, v.data(), v.data(), dv.data(), ddv.data());
    for (const Numbers &none : {v, dv, ddv})
        for (double x : none)
            EXPECT_TRUE(std::isnan(x)) << "no inverse, no derivative";
    const double a[3] = {1.0, 0.0, -2.0}, da[3] = {1.0, 2.0, 0.0}, root = std::sqrt(5.0);
    KL_Unit_Vector_Deriv(a, da, unit.data());
    expect_near(unit, {4.0 / (5.0 * root), 2.0 / root, 2.0 / (5.0 * root)});
    const double tiny[3] = {3e-12, 0.0, 4e-12}, across[3] = {0.0, 1e-12, 0.0}; // no rule for small lengths here
    KL_Unit_Vector_Deriv(tiny, across, unit.data());
    expect_near(unit, {0.0, 0.2, 0.0});
}

TEST(Orthonormality, HasItsLimitAndRefusesNaN)
{
#define X(expected, what, ...)                                                                                         \
    EXPECT_EQ(KL_Check_orthonormal(std::array<double, 9>{__VA_ARGS__}.data()), expected) << what;
#include "numbers/orthonormality.inc"
#undef X
}

// Under a sanitizer a step too far shows.
TEST(Allocators, TakeAnyLowerBoundAndRefuseNonsense)
{
    for (const long lo : {-5L, 0L, 1L, 7L}) {
        double *v = KL_dvector(lo, lo + 9), **m = KL_dmatrix(lo, lo + 2, lo - 1, lo + 3);
        int32_t *w = KL_ivector(lo, lo + 9);
        v[lo] = v[lo + 9] = w[lo] = w[lo + 9] = 1;
        m[lo][lo - 1] = m[lo + 2][lo + 3] = 1.0;
        EXPECT_EQ(&m[lo + 1][lo - 1], &m[lo][lo + 3] + 1) << "rows in one block";
        KL_free_dvector(v, lo);
        KL_free_ivector(w, lo);
        KL_free_dmatrix(m, lo, lo - 1);
    }
    constexpr long kHuge = std::numeric_limits<long>::max();
    const void *refused[] = {KL_dvector(3, 1),
                             KL_double_vector(kHuge),
                             KL_dvector(-kHuge, kHuge),
                             KL_double_matrix(kHuge, kHuge),
                             KL_double_matrix(16, 1L << 60),
                             KL_double_matrix(0, 3)};
    for (const void *block : refused)
        EXPECT_EQ(block, nullptr);
    kl_vec_der block = {};
    ASSERT_EQ(KL_Alloc_vec_der(&block), 0);
    block.second[3] = 1.0;
    KL_Free_vec_der(&block);
    EXPECT_EQ(block.second, nullptr);
}

} // namespace
