#include "time/staircase_kernels.h"

#include "time/moments.h"

inline namespace KL_SET {

inline Moment<Lanes> load_moment(const MomentBlock &block, long i)
{
    return {load<Lanes>(block.days + i), load<Lanes>(block.seconds + i), load<Lanes>(block.microseconds + i)};
}

inline void store_moment(const Moment<Lanes> &moment, MomentBlock *block, long i)
{
    store(moment.days, block->days + i);
    store(moment.seconds, block->seconds + i);
    store(moment.microseconds, block->microseconds + i);
}

inline RowValues<Lanes> load_row(const RowBlock &block, long i)
{
    return {load<Lanes>(block.from + i),    load<Lanes>(block.from_end + i), load<Lanes>(block.tai + i),
            load<Lanes>(block.tai_end + i), load<Lanes>(block.tai_ut1 + i),  load<Lanes>(block.tai_ut1_end + i),
            load<Lanes>(block.tai_utc + i), load<Lanes>(block.tai_gps + i)};
}

} // namespace KL_SET

namespace KL_KERNELS {

void moments_of_times(const double *days, MomentBlock *moments, long count)
{
    for (long i = 0; i < count; i += kLanes)
        store_moment(moment_of(load<Lanes>(days + i)), moments, i);
}

void times_of_moments(const MomentBlock *moments, double *days, long count)
{
    for (long i = 0; i < count; i += kLanes)
        store(days_of(load_moment(*moments, i)), days + i);
}

void change_moments_in_row(const RowOfBlock *row, long from, long to, MomentBlock *moments, double *good, long count)
{
    const RowValues<Lanes> values = {row->from,    row->from_end,    row->tai,     row->tai_end,
                                     row->tai_ut1, row->tai_ut1_end, row->tai_utc, row->tai_gps};
    for (long i = 0; i < count; i += kLanes) {
        const InsideRow<Lanes> out = change_inside_row(values, from, to, load_moment(*moments, i));
        store_moment(out.moment, moments, i);
        store(one_where(out.good), good + i);
    }
}

void change_moments(const RowBlock *rows, long from, long to, MomentBlock *moments, double *good, long count)
{
    for (long i = 0; i < count; i += kLanes) {
        const InsideRow<Lanes> out = change_inside_row(load_row(*rows, i), from, to, load_moment(*moments, i));
        store_moment(out.moment, moments, i);
        store(one_where(out.good), good + i);
    }
}

} // namespace KL_KERNELS
