#include "frames/chain_instants.h"
#include "arrays/array_call.h"
#include "frames/chain_range.h"
#include "time/pole.h"

#include <algorithm>

namespace {

constexpr double kNoPole[2][4] = {};

bool has_pole(const Correlation &correlation)
{
    for (int i = 0; i < 5; ++i)
        if (correlation.pole.x[i] != 0.0 || correlation.pole.y[i] != 0.0)
            return true;
    return correlation.row_pole != nullptr;
}

} // namespace

ChainInstants::ChainInstants(TimeIdRecord *id, long ref, bool with_tdb, bool with_tdb_of_earth, bool with_pole)
    : id_(id), correlation_(id->correlation), rows_(&id->correlation, ref),
      with_pole_(with_pole && has_pole(correlation_))
{
    block_.ref = ref;
    block_.with_tdb = with_tdb;
    block_.with_tdb_of_earth = with_tdb_of_earth;
    block_.pole_between_rows = with_pole_ && correlation_.row_pole != nullptr && rows_.is_table();
}

void ChainInstants::find_rows()
{
    const long count = block_.count;
    for (long k = 0; k < count; ++k) {
        const kl_time_row *row = rows_.at(block_.days[k]);
        block_.row[k] = &row->tai;
        if (block_.pole_between_rows)
            block_.row_pole[k] = row != kNoRow ? correlation_.row_pole[rows_.number()] : kNoPole[0];
    }
    std::fill(block_.row + count, block_.row + padded(count), block_.row[count - 1]);
    if (block_.pole_between_rows)
        std::fill(block_.row_pole + count, block_.row_pole + padded(count), block_.row_pole[count - 1]);
    pad(block_.days, count);
}

// By the scalar way. False where that has more to say, or fails.
bool ChainInstants::fill_one(long k)
{
    const double days = block_.days[k];
    double tai = 0.0;
    if (block_.with_tdb && !steadily_in_scale(id_, block_.ref, KL_TIME_TAI, days, &tai))
        return false;
    double ut1 = 0.0;
    if (!steadily_in_scale(id_, block_.ref, KL_TIME_UT1, days, &ut1) || !inside_chain_range(ut1))
        return false;
    block_.tdb[k] = tdb_of_tai(tai);
    block_.ut1[k] = ut1;
    if (block_.with_tdb_of_earth) {
        const Step step =
            step_up(correlation_, KL_TIME_UT1, midnight_carried(&correlation_, KL_TIME_UT1, moment_of(ut1)));
        if (step.findings != 0)
            return false;
        block_.tdb_of_earth[k] = tdb_of_tai(days_of(step.moment));
    }
    return true;
}

bool ChainInstants::fill()
{
    const QuietSpan quiet = steady_span(*id_, KL_FLAGS_CONVERSION);
    const long count = block_.count;
    for (long k = 0; k < count; ++k)
        if (!is_quiet(quiet, block_.days[k]))
            return false;
    find_rows();
    std::uint64_t left = 0;
    scales_of_instants_kernel()(&block_, &left);
    if (left == 0 && with_pole_ == block_.pole_between_rows)
        return true;

    for (long k = 0; k < count; ++k) {
        const bool alone = (left >> k & 1) != 0;
        if (alone && !fill_one(k))
            return false;
        if (with_pole_ && (alone || !block_.pole_between_rows)) {
            const Pole pole = pole_at(correlation_, block_.ut1[k]);
            block_.pole[0][k] = pole.x;
            block_.pole[1][k] = pole.y;
            block_.pole[2][k] = pole.x_rate;
            block_.pole[3][k] = pole.y_rate;
        }
    }
    for (double *values :
         {block_.ut1, block_.tdb, block_.tdb_of_earth, block_.pole[0], block_.pole[1], block_.pole[2], block_.pole[3]})
        pad(values, count);
    return true;
}
