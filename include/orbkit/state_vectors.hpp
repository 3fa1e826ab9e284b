/**
 * @file state_vectors.hpp
 */
#ifndef ORBKIT_STATE_VECTORS_HPP
#define ORBKIT_STATE_VECTORS_HPP

#include "state_vector.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace ORBKIT {

/**
 * Many states of one frame, correlation and model, each with its instant: arrays of numbers, and the calls that take
 * arrays. What one StateVector gives, they give with the same bits, in a tenth of the time and less. A state that is
 * refused refuses the call, with its number in the words.
 *
 * @code{.cpp}
 * using ORBKIT::Frame, ORBKIT::StateVector, ORBKIT::StateVectors;
 * const ORBKIT::Time start("2026-06-21T08:24:00");
 * StateVectors inertial(Frame::TOD);
 * for (int minute = 0; minute < 90; ++minute)
 *     inertial.add({7.0e6, 1e3 * minute, 0.0}, {0.0, 4.5e3, 6.0e3}, start + std::chrono::minutes(minute));
 * const StateVectors fixed = inertial.in(Frame::EF);
 * const std::vector<kl_geodetic> track = fixed.geodetic();
 * std::printf("%zu points, the last at %.3f deg\n", track.size(), track.back().longitude);
 * // -> 90 points, the last at 302.864 deg
 * std::printf("%d\n", fixed[89] == inertial[89].in(Frame::EF)); // -> 1
 * @endcode
 */
class StateVectors {
public:
    explicit StateVectors(Frame frame, Borrowed<ModelId> models = {}) : frame_(frame), models_(models) {}

    /**
     * From Keplerian elements, an instant each, as StateVector::fromKepler.
     *
     * @throws KitError when there are more of the ones than of the others, too
     */
    static StateVectors fromKepler(const std::vector<kl_kepler> &elements, Elements kind, Frame frame,
                                   const std::vector<Time> &times, Borrowed<ModelId> models = {})
    {
        detail::need_inertial(frame, "StateVectors::fromKepler");
        const long of = number(kind);
        return made("StateVectors::fromKepler", KL_ID_FUNC_KEPL_TO_CART, elements, frame, times, models,
                    [&](kl_model_id *model, const long *n, double(*pos)[3], double(*vel)[3], long *status, long *ierr) {
                        return kl_kepl_to_cart_n(model, n, &of, elements.data(), pos, vel, status, ierr);
                    });
    }
    /** From geodetic coordinates and their rates, an instant each, in Frame::EF, as StateVector::fromGeodetic. */
    static StateVectors fromGeodetic(const std::vector<kl_geodetic> &places, const std::vector<Time> &times,
                                     Borrowed<ModelId> models = {})
    {
        const long mode = KL_CALC_POS_VEL;
        return made("StateVectors::fromGeodetic", KL_ID_FUNC_GEOD_TO_CART, places, Frame::EF, times, models,
                    [&](kl_model_id *model, const long *n, double(*pos)[3], double(*vel)[3], long *status, long *ierr) {
                        return kl_geod_to_cart_n(model, n, &mode, places.data(), pos, vel, status, ierr);
                    });
    }
    /** From right ascensions and so on, an instant each, as StateVector::fromRaDec. */
    static StateVectors fromRaDec(const std::vector<kl_radec> &directions, Frame frame, const std::vector<Time> &times,
                                  Borrowed<ModelId> models = {})
    {
        const long mode = KL_CALC_POS_VEL;
        return made("StateVectors::fromRaDec", KL_ID_FUNC_RADEC_TO_CART, directions, frame, times, models,
                    [&](kl_model_id *model, const long *n, double(*pos)[3], double(*vel)[3], long *status, long *ierr) {
                        return kl_radec_to_cart_n(model, n, &mode, directions.data(), pos, vel, status, ierr);
                    });
    }

    void reserve(std::size_t n)
    {
        times_.reserve(n);
        pos_.reserve(n);
        vel_.reserve(n);
    }
    /** m, m/s. @throws KitError for an instant of another correlation */
    void add(const Vector &pos, const Vector &vel, const Time &time)
    {
        if (!times_.empty())
            Time::together(times_.front(), time);
        times_.push_back(time);
        pos_.push_back(pos);
        vel_.push_back(vel);
    }
    /** An acceleration is left behind. @throws KitError in another frame, or without an instant */
    void add(const StateVector &state)
    {
        if (state.frame() != frame_)
            throw_messages({"The states of an array must be in one frame.", "StateVectors::add"});
        add(state.pos(), state.vel(), state.time());
    }

    std::size_t size() const { return times_.size(); }
    bool empty() const { return times_.empty(); }
    /** One of them, copied. */
    StateVector operator[](std::size_t i) const { return StateVector(pos_[i], vel_[i], frame_, times_[i], models()); }
    Frame frame() const { return frame_; }
    const ModelId &models() const { return models_ != nullptr ? *models_ : default_models(); }
    const std::vector<Time> &times() const { return times_; }
    const std::vector<Vector> &pos() const { return pos_; } /**< m */
    const std::vector<Vector> &vel() const { return vel_; } /**< m/s */

    /** All of them in another frame. */
    StateVectors in(Frame frame) const
    {
        StateVectors out = *this;
        out.frame_ = frame;
        if (frame == frame_ || empty())
            return out;
        const Call call(*this);
        const long mode = KL_CALC_POS_VEL;
        const long from = number(frame_);
        const long to = number(frame);
        std::vector<Vector> acc(size());
        call.finish("StateVectors::in",
                    kl_change_cart_cs_n(detail::handle(models()), call.id, &call.n, &mode, &from, &to, &call.ref,
                                        call.days.data(), plain(pos_), plain(vel_), plain(acc), plain(out.pos_),
                                        plain(out.vel_), plain(acc), call.status, call.ierr),
                    KL_ID_FUNC_CHANGE_CART_CS);
        return out;
    }

    /** Geodetic coordinates with rates; by way of Frame::EF. */
    std::vector<kl_geodetic> geodetic() const
    {
        if (frame_ != Frame::EF)
            return in(Frame::EF).geodetic();
        std::vector<kl_geodetic> out(size());
        const Call call(*this);
        const long mode = KL_CALC_POS_VEL;
        call.finish("StateVectors::geodetic",
                    kl_cart_to_geod_n(detail::handle(models()), &call.n, &mode, plain(pos_), plain(vel_), out.data(),
                                      call.status, call.ierr),
                    KL_ID_FUNC_CART_TO_GEOD);
        return out;
    }

    /** Keplerian elements: Frame::TOD for mean ones. @throws KitError for Frame::EF and PEF, as StateVector::kepler */
    std::vector<kl_kepler> kepler(Elements kind = Elements::osculating) const
    {
        detail::need_inertial(frame(), "StateVectors::kepler");
        std::vector<kl_kepler> out(size());
        const Call call(*this);
        const long of = number(kind);
        call.finish("StateVectors::kepler",
                    kl_cart_to_kepl_n(detail::handle(models()), &call.n, &of, plain(pos_), plain(vel_), out.data(),
                                      call.status, call.ierr),
                    KL_ID_FUNC_CART_TO_KEPL);
        return out;
    }

    /** Right ascension, declination, distance and their rates, in the frame of the states. */
    std::vector<kl_radec> raDec() const
    {
        std::vector<kl_radec> out(size());
        const Call call(*this);
        const long mode = KL_CALC_POS_VEL;
        call.finish("StateVectors::raDec",
                    kl_cart_to_radec_n(detail::handle(models()), &call.n, &mode, plain(pos_), plain(vel_), out.data(),
                                       call.status, call.ierr),
                    KL_ID_FUNC_CART_TO_RADEC);
        return out;
    }

    /** Azimuth, elevation and range seen from a station, with rates. */
    std::vector<kl_topocentric> seenFrom(const GroundStation &station) const
    {
        if (frame_ != Frame::EF)
            return in(Frame::EF).seenFrom(station);
        std::vector<kl_topocentric> out(size());
        const Call call(*this);
        const long mode = KL_CALC_POS_VEL;
        if (kl_ef_to_topocentric_n(detail::handle(station.models()), &call.n, &mode, &station.geodetic(), plain(pos_),
                                   plain(vel_), out.data(), call.status, call.ierr)
            == KL_ERR) // without a public id: no messages
            throw_messages({"The station or a position is out of range.", "StateVectors::seenFrom", call.failed()});
        return out;
    }

    /** Angle on the orbit from the ascending node, with node and inclination of date. */
    std::vector<kl_orbit_angle> orbitAngle() const
    {
        std::vector<kl_orbit_angle> out(size());
        const Call call(*this);
        const long mode = KL_CALC_POS_VEL;
        const long cs = number(frame_);
        call.finish("StateVectors::orbitAngle",
                    kl_position_on_orbit_n(detail::handle(models()), call.id, &call.n, &mode, &cs, &call.ref,
                                           call.days.data(), plain(pos_), plain(vel_), nullptr, out.data(), call.status,
                                           call.ierr),
                    KL_ID_FUNC_POSITION_ON_ORBIT);
        return out;
    }

    /** Axes that go along with each of them, as StateVector::localFrame. */
    std::vector<OrbitalAxes> localFrame(OrbitalFrame kind) const
    {
        std::vector<OrbitalAxes> out(size());
        std::vector<Matrix> axes(size()), rates(size());
        const Call call(*this);
        const long of = number(kind);
        if (kl_local_orbital_frame_n(&call.n, &of, plain(pos_), plain(vel_), nullptr, plain(axes), plain(rates),
                                     call.status, call.ierr)
            == KL_ERR)
            throw_messages(
                {"A state without angular momentum has no frame.", "StateVectors::localFrame", call.failed()});
        for (std::size_t i = 0; i < size(); ++i)
            out[i] = {axes[i], rates[i]};
        return out;
    }

    friend bool operator==(const StateVectors &a, const StateVectors &b)
    {
        return a.frame_ == b.frame_ && a.times_ == b.times_ && a.pos_ == b.pos_ && a.vel_ == b.vel_;
    }
    friend bool operator!=(const StateVectors &a, const StateVectors &b) { return !(a == b); }
    /** A state a line. */
    friend std::ostream &operator<<(std::ostream &out, const StateVectors &states)
    {
        for (std::size_t i = 0; i < states.size(); ++i)
            out << states[i] << '\n';
        return out;
    }

private:
    // What the array calls share.
    struct Call {
        explicit Call(const StateVectors &states)
            : n(static_cast<long>(states.size())), id(n != 0 ? states.times_.front().id() : nullptr)
        {
            days.reserve(states.size());
            for (const Time &time : states.times_)
                days.push_back(time.taiDays());
            statuses.resize(states.size());
            status = statuses.data();
        }
        // The first state that failed, in words.
        std::string failed() const
        {
            const auto first = std::find(statuses.begin(), statuses.end(), long{KL_ERR}) - statuses.begin();
            return "State " + std::to_string(first) + " of " + std::to_string(statuses.size());
        }
        void finish(const char *operation, long result, long public_id) const
        {
            if (result == KL_ERR)
                try {
                    throw_lib_error(operation, result, public_id, ierr);
                } catch (KitError &error) {
                    error.addMsg(failed());
                    throw;
                }
            throw_unless_ok(operation, result, public_id, ierr);
        }
        long n;
        kl_time_id *id;
        long ref = KL_TIME_TAI;
        std::vector<double> days;
        std::vector<long> statuses;
        long *status;
        mutable long ierr[1] = {0};
    };

    // What an array call makes of records; it fills positions, velocities, statuses and the error vector.
    template <class Record, class Fill>
    static StateVectors made(const char *operation, long public_id, const std::vector<Record> &records, Frame frame,
                             const std::vector<Time> &times, Borrowed<ModelId> models, Fill fill)
    {
        if (records.size() != times.size())
            throw_messages({"There must be an instant for each state.", operation});
        StateVectors out(frame, models);
        out.reserve(times.size());
        for (const Time &time : times)
            out.add(Vector{}, Vector{}, time);
        if (out.empty())
            return out;
        const Call call(out);
        call.finish(
            operation,
            fill(detail::handle(out.models()), &call.n, plain(out.pos_), plain(out.vel_), call.status, call.ierr),
            public_id);
        return out;
    }

    static double (*plain(std::vector<Matrix> &m))[9] { return reinterpret_cast<double(*)[9]>(m.data()); }
    static const double (*plain(const std::vector<Vector> &v))[3]
    {
        static_assert(sizeof(Vector) == 3 * sizeof(double));
        return reinterpret_cast<const double(*)[3]>(v.data());
    }
    static double (*plain(std::vector<Vector> &v))[3] { return reinterpret_cast<double(*)[3]>(v.data()); }

    Frame frame_;
    const ModelId *models_;
    std::vector<Time> times_;
    std::vector<Vector> pos_, vel_;
};

} // namespace ORBKIT

#endif
