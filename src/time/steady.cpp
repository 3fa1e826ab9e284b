// Instants in a row.
#include "time/steady.h"

SteadyInstants::SteadyInstants(const TimeIdRecord &id, int set)
{
    constexpr double kClear = 1.0; // days: more than the scales are apart
    const Correlation &correlation = id.correlation;
    explicit_ = correlation.model == KL_TIME_MODEL_EXPLICIT;
    settled_ = correlation.model != 0 && correlation.n_rows > 0;
    for (const auto &was_inside : id.once_only[set].was_inside)
        settled_ &= was_inside.load(std::memory_order_relaxed) == 1;
    if (explicit_ || !settled_)
        return;
    first_ = correlation.rows[0].tai + kClear;
    last_ = correlation.rows[correlation.n_rows - 1].tai - kClear;
    if (correlation.combination == KL_COMBINATION_TWO_BULLETINS) {
        const kl_time_row *second = correlation.rows + correlation.second_bulletin_row;
        gap_first_ = second[-1].tai - kClear;
        gap_last_ = second->tai + kClear;
    }
}

bool steadily_in_scale(TimeIdRecord *id, long from, long to, double days, double *out)
{
    if (from == to) {
        *out = days;
        return true;
    }
    const Correlation *correlation = &id->correlation;
    const Moment<double> moment = midnight_carried(correlation, from, moment_of(days));
    const Change change = change_scale(correlation, &id->once_only[KL_FLAGS_CONVERSION], from, to, days, moment);
    if (!change.findings.none())
        return false;
    *out = days_of(settled(correlation, to, false, false, change.moment));
    return true;
}
