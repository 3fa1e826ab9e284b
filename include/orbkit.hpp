/**
 * @file orbkit.hpp
 * Classes over the functions of kl_lib.h: ids that close themselves, failures as exceptions. With KitError from the
 * common library of the family.
 */
#ifndef ORBKIT_HPP
#define ORBKIT_HPP

#include "orbkit/arrays.hpp"
#include "orbkit/borrowed.hpp"
#include "orbkit/column.hpp"
#include "orbkit/cuc.hpp"
#include "orbkit/eclipse.hpp"
#include "orbkit/enums.hpp"
#include "orbkit/events.hpp"
#include "orbkit/ground_station.hpp"
#include "orbkit/iers_state.hpp"
#include "orbkit/interpolated_orbit.hpp"
#include "orbkit/kit_id.hpp"
#include "orbkit/lib_error.hpp"
#include "orbkit/lib_func.hpp"
#include "orbkit/mean_motion.hpp"
#include "orbkit/model_id.hpp"
#include "orbkit/moon.hpp"
#include "orbkit/on_board_time.hpp"
#include "orbkit/planet.hpp"
#include "orbkit/position.hpp"
#include "orbkit/quaternions_interpolation_cfg.hpp"
#include "orbkit/ray.hpp"
#include "orbkit/rotation.hpp"
#include "orbkit/run_id.hpp"
#include "orbkit/sat_id.hpp"
#include "orbkit/star.hpp"
#include "orbkit/star_catalog.hpp"
#include "orbkit/state_vector.hpp"
#include "orbkit/state_vectors.hpp"
#include "orbkit/sun.hpp"
#include "orbkit/time.hpp"
#include "orbkit/time_correlation.hpp"
#include "orbkit/time_id.hpp"
#include "orbkit/types.hpp"

#endif
