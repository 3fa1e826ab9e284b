/**
 * @file ground_station.hpp
 */
#ifndef ORBKIT_GROUND_STATION_HPP
#define ORBKIT_GROUND_STATION_HPP

#include "model_id.hpp"
#include "time.hpp"

namespace ORBKIT {

/**
 * A place on the Earth.
 *
 * @code{.cpp}
 * const ORBKIT::GroundStation kiruna(67.857, 20.964, 390.0), svalbard(78.229, 15.408, 450.0);
 * std::printf("%.1f km\n", kiruna.distanceTo(svalbard) / 1e3); // -> 1170.2 km
 * @endcode
 */
class GroundStation {
public:
    /** Geodetic latitude and longitude, deg; height above the ellipsoid, m. */
    GroundStation(double latitude, double longitude, double height)
    {
        place_.latitude = latitude;
        place_.longitude = longitude;
        place_.height = height;
    }

    const kl_geodetic &geodetic() const { return place_; }

    /** Earth-fixed position, m. */
    Vector position(const ModelId &models = default_models()) const
    {
        const long mode = KL_CALC_POS;
        Vector pos{};
        long ierr[1] = {0};
        throw_unless_ok("GroundStation::position",
                        kl_geod_to_cart(models.getId(), &mode, &place_, pos.data(), nullptr, ierr),
                        KL_ID_FUNC_GEOD_TO_CART, ierr);
        return pos;
    }

    /** Azimuth, elevation and range of an Earth-fixed position, with rates. */
    kl_topocentric sees(const Vector &pos, const Vector &vel, const ModelId &models = default_models()) const
    {
        const long mode = KL_CALC_POS_VEL;
        kl_topocentric out{};
        long ierr[1] = {0};
        throw_unless_ok("GroundStation::sees",
                        kl_ef_to_topocentric(models.getId(), &mode, &place_, pos.data(), vel.data(), &out, ierr),
                        KL_ID_FUNC_CART_TO_GEOD, ierr);
        return out;
    }

    /** Shortest path on the ellipsoid, m. */
    double distanceTo(const GroundStation &other, const ModelId &models = default_models()) const
    {
        double distance = 0.0;
        long ierr[1] = {0};
        throw_unless_ok("GroundStation::distanceTo",
                        kl_geod_distance(models.getId(), &place_.latitude, &place_.longitude, &other.place_.latitude,
                                         &other.place_.longitude, &distance, nullptr, nullptr, ierr),
                        KL_ID_FUNC_GEOD_DISTANCE, ierr);
        return distance;
    }

private:
    kl_geodetic place_{};
};

} // namespace ORBKIT

#endif
