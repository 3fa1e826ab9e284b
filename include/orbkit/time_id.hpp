/**
 * @file time_id.hpp
 */
#ifndef ORBKIT_TIME_ID_HPP
#define ORBKIT_TIME_ID_HPP

#include "kit_id.hpp"

#include <array>
#include <vector>

namespace ORBKIT {

/** Data of a time correlation: the members of kl_time_id_data, with rows that free themselves. */
struct TimeIdData {
    TimeIdData() = default;
    explicit TimeIdData(const kl_time_id_data &data);

    long model = 1;
    long combination = 0;
    long no_extrapolation = 1;
    long second_bulletin_row = 0;
    double a = 0.0, b = 0.0, c = 0.0;
    long leap_sign = 0;                    /**< output of getData */
    double leap_utc = 0.0, leap_tai = 0.0; /**< outputs of getData */
    std::vector<kl_time_row> rows;
};

/**
 * A time id that closes itself: a correlation between TAI, UTC, UT1 and GPS, from the four readings of one instant or
 * from a table. Copies share it; the last one closes it. What ModelId says of runs and threads holds here too, but
 * conversions with one id in two threads share its once-only warnings.
 *
 * @code{.cpp}
 * // On 1 March 2017 TAI was 37 s ahead of UTC and 19 s ahead of GPS; UT1 was 0.5 s ahead of UTC.
 * const double utc = 6269.0, second = 1.0 / 86400.0;
 * const ORBKIT::TimeId time({utc + 37 * second, utc, utc + 0.5 * second, utc + 18 * second});
 * const double gps = ORBKIT::LibFunc::timeProcessingToProcessing(time, KL_TIME_UTC, 6300.5, KL_TIME_GPS);
 * std::printf("GPS-UTC %.0f s\n", (gps - 6300.5) * 86400.0); // -> GPS-UTC 18 s
 *
 * ORBKIT::TimeIdData table = time.getData(); // a second row one day later makes a table of it
 * table.model = 1;
 * table.rows.push_back(table.rows[0]);
 * for (double *column : {&table.rows[1].tai, &table.rows[1].utc, &table.rows[1].ut1})
 *     *column += 1.0;
 * std::printf("%zu rows\n", ORBKIT::TimeId(table).getData().rows.size()); // -> 2 rows
 * @endcode
 */
class KL_API TimeId : public KitId {
public:
    /** No id. */
    TimeId();
    /** As init. */
    explicit TimeId(const std::array<double, 4> &tri_time);
    /** As init. */
    explicit TimeId(const TimeIdData &data);
    TimeId(const TimeId &other);
    TimeId(TimeId &&other) noexcept;
    TimeId &operator=(const TimeId &other);
    TimeId &operator=(TimeId &&other) noexcept;
    ~TimeId() override;

    /**
     * Initialises a new id from the same instant read on four scales and gives up the one held until now.
     *
     * @param tri_time  MJD2000 in TAI, UTC, UT1 and GPS, days
     * @throws KitError when kl_time_ref_init fails; the object then is as it was
     */
    void init(const std::array<double, 4> &tri_time);

    /**
     * Initialises a new id from a table and gives up the one held until now.
     *
     * @throws KitError with "Time correlation data cannot be set." when kl_time_set_id_data refuses the data, which
     *         says why in verbose mode; the object then is as it was
     */
    void init(const TimeIdData &data);

    /** @throws KitError with "Time correlation data cannot be read.", for an empty object above all */
    TimeIdData getData() const;

    /** 1 when the id is initialised, else 0. */
    long status() const;

    /** The handle, for the C functions; it stays the object's. */
    kl_time_id *getId() const;

    /**
     * Gives up this object's share and leaves it empty; closes the id when nobody else holds it.
     *
     * @throws KitError when the id is free and cannot be closed; the object then keeps it
     */
    void eraseObject();
};

} // namespace ORBKIT

#endif
