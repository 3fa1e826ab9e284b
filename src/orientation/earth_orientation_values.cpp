#include "orientation/earth_orientation_values.h"
#include "kl_family.h"
#include "numbers/elementary.h"
#include "orientation/eop_rows.h"
#include "time/deltas.h"
#include "time/moments.h"
#include "time/time_record.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kWidest = 10.0;    // days: rows further apart are joined by straight lines
constexpr long kModelOrbitFile = 7; // rows of leap seconds only: straight lines too
constexpr long kModelLeapSeconds = 8;

struct Span {
    long first, n; // rows that take part in the interpolation
};

// Days from an instant to that of a row.
double days_to(const kl_time_row &row, const SplitDay &tai)
{
    return (row.tai - static_cast<double>(tai.day)) - tai.fraction;
}

double days_of(const SplitDay &day)
{
    return static_cast<double>(day.day) + day.fraction;
}

// The last row at or before an instant of TAI, -1 when there is none.
long row_before(const Correlation &c, const SplitDay &tai)
{
    return row_of(c, KL_TIME_TAI, days_of(tai));
}

// The same from a row nearby.
long row_near(const Correlation &c, double t, long low)
{
    low = std::max(low, 0L);
    long high = low;
    for (long step = 1; low >= 0 && c.rows[low].tai > t; step *= 2) {
        high = low;
        low = std::max(low - step, -1L);
    }
    for (long step = 1; high < c.n_rows && c.rows[high].tai <= t; step *= 2) {
        low = high;
        high = std::min(high + step, c.n_rows);
    }
    while (high - low > 1) {
        const long middle = low + (high - low) / 2;
        (c.rows[middle].tai <= t ? low : high) = middle;
    }
    return low;
}

// Does the correlation know nothing better than straight lines?
bool only_straight(const Correlation &c)
{
    return c.model == kModelOrbitFile || c.model == kModelLeapSeconds || c.n_rows < 4;
}

Span span_about(const Correlation &c, long row)
{
    const auto gap = [&](long i) { return c.rows[i + 1].tai - c.rows[i].tai; };
    if (!only_straight(c)) {
        const long first = first_of_four(c, row);
        if (gap(first) <= kWidest && gap(first + 1) <= kWidest && gap(first + 2) <= kWidest)
            return {first, 4};
    }
    return {std::min(row, c.n_rows - 2), 2};
}

// Weights of two rows and their derivatives by days: a straight line.
void line_weights(const Correlation &c, const Span &span, const SplitDay &tai, Jet<double> (&w)[2])
{
    const double before = days_to(c.rows[span.first], tai);
    const double after = days_to(c.rows[span.first + 1], tai);
    const double width = after - before;
    w[0] = {after / width, -1.0 / width, 0.0};
    w[1] = {-before / width, 1.0 / width, 0.0};
}

template <int order>
void cubic_weights(const Correlation &c, const Span &span, const SplitDay &tai, Jet<double> (&w)[4])
{
    double ahead[4]; // days from the instant to each row
    for (int i = 0; i < 4; ++i)
        ahead[i] = days_to(c.rows[span.first + i], tai);
    row_weights<order>(ahead, w);
}

template <int order, int n>
void interpolate(const Correlation &c, const Span &span, const Jet<double> (&w)[n], EopValues *out)
{
    double tai_ut1[n];
    for (int i = 0; i < n; ++i)
        tai_ut1[i] = c.rows[span.first + i].tai_ut1;
    const Jet<double> ut1 = weighted<order>(w, tai_ut1);
    out->tai_ut1 = {ut1.value, ut1.rate, ut1.acceleration};
    if (c.row_pole == nullptr)
        return;
    const auto columns = [&](int first, Motion *one, Motion *two) { // two side by side
        Pack<2> pole[n];
        for (int i = 0; i < n; ++i)
            pole[i] = load<Pack<2>>(c.row_pole[span.first + i] + first) * KL_RAD_PER_ARCSEC;
        const Jet<Pack<2>> sums = weighted<order>(w, pole);
        *one = {sums.value[0], sums.rate[0], sums.acceleration[0]};
        *two = {sums.value[1], sums.rate[1], sums.acceleration[1]};
    };
    columns(0, &out->x, &out->y);
    columns(2, &out->dx, &out->dy);
}

Motion constant(double value)
{
    return {value, 0.0, 0.0};
}

// After the table, as the rest of the library has it: the bulletin's formula of UT1-UTC.
Motion ut1_by_formula(const Correlation &c, const SplitDay &tai)
{
    const double tai_utc = c.rows[c.n_rows - 1].tai_utc;
    const auto tai_ut1 = [&](double days) { return tai_utc - (c.a + c.b * (days - c.c) - KL_Get_ut2_ut1(days)); };
    const double utc = static_cast<double>(tai.day) + (tai.fraction - tai_utc / KL_SECONDS_PER_DAY);
    constexpr double kStep = 0.5; // days: the seasons of UT2-UT1 are half a year and a year
    const double before = tai_ut1(utc - kStep);
    const double now = tai_ut1(utc);
    const double after = tai_ut1(utc + kStep);
    return {now, (after - before) / (2.0 * kStep * KL_SECONDS_PER_DAY),
            ((after - now) - (now - before)) / (kStep * kStep * KL_SECONDS_PER_DAY * KL_SECONDS_PER_DAY)};
}

// One coordinate of the bulletin's formula of the pole.
Motion pole_by_formula(const PoleFormula &formula, const double (&k)[5], const SplitDay &tai)
{
    Motion out{k[0], 0.0, 0.0};
    for (int i = 0; i < 2; ++i) {
        if (formula.period[i] == 0.0)
            continue;
        const double w = KL_TWO_PI / formula.period[i];
        const auto angle = sine_cosine(w * ((static_cast<double>(tai.day) - formula.reference_date[i]) + tai.fraction));
        const double cosine = k[1 + 2 * i];
        const double sine = k[2 + 2 * i];
        out.value += cosine * angle.c + sine * angle.s;
        out.rate += w * (sine * angle.c - cosine * angle.s);
        out.acceleration -= w * w * (cosine * angle.c + sine * angle.s);
    }
    return {out.value * KL_RAD_PER_ARCSEC, out.rate * (KL_RAD_PER_ARCSEC / KL_SECONDS_PER_DAY),
            out.acceleration * (KL_RAD_PER_ARCSEC / (KL_SECONDS_PER_DAY * KL_SECONDS_PER_DAY))};
}

bool has_pole_formula(const PoleFormula &formula)
{
    for (int i = 0; i < 5; ++i)
        if (formula.x[i] != 0.0 || formula.y[i] != 0.0)
            return true;
    return false;
}

// What the bulletin's formulas say of the pole, where the rows have none or end, and of UT1 after them.
void add_formulas(const Correlation &c, const SplitDay &tai, bool after, EopValues *out)
{
    if (after || c.row_pole == nullptr) {
        if (has_pole_formula(c.pole)) {
            out->x = pole_by_formula(c.pole, c.pole.x, tai);
            out->y = pole_by_formula(c.pole, c.pole.y, tai);
            out->dx = out->dy = constant(0.0);
            out->notes |= kEopByFormula;
        } else if (c.row_pole == nullptr) {
            out->notes |= kEopNoPole;
        }
    }
    if (after && c.no_extrapolation == 0) {
        out->tai_ut1 = ut1_by_formula(c, tai);
        out->notes |= kEopByFormula;
    }
}

// TAI-UTC between two rows: steps at the leap second that the correlation knows, which may lie between them, else at
// the later row.
double tai_utc_at(const Correlation &c, long row, const SplitDay &tai)
{
    const kl_time_row &before = c.rows[std::max(row, 0L)];
    if (row < 0 || row + 1 >= c.n_rows || c.leap.sign == 0 || c.rows[row + 1].tai_utc == before.tai_utc)
        return before.tai_utc;
    const double after = (static_cast<double>(tai.day) - c.leap.tai) + tai.fraction; // days since it began
    return after >= (c.leap.sign > 0 ? 1.0 / KL_SECONDS_PER_DAY : 0.0) && c.leap.tai > before.tai - 1.0
               ? c.rows[row + 1].tai_utc
               : before.tai_utc;
}

} // namespace

void eop_values(const Correlation &c, const SplitDay &tai, long near, int order, EopValues *out)
{
    const bool explicit_values = c.model == KL_TIME_MODEL_EXPLICIT;
    const long row = c.n_rows == 1 && explicit_values ? 0 : row_near(c, days_of(tai), near);
    const kl_time_row &last = c.rows[c.n_rows - 1];
    // The ends belong to the table, to rounding: an instant of another scale meets their rows in TAI no better.
    const bool at_first = row < 0 && days_to(c.rows[0], tai) <= KL_ROW_EDGE;
    const bool at_last = row == c.n_rows - 1 && days_to(last, tai) >= -KL_ROW_EDGE;
    const bool inside = explicit_values || at_first || at_last || (row >= 0 && row < c.n_rows - 1);
    const bool interpolates = inside && c.n_rows > 1;
    const bool after = !inside && row >= 0;
    out->tai_utc = tai_utc_at(c, row, tai);
    out->notes = inside ? 0 : kEopOutsideTable;

    if (c.row_pole == nullptr || !interpolates)
        out->x = out->y = out->dx = out->dy = constant(0.0);
    if (c.row_pole != nullptr && !interpolates) { // the edge row; the offsets dX, dY belong to the table alone
        const double(&pole)[4] = c.row_pole[std::max(row, 0L)];
        out->x = constant(pole[0] * KL_RAD_PER_ARCSEC);
        out->y = constant(pole[1] * KL_RAD_PER_ARCSEC);
        out->dx = constant(inside ? pole[2] * KL_RAD_PER_ARCSEC : 0.0);
        out->dy = constant(inside ? pole[3] * KL_RAD_PER_ARCSEC : 0.0);
    }
    if (interpolates) {
        const Span span = span_about(c, std::max(row, 0L));
        Jet<double> line[2];
        Jet<double> cubic[4];
        if (span.n == 2) {
            line_weights(c, span, tai, line);
            interpolate<1>(c, span, line, out);
        } else if (order == 0) {
            cubic_weights<0>(c, span, tai, cubic);
            interpolate<0>(c, span, cubic, out);
        } else {
            cubic_weights<2>(c, span, tai, cubic);
            interpolate<2>(c, span, cubic, out);
        }
    } else {
        out->tai_ut1 = constant(c.rows[std::max(row, 0L)].tai_ut1);
    }

    add_formulas(c, tai, after, out);
}

bool cubic_serves(const Correlation &c)
{
    return !only_straight(c) && c.model != KL_TIME_MODEL_EXPLICIT && c.widest_gap <= kWidest
           && (c.row_pole != nullptr || !has_pole_formula(c.pole));
}

TaiInstant tai_of(const Correlation &c, long scale, double time_days)
{
    const long floor_days = whole_days(time_days);
    const SplitDay given = {floor_days, time_days - static_cast<double>(floor_days)};
    const auto shifted = [&](double seconds) {
        return SplitDay{given.day, given.fraction + seconds / KL_SECONDS_PER_DAY};
    };
    switch (scale) {
    case KL_TIME_TAI:
        return {given, row_before(c, given)};
    case KL_TIME_GPS: {
        const SplitDay near = shifted(kTaiMinusGps);
        const long row = row_before(c, near);
        const bool formula = row == c.n_rows - 1 && c.no_extrapolation == 0 && days_to(c.rows[row], near) < 0.0
                             && c.model != KL_TIME_MODEL_EXPLICIT;
        return {shifted(formula ? kTaiMinusGps : c.rows[std::max(row, 0L)].tai_gps), row};
    }
    case KL_TIME_UTC: {
        // The value of the row before; at the leap second of the id that of the row after, from its instant on.
        const long row = std::max(row_of(c, KL_TIME_UTC, time_days), 0L);
        double seconds = c.rows[row].tai_utc;
        if (c.leap.sign != 0 && row + 1 < c.n_rows && c.rows[row].utc < c.leap.utc && c.leap.utc <= c.rows[row + 1].utc
            && time_days >= c.leap.utc)
            seconds = c.rows[row + 1].tai_utc;
        return {shifted(seconds), row};
    }
    default: { // UT1: its distance from TAI moves by microseconds in a minute
        SplitDay tai = given;
        const long row = row_before(c, given);
        EopValues values;
        for (int i = 0; i < 3; ++i) {
            eop_values(c, tai, row, 0, &values);
            tai = shifted(values.tai_ut1.value);
        }
        return {tai, row};
    }
    }
}
