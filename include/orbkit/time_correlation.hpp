/**
 * @file time_correlation.hpp
 */
#ifndef ORBKIT_TIME_CORRELATION_HPP
#define ORBKIT_TIME_CORRELATION_HPP

#include "enums.hpp"
#include "kit_id.hpp"

#include <array>
#include <optional>
#include <ostream>
#include <string>
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
    std::vector<std::array<double, 4>> pole;    /**< beside the rows, or empty: x, y, dX, dY, arcsec */
    std::vector<std::array<long, 2>> row_notes; /**< beside the rows, or empty */
    std::array<double, 5> pole_x{}, pole_y{};
    std::array<double, 2> pole_reference_date{}, pole_period{};
};

/** A window of UTC, MJD2000. */
struct TimeWindow {
    double start = 0.0, stop = 0.0;
};

/** A step of TAI-UTC: its value, s, from an instant on, UTC, MJD2000. */
struct LeapSecondStep {
    double utc = 0.0, tai_utc = 0.0;
};

/**
 * The correlation between TAI, UTC, UT1 and GPS: a time id that closes itself, from the four readings of one instant,
 * from a table, from files as their services publish them, or the one compiled in. Copies share it; the last one closes
 * it. What ModelId says of runs and threads holds here too, but conversions with one id in two threads share its
 * once-only warnings.
 *
 * @code{.cpp}
 * // On 1 March 2017 TAI was 37 s ahead of UTC and 19 s ahead of GPS; UT1 was 0.5 s ahead of UTC.
 * const double utc = 6269.0, second = 1.0 / 86400.0;
 * const ORBKIT::TimeCorrelation time({utc + 37 * second, utc, utc + 0.5 * second, utc + 18 * second});
 * const double gps = ORBKIT::LibFunc::timeProcessingToProcessing(time, KL_TIME_UTC, 6300.5, KL_TIME_GPS);
 * std::printf("GPS-UTC %.0f s\n", (gps - 6300.5) * 86400.0); // -> GPS-UTC 18 s
 *
 * ORBKIT::TimeIdData table = time.getData(); // a second row one day later makes a table of it
 * table.model = 1;
 * table.rows.push_back(table.rows[0]);
 * for (double *column : {&table.rows[1].tai, &table.rows[1].utc, &table.rows[1].ut1})
 *     *column += 1.0;
 * std::printf("%zu rows\n", ORBKIT::TimeCorrelation(table).getData().rows.size()); // -> 2 rows
 *
 * const auto published = ORBKIT::TimeCorrelation::builtIn(); // UT1, leap seconds and pole since 1972
 * const kl_time_row_info row = published.getRow(ORBKIT::Scale::UTC, 6210.0);
 * std::printf("2017-01-01: TAI-UTC %.0f s, UT1-UTC %.4f s\n", row.tai_utc, row.tai_utc - row.tai_ut1);
 * // -> 2017-01-01: TAI-UTC 37 s, UT1-UTC 0.5913 s
 * const ORBKIT::TimeWindow rows = published.getValidity();
 * std::printf("from day %.0f to %.0f\n", rows.start, rows.stop); // -> from day -10227 to 10094
 * @endcode
 */
class KL_API TimeCorrelation : public KitId {
public:
    /** No id. */
    TimeCorrelation();
    /** As init. */
    explicit TimeCorrelation(const std::array<double, 4> &tri_time);
    /** As init. */
    explicit TimeCorrelation(const TimeIdData &data);
    /**
     * From the correlation compiled into the library: UT1, leap seconds and pole, daily since 1972.
     *
     * @param window  only the rows around it
     * @param report  what it holds, or null
     * @throws KitError when kl_time_id_init fails
     */
    static TimeCorrelation builtIn(const std::optional<TimeWindow> &window = std::nullopt,
                                   kl_time_file_report *report = nullptr);
    /**
     * From files of any kind together; the formats are those of kl_time_ref_init_file.
     *
     * @param files            their names; none: as builtIn
     * @param window           only the rows around it
     * @param report           what was found: n_rows, first, last_final and last (UTC, MJD2000); when it throws where:
     *                         file, line, column, field. Or null
     * @param by_formula_after after the table by the formula of a Bulletin A instead of the last row
     * @throws KitError when kl_time_id_init fails
     */
    static TimeCorrelation fromFiles(const std::vector<std::string> &files,
                                     const std::optional<TimeWindow> &window = std::nullopt,
                                     kl_time_file_report *report = nullptr, bool by_formula_after = false);
    /**
     * From files of one model.
     *
     * @throws KitError when kl_time_ref_init_file fails
     */
    static TimeCorrelation fromFiles(TimeModel model, const std::vector<std::string> &files,
                                     const std::optional<TimeWindow> &window = std::nullopt,
                                     kl_time_file_report *report = nullptr);
    TimeCorrelation(const TimeCorrelation &other);
    TimeCorrelation(TimeCorrelation &&other) noexcept;
    TimeCorrelation &operator=(const TimeCorrelation &other);
    TimeCorrelation &operator=(TimeCorrelation &&other) noexcept;
    ~TimeCorrelation() override;

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

    /** UTC of the first and the last row: between them instants are served without a warning. @throws as getData */
    TimeWindow getValidity() const;

    /**
     * The pole of the Earth: x, y, dX, dY, arcsec.
     *
     * @param days  MJD2000; of a Time: Time::served()
     * @throws KitError with "Pole cannot be read." when kl_time_get_pole fails
     */
    std::array<double, 4> getPole(Scale scale, double days) const;

    /**
     * Which row serves an instant, and what it gives.
     *
     * @param days  MJD2000; of a Time: Time::served()
     * @throws KitError with "Row of the time correlation cannot be read." when kl_time_get_row fails
     */
    kl_time_row_info getRow(Scale scale, double days) const;

    /**
     * All steps of TAI-UTC in the table.
     *
     * @param expiry  receives the instant until which the list that was read is good, UTC, MJD2000, 0: none; or null
     * @throws KitError with "Leap seconds cannot be read." when kl_time_get_leap_seconds fails
     */
    std::vector<LeapSecondStep> getLeapSeconds(double *expiry = nullptr) const;

    /** 1 when the id is initialised, else 0. */
    long status() const;

    /** The handle, for the C functions; it stays the object's. */
    kl_time_id *getId() const;

    /** The same id. */
    friend bool operator==(const TimeCorrelation &a, const TimeCorrelation &b)
    {
        return a.handle_.time.record == b.handle_.time.record;
    }
    friend bool operator!=(const TimeCorrelation &a, const TimeCorrelation &b) { return !(a == b); }
    friend std::ostream &operator<<(std::ostream &out, const TimeCorrelation &time)
    {
        if (time.status() != 1)
            return out << "no time correlation";
        const TimeWindow rows = time.getValidity();
        return out << "time correlation from day " << rows.start << " to " << rows.stop;
    }

    /**
     * Gives up this object's share and leaves it empty; closes the id when nobody else holds it.
     *
     * @throws KitError when the id is free and cannot be closed; the object then keeps it
     */
    void eraseObject();
};

} // namespace ORBKIT

#endif
