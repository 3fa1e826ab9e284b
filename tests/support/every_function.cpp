#include "support/every_function.h"

#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <iterator>

namespace {

// Arguments by address.
constexpr long kProc = KL_PROC;
constexpr long kTai = KL_TIME_TAI;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kAscii = KL_ASCII_11;
constexpr long kTrans = KL_TRANS_0;
constexpr long kSat = 51; // its clock is the one below
constexpr long kDegree = 36;
constexpr long kAll = KL_CALC_POS_VEL_ACC;
constexpr long kFrom = KL_GM2000;
constexpr long kTo = KL_EF;
constexpr long kPlanet = 4;
constexpr long kTwo = 2;
constexpr double kDays = 6000.25;
constexpr double kZero = 0.0;
constexpr double kOne = 1.0;
constexpr double kHalf = 0.5;
constexpr double kState[3] = {7.0e6, 1.0e3, -2.0e3};
constexpr double kX[3] = {1.0, 0.0, 0.0};
constexpr double kY[3] = {0.0, 1.0, 0.0};
constexpr double kZ[3] = {0.0, 0.0, 1.0};
constexpr double kTurn[4] = {0.0, 0.0, 0.6, 0.8};
constexpr double kNoTurn[4] = {0.0, 0.0, 0.0, 1.0};
constexpr double kSides[2] = {10.0, 20.0};
constexpr long kFields[4] = {6000, 21600, 5, 0};
constexpr char kText[] = "2016-06-05_06:00:00";
constexpr kl_cuc_config kCuc = {0, 1, KL_TIME_TAI, 0.0, 4, 2};
constexpr kl_obt_param_vardo kClock = {kSat, 0};
constexpr kl_obt_vardo kCount = {kSat, 1000, 10};

constexpr double kTimes[4] = {6000.0, 6000.0 - 36.0 / 86400.0, 6000.0 - 36.2 / 86400.0, 6000.0 - 19.0 / 86400.0};
constexpr long kOrbit = 0;
constexpr long kModels[9] = {0, 0, 0, 0, 0, 0, 0, 0, 0};
constexpr long kModelMode = 0;

long open_rows(kl_time_id *id)
{
    kl_time_row rows[4]; // over the leap second at the end of 2016
    for (int i = 0; i < 4; ++i) {
        const double utc = 6207.0 + i;
        const double tai_utc = i < 2 ? 36.0 : 37.0;
        const double tai = utc + tai_utc / 86400.0;
        rows[i] = {tai, tai - 36.4 / 86400.0, utc, tai_utc, 36.4, 19.0};
    }
    kl_time_id_data data = {};
    data.model = 1;
    data.combination = -1;
    data.n_rows = 4;
    data.rows = rows;
    return kl_time_set_id_data(id, &data);
}

// clang-format off
constexpr PublicCall kCalls[] = {
    {"kl_silent", [](World &w) { return w.call(kl_silent); }, false},
    {"kl_verbose", [](World &w) { const long was = w.call(kl_verbose); kl_silent(); return was; }, false},
    {"kl_get_code", [](World &w) { const long id = KL_ID_FUNC_SUN; long n = 0; long codes[KL_MAX_CODES];
        return w.call(kl_get_code, &id, w.ierr, &n, codes); }, false},
    {"kl_get_msg", [](World &w) { const long id = KL_ID_FUNC_SUN; long n = 0; static thread_local char msg[KL_MAX_MSG][KL_MSG_LENGTH];
        return w.call(kl_get_msg, &id, w.ierr, &n, msg); }, false},
    {"kl_print_msg", [](World &w) { const long none = 0; static thread_local char msg[KL_MAX_MSG][KL_MSG_LENGTH]; return w.call(kl_print_msg, &none, msg); }, false},
    {"kl_free_array", [](World &w) { void *none = nullptr; return w.call(kl_free_array, &none); }, false},
    {"kl_check_library_version", [](World &w) { return w.call(kl_check_library_version); }, false},

    {"kl_time_ref_init", [](World &w) { return w.call(kl_time_ref_init, kTimes, &kOrbit, &kZero, &kZero, &w.own_time, w.ierr); }, true},
    {"kl_time_set_id_data", [](World &w) { return open_rows(&w.own_time); }, false},
    {"kl_time_close", [](World &w) { long status = 0;
        if (kl_time_init_status(&w.own_time) == 0) status = open_rows(&w.own_time);
        return status == 0 ? w.call(kl_time_close, &w.own_time, w.ierr) : status; }, false},
    {"kl_time_init_status", [](World &w) { return w.call(kl_time_init_status, &w.time); }, false},
    {"kl_time_get_mode", [](World &w) { return w.call(kl_time_get_mode, &w.time); }, false},
    {"kl_time_get_sat_id", [](World &w) { return w.call(kl_time_get_sat_id, &w.time); }, false},
    {"kl_time_get_id_data", [](World &w) { kl_time_free_id_data(&w.own_rows); return w.call(kl_time_get_id_data, &w.time, &w.own_rows); }, false},
    {"kl_time_free_id_data", [](World &w) { return w.call(kl_time_free_id_data, &w.own_rows); }, false},
    {"kl_time_add", [](World &w) { return w.call(kl_time_add, &kProc, &kTai, &kDays, &kOne, &w.days, w.ierr); }, true},
    {"kl_time_diff", [](World &w) { return w.call(kl_time_diff, &kProc, &kTai, &kDays, &kOne, &w.days, w.ierr); }, true},
    {"kl_time_get_leap_second_info", [](World &w) { long sign = 0;
        return w.call(kl_time_get_leap_second_info, &w.time, &kAscii, &sign, w.text[0], w.text[1], w.ierr); }, true},

    {"kl_time_processing_to_processing", [](World &w) { return w.call(kl_time_processing_to_processing, &w.time, &kProc, &kTai, &kDays, &kProc, &kUtc, &w.days, w.ierr); }, true},
    {"kl_time_processing_to_ascii", [](World &w) { return w.call(kl_time_processing_to_ascii, &w.time, &kProc, &kTai, &kDays, &kAscii, &kUtc, w.text[0], w.ierr); }, true},
    {"kl_time_processing_to_transport", [](World &w) { return w.call(kl_time_processing_to_transport, &w.time, &kProc, &kTai, &kDays, &kTrans, &kUtc, w.fields, w.ierr); }, true},
    {"kl_time_ascii_to_processing", [](World &w) { return w.call(kl_time_ascii_to_processing, &w.time, &kAscii, &kTai, kText, &kProc, &kUtc, &w.days, w.ierr); }, true},
    {"kl_time_ascii_to_ascii", [](World &w) { return w.call(kl_time_ascii_to_ascii, &w.time, &kAscii, &kTai, kText, &kAscii, &kUtc, w.text[0], w.ierr); }, true},
    {"kl_time_ascii_to_transport", [](World &w) { return w.call(kl_time_ascii_to_transport, &w.time, &kAscii, &kTai, kText, &kTrans, &kUtc, w.fields, w.ierr); }, true},
    {"kl_time_transport_to_processing", [](World &w) { return w.call(kl_time_transport_to_processing, &w.time, &kTrans, &kTai, kFields, &kProc, &kUtc, &w.days, w.ierr); }, true},
    {"kl_time_transport_to_ascii", [](World &w) { return w.call(kl_time_transport_to_ascii, &w.time, &kTrans, &kTai, kFields, &kAscii, &kUtc, w.text[0], w.ierr); }, true},
    {"kl_time_transport_to_transport", [](World &w) { return w.call(kl_time_transport_to_transport, &w.time, &kTrans, &kTai, kFields, &kTrans, &kUtc, w.fields, w.ierr); }, true},
    {"kl_time_obt_to_time", [](World &w) { return w.call(kl_time_obt_to_time, &kSat, &kUtc, &kClock, &kCount, &w.days, w.ierr); }, true},
    {"kl_time_time_to_obt", [](World &w) { kl_obt_vardo count = {kSat, 0, 0}; return w.call(kl_time_time_to_obt, &kSat, &kUtc, &kClock, &kDays, &count, w.ierr); }, true},
    {"kl_time_processing_to_cuc", [](World &w) { return w.call(kl_time_processing_to_cuc, &w.time, &kCuc, &kTai, &kDays, w.octets, w.ierr); }, true},
    {"kl_time_cuc_to_processing", [](World &w) { return w.call(kl_time_cuc_to_processing, &w.time, &kCuc, &kTai, w.octets, &w.days, w.ierr); }, true},

    {"kl_model_init", [](World &w) { return w.call(kl_model_init, &kModelMode, kModels, &w.own_model, w.ierr); }, true},
    {"kl_model_close", [](World &w) { long status = 0;
        if (kl_model_init_status(&w.own_model) == 0) status = kl_model_init(&kModelMode, kModels, &w.own_model, w.ierr);
        return status == 0 ? w.call(kl_model_close, &w.own_model, w.ierr) : status; }, false},
    {"kl_model_init_status", [](World &w) { return w.call(kl_model_init_status, &w.model); }, false},
    {"kl_model_get_data", [](World &w) { kl_model_data data; return w.call(kl_model_get_data, &w.model, &data); }, false},
    {"kl_geoid_calc", [](World &w) { const kl_geoid_input input = {&w.model, 10.0, 20.0, 0.0, kDegree};
        return w.call(kl_geoid_calc, &input, w.a, w.ierr); }, true},
    {"kl_geoid_grid", [](World &w) { return w.call(kl_geoid_grid, &w.model, &kDegree, kSides, &kTwo, kSides, &kTwo, w.a, w.ierr); }, true},
    {"kl_change_cart_cs", [](World &w) { return w.call(kl_change_cart_cs, &w.model, &w.time, &kAll, &kFrom, &kTo, &kTai, &kDays, kState, kState, kState, w.a, w.a + 3, w.a + 6, w.ierr); }, true},
    {"kl_sun", [](World &w) { return w.call(kl_sun, &w.model, &w.time, &kTai, &kDays, w.a, w.a + 3, w.ierr); }, true},
    {"kl_moon", [](World &w) { return w.call(kl_moon, &w.model, &w.time, &kTai, &kDays, w.a, w.a + 3, w.ierr); }, true},
    {"kl_planet", [](World &w) { return w.call(kl_planet, &w.model, &w.time, &kPlanet, &kTai, &kDays, w.a, w.a + 3, w.ierr); }, true},

    {"kl_quaternions_to_vectors", [](World &w) { return w.call(kl_quaternions_to_vectors, kTurn, w.a, w.a + 3, w.a + 6, w.ierr); }, true},
    {"kl_vectors_to_quaternions", [](World &w) { return w.call(kl_vectors_to_quaternions, kX, kY, kZ, w.a, w.ierr); }, true},
    {"kl_quaternions_interpol", [](World &w) { const long slerp = KL_INTERPOL_SLERP; double to[4]; std::memcpy(to, kTurn, sizeof to);
        return w.call(kl_quaternions_interpol, &slerp, &kZero, kNoTurn, &kOne, to, &kHalf, w.a, w.ierr); }, true},
    {"kl_euler_to_matrix", [](World &w) { return w.call(kl_euler_to_matrix, kX, w.a, w.ierr); }, true},
    {"kl_matrix_to_euler", [](World &w) { kl_euler_to_matrix(kX, w.a, w.ierr); return w.call(kl_matrix_to_euler, w.a, w.a + 9, w.ierr); }, true},
    {"kl_get_rotation_angles", [](World &w) { return w.call(kl_get_rotation_angles, kX, kY, kZ, kX, kY, kZ, w.a, w.ierr); }, true},
    {"kl_get_rotated_vectors", [](World &w) { return w.call(kl_get_rotated_vectors, kX, kY, kZ, kSides, w.a, w.a + 3, w.a + 6, w.ierr); }, true},

    {"kl_default_sat_init", [](World &w) { return w.call(kl_default_sat_init, &w.own_sat, "examples/satellite.cfg", w.ierr); }, true},
    {"kl_default_sat_close", [](World &w) { return w.call(kl_default_sat_close, &w.own_sat); }, false},
    {"kl_set_tle_sat_data", [](World &w) { const long number = 41335; return w.call(kl_set_tle_sat_data, &kSat, &number, "NAME", "16011A"); }, false},
    {"kl_set_sp3_sat_data", [](World &w) { return w.call(kl_set_sp3_sat_data, kSat, "L74"); }, false},

    {"kl_run_init", [](World &w) { return w.call(kl_run_init, &kSat, &w.time, &w.model, &w.own_run, w.ierr); }, true},
    {"kl_run_close", [](World &w) { return w.call(kl_run_close, &w.own_run); }, false},
    {"kl_run_init_status", [](World &w) { return w.call(kl_run_init_status, &w.run); }, false},
    {"kl_run_id_status", [](World &w) { return w.call(kl_run_id_status, &w.run, &kTwo); }, false},
    {"kl_run_get_ids", [](World &w) { long sat; kl_time_id time; kl_model_id model; return w.call(kl_run_get_ids, &w.run, &sat, &time, &model); }, false},
    {"kl_sun_run", [](World &w) { return w.call(kl_sun_run, &w.run, &kTai, &kDays, w.a, w.a + 3, w.ierr); }, true},
    {"kl_moon_run", [](World &w) { return w.call(kl_moon_run, &w.run, &kTai, &kDays, w.a, w.a + 3, w.ierr); }, true},
    {"kl_planet_run", [](World &w) { return w.call(kl_planet_run, &w.run, &kPlanet, &kTai, &kDays, w.a, w.a + 3, w.ierr); }, true},
    {"kl_change_cart_cs_run", [](World &w) { return w.call(kl_change_cart_cs_run, &w.run, &kAll, &kFrom, &kTo, &kTai, &kDays, kState, kState, kState, w.a, w.a + 3, w.a + 6, w.ierr); }, true},
    {"kl_time_get_leap_second_info_run", [](World &w) { long sign = 0;
        return w.call(kl_time_get_leap_second_info_run, &w.run, &kAscii, &sign, w.text[0], w.text[1], w.ierr); }, true},
    {"kl_time_obt_to_time_run", [](World &w) { return w.call(kl_time_obt_to_time_run, &w.run, &kUtc, &kClock, &kCount, &w.days, w.ierr); }, true},
    {"kl_time_time_to_obt_run", [](World &w) { kl_obt_vardo count = {kSat, 0, 0}; return w.call(kl_time_time_to_obt_run, &w.run, &kUtc, &kClock, &kDays, &count, w.ierr); }, true},
    {"kl_time_processing_to_processing_run", [](World &w) { return w.call(kl_time_processing_to_processing_run, &w.run, &kProc, &kTai, &kDays, &kProc, &kUtc, &w.days, w.ierr); }, true},
    {"kl_time_processing_to_ascii_run", [](World &w) { return w.call(kl_time_processing_to_ascii_run, &w.run, &kProc, &kTai, &kDays, &kAscii, &kUtc, w.text[0], w.ierr); }, true},
    {"kl_time_processing_to_transport_run", [](World &w) { return w.call(kl_time_processing_to_transport_run, &w.run, &kProc, &kTai, &kDays, &kTrans, &kUtc, w.fields, w.ierr); }, true},
    {"kl_time_ascii_to_processing_run", [](World &w) { return w.call(kl_time_ascii_to_processing_run, &w.run, &kAscii, &kTai, kText, &kProc, &kUtc, &w.days, w.ierr); }, true},
    {"kl_time_ascii_to_ascii_run", [](World &w) { return w.call(kl_time_ascii_to_ascii_run, &w.run, &kAscii, &kTai, kText, &kAscii, &kUtc, w.text[0], w.ierr); }, true},
    {"kl_time_ascii_to_transport_run", [](World &w) { return w.call(kl_time_ascii_to_transport_run, &w.run, &kAscii, &kTai, kText, &kTrans, &kUtc, w.fields, w.ierr); }, true},
    {"kl_time_transport_to_processing_run", [](World &w) { return w.call(kl_time_transport_to_processing_run, &w.run, &kTrans, &kTai, kFields, &kProc, &kUtc, &w.days, w.ierr); }, true},
    {"kl_time_transport_to_ascii_run", [](World &w) { return w.call(kl_time_transport_to_ascii_run, &w.run, &kTrans, &kTai, kFields, &kAscii, &kUtc, w.text[0], w.ierr); }, true},
    {"kl_time_transport_to_transport_run", [](World &w) { return w.call(kl_time_transport_to_transport_run, &w.run, &kTrans, &kTai, kFields, &kTrans, &kUtc, w.fields, w.ierr); }, true},
};
// clang-format on

} // namespace

const double *BadArgument::reals() const
{
    static const auto table = [] {
        constexpr double kValues[kKinds] = {0.0, NAN, HUGE_VAL, -HUGE_VAL, 1e300, -1e300, 4e-320};
        std::array<std::array<double, 16>, kKinds> all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i].fill(kValues[i]);
        return all;
    }();
    return table[static_cast<std::size_t>(kind)].data();
}

const long *BadArgument::integers() const
{
    static const auto table = [] {
        constexpr long kValues[kKinds] = {-1, 0, 7, 99, LONG_MAX, LONG_MIN, -5};
        std::array<std::array<long, 16>, kKinds> all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i].fill(kValues[i]);
        return all;
    }();
    return table[static_cast<std::size_t>(kind)].data();
}

bool World::open()
{
    return open_rows(&time) == 0 && kl_model_init(&kModelMode, kModels, &model, ierr) == 0
           && kl_run_init(&kSat, &time, &model, &run, ierr) == 0;
}

void World::close()
{
    if (own_run >= 0)
        kl_run_close(&own_run);
    if (run >= 0)
        kl_run_close(&run);
    kl_default_sat_close(&own_sat);
    kl_time_free_id_data(&own_rows);
    for (kl_time_id *id : {&own_time, &time})
        if (id->record != nullptr)
            kl_time_close(id, ierr);
    for (kl_model_id *id : {&own_model, &model})
        if (id->record != nullptr)
            kl_model_close(id, ierr);
}

const PublicCall *every_call()
{
    return std::begin(kCalls);
}

const PublicCall *every_call_end()
{
    return std::end(kCalls);
}
