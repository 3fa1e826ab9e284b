// What the doors of frames share.
#ifndef KL_SRC_FRAMES_DOORS_H
#define KL_SRC_FRAMES_DOORS_H

#include "frames/chain.h"

// For doors that have records: the change of a state with all that KL_Change_CoordinateSystem says of it. False where
// it fails.
bool change_record(kl_model_id *model_id, kl_time_id *time_id, long order, const kl_time_record *date, const Cord *in,
                   long final_cs, Cord *out);

// The record of turns: they act on the three axes.
void fill_record(const Turns<double> &turns, kl_rotation_record *rotation);

#endif
