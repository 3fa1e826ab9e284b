// Kernel of the instants of a block.
#include "frames/instant_kernels.h"
#include "frames/chain_range.h"
#include "numbers/streams.h"
#include "time/pole.h"
#include "time/tdb.h"

inline namespace KL_SET {

// For each lane its row of the correlation and the next one, by the columns of kl_time_row.
enum RowColumn { kTai, kUt1, kUtc, kTaiUtc, kTaiUt1, kTaiGps, kRowColumns };
static_assert(sizeof(kl_time_row) == kRowColumns * sizeof(double));
struct RowsOfPack {
    Lanes here[kRowColumns], next[kRowColumns];

    // For the way from one scale to another.
    RowValues<Lanes> from(long ref) const
    {
        return {column(here, ref), column(next, ref), here[kTai],    next[kTai],
                here[kTaiUt1],     next[kTaiUt1],     here[kTaiUtc], here[kTaiGps]};
    }

private:
    static Lanes column(const Lanes (&row)[kRowColumns], long ref)
    {
        switch (ref) {
        case KL_TIME_TAI:
            return row[kTai];
        case KL_TIME_UTC:
            return row[kUtc];
        case KL_TIME_UT1:
            return row[kUt1];
        default:
            return row[kTai] - row[kTaiGps] / KL_SECONDS_PER_DAY;
        }
    }
};

template <int M>
void gather_neighbours(const double *const *row, Lanes (&here)[M], Lanes (&next)[M], long length)
{
    const double *first[kLanes], *second[kLanes];
    for (int k = 0; k < kLanes; ++k) {
        first[k] = row[k];
        second[k] = row[k] + length;
    }
    gather(first, here);
    gather(second, next);
}

Lanes tdb_of(Lanes tai)
{
    return tai + tdb_minus_tai(tai);
}

// The pole of the instants of a pack; the mask of those between their rows.
Mask<kLanes> pole_between(const RowsOfPack &rows, Lanes ut1, InstantBlock *block, long i)
{
    constexpr long kPoleColumns = 4; // x, y, dX, dY
    Lanes first[2], second[2];
    gather_neighbours(block->row_pole + i, first, second, kPoleColumns);
    const Lanes start = rows.here[kUt1], end = rows.next[kUt1];
    const Lanes days = end - start, part = (ut1 - start) / days;
    const PoleOf<Lanes> pole = pole_in_radians(pole_on_the_line(first[0], second[0], part, days),
                                               pole_on_the_line(first[1], second[1], part, days));
    store(pole.x, block->pole[0] + i);
    store(pole.y, block->pole[1] + i);
    store(pole.x_rate, block->pole[2] + i);
    store(pole.y_rate, block->pole[3] + i);
    return (ut1 >= start) & (ut1 < end);
}

// The instants of a pack; the mask of those that stay inside their rows.
Mask<kLanes> scales_of_pack(InstantBlock *block, long i)
{
    RowsOfPack rows;
    gather_neighbours(block->row + i, rows.here, rows.next, kRowColumns);
    const Lanes given = load<Lanes>(block->days + i);
    const InsideRow<Lanes> up = change_inside_row(rows.from(block->ref), block->ref, KL_TIME_TAI, moment_of(given));
    const InsideRow<Lanes> down = change_inside_row(rows.from(KL_TIME_TAI), KL_TIME_TAI, KL_TIME_UT1, up.moment);
    const Lanes tai = block->ref == KL_TIME_TAI ? given : days_of(up.moment);
    const Lanes ut1 = block->ref == KL_TIME_UT1 ? given : days_of(down.moment);
    store(ut1, block->ut1 + i);
    Mask<kLanes> good = up.good & down.good & inside_chain_range(ut1);
    if (block->with_tdb)
        store(tdb_of(tai), block->tdb + i);
    if (block->with_tdb_of_earth) {
        const InsideRow<Lanes> back =
            change_inside_row(rows.from(KL_TIME_UT1), KL_TIME_UT1, KL_TIME_TAI, moment_of(ut1));
        store(tdb_of(days_of(back.moment)), block->tdb_of_earth + i);
        good &= back.good;
    }
    if (block->pole_between_rows)
        good &= pole_between(rows, ut1, block, i);
    return good;
}

} // namespace KL_SET

namespace KL_KERNELS {

void scales_of_instants(InstantBlock *block, std::uint64_t *left)
{
    *left = 0;
    for (long i = 0; i < block->count; i += kLanes)
        accepted(scales_of_pack(block, i), i, block->count, left);
}

} // namespace KL_KERNELS
