/**
 * @file body.hpp
 * What Sun, Moon and Planet share.
 */
#ifndef ORBKIT_BODY_HPP
#define ORBKIT_BODY_HPP

#include "state_vector.hpp"

namespace ORBKIT {

namespace detail {

struct Body {
    // Seen from the centre of the Earth, in Frame::EF: `call` has the arguments of kl_sun.
    template <typename Call>
    static StateVector at(const char *operation, long public_id, Call call, const Time &time, Borrowed<ModelId> models)
    {
        const long ref = KL_TIME_TAI;
        const double days = time.taiDays();
        return StateVector::made(operation, public_id, Frame::EF, time, models,
                                 [&](kl_model_id *model, double *pos, double *vel, long *ierr) {
                                     return call(model, time.id(), &ref, &days, pos, vel, ierr);
                                 });
    }
};

} // namespace detail

} // namespace ORBKIT

#endif
