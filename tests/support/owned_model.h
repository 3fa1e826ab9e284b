// A model id that closes itself.
#ifndef KL_TESTS_SUPPORT_OWNED_MODEL_H
#define KL_TESTS_SUPPORT_OWNED_MODEL_H

#include "kl_family.h"

#include <gtest/gtest.h>

struct OwnedModel {
    kl_model_id id{};

    OwnedModel() = default;
    ~OwnedModel()
    {
        if (kl_model_init_status(&id) == 1) {
            EXPECT_EQ(kl_model_close(&id, nullptr), KL_OK);
        }
    }
    OwnedModel(const OwnedModel &) = delete;
    OwnedModel &operator=(const OwnedModel &) = delete;

    // Models of number 0 but for one kind. A number that is refused leaves the blocks from its kind on empty.
    long select(long kind, long number, long *ierr = nullptr)
    {
        const long mode = KL_MODEL_USER;
        long models[9] = {};
        models[kind] = number;
        return kl_model_init(&mode, models, &id, ierr);
    }
    template <typename Block>
    Block &block(long kind)
    {
        return *static_cast<Block *>(KL_Model_get_data(&id, kind));
    }
};

#endif
