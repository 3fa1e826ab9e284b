// one_call NAME N makes the named public call N times, each at its own time or place; without arguments it lists them.
#include "kl_lib.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr long kProcessing = KL_PROC;
constexpr long kTai = KL_TIME_TAI;
constexpr long kUtc = KL_TIME_UTC;
constexpr long kUt1 = KL_TIME_UT1;
constexpr long kText = KL_ASCII_14;
constexpr long kFields = KL_TRANS_23;
constexpr kl_cuc_config kCuc = {KL_CUC_TIME_FIELD_ONLY, KL_CUC_EPOCH_1980, 0, 0.0, 4, 3};

kl_time_id time_id = {};
kl_model_id model_id = {};
char text[KL_TIME_ASCII_LENGTH];
long fields[KL_TRANSPORT_LENGTH];
unsigned char octets[KL_CUC_LENGTH];
double out[9];
long ierr[1];

// A table from 1980 on, a row a day.
bool open_time_id()
{
    std::vector<kl_time_row> rows(15000);
    double utc = -7310.0;
    for (kl_time_row &row : rows) {
        const double tai = utc + 35.0 / 86400.0;
        row = {tai, tai - 34.9 / 86400.0, utc, 35.0, 34.9, 19.0};
        utc += 1.0;
    }
    kl_time_id_data data = {};
    data.model = 1;
    data.no_extrapolation = 1;
    data.n_rows = static_cast<long>(rows.size());
    data.rows = rows.data();
    return kl_time_set_id_data(&time_id, &data) == KL_OK;
}

struct Call {
    const char *name;
    long (*make)(double time);
};

const Call kCalls[] = {
    {"kl_time_processing_to_processing",
     [](double t) {
         return kl_time_processing_to_processing(&time_id, &kProcessing, &kUtc, &t, &kProcessing, &kUt1, out, ierr);
     }},
    {"kl_time_ascii_to_processing",
     [](double t) {
         kl_time_processing_to_ascii(&time_id, &kProcessing, &kUtc, &t, &kText, &kUtc, text, ierr);
         return kl_time_ascii_to_processing(&time_id, &kText, &kUtc, text, &kProcessing, &kTai, out, ierr);
     }},
    {"kl_time_processing_to_ascii",
     [](double t) {
         return kl_time_processing_to_ascii(&time_id, &kProcessing, &kTai, &t, &kText, &kUtc, text, ierr);
     }},
    {"kl_time_transport_to_processing",
     [](double t) {
         kl_time_processing_to_transport(&time_id, &kProcessing, &kUtc, &t, &kFields, &kUtc, fields, ierr);
         return kl_time_transport_to_processing(&time_id, &kFields, &kUtc, fields, &kProcessing, &kUt1, out, ierr);
     }},
    {"kl_time_processing_to_cuc",
     [](double t) { return kl_time_processing_to_cuc(&time_id, &kCuc, &kUtc, &t, octets, ierr); }},
    {"kl_change_cart_cs",
     [](double t) {
         const long mode = KL_CALC_POS_VEL_ACC;
         const long from = KL_GM2000;
         const long to = KL_EF;
         const double pos[3] = {4.2e6, -3.7e6, 4.1e6};
         const double vel[3] = {5.1e3, 5.3e3, -0.4e3};
         const double acc[3] = {-4.9, 4.3, -4.8};
         return kl_change_cart_cs(&model_id, &time_id, &mode, &from, &to, &kUtc, &t, pos, vel, acc, out, out + 3,
                                  out + 6, ierr);
     }},
    {"kl_sun", [](double t) { return kl_sun(&model_id, &time_id, &kUtc, &t, out, out + 3, ierr); }},
    {"kl_moon", [](double t) { return kl_moon(&model_id, &time_id, &kUtc, &t, out, out + 3, ierr); }},
    {"kl_planet",
     [](double t) {
         const long mars = KL_MARS;
         return kl_planet(&model_id, &time_id, &mars, &kUtc, &t, out, out + 3, ierr);
     }},
    {"kl_geoid_calc",
     [](double t) {
         const kl_geoid_input input = {nullptr, (t - 5500.0) / 20.0, t / 50.0, 0.0, 360};
         return kl_geoid_calc(&input, out, ierr);
     }},
};

} // namespace

int main(int argc, char **argv)
{
    kl_silent();
    if (argc == 1)
        for (const Call &call : kCalls)
            std::puts(call.name);
    if (argc != 3)
        return argc == 1 ? 0 : 2;
    if (!open_time_id())
        return 1;
    double time = 4000.123;
    long left = std::atol(argv[2]);
    for (const Call &call : kCalls)
        for (; std::strcmp(call.name, argv[1]) == 0 && left > 0; --left, time += 2.7310585)
            if (call.make(time) == KL_ERR)
                return 1;
    return left == 0 ? kl_time_close(&time_id, ierr) != KL_OK : 2;
}
