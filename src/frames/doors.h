// What the doors of frames share: from ids, records and handles to the plain values of the chain.
#ifndef KL_SRC_FRAMES_DOORS_H
#define KL_SRC_FRAMES_DOORS_H

#include "frames/chain.h"
#include "time/time_record.h"

// Days since 2000-01-01 00:00 of a record, whatever its format.
double mjd2000_of(const kl_time_record &date);

// The record of turns: they act on the three axes.
void fill_record(const Turns<double> &turns, kl_rotation_record *rotation);

// The pole that a correlation holds; none without an id.
PoleOf<double> pole_of(const Correlation &correlation, double ut1_days);
PoleOf<double> pole_of(const kl_time_id *time_id, double ut1_days);

// True when the models lack a routine that the way calls.
bool lacks_routine(const ModelBlocks &models, bool simplified, const Path &path);
// No routine for the place of the Earth, or a launch frame, whose date and angle no id holds.
bool cannot_walk(const ModelBlocks &models, const Path &path);

#endif
