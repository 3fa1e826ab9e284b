// What the doors of elements ask of the model and of the elements.
#ifndef KL_SRC_ORBITS_DOOR_CHECKS_H
#define KL_SRC_ORBITS_DOOR_CHECKS_H

#include "models/model_record.h"
#include "numbers/bounds.h"
#include "orbits/mean_elements.h"

struct Field {
    double gm; // m3/s2; 0 where the Earth of the model was refused
    Oblateness oblateness;
};

inline Field field_of_model(const kl_model_id *model_id)
{
    const EarthModel &earth = model_blocks(model_id).earth;
    return {earth.gm, {earth.j2, earth.gravity_radius}};
}

constexpr double kLargestAngle = 1e8; // deg

inline bool holds_angle(double degrees)
{
    return within(degrees, -kLargestAngle, kLargestAngle);
}

#endif
