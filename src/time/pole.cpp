// Coordinates of the pole and their rates.
#include "time/pole.h"

#include "numbers/elementary.h"
#include "numbers/numbers.h"
#include "time/deltas.h"

#include <algorithm>

namespace {

bool has_formula(const PoleFormula &formula)
{
    const auto given = [](double k) { return k != 0.0; };
    return std::any_of(formula.x, formula.x + 5, given) || std::any_of(formula.y, formula.y + 5, given);
}

// Does the formula serve this instant?
bool is_by_formula(const Correlation &correlation, double ut1_days)
{
    return has_formula(correlation.pole)
           && (correlation.row_pole == nullptr || ut1_days > correlation.rows[correlation.n_rows - 1].ut1);
}

using Coordinate = PoleCoordinate<double>;

Coordinate formula_coordinate(const double k[5], const PoleFormula &formula, double days)
{
    Coordinate out = {k[0], 0.0};
    for (int i = 0; i < 2; ++i) {
        if (formula.period[i] == 0.0)
            continue;
        const double w = KL_TWO_PI / formula.period[i];
        const double angle = w * (days - formula.reference_date[i]);
        const SineCosine now = sine_cosine(angle);
        out.value += k[1 + 2 * i] * now.c + k[2 + 2 * i] * now.s;
        out.rate += w * (k[2 + 2 * i] * now.c - k[1 + 2 * i] * now.s);
    }
    return out;
}

// Rows i and i + 1 around an instant, and how far it is from the first to the second.
struct Between {
    const double *first, *second;
    double part, days;
};
Between between_rows(const Correlation &correlation, long row, double ut1_days)
{
    const double start = correlation.rows[row].ut1;
    const double days = correlation.rows[row + 1].ut1 - start;
    return {correlation.row_pole[row], correlation.row_pole[row + 1], (ut1_days - start) / days, days};
}

Coordinate on_the_line(const Between &between, int k)
{
    return pole_on_the_line(between.first[k], between.second[k], between.part, between.days);
}

} // namespace

Pole pole_at(const Correlation &correlation, double ut1_days)
{
    if (correlation.row_pole != nullptr) {
        const long row = row_of(correlation, KL_TIME_UT1, ut1_days);
        if (row >= 0 && row < correlation.n_rows - 1) {
            const Between between = between_rows(correlation, row, ut1_days);
            return pole_in_radians(on_the_line(between, 0), on_the_line(between, 1));
        }
    }
    if (is_by_formula(correlation, ut1_days)) {
        const PoleFormula &formula = correlation.pole;
        return pole_in_radians(formula_coordinate(formula.x, formula, ut1_days),
                               formula_coordinate(formula.y, formula, ut1_days));
    }
    if (correlation.row_pole == nullptr)
        return {};
    const bool before = ut1_days < correlation.rows[0].ut1;
    const double *end = correlation.row_pole[before ? 0 : correlation.n_rows - 1];
    return {end[0] * KL_RAD_PER_ARCSEC, end[1] * KL_RAD_PER_ARCSEC, 0.0, 0.0};
}

void pole_in_arcsec(const Correlation &correlation, double ut1_days, double pole[4])
{
    std::fill(pole, pole + 4, 0.0);
    if (correlation.row_pole != nullptr) {
        const long row = row_of(correlation, KL_TIME_UT1, ut1_days);
        if (row >= 0 && row < correlation.n_rows - 1) {
            const Between between = between_rows(correlation, row, ut1_days);
            for (int k = 0; k < 4; ++k)
                pole[k] = on_the_line(between, k).value;
            return;
        }
        const double *end = correlation.row_pole[row < 0 ? 0 : correlation.n_rows - 1];
        std::copy(end, end + 4, pole);
    }
    if (is_by_formula(correlation, ut1_days)) {
        pole[0] = formula_coordinate(correlation.pole.x, correlation.pole, ut1_days).value;
        pole[1] = formula_coordinate(correlation.pole.y, correlation.pole, ut1_days).value;
    }
}
