// State vectors with derivatives.
#include "numbers/numbers.h"

namespace {

// Applies to the three vectors of two states, element by element from 1.
template <typename Operation>
void each_vector(const Cord *from, Cord *to, Operation operation)
{
    operation(from->pos, to->pos);
    operation(from->vel, to->vel);
    operation(from->acc, to->acc);
}

} // namespace

void KL_Cord_Set(long cs, long order, const double pos[3], const double vel[3], const double acc[3], Cord *cord)
{
    cord->cs = static_cast<int32_t>(cs);
    cord->order = static_cast<int32_t>(order);
    copy_three(pos, cord->pos + 1);
    copy_three(vel, cord->vel + 1);
    copy_three(acc, cord->acc + 1);
}

void KL_Cord_Reset(Cord *cord)
{
    constexpr double kZero[3] = {0.0, 0.0, 0.0};
    KL_Cord_Set(0, 0, kZero, kZero, kZero, cord);
}

void KL_Copy_Cord(const Cord *from, Cord *to)
{
    to->cs = from->cs;
    to->order = from->order;
    each_vector(from, to, [](const double *a, double *b) { KL_dvcopy(a, 3, b); });
}

void KL_Mult_Cord(const Cord *from, Cord *to, double s)
{
    to->cs = from->cs;
    to->order = from->order;
    each_vector(from, to, [s](const double *a, double *b) { KL_dvsmy(a, 3, b, s); });
}
