#include "stars/star_kernels.h"

#include "numbers/streams.h"

namespace KL_KERNELS {

namespace {

Lanes gathered(const kl_star *star, double kl_star::*number, long first, long count)
{
    double lanes[kLanes];
    for (long i = 0; i < kLanes; ++i)
        lanes[i] = star[first + i < count ? first + i : count - 1].*number;
    return load<Lanes>(lanes);
}

} // namespace

void star_places(const StarScene *scene, const kl_star *star, long count, double *ra, double *dec, std::uint64_t *left)
{
    for (long i = 0; i < count; i += kLanes) {
        const auto of = [&](double kl_star::*number) { return gathered(star, number, i, count); };
        const StarOf<Lanes> stars = {of(&kl_star::ra),     of(&kl_star::dec),      of(&kl_star::pm_ra),
                                     of(&kl_star::pm_dec), of(&kl_star::parallax), of(&kl_star::radial_velocity),
                                     of(&kl_star::epoch),  of(&kl_star::magnitude)};
        accepted(in_range(stars), i, count, left);
        Lanes direction[3];
        place_of(scene->sight, stars, direction);
        Lanes turned[3];
        for (int j = 0; j < 3; ++j)
            turned[j] = dot_with(scene->axes[j], direction);
        Lanes out[2];
        radec_of_direction(turned, out[0], out[1]);
        store(out[0], ra + i);
        store(out[1], dec + i);
    }
}

} // namespace KL_KERNELS
