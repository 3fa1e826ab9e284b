/**
 * @file ray.hpp
 */
#ifndef ORBKIT_RAY_HPP
#define ORBKIT_RAY_HPP

#include "position.hpp"

#include <ostream>

namespace ORBKIT {

/**
 * A line of sight: from a position in a direction. In Frame::EF, PEF, TOD or TEME, whose z axis is the Earth's.
 *
 * @code{.cpp}
 * using ORBKIT::Frame, ORBKIT::Position, ORBKIT::Ray;
 * const Position camera({7078137.0, 0.0, 0.0}, Frame::EF);
 * const Ray down(camera, {-1.0, 0.2, 0.1});
 * const ORBKIT::RayPoints ground = down.ellipsoid(); // m along the line
 * const kl_geodetic seen = down.point(ground.t[0]).geodetic();
 * std::printf("%ld points, the first %.1f km away at %.3f %.3f deg\n", ground.n, ground.t[0] / 1e3, seen.latitude,
 *             seen.longitude); // -> 2 points, the first 719.3 km away at 0.635 1.261 deg
 * const ORBKIT::TangentPoint limb = Ray(camera, {-1.0, 2.1, 0.0}).tangent();
 * std::printf("limb at %.1f km\n", limb.geodetic.height / 1e3); // -> limb at 12.4 km
 * @endcode
 */
class Ray {
public:
    /** @param direction  in the frame of the position, of any length but 0 */
    Ray(const Position &from, const Vector &direction) : from_(from), direction_(direction), middle_(direction)
    {
        const Frame frame = from.frame();
        if (frame != Frame::EF && frame != Frame::PEF && frame != Frame::TOD && frame != Frame::TEME)
            throw_messages({"A line of sight needs a frame whose z axis is the Earth's.", "Ray"});
        // In the middle of the range of numbers: neither the length nor a division by it may leave it.
        const double largest =
            std::fmax(std::fmax(std::fabs(direction[0]), std::fabs(direction[1])), std::fabs(direction[2]));
        const double power = largest < 0x1p-900 ? 0x1p+1000 : largest > 0x1p+900 ? 0x1p-1000 : 1.0;
        for (double &component : middle_)
            component *= power;
        length_ = std::hypot(middle_[0], middle_[1], middle_[2]);
        if (!(length_ > 0.0) || !std::isfinite(length_))
            throw_messages({"A line of sight needs a direction.", "Ray"});
    }
    /** From one position to another of the same frame. */
    static Ray between(const Position &from, const Position &to)
    {
        if (from.frame() != to.frame())
            throw_messages({"The ends of a line of sight must be in one frame.", "Ray::between"});
        const Vector &a = from.pos();
        const Vector &b = to.pos();
        return {from, {b[0] - a[0], b[1] - a[1], b[2] - a[2]}};
    }

    const Position &from() const { return from_; }
    const Vector &direction() const { return direction_; }

    /** The point at a distance, m. */
    Position point(double t) const
    {
        const Vector &p = from_.pos();
        const double k = t / length_;
        return Position({p[0] + k * middle_[0], p[1] + k * middle_[1], p[2] + k * middle_[2]}, from_.frame(),
                        from_.hasTime() ? std::optional<Time>(from_.time()) : std::nullopt, from_.models());
    }

    /** Where it meets the ellipsoid, raised by a margin, m. */
    RayPoints ellipsoid(double margin = 0.0) const
    {
        RayPoints out{};
        if (kl_ray_ellipsoid(detail::handle(from_.models()), from_.pos().data(), direction_.data(), &margin,
                             out.t.data(), &out.n, nullptr)
            == KL_ERR)
            throw_messages({"The position or the margin is out of range.", "Ray::ellipsoid"});
        return out;
    }

    /** Where it has a geodetic height, m. */
    RayPoints atHeight(double height) const
    {
        RayPoints out{};
        if (kl_ray_height(detail::handle(from_.models()), from_.pos().data(), direction_.data(), &height, out.t.data(),
                          &out.n, nullptr)
            == KL_ERR)
            throw_messages({"The position or the height is out of range.", "Ray::atHeight"});
        return out;
    }

    /** Its lowest point. */
    TangentPoint tangent() const
    {
        TangentPoint out{};
        if (kl_ray_tangent(detail::handle(from_.models()), from_.pos().data(), direction_.data(), &out.t,
                           out.point.data(), &out.geodetic, &out.meetsEarth, nullptr)
            == KL_ERR)
            throw_messages({"A line of sight near the centre of the Earth has no lowest point.", "Ray::tangent"});
        return out;
    }

    friend bool operator==(const Ray &a, const Ray &b) { return a.from_ == b.from_ && a.direction_ == b.direction_; }
    friend bool operator!=(const Ray &a, const Ray &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Ray &ray)
    {
        const Vector &d = ray.direction_;
        return out << ray.from_ << " towards [" << d[0] << ' ' << d[1] << ' ' << d[2] << ']';
    }

private:
    Position from_;
    Vector direction_, middle_; // the same but for a power of two
    double length_;             // of middle_
};

} // namespace ORBKIT

#endif
