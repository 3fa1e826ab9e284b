// Array form of places of stars.
#include "arrays/array_call.h"
#include "kl_family.h"
#include "stars/star_doors.h"

long kl_star_radec_n(kl_model_id *model_id, kl_time_id *time_id, const long *n, const long *corrections,
                     const long *cs_out, const long *time_ref, const double *time, const kl_star *star,
                     const double observer_pos[][3], const double observer_vel[][3], kl_radec *place, long *status,
                     long *ierr)
{
    ArrayCall array(KL_FN_STAR_RADEC, n, status, ierr);
    if (array.nothing())
        return array.result();
    const auto fail = fails_in(place);
    if (star_radec_refuses_all(array.call(), time_id, corrections, cs_out, time_ref, time, star, place))
        return array.refuse(fail);
    StarSky sky;
    const auto one = [&](long i, long *word) {
        if (is_verbose())
            sky = StarSky(); // every element prints its lines
        return star_radec_of_one(model_id, time_id, corrections, cs_out, time_ref, time + i, star + i,
                                 element(observer_pos, i), element(observer_vel, i), place + i, &sky, word);
    };
    return array.each(one, fail, [&](long first, long count, LeftOver &left) {
        StarScene scene;
        if (observer_pos != nullptr || observer_vel != nullptr
            || !star_scene(time_id, *corrections, *cs_out, time + first, count, sky, &scene))
            return false;
        double ra[kBlock], dec[kBlock];
        star_places_kernel()(&scene, star + first, count, ra, dec, left.bits());
        for (long k = 0; k < count; ++k)
            if (!left.has(k))
                place[first + k] = {ra[k], dec[k], 1.0, 0.0, 0.0, 0.0};
        return true;
    });
}
