/**
 * @file rotation.hpp
 */
#ifndef ORBKIT_ROTATION_HPP
#define ORBKIT_ROTATION_HPP

#include "lib_error.hpp"
#include "types.hpp"

#include <cmath>
#include <ostream>

namespace ORBKIT {

/**
 * From one set of axes to another. The rows of its matrix are the new axes in the old ones, so that applying it to a
 * vector gives the vector's components along the new axes. Name rotations by their ends, then the order of a
 * composition tells itself: `a_to_b.then(b_to_c)` is a_to_c.
 *
 * @code{.cpp}
 * const ORBKIT::Rotation body_to_camera = ORBKIT::Rotation::fromAngles({0.0, 0.0, 90.0}); // yaw last
 * const ORBKIT::Vector seen = body_to_camera({1.0, 0.0, 0.0});
 * std::printf("%.0f\n", std::fabs(seen[1])); // -> 1
 * const ORBKIT::Rotation none = body_to_camera.then(body_to_camera.inverse());
 * std::printf("%.0f deg\n", none.angle()); // -> 0 deg
 * @endcode
 */
class Rotation {
public:
    /** No rotation. */
    Rotation() = default;

    /** From the new axes, orthonormal and right-handed. */
    static Rotation fromAxes(const Axes &axes)
    {
        Quaternion q{};
        long ierr[1] = {0};
        throw_unless_ok("Rotation::fromAxes",
                        kl_vectors_to_quaternions(axes.x.data(), axes.y.data(), axes.z.data(), q.data(), ierr),
                        KL_ID_FUNC_VECTORS_TO_QUATERNIONS, ierr);
        return fromQuaternion(q);
    }

    /** From a unit quaternion, vector part first. */
    static Rotation fromQuaternion(const Quaternion &q)
    {
        Rotation out;
        long ierr[1] = {0};
        double *m = out.matrix_.data();
        throw_unless_ok("Rotation::fromQuaternion", kl_quaternions_to_vectors(q.data(), m, m + 3, m + 6, ierr),
                        KL_ID_FUNC_QUATERNIONS_TO_VECTORS, ierr);
        return out;
    }

    /** From the three angles of kl_euler_to_matrix, deg. */
    static Rotation fromAngles(const Vector &angles)
    {
        Rotation out;
        if (kl_euler_to_matrix(angles.data(), out.matrix_.data(), nullptr) == KL_ERR || !std::isfinite(out.matrix_[0]))
            throw_messages({"The angles must be numbers.", "Rotation::fromAngles"});
        return out;
    }

    /** Rows: the new axes. */
    const Matrix &matrix() const { return matrix_; }

    Axes axes() const
    {
        const Matrix &m = matrix_;
        return {{m[0], m[1], m[2]}, {m[3], m[4], m[5]}, {m[6], m[7], m[8]}};
    }

    Quaternion quaternion() const
    {
        const double *const m = matrix_.data();
        Quaternion q;
        long ierr[1] = {0};
        throw_unless_ok("Rotation::quaternion", kl_vectors_to_quaternions(m, m + 3, m + 6, q.data(), ierr),
                        KL_ID_FUNC_VECTORS_TO_QUATERNIONS, ierr);
        return q;
    }

    /** The angles of kl_matrix_to_euler, deg. */
    Vector angles() const
    {
        Vector out{};
        long ierr[1] = {0};
        throw_unless_ok("Rotation::angles", kl_matrix_to_euler(matrix_.data(), out.data(), ierr),
                        KL_ID_FUNC_MATRIX_TO_EULER, ierr);
        return out;
    }

    /** Angle of the whole turn, deg, 0 to 180. */
    double angle() const
    {
        const Quaternion q = quaternion();
        constexpr double kDegree = 57.29577951308232;
        return 2.0 * std::atan2(std::hypot(q[0], q[1], q[2]), std::fabs(q[3])) * kDegree;
    }

    Rotation inverse() const
    {
        Rotation out;
        for (std::size_t i = 0; i < 9; ++i)
            out.matrix_[i] = matrix_[3 * (i % 3) + i / 3];
        return out;
    }

    /** This rotation, and after it the next one. */
    Rotation then(const Rotation &next) const
    {
        Rotation out;
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t k = 0; k < 3; ++k)
                out.matrix_[3 * i + k] = next.matrix_[3 * i] * matrix_[k] + next.matrix_[3 * i + 1] * matrix_[3 + k]
                                         + next.matrix_[3 * i + 2] * matrix_[6 + k];
        return out;
    }

    /** Components along the new axes. */
    Vector operator()(const Vector &v) const
    {
        Vector out{};
        for (std::size_t i = 0; i < 3; ++i)
            out[i] = matrix_[3 * i] * v[0] + matrix_[3 * i + 1] * v[1] + matrix_[3 * i + 2] * v[2];
        return out;
    }

    friend bool operator==(const Rotation &a, const Rotation &b) { return a.matrix_ == b.matrix_; }
    friend bool operator!=(const Rotation &a, const Rotation &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const Rotation &r)
    {
        const Quaternion q = r.quaternion();
        return out << '[' << q[0] << ' ' << q[1] << ' ' << q[2] << ' ' << q[3] << ']';
    }

private:
    Matrix matrix_ = {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
};

} // namespace ORBKIT

#endif
