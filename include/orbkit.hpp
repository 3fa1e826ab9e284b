/**
 * @file orbkit.hpp
 * Classes over the functions of kl_lib.h: ids that close themselves, failures as exceptions. With KitError from the
 * common library of the family.
 */
#ifndef ORBKIT_HPP
#define ORBKIT_HPP

#include "orbkit/clocks.hpp"
#include "orbkit/enums.hpp"
#include "orbkit/events.hpp"
#include "orbkit/ground_station.hpp"
#include "orbkit/kit_id.hpp"
#include "orbkit/lib_error.hpp"
#include "orbkit/lib_func.hpp"
#include "orbkit/model_id.hpp"
#include "orbkit/quaternions_interpolation_cfg.hpp"
#include "orbkit/rotation.hpp"
#include "orbkit/run_id.hpp"
#include "orbkit/sat_id.hpp"
#include "orbkit/sky.hpp"
#include "orbkit/star.hpp"
#include "orbkit/state_vector.hpp"
#include "orbkit/time.hpp"
#include "orbkit/time_id.hpp"
#include "orbkit/types.hpp"

#endif
