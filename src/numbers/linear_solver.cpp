// Gauss-Jordan inverses of flat matrices; LU decomposition of one-based ones.
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

namespace {

constexpr double kZeroPivot = 1e-20; // stands for a zero pivot of the LU decomposition, so that it always completes

void swap_rows(double *a, long m, long i, long j)
{
    if (i != j)
        std::swap_ranges(a + i * m, a + (i + 1) * m, a + j * m);
}

// A row of `a` and the same row of `b`: row k -= factor * row i.
void subtract_row(double *a, long m, long k, long i, double factor)
{
    for (long j = 0; j < m; ++j)
        a[k * m + j] -= factor * a[i * m + j];
}

// Scratch that frees itself; null when there is no memory.
struct Scratch {
    explicit Scratch(long n) : p(static_cast<double *>(std::malloc(static_cast<std::size_t>(n) * sizeof(double)))) {}
    ~Scratch() { std::free(p); }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;
    double *p;
};

// A copy of a one-based matrix with the row permutation of its decomposition.
class Decomposition {
public:
    Decomposition(double *const *a, long n) : n_(n), matrix_(KL_double_matrix(n, n)), index_(KL_ivector(1, n))
    {
        if (!ready())
            return;
        KL_dmcopy(a, n, n, matrix_);
        failed_ = KL_ludcmp(matrix_, n, index_, &parity_) != 0;
    }
    ~Decomposition()
    {
        if (matrix_ != nullptr)
            KL_free_double_matrix(matrix_);
        if (index_ != nullptr)
            KL_free_ivector(index_, 1);
    }
    Decomposition(const Decomposition &) = delete;
    Decomposition &operator=(const Decomposition &) = delete;

    bool ready() const { return matrix_ != nullptr && index_ != nullptr && !failed_; }
    void solve(double *b) const { KL_lubksb(matrix_, n_, index_, b); }
    double determinant() const
    {
        double product = parity_;
        for (long i = 1; i <= n_; ++i)
            product *= matrix_[i][i];
        return product;
    }

private:
    long n_;
    double **matrix_;
    int32_t *index_;
    double parity_ = 1.0;
    bool failed_ = false;
};

} // namespace

long KL_inverse_gauss_jordan_reduction(double *a, double *identity, long n, long m, double *out)
{
    if (n < 1 || m < 1)
        return 0;
    if (n > m)
        return -1; // the last rows have no column for a pivot
    for (long i = 0; i < n; ++i) {
        long pivot = i;
        for (long k = i + 1; k < n; ++k)
            if (std::fabs(a[k * m + i]) > std::fabs(a[pivot * m + i]))
                pivot = k;
        swap_rows(a, m, i, pivot);
        swap_rows(identity, m, i, pivot);
        const double divisor = a[i * m + i];
        if (divisor == 0.0)
            return -1;
        for (long j = 0; j < m; ++j) {
            a[i * m + j] /= divisor;
            identity[i * m + j] /= divisor;
        }
        for (long k = 0; k < n; ++k) {
            if (k == i)
                continue;
            const double factor = a[k * m + i];
            subtract_row(a, m, k, i, factor);
            subtract_row(identity, m, k, i, factor);
        }
    }
    KL_copy_v(identity, n * m, out);
    return 0;
}

long KL_inverse(const double *a, long n, long m, double *out)
{
    if (n < 1 || m < 1)
        return 0;
    if (n != m)
        return -1;
    const Scratch work(2 * n * m);
    if (work.p == nullptr)
        return -1;
    KL_copy_v(a, n * m, work.p);
    KL_identity(n, m, work.p + n * m);
    return KL_inverse_gauss_jordan_reduction(work.p, work.p + n * m, n, m, out);
}

long KL_inverse3(const double *a, double *out)
{
    double work[9];
    double identity[9];
    KL_copy_m(a, work);
    KL_identity(3, 3, identity);
    return KL_inverse_gauss_jordan_reduction(work, identity, 3, 3, out);
}

long KL_ludcmp(double **a, long n, int32_t *index, double *parity)
{
    double *scale = KL_double_vector(n);
    if (scale == nullptr)
        return -1;
    *parity = 1.0;
    for (long i = 1; i <= n; ++i) {
        double largest = 0.0;
        for (long j = 1; j <= n; ++j)
            largest = std::max(largest, std::fabs(a[i][j]));
        scale[i] = largest > 0.0 ? 1.0 / largest : 1.0; // a null row meets its zero pivot below
    }
    for (long j = 1; j <= n; ++j) {
        for (long i = 1; i < j; ++i)
            for (long k = 1; k < i; ++k)
                a[i][j] -= a[i][k] * a[k][j];
        long pivot = j;
        double best = -1.0;
        for (long i = j; i <= n; ++i) {
            for (long k = 1; k < j; ++k)
                a[i][j] -= a[i][k] * a[k][j];
            const double size = scale[i] * std::fabs(a[i][j]);
            if (size > best) {
                best = size;
                pivot = i;
            }
        }
        if (pivot != j) {
            std::swap_ranges(a[pivot] + 1, a[pivot] + n + 1, a[j] + 1);
            *parity = -*parity;
            scale[pivot] = scale[j];
        }
        index[j] = static_cast<int32_t>(pivot);
        // On purpose: a singular matrix is not reported.
        if (a[j][j] == 0.0)
            a[j][j] = kZeroPivot;
        for (long i = j + 1; i <= n; ++i)
            a[i][j] /= a[j][j];
    }
    KL_free_double_vector(scale);
    return 0;
}

void KL_lubksb(double *const *a, long n, const int32_t *index, double *b)
{
    for (long i = 1; i <= n; ++i) {
        std::swap(b[i], b[index[i]]);
        // The swap brings the permuted element to its place: later swaps touch later rows only.
        for (long j = 1; j < i; ++j)
            b[i] -= a[i][j] * b[j];
    }
    for (long i = n; i >= 1; --i) {
        for (long j = i + 1; j <= n; ++j)
            b[i] -= a[i][j] * b[j];
        b[i] /= a[i][i];
    }
}

long KL_dsolve(double *const *a, long n, const double *b, double *x)
{
    const Decomposition lu(a, n);
    if (!lu.ready())
        return -1;
    KL_dvcopy(b, n, x);
    lu.solve(x);
    return 0;
}

long KL_dminv(double *const *a, long n, double **out)
{
    const Decomposition lu(a, n);
    double *column = KL_double_vector(n);
    if (!lu.ready() || column == nullptr) {
        if (column != nullptr)
            KL_free_double_vector(column);
        return -1;
    }
    for (long j = 1; j <= n; ++j) {
        for (long i = 1; i <= n; ++i)
            column[i] = i == j ? 1.0 : 0.0;
        lu.solve(column);
        for (long i = 1; i <= n; ++i)
            out[i][j] = column[i];
    }
    KL_free_double_vector(column);
    return 0;
}

double KL_detm(double *const *a, long n)
{
    const Decomposition lu(a, n);
    return lu.ready() ? lu.determinant() : 0.0;
}
