#include "table.h"

#include <cstring>

namespace kitlib {

namespace {

// What to do about a condition, by words of its text; the first row that fits.
struct Remedy {
    const char *words, *remedy;
};

const Remedy kRemedies[] = {
    // The answer stands.
    {"Time out of initialization range", "read a time id from files that hold the instant (kl_time_id_init; --files), "
                                         "or live with the row or formula after the last one"},
    {"initialization validity", "read a time id from files that hold the instant (kl_time_id_init; --files), or live "
                                "with the row or formula after the last one"},
    {"Bulletin ", "a time id from newer files (kl_time_id_init; --files) holds rows in place of formula and gap"},
    {"List of leap seconds has expired", "read a newer leap-seconds.list beside the other files"},
    {"No UT1 in the files", "read a bulletin or finals2000A beside them"},
    {"Part of the time window is not covered", "read newer files beside these, or ask for a narrower window"},
    {"TAI-UTC stated", "renew the file of which the line speaks"},
    {"Extrapolation will be used", "give quaternions on either side of the time, or accept the motion carried on"},
    {"not defined", "the rest of the answer stands; do not use that angle or rate there"},
    {"Two nearest points", "the southern one is as near; nothing is wrong"},
    {"Ambiguity in angles",
     "only the sum or difference of the outer angles is known here; the matrix is the surer state"},
    {"Orbit in the plane of the equator", "compare such angles only with each other"},
    // Handles and resources.
    {"could be in use by another", "close what uses it first: runs, other ids, objects"},
    {"is already initiali", "close it first (kl_time_close, kl_model_close), or take another handle"},
    {"ot initiali", "initialise the time id first (kl_time_id_init); a call that stays in one scale, TAI for bodies "
                    "and frames, needs none"},
    {"Maximum number of initializations", "close runs that are no longer used"},
    {"No more satellites", "close default satellites that are no longer used"},
    {"Memory allocation", "free memory or pass fewer elements, then call again"},
    {"lock other", "the system lacks a lock: call again"},
    // Selectors.
    {"ime reference ID is not correct", "KL_TIME_TAI, KL_TIME_UTC, KL_TIME_UT1 or KL_TIME_GPS, by pointer"},
    {"ascii format ID", "one of KL_ASCII_11 to KL_ASCII_54, by pointer"},
    {"transport format ID", "one of KL_TRANS_0 to KL_TRANS_42, by pointer"},
    {"rocessing format ID", "KL_PROC, by pointer"},
    {"Calculation mode", "KL_CALC_POS, KL_CALC_POS_VEL or what else the function takes, by pointer"},
    {"reference frame", "one of KL_BM2000 to KL_TEME that the function takes, by pointer"},
    {"Wrong enumeration value", "KL_MODEL_DEFAULT, or a selection of kl/models.h for each of its parts"},
    {"Wrong algorithm", "KL_INTERPOL_SLERP"},
    {"requires time id initialised with VELM", "choose another frame: no time id of this library holds that one"},
    // Texts and files.
    {"compute leap second", "TAI-UTC changes at the end of a quarter only: correct the rows"},
    {"Second 60",
     "only the last second of a day with a leap second has the number 60: kitlib timeid names the last of them"},
    {"61st second",
     "only the last second of a day with a leap second is followed by one: kitlib timeid names the last of them"},
    {"Prefix", "leave the prefix out, or let it name the scale that is given"},
    {"Neither a prefix", "name the scale: in a prefix (UTC=...) or by the argument"},
    {"Text ", "write the text as its format has it, or let kl_time_text_to_processing tell the layout"},
    {"That ", "correct the day of the text"},
    {" is not a number", "correct that field of the text"},
    {"Month is not", "correct that field of the text"},
    {"Year 0000", "0000-00-00T00:00:00 and 9999-99-99T99:99:99 alone mean the limits of a mission"},
    {"before 1950", "texts begin in 1950: take days (KL_PROC) before it"},
    {"after 2099", "texts end in 2099: take days (KL_PROC) after it"},
    {"in line %li", "correct that line of the file; the report of the call, or kl_verbose(), has file, line and field"},
    {"Format of the file", "give a file as its service publishes it; the header of the function lists them"},
    {"Error reading file", "check name and permissions; kl_verbose() shows what the system says"},
    {"satellite configuration file", "correct the line that kl_verbose() names"},
    {"No record inside the time window", "ask for all rows (KL_TIME_WINDOW_FILE), or for a window that the files hold"},
    {"Prediction formula", "take the last row after the table, or a Bulletin A, which has the formula"},
    // What another function refused.
    {"Error in CUC configuration", "check the record kl_cuc_config field by field"},
    {"Error ", "the lines before it say why: kl_verbose() prints them, kl_get_last_msg() has them"},
    {"Internal computation", "the lines before it say why: kl_verbose() prints them, kl_get_last_msg() has them"},
    // Values.
    {"Mean elements", "take osculating elements (KL_KEPLER_OSCULATING) for such an orbit"},
    {"ortho", "make the vectors perpendicular, and of unit length where asked, before the call"},
    {"Wrong input quaternion", "divide the quaternion by its length"},
    {"Wrong input vectors", "no vector of length 0, and a right-handed set"},
    {"does not define a rotation", "a determinant of +1: change the sign of one axis"},
    {"of the parameters or of the on-board time differs", "give parameters and count of the satellite that is asked"},
    {"No on-board time", "only the satellites of the page of on-board clocks have one"},
    {"Satellite ID is not correct", "an id of kl/satellites.h"},
    {"out of range", "keep the argument inside that range; NaN and NULL are outside"},
    {"outside interval", "keep the argument inside that interval; NaN is outside"},
    {"not correct", "keep the argument inside its range; NaN, infinity and NULL are outside"},
    {"CUC epoch must be previous", "an epoch before the time"},
    {"Clock step is zero", "the step of the clock from its record"},
    {"orbit plane", "such a state has no orbit: check that the velocity is not the position's direction"},
    {"straight line", "such a state has no elements: check that the velocity is not the position's direction"},
    {"Wrong number of harmonics", "a degree from 0 to 360"},
};

} // namespace

const char *remedy(const Condition &condition)
{
    for (const Remedy &row : kRemedies)
        if (std::strstr(condition.text, row.words) != nullptr)
            return row.remedy;
    return "";
}

} // namespace kitlib
