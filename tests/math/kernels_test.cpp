// Vectors, matrices and solvers. Values of the 3x3 example by 40-digit arithmetic (mpmath).
#include "kl_family.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kRelative = 1e-14; // a dozen roundings
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr double kExample[9] = {2.5, -1.0, 0.75, 0.5, 3.0, -2.0, 1.25, 0.25, 4.0};
constexpr double kExampleInverse[9] = {0.378429517502365184,  0.126773888363292337,   -0.00756859035004730369, //
                                       -0.136234626300851466, 0.274361400189214759,   0.162724692526017029,    //
                                       -0.109744560075685904, -0.0567644276253547777, 0.242194891201513718};

// One-based storage that lives with the test.
struct Matrix {
    explicit Matrix(long rows, long columns) : n(rows), m(columns), p(KL_double_matrix(rows, columns)) {}
    ~Matrix() { KL_free_double_matrix(p); }
    Matrix(const Matrix &) = delete;
    Matrix &operator=(const Matrix &) = delete;
    long n, m;
    double **p;
};
struct Vector {
    explicit Vector(long size) : p(KL_double_vector(size)) {}
    ~Vector() { KL_free_double_vector(p); }
    Vector(const Vector &) = delete;
    Vector &operator=(const Vector &) = delete;
    double *p;
};

TEST(VectorLength, BelowTheLimitIsTheSumOfSquaresOnPurpose)
{
    struct Case {
        double x, length;
    };
    for (const Case &c : {Case{1e-11, 1e-22}, {9e-11, 8.1e-21}, {2e-10, 2e-10}, {0.0, 0.0}, {-3.0, 3.0}}) {
        double flat[3] = {c.x, 0.0, 0.0};
        double one_based[4] = {9.0, 0.0, c.x, 0.0};
        EXPECT_DOUBLE_EQ(KL_modulus(flat, 3), c.length);
        EXPECT_DOUBLE_EQ(KL_dvmag(one_based, 3), c.length);
        EXPECT_DOUBLE_EQ(KL_norm(flat, 3), c.length);
        EXPECT_DOUBLE_EQ(KL_dvnorm(one_based, 3), c.length);
        // What counts as null is left alone.
        const double left = c.length > 1e-20 ? std::copysign(1.0, c.x) : c.x;
        EXPECT_DOUBLE_EQ(flat[0], left);
        EXPECT_DOUBLE_EQ(one_based[2], left);
    }
}

TEST(Vectors, ProductsObeyTheirLaws)
{
    std::mt19937_64 random(71);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int n = 0; n < 100; ++n) {
        double a[3];
        double b[3];
        for (int i = 0; i < 3; ++i) {
            a[i] = unit(random);
            b[i] = unit(random);
        }
        double c[3];
        KL_mult3_vv(a, b, c);
        EXPECT_NEAR(KL_mult_vv(a, 3, c), 0.0, kRelative);
        EXPECT_NEAR(KL_mult_vv(b, 3, c), 0.0, kRelative);
        const double ab = KL_mult_vv(a, 3, b);
        EXPECT_NEAR(KL_mult_vv(c, 3, c), KL_mult_vv(a, 3, a) * KL_mult_vv(b, 3, b) - ab * ab, kRelative); // Lagrange
        const double matrix[9] = {a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]};
        EXPECT_NEAR(KL_det(matrix), KL_mult_vv(c, 3, c), kRelative); // triple product
        double a1[4] = {0.0, a[0], a[1], a[2]};
        double b1[4] = {0.0, b[0], b[1], b[2]};
        KL_threedim_dvmult(a1, b1, a1); // in place
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(a1[i + 1], c[i]);
    }
}

// d/dt of a(t)/|a(t)| for a = (1 + t, 2 t, -2) at t = 0: |a|^2 = 5, a' = (1, 2, 0), a.a' = 1.
TEST(Vectors, DerivativeOfAUnitVector)
{
    const double a[3] = {1.0, 0.0, -2.0};
    const double da[3] = {1.0, 2.0, 0.0};
    double out[3];
    KL_Unit_Vector_Deriv(a, da, out);
    const double r5 = std::sqrt(5.0);
    EXPECT_NEAR(out[0], 4.0 / (5.0 * r5), kRelative);
    EXPECT_NEAR(out[1], 2.0 / r5, kRelative);
    EXPECT_NEAR(out[2], 2.0 / (5.0 * r5), kRelative);
}

TEST(Inverses, AllWaysGiveTheExample)
{
    double flat[9];
    double general[9];
    Matrix a(3, 3);
    Matrix by_lu(3, 3);
    KL_flat_to_dm(kExample, a.p);
    ASSERT_EQ(KL_inverse3(kExample, flat), 0);
    ASSERT_EQ(KL_inverse(kExample, 3, 3, general), 0);
    ASSERT_EQ(KL_dminv(a.p, 3, by_lu.p), 0);
    double lu[9];
    KL_dm_to_flat(by_lu.p, lu);
    for (int i = 0; i < 9; ++i) {
        EXPECT_NEAR(flat[i], kExampleInverse[i], kRelative);
        EXPECT_NEAR(general[i], kExampleInverse[i], kRelative);
        EXPECT_NEAR(lu[i], kExampleInverse[i], kRelative);
    }
    EXPECT_NEAR(KL_det(kExample), 33.03125, 33.0 * kRelative);
    EXPECT_NEAR(KL_dm_det(a.p), 33.03125, 33.0 * kRelative);
    EXPECT_NEAR(KL_detm(a.p, 3), 33.03125, 33.0 * kRelative);
    double unchanged[9];
    KL_dm_to_flat(a.p, unchanged);
    EXPECT_TRUE(std::equal(unchanged, unchanged + 9, kExample)) << "inverse and determinant work on copies";
}

TEST(Inverses, PivotsKeepAwkwardMatricesExact)
{
    // A zero first pivot, and rows of very different size.
    const double swapped[9] = {0.0, 2.0, 0.0, 0.0, 0.0, 4.0, 8.0, 0.0, 0.0};
    double out[9];
    ASSERT_EQ(KL_inverse3(swapped, out), 0);
    const double expected[9] = {0.0, 0.0, 0.125, 0.5, 0.0, 0.0, 0.0, 0.25, 0.0};
    EXPECT_TRUE(std::equal(out, out + 9, expected));
    const double singular[9] = {1.0, 0.0, 2.0, 3.0, 0.0, 4.0, 5.0, 0.0, 6.0};
    EXPECT_EQ(KL_inverse3(singular, out), -1);
    EXPECT_EQ(KL_inverse(singular, 3, 3, out), -1);
    EXPECT_EQ(KL_inverse(singular, 0, 3, out), 0) << "sizes below 1 return at once";
}

TEST(LuDecomposition, SolvesHilbertAndHidesSingularity)
{
    Matrix hilbert(4, 4);
    Vector b(4);
    Vector x(4);
    for (int i = 1; i <= 4; ++i) {
        b.p[i] = 0.0;
        for (int j = 1; j <= 4; ++j) {
            hilbert.p[i][j] = 1.0 / (i + j - 1);
            b.p[i] += hilbert.p[i][j] * j; // solution (1, 2, 3, 4)
        }
    }
    ASSERT_EQ(KL_dsolve(hilbert.p, 4, b.p, x.p), 0);
    for (int i = 1; i <= 4; ++i)
        EXPECT_NEAR(x.p[i], i, 1e-11) << "condition number 15 514";
    EXPECT_NEAR(KL_detm(hilbert.p, 4), 1.65343915343915344e-7, 1e-18) << "elements rounded";

    Matrix singular(2, 2);
    singular.p[1][1] = 1.0;
    singular.p[1][2] = 2.0;
    singular.p[2][1] = 2.0;
    singular.p[2][2] = 4.0;
    EXPECT_NEAR(KL_detm(singular.p, 2), 1e-20, 1e-32) << "on purpose: 1e-20 stands for the zero pivot";
    Matrix nothing(3, 3);
    EXPECT_TRUE(std::isfinite(KL_detm(nothing.p, 3)));
    // One swap turns the sign.
    Matrix swap(2, 2);
    swap.p[1][2] = 1.0;
    swap.p[2][1] = 1.0;
    EXPECT_EQ(KL_detm(swap.p, 2), -1.0);
}

TEST(Products, OfAllShapesAgree)
{
    const double a[6] = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0};    // 2 x 3
    const double b[6] = {7.0, 8.0, 9.0, 10.0, 11.0, 12.0}; // 3 x 2
    double out[4];
    KL_mult_mm2(a, 2, 3, b, 2, out);
    const double expected[4] = {58.0, 64.0, 139.0, 154.0};
    EXPECT_TRUE(std::equal(out, out + 4, expected));
    Matrix a1(2, 3);
    Matrix b1(3, 2);
    Matrix out1(2, 2);
    for (int i = 0; i < 6; ++i) {
        a1.p[i / 3 + 1][i % 3 + 1] = a[i];
        b1.p[i / 2 + 1][i % 2 + 1] = b[i];
    }
    KL_dmmult(a1.p, 2, 3, b1.p, 2, out1.p);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(out1.p[i / 2 + 1][i % 2 + 1], expected[i]);
    const double v[4] = {0.0, 1.0, -1.0, 2.0};
    double column[3];
    double column1[3];
    KL_mult_mv2(a, 2, 3, v + 1, column);
    KL_dmvmult(a1.p, 2, 3, v, column1);
    EXPECT_EQ(column[0], 5.0);
    EXPECT_EQ(column[1], 11.0);
    EXPECT_EQ(column1[1], 5.0);
    EXPECT_EQ(column1[2], 11.0);
    double row[4];
    const double u[3] = {0.0, 2.0, -1.0};
    KL_dvmmult(u, 2, a1.p, 3, row);
    EXPECT_EQ(row[1], -2.0);
    EXPECT_EQ(row[2], -1.0);
    EXPECT_EQ(row[3], 0.0);
    // Row times matrix is the transpose times column, in place too.
    double left[3] = {1.0, -2.0, 0.5};
    double right[3] = {1.0, -2.0, 0.5};
    double transposed[9];
    KL_transpose(kExample, transposed);
    KL_mult_vm(left, kExample, left);
    KL_mult_mv(transposed, right, right);
    EXPECT_TRUE(std::equal(left, left + 3, right));
    double square[9];
    KL_copy_m(kExample, square);
    KL_mult_mm(square, kExampleInverse, square);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(square[i], i % 4 == 0 ? 1.0 : 0.0, kRelative);
}

// y = M^-1 v(t) differentiated twice, with M = R(t) scaled: a case with a closed form. M = m(t) I, m = 2 + 3t + 4t^2 at
// t = 0: y = v/2, y' = -3v/4, y'' = v (2 * 9 / 8 - 8 / 4).
TEST(Derivatives, OfAnInverseTimesAVector)
{
    double m[9];
    double dm[9];
    double ddm[9];
    KL_identity(3, 3, m);
    KL_mult_em(m, dm, 3.0);
    KL_mult_em(m, ddm, 8.0);
    KL_mult_em(m, m, 2.0);
    double v[3] = {1.0, -2.0, 4.0};
    const double given[3] = {1.0, -2.0, 4.0};
    double dout[3];
    double ddout[3];
    KL_Vector_derivs(m, dm, ddm, v, v, dout, ddout);
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(v[i], given[i] * 0.5, kRelative);
        EXPECT_NEAR(dout[i], given[i] * -0.75, kRelative);
        EXPECT_NEAR(ddout[i], given[i] * 0.25, kRelative);
    }
}

TEST(Orthonormality, HasItsLimitAndRefusesNaN)
{
    struct Case {
        const char *name;
        double m[9];
        long expected;
    };
    const Case cases[] = {
        {"identity", {1, 0, 0, 0, 1, 0, 0, 0, 1}, 1},
        {"reflection", {1, 0, 0, 0, 1, 0, 0, 0, -1}, 1},
        {"length just inside", {1 + 4e-7, 0, 0, 0, 1, 0, 0, 0, 1}, 1},
        {"squared length just outside", {1 + 6e-7, 0, 0, 0, 1, 0, 0, 0, 1}, 0},
        {"first and last rows not orthogonal", {1, 0, 2e-6, 0, 1, 0, 0, 0, 1}, 0},
        {"NaN", {1, 0, 0, 0, kNaN, 0, 0, 0, 1}, 0},
    };
    for (const Case &c : cases)
        EXPECT_EQ(KL_Check_orthonormal(c.m), c.expected) << c.name;
}

TEST(Allocators, TakeAnyLowerBoundAndRefuseNonsense)
{
    for (const long lo : {-5L, 0L, 1L, 7L}) {
        double *v = KL_dvector(lo, lo + 9);
        int32_t *w = KL_ivector(lo, lo + 9);
        double **m = KL_dmatrix(lo, lo + 2, lo - 1, lo + 3);
        ASSERT_TRUE(v != nullptr && w != nullptr && m != nullptr);
        for (long i = lo; i <= lo + 9; ++i) {
            v[i] = static_cast<double>(i);
            w[i] = static_cast<int32_t>(i);
        }
        for (long i = lo; i <= lo + 2; ++i)
            for (long j = lo - 1; j <= lo + 3; ++j)
                m[i][j] = static_cast<double>(10 * i + j);
        EXPECT_EQ(v[lo + 9], static_cast<double>(lo + 9));
        EXPECT_EQ(w[lo], lo);
        EXPECT_EQ(m[lo + 2][lo - 1], static_cast<double>(10 * (lo + 2) + lo - 1));
        EXPECT_EQ(&m[lo + 1][lo - 1], &m[lo][lo + 3] + 1) << "rows in one block";
        KL_free_dvector(v, lo);
        KL_free_ivector(w, lo);
        KL_free_dmatrix(m, lo, lo - 1);
    }
    constexpr long kHuge = std::numeric_limits<long>::max();
    EXPECT_EQ(KL_dvector(3, 1), nullptr);
    EXPECT_EQ(KL_double_vector(kHuge), nullptr);
    EXPECT_EQ(KL_dvector(-kHuge, kHuge), nullptr);
    EXPECT_EQ(KL_double_matrix(kHuge, kHuge), nullptr);
    EXPECT_EQ(KL_double_matrix(0, 3), nullptr);
    KL_free_double_vector(nullptr);
    KL_free_double_matrix(nullptr);
    kl_vec_der block = {};
    ASSERT_EQ(KL_Alloc_vec_der(&block), 0);
    block.second[3] = 1.0;
    KL_Free_vec_der(&block);
    EXPECT_EQ(block.second, nullptr);
}

} // namespace
