/**
 * @file kl_lib.h
 * Base library of mission analysis for earth-observation satellites: time scales and formats, reference
 * frames, Sun, Moon and planets, Earth models and geoid, rotations, on-board time, satellite and run ids.
 *
 * Every public function takes its context as identifiers ("ids") that the caller initialises and closes,
 * and an error vector `ierr` as its last argument. It returns KL_OK, KL_WARN or KL_ERR; on KL_ERR the
 * outputs are not to be used. kl_get_code and kl_get_msg turn a vector into code numbers and texts.
 * Handles are zero-initialised by the caller before their first use: `kl_time_id time_id = {0};`.
 * NULL where a value is required is an input error like any other and never a crash. So is NaN in an instant, a
 * quaternion, an axis or a matrix; but the numbers of a state vector, and the angles of kl_euler_to_matrix, are not
 * looked at: a NaN there comes out as NaN, with KL_OK.
 *
 * Units: metres, m/s and m/s2 for states; degrees for angles; days (MJD2000) for instants; seconds for
 * differences of time scales.
 */
#ifndef KL_LIB_H
#define KL_LIB_H

#include "kl/arrays.h"      /* functions for many elements at once */
#include "kl/bodies.h"      /* Sun, Moon, planets */
#include "kl/clocks.h"      /* on-board clocks, CUC */
#include "kl/coordinates.h" /* geodetic, Keplerian, polar; geodesics; orbits; crossings */
#include "kl/errors.h"      /* error vectors, codes, texts, versions */
#include "kl/formats.h"     /* texts and transport times: the nine conversions */
#include "kl/frames.h"      /* reference frames */
#include "kl/geoid.h"       /* height of the geoid */
#include "kl/geometry.h"    /* lines of sight, real roots, eclipses */
#include "kl/models.h"      /* Earth and sky models */
#include "kl/orientation.h" /* GCRS and ITRS after the IERS Conventions */
#include "kl/rotations.h"   /* quaternions, axes, angles */
#include "kl/run_twins.h"   /* functions that take a run in place of their ids */
#include "kl/runs.h"        /* runs */
#include "kl/satellites.h"  /* satellite ids and data */
#include "kl/stars.h"       /* stars and catalogues */
#include "kl/time.h"        /* time ids, scales, processing format, leap seconds */
#include "kl/types.h"       /* status, function ids, sizes, handles */
#include "kl/version.h"     /* numbers of the version */

#endif
