/**
 * @file star.hpp
 */
#ifndef ORBKIT_STAR_HPP
#define ORBKIT_STAR_HPP

#include "state_vector.hpp"

#include <optional>

namespace ORBKIT {

/** What is done to the direction of a star on its way to an observer; some of them by parallax | aberration. */
enum class StarCorrections : long {
    none = 0,
    parallax = KL_STAR_PARALLAX,
    aberration = KL_STAR_ABERRATION,
    deflection = KL_STAR_DEFLECTION,
    all = KL_STAR_PARALLAX + KL_STAR_ABERRATION + KL_STAR_DEFLECTION
};

/** Both. */
constexpr StarCorrections operator|(StarCorrections a, StarCorrections b)
{
    return static_cast<StarCorrections>(number(a) | number(b));
}

/**
 * A star, as catalogues have it: place, motion, parallax, brightness.
 *
 * @code{.cpp}
 * kl_star sirius = {101.287155, -16.716116, -546.0, -1223.0, 379.2, -5.5, 0.5, -1.46, 2491}; // J2000.0
 * const kl_radec seen = ORBKIT::Star(sirius).place(ORBKIT::Time("2026-06-21T00:00:00"), ORBKIT::Frame::TOD);
 * std::printf("%.3f %.3f deg\n", seen.ra, seen.dec); // -> 101.575 -16.753 deg
 * @endcode
 */
class Star {
public:
    /**
     * @param data  ra, dec (deg, J2000), pm_ra with the cosine, pm_dec (mas/yr), parallax (mas), radial_velocity
     * (km/s), epoch (MJD2000; 0.5 is J2000.0), magnitude, number
     */
    explicit Star(const kl_star &data) : data_(data) {}

    const kl_star &data() const { return data_; }

    /**
     * Where an observer sees it: right ascension and declination, deg.
     *
     * @param frame     Frame::BM2000, GM2000, MOD, TOD, TEME, PEF or EF
     * @param observer  a satellite; without one the centre of the Earth
     */
    kl_radec place(const Time &time, Frame frame = Frame::GM2000, StarCorrections corrections = StarCorrections::all,
                   const std::optional<StateVector> &observer = std::nullopt, Borrowed<ModelId> models = {}) const
    {
        const ModelId &model = models != nullptr ? *models : default_models();
        const long what = number(corrections);
        const long cs = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time.taiDays();
        Vector pos, vel;
        if (observer) {
            if (observer->hasTime() && observer->time() != time)
                throw_messages({"The observer is at another instant.", "Star::place"});
            const StateVector from = observer->in(Frame::GM2000);
            pos = from.pos();
            vel = from.vel();
        }
        kl_radec out{};
        long ierr[1] = {0};
        throw_unless_ok("Star::place",
                        kl_star_radec(detail::handle(model), time.id(), &what, &cs, &ref, &days, &data_,
                                      observer ? pos.data() : nullptr, observer ? vel.data() : nullptr, &out, ierr),
                        KL_ID_FUNC_STAR_RADEC, ierr);
        return out;
    }

    friend bool operator==(const Star &a, const Star &b)
    {
        const kl_star &x = a.data_;
        const kl_star &y = b.data_;
        return x.ra == y.ra && x.dec == y.dec && x.pm_ra == y.pm_ra && x.pm_dec == y.pm_dec && x.parallax == y.parallax
               && x.radial_velocity == y.radial_velocity && x.epoch == y.epoch && x.magnitude == y.magnitude
               && x.number == y.number;
    }
    friend bool operator!=(const Star &a, const Star &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Star &star)
    {
        return out << "star " << star.data_.number << " of magnitude " << star.data_.magnitude;
    }

private:
    kl_star data_;
};

} // namespace ORBKIT

#endif
