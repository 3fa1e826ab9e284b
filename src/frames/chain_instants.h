// The instants of an array call, block by block, on the scales that the chain and the bodies take.
#ifndef KL_SRC_FRAMES_CHAIN_INSTANTS_H
#define KL_SRC_FRAMES_CHAIN_INSTANTS_H

#include "frames/instant_kernels.h"
#include "time/row_finder.h"

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
