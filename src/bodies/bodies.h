// The Sun for doors of other floors.
#ifndef KL_SRC_BODIES_BODIES_H
#define KL_SRC_BODIES_BODIES_H

#include "ephemerides/ephemerides.h"

// The Sun as a satellite sees it, as KL_Sun_PosVel_Sun_Travel_Time; false where there is none.
bool sun_from_satellite(kl_model_id *model_id, kl_time_id *time_id, const kl_time_record &tdb, const Cord *satellite,
                        Cord *sun, kl_time_record *emission);

#endif
