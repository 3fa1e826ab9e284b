// An id without a kind's own data: enough to link, to count and to hold.
#ifndef KL_TESTS_SUPPORT_BARE_ID_H
#define KL_TESTS_SUPPORT_BARE_ID_H

#include "kl_family.h"

#include <gtest/gtest.h>

struct BareId {
    kl_id_record record = {};
    kl_id_record *handle = &record;

    explicit BareId(long kind = KL_ID_TIME, long sat_id = 200) { EXPECT_EQ(KL_Id_init(&sat_id, kind, &record), 0); }
    ~BareId()
    {
        record.instances = 0;
        KL_Id_close(&handle);
    }
    BareId(const BareId &) = delete;
    BareId &operator=(const BareId &) = delete;
};

#endif
