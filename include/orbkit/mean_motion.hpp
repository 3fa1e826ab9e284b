/**
 * @file mean_motion.hpp
 */
#ifndef ORBKIT_MEAN_MOTION_HPP
#define ORBKIT_MEAN_MOTION_HPP

#include "state_vector.hpp"

#include <ostream>

namespace ORBKIT {

/**
 * Motion on mean Kepler elements in Frame::TOD, whose node, perigee and anomaly turn by the secular rates of J2: see
 * kl_mean_motion.
 *
 * @code{.cpp}
 * const ORBKIT::Time epoch("2026-06-21T00:00:00");
 * const ORBKIT::MeanMotion orbit({7178137.0, 0.001, 98.6, 250.0, 90.0, 0.0}, epoch);
 * const kl_kepler later = orbit(epoch + std::chrono::hours(24)).kepler(ORBKIT::Elements::mean);
 * std::printf("node moved %.2f deg in a day\n", later.raan - 250.0); // -> node moved 0.99 deg in a day
 * @endcode
 */
class MeanMotion {
public:
    /**
     * @param mean_elements  semi_major_axis (m), eccentricity, inclination, raan, arg_perigee, mean_anomaly (deg)
     * @throws KitError when they are not those of an ellipse around the Earth
     */
    MeanMotion(const kl_kepler &mean_elements, const Time &epoch, Borrowed<ModelId> models = {})
        : elements_(mean_elements), epoch_(epoch), models_(models)
    {
        (*this)(epoch); // refuses elements that are none
    }
    /** From a state, by its mean elements. */
    explicit MeanMotion(const StateVector &state)
        : MeanMotion(state.in(Frame::TOD).kepler(Elements::mean), state.time(), state.models())
    {
    }

    /** @throws KitError for an instant of another correlation */
    StateVector operator()(const Time &time) const
    {
        const ModelId &models = models_ != nullptr ? *models_ : default_models();
        const double seconds = static_cast<double>((time - epoch_).count()) * 1e-6;
        kl_kepler at;
        if (kl_mean_motion(detail::handle(models), &elements_, &seconds, &at, nullptr) == KL_ERR)
            throw_messages({"The mean elements are not those of an ellipse around the Earth.", "MeanMotion"});
        return StateVector::fromKepler(at, Elements::mean, Frame::TOD, time, models);
    }

    const kl_kepler &elements() const { return elements_; } /**< mean, at the epoch */
    const Time &epoch() const { return epoch_; }

    friend bool operator==(const MeanMotion &a, const MeanMotion &b)
    {
        const kl_kepler &x = a.elements_;
        const kl_kepler &y = b.elements_;
        return x.semi_major_axis == y.semi_major_axis && x.eccentricity == y.eccentricity
               && x.inclination == y.inclination && x.raan == y.raan && x.arg_perigee == y.arg_perigee
               && x.mean_anomaly == y.mean_anomaly && a.epoch_ == b.epoch_;
    }
    friend bool operator!=(const MeanMotion &a, const MeanMotion &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const MeanMotion &motion)
    {
        const kl_kepler &e = motion.elements_;
        return out << motion.epoch_ << " [" << e.semi_major_axis << " m " << e.eccentricity << ' ' << e.inclination
                   << ' ' << e.raan << ' ' << e.arg_perigee << ' ' << e.mean_anomaly << " deg]";
    }

private:
    kl_kepler elements_;
    Time epoch_;
    const ModelId *models_;
};

} // namespace ORBKIT

#endif
