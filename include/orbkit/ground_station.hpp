/**
 * @file ground_station.hpp
 */
#ifndef ORBKIT_GROUND_STATION_HPP
#define ORBKIT_GROUND_STATION_HPP

#include "borrowed.hpp"
#include "types.hpp"

#include <ostream>

namespace ORBKIT {

/**
 * A place on the Earth.
 *
 * @code{.cpp}
 * const ORBKIT::GroundStation kiruna(67.857, 20.964, 390.0), svalbard(78.229, 15.408, 450.0); // deg, deg, m
 * std::printf("%.1f km\n", kiruna.distanceTo(svalbard) / 1e3); // -> 1170.2 km
 * std::printf("geoid %.1f m above the ellipsoid\n", kiruna.geoid()); // -> geoid 29.0 m above the ellipsoid
 * @endcode
 */
class GroundStation {
public:
    /** Geodetic latitude and longitude, deg; height above the ellipsoid, m. */
    GroundStation(double latitude, double longitude, double height, Borrowed<ModelId> models = {}) : models_(models)
    {
        place_.latitude = latitude;
        place_.longitude = longitude;
        place_.height = height;
    }

    const kl_geodetic &geodetic() const { return place_; }
    double latitude() const { return place_.latitude; }   /**< deg */
    double longitude() const { return place_.longitude; } /**< deg */
    double height() const { return place_.height; }       /**< m */
    const ModelId &models() const { return models_ != nullptr ? *models_ : default_models(); }

    /** Earth-fixed position, m. */
    Vector position() const
    {
        const long mode = KL_CALC_POS;
        Vector pos{};
        long ierr[1] = {0};
        throw_unless_ok("GroundStation::position",
                        kl_geod_to_cart(detail::handle(models()), &mode, &place_, pos.data(), nullptr, ierr),
                        KL_ID_FUNC_GEOD_TO_CART, ierr);
        return pos;
    }

    /** Azimuth, elevation (deg) and range (m) of an Earth-fixed position, and azimuth_rate and so on; no refraction. */
    kl_topocentric sees(const Vector &pos, const Vector &vel) const
    {
        const long mode = KL_CALC_POS_VEL;
        kl_topocentric out{};
        long ierr[1] = {0};
        throw_unless_ok(
            "GroundStation::sees",
            kl_ef_to_topocentric(detail::handle(models()), &mode, &place_, pos.data(), vel.data(), &out, ierr),
            "The station or the position is out of range.");
        return out;
    }

    /** Shortest path on the ellipsoid, m. */
    double distanceTo(const GroundStation &other) const
    {
        double distance = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("GroundStation::distanceTo",
                        kl_geod_distance(detail::handle(models()), &place_.latitude, &place_.longitude,
                                         &other.place_.latitude, &other.place_.longitude, &distance, nullptr, nullptr,
                                         ierr),
                        KL_ID_FUNC_GEOD_DISTANCE, ierr);
        return distance;
    }

    /** Height of the geoid EGM96 above the ellipsoid, m. */
    double geoid(long max_degree = 360) const
    {
        const kl_geoid_input input = {detail::handle(models()), place_.latitude, place_.longitude, 0.0, max_degree};
        double undulation = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("GroundStation::geoid", kl_geoid_calc(&input, &undulation, ierr), KL_ID_FUNC_GEOID_CALC, ierr);
        return undulation;
    }

    friend bool operator==(const GroundStation &a, const GroundStation &b)
    {
        return a.place_.latitude == b.place_.latitude && a.place_.longitude == b.place_.longitude
               && a.place_.height == b.place_.height;
    }
    friend bool operator!=(const GroundStation &a, const GroundStation &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const GroundStation &station)
    {
        return out << station.latitude() << " deg " << station.longitude() << " deg " << station.height() << " m";
    }

private:
    kl_geodetic place_{};
    const ModelId *models_ = nullptr;
};

} // namespace ORBKIT

#endif
