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
        each_table([this](void *table, std::size_t size) { bytes_.append(static_cast<char *>(table), size); });
    }
    ~TablesKept()
    {
        for (long slot = 0; slot < 10; ++slot)
            kl_default_sat_close(&slot);
        const char *from = bytes_.data();
        each_table([&from](void *table, std::size_t size) {
            std::memcpy(table, from, size);
            from += size;
        });
    }
    TablesKept(const TablesKept &) = delete;
    TablesKept &operator=(const TablesKept &) = delete;

private:
    template <typename Action>
    static void each_table(const Action &action)
    {
        action(TLE_SAT_DATA, sizeof TLE_SAT_DATA);
        action(KL_SP3_PARAMS, sizeof KL_SP3_PARAMS);
        for (double *column : kColumns)
            action(column, sizeof A_MIN);
    }

    std::string bytes_;
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
