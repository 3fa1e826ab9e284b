// The calendar of 1950 to 2099, in which every fourth year is a leap year.
#ifndef KL_SRC_TIME_CALENDAR_H
#define KL_SRC_TIME_CALENDAR_H

struct CalendarDay {
    long year, month, day;
};

// Whole-number calendar over four-year cycles of 1461 days, after H. F. Fliegel and T. C. Van Flandern, Comm. ACM 11,
// 657 (1968); January and February count as months 11 and 12 of the year
// before.
constexpr CalendarDay calendar_of_day(long mjd2000)
{
    const long n = 4000 * mjd2000 + 145864000;
    const long y = n / 1461001;
    const long d = mjd2000 - (1461 * y) / 4 + 36496;
    const long m = (80 * d) / 2447;
    const long k = m / 11;
    return {y + k + 1900, m - 12 * k + 2, d - (2447 * m) / 80};
}

constexpr long day_of_calendar(long year, long month, long day)
{
    const long a = (14 - month) / 12;
    return day + (367 * month + 4404 * a - 734) / 12 + (1461 * (year - 1900 - a)) / 4 - 36496;
}

constexpr long days_in_month(long year, long month)
{
    if (month == 2)
        return year % 4 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

// The first day of the quarter in which a day lies.
constexpr long quarter_start(long mjd2000)
{
    const CalendarDay date = calendar_of_day(mjd2000);
    return day_of_calendar(date.year, (date.month - 1) / 3 * 3 + 1, 1);
}

#endif
