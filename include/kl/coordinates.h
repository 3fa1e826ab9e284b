/**
 * @file coordinates.h
 * Geodetic, Keplerian, polar and topocentric coordinates, geodesics and grids, angles on an orbit, frames that go along
 * with a satellite, and the instants at which a function of time crosses zero.
 *
 * Angles are in degrees, lengths in metres, rates per second. Longitudes, right ascensions, azimuths, nodes, perigees,
 * anomalies and orbit angles come out in [0, 360) and never as -0.0. In calc_mode KL_CALC_POS rates and velocities are
 * not read, may be NULL where they are arrays, and come out as 0. On an error nothing is written. A model id that is
 * NULL or uninitialised means the default models; with one whose Earth was refused KL_ERR and a clear vector come back.
 * The first condition ends a call: mode or kind, then the arguments in their order. A NULL output is KL_ERR with a
 * clear vector.
 */
#ifndef KL_COORDINATES_H
#define KL_COORDINATES_H

#include "kl/frames.h"
#include "kl/models.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Geodetic coordinates on the model's ellipsoid: its semi_major_axis and flattening, nothing else of it, are read. */
typedef struct kl_geodetic {
    double latitude;       /**< deg, -90 to 90 */
    double longitude;      /**< deg; in -360 to 360 */
    double height;         /**< m above the ellipsoid */
    double latitude_rate;  /**< deg/s */
    double longitude_rate; /**< deg/s */
    double height_rate;    /**< m/s */
} kl_geodetic;

/** Elements of an ellipse (semi_major_axis > 0, eccentricity 0 to 1) or a hyperbola (< 0, > 1). */
typedef struct kl_kepler {
    double semi_major_axis; /**< m */
    double eccentricity;
    double inclination;  /**< deg, 0 to 180 */
    double raan;         /**< deg, right ascension of the ascending node */
    double arg_perigee;  /**< deg */
    double mean_anomaly; /**< deg; of a hyperbola without bounds */
} kl_kepler;

/** Right ascension and declination. */
typedef struct kl_radec {
    double ra;            /**< deg; in -360 to 360 */
    double dec;           /**< deg, -90 to 90 */
    double distance;      /**< m */
    double ra_rate;       /**< deg/s */
    double dec_rate;      /**< deg/s */
    double distance_rate; /**< m/s */
} kl_radec;

/** Direction seen from a place on the Earth. */
typedef struct kl_topocentric {
    double azimuth;        /**< deg from north through east; in -360 to 360 */
    double elevation;      /**< deg, -90 to 90 */
    double range;          /**< m */
    double azimuth_rate;   /**< deg/s */
    double elevation_rate; /**< deg/s */
    double range_rate;     /**< m/s */
} kl_topocentric;

/** Angle of a satellite on its orbit, true equator and equinox of date. */
typedef struct kl_orbit_angle {
    double angle;        /**< deg from the ascending node in the direction of motion: perigee plus true anomaly */
    double rate;         /**< deg/s */
    double rate_of_rate; /**< deg/s2 */
    double node;         /**< deg, right ascension of the ascending node */
    double node_rate;    /**< deg/s */
    double inclination;  /**< deg */
} kl_orbit_angle;

/** Where the Sun stands seen from an orbit. */
typedef struct kl_orbit_sun_angles {
    double beta; /**< deg, -90 to 90: the Sun above the plane of the orbit, on the side of its pole */
    double
        node_true_solar_time; /**< h, [0, 24): of the ascending node, 12 where the Sun's right ascension is its own */
    double node_mean_solar_time; /**< h, [0, 24): the same by the mean Sun, UT1 plus the longitude of the node */
    double sun_to_satellite; /**< deg, [0, 360): in the plane, from the Sun's projection in the direction of motion */
} kl_orbit_sun_angles;

/** A state in memory, for kl_interpolate_states. */
typedef struct kl_state_at {
    double time;           /**< s, from where the caller likes */
    double pos[3], vel[3]; /**< m, m/s */
} kl_state_at;

/** Kinds of elements. */
enum { KL_KEPLER_OSCULATING = 0, KL_KEPLER_MEAN = 1 };

/** Frames that go along with a satellite: q radial, t along the velocity, w along the angular momentum. */
enum {
    KL_ORBITAL_QSW = 0,  /**< q, s = w x q, w; also RTN, RSW, RIC, and what some libraries call LVLH */
    KL_ORBITAL_LVLH = 1, /**< s, -w, -q; that of CCSDS, also VVLH */
    KL_ORBITAL_TNW = 2,  /**< t, n = w x t (inward), w */
    KL_ORBITAL_NTW = 3,  /**< -n (outward), t, w */
    KL_ORBITAL_VNC = 4   /**< t, w, t x w */
};

/** Conditions of kl_geod_to_cart, from api/coordinates.toml. */
enum {
    KL_GEOD_TO_CART_CALC_MODE_ERR = 0, /**< mode not 1 or 2, or NULL */
    KL_GEOD_TO_CART_LATITUDE_ERR = 1,  /**< outside -90 to 90, NaN, or in is NULL */
    KL_GEOD_TO_CART_LONGITUDE_ERR = 2, /**< outside -360 to 360, or NaN */
    KL_GEOD_TO_CART_HEIGHT_ERR = 3,    /**< below the centre or above 1e12 m, or NaN */
    KL_GEOD_TO_CART_RATES_ERR = 4,     /**< mode 2: not finite, or of a velocity that is not */
    KL_GEOD_TO_CART_N_CODES = 5
};

/**
 * Geodetic to Earth-fixed Cartesian coordinates.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  calc_mode  KL_CALC_POS or KL_CALC_POS_VEL
 * @param[in]  in         latitude -90 to 90, longitude -360 to 360, height from the centre (-6356752 m) to 1e12 m;
 *                        rates in mode 2
 * @param[out] pos        [3] m, KL_EF
 * @param[out] vel        [3] m/s, relative to the rotating axes; 0 in mode 1
 * @param[out] ierr       [1] error vector
 * @return KL_OK or KL_ERR
 * At latitudes of 90 and -90 the point lies on the axis exactly.
 */
KL_API long kl_geod_to_cart(kl_model_id *model_id, const long *calc_mode, const kl_geodetic *in, double pos[3],
                            double vel[3], long *ierr);

/** Conditions of kl_cart_to_geod, from api/coordinates.toml. */
enum {
    /** mode not 1 or 2, or NULL */
    KL_CART_TO_GEOD_CALC_MODE_ERR = 0,
    /** not finite, beyond 1e12 m, or NULL */
    KL_CART_TO_GEOD_POSITION_ERR = 1,
    /** mode 2: not finite, beyond 1e9 m/s, or NULL */
    KL_CART_TO_GEOD_VELOCITY_ERR = 2,
    /** in the plane of the equator, within 42697.67 m of the centre; or the latitude has no rate */
    KL_CART_TO_GEOD_TWO_FEET_WARN = 3,
    /** mode 2, with a velocity off the axis; the rate is 0 */
    KL_CART_TO_GEOD_POLAR_AXIS_WARN = 4,
    KL_CART_TO_GEOD_N_CODES = 5
};

/**
 * Earth-fixed Cartesian to geodetic coordinates: the nearest point of the ellipsoid, at any height and inside the
 * Earth.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  calc_mode  KL_CALC_POS or KL_CALC_POS_VEL
 * @param[in]  pos        [3] m, KL_EF, up to 1e12 m from the centre
 * @param[in]  vel        [3] m/s, up to 1e9; read in mode 2
 * @param[out] out        latitude, longitude, height; rates in mode 2
 * @param[out] ierr       [1] error vector
 * @return KL_OK, KL_WARN or KL_ERR
 * Within 8 nm (and half a unit of the last place of the longitude) up to 10000 km from the centre, the spacing of the
 * coordinates beyond. In the plane of the equator, nearer to the centre than 42697.67 m, two points of the ellipsoid
 * are equally near: the northern one is taken, with a warning, so that (1, 0, 0) has a latitude of 89.9987 and a height
 * of -6356752 m. Heights below -M, the radius of curvature of the meridian, do not come back from kl_geod_to_cart as
 * the same triple: another point is nearer. On the polar axis longitude and its rate are 0; the rate of latitude is
 * that of leaving the pole. Sources: B. R. Bowring, Survey Review 23, 323 (1976) for the start; one step of Halley's,
 * or Newton's on a convex function inside the Earth.
 */
KL_API long kl_cart_to_geod(kl_model_id *model_id, const long *calc_mode, const double pos[3], const double vel[3],
                            kl_geodetic *out, long *ierr);

/** Conditions of kl_kepl_to_cart, from api/coordinates.toml. */
enum {
    /** kind not 0 or 1, or NULL */
    KL_KEPL_TO_CART_KIND_ERR = 0,
    /** neither an ellipse nor a hyperbola, beyond 1e13 m, NaN, or in is NULL */
    KL_KEPL_TO_CART_ELEMENTS_ERR = 1,
    /** never recorded */
    KL_KEPL_TO_CART_KEPLER_ERR = -1,
    /** outside 0 to 180, or NaN */
    KL_KEPL_TO_CART_INCLINATION_ERR = 3,
    /** not finite, or beyond 1e8 deg */
    KL_KEPL_TO_CART_ANGLES_ERR = 4,
    /** e from 0.99 on, a (1 - e^2) below half the gravity radius, or no ellipse belongs to them */
    KL_KEPL_TO_CART_MEAN_ERR = 5,
    KL_KEPL_TO_CART_N_CODES = 6
};

/**
 * Keplerian elements to position and velocity.
 *
 * @param[in]  model_id  models; NULL or uninitialised: the default ones, for this call only (gm; for mean elements j2
 *                       and gravity_radius)
 * @param[in]  kind      KL_KEPLER_OSCULATING or KL_KEPLER_MEAN
 * @param[in]  in        elements: ellipse or hyperbola, semi-major axis up to 1e13 m; angles up to 1e8 deg
 * @param[out] pos       [3] m, inertial equatorial frame of the caller's choice
 * @param[out] vel       [3] m/s
 * @param[out] ierr      [1] error vector
 * @return KL_OK or KL_ERR
 * Mean elements are the osculating ones less the short-period terms of J2 at the same instant (no long-period and no
 * secular terms): not those of SGP4. They speak of the Earth's equator, so KL_TOD is the frame for them; e = 0, i = 0,
 * 63.4 and 180 deg are ordinary. They are taken for e < 0.99 and a (1 - e^2) above half the gravity radius.
 * Sources: F. L. Markley, Celest. Mech. Dyn. Astron. 63, 101 (1995); D. Brouwer, Astron. J. 64, 378 (1959);
 * R. H. Lyddane, Astron. J. 68, 555 (1963).
 */
KL_API long kl_kepl_to_cart(kl_model_id *model_id, const long *kind, const kl_kepler *in, double pos[3], double vel[3],
                            long *ierr);

/** Conditions of kl_cart_to_kepl, from api/coordinates.toml. */
enum {
    /** kind not 0 or 1, or NULL */
    KL_CART_TO_KEPL_KIND_ERR = 0,
    /** not finite, position zero or beyond 1e13 m, velocity beyond 1e9 m/s, or NULL */
    KL_CART_TO_KEPL_STATE_ERR = 1,
    /** position and velocity along one line to rounding, or |2 - r v^2/gm| below 1e-9 */
    KL_CART_TO_KEPL_CONIC_ERR = 2,
    /** hyperbola, e from 0.99 on, or a (1 - e^2) below half the gravity radius */
    KL_CART_TO_KEPL_MEAN_ERR = 3,
    /** no closure below 1e-13 */
    KL_CART_TO_KEPL_CONVERGENCE_ERR = 4,
    KL_CART_TO_KEPL_N_CODES = 5
};

/**
 * Position and velocity to Keplerian elements; the inverse of kl_kepl_to_cart to rounding, for both kinds.
 *
 * @param[in]  model_id  as in kl_kepl_to_cart
 * @param[in]  kind      KL_KEPLER_OSCULATING or KL_KEPLER_MEAN
 * @param[in]  pos       [3] m, inertial equatorial frame, up to 1e13 m
 * @param[in]  vel       [3] m/s, up to 1e9
 * @param[out] out       elements
 * @param[out] ierr      [1] error vector
 * @return KL_OK or KL_ERR
 * Perigee and anomaly of a nearly circular orbit, node and perigee of one near the equator, are ill determined one by
 * one; their sum is good to rounding. Of a circle exactly the perigee is 0, in the plane of the equator the node is 0.
 */
KL_API long kl_cart_to_kepl(kl_model_id *model_id, const long *kind, const double pos[3], const double vel[3],
                            kl_kepler *out, long *ierr);

/** Conditions of kl_cart_to_radec, from api/coordinates.toml. */
enum {
    KL_CART_TO_RADEC_CALC_MODE_ERR = 0,   /**< mode not 1 or 2, or NULL */
    KL_CART_TO_RADEC_POSITION_ERR = 1,    /**< not finite, zero, longer than the largest number, or NULL */
    KL_CART_TO_RADEC_VELOCITY_ERR = 2,    /**< mode 2: not finite, beyond 1e9 m/s, or NULL */
    KL_CART_TO_RADEC_POLAR_AXIS_WARN = 3, /**< mode 2, with a velocity off the axis; the rates are 0 */
    KL_CART_TO_RADEC_N_CODES = 4
};

/**
 * Position and velocity to right ascension and declination, in the equatorial frame the vectors are in.
 *
 * @param[in]  model_id   not read
 * @param[in]  calc_mode  KL_CALC_POS or KL_CALC_POS_VEL
 * @param[in]  pos        [3] m, finite and not zero, of any size
 * @param[in]  vel        [3] m/s, up to 1e9; read in mode 2
 * @param[out] out        right ascension, declination, distance; rates in mode 2
 * @param[out] ierr       [1] error vector
 * @return KL_OK, KL_WARN or KL_ERR
 * On the polar axis right ascension is 0, and so are the rates of both angles.
 */
KL_API long kl_cart_to_radec(kl_model_id *model_id, const long *calc_mode, const double pos[3], const double vel[3],
                             kl_radec *out, long *ierr);

/** Conditions of kl_radec_to_cart, from api/coordinates.toml. */
enum {
    KL_RADEC_TO_CART_CALC_MODE_ERR = 0, /**< mode not 1 or 2, or NULL */
    KL_RADEC_TO_CART_RA_ERR = 1,        /**< outside -360 to 360, NaN, or in is NULL */
    KL_RADEC_TO_CART_DEC_ERR = 2,       /**< outside -90 to 90, or NaN */
    KL_RADEC_TO_CART_DISTANCE_ERR = 3,  /**< negative, or not finite */
    KL_RADEC_TO_CART_RATES_ERR = 4,     /**< mode 2: not finite, or of a velocity that is not */
    KL_RADEC_TO_CART_N_CODES = 5
};

/**
 * Right ascension and declination to position and velocity.
 *
 * @param[in]  model_id   not read
 * @param[in]  calc_mode  KL_CALC_POS or KL_CALC_POS_VEL
 * @param[in]  in         right ascension -360 to 360, declination -90 to 90, distance from 0; rates in mode 2
 * @param[out] pos        [3] m
 * @param[out] vel        [3] m/s; 0 in mode 1
 * @param[out] ierr       [1] error vector
 * @return KL_OK or KL_ERR
 */
KL_API long kl_radec_to_cart(kl_model_id *model_id, const long *calc_mode, const kl_radec *in, double pos[3],
                             double vel[3], long *ierr);

/** Conditions of kl_ef_to_topocentric, from api/coordinates.toml. */
enum {
    KL_EF_TO_TOPOCENTRIC_CALC_MODE_ERR = 0, /**< mode not 1 or 2, or NULL */
    KL_EF_TO_TOPOCENTRIC_ORIGIN_ERR = 1,    /**< latitude, longitude or height out of range, or NULL */
    KL_EF_TO_TOPOCENTRIC_STATE_ERR = 2,     /**< not finite, beyond 1e13 m or 1e9 m/s, or NULL */
    KL_EF_TO_TOPOCENTRIC_ZENITH_WARN = 3,   /**< zenith, nadir, or the origin itself */
    KL_EF_TO_TOPOCENTRIC_N_CODES = 4
};

/**
 * Earth-fixed position and velocity to azimuth, elevation and range from a place on the Earth.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  calc_mode  KL_CALC_POS or KL_CALC_POS_VEL
 * @param[in]  origin     the place, as in kl_geod_to_cart; fixed to the Earth, its rates are not read
 * @param[in]  pos        [3] m, KL_EF, up to 1e13 m
 * @param[in]  vel        [3] m/s, relative to the rotating axes, up to 1e9; read in mode 2
 * @param[out] out        azimuth, elevation, range; rates in mode 2
 * @param[out] ierr       [1] cleared; this function has no public id and sets no bits
 * @return KL_OK, KL_WARN (zenith, nadir, or the origin itself) or KL_ERR, each told in words in verbose mode
 * Geometric: no refraction, no light time. At the zenith azimuth and the rates of both angles are 0; at the origin all
 * is 0 but an elevation of 90. At a pole, north is the continuation of the meridian of the given longitude.
 */
KL_API long kl_ef_to_topocentric(kl_model_id *model_id, const long *calc_mode, const kl_geodetic *origin,
                                 const double pos[3], const double vel[3], kl_topocentric *out, long *ierr);

/** Conditions of kl_topocentric_to_ef, from api/coordinates.toml. */
enum {
    KL_TOPOCENTRIC_TO_EF_CALC_MODE_ERR = 0,   /**< mode not 1 or 2, or NULL */
    KL_TOPOCENTRIC_TO_EF_ORIGIN_ERR = 1,      /**< latitude, longitude or height out of range, or NULL */
    KL_TOPOCENTRIC_TO_EF_COORDINATES_ERR = 2, /**< out of range, not finite, or NULL */
    KL_TOPOCENTRIC_TO_EF_ZENITH_WARN = 3,     /**< zenith or nadir */
    KL_TOPOCENTRIC_TO_EF_N_CODES = 4
};

/**
 * Azimuth, elevation and range from a place on the Earth to an Earth-fixed position and velocity.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  calc_mode  KL_CALC_POS or KL_CALC_POS_VEL
 * @param[in]  origin     the place, as in kl_geod_to_cart; its rates are not read
 * @param[in]  in         azimuth -360 to 360, elevation -90 to 90, range 0 to 1e12 m; rates in mode 2
 * @param[out] pos        [3] m, KL_EF
 * @param[out] vel        [3] m/s, relative to the rotating axes; 0 in mode 1
 * @param[out] ierr       [1] cleared; this function has no public id and sets no bits
 * @return KL_OK, KL_WARN (zenith or nadir) or KL_ERR, each told in words in verbose mode
 */
KL_API long kl_topocentric_to_ef(kl_model_id *model_id, const long *calc_mode, const kl_geodetic *origin,
                                 const kl_topocentric *in, double pos[3], double vel[3], long *ierr);

/** Conditions of kl_position_on_orbit, from api/coordinates.toml. */
enum {
    /** time reference not 0 to 3, or NULL */
    KL_POSITION_ON_ORBIT_TIME_REF_ERR = 0,
    /** date outside -18262.0 to 36524.0, not a number, or NULL */
    KL_POSITION_ON_ORBIT_DATE_ERR = 1,
    /** mode not 1 to 3, or NULL */
    KL_POSITION_ON_ORBIT_CALC_MODE_ERR = 2,
    /** frame not 1 to 11, KL_GALACTIC (it carries no velocity), or NULL */
    KL_POSITION_ON_ORBIT_CS_ERR = 3,
    /** not finite, beyond 1e13 m, 1e9 m/s or 1e9 m/s2, or NULL */
    KL_POSITION_ON_ORBIT_STATE_ERR = 4,
    /** the time cannot be brought to UT1 */
    KL_POSITION_ON_ORBIT_TIME_ID_ERR = 5,
    /** KL_LIF, a model id without the routine, or no way to TDB */
    KL_POSITION_ON_ORBIT_TRANSFORMATION_ERR = 6,
    /** position and velocity along one line, to rounding */
    KL_POSITION_ON_ORBIT_PLANE_ERR = 7,
    /** node 0 */
    KL_POSITION_ON_ORBIT_EQUATOR_WARN = 8,
    /** once, when a call leaves the table for the UT1-UTC formula */
    KL_POSITION_ON_ORBIT_FORMULA_WARN = 9,
    /** once, when a call enters the gap between two bulletins */
    KL_POSITION_ON_ORBIT_GAP_WARN = 10,
    /** once, when a call leaves the validity of the table */
    KL_POSITION_ON_ORBIT_VALIDITY_WARN = 11,
    KL_POSITION_ON_ORBIT_N_CODES = 12
};

/**
 * Angle of a satellite on its orbit, from the ascending node (true equator of date) in the direction of motion: 0 at
 * the node, 90 at the northernmost point.
 *
 * @param[in]  model_id   models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  time_id    initialised time correlation
 * @param[in]  calc_mode  KL_CALC_POS: angle, node and inclination; KL_CALC_POS_VEL: rates too; KL_CALC_POS_VEL_ACC: the
 *                        second derivative too
 * @param[in]  cs         frame of the state, KL_BM2000 to KL_TEME but KL_GALACTIC; from KL_TOD nothing is converted
 * @param[in]  time_ref   scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time       MJD2000, days, -18262.0 to 36524.0
 * @param[in]  pos        [3] m, up to 1e13
 * @param[in]  vel        [3] m/s, up to 1e9; read in every mode
 * @param[in]  acc        [3] m/s2, up to 1e9: derivative of vel in the frame given; read in modes 2 and 3. NULL or
 *                        zeros: motion of two bodies, whatever the frame
 * @param[out] out        angle, node, inclination, and what the mode asks for; the rest 0
 * @param[out] ierr       [1] error vector
 * @return KL_OK, KL_WARN or KL_ERR
 * The rate is that of the angle itself, the motion of the node taken off: on an orbit about an oblate Earth it agrees
 * with differences to 3e-12 rad/s. In the second derivative the change of the node's rate is left out: up to
 * 5e-9 rad/s2 on low orbits.
 */
KL_API long kl_position_on_orbit(kl_model_id *model_id, kl_time_id *time_id, const long *calc_mode, const long *cs,
                                 const long *time_ref, const double *time, const double pos[3], const double vel[3],
                                 const double acc[3], kl_orbit_angle *out, long *ierr);

/**
 * Beta angle, local solar times of the ascending node, and the angle from the Sun to the satellite.
 *
 * @param[in]  model_id  models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  time_id   initialised time correlation
 * @param[in]  cs        frame of the state, as in kl_position_on_orbit
 * @param[in]  time_ref  scale of time: KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS
 * @param[in]  time      MJD2000, days, -18262.0 to 36524.0
 * @param[in]  pos       [3] m, up to 1e13
 * @param[in]  vel       [3] m/s, up to 1e9
 * @param[out] out       angles in KL_TOD
 * @param[out] ierr      [1] cleared; this function has no public id and sets no bits
 * @return KL_OK, KL_WARN (orbit in the plane of the equator: node at the equinox) or KL_ERR
 * Geometric Sun, no light time.
 */
KL_API long kl_orbit_sun(kl_model_id *model_id, kl_time_id *time_id, const long *cs, const long *time_ref,
                         const double *time, const double pos[3], const double vel[3], kl_orbit_sun_angles *out,
                         long *ierr);

/** Conditions of kl_geod_distance, from api/coordinates.toml. */
enum {
    KL_GEOD_DISTANCE_LATITUDE1_ERR = 0,   /**< outside -90 to 90, NaN, or NULL */
    KL_GEOD_DISTANCE_LONGITUDE1_ERR = 1,  /**< outside -360 to 360, NaN, or NULL */
    KL_GEOD_DISTANCE_LATITUDE2_ERR = 2,   /**< outside -90 to 90, NaN, or NULL */
    KL_GEOD_DISTANCE_LONGITUDE2_ERR = 3,  /**< outside -360 to 360, NaN, or NULL */
    KL_GEOD_DISTANCE_CONVERGENCE_ERR = 4, /**< not seen: a bracket is halved where steps leave it */
    KL_GEOD_DISTANCE_N_CODES = 5
};

/**
 * Length and azimuths of the shortest path between two points of the ellipsoid (height 0).
 *
 * @param[in]  model_id  models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  lat1      geodetic latitude of the first point, deg, -90 to 90
 * @param[in]  lon1      its longitude, deg, -360 to 360
 * @param[in]  lat2      the second point
 * @param[in]  lon2      the second point
 * @param[out] distance  m
 * @param[out] azimuth1  deg, direction of travel at the first point, north through east; NULL: not asked for
 * @param[out] azimuth2  deg, direction of travel at the second point; NULL: not asked for
 * @param[out] ierr      [1] error vector
 * @return KL_OK or KL_ERR
 * Within 15 nm everywhere, near the antipode too. Equal points, also two longitudes of a pole: 0 and azimuths 0.
 * Source: C. F. F. Karney, J. Geodesy 87, 43-55 (2013).
 */
KL_API long kl_geod_distance(kl_model_id *model_id, const double *lat1, const double *lon1, const double *lat2,
                             const double *lon2, double *distance, double *azimuth1, double *azimuth2, long *ierr);

/**
 * The point at a distance along the geodesic that starts with an azimuth.
 *
 * @param[in]  model_id  models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  lat       geodetic latitude, deg, -90 to 90
 * @param[in]  lon       deg, -360 to 360
 * @param[in]  azimuth   deg, north through east, -360 to 360
 * @param[in]  distance  m, -1e9 to 1e9; negative: backwards
 * @param[out] lat2      deg
 * @param[out] lon2      deg
 * @param[out] azimuth2  deg, direction of travel there; NULL: not asked for
 * @param[out] ierr      [1] cleared; this function has no public id and sets no bits
 * @return KL_OK or KL_ERR
 * Within 15 nm as far as the antipode, 20 nm on the rest of the first turn around the Earth.
 */
KL_API long kl_geod_point(kl_model_id *model_id, const double *lat, const double *lon, const double *azimuth,
                          const double *distance, double *lat2, double *lon2, double *azimuth2, long *ierr);

/** Conditions of KL_Coticchia_Surace, from api/coordinates.toml. */
enum {
    KL_COTICCHIA_SURACE_COMPUTATION_ERR = 0, /**< whatever is refused */
    KL_COTICCHIA_SURACE_N_CODES = 1
};

/**
 * Universal transverse Mercator coordinates of a geodetic point.
 *
 * @param[in]     model_id  models; NULL or uninitialised: the default ones, for this call only
 * @param[in]     lat       geodetic latitude, deg, -84 to 84
 * @param[in]     lon       deg, -360 to 360, within 6 deg of the zone's central meridian
 * @param[in,out] zone      1 to 60, or 0: the zone of the longitude is taken and given back. Without the exceptions
 *                          around Norway and Spitsbergen
 * @param[out]    north     1 from the equator northwards, else 0
 * @param[out]    easting   m, 500000 on the central meridian
 * @param[out]    northing  m; 1e7 more in the south
 * @param[out]    ierr      [1] error vector
 * @return KL_OK, or KL_ERR for whatever is refused, NULL too: always bit 0. Bits 1 to 3 are kept for latitude,
 * longitude and zone and are never set. Source: L. Krueger's series to order 6, C. F. F. Karney, J. Geodesy 85, 475-485
 * (2011): 5 nm.
 */
KL_API long KL_Coticchia_Surace(kl_model_id *model_id, const double *lat, const double *lon, long *zone, long *north,
                                double *easting, double *northing, long *ierr);

/**
 * Geodetic latitude and longitude of universal transverse Mercator coordinates: the inverse of KL_Coticchia_Surace.
 *
 * @param[in]  model_id  models; NULL or uninitialised: the default ones, for this call only
 * @param[in]  zone      1 to 60
 * @param[in]  north     1: the northern half, 0: the southern one
 * @param[in]  easting   m
 * @param[in]  northing  m; the point within 84 deg of the equator and 6 deg of the central meridian
 * @param[out] lat       deg
 * @param[out] lon       deg
 * @param[out] ierr      [1] cleared; this function has no public id and sets no bits
 * @return KL_OK or KL_ERR
 */
KL_API long kl_utm_to_geod(kl_model_id *model_id, const long *zone, const long *north, const double *easting,
                           const double *northing, double *lat, double *lon, long *ierr);

/**
 * Axes of a frame that goes along with a satellite.
 *
 * @param[in]  kind  KL_ORBITAL_QSW and the others. The name LVLH means two different things elsewhere
 * @param[in]  pos   [3] m, inertial frame, up to 1e13
 * @param[in]  vel   [3] m/s, up to 1e9
 * @param[in]  acc   [3] m/s2, up to 1e9; NULL: motion of two bodies with the gm of the default model. Zeros are taken
 *                   as they stand
 * @param[out] r     [9] rows: the axes in the frame of the state, so that r v is v along the axes
 * @param[out] dr    [9] its derivative in time, 1/s; a velocity relative to the turning axes is r vel + dr pos
 * @param[out] ierr  [1] cleared; this function has no public id and sets no bits
 * @return KL_OK or KL_ERR (position and velocity that span no plane, too)
 */
KL_API long kl_local_orbital_frame(const long *kind, const double pos[3], const double vel[3], const double acc[3],
                                   double r[9], double dr[9], long *ierr);

/**
 * A function of time for kl_find_crossings: writes its values at n instants and returns KL_OK; KL_ERR ends the search.
 */
typedef long (*kl_crossing_function)(void *context, const long *n, const double *times, double *values);

/** A crossing of zero. */
typedef struct kl_crossing {
    double time;    /**< days */
    double value;   /**< of the function there */
    long direction; /**< 1: it rises above zero, -1: it falls */
    long cut;       /**< 1: no crossing, but an end of the span at which the function is above zero; else 0 */
} kl_crossing;

/**
 * Mean Keplerian elements after a time: node, perigee and anomaly turn by the secular rates of J2.
 *
 * @param[in]  model_id  models; NULL or uninitialised: the default ones, for this call only (gm, j2, gravity_radius)
 * @param[in]  mean      elements of kind KL_KEPLER_MEAN as kl_kepl_to_cart takes them, angles up to 1e8 deg
 * @param[in]  duration  s, -1e10 to 1e10
 * @param[out] out       elements then, angles in [0, 360)
 * @param[out] ierr      [1] cleared; this function has no public id and sets no bits
 * @return KL_OK or KL_ERR
 * What it leaves out: the second order of J2, up to 0.04 deg a day along an orbit at 800 km, the other harmonics and
 * drag. For plans, not for orbits that were determined. Source: D. Brouwer, Astron. J. 64, 378 (1959), first order.
 */
KL_API long kl_mean_motion(kl_model_id *model_id, const kl_kepler *mean, const double *duration, kl_kepler *out,
                           long *ierr);

/**
 * A state between states in memory: Hermite's polynomial of degree 11 through the six nearest, three on either side
 * where there are so many.
 *
 * @param[in]  n_states  2 or more
 * @param[in]  states    [n_states] in the order of time, all in one frame; of the six that are used the order is
 *                       checked
 * @param[in]  time      s, from the first to the last; nothing is extrapolated
 * @param[out] pos       [3] m
 * @param[out] vel       [3] m/s
 * @param[out] error     [1] m: how far the same polynomial with one state fewer is; above the true error of the
 *                       position where the motion is smooth; or NULL
 * @param[out] ierr      [1] cleared; this function has no public id and sets no bits
 * @return KL_OK or KL_ERR
 * Of a circle with an angle of w between states, the position in the middle is off by 2.6e-8 w^12 of the radius, by
 * 1.2e-6 w^12 in the first and last step: at 700 km less than rounding for states a minute apart, 0.2 um and 10 um for
 * five minutes. States of the J2 and rougher fields come out the same.
 */
KL_API long kl_interpolate_states(const long *n_states, const kl_state_at *states, const double *time, double pos[3],
                                  double vel[3], double *error, long *ierr);

/**
 * The instants at which a smooth function of time crosses zero, in order.
 *
 * @param[in]  f          the function
 * @param[in]  context    passed to f
 * @param[in]  start      days
 * @param[in]  stop       days, after start
 * @param[in]  step       days, above 0: the function is sampled that often and has no two extrema within a step
 * @param[in]  tolerance  days, above 0: how near the instants are, as far as their spacing allows
 * @param[in]  max        room in found
 * @param[out] n          number of crossings found
 * @param[out] found      [max]; rises and falls alternate: where the function is above zero at an end of the span, that
 *                        end is given too, marked as cut
 * @param[out] ierr       [1] cleared; this function has no public id and sets no bits
 * @return KL_OK; KL_WARN when max was too small, with the first ones found; KL_ERR when f failed or gave a value that
 * is not finite, or for bad input. A pair of crossings within one step is found where the parabola through three
 * neighbours sees it. The function is asked for up to 64 instants at once, in ascending order, on the step's grid, then
 * for single ones between them, at most 200 a crossing and 8 usually. No memory is taken. Source: T. R. Chandrupatla,
 * Adv. Eng. Softw. 28, 145 (1997).
 */
KL_API long kl_find_crossings(kl_crossing_function f, void *context, const double *start, const double *stop,
                              const double *step, const double *tolerance, const long *max, long *n, kl_crossing *found,
                              long *ierr);

#ifdef __cplusplus
}
#endif

#endif
