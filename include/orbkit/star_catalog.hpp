/**
 * @file star_catalog.hpp
 */
#ifndef ORBKIT_STAR_CATALOG_HPP
#define ORBKIT_STAR_CATALOG_HPP

#include "star.hpp"

#include <memory>
#include <vector>

namespace ORBKIT {

/**
 * A catalogue: the Bright Star Catalogue that is built in, or a file of it, of Hipparcos or of one's own.
 *
 * @code{.cpp}
 * using ORBKIT::Frame, ORBKIT::StarCatalog;
 * const ORBKIT::Time time("2026-06-21T00:00:00");
 * const StarCatalog catalog;
 * std::printf("%zu bright stars\n", catalog.brighterThan(1.0, time).size()); // -> 15 bright stars
 * const kl_star_window window = {2.0, 3.0, 350.0, 10.0, 0.0, 90.0, 0.0, 0.0, 0.0}; // magnitudes, ra, dec
 * const auto some = ORBKIT::StarCorrections::parallax | ORBKIT::StarCorrections::aberration;
 * std::printf("%zu there\n", catalog.window(window, time, Frame::TOD, some).size()); // -> 3 there
 * const kl_radec axis = {84.0, 0.0, 1.0, 0.0, 0.0, 0.0}; // where a camera looks, deg
 * for (const StarCatalog::Place &found : catalog.around(axis, 5.0, 3.0, time))
 *     std::printf("%ld at %.2f %.2f deg\n", found.star.data().number, found.seen.ra, found.seen.dec);
 * // -> 1852 at 83.00 -0.30 deg
 * // -> 1903 at 84.05 -1.20 deg
 * // -> 1948 at 85.18 -1.94 deg
 * @endcode
 */
class StarCatalog {
public:
    /** A star and where it is seen. */
    struct Place {
        Star star;
        kl_radec seen; /**< deg */
    };

    /** The catalogue that is built in. */
    StarCatalog() = default;
    explicit StarCatalog(std::string file) : file_(std::move(file)) {}

    /**
     * All stars of a window of the sky and of brightness, seen from the centre of the Earth.
     *
     * @param window  mag_min, mag_max; ra_min, ra_max, dec_min, dec_max (deg, in the frame; a ra_min above ra_max goes
     *                over 0) and, where radius is not 0, a cone of so many deg around ra and dec as well
     */
    std::vector<Place> window(const kl_star_window &window, const Time &time, Frame frame = Frame::GM2000,
                              StarCorrections corrections = StarCorrections::all, Borrowed<ModelId> models = {}) const
    {
        const ModelId &model = models != nullptr ? *models : default_models();
        const long what = number(corrections);
        const long cs = number(frame);
        const long ref = KL_TIME_TAI;
        const double days = time.taiDays();
        long n = 0;
        kl_star *stars = nullptr;
        kl_radec *places = nullptr;
        long ierr[1] = {0};
        const long status = kl_star_catalog(detail::handle(model), time.id(), file_.c_str(), &window, &what, &cs, &ref,
                                            &days, &n, &stars, &places, ierr);
        const Owner<kl_star> star_owner(stars); // before a warning is thrown
        const Owner<kl_radec> place_owner(places);
        throw_unless_ok("StarCatalog::window", status, KL_ID_FUNC_STAR_CATALOG, ierr);
        std::vector<Place> out;
        out.reserve(static_cast<std::size_t>(n));
        for (long i = 0; i < n; ++i)
            out.push_back({Star(stars[i]), places[i]});
        return out;
    }

    /** Those up to a magnitude, everywhere. */
    std::vector<Place> brighterThan(double magnitude, const Time &time, Frame frame = Frame::GM2000,
                                    Borrowed<ModelId> models = {}) const
    {
        return window({-30.0, magnitude, 0.0, 360.0, -90.0, 90.0, 0.0, 0.0, 0.0}, time, frame, StarCorrections::all,
                      models);
    }

    /**
     * Those up to a magnitude within a radius of a direction in the frame.
     *
     * @param axis    ra and dec, deg; the others are not looked at
     * @param radius  deg; 0 is no cone but the whole sky
     */
    std::vector<Place> around(const kl_radec &axis, double radius, double magnitude, const Time &time,
                              Frame frame = Frame::GM2000, Borrowed<ModelId> models = {}) const
    {
        return window({-30.0, magnitude, 0.0, 360.0, -90.0, 90.0, axis.ra, axis.dec, radius}, time, frame,
                      StarCorrections::all, models);
    }

    friend bool operator==(const StarCatalog &a, const StarCatalog &b) { return a.file_ == b.file_; }
    friend bool operator!=(const StarCatalog &a, const StarCatalog &b) { return a.file_ != b.file_; }
    friend std::ostream &operator<<(std::ostream &out, const StarCatalog &catalog)
    {
        return out << (catalog.file_.empty() ? "stars that are built in" : "stars of " + catalog.file_);
    }

private:
    struct Free {
        void operator()(void *array) const { kl_free_array(&array); }
    };
    template <class T>
    using Owner = std::unique_ptr<T, Free>;

    std::string file_;
};

} // namespace ORBKIT

#endif
