// One valid call of every public function, for tests that hold for all of them.
#ifndef KL_TESTS_SUPPORT_EVERY_FUNCTION_H
#define KL_TESTS_SUPPORT_EVERY_FUNCTION_H

#include "kl_lib.h"

// What the calls take and where they write. open() makes the shared ids, close() ends whatever is open.
struct World {
    kl_time_id time = {nullptr};
    kl_model_id model = {nullptr};
    long run = -1;

    // For the functions that open something themselves.
    kl_time_id own_time = {nullptr};
    kl_model_id own_model = {nullptr};
    kl_time_id_data own_rows = {};
    long own_run = -1;
    long own_sat = 0;

    long ierr[2] = {0, 0};
    double a[32] = {};
    double days = 0.0;
    long fields[4] = {};
    char text[2][KL_TIME_ASCII_LENGTH] = {};
    unsigned char octets[KL_CUC_LENGTH] = {};

    bool open();
    void close();
};

struct PublicCall {
    const char *name;
    long (*call)(World &);
    bool has_vector; // of errors
};

// The first call and the one behind the last.
const PublicCall *every_call();
const PublicCall *every_call_end();

#endif
