// TAI and TDB.
#include "time/tdb.h"

double tdb_of_tai(double tai_days)
{
    return tai_days + tdb_minus_tai(tai_days);
}

double tai_of_tdb(double tdb_days)
{
    return tdb_days - tdb_minus_tai(tdb_days);
}
