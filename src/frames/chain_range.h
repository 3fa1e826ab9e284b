// The days for which the frame chain answers.
#ifndef KL_SRC_FRAMES_CHAIN_RANGE_H
#define KL_SRC_FRAMES_CHAIN_RANGE_H

#include "time/instants.h"

inline namespace KL_SET {

// A day more than the processing range on either side: UT1 of its first instants lies a little outside.
template <class T>
mask_of<T> inside_chain_range(T days)
{
    return (days >= KL_PROCESSING_FIRST - 1.0) & (days <= KL_PROCESSING_LAST + 1.0);
}

} // namespace KL_SET

#endif
