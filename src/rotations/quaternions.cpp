// Quaternions: vector part first, scalar last. The axis vectors x, y, z are the columns of the attitude matrix.
#include "arrays/array_call.h"
#include "errors/activation.h"
#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double kOrthogonal = 1e-6;     // cosine of the angle between
constexpr double kNearlyEqual = 1e-9;    // of the dot product from 1: linear weights serve
constexpr double kNearlyOpposite = 1e-6; // sine of the angle between
constexpr double kUnitQuaternion = 1e-3; // of a squared length from 1: what products of rounded quaternions may be off
constexpr int kScalar = 3;

// Of four, in two halves that need not wait for one another.
double dot4(const double *a, const double *b)
{
    return (a[0] * b[0] + a[1] * b[1]) + (a[2] * b[2] + a[3] * b[3]);
}

// Neither null nor so long that squares of their product, or of its parts over a small sine, leave the numbers.
bool usable(const double q1[4], const double q2[4])
{
    constexpr double kLongest = 1e250;
    const double square1 = dot4(q1, q1);
    const double square2 = dot4(q2, q2);
    return square1 > KL_NULL_LENGTH_SQUARED && square2 > KL_NULL_LENGTH_SQUARED && square1 * square2 <= kLongest;
}

struct Columns {
    double v[3][3];
    double operator()(int i, int j) const { return v[j][i]; }
};

// The largest component first (Shepperd, J. Guidance and Control 1, 223, 1978); i, j, k in cyclic order.
template <int i, int j, int k>
void from_largest(const Columns &A, double q[4])
{
    const double square = A(i, i) - A(j, j) - A(k, k) + 1.0;
    const double s = std::sqrt(square);
    const double f = 0.5 / square * s; // 1 / (2 s), but root and division at once
    q[i] = s / 2.0;
    q[j] = (A(j, i) + A(i, j)) * f;
    q[k] = (A(k, i) + A(i, k)) * f;
    q[kScalar] = (A(k, j) - A(j, k)) * f;
}

// Quaternion of a matrix, before the sign of the convention.
void provisional_quaternion(const Columns &A, double q[4])
{
    const double trace = A(0, 0) + A(1, 1) + A(2, 2);
    if (trace > 0.0) {
        const double s = std::sqrt(trace + 1.0);
        const double f = 0.5 / (trace + 1.0) * s;
        q[0] = (A(2, 1) - A(1, 2)) * f;
        q[1] = (A(0, 2) - A(2, 0)) * f;
        q[2] = (A(1, 0) - A(0, 1)) * f;
        q[kScalar] = s / 2.0;
        return;
    }
    // Ties keep the earlier axis.
    const double first = std::max(A(0, 0), A(1, 1));
    if (A(2, 2) > first)
        from_largest<2, 0, 1>(A, q);
    else if (A(1, 1) > A(0, 0))
        from_largest<1, 2, 0>(A, q);
    else
        from_largest<0, 1, 2>(A, q);
}

} // namespace

namespace {

void axes_of(const double q[4], double x[3], double y[3], double z[3])
{
    const double q0 = q[0];
    const double q1 = q[1];
    const double q2 = q[2];
    const double q3 = q[kScalar];
    x[0] = q0 * q0 - q1 * q1 - q2 * q2 + q3 * q3;
    y[0] = 2.0 * (q0 * q1 + q2 * q3);
    z[0] = 2.0 * (q0 * q2 - q1 * q3);
    x[1] = 2.0 * (q0 * q1 - q2 * q3);
    y[1] = -q0 * q0 + q1 * q1 - q2 * q2 + q3 * q3;
    z[1] = 2.0 * (q1 * q2 + q0 * q3);
    x[2] = 2.0 * (q0 * q2 + q1 * q3);
    y[2] = 2.0 * (q1 * q2 - q0 * q3);
    z[2] = -q0 * q0 - q1 * q1 + q2 * q2 + q3 * q3;
}

// ---- the calls for one element ----

long quaternions_to_vectors(const double q[4], double x[3], double y[3], double z[3], long *ierr)
{
    Activation call(KL_FN_QUATERNIONS_TO_VECTORS, ierr);
    if (q == nullptr || !is_unit(dot(q, q, 4)))
        return call.fails(KL_QUATERNIONS_TO_VECTORS_MODULE_ERR);
    if (x == nullptr || y == nullptr || z == nullptr)
        return KL_ERR;
    axes_of(q, x, y, z);
    return call.status();
}

long vectors_to_quaternions(const double x[3], const double y[3], const double z[3], double q[4], long *ierr)
{
    Activation call(KL_FN_VECTORS_TO_QUATERNIONS, ierr);
    if (x == nullptr || y == nullptr || z == nullptr)
        return call.fails(KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR);
    if (q == nullptr)
        return KL_ERR;
    const double *const given[3] = {x, y, z};
    Columns axes;
    bool null = false;
    for (int i = 0; i < 3; ++i) {
        const double *const v = given[i];
        const double square = dot3(v, v);
        null |= square <= KL_NULL_LENGTH_SQUARED;
        const double scale = square <= KL_NULL_LENGTH_SQUARED ? 1.0 : per_length(square);
        for (int k = 0; k < 3; ++k)
            axes.v[i][k] = v[k] * scale;
    }
    const bool orthogonal = std::fabs(dot3(axes.v[0], axes.v[1])) <= kOrthogonal
                            && std::fabs(dot3(axes.v[0], axes.v[2])) <= kOrthogonal
                            && std::fabs(dot3(axes.v[1], axes.v[2])) <= kOrthogonal;
    if (!orthogonal)
        return call.fails(KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR);

    double out[4] = {};
    provisional_quaternion(axes, out);
    // The vector part changes its sign: the convention of the attitude matrix.
    const double q0 = -out[0];
    const double q1 = -out[1];
    const double q2 = -out[2];
    const double q3 = out[kScalar];
    // A left-handed set, or a null vector among the three.
    if (null || !is_unit(q0 * q0 + q1 * q1 + q2 * q2 + q3 * q3))
        return call.fails(KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR);
    q[0] = q0;
    q[1] = q1;
    q[2] = q2;
    q[kScalar] = q3;
    return call.status();
}

long quaternions_interpol(const long *mode, const double *t1, const double q1[4], const double *t2, double q2[4],
                          const double *t, double q[4], long *ierr)
{
    Activation call(KL_FN_QUATERNIONS_INTERPOL, ierr);
    if (t1 == nullptr || q1 == nullptr || t2 == nullptr || q2 == nullptr || t == nullptr || q == nullptr)
        return KL_ERR;
    const bool inside = *t1 <= *t && *t <= *t2;
    const double span = *t2 - *t1;
    const double u = *t == *t1 ? 0.0 : span != 0.0 ? (*t - *t1) / span : NAN;
    // A step of the extrapolation is u times an angle of up to a turn.
    if (!std::isfinite(span) || !std::isfinite(KL_TWO_PI * u) || !usable(q1, q2))
        return call.fails(KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR);
    double found[4];
    if (inside) {
        if (mode == nullptr || *mode != KL_INTERPOL_SLERP)
            return call.fails(KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR);
        KL_Slerp_algo(q1, q2, found, u);
    } else {
        // On purpose: the mode is not looked at here.
        call.warns(KL_QUATERNIONS_INTERPOL_RANGE_WARN);
        KL_Quaternion_extrapol(q1, q2, found, u);
    }
    // Of quaternions hardly longer than null ones rounding may leave a null one.
    if (!is_unit(dot4(found, found)))
        return call.fails(KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR);
    KL_copy_v(found, 4, q);
    return call.status();
}

} // namespace

long kl_quaternions_to_vectors(const double q[4], double x[3], double y[3], double z[3], long *ierr)
{
    return quaternions_to_vectors(q, x, y, z, ierr);
}

long kl_vectors_to_quaternions(const double x[3], const double y[3], const double z[3], double q[4], long *ierr)
{
    return vectors_to_quaternions(x, y, z, q, ierr);
}

long kl_quaternions_interpol(const long *mode, const double *t1, const double q1[4], const double *t2, double q2[4],
                             const double *t, double q[4], long *ierr)
{
    return quaternions_interpol(mode, t1, q1, t2, q2, t, q, ierr);
}

// ---- for many ----

long kl_quaternions_to_vectors_n(const long *n, const double q[][4], double x[][3], double y[][3], double z[][3],
                                 long *status, long *ierr)
{
    ArrayCall array(KL_FN_QUATERNIONS_TO_VECTORS, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) { return quaternions_to_vectors(q[i], x[i], y[i], z[i], word); };
    const auto fail = fails_in(x, y, z);
    if (q == nullptr)
        array.call().fails(KL_QUATERNIONS_TO_VECTORS_MODULE_ERR);
    if (q == nullptr || x == nullptr || y == nullptr || z == nullptr)
        return array.refuse(fail);
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        // Few operations: packs would spend more on moving numbers than they save.
        for (long k = 0; k < count; ++k) {
            const double *const given = q[first + k];
            if (is_unit(dot(given, given, 4)))
                axes_of(given, x[first + k], y[first + k], z[first + k]);
            else
                left.add(k);
        }
        return true;
    });
}

long kl_vectors_to_quaternions_n(const long *n, const double x[][3], const double y[][3], const double z[][3],
                                 double q[][4], long *status, long *ierr)
{
    ArrayCall array(KL_FN_VECTORS_TO_QUATERNIONS, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) { return vectors_to_quaternions(x[i], y[i], z[i], q[i], word); };
    const auto fail = fails_in(q);
    const bool null = x == nullptr || y == nullptr || z == nullptr;
    if (null)
        array.call().fails(KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR);
    if (null || q == nullptr)
        return array.refuse(fail);
    return array.each(one, fail);
}

long kl_quaternions_interpol_n(const long *n, const long *mode, const double *t1, const double q1[][4],
                               const double *t2, double q2[][4], const double *t, double q[][4], long *status,
                               long *ierr)
{
    ArrayCall array(KL_FN_QUATERNIONS_INTERPOL, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto one = [&](long i, long *word) {
        return quaternions_interpol(mode, t1 + i, q1[i], t2 + i, q2[i], t + i, q[i], word);
    };
    const auto fail = fails_in(q);
    if (t1 == nullptr || q1 == nullptr || t2 == nullptr || q2 == nullptr || t == nullptr || q == nullptr)
        return array.refuse(fail);
    return array.each(one, fail);
}

void KL_Quaternion_product(const double p[4], const double r[4], double out[4])
{
    double v[3];
    cross(p, r, v);
    const double scalar = p[kScalar] * r[kScalar] - dot(p, r, 3);
    for (int i = 0; i < 3; ++i)
        v[i] += p[kScalar] * r[i] + r[kScalar] * p[i];
    KL_copy_v(v, 3, out);
    out[kScalar] = scalar;
}

void KL_Quaternion_conjugate(const double q[4], double out[4])
{
    for (int i = 0; i < kScalar; ++i)
        out[i] = -q[i];
    out[kScalar] = q[kScalar];
}

void KL_Quaternion_inverse(const double q[4], double out[4])
{
    KL_Quaternion_conjugate(q, out);
}

double KL_Quaternion_norm(double q[4])
{
    return normalise(q, 4);
}

void KL_Quaternion_to_axis_angle(const double q[4], double axis[3], double *angle)
{
    // Near a whole turn the scalar part is 1 but for its last digits: of unit length the vector part tells the angle.
    const double square = dot3(q, q);
    const bool unit = std::fabs(square + q[kScalar] * q[kScalar] - 1.0) <= kUnitQuaternion;
    *angle = 2.0 * (unit ? arc_tangent(std::sqrt(square), q[kScalar]) : arc_cosine(std::clamp(q[kScalar], -1.0, 1.0)));
    // On purpose: degrees against radians, so that this never takes effect for a unit quaternion.
    if (*angle > 180.0)
        *angle -= 360.0;
    const double s = sine_cosine(*angle / 2.0).s;
    KL_mult_ev(3, q, axis, s != 0.0 ? 1.0 / s : 0.0); // without a rotation there is no axis
    normalise(axis, 3);
}

void KL_Angle_axis_to_quaternion(const double axis[3], double out[4], double angle)
{
    const SineCosine half = sine_cosine(angle / 2.0);
    KL_mult_ev(3, axis, out, half.s);
    out[kScalar] = half.c;
}

void KL_Quaternion_extrapol(const double q1[4], const double q2[4], double out[4], double factor)
{
    double step[4];
    double axis[3];
    double angle = 0.0;
    KL_Quaternion_inverse(q1, step);
    KL_Quaternion_product(step, q2, step);
    KL_Quaternion_to_axis_angle(step, axis, &angle);
    KL_Angle_axis_to_quaternion(axis, step, reduced_to_2pi(factor * angle));
    if (dot3(axis, axis) <= KL_NULL_LENGTH_SQUARED) // a whole turn about no axis: the scalar part must not vanish
        step[kScalar] = std::copysign(1.0, step[kScalar]);
    KL_Quaternion_product(q1, step, out);
    normalise(out, 4);
}

void KL_Slerp_algo(const double q1[4], double q2[4], double out[4], double u)
{
    double d = dot4(q1, q2);
    if (d < 0.0) {
        // On purpose: the caller's second quaternion is changed.
        KL_mult_ev(4, q2, q2, -1.0);
        d = -d; // the product anew, to the last bit
    }
    double w1 = 1.0 - u;
    double w2 = u;
    if (std::fabs(d - 1.0) > kNearlyEqual && d <= 1.0) {
        const double sine = std::sqrt((1.0 - d) * (1.0 + d));
        const double per_sine = 1.0 / sine; // done before the angle is
        const double theta = arc_tangent(sine, d);
        double s[2];
        double c[2];
        sin_cos_any({(1.0 - u) * theta, u * theta}, s, c);
        const bool opposite = sine < kNearlyOpposite;
        w1 = opposite ? 0.5 : s[0] * per_sine;
        w2 = opposite ? 0.5 : s[1] * per_sine;
    }
    double between[4];
    for (int i = 0; i < 4; ++i)
        between[i] = w1 * q1[i] + w2 * q2[i];
    const double square = dot4(between, between);
    const double scale = square > KL_NULL_LENGTH_SQUARED ? per_length(square) : 1.0;
    for (int i = 0; i < 4; ++i)
        out[i] = between[i] * scale;
}
