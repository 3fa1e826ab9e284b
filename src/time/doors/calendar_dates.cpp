// Calendar dates of MJD2000 instants and back for the family, 1950 to 2099.
#include "errors/activation.h"
#include "time/calendar.h"
#include "time/instants.h"

#include <cmath>

namespace {

// The first condition that a date meets, or -1.
int fault_of(const kl_calendar_record *given)
{
    if (given == nullptr)
        return KL_CALENDAR_YEAR;
    const kl_calendar_record &date = *given;
    if (date.year < 1950 || date.year > 2099)
        return KL_CALENDAR_YEAR;
    if (date.month < 1 || date.month > 12)
        return KL_CALENDAR_MONTH;
    if (date.day < 1 || date.day > 31)
        return KL_CALENDAR_DAY;
    if (date.seconds < 0 || date.seconds > 86399)
        return KL_CALENDAR_SECONDS;
    if (static_cast<unsigned long>(date.microseconds) > 999999UL)
        return KL_CALENDAR_MICROSECONDS;
    const long days = days_in_month(date.year, date.month);
    if (date.day > days)
        return days == 30 ? KL_CALENDAR_THIRTY_DAYS : days == 29 ? KL_CALENDAR_LEAP_FEBRUARY : KL_CALENDAR_FEBRUARY;
    return -1;
}

} // namespace

long KL_MJD_Calendar(const kl_time_record *in, kl_calendar_record *out, kl_error_record *error)
{
    Activation call(KL_FN_MJD_CALENDAR, error);
    if (in == nullptr || !(in->value >= KL_PROCESSING_FIRST && in->value < KL_CALENDAR_END))
        return call.fails(KL_MJD_CALENDAR_OUT_OF_LIMITS);
    if (out == nullptr)
        return KL_ERR;
    const long day = floor_to_long(in->value);
    const CalendarDay date = calendar_of_day(day);

    double f = (in->value - static_cast<double>(day)) * 24;
    const double h = std::trunc(f);
    f = (f - h) * 60;
    const double mi = std::trunc(f);
    // On purpose: rounded to the nearest microsecond, but a rounding up to 86400 seconds is not carried into the next
    // day.
    f = (f - mi) * 60 + 5e-7;
    const double s = std::trunc(f);

    out->reference = in->reference;
    out->year = date.year;
    out->month = date.month;
    out->day = date.day;
    out->seconds = static_cast<long>(3600 * h + 60 * mi + s);
    out->microseconds = static_cast<long>((f - s) * 1e6);
    return call.status();
}

long KL_Calendar(const kl_calendar_record *in, int *valid, kl_error_record *error)
{
    Activation call(KL_FN_CALENDAR, error);
    const int fault = fault_of(in);
    if (valid != nullptr)
        *valid = fault < 0 ? 1 : 0;
    if (fault >= 0)
        return call.fails(fault);
    return call.status();
}

long KL_Calendar_MJD(const kl_calendar_record *in, kl_time_record *out, kl_error_record *error)
{
    Activation call(KL_FN_CALENDAR_MJD, error);
    const int fault = fault_of(in);
    if (fault >= 0) {
        Activation(KL_FN_CALENDAR, KL_NO_RECORD).fails(fault);
        return call.fails(KL_CALENDAR_MJD_NOT_A_DATE);
    }
    if (out == nullptr)
        return KL_ERR;
    const long h = in->seconds / 3600;
    const long r = in->seconds - 3600 * h;
    const long mi = static_cast<long>(static_cast<double>(r) / 60.0);
    const double seconds =
        static_cast<double>(3600 * h + 60 * mi + (r - 60 * mi)) + static_cast<double>(in->microseconds) / 1e6;
    out->reference = static_cast<std::int32_t>(in->reference);
    out->format = KL_FORMAT_MJD2000;
    out->value = static_cast<double>(day_of_calendar(in->year, in->month, in->day)) + seconds / KL_SECONDS_PER_DAY;
    return call.status();
}

double KL_MJD_to_Julian(double mjd2000)
{
    // On purpose: counted from midnight, half a day more than the astronomical Julian date; all users rely on it.
    return mjd2000 + 2451545.0;
}
