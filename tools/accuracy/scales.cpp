// Time scales against ERFA.
#include "kl_family.h"
#include "sky.h"

namespace {

// ---- time scales --------------------------------------------------------------------------------------------------

// What one unit in the last place of a day is, us.
double last_place(double day)
{
    return (std::nextafter(std::fabs(day), HUGE_VAL) - std::fabs(day)) * kDay * 1e6;
}

// Differences in us.
struct Scale {
    Spread us;

    void add(double ours, double whole, double fraction) // the truth: whole + fraction, of MJD2000
    {
        us.add(((ours - whole) - fraction) * kDay * 1e6);
    }

    void print(const std::string &what, const char *cause) { us.print(what, "us", cause); }
};

double convert(kl_time_id *id, long from, double time, long to)
{
    const long format = KL_PROC;
    double out = 0.0;
    if (kl_time_processing_to_processing(id, &format, &from, &time, &format, &to, &out, nullptr) == KL_ERR)
        fail("a conversion of time");
    return out;
}

struct Scales {
    Scale tai, utc, ut1, gps;

    // A UTC instant through the library and through ERFA.
    void add(kl_time_id *id, double utc_days, double tai_ut1)
    {
        // ERFA's UTC day is stretched on the day of a leap second: give it the calendar.
        const double whole = std::floor(utc_days);
        const double seconds = (utc_days - whole) * kDay;
        int y = 0;
        int m = 0;
        int d = 0;
        double fraction = 0.0;
        eraJd2cal(kEpoch2000, whole, &y, &m, &d, &fraction);
        double u1 = 0.0;
        double u2 = 0.0;
        double t1 = 0.0;
        double t2 = 0.0;
        eraDtf2d("UTC", y, m, d, static_cast<int>(seconds / 3600.0),
                 static_cast<int>(std::fmod(seconds, 3600.0) / 60.0), std::fmod(seconds, 60.0), &u1, &u2);
        eraUtctai(u1, u2, &t1, &t2);
        const double tai_days = convert(id, KL_TIME_UTC, utc_days, KL_TIME_TAI);
        tai.add(tai_days, t1 - kEpoch2000, t2);

        // Back from the library's TAI.
        eraTaiutc(kEpoch2000 + std::floor(tai_days), tai_days - std::floor(tai_days), &u1, &u2);
        int hmsf[4];
        eraD2dtf("UTC", 9, u1, u2, &y, &m, &d, hmsf);
        double mjd0 = 0.0;
        double mjd = 0.0;
        eraCal2jd(y, m, d, &mjd0, &mjd);
        utc.add(convert(id, KL_TIME_TAI, tai_days, KL_TIME_UTC), mjd - 51544.0,
                ((hmsf[0] * 60.0 + hmsf[1]) * 60.0 + hmsf[2] + hmsf[3] * 1e-9) / kDay);

        double a = 0.0;
        double b = 0.0;
        eraTaiut1(t1, t2, -tai_ut1, &a, &b);
        ut1.add(convert(id, KL_TIME_UTC, utc_days, KL_TIME_UT1), a - kEpoch2000, b);
        gps.add(convert(id, KL_TIME_TAI, tai_days, KL_TIME_GPS), std::floor(tai_days),
                (tai_days - std::floor(tai_days)) - 19.0 / kDay);
    }

    void print(const std::string &where)
    {
        char grain[96];
        std::snprintf(grain, sizeof grain, "a day as a double has steps of up to %.2g us in these years",
                      last_place(9861.0));
        tai.print("UTC to TAI" + where, grain);
        utc.print("TAI to UTC" + where, "the same");
        ut1.print("UTC to UT1 with one TAI-UT1" + where, "the same");
        gps.print("TAI to GPS, against TAI - 19 s" + where, "the same");
    }
};

// A half-year end of the table of leap seconds.
struct HalfYear {
    double day;           // MJD2000
    double before, after; // TAI-UTC, s

    HalfYear(int year, int month)
    {
        double mjd0 = 0.0;
        double mjd = 0.0;
        eraCal2jd(year, month, 1, &mjd0, &mjd);
        day = mjd - 51544.0;
        eraDat(year, month, 1, 0.0, &after);
        eraDat(month == 1 ? year - 1 : year, month == 1 ? 12 : 6, month == 1 ? 31 : 30, 0.0, &before);
    }
};

void compare_tdb(const std::vector<double> &instants)
{
    Spread ours;
    Spread mended;
    for (const double tai : instants) {
        double tdb = 0.0;
        if (KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb) != 0)
            fail("TAI to TDB");
        const double tt = tai + kTtMinusTai / kDay;
        const double truth = kTtMinusTai + eraDtdb(kEpoch2000, tt, 0.0, 0.0, 0.0, 0.0);
        ours.add(((tdb - tai) * kDay - truth) * 1e6);
        const double anomaly = (357.53 + 0.98560028 * (tai - 0.5)) * 3600.0 / kArcsec;
        mended.add((kTtMinusTai + 0.001658 * std::sin(anomaly) + 0.000014 * std::sin(2.0 * anomaly) - truth) * 1e6);
    }
    ours.print("TAI to TDB", "us", "on purpose: the degrees of the anomaly go to the sines as radians");
    mended.print("TAI to TDB, the same formula but for that", "us", "two periodic terms of some hundreds");
}

} // namespace

void compare_scales(const std::vector<double> &instants)
{
    heading("Time scales, against ERFA: UTC at random instants of 1972 to 2026 and about the leap seconds, TDB over "
            "1950 to "
            "2099");
    std::vector<HalfYear> ends;
    for (int year = 1972; year <= 2026; ++year)
        for (const int month : {1, 7})
            if (year != 1972 || month != 1)
                ends.emplace_back(year, month);
    std::mt19937_64 random(19720101);
    Scales anywhere;
    Scales near_leap;
    long leaps = 0;
    for (const HalfYear &end : ends)
        leaps += end.after != end.before ? 1 : 0;
    const auto count = static_cast<long>(instants.size());
    for (const HalfYear &end : ends) {
        // A table of one half-year end: the day before it and the day itself, and rows far on both sides.
        constexpr double kRows[] = {-100.0, -1.0, 0.0, 100.0};
        kl_time_row rows[4];
        const double tai_ut1 = end.before + 0.3;
        for (int i = 0; i < 4; ++i) {
            const double utc = end.day + kRows[i];
            const double tai_utc = i < 2 ? end.before : end.after;
            const double tai = utc + tai_utc / kDay;
            rows[i] = {tai, tai - tai_ut1 / kDay, utc, tai_utc, tai_ut1, 19.0};
        }
        kl_time_id_data data = {};
        data.model = 1;
        data.combination = -1;
        data.no_extrapolation = 1;
        data.n_rows = 4;
        data.rows = rows;
        kl_time_id id = {nullptr};
        if (kl_time_set_id_data(&id, &data) != 0)
            fail("kl_time_set_id_data");
        const auto sample = [&](Scales &scales, double first, double last, long n) {
            std::uniform_real_distribution<double> instant(end.day + first, end.day + last);
            for (long i = 0; i < n; ++i)
                scales.add(&id, std::floor(instant(random) * 8.64e10) / 8.64e10, tai_ut1);
        };
        sample(anywhere, -91.0, 91.0, count / static_cast<long>(ends.size()) + 1);
        if (end.after != end.before)
            sample(near_leap, -1.9, 0.9, count / leaps + 1);
        kl_time_close(&id, nullptr);
    }
    anywhere.print("");
    near_leap.print(", within two days of the " + std::to_string(leaps) + " leap seconds");
    compare_tdb(instants);
}
