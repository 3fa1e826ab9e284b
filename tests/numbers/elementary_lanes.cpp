#include "elementary_lanes.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"

namespace KL_KERNELS {

void elementary_lanes(int function, const double *xs, const double *ys, double *out, long n)
{
    for (long i = 0; i < n; i += kLanes) {
        const Lanes x = load<Lanes>(xs + i);
        [[maybe_unused]] const Lanes y = load<Lanes>(ys + i);
        Lanes result(0.0);
        switch (function) {
#define X(name, ours, ...)                                                                                             \
    case k_##name:                                                                                                     \
        result = ours;                                                                                                 \
        break;
            ELEMENTARY_OF_ONE(X)
            ELEMENTARY_OF_TWO(X)
            EXACT_OF_TWO(X)
#undef X
        }
        store(result, out + i);
    }
}

} // namespace KL_KERNELS
