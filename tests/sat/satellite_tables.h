// The tables of satellites: put back when a test is over, and read.
#ifndef KL_TESTS_SAT_SATELLITE_TABLES_H
#define KL_TESTS_SAT_SATELLITE_TABLES_H

#include "kl_family.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>

static double *const kColumns[] = {
#include "sat/columns.inc"
};

class TablesKept {
public:
    TablesKept()
    {
        std::memcpy(catalogue_, TLE_SAT_DATA, sizeof catalogue_);
        std::memcpy(sp3_, KL_SP3_PARAMS, sizeof sp3_);
        for (std::size_t i = 0; i < std::size(kColumns); ++i)
            std::memcpy(columns_[i], kColumns[i], sizeof columns_[i]);
    }
    ~TablesKept()
    {
        for (long slot = 0; slot < 10; ++slot)
            kl_default_sat_close(&slot);
        std::memcpy(TLE_SAT_DATA, catalogue_, sizeof catalogue_);
        std::memcpy(KL_SP3_PARAMS, sp3_, sizeof sp3_);
        for (std::size_t i = 0; i < std::size(kColumns); ++i)
            std::memcpy(kColumns[i], columns_[i], sizeof columns_[i]);
    }
    TablesKept(const TablesKept &) = delete;
    TablesKept &operator=(const TablesKept &) = delete;

private:
    kl_tle_sat_data catalogue_[std::size(TLE_SAT_DATA)];
    char sp3_[std::size(KL_SP3_PARAMS)][4];
    double columns_[std::size(kColumns)][std::size(A_MIN)];
};

// What the getters write: the whole width of a field, and nothing beyond.
struct Catalogue {
    long number = -7;
    char name[27], designator[11], sp3[6];

    explicit Catalogue(long id)
    {
        std::memset(name, '#', sizeof name);
        std::memset(designator, '#', sizeof designator);
        std::memset(sp3, '#', sizeof sp3);
        KL_Get_tle_sat_data(&id, &number, name, designator);
        KL_Get_sp3_data(id, sp3);
        EXPECT_EQ(std::string{name[25]} + designator[9] + sp3[4], "###");
        name[25] = designator[9] = sp3[4] = '\0';
    }
};

inline std::string name_of(long id)
{
    char name[31] = {};
    KL_Get_mission_name(&id, name);
    return name;
}

#endif
