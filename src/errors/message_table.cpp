// The message table: every function by its id, with the texts of its conditions in code order.
// Written by tools/api/generate.py from the table in api/.
#include "errors/function_ids.h"
#include "errors/messages.h"

#include <iterator>

// clang-format off
namespace {

constexpr Message k9[] = { // KL_Car_Geo
    warning("Internal computation warning # 1 (%f)", kDoubleArgument), // KL_CAR_GEO_COMPUTATION: never recorded
};
constexpr MessageGroup kGroup9 = group(k9);

constexpr Message k10[] = { // KL_Check_sat_id
    error("Satellite ID is not correct"), // KL_CHECK_SAT_ID
};
constexpr MessageGroup kGroup10 = group(k10);

constexpr Message k11[] = { // KL_Check_Geo_sat_id
    error("Satellite ID is not GEO", kNoArgument, "KL_Check_sat_id"), // KL_CHECK_GEO_SAT_ID: never recorded
};
constexpr MessageGroup kGroup11 = group(k11);

constexpr Message k12[] = { // KL_Sat_id_to_array
    error("Satellite ID is not correct"), // KL_SAT_TO_ARRAY_ID
    error("Default Satellite not correctly initialised"), // KL_SAT_TO_ARRAY_FREE_SLOT
};
constexpr MessageGroup kGroup12 = group(k12);

constexpr Message k13[] = { // KL_Get_min_period
    error("Error computing sat array index value corresponding to input sat_id"), // KL_PERIOD_SAT_ID
    warning("Minimum semi-major axis smaller than Earth radius. "), // KL_PERIOD_BELOW_EARTH_RADIUS
};
constexpr MessageGroup kGroup13 = group(k13);

constexpr Message k14[] = { // KL_Get_max_period
    error("Error computing sat array index value corresponding to input sat_id"), // KL_PERIOD_SAT_ID
    warning("Maximum semi-major axis smaller than Earth radius. "), // KL_PERIOD_BELOW_EARTH_RADIUS
};
constexpr MessageGroup kGroup14 = group(k14);

constexpr Message k20[] = { // KL_Check_time_ref
    error("Time reference ID is not correct"), // KL_CHECK_TIME_REF_NOT_CORRECT
};
constexpr MessageGroup kGroup20 = group(k20);

constexpr Message k21[] = { // KL_MJD_Calendar
    error("Input Time is out of limits"), // KL_MJD_CALENDAR_OUT_OF_LIMITS
};
constexpr MessageGroup kGroup21 = group(k21);

constexpr Message k22[] = { // KL_Calendar
    error("Input YEAR is out of limits (1950-2099)"), // KL_CALENDAR_YEAR
    error("Input MONTH is out of limits (1-12)"), // KL_CALENDAR_MONTH
    error("Input DAY is out of limits (1-31)"), // KL_CALENDAR_DAY
    error("Input SECONDS is out of limits (0-86399)"), // KL_CALENDAR_SECONDS
    error("Input MICROSECONDS is out of limits (0-999999)"), // KL_CALENDAR_MICROSECONDS
    error("That month has only 30 days"), // KL_CALENDAR_THIRTY_DAYS
    error("That month has only 29 days"), // KL_CALENDAR_LEAP_FEBRUARY
    error("That FEBRUARY has only 28 days"), // KL_CALENDAR_FEBRUARY
};
constexpr MessageGroup kGroup22 = group(k22);

constexpr Message k23[] = { // KL_Calendar_MJD
    error("Gregorian Calendar date not valid"), // KL_CALENDAR_MJD_NOT_A_DATE
};
constexpr MessageGroup kGroup23 = group(k23);

constexpr Message k24[] = { // KL_Time_check_processing_inputs
    error("Input processing format ID is not correct (%li)", kLongArgument), // KL_CHECK_IN_FORMAT
    error("Input time reference ID is not correct (%li)", kLongArgument), // KL_CHECK_IN_REF
    error("Number of days out of range (%li)", kLongArgument), // KL_CHECK_IN_DAYS
};
constexpr MessageGroup kGroup24 = group(k24);

constexpr Message k25[] = { // KL_Time_check_processing_outputs
    error("Output processing format ID is not correct (%li)", kLongArgument), // KL_CHECK_OUT_FORMAT
    error("Output time reference ID is not correct (%li)", kLongArgument), // KL_CHECK_OUT_REF
};
constexpr MessageGroup kGroup25 = group(k25);

constexpr Message k26[] = { // KL_Time_p2t_format_to_std
    error("Error checking leap second"), // KL_P2T_LEAP_SECOND
};
constexpr MessageGroup kGroup26 = group(k26);

constexpr Message k27[] = { // kl_time_current_time
    error("Error getting system time"), // KL_CURRENT_TIME_CLOCK: never recorded
    error("Error changing time reference"), // KL_CURRENT_TIME_CONVERSION: never recorded
    error("Could not lock other execution threads"), // KL_CURRENT_TIME_LOCK: never recorded
    error("Could not unlock other execution threads"), // KL_CURRENT_TIME_UNLOCK: never recorded
};
constexpr MessageGroup kGroup27 = group(k27);

constexpr Message k28[] = { // KL_Time_check_ascii_inputs
    error("Input ascii format ID is not correct (%li)", kLongArgument), // KL_ASCII_IN_FORMAT
    error("Input time reference ID is not correct (%li)", kLongArgument), // KL_ASCII_IN_REF
    error("Year is not a number from 1950 to 2099"), // KL_ASCII_IN_YEAR
    error("Text does not have the separators of its format"), // KL_ASCII_IN_LAYOUT
    error("Text is too short for its format"), // KL_ASCII_IN_TOO_SHORT
    error("Text is too long for its format"), // KL_ASCII_IN_TOO_LONG
    error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""), // KL_ASCII_IN_PREFIX
    error("Prefix contradicts the input time reference"), // KL_ASCII_IN_PREFIX_REF
    error("Neither a prefix nor the caller gives a time reference"), // KL_ASCII_IN_NO_REF
    error("Year 0000 or 9999, yet no beginning- or end-of-mission text"), // KL_ASCII_IN_MISSION_LIMIT
    error("Month is not one of 01 to 12 or JAN to DEC"), // KL_ASCII_IN_MONTH
    error("Day is not a number from 1 to 31"), // KL_ASCII_IN_DAY
    error("Hour is not a number from 0 to 23"), // KL_ASCII_IN_HOUR
    error("Minute is not a number from 0 to 59"), // KL_ASCII_IN_MINUTE
    error("Second is not a number from 0 to 59, or 60"), // KL_ASCII_IN_SECOND
    error("Microsecond is not a number"), // KL_ASCII_IN_MICROSECOND
    error("That month has only 30 days"), // KL_ASCII_IN_DAY_OF_30
    error("That FEBRUARY has only 29 days"), // KL_ASCII_IN_DAY_OF_29
    error("That FEBRUARY has only 28 days"), // KL_ASCII_IN_DAY_OF_28
    error("Second 60 outside a positive leap second"), // KL_ASCII_IN_LEAP_SECOND
};
constexpr MessageGroup kGroup28 = group(k28);

constexpr Message k29[] = { // KL_Time_check_ascii_outputs
    error("Output ascii format ID is not correct (%li)", kLongArgument), // KL_ASCII_OUT_FORMAT
    error("Output time reference ID is not correct (%li)", kLongArgument), // KL_ASCII_OUT_REF
};
constexpr MessageGroup kGroup29 = group(k29);

constexpr Message k30[] = { // KL_Time_check_transport_inputs
    error("Input transport format ID is not correct (%li)", kLongArgument), // KL_TRANS_IN_FORMAT
    error("Input time reference ID is not correct (%li)", kLongArgument), // KL_TRANS_IN_REF
    error("Input transport format needs GPS time (%li)", kLongArgument), // KL_TRANS_IN_GPS_REF
    error("Number of days out of range (%li)", kLongArgument), // KL_TRANS_IN_DAYS
    error("61st second outside a positive leap second (day %li)", kLongArgument), // KL_TRANS_IN_LEAP_SECOND
    error("Number of seconds out of range (%li)", kLongArgument), // KL_TRANS_IN_SECONDS
    error("Number of milliseconds out of range (%li)", kLongArgument), // KL_TRANS_IN_MILLISECONDS
    error("Number of microseconds out of range (%li)", kLongArgument), // KL_TRANS_IN_MICROSECONDS
    error("Number of ticks out of range (%li)", kLongArgument), // KL_TRANS_IN_TICKS
    error("GPS week out of range (%li)", kLongArgument), // KL_TRANS_IN_WEEK
    error("Seconds of week out of range (%li)", kLongArgument), // KL_TRANS_IN_SECONDS_OF_WEEK
    error("Fraction of second out of range (%li)", kLongArgument), // KL_TRANS_IN_FRACTION
    error("Seconds since the GPS epoch out of range (%li)", kLongArgument), // KL_TRANS_IN_GPS_SECONDS
};
constexpr MessageGroup kGroup30 = group(k30);

constexpr Message k31[] = { // KL_Time_check_transport_outputs
    error("Output transport format ID is not correct (%li)", kLongArgument), // KL_TRANS_OUT_FORMAT
    error("Output time reference ID is not correct (%li)", kLongArgument), // KL_TRANS_OUT_REF
    error("Output transport format needs GPS time (%li)", kLongArgument), // KL_TRANS_OUT_GPS_REF
};
constexpr MessageGroup kGroup31 = group(k31);

constexpr Message k33[] = { // KL_Time_t2a_format_from_std
    error("Time is before 1950"), // KL_ASCII_WRITE_BEFORE_1950
    error("Time is after 2099"), // KL_ASCII_WRITE_AFTER_2099
};
constexpr MessageGroup kGroup33 = group(k33);

constexpr Message k36[] = { // KL_Time_t2t_ref_to_tai
    error("Time reference not initialised"), // KL_TO_TAI_NOT_INITIALISED
    warning("Time out of initialization range"), // KL_TO_TAI_OUT_OF_RANGE
    error("Error checking leap second"), // KL_TO_TAI_LEAP_SECOND
};
constexpr MessageGroup kGroup36 = group(k36);

constexpr Message k37[] = { // KL_Time_t2t_ref_from_tai
    error("Time reference not initialised"), // KL_TO_TAI_NOT_INITIALISED
    warning("Time out of initialization range"), // KL_TO_TAI_OUT_OF_RANGE
};
constexpr MessageGroup kGroup37 = group(k37);

constexpr Message k38[] = { // KL_Time_ref_init_file_deltas
    error("Time reference ID is not correct"), // KL_DELTAS_REF
    error("Time references not correctly initialised"), // KL_DELTAS_NOT_INITIALISED
    warning("Reference time out of initialization range"), // KL_DELTAS_OUT_OF_RANGE
    warning("Input UT1 for extrapolation UT1-UTC formula (expected UTC). Transforming to UTC with time correlations of last record"), // KL_DELTAS_UT1_FORMULA
};
constexpr MessageGroup kGroup38 = group(k38);

constexpr Message k39[] = { // KL_Get_time_in_ref
    error("Error converting time."), // KL_GET_TIME_IN_REF_FAILED
};
constexpr MessageGroup kGroup39 = group(k39);

constexpr Message k40[] = { // KL_Leap_second_utc_time
    error("Time reference ID is not correct"), // KL_QUARTER_REF
    error("Internal Error # 1"), // KL_QUARTER_WRITING
    error("Internal Error # 2"), // KL_QUARTER_FIELDS: never recorded: the fields are not read back from a text
    error("Internal Error # 3"), // KL_QUARTER_READING
};
constexpr MessageGroup kGroup40 = group(k40);

constexpr Message k41[] = { // KL_Time_check_leap_second
    error("Time reference ID is not correct"), // KL_LEAP_CHECK_REF
    error("Input date is out of range"), // KL_LEAP_CHECK_DATE
};
constexpr MessageGroup kGroup41 = group(k41);

constexpr Message k42[] = { // KL_Time_ref_init_check_inputs
    error("TAI time is out of range"), // KL_TIME_REF_INIT_CHECK_TAI
    error("UTC time is out of range"), // KL_TIME_REF_INIT_CHECK_UTC
    error("UT1 time is out of range"), // KL_TIME_REF_INIT_CHECK_UT1
    error("GPS time is out of range"), // KL_TIME_REF_INIT_CHECK_GPS
    error("Absolute orbit number is negative"), // KL_TIME_REF_INIT_CHECK_ORBIT: never recorded
    error("Elapsed time since ANX is negative"), // KL_TIME_REF_INIT_CHECK_ANX_TIME: never recorded
    error("Orbit duration is negative"), // KL_TIME_REF_INIT_CHECK_ORBIT_DURATION: never recorded
    error("ANX time is bigger than orbit duration"), // KL_TIME_REF_INIT_CHECK_ANX_DURATION: never recorded
};
constexpr MessageGroup kGroup42 = group(k42);

constexpr Message k43[] = { // KL_Load_sp3_orbit_file_list
    error("Error reading file: %s", kTextArgument), // KL_LOAD_SP3_FILE: never recorded
};
constexpr MessageGroup kGroup43 = group(k43);

constexpr Message k50[] = { // KL_Change_CoordinateSystem
    error("Invalid time reference or format"), // KL_CHAIN_DATE_RECORD
    error("Invalid initial coordinate system"), // KL_CHAIN_INITIAL
    error("Invalid final coordinate system"), // KL_CHAIN_FINAL
    error("Error calculating Earth vel. and acc."), // KL_CHAIN_EARTH
    error("Input date out of allowed range"), // KL_CHAIN_DATE_RANGE
    error("Time reference not initialized"), // KL_CHAIN_TIME_ID
    warning("Transformation ToD<->PToD not performed"), // KL_CHAIN_PTOD
    warning("Transformation QMoD<->MoD not performed"), // KL_CHAIN_QMOD
    warning("Transformation ToD<->PToD skipped"), // KL_CHAIN_PTOD_SKIPPED
    warning("Zero acceleration between baricentric, heliocentric and geocentric systems considered"), // KL_CHAIN_ACCELERATION
    error("Conversion to/from LIF requires time id initialised with VELM"), // KL_CHAIN_LIF
    error("Identify nutation or rotation failed"), // KL_CHAIN_UT1
};
constexpr MessageGroup kGroup50 = group(k50);

constexpr Message k51[] = { // KL_Change_CoordinateSystem_Sim
    error("Invalid time reference or format"), // KL_CHAIN_DATE_RECORD
    error("Invalid initial coordinate system"), // KL_CHAIN_INITIAL
    error("Invalid final coordinate system"), // KL_CHAIN_FINAL
    error("Error calculating Earth vel. and acc."), // KL_CHAIN_EARTH
    error("Input date out of allowed range"), // KL_CHAIN_DATE_RANGE
    error("Time reference not initialized"), // KL_CHAIN_TIME_ID
    warning("Transformation ToD<->PToD not performed"), // KL_CHAIN_PTOD
    warning("Transformation QMoD<->MoD not performed"), // KL_CHAIN_QMOD
    warning("Transformation ToD<->PToD skipped"), // KL_CHAIN_PTOD_SKIPPED
    warning("Zero acceleration between baricentric, heliocentric and geocentric systems considered"), // KL_CHAIN_ACCELERATION
    error("Conversion to/from LIF requires time id initialised with VELM"), // KL_CHAIN_LIF
    error("Identify nutation or rotation failed"), // KL_CHAIN_UT1
};
constexpr MessageGroup kGroup51 = group(k51);

constexpr Message k60[] = { // KL_Earth
    error("Input Time Reference is not TDB"), // KL_EARTH_REFERENCE
    error("Input Time Format is not MJD2000"), // KL_EARTH_FORMAT
    error("Internal computation error # 1"), // KL_EARTH_EVP: never recorded: the ephemeris cannot fail
    error("Could not lock other threads"), // KL_EARTH_LOCK: never recorded: no lock is taken
};
constexpr MessageGroup kGroup60 = group(k60);

constexpr Message k61[] = { // KL_Sun_PosVel
    error("Internal computation error # 1"), // KL_SUN_POSVEL_1: never recorded
    error("Internal computation error # 2"), // KL_SUN_POSVEL_2: never recorded
    error("Internal computation error # 3"), // KL_SUN_POSVEL_EARTH
    error("Internal computation error # 4"), // KL_SUN_POSVEL_FRAME
    error("Could not lock other threads"), // KL_SUN_POSVEL_LOCK: never recorded: no lock is taken
};
constexpr MessageGroup kGroup61 = group(k61);

constexpr Message k62[] = { // KL_Moon_PosVel
    error("Internal computation error # 1"), // KL_MOON_POSVEL_REFERENCE
    error("Internal computation error # 2"), // KL_MOON_POSVEL_FORMAT
    error("Could not lock other threads"), // KL_MOON_POSVEL_LOCK: never recorded: no lock is taken
};
constexpr MessageGroup kGroup62 = group(k62);

constexpr Message k63[] = { // KL_Planets
    error("Internal computation error # 1"), // KL_PLANETS_1: never recorded
    error("Internal computation error # 2"), // KL_PLANETS_2: never recorded
    error("Wrong selected planet on input (not allowed)"), // KL_PLANETS_CODE
    warning("Degraded position and velocity vectors accuracy (UTC on input outside recommended interval"), // KL_PLANETS_DEGRADED
    warning("Internal computation warning # 1"), // KL_PLANETS_CONVERGENCE
    error("Internal computation error # 3"), // KL_PLANETS_INTERNAL
    error("Could not lock other threads"), // KL_PLANETS_LOCK: never recorded: no lock is taken
};
constexpr MessageGroup kGroup63 = group(k63);

constexpr Message k64[] = { // KL_Sun_PosVel_Sun_Travel_Time
    error("Error in satellite state vector conversion."), // KL_LIGHT_SUN_SATELLITE
    error("Wrong input time reference. Only TDB allowed."), // KL_LIGHT_SUN_REFERENCE
    error("Error calling KL_Sun_PosVel."), // KL_LIGHT_SUN_SUN
};
constexpr MessageGroup kGroup64 = group(k64);

constexpr Message k65[] = { // KL_Sun_travel_time
    error("Input time reference ID is not correct"), // KL_TRAVEL_TIME_REF
    error("Input date is out of range"), // KL_TRAVEL_TIME_DATE
    error("Time Reference not initialised"), // KL_TRAVEL_TIME_ID
    error("Error in calling KL_Sun_PosVel_Sun_Travel_Time"), // KL_TRAVEL_TIME_SUN
    error("Error in KL_Time_p2p_ref_tai_to_tdb"), // KL_TRAVEL_TIME_TDB
    error("Error in kl_time_processing_to_processing"), // KL_TRAVEL_TIME_CONVERSION: never recorded
    error("Error in KL_Change_CoordinateSystem"), // KL_TRAVEL_TIME_FRAME
};
constexpr MessageGroup kGroup65 = group(k65);

constexpr Message k70[] = { // KL_Geoid_undu
    error("Derivatives at the poles are not computed"), // KL_GEOID_UNDU_POLE_ERR: never recorded: derivatives are not asked for
};
constexpr MessageGroup kGroup70 = group(k70);

constexpr Message k71[] = { // KL_Legfdn
    error("Legfdn does not compute derivatives at the poles"), // KL_LEGFDN_POLE_ERR
};
constexpr MessageGroup kGroup71 = group(k71);

constexpr Message k72[] = { // KL_Dhcsin
    error("Error loading EGM96 file"), // KL_DHCSIN_FILE: never recorded
};
constexpr MessageGroup kGroup72 = group(k72);

constexpr Message k73[] = { // KL_Dhccorr
    error("Memory allocation error"), // KL_DHCCORR_MEMORY: never recorded
    error("Error loading coeff. correction file"), // KL_DHCCORR_FILE: never recorded
};
constexpr MessageGroup kGroup73 = group(k73);

constexpr Message k101[] = { // kl_time_transport_to_ascii
    error("Input transport format ID is not correct"), // KL_TIME_TRANSPORT_TO_ASCII_TRANS_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_TRANSPORT_TO_ASCII_TIME_REF_IN_ERR
    error("Output ascii format ID is not correct"), // KL_TIME_TRANSPORT_TO_ASCII_ASCII_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_TRANSPORT_TO_ASCII_TIME_REF_OUT_ERR
    error("Number of days out of range"), // KL_TIME_TRANSPORT_TO_ASCII_DAYS_ERR
    error("Time reference not initialised"), // KL_TIME_TRANSPORT_TO_ASCII_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_TRANSPORT_TO_ASCII_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_TRANSPORT_TO_ASCII_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_TRANSPORT_TO_ASCII_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_TRANSPORT_TO_ASCII_VALIDITY_WARN
    error("61st second outside a positive leap second"), // KL_TIME_TRANSPORT_TO_ASCII_LEAP_SECOND_ERR
    error("Number of seconds out of range"), // KL_TIME_TRANSPORT_TO_ASCII_SECONDS_ERR
    error("Number of milliseconds out of range"), // KL_TIME_TRANSPORT_TO_ASCII_MILLISECONDS_ERR
    error("Number of microseconds out of range"), // KL_TIME_TRANSPORT_TO_ASCII_MICROSECONDS_ERR
    error("Number of ticks out of range"), // KL_TIME_TRANSPORT_TO_ASCII_TICKS_ERR
    error("GPS week out of range"), // KL_TIME_TRANSPORT_TO_ASCII_WEEK_ERR
    error("Seconds of week out of range"), // KL_TIME_TRANSPORT_TO_ASCII_SECONDS_OF_WEEK_ERR
    error("Fraction of second out of range"), // KL_TIME_TRANSPORT_TO_ASCII_FRACTION_ERR
    error("Seconds since the GPS epoch out of range"), // KL_TIME_TRANSPORT_TO_ASCII_GPS_SECONDS_ERR
    error("Output time is before 1950"), // KL_TIME_TRANSPORT_TO_ASCII_BEFORE_1950_ERR
    error("Output time is after 2099"), // KL_TIME_TRANSPORT_TO_ASCII_AFTER_2099_ERR
};
constexpr MessageGroup kGroup101 = group(k101);

constexpr Message k102[] = { // kl_time_transport_to_transport
    error("Input transport format ID is not correct"), // KL_TIME_TRANSPORT_TO_TRANSPORT_TRANS_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_REF_IN_ERR
    error("Output transport format ID is not correct"), // KL_TIME_TRANSPORT_TO_TRANSPORT_TRANS_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_REF_OUT_ERR
    error("Number of days out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_DAYS_ERR
    error("Time reference not initialised"), // KL_TIME_TRANSPORT_TO_TRANSPORT_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_TRANSPORT_TO_TRANSPORT_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_TRANSPORT_TO_TRANSPORT_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_TRANSPORT_TO_TRANSPORT_VALIDITY_WARN
    error("61st second outside a positive leap second"), // KL_TIME_TRANSPORT_TO_TRANSPORT_LEAP_SECOND_ERR
    error("Number of seconds out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_ERR
    error("Number of milliseconds out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_MILLISECONDS_ERR
    error("Number of microseconds out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_MICROSECONDS_ERR
    error("Number of ticks out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_TICKS_ERR
    error("GPS week out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_WEEK_ERR
    error("Seconds of week out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_SECONDS_OF_WEEK_ERR
    error("Fraction of second out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_FRACTION_ERR
    error("Seconds since the GPS epoch out of range"), // KL_TIME_TRANSPORT_TO_TRANSPORT_GPS_SECONDS_ERR
};
constexpr MessageGroup kGroup102 = group(k102);

constexpr Message k103[] = { // kl_time_transport_to_processing
    error("Input transport format ID is not correct"), // KL_TIME_TRANSPORT_TO_PROCESSING_TRANS_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_IN_ERR
    error("Output processing format ID is not correct"), // KL_TIME_TRANSPORT_TO_PROCESSING_PROC_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_TRANSPORT_TO_PROCESSING_TIME_REF_OUT_ERR
    error("Number of days out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_DAYS_ERR
    error("Time reference not initialised"), // KL_TIME_TRANSPORT_TO_PROCESSING_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_TRANSPORT_TO_PROCESSING_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_TRANSPORT_TO_PROCESSING_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_TRANSPORT_TO_PROCESSING_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_TRANSPORT_TO_PROCESSING_VALIDITY_WARN
    error("61st second outside a positive leap second"), // KL_TIME_TRANSPORT_TO_PROCESSING_LEAP_SECOND_ERR
    error("Number of seconds out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_ERR
    error("Number of milliseconds out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_MILLISECONDS_ERR
    error("Number of microseconds out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_MICROSECONDS_ERR
    error("Number of ticks out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_TICKS_ERR
    error("GPS week out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_WEEK_ERR
    error("Seconds of week out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_SECONDS_OF_WEEK_ERR
    error("Fraction of second out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_FRACTION_ERR
    error("Seconds since the GPS epoch out of range"), // KL_TIME_TRANSPORT_TO_PROCESSING_GPS_SECONDS_ERR
};
constexpr MessageGroup kGroup103 = group(k103);

constexpr Message k104[] = { // kl_time_processing_to_ascii
    error("Input processing format ID is not correct"), // KL_TIME_PROCESSING_TO_ASCII_PROC_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_PROCESSING_TO_ASCII_TIME_REF_IN_ERR
    error("Output ascii format ID is not correct"), // KL_TIME_PROCESSING_TO_ASCII_ASCII_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_PROCESSING_TO_ASCII_TIME_REF_OUT_ERR
    error("Number of days out of range"), // KL_TIME_PROCESSING_TO_ASCII_DAYS_ERR
    error("Time reference not initialised"), // KL_TIME_PROCESSING_TO_ASCII_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_PROCESSING_TO_ASCII_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_PROCESSING_TO_ASCII_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_PROCESSING_TO_ASCII_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_PROCESSING_TO_ASCII_VALIDITY_WARN
    error("Error transforming to standard format"), // KL_TIME_PROCESSING_TO_ASCII_STANDARD_FORMAT_ERR
    error("Output time is before 1950"), // KL_TIME_PROCESSING_TO_ASCII_BEFORE_1950_ERR
    error("Output time is after 2099"), // KL_TIME_PROCESSING_TO_ASCII_AFTER_2099_ERR
};
constexpr MessageGroup kGroup104 = group(k104);

constexpr Message k105[] = { // kl_time_processing_to_transport
    error("Input processing format ID is not correct"), // KL_TIME_PROCESSING_TO_TRANSPORT_PROC_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_IN_ERR
    error("Output transport format ID is not correct"), // KL_TIME_PROCESSING_TO_TRANSPORT_TRANS_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_PROCESSING_TO_TRANSPORT_TIME_REF_OUT_ERR
    error("Number of days out of range"), // KL_TIME_PROCESSING_TO_TRANSPORT_DAYS_ERR
    error("Time reference not initialised"), // KL_TIME_PROCESSING_TO_TRANSPORT_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_PROCESSING_TO_TRANSPORT_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_PROCESSING_TO_TRANSPORT_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_PROCESSING_TO_TRANSPORT_VALIDITY_WARN
    error("Error transforming to standard format"), // KL_TIME_PROCESSING_TO_TRANSPORT_STANDARD_FORMAT_ERR
};
constexpr MessageGroup kGroup105 = group(k105);

constexpr Message k106[] = { // kl_time_processing_to_processing
    error("Input processing format ID is not correct"), // KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_IN_ERR
    error("Output processing format ID is not correct"), // KL_TIME_PROCESSING_TO_PROCESSING_PROC_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_PROCESSING_TO_PROCESSING_TIME_REF_OUT_ERR
    error("Number of days out of range"), // KL_TIME_PROCESSING_TO_PROCESSING_DAYS_ERR
    error("Time reference not initialised"), // KL_TIME_PROCESSING_TO_PROCESSING_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_PROCESSING_TO_PROCESSING_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_PROCESSING_TO_PROCESSING_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_PROCESSING_TO_PROCESSING_VALIDITY_WARN
    error("Error transforming to standard format"), // KL_TIME_PROCESSING_TO_PROCESSING_STANDARD_FORMAT_ERR
};
constexpr MessageGroup kGroup106 = group(k106);

constexpr Message k107[] = { // kl_time_ascii_to_ascii
    error("Input ascii format ID is not correct"), // KL_TIME_ASCII_TO_ASCII_ASCII_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_ASCII_TO_ASCII_TIME_REF_IN_ERR
    error("Output ascii format ID is not correct"), // KL_TIME_ASCII_TO_ASCII_ASCII_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_ASCII_TO_ASCII_TIME_REF_OUT_ERR
    error("Year is not a number from 1950 to 2099"), // KL_TIME_ASCII_TO_ASCII_YEAR_ERR
    error("Time reference not initialised"), // KL_TIME_ASCII_TO_ASCII_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_ASCII_TO_ASCII_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_ASCII_TO_ASCII_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_ASCII_TO_ASCII_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_ASCII_TO_ASCII_VALIDITY_WARN
    error("Text does not have the separators of its format"), // KL_TIME_ASCII_TO_ASCII_LAYOUT_ERR
    error("Text is too short for its format"), // KL_TIME_ASCII_TO_ASCII_TOO_SHORT_ERR
    error("Text is too long for its format"), // KL_TIME_ASCII_TO_ASCII_TOO_LONG_ERR
    error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""), // KL_TIME_ASCII_TO_ASCII_PREFIX_ERR
    error("Prefix contradicts the input time reference"), // KL_TIME_ASCII_TO_ASCII_PREFIX_REF_ERR
    error("Neither a prefix nor the caller gives a time reference"), // KL_TIME_ASCII_TO_ASCII_NO_REF_ERR
    error("Year 0000 or 9999, yet no beginning- or end-of-mission text"), // KL_TIME_ASCII_TO_ASCII_MISSION_LIMIT_ERR
    error("Month is not one of 01 to 12 or JAN to DEC"), // KL_TIME_ASCII_TO_ASCII_MONTH_ERR
    error("Day is not a number from 1 to 31"), // KL_TIME_ASCII_TO_ASCII_DAY_ERR
    error("Hour is not a number from 0 to 23"), // KL_TIME_ASCII_TO_ASCII_HOUR_ERR
    error("Minute is not a number from 0 to 59"), // KL_TIME_ASCII_TO_ASCII_MINUTE_ERR
    error("Second is not a number from 0 to 59, or 60"), // KL_TIME_ASCII_TO_ASCII_SECOND_ERR
    error("Microsecond is not a number"), // KL_TIME_ASCII_TO_ASCII_MICROSECOND_ERR
    error("That month has only 30 days"), // KL_TIME_ASCII_TO_ASCII_DAY_OF_30_ERR
    error("That FEBRUARY has only 29 days"), // KL_TIME_ASCII_TO_ASCII_DAY_OF_29_ERR
    error("That FEBRUARY has only 28 days"), // KL_TIME_ASCII_TO_ASCII_DAY_OF_28_ERR
    error("Second 60 outside a positive leap second"), // KL_TIME_ASCII_TO_ASCII_LEAP_SECOND_ERR
    error("Output time is before 1950").at_bit(32), // KL_TIME_ASCII_TO_ASCII_BEFORE_1950_ERR
    error("Output time is after 2099").at_bit(33), // KL_TIME_ASCII_TO_ASCII_AFTER_2099_ERR
};
constexpr MessageGroup kGroup107 = group(k107);

constexpr Message k108[] = { // kl_time_ascii_to_transport
    error("Input ascii format ID is not correct"), // KL_TIME_ASCII_TO_TRANSPORT_ASCII_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_IN_ERR
    error("Output transport format ID is not correct"), // KL_TIME_ASCII_TO_TRANSPORT_TRANS_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_ASCII_TO_TRANSPORT_TIME_REF_OUT_ERR
    error("Year is not a number from 1950 to 2099"), // KL_TIME_ASCII_TO_TRANSPORT_YEAR_ERR
    error("Time reference not initialised"), // KL_TIME_ASCII_TO_TRANSPORT_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_ASCII_TO_TRANSPORT_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_ASCII_TO_TRANSPORT_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_ASCII_TO_TRANSPORT_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_ASCII_TO_TRANSPORT_VALIDITY_WARN
    error("Text does not have the separators of its format"), // KL_TIME_ASCII_TO_TRANSPORT_LAYOUT_ERR
    error("Text is too short for its format"), // KL_TIME_ASCII_TO_TRANSPORT_TOO_SHORT_ERR
    error("Text is too long for its format"), // KL_TIME_ASCII_TO_TRANSPORT_TOO_LONG_ERR
    error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""), // KL_TIME_ASCII_TO_TRANSPORT_PREFIX_ERR
    error("Prefix contradicts the input time reference"), // KL_TIME_ASCII_TO_TRANSPORT_PREFIX_REF_ERR
    error("Neither a prefix nor the caller gives a time reference"), // KL_TIME_ASCII_TO_TRANSPORT_NO_REF_ERR
    error("Year 0000 or 9999, yet no beginning- or end-of-mission text"), // KL_TIME_ASCII_TO_TRANSPORT_MISSION_LIMIT_ERR
    error("Month is not one of 01 to 12 or JAN to DEC"), // KL_TIME_ASCII_TO_TRANSPORT_MONTH_ERR
    error("Day is not a number from 1 to 31"), // KL_TIME_ASCII_TO_TRANSPORT_DAY_ERR
    error("Hour is not a number from 0 to 23"), // KL_TIME_ASCII_TO_TRANSPORT_HOUR_ERR
    error("Minute is not a number from 0 to 59"), // KL_TIME_ASCII_TO_TRANSPORT_MINUTE_ERR
    error("Second is not a number from 0 to 59, or 60"), // KL_TIME_ASCII_TO_TRANSPORT_SECOND_ERR
    error("Microsecond is not a number"), // KL_TIME_ASCII_TO_TRANSPORT_MICROSECOND_ERR
    error("That month has only 30 days"), // KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_30_ERR
    error("That FEBRUARY has only 29 days"), // KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_29_ERR
    error("That FEBRUARY has only 28 days"), // KL_TIME_ASCII_TO_TRANSPORT_DAY_OF_28_ERR
    error("Second 60 outside a positive leap second"), // KL_TIME_ASCII_TO_TRANSPORT_LEAP_SECOND_ERR
};
constexpr MessageGroup kGroup108 = group(k108);

constexpr Message k109[] = { // kl_time_ascii_to_processing
    error("Input ascii format ID is not correct"), // KL_TIME_ASCII_TO_PROCESSING_ASCII_ID_IN_ERR
    error("Input time reference ID is not correct"), // KL_TIME_ASCII_TO_PROCESSING_TIME_REF_IN_ERR
    error("Output processing format ID is not correct"), // KL_TIME_ASCII_TO_PROCESSING_PROC_ID_OUT_ERR
    error("Output time reference ID is not correct"), // KL_TIME_ASCII_TO_PROCESSING_TIME_REF_OUT_ERR
    error("Year is not a number from 1950 to 2099"), // KL_TIME_ASCII_TO_PROCESSING_YEAR_ERR
    error("Time reference not initialised"), // KL_TIME_ASCII_TO_PROCESSING_TIME_ID_ERR
    warning("Time out of initialization range"), // KL_TIME_ASCII_TO_PROCESSING_OUT_OF_RANGE_WARN
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_TIME_ASCII_TO_PROCESSING_BULLETIN_A_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_TIME_ASCII_TO_PROCESSING_BULLETIN_B_A_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_TIME_ASCII_TO_PROCESSING_VALIDITY_WARN
    error("Text does not have the separators of its format"), // KL_TIME_ASCII_TO_PROCESSING_LAYOUT_ERR
    error("Text is too short for its format"), // KL_TIME_ASCII_TO_PROCESSING_TOO_SHORT_ERR
    error("Text is too long for its format"), // KL_TIME_ASCII_TO_PROCESSING_TOO_LONG_ERR
    error("Prefix is none of \"TAI=\", \"UTC=\", \"UT1=\" and \"GPS=\""), // KL_TIME_ASCII_TO_PROCESSING_PREFIX_ERR
    error("Prefix contradicts the input time reference"), // KL_TIME_ASCII_TO_PROCESSING_PREFIX_REF_ERR
    error("Neither a prefix nor the caller gives a time reference"), // KL_TIME_ASCII_TO_PROCESSING_NO_REF_ERR
    error("Year 0000 or 9999, yet no beginning- or end-of-mission text"), // KL_TIME_ASCII_TO_PROCESSING_MISSION_LIMIT_ERR
    error("Month is not one of 01 to 12 or JAN to DEC"), // KL_TIME_ASCII_TO_PROCESSING_MONTH_ERR
    error("Day is not a number from 1 to 31"), // KL_TIME_ASCII_TO_PROCESSING_DAY_ERR
    error("Hour is not a number from 0 to 23"), // KL_TIME_ASCII_TO_PROCESSING_HOUR_ERR
    error("Minute is not a number from 0 to 59"), // KL_TIME_ASCII_TO_PROCESSING_MINUTE_ERR
    error("Second is not a number from 0 to 59, or 60"), // KL_TIME_ASCII_TO_PROCESSING_SECOND_ERR
    error("Microsecond is not a number"), // KL_TIME_ASCII_TO_PROCESSING_MICROSECOND_ERR
    error("That month has only 30 days"), // KL_TIME_ASCII_TO_PROCESSING_DAY_OF_30_ERR
    error("That FEBRUARY has only 29 days"), // KL_TIME_ASCII_TO_PROCESSING_DAY_OF_29_ERR
    error("That FEBRUARY has only 28 days"), // KL_TIME_ASCII_TO_PROCESSING_DAY_OF_28_ERR
    error("Second 60 outside a positive leap second"), // KL_TIME_ASCII_TO_PROCESSING_LEAP_SECOND_ERR
};
constexpr MessageGroup kGroup109 = group(k109);

constexpr Message k124[] = { // kl_time_add
    error("Processing format ID is not correct"), // KL_TIME_ADD_PROC_ID_ERR
    error("Time reference ID is not correct"), // KL_TIME_ADD_TIME_REF_ERR
    error("Input processing time is out of range"), // KL_TIME_ADD_TIME_ERR
    error("Output processing time is out of range"), // KL_TIME_ADD_SUM_ERR
};
constexpr MessageGroup kGroup124 = group(k124);

constexpr Message k125[] = { // kl_time_diff
    error("Processing format ID is not correct"), // KL_TIME_DIFF_PROC_ID_ERR
    error("Time reference ID is not correct"), // KL_TIME_DIFF_TIME_REF_ERR
    error("Input processing time #1 is out of range"), // KL_TIME_DIFF_TIME1_ERR
    error("Input processing time #2 is out of range"), // KL_TIME_DIFF_TIME2_ERR
};
constexpr MessageGroup kGroup125 = group(k125);

constexpr Message k126[] = { // kl_time_obt_to_time
    error("Satellite ID is not correct"), // KL_TIME_OBT_TO_TIME_SAT_ID_ERR
    error("Time reference ID is not correct"), // KL_TIME_OBT_TO_TIME_TIME_REF_ERR
    error("Satellite ID of the parameters or of the on-board time differs from the input satellite ID"), // KL_TIME_OBT_TO_TIME_TAG_ERR
    error("Reference time is out of range"), // KL_TIME_OBT_TO_TIME_REF_TIME_ERR
    error("No on-board time for this satellite"), // KL_TIME_OBT_TO_TIME_NO_OBT_ERR
    error("On-board time is out of range"), // KL_TIME_OBT_TO_TIME_OBT_ERR: never recorded
    error("Clock step is zero"), // KL_TIME_OBT_TO_TIME_CLOCK_STEP_ERR
    error("Output time is out of range"), // KL_TIME_OBT_TO_TIME_TIME_ERR
};
constexpr MessageGroup kGroup126 = group(k126);

constexpr Message k127[] = { // kl_time_time_to_obt
    error("Satellite ID is not correct"), // KL_TIME_TIME_TO_OBT_SAT_ID_ERR
    error("Time reference ID is not correct"), // KL_TIME_TIME_TO_OBT_TIME_REF_ERR
    error("Satellite ID of the parameters or of the on-board time differs from the input satellite ID"), // KL_TIME_TIME_TO_OBT_TAG_ERR
    error("Input time is out of range"), // KL_TIME_TIME_TO_OBT_TIME_ERR
    error("Reference time is out of range"), // KL_TIME_TIME_TO_OBT_REF_TIME_ERR
    error("No on-board time for this satellite"), // KL_TIME_TIME_TO_OBT_NO_OBT_ERR
    error("On-board time is out of range"), // KL_TIME_TIME_TO_OBT_OBT_ERR
    error("Clock step is zero"), // KL_TIME_TIME_TO_OBT_CLOCK_STEP_ERR
};
constexpr MessageGroup kGroup127 = group(k127);

constexpr Message k128[] = { // kl_time_ref_init_file
    error("Time reference ID is already initialized"), // KL_TIME_REF_INIT_FILE_ID_ERR
    error("Time model is not correct"), // KL_TIME_REF_INIT_FILE_MODEL_ERR
    error("Number of files is not correct"), // KL_TIME_REF_INIT_FILE_COUNT_ERR
    error("Time window is not correct"), // KL_TIME_REF_INIT_FILE_WINDOW_ERR
    error("Error reading file: %s", kTextArgument), // KL_TIME_REF_INIT_FILE_READ_ERR
    error("Format of the file is not known or not that of the model: %s", kTextArgument), // KL_TIME_REF_INIT_FILE_FORMAT_ERR
    error("Malformed record in line %li", kLongArgument), // KL_TIME_REF_INIT_FILE_RECORD_ERR
    error("Dates are not in increasing order in line %li", kLongArgument), // KL_TIME_REF_INIT_FILE_ORDER_ERR
    error("Prediction formula not found"), // KL_TIME_REF_INIT_FILE_FORMULA_ERR
    error("No record inside the time window"), // KL_TIME_REF_INIT_FILE_NO_RECORD_ERR
    error("Memory allocation error"), // KL_TIME_REF_INIT_FILE_MEMORY_ERR
    error("Could not compute leap second"), // KL_TIME_REF_INIT_FILE_LEAP_SECOND_ERR
    warning("Part of the time window is not covered by the files"), // KL_TIME_REF_INIT_FILE_COVERAGE_WARN
    warning("TAI-UTC stated in line %li is not that of the records", kLongArgument), // KL_TIME_REF_INIT_FILE_TAI_UTC_WARN
    warning("No UT1 in the files, UT1-UTC is taken as zero"), // KL_TIME_REF_INIT_FILE_NO_UT1_WARN
    warning("List of leap seconds has expired"), // KL_TIME_REF_INIT_FILE_LEAP_EXPIRED_WARN
};
constexpr MessageGroup kGroup128 = group(k128);

constexpr Message k129[] = { // kl_time_ref_init
    error("TAI time is out of range"), // KL_TIME_REF_INIT_TAI_ERR
    error("UTC time is out of range"), // KL_TIME_REF_INIT_UTC_ERR
    error("UT1 time is out of range"), // KL_TIME_REF_INIT_UT1_ERR
    error("GPS time is out of range"), // KL_TIME_REF_INIT_GPS_ERR
    error("Absolute orbit number is negative"), // KL_TIME_REF_INIT_ORBIT_ERR: never recorded
    error("Elapsed time since ANX is negative"), // KL_TIME_REF_INIT_ANX_TIME_ERR: never recorded
    error("Orbit duration is negative"), // KL_TIME_REF_INIT_ORBIT_DURATION_ERR: never recorded
    error("ANX time is bigger than orbit duration"), // KL_TIME_REF_INIT_ANX_DURATION_ERR: never recorded
    error("Memory allocation error"), // KL_TIME_REF_INIT_MEMORY_ERR
    error("Time reference ID is already initialized"), // KL_TIME_REF_INIT_ID_ERR
};
constexpr MessageGroup kGroup129 = group(k129);

constexpr Message k130[] = { // kl_time_id_init
    error("Time reference ID is already initialized"), // KL_TIME_REF_INIT_FILE_ID_ERR
    error("Time model is not correct"), // KL_TIME_REF_INIT_FILE_MODEL_ERR
    error("Number of files is not correct"), // KL_TIME_REF_INIT_FILE_COUNT_ERR
    error("Time window is not correct"), // KL_TIME_REF_INIT_FILE_WINDOW_ERR
    error("Error reading file: %s", kTextArgument), // KL_TIME_REF_INIT_FILE_READ_ERR
    error("Format of the file is not known or not that of the model: %s", kTextArgument), // KL_TIME_REF_INIT_FILE_FORMAT_ERR
    error("Malformed record in line %li", kLongArgument), // KL_TIME_REF_INIT_FILE_RECORD_ERR
    error("Dates are not in increasing order in line %li", kLongArgument), // KL_TIME_REF_INIT_FILE_ORDER_ERR
    error("Prediction formula not found"), // KL_TIME_REF_INIT_FILE_FORMULA_ERR
    error("No record inside the time window"), // KL_TIME_REF_INIT_FILE_NO_RECORD_ERR
    error("Memory allocation error"), // KL_TIME_REF_INIT_FILE_MEMORY_ERR
    error("Could not compute leap second"), // KL_TIME_REF_INIT_FILE_LEAP_SECOND_ERR
    warning("Part of the time window is not covered by the files"), // KL_TIME_REF_INIT_FILE_COVERAGE_WARN
    warning("TAI-UTC stated in line %li is not that of the records", kLongArgument), // KL_TIME_REF_INIT_FILE_TAI_UTC_WARN
    warning("No UT1 in the files, UT1-UTC is taken as zero"), // KL_TIME_REF_INIT_FILE_NO_UT1_WARN
    warning("List of leap seconds has expired"), // KL_TIME_REF_INIT_FILE_LEAP_EXPIRED_WARN
};
constexpr MessageGroup kGroup130 = group(k130);

constexpr Message k131[] = { // kl_time_ref_close
    error("The Time Id is not initialized or it could be in use by another Id."), // KL_TIME_REF_CLOSE_ID_ERR
};
constexpr MessageGroup kGroup131 = group(k131);

constexpr Message k135[] = { // kl_change_cart_cs
    error("Input time reference ID is not correct"), // KL_CHANGE_CART_CS_TIME_REF_ERR
    error("Input date is out of range"), // KL_CHANGE_CART_CS_DATE_ERR
    error("Calculation mode ID is not correct"), // KL_CHANGE_CART_CS_CALC_MODE_ERR
    error("Input reference frame is not correct"), // KL_CHANGE_CART_CS_CS_IN_ERR
    error("Output reference frame is not correct"), // KL_CHANGE_CART_CS_CS_OUT_ERR
    error("Time Reference not initialised"), // KL_CHANGE_CART_CS_TIME_ID_ERR
    warning("Bulletin A: previous computation performed inside file interval, current performed with formula"), // KL_CHANGE_CART_CS_FORMULA_WARN
    warning("Bulletin B+A: current computation performed inside B-A gap. Previous computation was done inside B or A files intervals."), // KL_CHANGE_CART_CS_GAP_WARN
    warning("Previous computation performed inside initialization validity, current computation performed outside initialization validity"), // KL_CHANGE_CART_CS_VALIDITY_WARN
    error("Error computing TAI time."), // KL_CHANGE_CART_CS_TAI_ERR
    error("Error computing transformation."), // KL_CHANGE_CART_CS_TRANSFORMATION_ERR
    error("Conversion to/from LIF requires time id initialised with VELM."), // KL_CHANGE_CART_CS_LIF_ERR
};
constexpr MessageGroup kGroup135 = group(k135);

constexpr Message k140[] = { // kl_sun
    error("Input time reference ID is not correct"), // KL_SUN_TIME_REF_ERR
    error("Input date is out of range"), // KL_SUN_DATE_ERR
    error("Time Reference not initialised"), // KL_SUN_TIME_ID_ERR
    error("Error in calling KL_Sun_PosVel"), // KL_SUN_BODY_ERR
    error("Error in KL_Time_p2p_ref_tai_to_tdb"), // KL_SUN_TDB_ERR
    error("Error in kl_time_processing_to_processing"), // KL_SUN_PROC_TO_PROC_ERR: never recorded
    error("Error in KL_Change_CoordinateSystem"), // KL_SUN_FRAME_ERR
};
constexpr MessageGroup kGroup140 = group(k140);

constexpr Message k141[] = { // kl_moon
    error("Input time reference ID is not correct"), // KL_MOON_TIME_REF_ERR
    error("Input date is out of range"), // KL_MOON_DATE_ERR
    error("Time Reference not initialised"), // KL_MOON_TIME_ID_ERR
    error("Error in calling KL_Moon_PosVel"), // KL_MOON_BODY_ERR
    error("Error in KL_Time_p2p_ref_tai_to_tdb"), // KL_MOON_TDB_ERR: never recorded
    error("Error in kl_time_processing_to_processing"), // KL_MOON_PROC_TO_PROC_ERR
    error("Error in KL_Change_CoordinateSystem"), // KL_MOON_FRAME_ERR
};
constexpr MessageGroup kGroup141 = group(k141);

constexpr Message k142[] = { // kl_planet
    error("Input time reference ID is not correct"), // KL_PLANET_TIME_REF_ERR
    error("Input date is out of range"), // KL_PLANET_DATE_ERR
    error("Time Reference not initialised"), // KL_PLANET_TIME_ID_ERR
    error("Planet code is not correct"), // KL_PLANET_CODE_ERR
    error("Error in KL_Time_p2p_ref_tai_to_tdb"), // KL_PLANET_TDB_ERR: never recorded
    error("Error in kl_time_processing_to_processing"), // KL_PLANET_PROC_TO_PROC_ERR
    error("Error in KL_Change_CoordinateSystem"), // KL_PLANET_FRAME_ERR
    warning("Internal Warning: KL_Planets solution didn't converge"), // KL_PLANET_CONVERGENCE_WARN
};
constexpr MessageGroup kGroup142 = group(k142);

constexpr Message k145[] = { // kl_time_get_leap_second_info
    error("Output ascii format ID is not correct"), // KL_TIME_GET_LEAP_SECOND_INFO_FORMAT_ERR
    error("Error in adding times in Processing format"), // KL_TIME_GET_LEAP_SECOND_INFO_ADD_ERR: never recorded
    error("Error in converting from Processing to ASCII format"), // KL_TIME_GET_LEAP_SECOND_INFO_CONVERT_ERR
    warning("Time Reference not initialised"), // KL_TIME_GET_LEAP_SECOND_INFO_TIME_ID_WARN
};
constexpr MessageGroup kGroup145 = group(k145);

constexpr Message k146[] = { // KL_Default_sat_init
    error("No more satellites can be initialized"), // KL_DEFAULT_SAT_INIT_NO_SLOT_ERR
    error("Error while reading satellite configuration file"), // KL_DEFAULT_SAT_INIT_FILE_ERR
    error("Could not lock other execution threads"), // KL_DEFAULT_SAT_INIT_LOCK_ERR
    error("Could not unlock other execution threads"), // KL_DEFAULT_SAT_INIT_UNLOCK_ERR: never recorded
};
constexpr MessageGroup kGroup146 = group(k146);

constexpr Message k147[] = { // kl_run_init
    error("Maximum number of initializations reached."), // KL_RUN_INIT_NO_SLOT_ERR
    error("Satellite ID is not correct"), // KL_RUN_INIT_SAT_ID_ERR
    error("Time ID is not initialized"), // KL_RUN_INIT_TIME_ID_ERR
    error("Memory allocation error"), // KL_RUN_INIT_MEMORY_ERR
    error("Inconsistency between Ids within the run_id"), // KL_RUN_INIT_CONSISTENCY_ERR: never recorded
    error("Could not lock other execution threads"), // KL_RUN_INIT_LOCK_ERR
    error("Could not unlock other execution threads"), // KL_RUN_INIT_UNLOCK_ERR
};
constexpr MessageGroup kGroup147 = group(k147);

constexpr Message k148[] = { // kl_get_rotation_angles
    error("Input vectors are not orthogonal"), // KL_GET_ROTATION_ANGLES_ORTHOGONAL_ERR
    error("Error occurred during call to function KL_CS_Rotation"), // KL_GET_ROTATION_ANGLES_ROTATION_ERR
};
constexpr MessageGroup kGroup148 = group(k148);

constexpr Message k149[] = { // kl_get_rotated_vectors
    error("Input vectors are not orthogonal"), // KL_GET_ROTATED_VECTORS_ORTHOGONAL_ERR
    error("Error occurred during call to function KL_CS_Rotation"), // KL_GET_ROTATED_VECTORS_ROTATION_ERR
};
constexpr MessageGroup kGroup149 = group(k149);

constexpr Message k151[] = { // kl_quaternions_to_vectors
    error("Wrong input quaternion. The module is different from 1"), // KL_QUATERNIONS_TO_VECTORS_MODULE_ERR
};
constexpr MessageGroup kGroup151 = group(k151);

constexpr Message k152[] = { // kl_vectors_to_quaternions
    error("Wrong input vectors."), // KL_VECTORS_TO_QUATERNIONS_VECTORS_ERR
    error("Input vectors are not orthonormal"), // KL_VECTORS_TO_QUATERNIONS_ORTHONORMAL_ERR
};
constexpr MessageGroup kGroup152 = group(k152);

constexpr Message k157[] = { // KL_Coticchia_Surace
    error("Internal computation error # 1"), // KL_COTICCHIA_SURACE_COMPUTATION_ERR: never recorded
};
constexpr MessageGroup kGroup157 = group(k157);

constexpr Message k159[] = { // kl_matrix_to_euler
    error("The matrix does not define a rotation"), // KL_MATRIX_TO_EULER_ROTATION_ERR
    warning("Ambiguity in angles determination"), // KL_MATRIX_TO_EULER_AMBIGUITY_WARN
    error("The matrix is not orthonormal"), // KL_MATRIX_TO_EULER_ORTHONORMAL_ERR
};
constexpr MessageGroup kGroup159 = group(k159);

constexpr Message k160[] = { // kl_model_init
    error("Model ID is already initialised"), // KL_MODEL_INIT_INITIALISED_ERR
    error("Memory allocation error"), // KL_MODEL_INIT_MEMORY_ERR
    error("Wrong enumeration value for %s model"), // KL_MODEL_INIT_SELECTION_ERR
};
constexpr MessageGroup kGroup160 = group(k160);

constexpr Message k161[] = { // kl_model_close
    error("The Model Id is not initialized or it could be in use by another Id."), // KL_MODEL_CLOSE_ID_ERR
};
constexpr MessageGroup kGroup161 = group(k161);

constexpr Message k162[] = { // kl_geoid_calc
    error("Wrong number of harmonics: %ld", kLongArgument), // KL_GEOID_CALC_DEGREE_ERR
    error("Latitude (%lf) outside interval [-90.,90.]", kDoubleArgument), // KL_GEOID_CALC_LATITUDE_ERR
    error("Longitude (%lf) outside interval [0.,360.)", kDoubleArgument), // KL_GEOID_CALC_LONGITUDE_ERR
    error("Error computing the undulation from coefficients model"), // KL_GEOID_CALC_COMPUTATION_ERR
};
constexpr MessageGroup kGroup162 = group(k162);

constexpr Message k163[] = { // kl_quaternions_interpol
    warning("Time interpolation parameter out of quaternions range. Extrapolation will be used."), // KL_QUATERNIONS_INTERPOL_RANGE_WARN
    error("Wrong algorithm. Only KL_INTERPOL_SLERP allowed."), // KL_QUATERNIONS_INTERPOL_ALGORITHM_ERR
};
constexpr MessageGroup kGroup163 = group(k163);

constexpr Message k164[] = { // KL_Cuc_get_data_from_P_field
    error("Epoch code in P-field not valid"), // KL_CUC_P_FIELD_EPOCH
};
constexpr MessageGroup kGroup164 = group(k164);

constexpr Message k165[] = { // KL_Cuc_compute_P_field
    error("Input epoch not valid"), // KL_CUC_P_FIELD_NO_EPOCH
};
constexpr MessageGroup kGroup165 = group(k165);

constexpr Message k166[] = { // KL_Cuc_check_inputs
    error("Time id not initialized"), // KL_CUC_CHECK_TIME_ID
    error("Wrong CUC type"), // KL_CUC_CHECK_TYPE
    error("Wrong number of octets"), // KL_CUC_CHECK_OCTETS
    error("Wrong CUC epoch type"), // KL_CUC_CHECK_EPOCH_TYPE
    error("Wrong time reference"), // KL_CUC_CHECK_TIME_REF
};
constexpr MessageGroup kGroup166 = group(k166);

constexpr Message k167[] = { // kl_time_cuc_to_processing
    error("Error in CUC configuration"), // KL_TIME_CUC_TO_PROCESSING_CONFIG_ERR
    error("Error getting CUC P field data"), // KL_TIME_CUC_TO_PROCESSING_P_FIELD_ERR
    error("Error getting CUC epoch"), // KL_TIME_CUC_TO_PROCESSING_EPOCH_ERR
};
constexpr MessageGroup kGroup167 = group(k167);

constexpr Message k168[] = { // kl_time_processing_to_cuc
    error("Error in CUC configuration"), // KL_TIME_PROCESSING_TO_CUC_CONFIG_ERR
    error("Error getting CUC epoch"), // KL_TIME_PROCESSING_TO_CUC_EPOCH_ERR
    error("CUC epoch must be previous to processing input date"), // KL_TIME_PROCESSING_TO_CUC_TIME_ERR
    error("Error computing P-field"), // KL_TIME_PROCESSING_TO_CUC_P_FIELD_ERR
};
constexpr MessageGroup kGroup168 = group(k168);

constexpr Message k169[] = { // KL_Get_CUC_processing_epoch
    error("Error converting to different time reference"), // KL_CUC_EPOCH_NOT_CONVERTED
};
constexpr MessageGroup kGroup169 = group(k169);

constexpr FunctionMessages kFunctions[] = {
    /*   0 */ {"KL_Init_Err", nullptr, 40},
    /*   1 */ {"KL_Print_Err_Msg", nullptr, -1},
    /*   2 */ {"kl_silent", nullptr, -1},
    /*   3 */ {"kl_verbose", nullptr, -1},
    /*   4 */ {"KL_Put_Err", nullptr, -1},
    /*   5 */ {"KL_Check_Err", nullptr, -1},
    /*   6 */ {"KL_Err_Msg", nullptr, -1},
    /*   7 */ {"KL_Check_Error_Code", nullptr, -1},
    /*   8 */ {"KL_Check_Extended_Error_Code", nullptr, -1},
    /*   9 */ {"KL_Car_Geo", &kGroup9, -1},
    /*  10 */ {"KL_Check_sat_id", &kGroup10, -1},
    /*  11 */ {"KL_Check_Geo_sat_id", &kGroup11, -1},
    /*  12 */ {"KL_Sat_id_to_array", &kGroup12, -1},
    /*  13 */ {"KL_Get_min_period", &kGroup13, -1},
    /*  14 */ {"KL_Get_max_period", &kGroup14, -1},
    /*  15 */ {"", nullptr, -1},
    /*  16 */ {"", nullptr, -1},
    /*  17 */ {"", nullptr, -1},
    /*  18 */ {"", nullptr, -1},
    /*  19 */ {"", nullptr, -1},
    /*  20 */ {"KL_Check_time_ref", &kGroup20, -1},
    /*  21 */ {"KL_MJD_Calendar", &kGroup21, -1},
    /*  22 */ {"KL_Calendar", &kGroup22, -1},
    /*  23 */ {"KL_Calendar_MJD", &kGroup23, -1},
    /*  24 */ {"KL_Time_check_processing_inputs", &kGroup24, -1},
    /*  25 */ {"KL_Time_check_processing_outputs", &kGroup25, -1},
    /*  26 */ {"KL_Time_p2t_format_to_std", &kGroup26, -1},
    /*  27 */ {"kl_time_current_time", &kGroup27, -1},
    /*  28 */ {"KL_Time_check_ascii_inputs", &kGroup28, -1},
    /*  29 */ {"KL_Time_check_ascii_outputs", &kGroup29, -1},
    /*  30 */ {"KL_Time_check_transport_inputs", &kGroup30, -1},
    /*  31 */ {"KL_Time_check_transport_outputs", &kGroup31, -1},
    /*  32 */ {"", nullptr, -1},
    /*  33 */ {"KL_Time_t2a_format_from_std", &kGroup33, -1},
    /*  34 */ {"", nullptr, -1},
    /*  35 */ {"", nullptr, -1},
    /*  36 */ {"KL_Time_t2t_ref_to_tai", &kGroup36, -1},
    /*  37 */ {"KL_Time_t2t_ref_from_tai", &kGroup37, -1},
    /*  38 */ {"KL_Time_ref_init_file_deltas", &kGroup38, -1},
    /*  39 */ {"KL_Get_time_in_ref", &kGroup39, -1},
    /*  40 */ {"KL_Leap_second_utc_time", &kGroup40, -1},
    /*  41 */ {"KL_Time_check_leap_second", &kGroup41, -1},
    /*  42 */ {"KL_Time_ref_init_check_inputs", &kGroup42, -1},
    /*  43 */ {"KL_Load_sp3_orbit_file_list", &kGroup43, -1},
    /*  44 */ {"", nullptr, -1},
    /*  45 */ {"", nullptr, -1},
    /*  46 */ {"", nullptr, -1},
    /*  47 */ {"", nullptr, -1},
    /*  48 */ {"", nullptr, -1},
    /*  49 */ {"", nullptr, -1},
    /*  50 */ {"KL_Change_CoordinateSystem", &kGroup50, -1},
    /*  51 */ {"KL_Change_CoordinateSystem_Sim", &kGroup51, -1},
    /*  52 */ {"", nullptr, -1},
    /*  53 */ {"", nullptr, -1},
    /*  54 */ {"", nullptr, -1},
    /*  55 */ {"", nullptr, -1},
    /*  56 */ {"", nullptr, -1},
    /*  57 */ {"", nullptr, -1},
    /*  58 */ {"", nullptr, -1},
    /*  59 */ {"", nullptr, -1},
    /*  60 */ {"KL_Earth", &kGroup60, -1},
    /*  61 */ {"KL_Sun_PosVel", &kGroup61, -1},
    /*  62 */ {"KL_Moon_PosVel", &kGroup62, -1},
    /*  63 */ {"KL_Planets", &kGroup63, -1},
    /*  64 */ {"KL_Sun_PosVel_Sun_Travel_Time", &kGroup64, -1},
    /*  65 */ {"KL_Sun_travel_time", &kGroup65, -1},
    /*  66 */ {"", nullptr, -1},
    /*  67 */ {"", nullptr, -1},
    /*  68 */ {"", nullptr, -1},
    /*  69 */ {"", nullptr, -1},
    /*  70 */ {"KL_Geoid_undu", &kGroup70, -1},
    /*  71 */ {"KL_Legfdn", &kGroup71, -1},
    /*  72 */ {"KL_Dhcsin", &kGroup72, -1},
    /*  73 */ {"KL_Dhccorr", &kGroup73, -1},
    /*  74 */ {"", nullptr, -1},
    /*  75 */ {"", nullptr, -1},
    /*  76 */ {"", nullptr, -1},
    /*  77 */ {"", nullptr, -1},
    /*  78 */ {"", nullptr, -1},
    /*  79 */ {"", nullptr, -1},
    /*  80 */ {"KL_CS_Rotation", nullptr, -1},
    /*  81 */ {"", nullptr, -1},
    /*  82 */ {"", nullptr, -1},
    /*  83 */ {"", nullptr, -1},
    /*  84 */ {"", nullptr, -1},
    /*  85 */ {"", nullptr, -1},
    /*  86 */ {"", nullptr, -1},
    /*  87 */ {"", nullptr, -1},
    /*  88 */ {"", nullptr, -1},
    /*  89 */ {"", nullptr, -1},
    /*  90 */ {"kl_earth_orientation_get", nullptr, -1},
    /*  91 */ {"kl_iers_matrix", nullptr, -1},
    /*  92 */ {"kl_iers_change", nullptr, -1},
    /*  93 */ {"", nullptr, -1},
    /*  94 */ {"", nullptr, -1},
    /*  95 */ {"", nullptr, -1},
    /*  96 */ {"", nullptr, -1},
    /*  97 */ {"", nullptr, -1},
    /*  98 */ {"", nullptr, -1},
    /*  99 */ {"", nullptr, -1},
    /* 100 */ {"", nullptr, -1},
    /* 101 */ {"kl_time_transport_to_ascii", &kGroup101, 0},
    /* 102 */ {"kl_time_transport_to_transport", &kGroup102, 1},
    /* 103 */ {"kl_time_transport_to_processing", &kGroup103, 2},
    /* 104 */ {"kl_time_processing_to_ascii", &kGroup104, 3},
    /* 105 */ {"kl_time_processing_to_transport", &kGroup105, 4},
    /* 106 */ {"kl_time_processing_to_processing", &kGroup106, 5},
    /* 107 */ {"kl_time_ascii_to_ascii", &kGroup107, 6},
    /* 108 */ {"kl_time_ascii_to_transport", &kGroup108, 7},
    /* 109 */ {"kl_time_ascii_to_processing", &kGroup109, 8},
    /* 110 */ {"", nullptr, -1},
    /* 111 */ {"", nullptr, -1},
    /* 112 */ {"", nullptr, -1},
    /* 113 */ {"", nullptr, -1},
    /* 114 */ {"", nullptr, -1},
    /* 115 */ {"", nullptr, -1},
    /* 116 */ {"", nullptr, -1},
    /* 117 */ {"", nullptr, -1},
    /* 118 */ {"", nullptr, -1},
    /* 119 */ {"", nullptr, -1},
    /* 120 */ {"", nullptr, -1},
    /* 121 */ {"", nullptr, -1},
    /* 122 */ {"", nullptr, -1},
    /* 123 */ {"", nullptr, -1},
    /* 124 */ {"kl_time_add", &kGroup124, 9},
    /* 125 */ {"kl_time_diff", &kGroup125, 10},
    /* 126 */ {"kl_time_obt_to_time", &kGroup126, 11},
    /* 127 */ {"kl_time_time_to_obt", &kGroup127, 12},
    /* 128 */ {"kl_time_ref_init_file", &kGroup128, 13},
    /* 129 */ {"kl_time_ref_init", &kGroup129, 14},
    /* 130 */ {"kl_time_id_init", &kGroup130, 15},
    /* 131 */ {"kl_time_ref_close", &kGroup131, 16},
    /* 132 */ {"", nullptr, -1},
    /* 133 */ {"", nullptr, -1},
    /* 134 */ {"", nullptr, -1},
    /* 135 */ {"kl_change_cart_cs", &kGroup135, 17},
    /* 136 */ {"kl_geod_to_cart", nullptr, 18},
    /* 137 */ {"kl_cart_to_geod", nullptr, 19},
    /* 138 */ {"kl_kepl_to_cart", nullptr, 20},
    /* 139 */ {"kl_cart_to_kepl", nullptr, 21},
    /* 140 */ {"kl_sun", &kGroup140, 22},
    /* 141 */ {"kl_moon", &kGroup141, 23},
    /* 142 */ {"kl_planet", &kGroup142, 24},
    /* 143 */ {"kl_star_radec", nullptr, 25},
    /* 144 */ {"kl_geod_distance", nullptr, 26},
    /* 145 */ {"kl_time_get_leap_second_info", &kGroup145, 27},
    /* 146 */ {"KL_Default_sat_init", &kGroup146, 28},
    /* 147 */ {"kl_run_init", &kGroup147, 29},
    /* 148 */ {"kl_get_rotation_angles", &kGroup148, 30},
    /* 149 */ {"kl_get_rotated_vectors", &kGroup149, 31},
    /* 150 */ {"kl_position_on_orbit", nullptr, 32},
    /* 151 */ {"kl_quaternions_to_vectors", &kGroup151, 33},
    /* 152 */ {"kl_vectors_to_quaternions", &kGroup152, 34},
    /* 153 */ {"kl_star_catalog", nullptr, 35},
    /* 154 */ {"kl_cart_to_radec", nullptr, 36},
    /* 155 */ {"kl_radec_to_cart", nullptr, 37},
    /* 156 */ {"KL_Eclipse", nullptr, 38},
    /* 157 */ {"KL_Coticchia_Surace", &kGroup157, 39},
    /* 158 */ {"kl_euler_to_matrix", nullptr, -1},
    /* 159 */ {"kl_matrix_to_euler", &kGroup159, 41},
    /* 160 */ {"kl_model_init", &kGroup160, 42},
    /* 161 */ {"kl_model_close", &kGroup161, 43},
    /* 162 */ {"kl_geoid_calc", &kGroup162, 44},
    /* 163 */ {"kl_quaternions_interpol", &kGroup163, 45},
    /* 164 */ {"KL_Cuc_get_data_from_P_field", &kGroup164, -1},
    /* 165 */ {"KL_Cuc_compute_P_field", &kGroup165, -1},
    /* 166 */ {"KL_Cuc_check_inputs", &kGroup166, -1},
    /* 167 */ {"kl_time_cuc_to_processing", &kGroup167, 46},
    /* 168 */ {"kl_time_processing_to_cuc", &kGroup168, 47},
    /* 169 */ {"KL_Get_CUC_processing_epoch", &kGroup169, -1},
    /* 170 */ {"", nullptr, -1},
    /* 171 */ {"", nullptr, -1},
    /* 172 */ {"", nullptr, -1},
    /* 173 */ {"", nullptr, -1},
    /* 174 */ {"KL_Polar_Motion_Rotation", nullptr, -1},
};
static_assert(std::size(kFunctions) == KL_N_FUNCTIONS);

// Internal id, words of error vector and number of documented codes, by public id.
constexpr PublicRow kPublicRows[] = {
    /*  0 */ {KL_FN_TIME_TRANSPORT_TO_ASCII, 1, 21},
    /*  1 */ {KL_FN_TIME_TRANSPORT_TO_TRANSPORT, 1, 19},
    /*  2 */ {KL_FN_TIME_TRANSPORT_TO_PROCESSING, 1, 19},
    /*  3 */ {KL_FN_TIME_PROCESSING_TO_ASCII, 1, 13},
    /*  4 */ {KL_FN_TIME_PROCESSING_TO_TRANSPORT, 1, 11},
    /*  5 */ {KL_FN_TIME_PROCESSING_TO_PROCESSING, 1, 11},
    /*  6 */ {KL_FN_TIME_ASCII_TO_ASCII, 2, 29},
    /*  7 */ {KL_FN_TIME_ASCII_TO_TRANSPORT, 1, 27},
    /*  8 */ {KL_FN_TIME_ASCII_TO_PROCESSING, 1, 27},
    /*  9 */ {KL_FN_TIME_ADD, 1, 4},
    /* 10 */ {KL_FN_TIME_DIFF, 1, 4},
    /* 11 */ {KL_FN_TIME_OBT_TO_TIME, 1, 8},
    /* 12 */ {KL_FN_TIME_TIME_TO_OBT, 1, 8},
    /* 13 */ {KL_FN_TIME_REF_INIT_FILE, 1, 16},
    /* 14 */ {KL_FN_TIME_REF_INIT, 1, 10},
    /* 15 */ {KL_FN_TIME_ID_INIT, 1, 16},
    /* 16 */ {KL_FN_TIME_REF_CLOSE, 1, 1},
    /* 17 */ {KL_FN_CHANGE_CART_CS, 1, 12},
    /* 18 */ {KL_FN_GEOD_TO_CART, 1, 0},
    /* 19 */ {KL_FN_CART_TO_GEOD, 1, 0},
    /* 20 */ {KL_FN_KEPL_TO_CART, 1, 0},
    /* 21 */ {KL_FN_CART_TO_KEPL, 1, 0},
    /* 22 */ {KL_FN_SUN, 1, 7},
    /* 23 */ {KL_FN_MOON, 1, 7},
    /* 24 */ {KL_FN_PLANET, 1, 8},
    /* 25 */ {KL_FN_STAR_RADEC, 1, 0},
    /* 26 */ {KL_FN_GEOD_DISTANCE, 1, 0},
    /* 27 */ {KL_FN_TIME_GET_LEAP_SECOND_INFO, 1, 4},
    /* 28 */ {KL_FN_DEFAULT_SAT_INIT, 1, 4},
    /* 29 */ {KL_FN_RUN_INIT, 1, 7},
    /* 30 */ {KL_FN_GET_ROTATION_ANGLES, 1, 2},
    /* 31 */ {KL_FN_GET_ROTATED_VECTORS, 1, 2},
    /* 32 */ {KL_FN_POSITION_ON_ORBIT, 1, 0},
    /* 33 */ {KL_FN_QUATERNIONS_TO_VECTORS, 1, 1},
    /* 34 */ {KL_FN_VECTORS_TO_QUATERNIONS, 1, 2},
    /* 35 */ {KL_FN_STAR_CATALOG, 1, 0},
    /* 36 */ {KL_FN_CART_TO_RADEC, 1, 0},
    /* 37 */ {KL_FN_RADEC_TO_CART, 1, 0},
    /* 38 */ {KL_FN_ECLIPSE, 1, 0},
    /* 39 */ {KL_FN_COTICCHIA_SURACE, 1, 4},
    /* 40 */ {0, 0, 0}, // unassigned
    /* 41 */ {KL_FN_MATRIX_TO_EULER, 1, 3},
    /* 42 */ {KL_FN_MODEL_INIT, 1, 3},
    /* 43 */ {KL_FN_MODEL_CLOSE, 1, 1},
    /* 44 */ {KL_FN_GEOID_CALC, 1, 4},
    /* 45 */ {KL_FN_QUATERNIONS_INTERPOL, 1, 2},
    /* 46 */ {KL_FN_TIME_CUC_TO_PROCESSING, 1, 3},
    /* 47 */ {KL_FN_TIME_PROCESSING_TO_CUC, 1, 4},
};
static_assert(std::size(kPublicRows) == KL_N_PUBLIC_IDS);

} // namespace

const FunctionMessages &function_messages(int function_id)
{
    return kFunctions[function_id];
}

const PublicRow &public_row(int public_id)
{
    return kPublicRows[public_id];
}
