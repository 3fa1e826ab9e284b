// The CCSDS unsegmented time code (CCSDS 301.0-B): the octets of its P-field and of its time field, as numbers.
#ifndef KL_SRC_TIME_CLOCKS_CUC_H
#define KL_SRC_TIME_CLOCKS_CUC_H

#include "kl_lib.h"

#include <cstdint>

// Octets of a code of a configuration, with the P-field that it says.
long cuc_octets(const kl_cuc_config &config);
// Of the P-field that begins with an octet.
long p_field_octets(unsigned char first);

// Epoch type and octets from a P-field; false when it says what this library does not know.
bool read_p_field(const unsigned char *octets, kl_cuc_config *config);
// Writes 1 or 2 octets and returns how many; 0 for an epoch that no P-field names.
long write_p_field(const kl_cuc_config &config, unsigned char octets[2]);

// Seconds since the epoch of a time field.
double read_time_field(const unsigned char *field, long n_coarse, long n_fine);

// Seconds since an epoch as the numbers that the octets of a time field write: the coarse octets, the first fine
// octets and those after them.
struct TimeField {
    std::int64_t coarse, high, low;
    long n_coarse, n_high, n_low;
};
// False when the seconds do not fit the coarse octets. The fraction is rounded to the last fine octet, with the carry
// through to the coarse ones.
bool split_seconds(double days_since_epoch, long n_coarse, long n_fine, TimeField *field);
void write_time_field(const TimeField &field, unsigned char *octets);

// The epoch of a configuration: days of a scale.
struct CucEpoch {
    double days; // MJD2000
    long ref;
};
CucEpoch epoch_of(const kl_cuc_config &config);

#endif
