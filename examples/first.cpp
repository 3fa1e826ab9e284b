#include "orbkit.hpp"
#include <cstdio>

int main()
{
    using namespace ORBKIT;
    const TimeId time_id = TimeId::builtIn(); // UT1, leap seconds and pole, compiled in
    const double time =
        LibFunc::timeAsciiToProcessing(time_id, KL_ASCII_41, KL_TIME_UTC, "2026-06-21T08:24:00", KL_TIME_UTC);
    const Vector sun = LibFunc::sun(ModelId(), time_id, KL_TIME_UTC, time).pos;
    std::printf("day %.2f: the Sun at %.0f %.0f %.0f km, Earth-fixed\n", time, sun[0] / 1e3, sun[1] / 1e3,
                sun[2] / 1e3);
}
