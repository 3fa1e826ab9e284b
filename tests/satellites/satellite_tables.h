// The tables of satellites: put back when a test is over, and read.
#ifndef KL_TESTS_SAT_SATELLITE_TABLES_H
#define KL_TESTS_SAT_SATELLITE_TABLES_H

#include "kl_family.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

static double *const kColumns[] = {
#include "satellites/columns.inc"
};

class KeptTables : public testing::Test {
protected:
    KeptTables()
    {
        for (double *column : kColumns)
            columns_.emplace_back(column, column + std::size(A_MIN));
    }
    ~KeptTables() override
    {
        for (long slot = 0; slot < 10; ++slot)
            kl_default_sat_close(&slot);
        std::copy(catalogue_.begin(), catalogue_.end(), TLE_SAT_DATA);
        sp3_.copy(KL_SP3_PARAMS[0], sp3_.size());
        for (std::size_t i = 0; i < columns_.size(); ++i)
            std::copy(columns_[i].begin(), columns_[i].end(), kColumns[i]);
    }

private:
    const std::vector<kl_tle_sat_data> catalogue_{std::begin(TLE_SAT_DATA), std::end(TLE_SAT_DATA)};
    const std::string sp3_{KL_SP3_PARAMS[0], sizeof KL_SP3_PARAMS};
    std::vector<std::vector<double>> columns_;
};

// What the getters write: the whole width of a field, and nothing beyond.
struct Catalogue {
    long number = -7;
    char name[27] = "##########################", designator[11] = "##########", sp3[6] = "#####";

    explicit Catalogue(long id)
    {
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
