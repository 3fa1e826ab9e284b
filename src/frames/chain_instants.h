// The instants of an array call, block by block, on the scales that the chain and the bodies take.
#ifndef KL_SRC_FRAMES_CHAIN_INSTANTS_H
#define KL_SRC_FRAMES_CHAIN_INSTANTS_H

#include "frames/instant_kernels.h"
#include "time/row_finder.h"

// Equal to the bit?
inline bool same_instants(const double *days, long count)
{
    std::uint64_t differences = 0;
    for (long k = 1; k < count; ++k)
        differences |= bits_of(days[k]) ^ bits_of(days[0]);
    return differences == 0;
}

// Has neither a change of scale nor a frame change anything to say, or to note, at the instants?
inline bool all_are_quiet(const TimeIdRecord &id, const double *days, long count)
{
    const QuietSpan conversions = steady_span(id, KL_FLAGS_CONVERSION);
    const QuietSpan changes = steady_span(id, KL_FLAGS_FRAME_CHANGE);
    bool quiet = true;
    for (long k = 0; k < count; ++k)
        quiet = quiet && is_quiet(conversions, days[k]) && is_quiet(changes, days[k]);
    return quiet;
}

// By packs where the instants stay inside their rows of the correlation, else one by one.
class ChainInstants {
public:
    ChainInstants(TimeIdRecord *id, long ref, bool with_tdb, bool with_tdb_of_earth, bool with_pole);

    // Fills the scales and the pole of block()->days, `count` of them in the processing range. False where the elements
    // have to be taken in order, by scalar calls.
    bool fill();
    InstantBlock *block() { return &block_; }
    bool with_pole() const { return with_pole_; }

private:
    void find_rows();
    bool fill_one(long k);

    TimeIdRecord *id_;
    const Correlation &correlation_;
    RowFinder rows_;
    bool with_pole_;
    InstantBlock block_;
};

#endif
