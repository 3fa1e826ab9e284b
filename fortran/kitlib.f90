! The library for Fortran 2018: the C functions, by their names. An argument that is left out is NULL to the library;
! matrices come with the second index first; a text ends with c_null_char.
! Written by tools/api/generate.py from the table in api/.
module kitlib
  use, intrinsic :: iso_c_binding
  implicit none
  public

  integer(c_long), parameter :: KL_MERCURY = 1_c_long
  integer(c_long), parameter :: KL_VENUS = 2_c_long
  integer(c_long), parameter :: KL_EARTH_MOON_BARYCENTRE = 3_c_long
  integer(c_long), parameter :: KL_MARS = 4_c_long
  integer(c_long), parameter :: KL_JUPITER = 5_c_long
  integer(c_long), parameter :: KL_SATURN = 6_c_long
  integer(c_long), parameter :: KL_URANUS = 7_c_long
  integer(c_long), parameter :: KL_NEPTUNE = 8_c_long
  integer(c_long), parameter :: KL_SUN_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_SUN_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_SUN_TIME_ID_ERR = 2_c_long
  integer(c_long), parameter :: KL_SUN_BODY_ERR = 3_c_long
  integer(c_long), parameter :: KL_SUN_TDB_ERR = 4_c_long
  integer(c_long), parameter :: KL_SUN_PROC_TO_PROC_ERR = 5_c_long
  integer(c_long), parameter :: KL_SUN_FRAME_ERR = 6_c_long
  integer(c_long), parameter :: KL_SUN_N_CODES = 7_c_long
  integer(c_long), parameter :: KL_MOON_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_MOON_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_MOON_TIME_ID_ERR = 2_c_long
  integer(c_long), parameter :: KL_MOON_BODY_ERR = 3_c_long
  integer(c_long), parameter :: KL_MOON_TDB_ERR = 4_c_long
  integer(c_long), parameter :: KL_MOON_PROC_TO_PROC_ERR = 5_c_long
  integer(c_long), parameter :: KL_MOON_FRAME_ERR = 6_c_long
  integer(c_long), parameter :: KL_MOON_N_CODES = 7_c_long
  integer(c_long), parameter :: KL_PLANET_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_PLANET_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_PLANET_TIME_ID_ERR = 2_c_long
  integer(c_long), parameter :: KL_PLANET_CODE_ERR = 3_c_long
  integer(c_long), parameter :: KL_PLANET_TDB_ERR = 4_c_long
  integer(c_long), parameter :: KL_PLANET_PROC_TO_PROC_ERR = 5_c_long
  integer(c_long), parameter :: KL_PLANET_FRAME_ERR = 6_c_long
  integer(c_long), parameter :: KL_PLANET_CONVERGENCE_WARN = 7_c_long
  integer(c_long), parameter :: KL_PLANET_N_CODES = 8_c_long
  integer(c_long), parameter :: KL_CUC_TIME_FIELD_ONLY = 0_c_long
  integer(c_long), parameter :: KL_CUC_WITH_P_FIELD = 1_c_long
  integer(c_long), parameter :: KL_CUC_EPOCH_1958 = 0_c_long
  integer(c_long), parameter :: KL_CUC_EPOCH_1980 = 1_c_long
  integer(c_long), parameter :: KL_CUC_EPOCH_USER = 2_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_SAT_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_TIME_REF_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_TAG_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_REF_TIME_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_NO_OBT_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_OBT_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR = 6_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_TIME_ERR = 7_c_long
  integer(c_long), parameter :: KL_TIME_OBT_TO_TIME_N_CODES = 8_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_SAT_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_TIME_REF_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_TAG_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_TIME_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_REF_TIME_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_NO_OBT_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_OBT_ERR = 6_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR = 7_c_long
  integer(c_long), parameter :: KL_TIME_TIME_TO_OBT_N_CODES = 8_c_long
  integer(c_long), parameter :: KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_CUC_TO_PROCESSING_EPOCH_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_CUC_TO_PROCESSING_N_CODES = 3_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_CUC_EPOCH_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_CUC_TIME_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_CUC_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_KEPLER_OSCULATING = 0_c_long
  integer(c_long), parameter :: KL_KEPLER_MEAN = 1_c_long
  integer(c_long), parameter :: KL_ORBITAL_QSW = 0_c_long
  integer(c_long), parameter :: KL_ORBITAL_LVLH = 1_c_long
  integer(c_long), parameter :: KL_ORBITAL_TNW = 2_c_long
  integer(c_long), parameter :: KL_ORBITAL_NTW = 3_c_long
  integer(c_long), parameter :: KL_ORBITAL_VNC = 4_c_long
  integer(c_long), parameter :: KL_GEOD_TO_CART_CALC_MODE_ERR = 0_c_long
  integer(c_long), parameter :: KL_GEOD_TO_CART_LATITUDE_ERR = 1_c_long
  integer(c_long), parameter :: KL_GEOD_TO_CART_LONGITUDE_ERR = 2_c_long
  integer(c_long), parameter :: KL_GEOD_TO_CART_HEIGHT_ERR = 3_c_long
  integer(c_long), parameter :: KL_GEOD_TO_CART_RATES_ERR = 4_c_long
  integer(c_long), parameter :: KL_GEOD_TO_CART_N_CODES = 5_c_long
  integer(c_long), parameter :: KL_CART_TO_GEOD_CALC_MODE_ERR = 0_c_long
  integer(c_long), parameter :: KL_CART_TO_GEOD_POSITION_ERR = 1_c_long
  integer(c_long), parameter :: KL_CART_TO_GEOD_VELOCITY_ERR = 2_c_long
  integer(c_long), parameter :: KL_CART_TO_GEOD_TWO_FEET_WARN = 3_c_long
  integer(c_long), parameter :: KL_CART_TO_GEOD_POLAR_AXIS_WARN = 4_c_long
  integer(c_long), parameter :: KL_CART_TO_GEOD_N_CODES = 5_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_KIND_ERR = 0_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_ELEMENTS_ERR = 1_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_KEPLER_ERR = -1_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_INCLINATION_ERR = 3_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_ANGLES_ERR = 4_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_MEAN_ERR = 5_c_long
  integer(c_long), parameter :: KL_KEPL_TO_CART_N_CODES = 6_c_long
  integer(c_long), parameter :: KL_CART_TO_KEPL_KIND_ERR = 0_c_long
  integer(c_long), parameter :: KL_CART_TO_KEPL_STATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_CART_TO_KEPL_CONIC_ERR = 2_c_long
  integer(c_long), parameter :: KL_CART_TO_KEPL_MEAN_ERR = 3_c_long
  integer(c_long), parameter :: KL_CART_TO_KEPL_CONVERGENCE_ERR = 4_c_long
  integer(c_long), parameter :: KL_CART_TO_KEPL_N_CODES = 5_c_long
  integer(c_long), parameter :: KL_CART_TO_RADEC_CALC_MODE_ERR = 0_c_long
  integer(c_long), parameter :: KL_CART_TO_RADEC_POSITION_ERR = 1_c_long
  integer(c_long), parameter :: KL_CART_TO_RADEC_VELOCITY_ERR = 2_c_long
  integer(c_long), parameter :: KL_CART_TO_RADEC_POLAR_AXIS_WARN = 3_c_long
  integer(c_long), parameter :: KL_CART_TO_RADEC_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_RADEC_TO_CART_CALC_MODE_ERR = 0_c_long
  integer(c_long), parameter :: KL_RADEC_TO_CART_RA_ERR = 1_c_long
  integer(c_long), parameter :: KL_RADEC_TO_CART_DEC_ERR = 2_c_long
  integer(c_long), parameter :: KL_RADEC_TO_CART_DISTANCE_ERR = 3_c_long
  integer(c_long), parameter :: KL_RADEC_TO_CART_RATES_ERR = 4_c_long
  integer(c_long), parameter :: KL_RADEC_TO_CART_N_CODES = 5_c_long
  integer(c_long), parameter :: KL_EF_TO_TOPOCENTRIC_CALC_MODE_ERR = 0_c_long
  integer(c_long), parameter :: KL_EF_TO_TOPOCENTRIC_ORIGIN_ERR = 1_c_long
  integer(c_long), parameter :: KL_EF_TO_TOPOCENTRIC_STATE_ERR = 2_c_long
  integer(c_long), parameter :: KL_EF_TO_TOPOCENTRIC_ZENITH_WARN = 3_c_long
  integer(c_long), parameter :: KL_EF_TO_TOPOCENTRIC_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_TOPOCENTRIC_TO_EF_CALC_MODE_ERR = 0_c_long
  integer(c_long), parameter :: KL_TOPOCENTRIC_TO_EF_ORIGIN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TOPOCENTRIC_TO_EF_COORDINATES_ERR = 2_c_long
  integer(c_long), parameter :: KL_TOPOCENTRIC_TO_EF_ZENITH_WARN = 3_c_long
  integer(c_long), parameter :: KL_TOPOCENTRIC_TO_EF_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_CALC_MODE_ERR = 2_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_CS_ERR = 3_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_STATE_ERR = 4_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_TRANSFORMATION_ERR = 6_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_PLANE_ERR = 7_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_EQUATOR_WARN = 8_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_FORMULA_WARN = 9_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_GAP_WARN = 10_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_VALIDITY_WARN = 11_c_long
  integer(c_long), parameter :: KL_POSITION_ON_ORBIT_N_CODES = 12_c_long
  integer(c_long), parameter :: KL_GEOD_DISTANCE_LATITUDE1_ERR = 0_c_long
  integer(c_long), parameter :: KL_GEOD_DISTANCE_LONGITUDE1_ERR = 1_c_long
  integer(c_long), parameter :: KL_GEOD_DISTANCE_LATITUDE2_ERR = 2_c_long
  integer(c_long), parameter :: KL_GEOD_DISTANCE_LONGITUDE2_ERR = 3_c_long
  integer(c_long), parameter :: KL_GEOD_DISTANCE_CONVERGENCE_ERR = 4_c_long
  integer(c_long), parameter :: KL_GEOD_DISTANCE_N_CODES = 5_c_long
  integer(c_long), parameter :: KL_COTICCHIA_SURACE_COMPUTATION_ERR = 0_c_long
  integer(c_long), parameter :: KL_COTICCHIA_SURACE_N_CODES = 1_c_long
  integer(c_long), parameter :: KL_TRANS_0 = 0_c_long
  integer(c_long), parameter :: KL_TRANS_11 = 11_c_long
  integer(c_long), parameter :: KL_TRANS_21 = 21_c_long
  integer(c_long), parameter :: KL_TRANS_22 = 22_c_long
  integer(c_long), parameter :: KL_TRANS_23 = 23_c_long
  integer(c_long), parameter :: KL_TRANS_31 = 31_c_long
  integer(c_long), parameter :: KL_TRANS_41 = 41_c_long
  integer(c_long), parameter :: KL_TRANS_42 = 42_c_long
  integer(c_long), parameter :: KL_ASCII_11 = 11_c_long
  integer(c_long), parameter :: KL_ASCII_12 = 12_c_long
  integer(c_long), parameter :: KL_ASCII_13 = 13_c_long
  integer(c_long), parameter :: KL_ASCII_14 = 14_c_long
  integer(c_long), parameter :: KL_ASCII_21 = 21_c_long
  integer(c_long), parameter :: KL_ASCII_22 = 22_c_long
  integer(c_long), parameter :: KL_ASCII_23 = 23_c_long
  integer(c_long), parameter :: KL_ASCII_24 = 24_c_long
  integer(c_long), parameter :: KL_ASCII_31 = 31_c_long
  integer(c_long), parameter :: KL_ASCII_32 = 32_c_long
  integer(c_long), parameter :: KL_ASCII_33 = 33_c_long
  integer(c_long), parameter :: KL_ASCII_34 = 34_c_long
  integer(c_long), parameter :: KL_ASCII_41 = 41_c_long
  integer(c_long), parameter :: KL_ASCII_42 = 42_c_long
  integer(c_long), parameter :: KL_ASCII_43 = 43_c_long
  integer(c_long), parameter :: KL_ASCII_44 = 44_c_long
  integer(c_long), parameter :: KL_ASCII_51 = 51_c_long
  integer(c_long), parameter :: KL_ASCII_52 = 52_c_long
  integer(c_long), parameter :: KL_ASCII_53 = 53_c_long
  integer(c_long), parameter :: KL_ASCII_54 = 54_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_STANDARD_FORMAT_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_PROCESSING_N_CODES = 11_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_ASCII_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_ASCII_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_YEAR_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_LAYOUT_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_TOO_SHORT_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_TOO_LONG_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_PREFIX_ERR = 13_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_PREFIX_REF_ERR = 14_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_NO_REF_ERR = 15_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_MISSION_LIMIT_ERR = 16_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_MONTH_ERR = 17_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_DAY_ERR = 18_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_HOUR_ERR = 19_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_MINUTE_ERR = 20_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_SECOND_ERR = 21_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_MICROSECOND_ERR = 22_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_DAY_OF_30_ERR = 23_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_DAY_OF_29_ERR = 24_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_DAY_OF_28_ERR = 25_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_LEAP_SECOND_ERR = 26_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR = 32_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR = 33_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_ASCII_N_CODES = 29_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_PROC_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR = 13_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_PREFIX_REF_ERR = 14_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_NO_REF_ERR = 15_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR = 16_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR = 17_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_DAY_ERR = 18_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_HOUR_ERR = 19_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_MINUTE_ERR = 20_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_SECOND_ERR = 21_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_MICROSECOND_ERR = 22_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_DAY_OF_30_ERR = 23_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_DAY_OF_29_ERR = 24_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_DAY_OF_28_ERR = 25_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR = 26_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_PROCESSING_N_CODES = 27_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_ASCII_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_YEAR_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_LAYOUT_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_TOO_SHORT_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_TOO_LONG_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_PREFIX_ERR = 13_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_PREFIX_REF_ERR = 14_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_NO_REF_ERR = 15_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_MISSION_LIMIT_ERR = 16_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_MONTH_ERR = 17_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_DAY_ERR = 18_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_HOUR_ERR = 19_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_MINUTE_ERR = 20_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_SECOND_ERR = 21_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_MICROSECOND_ERR = 22_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_30_ERR = 23_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_29_ERR = 24_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_28_ERR = 25_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_LEAP_SECOND_ERR = 26_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_TO_TRANSPORT_N_CODES = 27_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_PROC_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_ASCII_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_DAYS_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_STANDARD_FORMAT_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_AFTER_2099_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_ASCII_N_CODES = 13_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_PROC_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_DAYS_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_STANDARD_FORMAT_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_PROCESSING_TO_TRANSPORT_N_CODES = 11_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_TRANS_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_ASCII_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_DAYS_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_LEAP_SECOND_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_SECONDS_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_MILLISECONDS_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_MICROSECONDS_ERR = 13_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_TICKS_ERR = 14_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_WEEK_ERR = 15_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_SECONDS_OF_WEEK_ERR = 16_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_FRACTION_ERR = 17_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_GPS_SECONDS_ERR = 18_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_BEFORE_1950_ERR = 19_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR = 20_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_ASCII_N_CODES = 21_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_TRANS_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_PROC_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_DAYS_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_LEAP_SECOND_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_MILLISECONDS_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_MICROSECONDS_ERR = 13_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_TICKS_ERR = 14_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_WEEK_ERR = 15_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_OF_WEEK_ERR = 16_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_FRACTION_ERR = 17_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR = 18_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_PROCESSING_N_CODES = 19_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_TRANS_ID_IN_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_REF_IN_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_TRANS_ID_OUT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_REF_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_DAYS_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_OUT_OF_RANGE_WARN = 6_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_BULLETIN_A_WARN = 7_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_BULLETIN_B_A_WARN = 8_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_VALIDITY_WARN = 9_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_LEAP_SECOND_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_MILLISECONDS_ERR = 12_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_MICROSECONDS_ERR = 13_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_TICKS_ERR = 14_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_WEEK_ERR = 15_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_OF_WEEK_ERR = 16_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_FRACTION_ERR = 17_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR = 18_c_long
  integer(c_long), parameter :: KL_TIME_TRANSPORT_TO_TRANSPORT_N_CODES = 19_c_long
  integer(c_long), parameter :: KL_BM2000 = 1_c_long
  integer(c_long), parameter :: KL_HM2000 = 2_c_long
  integer(c_long), parameter :: KL_GM2000 = 3_c_long
  integer(c_long), parameter :: KL_MOD = 4_c_long
  integer(c_long), parameter :: KL_TOD = 5_c_long
  integer(c_long), parameter :: KL_PEF = 6_c_long
  integer(c_long), parameter :: KL_EF = 7_c_long
  integer(c_long), parameter :: KL_LIF = 8_c_long
  integer(c_long), parameter :: KL_BM1950 = 9_c_long
  integer(c_long), parameter :: KL_GALACTIC = 10_c_long
  integer(c_long), parameter :: KL_TEME = 11_c_long
  integer(c_long), parameter :: KL_CALC_POS = 1_c_long
  integer(c_long), parameter :: KL_CALC_POS_VEL = 2_c_long
  integer(c_long), parameter :: KL_CALC_POS_VEL_ACC = 3_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_CALC_MODE_ERR = 2_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_CS_IN_ERR = 3_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_CS_OUT_ERR = 4_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_TIME_ID_ERR = 5_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_FORMULA_WARN = 6_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_GAP_WARN = 7_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_VALIDITY_WARN = 8_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_TAI_ERR = 9_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_TRANSFORMATION_ERR = 10_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_LIF_ERR = 11_c_long
  integer(c_long), parameter :: KL_CHANGE_CART_CS_N_CODES = 12_c_long
  integer(c_long), parameter :: KL_GEOID_CALC_DEGREE_ERR = 0_c_long
  integer(c_long), parameter :: KL_GEOID_CALC_LATITUDE_ERR = 1_c_long
  integer(c_long), parameter :: KL_GEOID_CALC_LONGITUDE_ERR = 2_c_long
  integer(c_long), parameter :: KL_GEOID_CALC_COMPUTATION_ERR = 3_c_long
  integer(c_long), parameter :: KL_GEOID_CALC_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_SUNLIGHT = 0_c_long
  integer(c_long), parameter :: KL_PENUMBRA = 1_c_long
  integer(c_long), parameter :: KL_UMBRA = 2_c_long
  integer(c_long), parameter :: KL_ANNULAR = 3_c_long
  integer(c_long), parameter :: KL_ECLIPSE_POSITION_ERR = 0_c_long
  integer(c_long), parameter :: KL_ECLIPSE_SUN_ERR = 1_c_long
  integer(c_long), parameter :: KL_ECLIPSE_MARGIN_ERR = 2_c_long
  integer(c_long), parameter :: KL_ECLIPSE_TIME_REF_ERR = 3_c_long
  integer(c_long), parameter :: KL_ECLIPSE_DATE_ERR = 4_c_long
  integer(c_long), parameter :: KL_ECLIPSE_CS_ERR = 5_c_long
  integer(c_long), parameter :: KL_ECLIPSE_TIME_ID_ERR = 6_c_long
  integer(c_long), parameter :: KL_ECLIPSE_TRANSFORMATION_ERR = 7_c_long
  integer(c_long), parameter :: KL_ECLIPSE_FORMULA_WARN = 8_c_long
  integer(c_long), parameter :: KL_ECLIPSE_GAP_WARN = 9_c_long
  integer(c_long), parameter :: KL_ECLIPSE_VALIDITY_WARN = 10_c_long
  integer(c_long), parameter :: KL_ECLIPSE_N_CODES = 11_c_long
  integer(c_long), parameter :: KL_MODEL_DEFAULT = 0_c_long
  integer(c_long), parameter :: KL_MODEL_USER = 1_c_long
  integer(c_long), parameter :: KL_MODEL_EARTH = 0_c_long
  integer(c_long), parameter :: KL_MODEL_SUN = 1_c_long
  integer(c_long), parameter :: KL_MODEL_MOON = 2_c_long
  integer(c_long), parameter :: KL_MODEL_PLANET = 3_c_long
  integer(c_long), parameter :: KL_MODEL_STAR = 4_c_long
  integer(c_long), parameter :: KL_MODEL_NUTATION = 5_c_long
  integer(c_long), parameter :: KL_MODEL_PRECESSION = 6_c_long
  integer(c_long), parameter :: KL_MODEL_CONSTANTS = 7_c_long
  integer(c_long), parameter :: KL_MODEL_LIGHT_PROPAGATION = 8_c_long
  integer(c_long), parameter :: KL_MODEL_INIT_INITIALISED_ERR = 0_c_long
  integer(c_long), parameter :: KL_MODEL_INIT_MEMORY_ERR = 1_c_long
  integer(c_long), parameter :: KL_MODEL_INIT_SELECTION_ERR = 2_c_long
  integer(c_long), parameter :: KL_MODEL_INIT_N_CODES = 3_c_long
  integer(c_long), parameter :: KL_MODEL_CLOSE_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_MODEL_CLOSE_N_CODES = 1_c_long
  integer(c_long), parameter :: KL_GCRS = 1_c_long
  integer(c_long), parameter :: KL_CIRS = 2_c_long
  integer(c_long), parameter :: KL_TIRS = 3_c_long
  integer(c_long), parameter :: KL_ITRS = 4_c_long
  integer(c_long), parameter :: KL_EME2000 = 5_c_long
  integer(c_long), parameter :: KL_EOP_OCEAN_TIDES = 1_c_long
  integer(c_long), parameter :: KL_EOP_LIBRATION = 2_c_long
  integer(c_long), parameter :: KL_EOP_ALL = 3_c_long
  integer(c_long), parameter :: KL_EOP_OUTSIDE_TABLE = 1_c_long
  integer(c_long), parameter :: KL_EOP_NO_POLE = 2_c_long
  integer(c_long), parameter :: KL_EOP_BY_FORMULA = 4_c_long
  integer(c_long), parameter :: KL_INTERPOL_SLERP = 0_c_long
  integer(c_long), parameter :: KL_QUATERNIONS_TO_VECTORS_MODULE_ERR = 0_c_long
  integer(c_long), parameter :: KL_QUATERNIONS_TO_VECTORS_N_CODES = 1_c_long
  integer(c_long), parameter :: KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR = 0_c_long
  integer(c_long), parameter :: KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR = 1_c_long
  integer(c_long), parameter :: KL_VECTORS_TO_QUATERNIONS_N_CODES = 2_c_long
  integer(c_long), parameter :: KL_QUATERNIONS_INTERPOL_RANGE_WARN = 0_c_long
  integer(c_long), parameter :: KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR = 1_c_long
  integer(c_long), parameter :: KL_QUATERNIONS_INTERPOL_N_CODES = 2_c_long
  integer(c_long), parameter :: KL_MATRIX_TO_EULER_ROTATION_ERR = 0_c_long
  integer(c_long), parameter :: KL_MATRIX_TO_EULER_AMBIGUITY_WARN = 1_c_long
  integer(c_long), parameter :: KL_MATRIX_TO_EULER_ORTHONORMAL_ERR = 2_c_long
  integer(c_long), parameter :: KL_MATRIX_TO_EULER_N_CODES = 3_c_long
  integer(c_long), parameter :: KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR = 0_c_long
  integer(c_long), parameter :: KL_GET_ROTATION_ANGLES_ROTATION_ERR = 1_c_long
  integer(c_long), parameter :: KL_GET_ROTATION_ANGLES_N_CODES = 2_c_long
  integer(c_long), parameter :: KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR = 0_c_long
  integer(c_long), parameter :: KL_GET_ROTATED_VECTORS_ROTATION_ERR = 1_c_long
  integer(c_long), parameter :: KL_GET_ROTATED_VECTORS_N_CODES = 2_c_long
  integer(c_long), parameter :: KL_RUN_INIT_NO_SLOT_ERR = 0_c_long
  integer(c_long), parameter :: KL_RUN_INIT_SAT_ID_ERR = 1_c_long
  integer(c_long), parameter :: KL_RUN_INIT_TIME_ID_ERR = 2_c_long
  integer(c_long), parameter :: KL_RUN_INIT_MEMORY_ERR = 3_c_long
  integer(c_long), parameter :: KL_RUN_INIT_CONSISTENCY_ERR = 4_c_long
  integer(c_long), parameter :: KL_RUN_INIT_LOCK_ERR = 5_c_long
  integer(c_long), parameter :: KL_RUN_INIT_UNLOCK_ERR = 6_c_long
  integer(c_long), parameter :: KL_RUN_INIT_N_CODES = 7_c_long
  integer(c_long), parameter :: KL_DEFAULT_SAT_INIT_NO_SLOT_ERR = 0_c_long
  integer(c_long), parameter :: KL_DEFAULT_SAT_INIT_FILE_ERR = 1_c_long
  integer(c_long), parameter :: KL_DEFAULT_SAT_INIT_LOCK_ERR = 2_c_long
  integer(c_long), parameter :: KL_DEFAULT_SAT_INIT_UNLOCK_ERR = 3_c_long
  integer(c_long), parameter :: KL_DEFAULT_SAT_INIT_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_STAR_PARALLAX = 1_c_long
  integer(c_long), parameter :: KL_STAR_ABERRATION = 2_c_long
  integer(c_long), parameter :: KL_STAR_DEFLECTION = 4_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_CORRECTIONS_ERR = 2_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_CS_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_STAR_ERR = 4_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_OBSERVER_ERR = 5_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_TIME_ID_ERR = 6_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_TRANSFORMATION_ERR = 7_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_FORMULA_WARN = 8_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_GAP_WARN = 9_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_VALIDITY_WARN = 10_c_long
  integer(c_long), parameter :: KL_STAR_RADEC_N_CODES = 11_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_TIME_REF_ERR = 0_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_DATE_ERR = 1_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_CORRECTIONS_ERR = 2_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_CS_OUT_ERR = 3_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_FILE_ERR = 4_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_RECORD_ERR = 5_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_TIME_ID_ERR = 6_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_TRANSFORMATION_ERR = 7_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_FORMULA_WARN = 8_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_GAP_WARN = 9_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_VALIDITY_WARN = 10_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_FORMAT_ERR = 11_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_WINDOW_ERR = 12_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_MEMORY_ERR = 13_c_long
  integer(c_long), parameter :: KL_STAR_CATALOG_N_CODES = 14_c_long
  integer(c_long), parameter :: KL_TIME_UNDEF = -1_c_long
  integer(c_long), parameter :: KL_TIME_TAI = 0_c_long
  integer(c_long), parameter :: KL_TIME_UTC = 1_c_long
  integer(c_long), parameter :: KL_TIME_UT1 = 2_c_long
  integer(c_long), parameter :: KL_TIME_GPS = 3_c_long
  integer(c_long), parameter :: KL_PROC = 0_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_EXPLICIT = -1_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_BULLETIN_B = 1_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_BULLETIN_B_EXTENDED = 2_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_FINALS_OBSERVED = 3_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_FINALS = 4_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_C04 = 5_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_TABLE = 6_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_ORBIT_FILE = 7_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_LEAP_SECONDS = 8_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_MERGED = 9_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_BULLETIN_A = 10_c_long
  integer(c_long), parameter :: KL_TIME_MODEL_BULLETIN_A_TABLE = 11_c_long
  integer(c_long), parameter :: KL_TIME_WINDOW_FILE = 0_c_long
  integer(c_long), parameter :: KL_TIME_WINDOW_TIME = 1_c_long
  integer(c_long), parameter :: KL_TIME_QUALITY_FINAL = 0_c_long
  integer(c_long), parameter :: KL_TIME_QUALITY_OBSERVED = 1_c_long
  integer(c_long), parameter :: KL_TIME_QUALITY_PRELIMINARY = 2_c_long
  integer(c_long), parameter :: KL_TIME_QUALITY_PREDICTED = 3_c_long
  integer(c_long), parameter :: KL_TIME_QUALITY_INSERTED = 4_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_TAI_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_UTC_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_UT1_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_GPS_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_ORBIT_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_ANX_TIME_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_ORBIT_DURATION_ERR = 6_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_ANX_DURATION_ERR = 7_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_MEMORY_ERR = 8_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_ID_ERR = 9_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_N_CODES = 10_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_MODEL_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_COUNT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_WINDOW_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_READ_ERR = 4_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_FORMAT_ERR = 5_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_RECORD_ERR = 6_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_ORDER_ERR = 7_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_FORMULA_ERR = 8_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_NO_RECORD_ERR = 9_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_MEMORY_ERR = 10_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_LEAP_SECOND_ERR = 11_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_COVERAGE_WARN = 12_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_TAI_UTC_WARN = 13_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_NO_UT1_WARN = 14_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_LEAP_EXPIRED_WARN = 15_c_long
  integer(c_long), parameter :: KL_TIME_REF_INIT_FILE_N_CODES = 16_c_long
  integer(c_long), parameter :: KL_TIME_REF_CLOSE_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_REF_CLOSE_N_CODES = 1_c_long
  integer(c_long), parameter :: KL_TIME_ADD_PROC_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_ADD_TIME_REF_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_ADD_TIME_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_ADD_SUM_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_ADD_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_TIME_DIFF_PROC_ID_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_DIFF_TIME_REF_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_DIFF_TIME1_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_DIFF_TIME2_ERR = 3_c_long
  integer(c_long), parameter :: KL_TIME_DIFF_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR = 0_c_long
  integer(c_long), parameter :: KL_TIME_GET_LEAP_SECOND_INFO_ADD_ERR = 1_c_long
  integer(c_long), parameter :: KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR = 2_c_long
  integer(c_long), parameter :: KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN = 3_c_long
  integer(c_long), parameter :: KL_TIME_GET_LEAP_SECOND_INFO_N_CODES = 4_c_long
  integer(c_long), parameter :: KL_OK = 0_c_long
  integer(c_long), parameter :: KL_WARN = 1_c_long
  integer(c_long), parameter :: KL_ERR = -1_c_long
  integer(c_long), parameter :: KL_ID_RUN = 1_c_long
  integer(c_long), parameter :: KL_ID_TIME = 2_c_long
  integer(c_long), parameter :: KL_ID_MODEL = 3_c_long
  integer(c_long), parameter :: KL_MSG_LENGTH = 512_c_long
  integer(c_long), parameter :: KL_MAX_MSG = 256_c_long
  integer(c_long), parameter :: KL_MAX_CODES = 257_c_long
  integer(c_long), parameter :: KL_TIME_ASCII_LENGTH = 32_c_long
  integer(c_long), parameter :: KL_TRANSPORT_LENGTH = 4_c_long
  integer(c_long), parameter :: KL_CUC_LENGTH = 19_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_TRANSPORT_TO_ASCII = 0_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_TRANSPORT_TO_TRANSPORT = 1_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_TRANSPORT_TO_PROCESSING = 2_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_PROCESSING_TO_ASCII = 3_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_PROCESSING_TO_TRANSPORT = 4_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_PROCESSING_TO_PROCESSING = 5_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_ASCII_TO_ASCII = 6_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_ASCII_TO_TRANSPORT = 7_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_ASCII_TO_PROCESSING = 8_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_ADD = 9_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_DIFF = 10_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_OBT_TO_TIME = 11_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_TIME_TO_OBT = 12_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_REF_INIT_FILE = 13_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_REF_INIT = 14_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_ID_INIT = 15_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_REF_CLOSE = 16_c_long
  integer(c_long), parameter :: KL_ID_FUNC_CHANGE_CART_CS = 17_c_long
  integer(c_long), parameter :: KL_ID_FUNC_GEOD_TO_CART = 18_c_long
  integer(c_long), parameter :: KL_ID_FUNC_CART_TO_GEOD = 19_c_long
  integer(c_long), parameter :: KL_ID_FUNC_KEPL_TO_CART = 20_c_long
  integer(c_long), parameter :: KL_ID_FUNC_CART_TO_KEPL = 21_c_long
  integer(c_long), parameter :: KL_ID_FUNC_SUN = 22_c_long
  integer(c_long), parameter :: KL_ID_FUNC_MOON = 23_c_long
  integer(c_long), parameter :: KL_ID_FUNC_PLANET = 24_c_long
  integer(c_long), parameter :: KL_ID_FUNC_STAR_RADEC = 25_c_long
  integer(c_long), parameter :: KL_ID_FUNC_GEOD_DISTANCE = 26_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_GET_LEAP_SECOND_INFO = 27_c_long
  integer(c_long), parameter :: KL_ID_FUNC_DEFAULT_SAT_INIT = 28_c_long
  integer(c_long), parameter :: KL_ID_FUNC_RUN_INIT = 29_c_long
  integer(c_long), parameter :: KL_ID_FUNC_GET_ROTATION_ANGLES = 30_c_long
  integer(c_long), parameter :: KL_ID_FUNC_GET_ROTATED_VECTORS = 31_c_long
  integer(c_long), parameter :: KL_ID_FUNC_POSITION_ON_ORBIT = 32_c_long
  integer(c_long), parameter :: KL_ID_FUNC_QUATERNIONS_TO_VECTORS = 33_c_long
  integer(c_long), parameter :: KL_ID_FUNC_VECTORS_TO_QUATERNIONS = 34_c_long
  integer(c_long), parameter :: KL_ID_FUNC_STAR_CATALOG = 35_c_long
  integer(c_long), parameter :: KL_ID_FUNC_CART_TO_RADEC = 36_c_long
  integer(c_long), parameter :: KL_ID_FUNC_RADEC_TO_CART = 37_c_long
  integer(c_long), parameter :: KL_ID_FUNC_ECLIPSE = 38_c_long
  integer(c_long), parameter :: KL_ID_FUNC_COTICCHIA_SURACE = 39_c_long
  integer(c_long), parameter :: KL_ID_FUNC_MATRIX_TO_EULER = 41_c_long
  integer(c_long), parameter :: KL_ID_FUNC_MODEL_INIT = 42_c_long
  integer(c_long), parameter :: KL_ID_FUNC_MODEL_CLOSE = 43_c_long
  integer(c_long), parameter :: KL_ID_FUNC_GEOID_CALC = 44_c_long
  integer(c_long), parameter :: KL_ID_FUNC_QUATERNIONS_INTERPOL = 45_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_CUC_TO_PROCESSING = 46_c_long
  integer(c_long), parameter :: KL_ID_FUNC_TIME_PROCESSING_TO_CUC = 47_c_long

  type, bind(c) :: kl_obt_tarvos
    integer(c_long) :: sat_id = 0
    integer(c_long) :: coarse = 0
    integer(c_long) :: fine = 0
  end type kl_obt_tarvos
  type, bind(c) :: kl_obt_kelda
    integer(c_long) :: sat_id = 0
    real(c_double) :: obt = 0
  end type kl_obt_kelda
  type, bind(c) :: kl_obt_param_tarvos
    integer(c_long) :: sat_id = 0
    real(c_double) :: ref_time = 0
    integer(c_long) :: ref_coarse = 0
    integer(c_long) :: ref_fine = 0
    integer(c_long) :: clock_step = 0
  end type kl_obt_param_tarvos
  type, bind(c) :: kl_obt_param_kelda
    integer(c_long) :: sat_id = 0
    integer(c_long) :: ref_time = 0
    integer(c_int32_t) :: ref_time_fraction = 0
    integer(c_long) :: ref_obt = 0
    integer(c_int32_t) :: ref_obt_fraction = 0
    real(c_double) :: gain = 0
    real(c_double) :: offset = 0
  end type kl_obt_param_kelda
  type, bind(c) :: kl_obt_param_brisa
    integer(c_long) :: sat_id = 0
    integer(c_long) :: offset = 0
    integer(c_long) :: ref_coarse = 0
    integer(c_long) :: ref_fine = 0
    integer(c_long) :: week = 0
    integer(c_long) :: seconds_of_week = 0
    integer(c_long) :: fraction = 0
  end type kl_obt_param_brisa
  type, bind(c) :: kl_obt_param_vardo
    integer(c_long) :: sat_id = 0
    integer(c_long) :: offset = 0
  end type kl_obt_param_vardo
  type, bind(c) :: kl_cuc_config
    integer(c_long) :: cuc_type = 0
    integer(c_long) :: epoch_type = 0
    integer(c_long) :: epoch_time_ref = 0
    real(c_double) :: epoch = 0
    integer(c_long) :: n_coarse = 0
    integer(c_long) :: n_fine = 0
  end type kl_cuc_config
  type, bind(c) :: kl_geodetic
    real(c_double) :: latitude = 0
    real(c_double) :: longitude = 0
    real(c_double) :: height = 0
    real(c_double) :: latitude_rate = 0
    real(c_double) :: longitude_rate = 0
    real(c_double) :: height_rate = 0
  end type kl_geodetic
  type, bind(c) :: kl_kepler
    real(c_double) :: semi_major_axis = 0
    real(c_double) :: eccentricity = 0
    real(c_double) :: inclination = 0
    real(c_double) :: raan = 0
    real(c_double) :: arg_perigee = 0
    real(c_double) :: mean_anomaly = 0
  end type kl_kepler
  type, bind(c) :: kl_radec
    real(c_double) :: ra = 0
    real(c_double) :: dec = 0
    real(c_double) :: distance = 0
    real(c_double) :: ra_rate = 0
    real(c_double) :: dec_rate = 0
    real(c_double) :: distance_rate = 0
  end type kl_radec
  type, bind(c) :: kl_topocentric
    real(c_double) :: azimuth = 0
    real(c_double) :: elevation = 0
    real(c_double) :: range = 0
    real(c_double) :: azimuth_rate = 0
    real(c_double) :: elevation_rate = 0
    real(c_double) :: range_rate = 0
  end type kl_topocentric
  type, bind(c) :: kl_orbit_angle
    real(c_double) :: angle = 0
    real(c_double) :: rate = 0
    real(c_double) :: rate_of_rate = 0
    real(c_double) :: node = 0
    real(c_double) :: node_rate = 0
    real(c_double) :: inclination = 0
  end type kl_orbit_angle
  type, bind(c) :: kl_orbit_sun_angles
    real(c_double) :: beta = 0
    real(c_double) :: node_true_solar_time = 0
    real(c_double) :: node_mean_solar_time = 0
    real(c_double) :: sun_to_satellite = 0
  end type kl_orbit_sun_angles
  type, bind(c) :: kl_state_at
    real(c_double) :: time = 0
    real(c_double) :: pos(3) = 0
    real(c_double) :: vel(3) = 0
  end type kl_state_at
  type, bind(c) :: kl_crossing
    real(c_double) :: time = 0
    real(c_double) :: value = 0
    integer(c_long) :: direction = 0
    integer(c_long) :: cut = 0
  end type kl_crossing
  type, bind(c) :: kl_geoid_input
    type(c_ptr) :: model_id = c_null_ptr
    real(c_double) :: latitude = 0
    real(c_double) :: longitude = 0
    real(c_double) :: height = 0
    integer(c_long) :: max_degree = 0
  end type kl_geoid_input
  type, bind(c) :: kl_model_data
    integer(c_long) :: earth = 0
    integer(c_long) :: sun = 0
    integer(c_long) :: moon = 0
    integer(c_long) :: planet = 0
    integer(c_long) :: star = 0
    integer(c_long) :: nutation = 0
    integer(c_long) :: precession = 0
    integer(c_long) :: constants = 0
    integer(c_long) :: light_propagation = 0
    real(c_double) :: gravity_radius = 0
    real(c_double) :: gm = 0
    real(c_double) :: j2 = 0
    real(c_double) :: j3 = 0
    real(c_double) :: j4 = 0
    real(c_double) :: semi_major_axis = 0
    real(c_double) :: semi_minor_axis = 0
    real(c_double) :: eccentricity = 0
    real(c_double) :: flattening = 0
    real(c_double) :: angle_0 = 0
    real(c_double) :: angle_1 = 0
    real(c_double) :: angle_2 = 0
    real(c_double) :: angle_sim_0 = 0
    real(c_double) :: angle_sim_1 = 0
    real(c_double) :: angle_sim_2 = 0
    real(c_double) :: astronomical_unit = 0
  end type kl_model_data
  type, bind(c) :: kl_earth_orientation
    real(c_double) :: x_pole = 0
    real(c_double) :: y_pole = 0
    real(c_double) :: ut1_utc = 0
    real(c_double) :: ut1_tai = 0
    real(c_double) :: dx = 0
    real(c_double) :: dy = 0
    real(c_double) :: cip_x = 0
    real(c_double) :: cip_y = 0
    real(c_double) :: s = 0
    real(c_double) :: s_prime = 0
    real(c_double) :: era = 0
    integer(c_long) :: notes = 0
  end type kl_earth_orientation
  type, bind(c) :: kl_star
    real(c_double) :: ra = 0
    real(c_double) :: dec = 0
    real(c_double) :: pm_ra = 0
    real(c_double) :: pm_dec = 0
    real(c_double) :: parallax = 0
    real(c_double) :: radial_velocity = 0
    real(c_double) :: epoch = 0
    real(c_double) :: magnitude = 0
    integer(c_long) :: number = 0
  end type kl_star
  type, bind(c) :: kl_star_window
    real(c_double) :: mag_min = 0
    real(c_double) :: mag_max = 0
    real(c_double) :: ra_min = 0
    real(c_double) :: ra_max = 0
    real(c_double) :: dec_min = 0
    real(c_double) :: dec_max = 0
    real(c_double) :: ra = 0
    real(c_double) :: dec = 0
    real(c_double) :: radius = 0
  end type kl_star_window
  type, bind(c) :: kl_time_row
    real(c_double) :: tai = 0
    real(c_double) :: ut1 = 0
    real(c_double) :: utc = 0
    real(c_double) :: tai_utc = 0
    real(c_double) :: tai_ut1 = 0
    real(c_double) :: tai_gps = 0
  end type kl_time_row
  type, bind(c) :: kl_time_id_data
    integer(c_long) :: model = 0
    integer(c_long) :: combination = 0
    integer(c_long) :: no_extrapolation = 0
    integer(c_long) :: second_bulletin_row = 0
    real(c_double) :: a = 0
    real(c_double) :: b = 0
    real(c_double) :: c = 0
    integer(c_long) :: leap_sign = 0
    real(c_double) :: leap_utc = 0
    real(c_double) :: leap_tai = 0
    integer(c_long) :: n_rows = 0
    type(c_ptr) :: rows = c_null_ptr
    type(c_ptr) :: pole = c_null_ptr
    type(c_ptr) :: row_notes = c_null_ptr
    real(c_double) :: pole_x(5) = 0
    real(c_double) :: pole_y(5) = 0
    real(c_double) :: pole_reference_date(2) = 0
    real(c_double) :: pole_period(2) = 0
  end type kl_time_id_data
  type, bind(c) :: kl_time_file_report
    integer(c_long) :: file = 0
    integer(c_long) :: line = 0
    integer(c_long) :: column = 0
    character(kind=c_char) :: field(64)
    integer(c_long) :: n_rows = 0
    integer(c_long) :: n_predicted = 0
    integer(c_long) :: n_skipped = 0
    real(c_double) :: first = 0
    real(c_double) :: last_final = 0
    real(c_double) :: last = 0
    real(c_double) :: leap_expiry = 0
  end type kl_time_file_report
  type, bind(c) :: kl_time_row_info
    integer(c_long) :: row = 0
    integer(c_long) :: file = 0
    integer(c_long) :: line = 0
    integer(c_long) :: quality = 0
    integer(c_long) :: by_formula = 0
    real(c_double) :: tai_utc = 0
    real(c_double) :: tai_ut1 = 0
    real(c_double) :: tai_gps = 0
    real(c_double) :: pole(4) = 0
  end type kl_time_row_info
  type, bind(c) :: kl_time_id
    type(c_ptr) :: record = c_null_ptr
  end type kl_time_id
  type, bind(c) :: kl_model_id
    type(c_ptr) :: record = c_null_ptr
  end type kl_model_id

  interface
    function kl_sun(model_id, time_id, time_ref, time, sun_pos, sun_vel, ierr) bind(c, name="kl_sun")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: sun_pos(3)
      real(c_double), intent(inout), optional :: sun_vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_sun
    end function kl_sun
    function kl_sun_run(run_id, time_ref, time, sun_pos, sun_vel, ierr) bind(c, name="kl_sun_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: sun_pos(3)
      real(c_double), intent(inout), optional :: sun_vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_sun_run
    end function kl_sun_run
    function kl_sun_n(model_id, time_id, n, time_ref, time, sun_pos, sun_vel, status, ierr) bind(c, name="kl_sun_n")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(inout), optional :: sun_pos(3,*)
      real(c_double), intent(inout), optional :: sun_vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_sun_n
    end function kl_sun_n
    function kl_sun_run_n(run_id, n, time_ref, time, sun_pos, sun_vel, status, ierr) bind(c, name="kl_sun_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(inout), optional :: sun_pos(3,*)
      real(c_double), intent(inout), optional :: sun_vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_sun_run_n
    end function kl_sun_run_n
    function kl_moon(model_id, time_id, time_ref, time, moon_pos, moon_vel, ierr) bind(c, name="kl_moon")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: moon_pos(3)
      real(c_double), intent(inout), optional :: moon_vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_moon
    end function kl_moon
    function kl_moon_run(run_id, time_ref, time, moon_pos, moon_vel, ierr) bind(c, name="kl_moon_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: moon_pos(3)
      real(c_double), intent(inout), optional :: moon_vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_moon_run
    end function kl_moon_run
    function kl_moon_n(model_id, time_id, n, time_ref, time, moon_pos, moon_vel, status, ierr &
            ) bind(c, name="kl_moon_n")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(inout), optional :: moon_pos(3,*)
      real(c_double), intent(inout), optional :: moon_vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_moon_n
    end function kl_moon_n
    function kl_moon_run_n(run_id, n, time_ref, time, moon_pos, moon_vel, status, ierr) bind(c, name="kl_moon_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(inout), optional :: moon_pos(3,*)
      real(c_double), intent(inout), optional :: moon_vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_moon_run_n
    end function kl_moon_run_n
    function kl_planet(model_id, time_id, planet_id, time_ref, time, planet_pos, planet_vel, ierr &
            ) bind(c, name="kl_planet")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: planet_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: planet_pos(3)
      real(c_double), intent(inout), optional :: planet_vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_planet
    end function kl_planet
    function kl_planet_run(run_id, planet_id, time_ref, time, planet_pos, planet_vel, ierr &
            ) bind(c, name="kl_planet_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: planet_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: planet_pos(3)
      real(c_double), intent(inout), optional :: planet_vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_planet_run
    end function kl_planet_run
    function kl_planet_n(model_id, time_id, n, planet_id, time_ref, time, planet_pos, planet_vel,  &
            status, ierr) bind(c, name="kl_planet_n")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: planet_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(inout), optional :: planet_pos(3,*)
      real(c_double), intent(inout), optional :: planet_vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_planet_n
    end function kl_planet_n
    function kl_planet_run_n(run_id, n, planet_id, time_ref, time, planet_pos, planet_vel, status,  &
            ierr) bind(c, name="kl_planet_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: planet_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(inout), optional :: planet_pos(3,*)
      real(c_double), intent(inout), optional :: planet_vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_planet_run_n
    end function kl_planet_run_n
    function kl_time_obt_to_time(sat_id, time_ref, parameters, obt, time, ierr) bind(c, name="kl_time_obt_to_time")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: sat_id
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      type(c_ptr), value :: obt
      real(c_double), intent(inout), optional :: time
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_obt_to_time
    end function kl_time_obt_to_time
    function kl_time_obt_to_time_run(run_id, time_ref, parameters, obt, time, ierr &
            ) bind(c, name="kl_time_obt_to_time_run")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      type(c_ptr), value :: obt
      real(c_double), intent(inout), optional :: time
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_obt_to_time_run
    end function kl_time_obt_to_time_run
    function kl_time_obt_to_time_n(sat_id, n, time_ref, parameters, obt, time, status, ierr &
            ) bind(c, name="kl_time_obt_to_time_n")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: sat_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      type(c_ptr), value :: obt
      real(c_double), intent(inout), optional :: time(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_obt_to_time_n
    end function kl_time_obt_to_time_n
    function kl_time_obt_to_time_run_n(run_id, n, time_ref, parameters, obt, time, status, ierr &
            ) bind(c, name="kl_time_obt_to_time_run_n")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      type(c_ptr), value :: obt
      real(c_double), intent(inout), optional :: time(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_obt_to_time_run_n
    end function kl_time_obt_to_time_run_n
    function kl_time_time_to_obt(sat_id, time_ref, parameters, time, obt, ierr) bind(c, name="kl_time_time_to_obt")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: sat_id
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      real(c_double), intent(in), optional :: time
      type(c_ptr), value :: obt
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_time_to_obt
    end function kl_time_time_to_obt
    function kl_time_time_to_obt_run(run_id, time_ref, parameters, time, obt, ierr &
            ) bind(c, name="kl_time_time_to_obt_run")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      real(c_double), intent(in), optional :: time
      type(c_ptr), value :: obt
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_time_to_obt_run
    end function kl_time_time_to_obt_run
    function kl_time_time_to_obt_n(sat_id, n, time_ref, parameters, time, obt, status, ierr &
            ) bind(c, name="kl_time_time_to_obt_n")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: sat_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      real(c_double), intent(in), optional :: time(*)
      type(c_ptr), value :: obt
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_time_to_obt_n
    end function kl_time_time_to_obt_n
    function kl_time_time_to_obt_run_n(run_id, n, time_ref, parameters, time, obt, status, ierr &
            ) bind(c, name="kl_time_time_to_obt_run_n")
      import :: c_double, c_long, c_ptr
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: time_ref
      type(c_ptr), value :: parameters
      real(c_double), intent(in), optional :: time(*)
      type(c_ptr), value :: obt
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_time_to_obt_run_n
    end function kl_time_time_to_obt_run_n
    function kl_time_cuc_to_processing(time_id, config, time_ref, cuc, time, ierr &
            ) bind(c, name="kl_time_cuc_to_processing")
      import :: c_double, c_long, c_signed_char, kl_cuc_config, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      type(kl_cuc_config), intent(in), optional :: config
      integer(c_long), intent(in), optional :: time_ref
      integer(c_signed_char), intent(in), optional :: cuc(*)
      real(c_double), intent(inout), optional :: time
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_cuc_to_processing
    end function kl_time_cuc_to_processing
    function kl_time_cuc_to_processing_n(time_id, n, config, time_ref, width, cuc, time, status,  &
            ierr) bind(c, name="kl_time_cuc_to_processing_n")
      import :: c_double, c_long, c_signed_char, kl_cuc_config, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      type(kl_cuc_config), intent(in), optional :: config
      integer(c_long), intent(in), optional :: time_ref
      integer(c_long), intent(in), optional :: width
      integer(c_signed_char), intent(in), optional :: cuc(*)
      real(c_double), intent(inout), optional :: time(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_cuc_to_processing_n
    end function kl_time_cuc_to_processing_n
    function kl_time_processing_to_cuc(time_id, config, time_ref, time, cuc, ierr &
            ) bind(c, name="kl_time_processing_to_cuc")
      import :: c_double, c_long, c_signed_char, kl_cuc_config, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      type(kl_cuc_config), intent(in), optional :: config
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      integer(c_signed_char), intent(inout), optional :: cuc(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_cuc
    end function kl_time_processing_to_cuc
    function kl_time_processing_to_cuc_n(time_id, n, config, time_ref, time, width, cuc, status,  &
            ierr) bind(c, name="kl_time_processing_to_cuc_n")
      import :: c_double, c_long, c_signed_char, kl_cuc_config, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      type(kl_cuc_config), intent(in), optional :: config
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      integer(c_long), intent(in), optional :: width
      integer(c_signed_char), intent(inout), optional :: cuc(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_cuc_n
    end function kl_time_processing_to_cuc_n
    function kl_geod_to_cart(model_id, calc_mode, in, pos, vel, ierr) bind(c, name="kl_geod_to_cart")
      import :: c_double, c_long, kl_geodetic, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_to_cart
    end function kl_geod_to_cart
    function kl_geod_to_cart_run(run_id, calc_mode, in, pos, vel, ierr) bind(c, name="kl_geod_to_cart_run")
      import :: c_double, c_long, kl_geodetic
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_to_cart_run
    end function kl_geod_to_cart_run
    function kl_geod_to_cart_n(model_id, n, calc_mode, in, pos, vel, status, ierr) bind(c, name="kl_geod_to_cart_n")
      import :: c_double, c_long, kl_geodetic, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_to_cart_n
    end function kl_geod_to_cart_n
    function kl_geod_to_cart_run_n(run_id, n, calc_mode, in, pos, vel, status, ierr &
            ) bind(c, name="kl_geod_to_cart_run_n")
      import :: c_double, c_long, kl_geodetic
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_to_cart_run_n
    end function kl_geod_to_cart_run_n
    function kl_cart_to_geod(model_id, calc_mode, pos, vel, out, ierr) bind(c, name="kl_cart_to_geod")
      import :: c_double, c_long, kl_geodetic, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_geodetic), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_geod
    end function kl_cart_to_geod
    function kl_cart_to_geod_run(run_id, calc_mode, pos, vel, out, ierr) bind(c, name="kl_cart_to_geod_run")
      import :: c_double, c_long, kl_geodetic
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_geodetic), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_geod_run
    end function kl_cart_to_geod_run
    function kl_cart_to_geod_n(model_id, n, calc_mode, pos, vel, out, status, ierr) bind(c, name="kl_cart_to_geod_n")
      import :: c_double, c_long, kl_geodetic, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_geodetic), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_geod_n
    end function kl_cart_to_geod_n
    function kl_cart_to_geod_run_n(run_id, n, calc_mode, pos, vel, out, status, ierr &
            ) bind(c, name="kl_cart_to_geod_run_n")
      import :: c_double, c_long, kl_geodetic
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_geodetic), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_geod_run_n
    end function kl_cart_to_geod_run_n
    function kl_kepl_to_cart(model_id, kind, in, pos, vel, ierr) bind(c, name="kl_kepl_to_cart")
      import :: c_double, c_long, kl_kepler, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: kind
      type(kl_kepler), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_kepl_to_cart
    end function kl_kepl_to_cart
    function kl_kepl_to_cart_run(run_id, kind, in, pos, vel, ierr) bind(c, name="kl_kepl_to_cart_run")
      import :: c_double, c_long, kl_kepler
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: kind
      type(kl_kepler), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_kepl_to_cart_run
    end function kl_kepl_to_cart_run
    function kl_kepl_to_cart_n(model_id, n, kind, in, pos, vel, status, ierr) bind(c, name="kl_kepl_to_cart_n")
      import :: c_double, c_long, kl_kepler, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: kind
      type(kl_kepler), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_kepl_to_cart_n
    end function kl_kepl_to_cart_n
    function kl_kepl_to_cart_run_n(run_id, n, kind, in, pos, vel, status, ierr) bind(c, name="kl_kepl_to_cart_run_n")
      import :: c_double, c_long, kl_kepler
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: kind
      type(kl_kepler), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_kepl_to_cart_run_n
    end function kl_kepl_to_cart_run_n
    function kl_cart_to_kepl(model_id, kind, pos, vel, out, ierr) bind(c, name="kl_cart_to_kepl")
      import :: c_double, c_long, kl_kepler, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: kind
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_kepler), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_kepl
    end function kl_cart_to_kepl
    function kl_cart_to_kepl_run(run_id, kind, pos, vel, out, ierr) bind(c, name="kl_cart_to_kepl_run")
      import :: c_double, c_long, kl_kepler
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: kind
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_kepler), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_kepl_run
    end function kl_cart_to_kepl_run
    function kl_cart_to_kepl_n(model_id, n, kind, pos, vel, out, status, ierr) bind(c, name="kl_cart_to_kepl_n")
      import :: c_double, c_long, kl_kepler, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: kind
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_kepler), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_kepl_n
    end function kl_cart_to_kepl_n
    function kl_cart_to_kepl_run_n(run_id, n, kind, pos, vel, out, status, ierr) bind(c, name="kl_cart_to_kepl_run_n")
      import :: c_double, c_long, kl_kepler
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: kind
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_kepler), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_kepl_run_n
    end function kl_cart_to_kepl_run_n
    function kl_geod_distance(model_id, lat1, lon1, lat2, lon2, distance, azimuth1, azimuth2, ierr &
            ) bind(c, name="kl_geod_distance")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      real(c_double), intent(in), optional :: lat1
      real(c_double), intent(in), optional :: lon1
      real(c_double), intent(in), optional :: lat2
      real(c_double), intent(in), optional :: lon2
      real(c_double), intent(inout), optional :: distance
      real(c_double), intent(inout), optional :: azimuth1
      real(c_double), intent(inout), optional :: azimuth2
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_distance
    end function kl_geod_distance
    function kl_geod_distance_run(run_id, lat1, lon1, lat2, lon2, distance, azimuth1, azimuth2, ierr &
            ) bind(c, name="kl_geod_distance_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      real(c_double), intent(in), optional :: lat1
      real(c_double), intent(in), optional :: lon1
      real(c_double), intent(in), optional :: lat2
      real(c_double), intent(in), optional :: lon2
      real(c_double), intent(inout), optional :: distance
      real(c_double), intent(inout), optional :: azimuth1
      real(c_double), intent(inout), optional :: azimuth2
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_distance_run
    end function kl_geod_distance_run
    function kl_geod_distance_n(model_id, n, lat1, lon1, lat2, lon2, distance, azimuth1, azimuth2,  &
            status, ierr) bind(c, name="kl_geod_distance_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: lat1(*)
      real(c_double), intent(in), optional :: lon1(*)
      real(c_double), intent(in), optional :: lat2(*)
      real(c_double), intent(in), optional :: lon2(*)
      real(c_double), intent(inout), optional :: distance(*)
      real(c_double), intent(inout), optional :: azimuth1(*)
      real(c_double), intent(inout), optional :: azimuth2(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_distance_n
    end function kl_geod_distance_n
    function kl_geod_distance_run_n(run_id, n, lat1, lon1, lat2, lon2, distance, azimuth1, azimuth2,  &
            status, ierr) bind(c, name="kl_geod_distance_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: lat1(*)
      real(c_double), intent(in), optional :: lon1(*)
      real(c_double), intent(in), optional :: lat2(*)
      real(c_double), intent(in), optional :: lon2(*)
      real(c_double), intent(inout), optional :: distance(*)
      real(c_double), intent(inout), optional :: azimuth1(*)
      real(c_double), intent(inout), optional :: azimuth2(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_distance_run_n
    end function kl_geod_distance_run_n
    function kl_geod_point(model_id, lat, lon, azimuth, distance, lat2, lon2, azimuth2, ierr &
            ) bind(c, name="kl_geod_point")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      real(c_double), intent(in), optional :: lat
      real(c_double), intent(in), optional :: lon
      real(c_double), intent(in), optional :: azimuth
      real(c_double), intent(in), optional :: distance
      real(c_double), intent(inout), optional :: lat2
      real(c_double), intent(inout), optional :: lon2
      real(c_double), intent(inout), optional :: azimuth2
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_point
    end function kl_geod_point
    function kl_geod_point_n(model_id, n, lat, lon, azimuth, distance, lat2, lon2, azimuth2, status,  &
            ierr) bind(c, name="kl_geod_point_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: lat(*)
      real(c_double), intent(in), optional :: lon(*)
      real(c_double), intent(in), optional :: azimuth(*)
      real(c_double), intent(in), optional :: distance(*)
      real(c_double), intent(inout), optional :: lat2(*)
      real(c_double), intent(inout), optional :: lon2(*)
      real(c_double), intent(inout), optional :: azimuth2(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geod_point_n
    end function kl_geod_point_n
    function kl_position_on_orbit(model_id, time_id, calc_mode, cs, time_ref, time, pos, vel, acc,  &
            out, ierr) bind(c, name="kl_position_on_orbit")
      import :: c_double, c_long, kl_model_id, kl_orbit_angle, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      type(kl_orbit_angle), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_position_on_orbit
    end function kl_position_on_orbit
    function kl_position_on_orbit_run(run_id, calc_mode, cs, time_ref, time, pos, vel, acc, out,  &
            ierr) bind(c, name="kl_position_on_orbit_run")
      import :: c_double, c_long, kl_orbit_angle
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      type(kl_orbit_angle), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_position_on_orbit_run
    end function kl_position_on_orbit_run
    function kl_position_on_orbit_n(model_id, time_id, n, calc_mode, cs, time_ref, time, pos, vel,  &
            acc, out, status, ierr) bind(c, name="kl_position_on_orbit_n")
      import :: c_double, c_long, kl_model_id, kl_orbit_angle, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      type(kl_orbit_angle), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_position_on_orbit_n
    end function kl_position_on_orbit_n
    function kl_position_on_orbit_run_n(run_id, n, calc_mode, cs, time_ref, time, pos, vel, acc,  &
            out, status, ierr) bind(c, name="kl_position_on_orbit_run_n")
      import :: c_double, c_long, kl_orbit_angle
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      type(kl_orbit_angle), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_position_on_orbit_run_n
    end function kl_position_on_orbit_run_n
    function kl_orbit_sun(model_id, time_id, cs, time_ref, time, pos, vel, out, ierr) bind(c, name="kl_orbit_sun")
      import :: c_double, c_long, kl_model_id, kl_orbit_sun_angles, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_orbit_sun_angles), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_orbit_sun
    end function kl_orbit_sun
    function kl_orbit_sun_n(model_id, time_id, n, cs, time_ref, time, pos, vel, out, status, ierr &
            ) bind(c, name="kl_orbit_sun_n")
      import :: c_double, c_long, kl_model_id, kl_orbit_sun_angles, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_orbit_sun_angles), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_orbit_sun_n
    end function kl_orbit_sun_n
    function kl_cart_to_radec(model_id, calc_mode, pos, vel, out, ierr) bind(c, name="kl_cart_to_radec")
      import :: c_double, c_long, kl_model_id, kl_radec
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_radec), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_radec
    end function kl_cart_to_radec
    function kl_cart_to_radec_run(run_id, calc_mode, pos, vel, out, ierr) bind(c, name="kl_cart_to_radec_run")
      import :: c_double, c_long, kl_radec
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_radec), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_radec_run
    end function kl_cart_to_radec_run
    function kl_cart_to_radec_n(model_id, n, calc_mode, pos, vel, out, status, ierr) bind(c, name="kl_cart_to_radec_n")
      import :: c_double, c_long, kl_model_id, kl_radec
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_radec), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_radec_n
    end function kl_cart_to_radec_n
    function kl_cart_to_radec_run_n(run_id, n, calc_mode, pos, vel, out, status, ierr &
            ) bind(c, name="kl_cart_to_radec_run_n")
      import :: c_double, c_long, kl_radec
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_radec), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_cart_to_radec_run_n
    end function kl_cart_to_radec_run_n
    function kl_radec_to_cart(model_id, calc_mode, in, pos, vel, ierr) bind(c, name="kl_radec_to_cart")
      import :: c_double, c_long, kl_model_id, kl_radec
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_radec), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_radec_to_cart
    end function kl_radec_to_cart
    function kl_radec_to_cart_run(run_id, calc_mode, in, pos, vel, ierr) bind(c, name="kl_radec_to_cart_run")
      import :: c_double, c_long, kl_radec
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_radec), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_radec_to_cart_run
    end function kl_radec_to_cart_run
    function kl_radec_to_cart_n(model_id, n, calc_mode, in, pos, vel, status, ierr) bind(c, name="kl_radec_to_cart_n")
      import :: c_double, c_long, kl_model_id, kl_radec
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_radec), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_radec_to_cart_n
    end function kl_radec_to_cart_n
    function kl_radec_to_cart_run_n(run_id, n, calc_mode, in, pos, vel, status, ierr &
            ) bind(c, name="kl_radec_to_cart_run_n")
      import :: c_double, c_long, kl_radec
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_radec), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_radec_to_cart_run_n
    end function kl_radec_to_cart_run_n
    function kl_ef_to_topocentric(model_id, calc_mode, origin, pos, vel, out, ierr &
            ) bind(c, name="kl_ef_to_topocentric")
      import :: c_double, c_long, kl_geodetic, kl_model_id, kl_topocentric
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_topocentric), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ef_to_topocentric
    end function kl_ef_to_topocentric
    function kl_ef_to_topocentric_run(run_id, calc_mode, origin, pos, vel, out, ierr &
            ) bind(c, name="kl_ef_to_topocentric_run")
      import :: c_double, c_long, kl_geodetic, kl_topocentric
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      type(kl_topocentric), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ef_to_topocentric_run
    end function kl_ef_to_topocentric_run
    function kl_ef_to_topocentric_n(model_id, n, calc_mode, origin, pos, vel, out, status, ierr &
            ) bind(c, name="kl_ef_to_topocentric_n")
      import :: c_double, c_long, kl_geodetic, kl_model_id, kl_topocentric
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_topocentric), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ef_to_topocentric_n
    end function kl_ef_to_topocentric_n
    function kl_ef_to_topocentric_run_n(run_id, n, calc_mode, origin, pos, vel, out, status, ierr &
            ) bind(c, name="kl_ef_to_topocentric_run_n")
      import :: c_double, c_long, kl_geodetic, kl_topocentric
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      type(kl_topocentric), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ef_to_topocentric_run_n
    end function kl_ef_to_topocentric_run_n
    function kl_topocentric_to_ef(model_id, calc_mode, origin, in, pos, vel, ierr) bind(c, name="kl_topocentric_to_ef")
      import :: c_double, c_long, kl_geodetic, kl_model_id, kl_topocentric
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      type(kl_topocentric), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_topocentric_to_ef
    end function kl_topocentric_to_ef
    function kl_topocentric_to_ef_run(run_id, calc_mode, origin, in, pos, vel, ierr &
            ) bind(c, name="kl_topocentric_to_ef_run")
      import :: c_double, c_long, kl_geodetic, kl_topocentric
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      type(kl_topocentric), intent(in), optional :: in
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_topocentric_to_ef_run
    end function kl_topocentric_to_ef_run
    function kl_topocentric_to_ef_n(model_id, n, calc_mode, origin, in, pos, vel, status, ierr &
            ) bind(c, name="kl_topocentric_to_ef_n")
      import :: c_double, c_long, kl_geodetic, kl_model_id, kl_topocentric
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      type(kl_topocentric), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_topocentric_to_ef_n
    end function kl_topocentric_to_ef_n
    function kl_topocentric_to_ef_run_n(run_id, n, calc_mode, origin, in, pos, vel, status, ierr &
            ) bind(c, name="kl_topocentric_to_ef_run_n")
      import :: c_double, c_long, kl_geodetic, kl_topocentric
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      type(kl_geodetic), intent(in), optional :: origin
      type(kl_topocentric), intent(in), optional :: in(*)
      real(c_double), intent(inout), optional :: pos(3,*)
      real(c_double), intent(inout), optional :: vel(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_topocentric_to_ef_run_n
    end function kl_topocentric_to_ef_run_n
    function KL_Coticchia_Surace(model_id, lat, lon, zone, north, easting, northing, ierr &
            ) bind(c, name="KL_Coticchia_Surace")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      real(c_double), intent(in), optional :: lat
      real(c_double), intent(in), optional :: lon
      integer(c_long), intent(inout), optional :: zone
      integer(c_long), intent(inout), optional :: north
      real(c_double), intent(inout), optional :: easting
      real(c_double), intent(inout), optional :: northing
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: KL_Coticchia_Surace
    end function KL_Coticchia_Surace
    function KL_Coticchia_Surace_n(model_id, n, lat, lon, zone, north, easting, northing, status,  &
            ierr) bind(c, name="KL_Coticchia_Surace_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: lat(*)
      real(c_double), intent(in), optional :: lon(*)
      integer(c_long), intent(inout), optional :: zone(*)
      integer(c_long), intent(inout), optional :: north(*)
      real(c_double), intent(inout), optional :: easting(*)
      real(c_double), intent(inout), optional :: northing(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: KL_Coticchia_Surace_n
    end function KL_Coticchia_Surace_n
    function kl_utm_to_geod(model_id, zone, north, easting, northing, lat, lon, ierr) bind(c, name="kl_utm_to_geod")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: zone
      integer(c_long), intent(in), optional :: north
      real(c_double), intent(in), optional :: easting
      real(c_double), intent(in), optional :: northing
      real(c_double), intent(inout), optional :: lat
      real(c_double), intent(inout), optional :: lon
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_utm_to_geod
    end function kl_utm_to_geod
    function kl_utm_to_geod_n(model_id, n, zone, north, easting, northing, lat, lon, status, ierr &
            ) bind(c, name="kl_utm_to_geod_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: zone(*)
      integer(c_long), intent(in), optional :: north(*)
      real(c_double), intent(in), optional :: easting(*)
      real(c_double), intent(in), optional :: northing(*)
      real(c_double), intent(inout), optional :: lat(*)
      real(c_double), intent(inout), optional :: lon(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_utm_to_geod_n
    end function kl_utm_to_geod_n
    function kl_local_orbital_frame(kind, pos, vel, acc, r, dr, ierr) bind(c, name="kl_local_orbital_frame")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: kind
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      real(c_double), intent(inout), optional :: r(9)
      real(c_double), intent(inout), optional :: dr(9)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_local_orbital_frame
    end function kl_local_orbital_frame
    function kl_local_orbital_frame_n(n, kind, pos, vel, acc, r, dr, status, ierr &
            ) bind(c, name="kl_local_orbital_frame_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: kind
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      real(c_double), intent(inout), optional :: r(9,*)
      real(c_double), intent(inout), optional :: dr(9,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_local_orbital_frame_n
    end function kl_local_orbital_frame_n
    function kl_mean_motion(model_id, mean, duration, out, ierr) bind(c, name="kl_mean_motion")
      import :: c_double, c_long, kl_kepler, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_kepler), intent(in), optional :: mean
      real(c_double), intent(in), optional :: duration
      type(kl_kepler), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_mean_motion
    end function kl_mean_motion
    function kl_mean_motion_run(run_id, mean, duration, out, ierr) bind(c, name="kl_mean_motion_run")
      import :: c_double, c_long, kl_kepler
      integer(c_long), intent(in), optional :: run_id
      type(kl_kepler), intent(in), optional :: mean
      real(c_double), intent(in), optional :: duration
      type(kl_kepler), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_mean_motion_run
    end function kl_mean_motion_run
    function kl_mean_motion_n(model_id, n, mean, duration, out, status, ierr) bind(c, name="kl_mean_motion_n")
      import :: c_double, c_long, kl_kepler, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      type(kl_kepler), intent(in), optional :: mean(*)
      real(c_double), intent(in), optional :: duration(*)
      type(kl_kepler), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_mean_motion_n
    end function kl_mean_motion_n
    function kl_mean_motion_run_n(run_id, n, mean, duration, out, status, ierr) bind(c, name="kl_mean_motion_run_n")
      import :: c_double, c_long, kl_kepler
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      type(kl_kepler), intent(in), optional :: mean(*)
      real(c_double), intent(in), optional :: duration(*)
      type(kl_kepler), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_mean_motion_run_n
    end function kl_mean_motion_run_n
    function kl_interpolate_states(n_states, states, time, pos, vel, error, ierr) bind(c, name="kl_interpolate_states")
      import :: c_double, c_long, kl_state_at
      integer(c_long), intent(in), optional :: n_states
      type(kl_state_at), intent(in), optional :: states(*)
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: pos(3)
      real(c_double), intent(inout), optional :: vel(3)
      real(c_double), intent(inout), optional :: error
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_interpolate_states
    end function kl_interpolate_states
    function kl_find_crossings(f, context, start, stop, step, tolerance, max, n, found, ierr &
            ) bind(c, name="kl_find_crossings")
      import :: c_double, c_funptr, c_long, c_ptr, kl_crossing
      type(c_funptr), value :: f
      type(c_ptr), value :: context
      real(c_double), intent(in), optional :: start
      real(c_double), intent(in), optional :: stop
      real(c_double), intent(in), optional :: step
      real(c_double), intent(in), optional :: tolerance
      integer(c_long), intent(in), optional :: max
      integer(c_long), intent(inout), optional :: n
      type(kl_crossing), intent(inout), optional :: found(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_find_crossings
    end function kl_find_crossings
    function kl_silent() bind(c, name="kl_silent")
      import :: c_long
      integer(c_long) :: kl_silent
    end function kl_silent
    function kl_verbose() bind(c, name="kl_verbose")
      import :: c_long
      integer(c_long) :: kl_verbose
    end function kl_verbose
    function kl_get_code(func_id, ierr, n_codes, codes) bind(c, name="kl_get_code")
      import :: c_long
      integer(c_long), intent(in), optional :: func_id
      integer(c_long), intent(in), optional :: ierr(*)
      integer(c_long), intent(inout), optional :: n_codes
      integer(c_long), intent(inout), optional :: codes(*)
      integer(c_long) :: kl_get_code
    end function kl_get_code
    function kl_get_msg(func_id, ierr, n_msg, msg) bind(c, name="kl_get_msg")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: func_id
      integer(c_long), intent(in), optional :: ierr(*)
      integer(c_long), intent(inout), optional :: n_msg
      character(kind=c_char), intent(inout), optional :: msg(512,*)
      integer(c_long) :: kl_get_msg
    end function kl_get_msg
    function kl_get_last_msg(n_msg, msg) bind(c, name="kl_get_last_msg")
      import :: c_char, c_long
      integer(c_long), intent(inout), optional :: n_msg
      character(kind=c_char), intent(inout), optional :: msg(512,*)
      integer(c_long) :: kl_get_last_msg
    end function kl_get_last_msg
    function kl_print_msg(n_msg, msg) bind(c, name="kl_print_msg")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: n_msg
      character(kind=c_char), intent(inout), optional :: msg(512,*)
      integer(c_long) :: kl_print_msg
    end function kl_print_msg
    subroutine kl_free_array(array) bind(c, name="kl_free_array")
      import :: c_ptr
      type(c_ptr), intent(inout), optional :: array
    end subroutine kl_free_array
    function kl_version() bind(c, name="kl_version")
      import :: c_ptr
      type(c_ptr) :: kl_version
    end function kl_version
    function kl_check_library_version() bind(c, name="kl_check_library_version")
      import :: c_long
      integer(c_long) :: kl_check_library_version
    end function kl_check_library_version
    function kl_time_processing_to_processing(time_id, proc_id_in, time_ref_in, time_in,  &
            proc_id_out, time_ref_out, time_out, ierr) bind(c, name="kl_time_processing_to_processing")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_processing
    end function kl_time_processing_to_processing
    function kl_time_processing_to_processing_run(run_id, proc_id_in, time_ref_in, time_in,  &
            proc_id_out, time_ref_out, time_out, ierr) bind(c, name="kl_time_processing_to_processing_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_processing_run
    end function kl_time_processing_to_processing_run
    function kl_time_processing_to_processing_n(time_id, n, proc_id_in, time_ref_in, time_in,  &
            proc_id_out, time_ref_out, time_out, status, ierr) bind(c, name="kl_time_processing_to_processing_n")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in(*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_processing_n
    end function kl_time_processing_to_processing_n
    function kl_time_processing_to_processing_run_n(run_id, n, proc_id_in, time_ref_in, time_in,  &
            proc_id_out, time_ref_out, time_out, status, ierr) bind(c, name="kl_time_processing_to_processing_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in(*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_processing_run_n
    end function kl_time_processing_to_processing_run_n
    function kl_time_ascii_to_ascii(time_id, ascii_id_in, time_ref_in, ascii_in, ascii_id_out,  &
            time_ref_out, ascii_out, ierr) bind(c, name="kl_time_ascii_to_ascii")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: ierr(2)
      integer(c_long) :: kl_time_ascii_to_ascii
    end function kl_time_ascii_to_ascii
    function kl_time_ascii_to_ascii_run(run_id, ascii_id_in, time_ref_in, ascii_in, ascii_id_out,  &
            time_ref_out, ascii_out, ierr) bind(c, name="kl_time_ascii_to_ascii_run")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: ierr(2)
      integer(c_long) :: kl_time_ascii_to_ascii_run
    end function kl_time_ascii_to_ascii_run
    function kl_time_ascii_to_ascii_n(time_id, n, ascii_id_in, time_ref_in, ascii_in_width,  &
            ascii_in, ascii_id_out, time_ref_out, ascii_out_width, ascii_out, status, ierr &
            ) bind(c, name="kl_time_ascii_to_ascii_n")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: ascii_in_width
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(in), optional :: ascii_out_width
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(2)
      integer(c_long) :: kl_time_ascii_to_ascii_n
    end function kl_time_ascii_to_ascii_n
    function kl_time_ascii_to_ascii_run_n(run_id, n, ascii_id_in, time_ref_in, ascii_in_width,  &
            ascii_in, ascii_id_out, time_ref_out, ascii_out_width, ascii_out, status, ierr &
            ) bind(c, name="kl_time_ascii_to_ascii_run_n")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: ascii_in_width
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(in), optional :: ascii_out_width
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(2)
      integer(c_long) :: kl_time_ascii_to_ascii_run_n
    end function kl_time_ascii_to_ascii_run_n
    function kl_time_ascii_to_processing(time_id, ascii_id_in, time_ref_in, ascii_in, proc_id_out,  &
            time_ref_out, time_out, ierr) bind(c, name="kl_time_ascii_to_processing")
      import :: c_char, c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_processing
    end function kl_time_ascii_to_processing
    function kl_time_ascii_to_processing_run(run_id, ascii_id_in, time_ref_in, ascii_in,  &
            proc_id_out, time_ref_out, time_out, ierr) bind(c, name="kl_time_ascii_to_processing_run")
      import :: c_char, c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_processing_run
    end function kl_time_ascii_to_processing_run
    function kl_time_ascii_to_processing_n(time_id, n, ascii_id_in, time_ref_in, width, ascii_in,  &
            proc_id_out, time_ref_out, time_out, status, ierr) bind(c, name="kl_time_ascii_to_processing_n")
      import :: c_char, c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_processing_n
    end function kl_time_ascii_to_processing_n
    function kl_time_ascii_to_processing_run_n(run_id, n, ascii_id_in, time_ref_in, width, ascii_in,  &
            proc_id_out, time_ref_out, time_out, status, ierr) bind(c, name="kl_time_ascii_to_processing_run_n")
      import :: c_char, c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_processing_run_n
    end function kl_time_ascii_to_processing_run_n
    function kl_time_text_to_processing(time_id, text, time_ref_default, proc_id_out, time_ref_out,  &
            time_out, ierr) bind(c, name="kl_time_text_to_processing")
      import :: c_char, c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      character(kind=c_char), intent(in), optional :: text(*)
      integer(c_long), intent(in), optional :: time_ref_default
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_text_to_processing
    end function kl_time_text_to_processing
    function kl_time_text_to_processing_run(run_id, text, time_ref_default, proc_id_out,  &
            time_ref_out, time_out, ierr) bind(c, name="kl_time_text_to_processing_run")
      import :: c_char, c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      character(kind=c_char), intent(in), optional :: text(*)
      integer(c_long), intent(in), optional :: time_ref_default
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_text_to_processing_run
    end function kl_time_text_to_processing_run
    function kl_time_text_to_processing_n(time_id, n, width, text, time_ref_default, proc_id_out,  &
            time_ref_out, time_out, status, ierr) bind(c, name="kl_time_text_to_processing_n")
      import :: c_char, c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(in), optional :: text(*)
      integer(c_long), intent(in), optional :: time_ref_default
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_text_to_processing_n
    end function kl_time_text_to_processing_n
    function kl_time_text_to_processing_run_n(run_id, n, width, text, time_ref_default, proc_id_out,  &
            time_ref_out, time_out, status, ierr) bind(c, name="kl_time_text_to_processing_run_n")
      import :: c_char, c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(in), optional :: text(*)
      integer(c_long), intent(in), optional :: time_ref_default
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_text_to_processing_run_n
    end function kl_time_text_to_processing_run_n
    function kl_time_ascii_to_transport(time_id, ascii_id_in, time_ref_in, ascii_in, trans_id_out,  &
            time_ref_out, transport_out, ierr) bind(c, name="kl_time_ascii_to_transport")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_transport
    end function kl_time_ascii_to_transport
    function kl_time_ascii_to_transport_run(run_id, ascii_id_in, time_ref_in, ascii_in,  &
            trans_id_out, time_ref_out, transport_out, ierr) bind(c, name="kl_time_ascii_to_transport_run")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_transport_run
    end function kl_time_ascii_to_transport_run
    function kl_time_ascii_to_transport_n(time_id, n, ascii_id_in, time_ref_in, width, ascii_in,  &
            trans_id_out, time_ref_out, transport_out, status, ierr) bind(c, name="kl_time_ascii_to_transport_n")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_transport_n
    end function kl_time_ascii_to_transport_n
    function kl_time_ascii_to_transport_run_n(run_id, n, ascii_id_in, time_ref_in, width, ascii_in,  &
            trans_id_out, time_ref_out, transport_out, status, ierr) bind(c, name="kl_time_ascii_to_transport_run_n")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: ascii_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(in), optional :: ascii_in(*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ascii_to_transport_run_n
    end function kl_time_ascii_to_transport_run_n
    function kl_time_processing_to_ascii(time_id, proc_id_in, time_ref_in, time_in, ascii_id_out,  &
            time_ref_out, ascii_out, ierr) bind(c, name="kl_time_processing_to_ascii")
      import :: c_char, c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_ascii
    end function kl_time_processing_to_ascii
    function kl_time_processing_to_ascii_run(run_id, proc_id_in, time_ref_in, time_in, ascii_id_out,  &
            time_ref_out, ascii_out, ierr) bind(c, name="kl_time_processing_to_ascii_run")
      import :: c_char, c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_ascii_run
    end function kl_time_processing_to_ascii_run
    function kl_time_processing_to_ascii_n(time_id, n, proc_id_in, time_ref_in, time_in,  &
            ascii_id_out, time_ref_out, width, ascii_out, status, ierr) bind(c, name="kl_time_processing_to_ascii_n")
      import :: c_char, c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in(*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_ascii_n
    end function kl_time_processing_to_ascii_n
    function kl_time_processing_to_ascii_run_n(run_id, n, proc_id_in, time_ref_in, time_in,  &
            ascii_id_out, time_ref_out, width, ascii_out, status, ierr &
            ) bind(c, name="kl_time_processing_to_ascii_run_n")
      import :: c_char, c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in(*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_ascii_run_n
    end function kl_time_processing_to_ascii_run_n
    function kl_time_processing_to_transport(time_id, proc_id_in, time_ref_in, time_in,  &
            trans_id_out, time_ref_out, transport_out, ierr) bind(c, name="kl_time_processing_to_transport")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_transport
    end function kl_time_processing_to_transport
    function kl_time_processing_to_transport_run(run_id, proc_id_in, time_ref_in, time_in,  &
            trans_id_out, time_ref_out, transport_out, ierr) bind(c, name="kl_time_processing_to_transport_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_transport_run
    end function kl_time_processing_to_transport_run
    function kl_time_processing_to_transport_n(time_id, n, proc_id_in, time_ref_in, time_in,  &
            trans_id_out, time_ref_out, transport_out, status, ierr) bind(c, name="kl_time_processing_to_transport_n")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in(*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_transport_n
    end function kl_time_processing_to_transport_n
    function kl_time_processing_to_transport_run_n(run_id, n, proc_id_in, time_ref_in, time_in,  &
            trans_id_out, time_ref_out, transport_out, status, ierr &
            ) bind(c, name="kl_time_processing_to_transport_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      real(c_double), intent(in), optional :: time_in(*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_processing_to_transport_run_n
    end function kl_time_processing_to_transport_run_n
    function kl_time_transport_to_ascii(time_id, trans_id_in, time_ref_in, transport_in,  &
            ascii_id_out, time_ref_out, ascii_out, ierr) bind(c, name="kl_time_transport_to_ascii")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_ascii
    end function kl_time_transport_to_ascii
    function kl_time_transport_to_ascii_run(run_id, trans_id_in, time_ref_in, transport_in,  &
            ascii_id_out, time_ref_out, ascii_out, ierr) bind(c, name="kl_time_transport_to_ascii_run")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_ascii_run
    end function kl_time_transport_to_ascii_run
    function kl_time_transport_to_ascii_n(time_id, n, trans_id_in, time_ref_in, transport_in,  &
            ascii_id_out, time_ref_out, width, ascii_out, status, ierr) bind(c, name="kl_time_transport_to_ascii_n")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4,*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_ascii_n
    end function kl_time_transport_to_ascii_n
    function kl_time_transport_to_ascii_run_n(run_id, n, trans_id_in, time_ref_in, transport_in,  &
            ascii_id_out, time_ref_out, width, ascii_out, status, ierr &
            ) bind(c, name="kl_time_transport_to_ascii_run_n")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4,*)
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(in), optional :: width
      character(kind=c_char), intent(inout), optional :: ascii_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_ascii_run_n
    end function kl_time_transport_to_ascii_run_n
    function kl_time_transport_to_processing(time_id, trans_id_in, time_ref_in, transport_in,  &
            proc_id_out, time_ref_out, time_out, ierr) bind(c, name="kl_time_transport_to_processing")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_processing
    end function kl_time_transport_to_processing
    function kl_time_transport_to_processing_run(run_id, trans_id_in, time_ref_in, transport_in,  &
            proc_id_out, time_ref_out, time_out, ierr) bind(c, name="kl_time_transport_to_processing_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_processing_run
    end function kl_time_transport_to_processing_run
    function kl_time_transport_to_processing_n(time_id, n, trans_id_in, time_ref_in, transport_in,  &
            proc_id_out, time_ref_out, time_out, status, ierr) bind(c, name="kl_time_transport_to_processing_n")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4,*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_processing_n
    end function kl_time_transport_to_processing_n
    function kl_time_transport_to_processing_run_n(run_id, n, trans_id_in, time_ref_in,  &
            transport_in, proc_id_out, time_ref_out, time_out, status, ierr &
            ) bind(c, name="kl_time_transport_to_processing_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4,*)
      integer(c_long), intent(in), optional :: proc_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_processing_run_n
    end function kl_time_transport_to_processing_run_n
    function kl_time_transport_to_transport(time_id, trans_id_in, time_ref_in, transport_in,  &
            trans_id_out, time_ref_out, transport_out, ierr) bind(c, name="kl_time_transport_to_transport")
      import :: c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_transport
    end function kl_time_transport_to_transport
    function kl_time_transport_to_transport_run(run_id, trans_id_in, time_ref_in, transport_in,  &
            trans_id_out, time_ref_out, transport_out, ierr) bind(c, name="kl_time_transport_to_transport_run")
      import :: c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_transport_run
    end function kl_time_transport_to_transport_run
    function kl_time_transport_to_transport_n(time_id, n, trans_id_in, time_ref_in, transport_in,  &
            trans_id_out, time_ref_out, transport_out, status, ierr) bind(c, name="kl_time_transport_to_transport_n")
      import :: c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4,*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_transport_n
    end function kl_time_transport_to_transport_n
    function kl_time_transport_to_transport_run_n(run_id, n, trans_id_in, time_ref_in, transport_in,  &
            trans_id_out, time_ref_out, transport_out, status, ierr &
            ) bind(c, name="kl_time_transport_to_transport_run_n")
      import :: c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: trans_id_in
      integer(c_long), intent(in), optional :: time_ref_in
      integer(c_long), intent(in), optional :: transport_in(4,*)
      integer(c_long), intent(in), optional :: trans_id_out
      integer(c_long), intent(in), optional :: time_ref_out
      integer(c_long), intent(inout), optional :: transport_out(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_transport_to_transport_run_n
    end function kl_time_transport_to_transport_run_n
    function kl_change_cart_cs(model_id, time_id, calc_mode, cs_in, cs_out, time_ref, time, pos,  &
            vel, acc, pos_out, vel_out, acc_out, ierr) bind(c, name="kl_change_cart_cs")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      real(c_double), intent(inout), optional :: pos_out(3)
      real(c_double), intent(inout), optional :: vel_out(3)
      real(c_double), intent(inout), optional :: acc_out(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_change_cart_cs
    end function kl_change_cart_cs
    function kl_change_cart_cs_run(run_id, calc_mode, cs_in, cs_out, time_ref, time, pos, vel, acc,  &
            pos_out, vel_out, acc_out, ierr) bind(c, name="kl_change_cart_cs_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      real(c_double), intent(inout), optional :: pos_out(3)
      real(c_double), intent(inout), optional :: vel_out(3)
      real(c_double), intent(inout), optional :: acc_out(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_change_cart_cs_run
    end function kl_change_cart_cs_run
    function kl_change_cart_cs_n(model_id, time_id, n, calc_mode, cs_in, cs_out, time_ref, time,  &
            pos, vel, acc, pos_out, vel_out, acc_out, status, ierr) bind(c, name="kl_change_cart_cs_n")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      real(c_double), intent(inout), optional :: pos_out(3,*)
      real(c_double), intent(inout), optional :: vel_out(3,*)
      real(c_double), intent(inout), optional :: acc_out(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_change_cart_cs_n
    end function kl_change_cart_cs_n
    function kl_change_cart_cs_run_n(run_id, n, calc_mode, cs_in, cs_out, time_ref, time, pos, vel,  &
            acc, pos_out, vel_out, acc_out, status, ierr) bind(c, name="kl_change_cart_cs_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      real(c_double), intent(inout), optional :: pos_out(3,*)
      real(c_double), intent(inout), optional :: vel_out(3,*)
      real(c_double), intent(inout), optional :: acc_out(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_change_cart_cs_run_n
    end function kl_change_cart_cs_run_n
    function kl_geoid_calc(inputs, undulation, ierr) bind(c, name="kl_geoid_calc")
      import :: c_double, c_long, kl_geoid_input
      type(kl_geoid_input), intent(in), optional :: inputs
      real(c_double), intent(inout), optional :: undulation
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geoid_calc
    end function kl_geoid_calc
    function kl_geoid_calc_n(model_id, n, latitude, longitude, max_degree, undulation, status, ierr &
            ) bind(c, name="kl_geoid_calc_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: latitude(*)
      real(c_double), intent(in), optional :: longitude(*)
      integer(c_long), intent(in), optional :: max_degree
      real(c_double), intent(inout), optional :: undulation(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geoid_calc_n
    end function kl_geoid_calc_n
    function kl_geoid_grid(model_id, max_degree, lat, n_lat, lon, n_lon, undulation, ierr &
            ) bind(c, name="kl_geoid_grid")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: max_degree
      real(c_double), intent(in), optional :: lat(*)
      integer(c_long), intent(in), optional :: n_lat
      real(c_double), intent(in), optional :: lon(*)
      integer(c_long), intent(in), optional :: n_lon
      real(c_double), intent(inout), optional :: undulation(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_geoid_grid
    end function kl_geoid_grid
    function kl_poly_real_roots(order, c, roots, n_roots, ierr) bind(c, name="kl_poly_real_roots")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: order
      real(c_double), intent(in), optional :: c(*)
      real(c_double), intent(inout), optional :: roots(4)
      integer(c_long), intent(inout), optional :: n_roots
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_poly_real_roots
    end function kl_poly_real_roots
    function kl_poly_real_roots_n(n, order, c, roots, n_roots, status, ierr) bind(c, name="kl_poly_real_roots_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: order
      real(c_double), intent(in), optional :: c(*)
      real(c_double), intent(inout), optional :: roots(4,*)
      integer(c_long), intent(inout), optional :: n_roots(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_poly_real_roots_n
    end function kl_poly_real_roots_n
    function kl_ray_ellipsoid(model_id, pos, dir, margin, t, n_points, ierr) bind(c, name="kl_ray_ellipsoid")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: dir(3)
      real(c_double), intent(in), optional :: margin
      real(c_double), intent(inout), optional :: t(2)
      integer(c_long), intent(inout), optional :: n_points
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_ellipsoid
    end function kl_ray_ellipsoid
    function kl_ray_ellipsoid_run(run_id, pos, dir, margin, t, n_points, ierr) bind(c, name="kl_ray_ellipsoid_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: dir(3)
      real(c_double), intent(in), optional :: margin
      real(c_double), intent(inout), optional :: t(2)
      integer(c_long), intent(inout), optional :: n_points
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_ellipsoid_run
    end function kl_ray_ellipsoid_run
    function kl_ray_ellipsoid_n(model_id, n, pos, dir, margin, t, n_points, status, ierr &
            ) bind(c, name="kl_ray_ellipsoid_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: dir(3,*)
      real(c_double), intent(in), optional :: margin(*)
      real(c_double), intent(inout), optional :: t(2,*)
      integer(c_long), intent(inout), optional :: n_points(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_ellipsoid_n
    end function kl_ray_ellipsoid_n
    function kl_ray_ellipsoid_run_n(run_id, n, pos, dir, margin, t, n_points, status, ierr &
            ) bind(c, name="kl_ray_ellipsoid_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: dir(3,*)
      real(c_double), intent(in), optional :: margin(*)
      real(c_double), intent(inout), optional :: t(2,*)
      integer(c_long), intent(inout), optional :: n_points(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_ellipsoid_run_n
    end function kl_ray_ellipsoid_run_n
    function kl_ray_height(model_id, pos, dir, height, t, n_points, ierr) bind(c, name="kl_ray_height")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: dir(3)
      real(c_double), intent(in), optional :: height
      real(c_double), intent(inout), optional :: t(2)
      integer(c_long), intent(inout), optional :: n_points
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_height
    end function kl_ray_height
    function kl_ray_height_run(run_id, pos, dir, height, t, n_points, ierr) bind(c, name="kl_ray_height_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: dir(3)
      real(c_double), intent(in), optional :: height
      real(c_double), intent(inout), optional :: t(2)
      integer(c_long), intent(inout), optional :: n_points
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_height_run
    end function kl_ray_height_run
    function kl_ray_height_n(model_id, n, pos, dir, height, t, n_points, status, ierr) bind(c, name="kl_ray_height_n")
      import :: c_double, c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: dir(3,*)
      real(c_double), intent(in), optional :: height(*)
      real(c_double), intent(inout), optional :: t(2,*)
      integer(c_long), intent(inout), optional :: n_points(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_height_n
    end function kl_ray_height_n
    function kl_ray_height_run_n(run_id, n, pos, dir, height, t, n_points, status, ierr &
            ) bind(c, name="kl_ray_height_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: dir(3,*)
      real(c_double), intent(in), optional :: height(*)
      real(c_double), intent(inout), optional :: t(2,*)
      integer(c_long), intent(inout), optional :: n_points(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_height_run_n
    end function kl_ray_height_run_n
    function kl_ray_tangent(model_id, pos, dir, t, point, geodetic, meets_earth, ierr) bind(c, name="kl_ray_tangent")
      import :: c_double, c_long, kl_geodetic, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: dir(3)
      real(c_double), intent(inout), optional :: t
      real(c_double), intent(inout), optional :: point(3)
      type(kl_geodetic), intent(inout), optional :: geodetic
      integer(c_long), intent(inout), optional :: meets_earth
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_tangent
    end function kl_ray_tangent
    function kl_ray_tangent_run(run_id, pos, dir, t, point, geodetic, meets_earth, ierr &
            ) bind(c, name="kl_ray_tangent_run")
      import :: c_double, c_long, kl_geodetic
      integer(c_long), intent(in), optional :: run_id
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: dir(3)
      real(c_double), intent(inout), optional :: t
      real(c_double), intent(inout), optional :: point(3)
      type(kl_geodetic), intent(inout), optional :: geodetic
      integer(c_long), intent(inout), optional :: meets_earth
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_tangent_run
    end function kl_ray_tangent_run
    function kl_ray_tangent_n(model_id, n, pos, dir, t, point, geodetic, meets_earth, status, ierr &
            ) bind(c, name="kl_ray_tangent_n")
      import :: c_double, c_long, kl_geodetic, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: dir(3,*)
      real(c_double), intent(inout), optional :: t(*)
      real(c_double), intent(inout), optional :: point(3,*)
      type(kl_geodetic), intent(inout), optional :: geodetic(*)
      integer(c_long), intent(inout), optional :: meets_earth(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_tangent_n
    end function kl_ray_tangent_n
    function kl_ray_tangent_run_n(run_id, n, pos, dir, t, point, geodetic, meets_earth, status, ierr &
            ) bind(c, name="kl_ray_tangent_run_n")
      import :: c_double, c_long, kl_geodetic
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: dir(3,*)
      real(c_double), intent(inout), optional :: t(*)
      real(c_double), intent(inout), optional :: point(3,*)
      type(kl_geodetic), intent(inout), optional :: geodetic(*)
      integer(c_long), intent(inout), optional :: meets_earth(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_ray_tangent_run_n
    end function kl_ray_tangent_run_n
    function kl_eclipse(model_id, time_id, light_time, cs, time_ref, time, pos, margin, state,  &
            fraction, depth, ierr) bind(c, name="kl_eclipse")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: light_time
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: margin
      integer(c_long), intent(inout), optional :: state
      real(c_double), intent(inout), optional :: fraction
      real(c_double), intent(inout), optional :: depth
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_eclipse
    end function kl_eclipse
    function kl_eclipse_run(run_id, light_time, cs, time_ref, time, pos, margin, state, fraction,  &
            depth, ierr) bind(c, name="kl_eclipse_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: light_time
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: margin
      integer(c_long), intent(inout), optional :: state
      real(c_double), intent(inout), optional :: fraction
      real(c_double), intent(inout), optional :: depth
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_eclipse_run
    end function kl_eclipse_run
    function kl_eclipse_n(model_id, time_id, n, light_time, cs, time_ref, time, pos, margin, state,  &
            fraction, depth, status, ierr) bind(c, name="kl_eclipse_n")
      import :: c_double, c_long, kl_model_id, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: light_time
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: margin(*)
      integer(c_long), intent(inout), optional :: state(*)
      real(c_double), intent(inout), optional :: fraction(*)
      real(c_double), intent(inout), optional :: depth(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_eclipse_n
    end function kl_eclipse_n
    function kl_eclipse_run_n(run_id, n, light_time, cs, time_ref, time, pos, margin, state,  &
            fraction, depth, status, ierr) bind(c, name="kl_eclipse_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: light_time
      integer(c_long), intent(in), optional :: cs
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: margin(*)
      integer(c_long), intent(inout), optional :: state(*)
      real(c_double), intent(inout), optional :: fraction(*)
      real(c_double), intent(inout), optional :: depth(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_eclipse_run_n
    end function kl_eclipse_run_n
    function kl_model_init(mode, models, model_id, ierr) bind(c, name="kl_model_init")
      import :: c_long, kl_model_id
      integer(c_long), intent(in), optional :: mode
      integer(c_long), intent(in), optional :: models(9)
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_model_init
    end function kl_model_init
    function kl_model_init_status(model_id) bind(c, name="kl_model_init_status")
      import :: c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long) :: kl_model_init_status
    end function kl_model_init_status
    function kl_model_get_data(model_id, data) bind(c, name="kl_model_get_data")
      import :: c_long, kl_model_data, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_model_data), intent(inout), optional :: data
      integer(c_long) :: kl_model_get_data
    end function kl_model_get_data
    function kl_model_close(model_id, ierr) bind(c, name="kl_model_close")
      import :: c_long, kl_model_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_model_close
    end function kl_model_close
    function kl_earth_orientation_get(time_id, corrections, time_ref, time, out, ierr &
            ) bind(c, name="kl_earth_orientation_get")
      import :: c_double, c_long, kl_earth_orientation, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      type(kl_earth_orientation), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_earth_orientation_get
    end function kl_earth_orientation_get
    function kl_earth_orientation_get_run(run_id, corrections, time_ref, time, out, ierr &
            ) bind(c, name="kl_earth_orientation_get_run")
      import :: c_double, c_long, kl_earth_orientation
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      type(kl_earth_orientation), intent(inout), optional :: out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_earth_orientation_get_run
    end function kl_earth_orientation_get_run
    function kl_earth_orientation_get_n(time_id, n, corrections, time_ref, time, out, status, ierr &
            ) bind(c, name="kl_earth_orientation_get_n")
      import :: c_double, c_long, kl_earth_orientation, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      type(kl_earth_orientation), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_earth_orientation_get_n
    end function kl_earth_orientation_get_n
    function kl_earth_orientation_get_run_n(run_id, n, corrections, time_ref, time, out, status,  &
            ierr) bind(c, name="kl_earth_orientation_get_run_n")
      import :: c_double, c_long, kl_earth_orientation
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      type(kl_earth_orientation), intent(inout), optional :: out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_earth_orientation_get_run_n
    end function kl_earth_orientation_get_run_n
    function kl_iers_matrix(time_id, corrections, cs_in, cs_out, time_ref, time, calc_mode, r, dr,  &
            ddr, ierr) bind(c, name="kl_iers_matrix")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(inout), optional :: r(9)
      real(c_double), intent(inout), optional :: dr(9)
      real(c_double), intent(inout), optional :: ddr(9)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_matrix
    end function kl_iers_matrix
    function kl_iers_matrix_run(run_id, corrections, cs_in, cs_out, time_ref, time, calc_mode, r,  &
            dr, ddr, ierr) bind(c, name="kl_iers_matrix_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(inout), optional :: r(9)
      real(c_double), intent(inout), optional :: dr(9)
      real(c_double), intent(inout), optional :: ddr(9)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_matrix_run
    end function kl_iers_matrix_run
    function kl_iers_matrix_n(time_id, n, corrections, cs_in, cs_out, time_ref, time, calc_mode, r,  &
            dr, ddr, status, ierr) bind(c, name="kl_iers_matrix_n")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(inout), optional :: r(9,*)
      real(c_double), intent(inout), optional :: dr(9,*)
      real(c_double), intent(inout), optional :: ddr(9,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_matrix_n
    end function kl_iers_matrix_n
    function kl_iers_matrix_run_n(run_id, n, corrections, cs_in, cs_out, time_ref, time, calc_mode,  &
            r, dr, ddr, status, ierr) bind(c, name="kl_iers_matrix_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      integer(c_long), intent(in), optional :: calc_mode
      real(c_double), intent(inout), optional :: r(9,*)
      real(c_double), intent(inout), optional :: dr(9,*)
      real(c_double), intent(inout), optional :: ddr(9,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_matrix_run_n
    end function kl_iers_matrix_run_n
    function kl_iers_change(time_id, corrections, calc_mode, cs_in, cs_out, time_ref, time, pos,  &
            vel, acc, pos_out, vel_out, acc_out, ierr) bind(c, name="kl_iers_change")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      real(c_double), intent(inout), optional :: pos_out(3)
      real(c_double), intent(inout), optional :: vel_out(3)
      real(c_double), intent(inout), optional :: acc_out(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_change
    end function kl_iers_change
    function kl_iers_change_run(run_id, corrections, calc_mode, cs_in, cs_out, time_ref, time, pos,  &
            vel, acc, pos_out, vel_out, acc_out, ierr) bind(c, name="kl_iers_change_run")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: pos(3)
      real(c_double), intent(in), optional :: vel(3)
      real(c_double), intent(in), optional :: acc(3)
      real(c_double), intent(inout), optional :: pos_out(3)
      real(c_double), intent(inout), optional :: vel_out(3)
      real(c_double), intent(inout), optional :: acc_out(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_change_run
    end function kl_iers_change_run
    function kl_iers_change_n(time_id, n, corrections, calc_mode, cs_in, cs_out, time_ref, time,  &
            pos, vel, acc, pos_out, vel_out, acc_out, status, ierr) bind(c, name="kl_iers_change_n")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      real(c_double), intent(inout), optional :: pos_out(3,*)
      real(c_double), intent(inout), optional :: vel_out(3,*)
      real(c_double), intent(inout), optional :: acc_out(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_change_n
    end function kl_iers_change_n
    function kl_iers_change_run_n(run_id, n, corrections, calc_mode, cs_in, cs_out, time_ref, time,  &
            pos, vel, acc, pos_out, vel_out, acc_out, status, ierr) bind(c, name="kl_iers_change_run_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: calc_mode
      integer(c_long), intent(in), optional :: cs_in
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: pos(3,*)
      real(c_double), intent(in), optional :: vel(3,*)
      real(c_double), intent(in), optional :: acc(3,*)
      real(c_double), intent(inout), optional :: pos_out(3,*)
      real(c_double), intent(inout), optional :: vel_out(3,*)
      real(c_double), intent(inout), optional :: acc_out(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_iers_change_run_n
    end function kl_iers_change_run_n
    function kl_quaternions_to_vectors(q, x, y, z, ierr) bind(c, name="kl_quaternions_to_vectors")
      import :: c_double, c_long
      real(c_double), intent(in), optional :: q(4)
      real(c_double), intent(inout), optional :: x(3)
      real(c_double), intent(inout), optional :: y(3)
      real(c_double), intent(inout), optional :: z(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_quaternions_to_vectors
    end function kl_quaternions_to_vectors
    function kl_quaternions_to_vectors_n(n, q, x, y, z, status, ierr) bind(c, name="kl_quaternions_to_vectors_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: q(4,*)
      real(c_double), intent(inout), optional :: x(3,*)
      real(c_double), intent(inout), optional :: y(3,*)
      real(c_double), intent(inout), optional :: z(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_quaternions_to_vectors_n
    end function kl_quaternions_to_vectors_n
    function kl_vectors_to_quaternions(x, y, z, q, ierr) bind(c, name="kl_vectors_to_quaternions")
      import :: c_double, c_long
      real(c_double), intent(in), optional :: x(3)
      real(c_double), intent(in), optional :: y(3)
      real(c_double), intent(in), optional :: z(3)
      real(c_double), intent(inout), optional :: q(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_vectors_to_quaternions
    end function kl_vectors_to_quaternions
    function kl_vectors_to_quaternions_n(n, x, y, z, q, status, ierr) bind(c, name="kl_vectors_to_quaternions_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: x(3,*)
      real(c_double), intent(in), optional :: y(3,*)
      real(c_double), intent(in), optional :: z(3,*)
      real(c_double), intent(inout), optional :: q(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_vectors_to_quaternions_n
    end function kl_vectors_to_quaternions_n
    function kl_quaternions_interpol(mode, t1, q1, t2, q2, t, q, ierr) bind(c, name="kl_quaternions_interpol")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: mode
      real(c_double), intent(in), optional :: t1
      real(c_double), intent(in), optional :: q1(4)
      real(c_double), intent(in), optional :: t2
      real(c_double), intent(inout), optional :: q2(4)
      real(c_double), intent(in), optional :: t
      real(c_double), intent(inout), optional :: q(4)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_quaternions_interpol
    end function kl_quaternions_interpol
    function kl_quaternions_interpol_n(n, mode, t1, q1, t2, q2, t, q, status, ierr &
            ) bind(c, name="kl_quaternions_interpol_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: mode
      real(c_double), intent(in), optional :: t1(*)
      real(c_double), intent(in), optional :: q1(4,*)
      real(c_double), intent(in), optional :: t2(*)
      real(c_double), intent(inout), optional :: q2(4,*)
      real(c_double), intent(in), optional :: t(*)
      real(c_double), intent(inout), optional :: q(4,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_quaternions_interpol_n
    end function kl_quaternions_interpol_n
    function kl_euler_to_matrix(angles, matrix, ierr) bind(c, name="kl_euler_to_matrix")
      import :: c_double, c_long
      real(c_double), intent(in), optional :: angles(3)
      real(c_double), intent(inout), optional :: matrix(9)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_euler_to_matrix
    end function kl_euler_to_matrix
    function kl_euler_to_matrix_n(n, angles, matrix, status, ierr) bind(c, name="kl_euler_to_matrix_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: angles(3,*)
      real(c_double), intent(inout), optional :: matrix(9,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_euler_to_matrix_n
    end function kl_euler_to_matrix_n
    function kl_matrix_to_euler(matrix, angles, ierr) bind(c, name="kl_matrix_to_euler")
      import :: c_double, c_long
      real(c_double), intent(in), optional :: matrix(9)
      real(c_double), intent(inout), optional :: angles(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_matrix_to_euler
    end function kl_matrix_to_euler
    function kl_matrix_to_euler_n(n, matrix, angles, status, ierr) bind(c, name="kl_matrix_to_euler_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: matrix(9,*)
      real(c_double), intent(inout), optional :: angles(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_matrix_to_euler_n
    end function kl_matrix_to_euler_n
    function kl_get_rotation_angles(x1, y1, z1, x2, y2, z2, angles, ierr) bind(c, name="kl_get_rotation_angles")
      import :: c_double, c_long
      real(c_double), intent(in), optional :: x1(3)
      real(c_double), intent(in), optional :: y1(3)
      real(c_double), intent(in), optional :: z1(3)
      real(c_double), intent(in), optional :: x2(3)
      real(c_double), intent(in), optional :: y2(3)
      real(c_double), intent(in), optional :: z2(3)
      real(c_double), intent(inout), optional :: angles(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_get_rotation_angles
    end function kl_get_rotation_angles
    function kl_get_rotation_angles_n(n, x1, y1, z1, x2, y2, z2, angles, status, ierr &
            ) bind(c, name="kl_get_rotation_angles_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: x1(3,*)
      real(c_double), intent(in), optional :: y1(3,*)
      real(c_double), intent(in), optional :: z1(3,*)
      real(c_double), intent(in), optional :: x2(3,*)
      real(c_double), intent(in), optional :: y2(3,*)
      real(c_double), intent(in), optional :: z2(3,*)
      real(c_double), intent(inout), optional :: angles(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_get_rotation_angles_n
    end function kl_get_rotation_angles_n
    function kl_get_rotated_vectors(x1, y1, z1, angles, x2, y2, z2, ierr) bind(c, name="kl_get_rotated_vectors")
      import :: c_double, c_long
      real(c_double), intent(in), optional :: x1(3)
      real(c_double), intent(in), optional :: y1(3)
      real(c_double), intent(in), optional :: z1(3)
      real(c_double), intent(in), optional :: angles(3)
      real(c_double), intent(inout), optional :: x2(3)
      real(c_double), intent(inout), optional :: y2(3)
      real(c_double), intent(inout), optional :: z2(3)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_get_rotated_vectors
    end function kl_get_rotated_vectors
    function kl_get_rotated_vectors_n(n, x1, y1, z1, angles, x2, y2, z2, status, ierr &
            ) bind(c, name="kl_get_rotated_vectors_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      real(c_double), intent(in), optional :: x1(3,*)
      real(c_double), intent(in), optional :: y1(3,*)
      real(c_double), intent(in), optional :: z1(3,*)
      real(c_double), intent(in), optional :: angles(3,*)
      real(c_double), intent(inout), optional :: x2(3,*)
      real(c_double), intent(inout), optional :: y2(3,*)
      real(c_double), intent(inout), optional :: z2(3,*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_get_rotated_vectors_n
    end function kl_get_rotated_vectors_n
    function kl_run_init(sat_id, time_id, model_id, run_id, ierr) bind(c, name="kl_run_init")
      import :: c_long, kl_model_id, kl_time_id
      integer(c_long), intent(in), optional :: sat_id
      type(kl_time_id), intent(inout), optional :: time_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long), intent(inout), optional :: run_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_run_init
    end function kl_run_init
    function kl_run_init_status(run_id) bind(c, name="kl_run_init_status")
      import :: c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long) :: kl_run_init_status
    end function kl_run_init_status
    function kl_run_id_status(run_id, kind) bind(c, name="kl_run_id_status")
      import :: c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: kind
      integer(c_long) :: kl_run_id_status
    end function kl_run_id_status
    function kl_run_get_ids(run_id, sat_id, time_id, model_id) bind(c, name="kl_run_get_ids")
      import :: c_long, kl_model_id, kl_time_id
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(inout), optional :: sat_id
      type(kl_time_id), intent(inout), optional :: time_id
      type(kl_model_id), intent(inout), optional :: model_id
      integer(c_long) :: kl_run_get_ids
    end function kl_run_get_ids
    subroutine kl_run_close(run_id) bind(c, name="kl_run_close")
      import :: c_long
      integer(c_long), intent(in), optional :: run_id
    end subroutine kl_run_close
    function kl_default_sat_init(sat_id, file_name, ierr) bind(c, name="kl_default_sat_init")
      import :: c_char, c_long
      integer(c_long), intent(inout), optional :: sat_id
      character(kind=c_char), intent(in), optional :: file_name(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_default_sat_init
    end function kl_default_sat_init
    function kl_default_sat_close(sat_id) bind(c, name="kl_default_sat_close")
      import :: c_long
      integer(c_long), intent(in), optional :: sat_id
      integer(c_long) :: kl_default_sat_close
    end function kl_default_sat_close
    function kl_set_tle_sat_data(sat_id, catalogue_number, name, designator) bind(c, name="kl_set_tle_sat_data")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: sat_id
      integer(c_long), intent(in), optional :: catalogue_number
      character(kind=c_char), intent(in), optional :: name(*)
      character(kind=c_char), intent(in), optional :: designator(*)
      integer(c_long) :: kl_set_tle_sat_data
    end function kl_set_tle_sat_data
    function kl_set_sp3_sat_data(sat_id, identifier) bind(c, name="kl_set_sp3_sat_data")
      import :: c_char, c_long
      integer(c_long), value :: sat_id
      character(kind=c_char), intent(in), optional :: identifier(*)
      integer(c_long) :: kl_set_sp3_sat_data
    end function kl_set_sp3_sat_data
    function kl_star_radec(model_id, time_id, corrections, cs_out, time_ref, time, star,  &
            observer_pos, observer_vel, place, ierr) bind(c, name="kl_star_radec")
      import :: c_double, c_long, kl_model_id, kl_radec, kl_star, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      type(kl_star), intent(in), optional :: star
      real(c_double), intent(in), optional :: observer_pos(3)
      real(c_double), intent(in), optional :: observer_vel(3)
      type(kl_radec), intent(inout), optional :: place
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_star_radec
    end function kl_star_radec
    function kl_star_radec_run(run_id, corrections, cs_out, time_ref, time, star, observer_pos,  &
            observer_vel, place, ierr) bind(c, name="kl_star_radec_run")
      import :: c_double, c_long, kl_radec, kl_star
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      type(kl_star), intent(in), optional :: star
      real(c_double), intent(in), optional :: observer_pos(3)
      real(c_double), intent(in), optional :: observer_vel(3)
      type(kl_radec), intent(inout), optional :: place
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_star_radec_run
    end function kl_star_radec_run
    function kl_star_radec_n(model_id, time_id, n, corrections, cs_out, time_ref, time, star,  &
            observer_pos, observer_vel, place, status, ierr) bind(c, name="kl_star_radec_n")
      import :: c_double, c_long, kl_model_id, kl_radec, kl_star, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      type(kl_star), intent(in), optional :: star(*)
      real(c_double), intent(in), optional :: observer_pos(3,*)
      real(c_double), intent(in), optional :: observer_vel(3,*)
      type(kl_radec), intent(inout), optional :: place(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_star_radec_n
    end function kl_star_radec_n
    function kl_star_radec_run_n(run_id, n, corrections, cs_out, time_ref, time, star, observer_pos,  &
            observer_vel, place, status, ierr) bind(c, name="kl_star_radec_run_n")
      import :: c_double, c_long, kl_radec, kl_star
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      type(kl_star), intent(in), optional :: star(*)
      real(c_double), intent(in), optional :: observer_pos(3,*)
      real(c_double), intent(in), optional :: observer_vel(3,*)
      type(kl_radec), intent(inout), optional :: place(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_star_radec_run_n
    end function kl_star_radec_run_n
    function kl_star_catalog(model_id, time_id, file, window, corrections, cs_out, time_ref, time,  &
            n_stars, stars, places, ierr) bind(c, name="kl_star_catalog")
      import :: c_char, c_double, c_long, c_ptr, kl_model_id, kl_star_window, kl_time_id
      type(kl_model_id), intent(inout), optional :: model_id
      type(kl_time_id), intent(inout), optional :: time_id
      character(kind=c_char), intent(in), optional :: file(*)
      type(kl_star_window), intent(in), optional :: window
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      integer(c_long), intent(inout), optional :: n_stars
      type(c_ptr), intent(inout), optional :: stars
      type(c_ptr), intent(inout), optional :: places
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_star_catalog
    end function kl_star_catalog
    function kl_star_catalog_run(run_id, file, window, corrections, cs_out, time_ref, time, n_stars,  &
            stars, places, ierr) bind(c, name="kl_star_catalog_run")
      import :: c_char, c_double, c_long, c_ptr, kl_star_window
      integer(c_long), intent(in), optional :: run_id
      character(kind=c_char), intent(in), optional :: file(*)
      type(kl_star_window), intent(in), optional :: window
      integer(c_long), intent(in), optional :: corrections
      integer(c_long), intent(in), optional :: cs_out
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      integer(c_long), intent(inout), optional :: n_stars
      type(c_ptr), intent(inout), optional :: stars
      type(c_ptr), intent(inout), optional :: places
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_star_catalog_run
    end function kl_star_catalog_run
    function kl_time_ref_init(tri_time, orbit, anx_time, orbit_duration, time_id, ierr &
            ) bind(c, name="kl_time_ref_init")
      import :: c_double, c_long, kl_time_id
      real(c_double), intent(in), optional :: tri_time(4)
      integer(c_long), intent(in), optional :: orbit
      real(c_double), intent(in), optional :: anx_time
      real(c_double), intent(in), optional :: orbit_duration
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ref_init
    end function kl_time_ref_init
    function kl_time_ref_init_file(model, n_files, files, window, start, stop, report, time_id, ierr &
            ) bind(c, name="kl_time_ref_init_file")
      import :: c_double, c_long, c_ptr, kl_time_file_report, kl_time_id
      integer(c_long), intent(in), optional :: model
      integer(c_long), intent(in), optional :: n_files
      type(c_ptr), intent(in), optional :: files(*)
      integer(c_long), intent(in), optional :: window
      real(c_double), intent(in), optional :: start
      real(c_double), intent(in), optional :: stop
      type(kl_time_file_report), intent(inout), optional :: report
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_ref_init_file
    end function kl_time_ref_init_file
    function kl_time_id_init(n_files, files, no_extrapolation, window, start, stop, report, time_id,  &
            ierr) bind(c, name="kl_time_id_init")
      import :: c_double, c_long, c_ptr, kl_time_file_report, kl_time_id
      integer(c_long), intent(in), optional :: n_files
      type(c_ptr), intent(in), optional :: files(*)
      integer(c_long), intent(in), optional :: no_extrapolation
      integer(c_long), intent(in), optional :: window
      real(c_double), intent(in), optional :: start
      real(c_double), intent(in), optional :: stop
      type(kl_time_file_report), intent(inout), optional :: report
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_id_init
    end function kl_time_id_init
    function kl_time_get_pole(time_id, time_ref, time, pole) bind(c, name="kl_time_get_pole")
      import :: c_double, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(inout), optional :: pole(4)
      integer(c_long) :: kl_time_get_pole
    end function kl_time_get_pole
    function kl_time_get_row(time_id, time_ref, time, info) bind(c, name="kl_time_get_row")
      import :: c_double, c_long, kl_time_id, kl_time_row_info
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      type(kl_time_row_info), intent(inout), optional :: info
      integer(c_long) :: kl_time_get_row
    end function kl_time_get_row
    function kl_time_get_leap_seconds(time_id, n, utc, tai_utc, expiry) bind(c, name="kl_time_get_leap_seconds")
      import :: c_double, c_long, c_ptr, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(inout), optional :: n
      type(c_ptr), intent(inout), optional :: utc
      type(c_ptr), intent(inout), optional :: tai_utc
      real(c_double), intent(inout), optional :: expiry
      integer(c_long) :: kl_time_get_leap_seconds
    end function kl_time_get_leap_seconds
    function kl_time_close(time_id, ierr) bind(c, name="kl_time_close")
      import :: c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_close
    end function kl_time_close
    function kl_time_init_status(time_id) bind(c, name="kl_time_init_status")
      import :: c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long) :: kl_time_init_status
    end function kl_time_init_status
    function kl_time_get_mode(time_id) bind(c, name="kl_time_get_mode")
      import :: c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long) :: kl_time_get_mode
    end function kl_time_get_mode
    function kl_time_get_sat_id(time_id) bind(c, name="kl_time_get_sat_id")
      import :: c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long) :: kl_time_get_sat_id
    end function kl_time_get_sat_id
    function kl_time_get_id_data(time_id, data) bind(c, name="kl_time_get_id_data")
      import :: c_long, kl_time_id, kl_time_id_data
      type(kl_time_id), intent(inout), optional :: time_id
      type(kl_time_id_data), intent(inout), optional :: data
      integer(c_long) :: kl_time_get_id_data
    end function kl_time_get_id_data
    function kl_time_set_id_data(time_id, data) bind(c, name="kl_time_set_id_data")
      import :: c_long, kl_time_id, kl_time_id_data
      type(kl_time_id), intent(inout), optional :: time_id
      type(kl_time_id_data), intent(in), optional :: data
      integer(c_long) :: kl_time_set_id_data
    end function kl_time_set_id_data
    function kl_time_free_id_data(data) bind(c, name="kl_time_free_id_data")
      import :: c_long, kl_time_id_data
      type(kl_time_id_data), intent(inout), optional :: data
      integer(c_long) :: kl_time_free_id_data
    end function kl_time_free_id_data
    function kl_time_add(proc_id, time_ref, time, duration, time_out, ierr) bind(c, name="kl_time_add")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: proc_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time
      real(c_double), intent(in), optional :: duration
      real(c_double), intent(inout), optional :: time_out
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_add
    end function kl_time_add
    function kl_time_add_n(n, proc_id, time_ref, time, duration, time_out, status, ierr) bind(c, name="kl_time_add_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time(*)
      real(c_double), intent(in), optional :: duration(*)
      real(c_double), intent(inout), optional :: time_out(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_add_n
    end function kl_time_add_n
    function kl_time_diff(proc_id, time_ref, time1, time2, duration, ierr) bind(c, name="kl_time_diff")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: proc_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time1
      real(c_double), intent(in), optional :: time2
      real(c_double), intent(inout), optional :: duration
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_diff
    end function kl_time_diff
    function kl_time_diff_n(n, proc_id, time_ref, time1, time2, duration, status, ierr) bind(c, name="kl_time_diff_n")
      import :: c_double, c_long
      integer(c_long), intent(in), optional :: n
      integer(c_long), intent(in), optional :: proc_id
      integer(c_long), intent(in), optional :: time_ref
      real(c_double), intent(in), optional :: time1(*)
      real(c_double), intent(in), optional :: time2(*)
      real(c_double), intent(inout), optional :: duration(*)
      integer(c_long), intent(inout), optional :: status(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_diff_n
    end function kl_time_diff_n
    function kl_time_get_leap_second_info(time_id, ascii_id_out, leap_sign, utc_time_before,  &
            utc_time_after, ierr) bind(c, name="kl_time_get_leap_second_info")
      import :: c_char, c_long, kl_time_id
      type(kl_time_id), intent(inout), optional :: time_id
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(inout), optional :: leap_sign
      character(kind=c_char), intent(inout), optional :: utc_time_before(*)
      character(kind=c_char), intent(inout), optional :: utc_time_after(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_get_leap_second_info
    end function kl_time_get_leap_second_info
    function kl_time_get_leap_second_info_run(run_id, ascii_id_out, leap_sign, utc_time_before,  &
            utc_time_after, ierr) bind(c, name="kl_time_get_leap_second_info_run")
      import :: c_char, c_long
      integer(c_long), intent(in), optional :: run_id
      integer(c_long), intent(in), optional :: ascii_id_out
      integer(c_long), intent(inout), optional :: leap_sign
      character(kind=c_char), intent(inout), optional :: utc_time_before(*)
      character(kind=c_char), intent(inout), optional :: utc_time_after(*)
      integer(c_long), intent(inout), optional :: ierr(*)
      integer(c_long) :: kl_time_get_leap_second_info_run
    end function kl_time_get_leap_second_info_run
  end interface
end module kitlib
