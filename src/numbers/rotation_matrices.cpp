// Elementary frame rotations and their derivatives.
#include "numbers/elementary.h"
#include "numbers/numbers.h"

#include <cmath>

namespace {

enum Axis { kX = 1, kY = 2, kZ = 3 };

// The pattern of a rotation about an axis: `fixed` on it, c and s across.
void fill(Axis axis, double fixed, double c, double s, double **m)
{
    const int i = axis;
    const int j = axis % 3 + 1;
    const int k = j % 3 + 1;
    m[i][i] = fixed;
    m[i][j] = m[i][k] = m[j][i] = m[k][i] = 0.0;
    m[j][j] = m[k][k] = c;
    m[j][k] = s;
    m[k][j] = -s;
}

void rotation(Axis axis, double angle, double **m)
{
    const SineCosine of = sine_cosine(angle);
    fill(axis, 1.0, of.c, of.s, m);
}

void first_derivative(Axis axis, double angle, double rate, double **m)
{
    const SineCosine of = sine_cosine(angle);
    fill(axis, 0.0, -of.s * rate, of.c * rate, m);
}

void second_derivative(Axis axis, double angle, double rate, double rate_of_rate, double **m)
{
    const auto [s, c] = sine_cosine(angle);
    fill(axis, 0.0, -c * rate * rate - s * rate_of_rate, -s * rate * rate + c * rate_of_rate, m);
}

} // namespace

void KL_Rotx(double angle, double **m)
{
    rotation(kX, angle, m);
}

void KL_Roty(double angle, double **m)
{
    rotation(kY, angle, m);
}

void KL_Rotz(double angle, double **m)
{
    rotation(kZ, angle, m);
}

void KL_Drotx(double angle, double rate, double **m)
{
    first_derivative(kX, angle, rate, m);
}

void KL_Droty(double angle, double rate, double **m)
{
    first_derivative(kY, angle, rate, m);
}

void KL_Drotz(double angle, double rate, double **m)
{
    first_derivative(kZ, angle, rate, m);
}

void KL_2Drotx(double angle, double rate, double rate_of_rate, double **m)
{
    second_derivative(kX, angle, rate, rate_of_rate, m);
}

void KL_2Droty(double angle, double rate, double rate_of_rate, double **m)
{
    second_derivative(kY, angle, rate, rate_of_rate, m);
}

void KL_2Drotz(double angle, double rate, double rate_of_rate, double **m)
{
    second_derivative(kZ, angle, rate, rate_of_rate, m);
}
