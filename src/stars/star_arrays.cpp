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
    const auto fail = [&](long i) {
        constexpr double kNan = kNotANumber;
        if (place != nullptr)
            place[i] = {kNan, kNan, kNan, kNan, kNan, kNan};
    };
    if (star_radec_refuses_all(array.call(), time_id, corrections, cs_out, time_ref, time, star, place))
        return array.refuse(fail);
    StarSky sky;
    return array.each(
        [&](long i, long *word) {
            if (is_verbose())
                sky = StarSky(); // every element prints its lines
            return star_radec_of_one(model_id, time_id, corrections, cs_out, time_ref, time + i, star + i,
                                     element(observer_pos, i), element(observer_vel, i), place + i, &sky, word);
        },
        fail);
}
