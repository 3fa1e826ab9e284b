// Satellites, runs with their twins, and the decoding of error vectors.
#include "fuzz_input.h"

#include <cstdlib>

namespace {

// The nine conversions of a run.
void convert_with_run(FuzzInput &in, const long *run_id)
{
    const long *run = in.maybe(run_id);
    const long form_in = in.byte() % 8 == 0 ? in.number() : 10 * (1 + in.byte() % 5) + 1 + in.byte() % 4;
    const long form_out = in.byte() % 8 == 0 ? in.number() : 10 * (1 + in.byte() % 5) + 1 + in.byte() % 4;
    const long proc = in.byte() % 8 == 0 ? in.number() : KL_PROC;
    const long from = in.byte() % 5;
    const long to = in.byte() % 5;
    const double days_in = in.real();
    const std::string text_in = in.text(64);
    const long fields_in[KL_TRANSPORT_LENGTH] = {in.number(), in.number(), in.bits<std::int32_t>(), in.number()};
    const double *day = in.maybe(&days_in);
    const char *words = in.maybe(text_in.c_str());
    const long *parts = in.maybe(&fields_in[0]);
    double days = 0.0;
    char text[KL_TIME_ASCII_LENGTH];
    long fields[KL_TRANSPORT_LENGTH];
    long ierr[2] = {0, 0};
    switch (in.byte() % 9) {
    case 0:
        kl_time_processing_to_processing_run(run, &proc, &from, day, &proc, &to, &days, ierr);
        break;
    case 1:
        kl_time_processing_to_ascii_run(run, &proc, &from, day, &form_out, &to, text, ierr);
        break;
    case 2:
        kl_time_processing_to_transport_run(run, &proc, &from, day, &form_out, &to, fields, ierr);
        break;
    case 3:
        kl_time_ascii_to_processing_run(run, &form_in, &from, words, &proc, &to, &days, ierr);
        break;
    case 4:
        kl_time_ascii_to_ascii_run(run, &form_in, &from, words, &form_out, &to, text, ierr);
        break;
    case 5:
        kl_time_ascii_to_transport_run(run, &form_in, &from, words, &form_out, &to, fields, ierr);
        break;
    case 6:
        kl_time_transport_to_processing_run(run, &form_in, &from, parts, &proc, &to, &days, ierr);
        break;
    case 7:
        kl_time_transport_to_ascii_run(run, &form_in, &from, parts, &form_out, &to, text, ierr);
        break;
    default:
        kl_time_transport_to_transport_run(run, &form_in, &from, parts, &form_out, &to, fields, ierr);
        break;
    }
}

void use_run(FuzzInput &in, const long *run)
{
    const long ref = in.byte() % 4;
    const double time = in.real();
    double days = 0.0;
    double pos[3];
    double vel[3];
    double acc[3] = {0.0, 0.0, 0.0};
    char text[KL_TIME_ASCII_LENGTH];
    long ierr[2] = {0, 0};
    const long other = in.number();
    switch (in.byte() % 8) {
    case 0:
        kl_sun_run(run, &ref, &time, pos, vel, ierr);
        break;
    case 1:
        kl_moon_run(run, &ref, &time, pos, vel, ierr);
        break;
    case 2:
        kl_planet_run(run, &other, &ref, &time, pos, vel, ierr);
        break;
    case 3: {
        const long mode = 3;
        const long from = KL_GM2000;
        const double state[3] = {7.0e6, 0.0, 0.0};
        kl_change_cart_cs_run(run, &mode, &from, &other, &ref, &time, state, state, state, pos, vel, acc, ierr);
        break;
    }
    case 4: {
        char after[KL_TIME_ASCII_LENGTH];
        long sign = 0;
        kl_time_get_leap_second_info_run(run, &other, &sign, text, after, ierr);
        break;
    }
    case 5: {
        const ClockRecord parameters = clock_record(in), obt = clock_record(in);
        kl_time_obt_to_time_run(run, &ref, &parameters, &obt, &days, ierr);
        break;
    }
    case 6: {
        const ClockRecord parameters = clock_record(in);
        ClockRecord obt = {parameters.sat_id};
        kl_time_time_to_obt_run(run, &ref, &parameters, &time, &obt, ierr);
        break;
    }
    default:
        convert_with_run(in, run);
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput in(data, size);
    FuzzIds ids(in);
    static char messages[KL_MAX_MSG][512];
    while (!in.empty()) {
        long id = in.byte() % 2 == 0 ? in.byte() % 24 : in.number();
        long ierr[2] = {in.bits<long>(), in.bits<long>()};
        switch (in.byte() % 12) {
        case 0: {
            const long sat_id = in.byte() % 2 == 0 ? 200 : in.number();
            expect_status(
                kl_run_init(in.maybe(&sat_id), in.maybe(&ids.time), in.maybe(&ids.model), in.maybe(&id), ierr), ierr);
            break;
        }
        case 1:
            kl_run_close(in.maybe(&id));
            break;
        case 2: {
            const long kind = in.number();
            long sat_id = 0;
            kl_time_id time = {nullptr};
            kl_model_id model = {nullptr};
            kl_run_init_status(in.maybe(&id));
            kl_run_id_status(in.maybe(&id), in.maybe(&kind));
            kl_run_get_ids(in.maybe(&id), in.maybe(&sat_id), in.maybe(&time), in.maybe(&model));
            break;
        }
        case 3:
            use_run(in, &id);
            break;
        case 4:
            expect_status(kl_default_sat_init(in.maybe(&id), in.byte() % 2 == 0 ? "" : "no such file", ierr), ierr);
            break;
        case 5:
            kl_default_sat_close(in.maybe(&id));
            break;
        case 6: {
            const long number = in.bits<long>();
            const std::string name = in.text(40);
            const std::string designator = in.text(20);
            kl_set_tle_sat_data(in.maybe(&id), in.maybe(&number), in.maybe(name.c_str()), in.maybe(designator.c_str()));
            kl_set_sp3_sat_data(id, in.maybe(name.c_str()));
            break;
        }
        case 7: {
            long n = 0;
            long codes[KL_MAX_CODES];
            kl_get_code(in.maybe(&id), in.maybe(&ierr[0]), in.maybe(&n), in.maybe(&codes[0]));
            break;
        }
        case 8: {
            const long n = in.number();
            if (n < 4) // more prints more of the same
                kl_print_msg(&n, in.maybe(&messages[0]));
            break;
        }
        case 9: {
            void *array = in.byte() % 2 == 0 ? std::malloc(8) : nullptr;
            kl_free_array(&array);
            kl_free_array(in.maybe(&array));
            break;
        }
        case 10:
            in.byte() % 16 == 0 ? kl_verbose() : kl_silent();
            if (in.byte() % 64 == 0) // it prints a page
                kl_check_library_version();
            break;
        default: {
            long n = 0;
            kl_get_msg(in.maybe(&id), in.maybe(&ierr[0]), in.maybe(&n), messages);
        }
        }
    }
    kl_silent();
    for (long run = 0; run < 20; ++run)
        kl_run_close(&run);
    for (long sat = 0; sat < 10; ++sat)
        kl_default_sat_close(&sat);
    return 0;
}
