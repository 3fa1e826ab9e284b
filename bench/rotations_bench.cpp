// Rotations through the public header, beside Eigen's.
#include "kl_lib.h"

#include <Eigen/Geometry>
#include <benchmark/benchmark.h>

namespace {

constexpr int kInputs = 1024; // new input each call, all in the first cache

struct Inputs {
    double angles[kInputs][3], matrix[kInputs][9], q[kInputs][4], axes[kInputs][3][3];
    Eigen::Quaterniond eigen[kInputs];
    Inputs()
    {
        for (int i = 0; i < kInputs; ++i) {
            const double a[3] = {-80.0 + 0.15 * i, 0.31 * i, -0.17 * i};
            for (int k = 0; k < 3; ++k)
                angles[i][k] = a[k];
            kl_euler_to_matrix(a, matrix[i], nullptr);
            for (int axis = 0; axis < 3; ++axis)
                for (int k = 0; k < 3; ++k)
                    axes[i][axis][k] = matrix[i][3 * k + axis];
            kl_vectors_to_quaternions(axes[i][0], axes[i][1], axes[i][2], q[i], nullptr);
            eigen[i] = Eigen::Quaterniond(q[i][3], q[i][0], q[i][1], q[i][2]);
        }
    }
};

const Inputs &inputs()
{
    static const Inputs all;
    return all;
}

int next(int &i)
{
    i = (i + 1) % kInputs;
    return i;
}

void quaternions_to_vectors(benchmark::State &state)
{
    const Inputs &in = inputs();
    double out[3][3];
    long ierr[1];
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kl_quaternions_to_vectors(in.q[next(i)], out[0], out[1], out[2], ierr));
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(quaternions_to_vectors)->Name("kl_quaternions_to_vectors");

void quaternions_to_vectors_eigen(benchmark::State &state)
{
    const Inputs &in = inputs();
    int i = 0;
    for (auto _ : state) {
        Eigen::Matrix3d m = in.eigen[next(i)].toRotationMatrix();
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(quaternions_to_vectors_eigen)->Name("kl_quaternions_to_vectors/rival Eigen toRotationMatrix");

void vectors_to_quaternions(benchmark::State &state)
{
    const Inputs &in = inputs();
    double q[4];
    long ierr[1];
    int i = 0;
    for (auto _ : state) {
        next(i);
        benchmark::DoNotOptimize(kl_vectors_to_quaternions(in.axes[i][0], in.axes[i][1], in.axes[i][2], q, ierr));
        benchmark::DoNotOptimize(q);
    }
}
BENCHMARK(vectors_to_quaternions)->Name("kl_vectors_to_quaternions");

void euler_to_matrix(benchmark::State &state)
{
    const Inputs &in = inputs();
    double m[9];
    long ierr[1];
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kl_euler_to_matrix(in.angles[next(i)], m, ierr));
        benchmark::DoNotOptimize(m);
    }
}
BENCHMARK(euler_to_matrix)->Name("kl_euler_to_matrix");

void matrix_to_euler(benchmark::State &state)
{
    const Inputs &in = inputs();
    double angles[3];
    long ierr[1];
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kl_matrix_to_euler(in.matrix[next(i)], angles, ierr));
        benchmark::DoNotOptimize(angles);
    }
}
BENCHMARK(matrix_to_euler)->Name("kl_matrix_to_euler");

void slerp(benchmark::State &state)
{
    const Inputs &in = inputs();
    const long mode = KL_INTERPOL_SLERP;
    const double t1 = 0.0;
    const double t2 = 1.0;
    const double t = 0.3;
    double q[4];
    long ierr[1];
    int i = 0;
    for (auto _ : state) {
        next(i);
        double q2[4] = {in.q[kInputs - 1 - i][0], in.q[kInputs - 1 - i][1], in.q[kInputs - 1 - i][2],
                        in.q[kInputs - 1 - i][3]};
        benchmark::DoNotOptimize(kl_quaternions_interpol(&mode, &t1, in.q[i], &t2, q2, &t, q, ierr));
        benchmark::DoNotOptimize(q);
    }
}
BENCHMARK(slerp)->Name("kl_quaternions_interpol");

void slerp_eigen(benchmark::State &state)
{
    const Inputs &in = inputs();
    int i = 0;
    for (auto _ : state) {
        next(i);
        Eigen::Quaterniond q = in.eigen[i].slerp(0.3, in.eigen[kInputs - 1 - i]);
        benchmark::DoNotOptimize(q);
    }
}
BENCHMARK(slerp_eigen)->Name("kl_quaternions_interpol/rival Eigen slerp");

// A call that is refused, in silent mode.
void failing_call(benchmark::State &state)
{
    const double q[4] = {0.0, 0.0, 0.0, 2.0};
    double out[3][3];
    long ierr[1];
    for (auto _ : state)
        benchmark::DoNotOptimize(kl_quaternions_to_vectors(q, out[0], out[1], out[2], ierr));
}
BENCHMARK(failing_call)->Name("kl_quaternions_to_vectors, refused");

} // namespace
