// Calendar, time references, the standard record, sums and differences, TDB, and what single functions refuse.
#include "support/captured_stream.h"
#include "support/tolerances.h"
#include "time/format_cases.h"

#include <cmath>

namespace {

enum { kMjd = 3, kTaiOfRecord = 3, kUtcOfRecord = 5 }; // format and references of a time record
constexpr double kJustBefore2017 = k2017 - 0.4e-6 / kDay;

std::string write(const kl_calendar_record &date)
{
    return std::to_string(date.year) + "-" + std::to_string(date.month) + "-" + std::to_string(date.day) + " "
           + std::to_string(date.seconds) + " s " + std::to_string(date.microseconds) + " us";
}

std::string date_of(double days)
{
    const kl_time_record in = {kUtcOfRecord, kMjd, days};
    kl_calendar_record out{};
    EXPECT_EQ(KL_MJD_Calendar(&in, &out, nullptr), 0);
    return write(out);
}

// The standard record of a processing time, as its fields.
std::string standard_of(kl_time_id *id, long ref, double time)
{
    kl_std_record out{};
    EXPECT_EQ(KL_Time_p2t_format_to_std(id, ref, &time, &out, nullptr), 0) << time;
    return fields_of({out.days, out.seconds, out.microseconds});
}

TEST(SingleFunctions, KnownValues)
{
    NamedIds ids;
    kl_time_record mjd{};
    double start = 0.0;
    std::string months;
    for (long month = 1; month <= 12; ++month)
        months += kl_months[month] + std::string(" ");
#include "time/single_values.inc"
    for (const auto &[name, id, scale, time, fields] :
         read_rows<std::string, IdName, Scale, double, std::string>("standard_records.csv"))
        EXPECT_EQ(standard_of(ids[id], scale, time), fields) << name;
    const kl_std_record outside = {20, 0, 0};
    for (const long set : {-1L, 0L, 1L, 2L})
        for (const long once : {3L, 0L}) {
            const bool valid = set == 0 || set == 1;
            long warning = 7;
            EXPECT_EQ(KL_Check_Time_warn_flags(ids[kTenDays], &outside, &set, &warning), valid ? 0 : -1);
            EXPECT_EQ(warning, valid ? once : 0) << set;
        }
}

TEST(References, OfCallsAndRecordsAreEachOthersAndUndefinedPassesTheLoudCheckAloneOnPurpose)
{
    constexpr int kOfRecord[] = {-1, kTaiOfRecord, kUtcOfRecord, 4, 6, -1}; // for -1 to 4
    for (long ref = -1; ref <= 4; ++ref) {
        const int of_record = kOfRecord[ref + 1];
        EXPECT_EQ(KL_Time_ref_enum_to_Time_enum(ref), of_record) << ref;
        EXPECT_EQ(KL_Check_time_ref(&ref, nullptr), ref < 4 ? 0 : -1) << ref;
        EXPECT_EQ(KL_Check_time_ref_2(ref), ref < 4 && ref != KL_TIME_UNDEF ? 1 : 0) << ref;
        EXPECT_TRUE(of_record < 0 || KL_Time_enum_to_Time_ref_enum(of_record) == ref) << ref;
    }
    EXPECT_EQ(KL_Check_time_ref(at(-2L), nullptr), -1);
    for (const int none : {2, 7})
        EXPECT_EQ(KL_Time_enum_to_Time_ref_enum(none), -1);
}

TEST(LeapSecondDay, IsThatOfTheIdAndFlagsThoseOfARow)
{
    NamedIds ids;
    for (const auto &[name, scale, day, code, expected] :
         read_rows<std::string, Scale, long, long, long>("leap_second_days.csv")) {
        long flag = -7;
        expect_record(name.c_str(), code, "",
                      [&, ref = scale.ref, record = kl_std_record{day, 0, 0}](kl_error_record *e) {
                          return KL_Time_check_leap_second(ids[kPositiveLeap], ref, &record, &flag, e);
                      });
        EXPECT_EQ(flag, expected) << name;
    }
    for (const auto &[name, id, scale, row, start, time, status, expected] :
         read_rows<std::string, IdName, Scale, long, double, double, long, long>("leap_second_intervals.csv")) {
        long flag = 0, after = 0;
        EXPECT_EQ(KL_Check_if_time_is_post_leap_second(ids[id], scale, row, &flag, &after, start, 10000.0, time),
                  status);
        EXPECT_EQ(std::tuple(flag, after), std::tuple(expected, expected)) << name;
    }
}

TEST(SingleFunctions, TableOfConditions)
{
    NamedIds ids;
    kl_time_id *const id = ids[kTenDays];
    const kl_cuc_config gps = {KL_CUC_WITH_P_FIELD, KL_CUC_EPOCH_1980, kTai, 0.0, 4, 2};
    kl_calendar_record date = {7, 7, 7, 7, 7, 7};
    kl_time_record mjd = {0, 0, 7.0};
    kl_std_record standard{};
    int valid = 7;
    double time = 0.0;
    long n = 0;
    unsigned char octets[KL_CUC_LENGTH] = {0};
#include "time/single_conditions.inc"
    for (const auto &[cell, code] : read_rows<std::string, long>("calendar_dates.csv")) {
        expect_record(cell.c_str(), code, "", [&valid, given = cell](kl_error_record *e) {
            const auto record = record_as<kl_calendar_record, 6>("5 " + given);
            return KL_Calendar(&record, &valid, e);
        });
        EXPECT_EQ(valid, code == kNone ? 1 : 0) << cell;
    }
    EXPECT_EQ(std::tuple(valid, date.year, mjd.value), std::tuple(0, 7, 7.0));
    for (const auto &[format, ref, days, code, value] :
         read_rows<long, long, double, long, std::string>("processing_inputs.csv")) {
        const std::string line = verbose_text([&, f = format, r = ref, &t = days, c = code] {
            expect_record("inputs", c, "",
                          [&](kl_error_record *e) { return KL_Time_check_processing_inputs(f, r, &t, e); });
        });
        EXPECT_TRUE(code == kNone || line.find("(" + value + ")\n") != std::string::npos) << line;
    }
}

TEST(Durations, AreAddedAndTakenAwayOrRefused)
{
    for (const auto &[name, call, format, ref, first, second, bits, expected] :
         read_rows<std::string, std::string, long, Scale, double, double, Bits, double>("durations.csv")) {
        double result = 7.0;
        long ierr = -7;
        EXPECT_EQ((call == "add" ? kl_time_add : kl_time_diff)(&format, &ref.ref, &first, &second, &result, &ierr),
                  status_with(bits));
        EXPECT_EQ(ierr, bits) << name;
        EXPECT_TRUE(result == expected || (std::isnan(result) && std::isnan(expected))) << name << " " << result;
    }
}

TEST(ScaleSteps, GoToTaiAndFromItAsTheLookUpSays)
{
    NamedIds ids;
    kl_std_record standard{};
    double result = 7.0;
    const auto text = [](long code, const char *function) {
        return code == 1 ? std::string("WARNING in ") + function + ": Time out of initialization range" : std::string();
    };
    for (const auto &[name, id, scale, day, codes, to, from] :
         read_rows<std::string, IdName, Scale, long, long, long, long>("scale_steps.csv")) {
        const kl_std_record record = {day, 0, 0};
        const Deltas deltas(ids[id], scale, static_cast<double>(day));
        EXPECT_EQ(std::tuple(deltas.codes, deltas.in_leap, deltas.after_leap), std::tuple(codes, 0, 0)) << name;
        expect_record(name.c_str(), to, text(to, "KL_Time_t2t_ref_to_tai"),
                      [&, of = ids[id], ref = scale.ref](kl_error_record *e) {
                          return KL_Time_t2t_ref_to_tai(of, ref, &record, &standard, e);
                      });
        expect_record(name.c_str(), from, text(from, "KL_Time_t2t_ref_from_tai"),
                      [&, of = ids[id], ref = scale.ref](kl_error_record *e) {
                          return KL_Time_t2t_ref_from_tai(of, ref, &record, &standard, e);
                      });
    }
    RECORDS(kNone, "", KL_Time_t2t_ref_to_tai(ids[kTenDays], kTai, at(kl_std_record{10, 86400, 999999}), &standard, e))
    GIVES("10 86400 999999 0",
          fields_of({standard.days, standard.seconds, standard.microseconds})) // TAI stays as it is
    // The same with days in and out; a warning is no failure, and equal scales are not looked at.
    RECORDS(kNone, "", KL_Get_time_in_ref(ids[kTenDays], kUtc, kTai, &result, e, 50.0))
    GIVES(50.0 + 32.0 / kDay, result)
    RECORDS(kNone, "", KL_Get_time_in_ref(nullptr, 9, 9, &result, e, 0.123456789012345))
    GIVES(0.123456789012345, result)
}

TEST(MjdCalendar, RoundingUpToMidnightStaysOnTheSameDayWith86400SecondsOnPurpose)
{
    EXPECT_EQ(date_of(1.0 - 1e-12), "2000-1-1 86400 s 0 us");
}

TEST(JulianDay, StartsAtMidnightHalfADayAfterTheAstronomicalOneOnPurpose)
{
    EXPECT_EQ(KL_MJD_to_Julian(0.25), 2451545.25); // the astronomers' date of the noon that follows, and a quarter
}

TEST(LeapSecondDay, ANegativeLeapSecondKeeps86400SecondsAsWellOnPurpose)
{
    EXPECT_EQ(standard_of(NamedIds()[kNegativeLeap], kUtc, kJustBefore2017), "6209 86400 0 0");
}

// TDB - TAI, s, with mpmath; with the anomaly turned into radians it would differ by 0.14 ms and more.
TEST(Tdb, TheAnomalyInDegreesIsTakenAsRadiansOnPurpose)
{
    // The inverse evaluates the term at the TDB instant, 32 s on: 0.0017 s times 0.986 rad a day times 32 s.
    constexpr double kTermMoves = 0.0017 * 0.9856 * 32.2 / kDay / kDay; // days
    for (const auto &row : read_table("tdb.csv", 2)) {
        const double tai = row[0], difference = row[1];
        double tdb = 0.0, back = 0.0;
        EXPECT_EQ(KL_Time_p2p_ref_tai_to_tdb(&tai, &tdb), 0);
        EXPECT_EQ(KL_Time_p2p_ref_tdb_to_tai(&tdb, &back), 0);
        const double spacing = std::nextafter(std::fabs(tai) + 1e-3, HUGE_VAL) - (std::fabs(tai) + 1e-3);
        EXPECT_NEAR((tdb - tai) * kDay, difference, spacing * kDay + 1e-12) << tai;
        EXPECT_NEAR(back, tai, 1.1 * kTermMoves + 2.0 * spacing) << tai;
    }
    const double far = 1e20; // where a term out of its range would show, and half a minute does not
    double tdb = 0.0;
    EXPECT_EQ(KL_Time_p2p_ref_tai_to_tdb(&far, &tdb), 0);
    EXPECT_EQ(tdb, far);
}

} // namespace
