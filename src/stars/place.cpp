#include "stars/place.h"

#include "kl_family.h"
#include "numbers/numbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSunPotential = 1.97412574336e-8; // 2 G M / (c^2 AU)

} // namespace

bool prepare_sight(const Observer &observer, double tdb, long corrections, Sight *sight)
{
    *sight = {};
    sight->tdb = tdb;
    sight->parallax = (corrections & KL_STAR_PARALLAX) != 0;
    sight->aberration = (corrections & KL_STAR_ABERRATION) != 0;
    sight->deflection = (corrections & KL_STAR_DEFLECTION) != 0;
    sight->light_time = true;
    for (int i = 0; i < 3; ++i) {
        sight->barycentric[i] = observer.barycentric[i] / KL_TRUE_AU;
        sight->velocity[i] = observer.velocity[i] / KL_SPEED_OF_LIGHT;
    }
    const double v2 = dot3(sight->velocity, sight->velocity);
    const double r = std::sqrt(dot3(observer.heliocentric, observer.heliocentric)) / KL_TRUE_AU;
    if (!std::isfinite(dot3(sight->barycentric, sight->barycentric)) || !(v2 < 1.0) || !(r > 0.0) || !std::isfinite(r)
        || !std::isfinite(tdb))
        return false;
    sight->slowness = std::sqrt(1.0 - v2);
    for (int i = 0; i < 3; ++i)
        sight->from_sun[i] = observer.heliocentric[i] / (r * KL_TRUE_AU);
    sight->potential = kSunPotential / r;
    sight->nearest_to_line = 1e-6 / std::max(r * r, 1.0);
    return true;
}

Sight space_motion_only(double tdb)
{
    Sight sight = {};
    sight.tdb = tdb;
    return sight;
}

long KL_Star_place(const kl_star *star, const double observer_barycentric[3], const double observer_velocity[3],
                   const double observer_heliocentric[3], double tdb, long corrections, double place[3])
{
    if (star == nullptr || observer_barycentric == nullptr || observer_velocity == nullptr
        || observer_heliocentric == nullptr || place == nullptr || !in_range(star_of(*star)) || corrections < 0
        || corrections > kEveryCorrection)
        return KL_ERR;
    Observer observer;
    copy_three(observer_barycentric, observer.barycentric);
    copy_three(observer_velocity, observer.velocity);
    copy_three(observer_heliocentric, observer.heliocentric);
    Sight sight;
    if (!prepare_sight(observer, tdb, corrections, &sight))
        return KL_ERR;
    double direction[3];
    place_of(sight, star_of(*star), direction);
    copy_three(direction, place);
    return KL_OK;
}
