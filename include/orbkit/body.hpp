/**
 * @file body.hpp
 * What Sun, Moon and Planet share.
 */
#ifndef ORBKIT_BODY_HPP
#define ORBKIT_BODY_HPP

#include "state_vector.hpp"

namespace ORBKIT {

namespace detail {

// A body seen from the centre of the Earth, in Frame::EF: `call` has the arguments of kl_sun.
template <typename Call>
StateVector body_at(const char *operation, long public_id, Call call, const Time &time, Borrowed<ModelId> models)
{
    const long ref = KL_TIME_TAI;
    const double days = time.taiDays();
    const ModelId &model = models != nullptr ? *models : default_models();
    Vector pos{};
    Vector vel{};
    long ierr[1] = {0};
    throw_unless_ok(operation, call(model.getId(), time.id(), &ref, &days, pos.data(), vel.data(), ierr), public_id,
                    ierr);
    return {pos, vel, Frame::EF, time, model};
}

} // namespace detail

} // namespace ORBKIT

#endif
