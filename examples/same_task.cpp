// Where is the Sun overhead at the June solstice of 2026, and how high is the geoid there? In C++; same_task.c is the
// same in C.
#include "orbkit.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>

using namespace ORBKIT;

int main()
try {
    const double degrees = 180.0 / std::acos(-1.0);
    const TimeId time_id = TimeId::builtIn(); // UT1, leap seconds, pole: those compiled in
    const ModelId model_id;                   // the default models
    const char *solstice = "2026-06-21T08:24:00";

    const double time = LibFunc::timeAsciiToProcessing(time_id, KL_ASCII_41, KL_TIME_UTC, solstice, KL_TIME_UTC);
    const Vector sun = LibFunc::sun(model_id, time_id, KL_TIME_UTC, time).pos;
    const double latitude = degrees * std::atan2(sun[2], std::hypot(sun[0], sun[1]));
    const double longitude = std::fmod(degrees * std::atan2(sun[1], sun[0]) + 360.0, 360.0);
    std::printf("%s UTC is day %.2f\n", solstice, time);
    std::printf("Sun overhead at %.2f deg north, %.2f deg east\n", latitude, longitude);
    std::printf("Geoid there: %.2f m\n", LibFunc::geoid(model_id, latitude, longitude));

    const double too_late = 40000.0;
    try {
        LibFunc::sun(model_id, time_id, KL_TIME_UTC, too_late);
    } catch (const KitError &error) {
        std::printf("Day %.0f: %s\n", too_late, error.getMsg().at(1).c_str());
    }
    return EXIT_SUCCESS;
} catch (const KitError &error) {
    std::fprintf(stderr, "%s\n", error.what());
    return EXIT_FAILURE;
}
