/**
 * @file star.hpp
 */
#ifndef ORBKIT_STAR_HPP
#define ORBKIT_STAR_HPP

#include "state_vector.hpp"

#include <optional>

namespace ORBKIT {

/** What is done to the direction of a star on its way to an observer; a sum of KL_STAR_PARALLAX and the others. */
enum class StarCorrections : long {
    none = 0,
    parallax = KL_STAR_PARALLAX,
    aberration = KL_STAR_ABERRATION,
    deflection = KL_STAR_DEFLECTION,
    all = KL_STAR_PARALLAX + KL_STAR_ABERRATION + KL_STAR_DEFLECTION
};

/**
 * A star of a catalogue.
 *
 * @code{.cpp}
 * const ORBKIT::Time time("2026-06-21T00:00:00");
 * const auto bright = ORBKIT::StarCatalog().window(time, 1.0);
 * std::printf("%zu stars brighter than 1.0\n", bright.size()); // -> 15 stars brighter than 1.0
 * @endcode
 */
class Star {
public:
    explicit Star(const kl_star &data) : data_(data) {}

    const kl_star &data() const { return data_; }

    /**
     * Where an observer sees it: right ascension and declination, deg.
     *
     * @param frame     Frame::BM2000, GM2000, MOD, TOD, TEME, PEF or EF
     * @param observer  a satellite; without one the centre of the Earth
     */
    kl_radec place(const Time &time, Frame frame = Frame::GM2000, StarCorrections corrections = StarCorrections::all,
                   const std::optional<StateVector> &observer = std::nullopt,
                   const ModelId &models = default_models()) const
    {
        const long what = number(corrections);
        const long cs = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time.processing(Scale::TAI);
        std::optional<StateVector> seen;
        if (observer)
            seen = observer->in(Frame::GM2000, models);
        kl_radec out{};
        long ierr[1] = {0};
        throw_unless_ok("Star::place",
                        kl_star_radec(models.getId(), time.id(), &what, &cs, &ref, &days, &data_,
                                      seen ? seen->pos().data() : nullptr, seen ? seen->vel().data() : nullptr, &out,
                                      ierr),
                        KL_ID_FUNC_STAR_RADEC, ierr);
        return out;
    }

private:
    kl_star data_;
};

/** A catalogue: the Bright Star Catalogue that is built in, or a file. */
class StarCatalog {
public:
    StarCatalog() = default;
    explicit StarCatalog(std::string file) : file_(std::move(file)) {}

    /** The stars up to a magnitude at an instant; within `radius` degrees of a direction when radius is above 0. */
    std::vector<Star> window(const Time &time, double magnitude, double ra = 0.0, double dec = 0.0, double radius = 0.0,
                             Frame frame = Frame::GM2000, const ModelId &models = default_models()) const
    {
        const kl_star_window window = {-30.0, magnitude, 0.0, 360.0, -90.0, 90.0, ra, dec, radius};
        const long what = number(StarCorrections::all);
        const long cs = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time.processing(Scale::TAI);
        long n = 0;
        kl_star *stars = nullptr;
        long ierr[1] = {0};
        throw_unless_ok("StarCatalog::window",
                        kl_star_catalog(models.getId(), time.id(), file_.c_str(), &window, &what, &cs, &ref, &days, &n,
                                        &stars, nullptr, ierr),
                        KL_ID_FUNC_STAR_CATALOG, ierr);
        struct Owner {
            void *array;
            ~Owner() { kl_free_array(&array); }
        } const owner = {stars};
        std::vector<Star> out;
        out.reserve(static_cast<std::size_t>(n));
        for (long i = 0; i < n; ++i)
            out.emplace_back(stars[i]);
        return out;
    }

private:
    std::string file_;
};

} // namespace ORBKIT

#endif
