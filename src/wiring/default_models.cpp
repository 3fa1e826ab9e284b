// The wiring of the model record: the one place that knows every routine behind it.
#include "earth/egm96_tables.h"
#include "models/model_record.h"
#include "numbers/constants.h"

const ModelBlocks KL_DEFAULT_BLOCKS = {
    {0, // Earth
     KL_EARTH_GRAVITY_RADIUS,
     KL_EARTH_GM,
     0.001082626,
     -2.536e-06,
     -1.623e-06, // J2, J3, J4
     KL_EARTH_EQUATOR,
     6356752.3142,    // axes of the ellipsoid, m (WGS84)
     0.0818191908426, // first eccentricity
     KL_EARTH_FLATTENING,
     {99.96779469, 360.985647366286, 2.9079e-13}, // deg, deg/day, deg/day2 (GMST 1982 from 2000-01-01 00:00)
     {99.96779469, 360.9856473, 2.9079e-13},      // the same with a rounded rate
     0,
     kEgm96Count,
     HC_EGM96,
     HS_EGM96,
     CC_EGM96,
     CS_EGM96},
    {0, KL_Sun_PosVel, KL_Earth},
    {0, KL_Moon_PosVel},
    {0, KL_Planets},
    {0, KL_Star_place},
    {0, KL_Sim_Nut_Term},
    {0, KL_Precession},
    {0, 149597870.0}, // km, IAU 1976
    {0},
};
